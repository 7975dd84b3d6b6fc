// Blocks that are placed many times: what a piece costs in the list, in the walk, and in a whole
// export.

#include <benchmark/benchmark.h>

#include "bench_documents.h"
#include "export/object_walk.h"
#include "export/scene_export.h"
#include "host/document/doc.h"
#include "support/blocks.h"

namespace {

constexpr int kPlacements = 10000;
constexpr int kMembers = 50;

// A block of 50 boxes, placed 10,000 times. `nested`: each placement is of a block that places five
// blocks of ten boxes.
ONX_Model ManyPlacements(bool nested) {
  constexpr int kParts = 5;
  ONX_Model model;
  std::vector<ONX_ModelObject> boxes;
  const ONX_ModelObject box = ManySmallObjects().m_object_table[0];
  for (int i = 0; i < (nested ? kMembers / kParts : kMembers); ++i) boxes.push_back(box);
  ON_UUID block = AddBlock(model, "Boxes", std::move(boxes));
  if (nested) {
    std::vector<ONX_ModelObject> parts;
    for (int i = 0; i < kParts; ++i) parts.push_back(PlacementOf(block, TranslationBy(i, 0, 0)));
    block = AddBlock(model, "Outer", std::move(parts));
  }
  for (int i = 0; i < kPlacements; ++i) {
    const double x = 2.5 * (i % 100) + 0.123456;
    const double y = 2.5 * (i / 100) + 0.654321;
    model.m_object_table.push_back(PlacementOf(block, TranslationBy(x, y, 0)));
  }
  return model;
}

void SetPieces(benchmark::State& state) {
  state.counters["pieces/s"] =
      benchmark::Counter(kPlacements * kMembers, benchmark::Counter::kIsIterationInvariantRate);
}

orv::ObjectList Objects(CRhinoDoc& doc) {
  return orv::GatherObjects(doc, false, {});
}

void ListPieces(benchmark::State& state) {
  CRhinoDoc doc;
  doc.SetModel(ManyPlacements(state.range(0) != 0), "");
  const orv::ObjectList objects = Objects(doc);
  for (auto _ : state) benchmark::DoNotOptimize(orv::FlattenObjects(objects));
  SetPieces(state);
}

void WalkPieces(benchmark::State& state) {
  CRhinoDoc doc;
  doc.SetModel(ManyPlacements(state.range(0) != 0), "");
  const auto pieces = orv::FlattenObjects(Objects(doc));
  const orv::RenderSettings settings;
  orv::TextureConverter textures;
  const BenchFile file("blocks.rib");
  for (auto _ : state) {
    orv::RibWriter writer(file.Path());
    orv::BlockIds blocks;
    if (!orv::WriteObjects(writer, doc, pieces, settings, nullptr, textures, blocks) ||
        !writer.Close()) {
      state.SkipWithError("the objects can't be written");
      return;
    }
  }
  SetPieces(state);
}

void ExportPieces(benchmark::State& state) {
  CRhinoDoc doc;
  doc.SetModel(ManyPlacements(state.range(0) != 0), "");
  orv::RenderSettings settings;
  orv::TextureConverter textures;
  const BenchFile file("blocks.rib");
  for (auto _ : state) {
    if (orv::ExportSceneRib(file.Path(), doc, {}, 1, {}, settings, nullptr, textures) != 1) {
      state.SkipWithError("the scene can't be written");
      return;
    }
  }
  SetPieces(state);
}

// 0: one block; 1: a block of blocks.
BENCHMARK(ListPieces)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(WalkPieces)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(ExportPieces)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
