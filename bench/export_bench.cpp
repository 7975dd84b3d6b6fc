// Writing a mesh of a million vertices to a file.

#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>

#include "bench_documents.h"
#include "export/mesh_writer.h"
#include "export/scene_export.h"
#include "fprintf_mesh.h"
#include "host/document/doc.h"
#include "ratios.h"

namespace {

bool WriteMeshFile(const std::string& path, const ON_Mesh& mesh, bool weld) {
  orv::RibWriter writer(path);
  return orv::WriteMesh(writer, mesh, weld, false) && writer.Close();
}

// Times `write`, which writes a new file at the path that it is given.
void WriteFiles(benchmark::State& state, const std::function<bool(const std::string&)>& write) {
  const BenchFile file("mesh.rib");
  std::uintmax_t bytes = 0;
  for (auto _ : state) {
    if (!write(file.Path())) state.SkipWithError("the file can't be written");
    state.PauseTiming();
    bytes += std::filesystem::file_size(file.Path());
    std::filesystem::remove(file.Path());
    state.ResumeTiming();
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(bytes));
}

void CountNumbers(benchmark::State& state, const ON_Mesh& mesh) {
  state.SetItemsProcessed(state.iterations() * NumberCount(mesh));
}

void Fprintf(benchmark::State& state) {
  const ON_Mesh mesh = DenseMesh();
  WriteFiles(state, [&](const std::string& path) { return WriteMeshWithFprintf(path, mesh); });
  CountNumbers(state, mesh);
}

void Plain(benchmark::State& state) {
  const ON_Mesh mesh = DenseMesh();
  WriteFiles(state, [&](const std::string& path) { return WriteMeshFile(path, mesh, false); });
  CountNumbers(state, mesh);
}

void WholeExport(benchmark::State& state) {
  CRhinoDoc doc;
  doc.SetModel(ModelOf(DenseMesh()), "");
  orv::RenderSettings settings;
  orv::TextureConverter textures;
  WriteFiles(state, [&](const std::string& path) {
    return orv::ExportSceneRib(path, doc, {}, 1, {}, settings, nullptr, textures) == 1;
  });
  CountNumbers(state, DenseMesh());
}

void WeldNothing(benchmark::State& state) {
  const ON_Mesh mesh = DenseMesh();
  WriteFiles(state, [&](const std::string& path) { return WriteMeshFile(path, mesh, true); });
}

void SeamedPlain(benchmark::State& state) {
  const ON_Mesh mesh = SeamedMesh();
  WriteFiles(state, [&](const std::string& path) { return WriteMeshFile(path, mesh, false); });
}

void SeamedWelded(benchmark::State& state) {
  const ON_Mesh mesh = SeamedMesh();
  WriteFiles(state, [&](const std::string& path) { return WriteMeshFile(path, mesh, true); });
}

void ApartPlain(benchmark::State& state) {
  const ON_Mesh mesh = ApartMesh();
  WriteFiles(state, [&](const std::string& path) { return WriteMeshFile(path, mesh, false); });
}

void ApartWelded(benchmark::State& state) {
  const ON_Mesh mesh = ApartMesh();
  WriteFiles(state, [&](const std::string& path) { return WriteMeshFile(path, mesh, true); });
}

BENCHMARK(Fprintf)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(Plain)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(WholeExport)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(WeldNothing)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(SeamedPlain)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(SeamedWelded)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(ApartPlain)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(ApartWelded)->UseRealTime()->Unit(benchmark::kMillisecond);

std::string FileContent(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

// The comparison counts only if both writers give the same bytes.
bool GiveTheSameBytes() {
  const ON_Mesh mesh = DenseMesh();
  const BenchFile byFprintf("fprintf.rib");
  const BenchFile byWriter("writer.rib");
  return WriteMeshWithFprintf(byFprintf.Path(), mesh) &&
         WriteMeshFile(byWriter.Path(), mesh, false) &&
         FileContent(byFprintf.Path()) == FileContent(byWriter.Path());
}

}  // namespace

int main(int argc, char** argv) {
  if (!GiveTheSameBytes()) {
    std::fprintf(stderr, "the mesh writer and the fprintf writer differ\n");
    return 1;
  }
  return RunWithRatios(argc, argv,
                       {{"mesh: fprintf to mesh writer", "Fprintf", "Plain"},
                        {"mesh: fprintf to whole export of its document", "Fprintf", "WholeExport"},
                        {"no two vertices alike: weld to plain form", "WeldNothing", "Plain"},
                        {"two seams: weld to plain form", "SeamedWelded", "SeamedPlain"},
                        {"no vertex shared: weld to plain form", "ApartWelded", "ApartPlain"}});
}
