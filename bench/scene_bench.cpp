// Exporting a document of many small objects: what a block costs without its geometry.

#include <benchmark/benchmark.h>

#include <string>

#include "allocation_count.h"
#include "bench_documents.h"
#include "export/scene_export.h"
#include "host/document/doc.h"

namespace {

// Exports the document of `model` again and again. Time and allocations are told for one object.
void ExportObjects(benchmark::State& state, ONX_Model model) {
  CRhinoDoc doc;
  doc.SetModel(std::move(model), "");
  orv::RenderSettings settings;
  orv::TextureConverter textures;
  const BenchFile file("scene.rib");
  const std::int64_t before = AllocationCount();
  for (auto _ : state) {
    if (orv::ExportSceneRib(file.Path(), doc, {}, 1, {}, settings, nullptr, textures) != 1) {
      state.SkipWithError("the scene can't be written");
      return;
    }
  }
  const auto objects = static_cast<double>(doc.Objects().size());
  const auto runs = static_cast<double>(state.iterations());
  state.counters["allocations"] =
      static_cast<double>(AllocationCount() - before) / (objects * runs);
  state.counters["time"] = benchmark::Counter(
      objects, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void ObjectsWithoutAttributes(benchmark::State& state) {
  ExportObjects(state, ManyObjectsWithoutFaces(0));
}

void ObjectsWithAttributes(benchmark::State& state) {
  ExportObjects(state, ManyObjectsWithoutFaces(5));
}

BENCHMARK(ObjectsWithoutAttributes)->Unit(benchmark::kMillisecond);
BENCHMARK(ObjectsWithAttributes)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
