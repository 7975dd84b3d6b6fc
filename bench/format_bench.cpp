// Formatting of numbers: nanoseconds for each, beside snprintf and std::to_chars.

#include <benchmark/benchmark.h>

#include <charconv>
#include <cstdio>
#include <random>
#include <vector>

#include "host/system/number_text.h"
#include "ratios.h"

namespace {

constexpr int kCount = 100'000;

// Single-precision coordinates between -500 and 500.
std::vector<float> Coordinates() {
  std::mt19937 random(1);
  std::uniform_real_distribution<float> coordinate(-500, 500);
  std::vector<float> values(kCount);
  for (float& value : values) value = coordinate(random);
  return values;
}

std::vector<int> Indices() {
  std::mt19937 random(1);
  std::vector<int> values(kCount);
  for (int& value : values) value = static_cast<int>(random() % 1'000'000);
  return values;
}

// Writes the values with `format`, each with a blank behind it, and counts the time for each.
template <class Value, class Format>
void WriteAll(benchmark::State& state, const std::vector<Value>& values, Format format) {
  constexpr std::size_t kRoom = 24;
  std::vector<char> out(values.size() * kRoom);
  for (auto _ : state) {
    char* end = out.data();
    for (const Value value : values) end = format(value, end);
    benchmark::DoNotOptimize(end);
    benchmark::ClobberMemory();
  }
  state.SetItemsProcessed(state.iterations() * kCount);
}

void Snprintf(benchmark::State& state) {
  WriteAll(state, Coordinates(), [](float value, char* out) {
    return out + std::snprintf(out, 24, "%g ", static_cast<double>(value));
  });
}

void ToChars(benchmark::State& state) {
  WriteAll(state, Coordinates(), [](double value, char* out) {
    out = std::to_chars(out, out + 16, value, std::chars_format::general, 6).ptr;
    *out = ' ';
    return out + 1;
  });
}

void FormatG(benchmark::State& state) {
  WriteAll(state, Coordinates(), [](float value, char* out) {
    out = host::FormatG(value, out);
    *out = ' ';
    return out + 1;
  });
}

void SnprintfInt(benchmark::State& state) {
  WriteAll(state, Indices(),
           [](int value, char* out) { return out + std::snprintf(out, 24, "%d ", value); });
}

void ToCharsInt(benchmark::State& state) {
  WriteAll(state, Indices(), [](int value, char* out) {
    out = std::to_chars(out, out + 16, value).ptr;
    *out = ' ';
    return out + 1;
  });
}

void FormatInt(benchmark::State& state) {
  WriteAll(state, Indices(), [](int value, char* out) {
    out = host::FormatInt(value, out);
    *out = ' ';
    return out + 1;
  });
}

BENCHMARK(Snprintf);
BENCHMARK(ToChars);
BENCHMARK(FormatG);
BENCHMARK(SnprintfInt);
BENCHMARK(ToCharsInt);
BENCHMARK(FormatInt);

}  // namespace

int main(int argc, char** argv) {
  return RunWithRatios(argc, argv,
                       {{"\"%g \": snprintf to FormatG", "Snprintf", "FormatG"},
                        {"\"%g \": std::to_chars to FormatG", "ToChars", "FormatG"},
                        {"\"%d \": snprintf to FormatInt", "SnprintfInt", "FormatInt"},
                        {"\"%d \": std::to_chars to FormatInt", "ToCharsInt", "FormatInt"}});
}
