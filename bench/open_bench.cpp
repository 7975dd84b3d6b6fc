// Opening documents. The time for a dense mesh is compared with that of inflating its compressed
// buffers alone.

#include <benchmark/benchmark.h>
#include <libdeflate.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "bench_documents.h"
#include "host/archive/model_reader.h"
#include "ratios.h"
#include "support/model_writer.h"

namespace {

void OpenFile(benchmark::State& state, const std::string& path) {
  for (auto _ : state) {
    auto model = std::make_unique<ONX_Model>();
    const ON_ReadResult result = ON_ReadModel(path, *model);
    if (!result.ok) state.SkipWithError(result.error.c_str());
    benchmark::DoNotOptimize(model->m_object_table.data());
    // Giving the model back is no part of opening it.
    state.PauseTiming();
    model.reset();
    state.ResumeTiming();
  }
}

using Decompressor =
    std::unique_ptr<libdeflate_decompressor, decltype(&libdeflate_free_decompressor)>;

Decompressor MakeDecompressor() {
  return {libdeflate_alloc_decompressor(), libdeflate_free_decompressor};
}

struct PackedBuffer {
  std::string bytes;
  std::size_t unpackedSize = 0;
};

// All compressed buffers of a document, found by their zlib heads.
std::vector<PackedBuffer> PackedBuffers(const std::string& document) {
  constexpr std::size_t kMostUnpacked = std::size_t{64} << 20;
  constexpr std::size_t kLeastUnpacked = 128;
  const Decompressor decompressor = MakeDecompressor();
  std::vector<char> out(kMostUnpacked);
  std::vector<PackedBuffer> buffers;
  for (std::size_t at = 0; at + 2 < document.size(); ++at) {
    const auto head = static_cast<unsigned>(static_cast<unsigned char>(document[at]) << 8 |
                                            static_cast<unsigned char>(document[at + 1]));
    if (document[at] != 0x78 || head % 31 != 0) continue;
    std::size_t used = 0;
    std::size_t given = 0;
    const auto result =
        libdeflate_zlib_decompress_ex(decompressor.get(), document.data() + at,
                                      document.size() - at, out.data(), out.size(), &used, &given);
    if (result != LIBDEFLATE_SUCCESS || given < kLeastUnpacked) continue;
    buffers.push_back({document.substr(at, used), given});
    at += used - 1;
  }
  return buffers;
}

// Inflates each buffer into memory of its own, as the reader of a document must.
void InflateBuffers(benchmark::State& state, const std::vector<PackedBuffer>& buffers) {
  const Decompressor decompressor = MakeDecompressor();
  for (auto _ : state) {
    std::vector<std::unique_ptr<char[]>> unpacked;
    for (const PackedBuffer& buffer : buffers) {
      unpacked.push_back(std::make_unique_for_overwrite<char[]>(buffer.unpackedSize));
      const auto result =
          libdeflate_zlib_decompress(decompressor.get(), buffer.bytes.data(), buffer.bytes.size(),
                                     unpacked.back().get(), buffer.unpackedSize, nullptr);
      if (result != LIBDEFLATE_SUCCESS) state.SkipWithError("a buffer is damaged");
    }
    benchmark::DoNotOptimize(unpacked.data());
    state.PauseTiming();
    unpacked.clear();
    state.ResumeTiming();
  }
}

std::string FileContent(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

void Register(const std::string& name, const std::function<void(benchmark::State&)>& run) {
  benchmark::RegisterBenchmark(name.c_str(), run)->UseRealTime()->Unit(benchmark::kMillisecond);
}

// Two benchmarks of one document: opening it and inflating its buffers.
void RegisterWithInflating(const std::string& name, const std::string& path,
                           std::vector<Ratio>& ratios) {
  const auto buffers =
      std::make_shared<std::vector<PackedBuffer>>(PackedBuffers(FileContent(path)));
  Register("Open " + name, [path](benchmark::State& state) { OpenFile(state, path); });
  Register("Inflate " + name, [buffers](benchmark::State& s) { InflateBuffers(s, *buffers); });
  ratios.push_back({name + ": open to inflating alone", "Open " + name, "Inflate " + name});
}

// Every document of ORV_MODEL_CORPUS that can be read.
void RegisterCorpus(std::vector<Ratio>& ratios) {
  const char* corpus = std::getenv("ORV_MODEL_CORPUS");
  if (corpus == nullptr) return;
  const auto dense = std::filesystem::path(corpus) / "made" / "dense_mesh.3dm";
  if (std::filesystem::exists(dense)) RegisterWithInflating("dense_mesh", dense.string(), ratios);
  std::vector<std::filesystem::path> paths;
  for (const auto& entry :
       std::filesystem::directory_iterator(std::filesystem::path(corpus) / "real")) {
    ONX_Model model;
    const bool readable =
        entry.path().extension() == ".3dm" && ON_ReadModel(entry.path().string(), model).ok;
    if (readable) paths.push_back(entry.path());
  }
  std::sort(paths.begin(), paths.end());
  for (const auto& path : paths) {
    Register("Open " + path.stem().string(),
             [path](benchmark::State& state) { OpenFile(state, path.string()); });
  }
}

}  // namespace

int main(int argc, char** argv) {
  std::vector<Ratio> ratios;
  const BenchFile dense("dense.3dm", WriteModel(ModelOf(DenseMesh())));
  const BenchFile many("many.3dm", WriteModel(ManySmallObjects()));
  RegisterWithInflating("million vertices", dense.Path(), ratios);
  Register("Open 20000 boxes", [&](benchmark::State& state) { OpenFile(state, many.Path()); });
  RegisterCorpus(ratios);
  return RunWithRatios(argc, argv, ratios);
}
