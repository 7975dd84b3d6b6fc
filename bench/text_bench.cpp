#include <benchmark/benchmark.h>

#include "host/modeling/planar_breps.h"
#include "host/modeling/text_outlines.h"

// How fast texts become filled faces. The counter is letters a second.

namespace {

constexpr int kLines = 100;
constexpr int kLettersOfALine = 100;

ON_TextEntity2 LongText() {
  ON_TextEntity2 text;
  for (int line = 0; line < kLines; ++line) {
    for (int i = 0; i < kLettersOfALine; ++i) text.m_text += "ABdeg%O8iQ"[i % 10];
    text.m_text += '\n';
  }
  return text;
}

void CountLetters(benchmark::State& state) {
  state.SetItemsProcessed(state.iterations() * kLines * kLettersOfALine);
}

void OutlineText(benchmark::State& state) {
  const ON_TextEntity2 text = LongText();
  for (auto _ : state) benchmark::DoNotOptimize(host::TextOutlines(text));
  CountLetters(state);
}
BENCHMARK(OutlineText)->Unit(benchmark::kMillisecond);

void FillText(benchmark::State& state) {
  const auto outlines = host::TextOutlines(LongText());
  for (auto _ : state) benchmark::DoNotOptimize(RhinoMakePlanarBreps(outlines, 1e-6));
  CountLetters(state);
}
BENCHMARK(FillText)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
