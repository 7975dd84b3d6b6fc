// Making render meshes of trimmed surfaces.

#include <benchmark/benchmark.h>

#include <vector>

#include "bench_documents.h"
#include "host/document/doc.h"
#include "host/document/render_meshes.h"
#include "host/modeling/render_mesh.h"

namespace {

void Count(benchmark::State& state, std::int64_t faces, std::int64_t triangles) {
  const auto inverse = benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert;
  state.counters["face"] = benchmark::Counter(static_cast<double>(faces), inverse);
  state.counters["triangle"] = benchmark::Counter(static_cast<double>(triangles), inverse);
  state.counters["triangles"] = benchmark::Counter(static_cast<double>(triangles));
}

// All faces in one brep.
void OneBrep(benchmark::State& state) {
  const ON_Brep brep = ManyTrimmedFaces();
  std::int64_t triangles = 0;
  for (auto _ : state) {
    const host::MadeMeshes made = host::MakeRenderMeshes(brep, {});
    if (!made.failed_faces.empty()) state.SkipWithError("a face can't be meshed");
    triangles = 0;
    for (const auto& mesh : made.meshes) triangles += mesh->FaceCount();
  }
  Count(state, static_cast<std::int64_t>(brep.m_F.size()), triangles);
}

// Each face as an object of its own.
void ManyObjects(benchmark::State& state) {
  std::int64_t triangles = 0;
  std::size_t faces = 0;
  for (auto _ : state) {
    state.PauseTiming();
    CRhinoDoc doc;
    doc.SetModel(ManyTrimmedSurfaces(), "");
    std::vector<const CRhinoObject*> objects;
    for (const auto& object : doc.Objects()) objects.push_back(object.get());
    std::vector<CRhinoObjRef> meshes;
    state.ResumeTiming();
    RhinoGetRenderMeshes(objects, meshes);
    state.PauseTiming();
    faces = meshes.size();
    triangles = 0;
    for (const CRhinoObjRef& mesh : meshes) triangles += mesh.Mesh()->FaceCount();
    state.ResumeTiming();
  }
  Count(state, static_cast<std::int64_t>(faces), triangles);
}

BENCHMARK(OneBrep)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(ManyObjects)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

BENCHMARK_MAIN();
