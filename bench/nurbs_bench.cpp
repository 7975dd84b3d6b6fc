// Exporting trimmed surfaces as NURBS, and drawings of curves.

#include <benchmark/benchmark.h>

#include <fstream>
#include <iterator>
#include <string>

#include "bench_documents.h"
#include "export/nurbs_writer.h"
#include "export/scene_export.h"
#include "host/document/doc.h"

namespace {

// How many numbers stand in a stream.
std::int64_t CountNumbers(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  const std::string text{std::istreambuf_iterator<char>(file), {}};
  std::int64_t count = 0;
  char before = '\n';
  for (const char c : text) {
    const bool begins = (c >= '0' && c <= '9') || c == '-';
    if (begins && (before == ' ' || before == '[' || before == '\n')) ++count;
    before = c;
  }
  return count;
}

// Times `write`, which writes a file at the path that it is given, for one of `count` things and
// for one number of the file.
template <class Write>
void WriteFiles(benchmark::State& state, std::int64_t count, Write write) {
  const BenchFile file("nurbs.rib");
  for (auto _ : state) {
    if (!write(file.Path())) {
      state.SkipWithError("the file can't be written");
      return;
    }
  }
  const auto inverse = benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert;
  const auto numbers = static_cast<double>(CountNumbers(file.Path()));
  state.counters["each"] = benchmark::Counter(static_cast<double>(count), inverse);
  state.counters["number"] = benchmark::Counter(numbers, inverse);
}

void WriteBreps(benchmark::State& state, int reparameterize) {
  const ON_Brep brep = ManyTrimmedFaces();
  WriteFiles(state, static_cast<std::int64_t>(brep.m_F.size()), [&](const std::string& path) {
    orv::RibWriter writer(path);
    writer.Reparameterize = reparameterize;
    return orv::WriteBrep(writer, brep) == 1 && writer.Close();
  });
}

void FacesAsTheyAre(benchmark::State& state) {
  WriteBreps(state, 0);
}

void ReparameterizedFaces(benchmark::State& state) {
  WriteBreps(state, 1);
}

void ExportDocument(benchmark::State& state, ONX_Model model) {
  CRhinoDoc doc;
  doc.SetModel(std::move(model), "");
  orv::RenderSettings settings;
  settings.RenderCurves = true;
  orv::TextureConverter textures;
  WriteFiles(state, static_cast<std::int64_t>(doc.Objects().size()), [&](const std::string& path) {
    return orv::ExportSceneRib(path, doc, {}, 1, {}, settings, nullptr, textures) == 1;
  });
}

void DocumentOfFaces(benchmark::State& state) {
  ExportDocument(state, ManyTrimmedSurfaces());
}

void DocumentOfCurves(benchmark::State& state) {
  ExportDocument(state, ManyCurves(false));
}

void DocumentOfDashedCurves(benchmark::State& state) {
  ExportDocument(state, ManyCurves(true));
}

BENCHMARK(FacesAsTheyAre)->Unit(benchmark::kMillisecond);
BENCHMARK(ReparameterizedFaces)->Unit(benchmark::kMillisecond);
BENCHMARK(DocumentOfFaces)->Unit(benchmark::kMillisecond);
BENCHMARK(DocumentOfCurves)->Unit(benchmark::kMillisecond);
BENCHMARK(DocumentOfDashedCurves)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
