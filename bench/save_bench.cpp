// Saving a document of about 100 MB in which one text of one object has changed, compared with a
// plain copy of the file that is flushed to the disk just as well.

#include <benchmark/benchmark.h>

#include <string>

#include "bench_documents.h"
#include "host/document/app.h"
#include "host/system/file_replacement.h"
#include "ratios.h"
#include "support/model_writer.h"

namespace {

constexpr std::size_t kSize = 100'000'000;

// As many dense meshes as make up the size.
std::string LargeDocument() {
  ONX_Model model = ModelOf(DenseMesh());
  const std::size_t one = WriteModel(model).size();
  const ONX_ModelObject object = model.m_object_table.front();
  for (std::size_t size = one; size < kSize; size += one) model.m_object_table.push_back(object);
  return WriteModel(model);
}

// A document of so many objects that the walk through their records counts.
std::string ManyObjects() {
  return WriteModel(ManySmallObjects());
}

void Copy(benchmark::State& state, const std::string& path) {
  const BenchFile target("copy.3dm");
  const host::FileReader file(path);
  for (auto _ : state) {
    host::FileReplacement out(target.Path());
    out.Copy(file, 0, file.Size());
    if (!out.Commit()) state.SkipWithError(host::LastSystemError().c_str());
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(file.Size()));
}

void Save(benchmark::State& state, const std::string& path) {
  CRhinoApp app;
  if (!app.OpenDocument(path)) return state.SkipWithError("the document can't be opened");
  CRhinoDoc& doc = app.ActiveDoc();
  const BenchFile target("saved.3dm");
  int number = 0;
  for (auto _ : state) {
    ON_3dmObjectAttributes attributes = doc.Objects()[0]->Attributes();
    attributes.SetUserString("Number", std::to_string(++number));
    if (!doc.ModifyObjectAttributes(*doc.Objects()[0], attributes) ||
        !app.SaveDocument(target.Path())) {
      state.SkipWithError("the document can't be saved");
    }
  }
  state.SetBytesProcessed(state.iterations() *
                          static_cast<std::int64_t>(host::FileReader(path).Size()));
}

void Register(const std::string& name, const std::string& path, std::vector<Ratio>& ratios) {
  benchmark::RegisterBenchmark(("Save " + name).c_str(),
                               [path](benchmark::State& state) { Save(state, path); })
      ->UseRealTime()
      ->Unit(benchmark::kMillisecond);
  benchmark::RegisterBenchmark(("Copy " + name).c_str(),
                               [path](benchmark::State& state) { Copy(state, path); })
      ->UseRealTime()
      ->Unit(benchmark::kMillisecond);
  ratios.push_back({name + ": saving to a plain copy", "Save " + name, "Copy " + name});
}

}  // namespace

int main(int argc, char** argv) {
  std::vector<Ratio> ratios;
  const BenchFile large("large.3dm", LargeDocument());
  const BenchFile many("many.3dm", ManyObjects());
  Register("100 MB", large.Path(), ratios);
  Register("20000 boxes", many.Path(), ratios);
  return RunWithRatios(argc, argv, ratios);
}
