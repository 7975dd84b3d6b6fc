// The most memory that opening and exporting a document take beyond the model itself.
//
//   bench_memory [MODEL.3dm]
//
// Without a model: the documents of the other benchmarks. Each is measured in a process of its own,
// because memory that was used once stays with the process.

#include <malloc.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

#include "bench_documents.h"
#include "export/mesh_writer.h"
#include "export/scene_export.h"
#include "host/archive/model_reader.h"
#include "host/document/doc.h"
#include "support/model_writer.h"

namespace {

constexpr double kMegabyte = 1024 * 1024;

// A value of /proc/self/status in MB.
double Status(const std::string& key) {
  std::ifstream status("/proc/self/status");
  std::string word;
  while (status >> word) {
    double kilobytes = 0;
    if (word == key && status >> kilobytes) return kilobytes * 1024 / kMegabyte;
  }
  return 0;
}

// What is allocated now, in MB.
double Allocated() {
  const struct mallinfo2 info = mallinfo2();
  return static_cast<double>(info.uordblks + info.hblkhd) / kMegabyte;
}

struct Usage {
  double kept;        // what the work leaves allocated
  double peakBeyond;  // the most memory in use meanwhile beyond that
};

template <class Work>
Usage Measure(Work work) {
  std::ofstream("/proc/self/clear_refs") << "5";  // the peak is counted anew
  const double memory = Status("VmRSS:");
  const double allocated = Allocated();
  work();
  const double kept = Allocated() - allocated;
  return {kept, std::max(Status("VmHWM:") - memory - kept, 0.0)};
}

int MeasureDocument(const std::string& path) {
  ONX_Model model;
  ON_ReadResult result;
  const Usage opening = Measure([&] { result = ON_ReadModel(path, model); });
  if (!result.ok) {
    std::fprintf(stderr, "%s: %s\n", path.c_str(), result.error.c_str());
    return 1;
  }
  CRhinoDoc doc;
  doc.SetModel(std::move(model), path);
  orv::RenderSettings settings;
  orv::TextureConverter textures;
  const BenchFile file("memory.rib");
  int exported = 0;
  const Usage exporting = Measure([&] {
    exported = orv::ExportSceneRib(file.Path(), doc, {}, 1, {}, settings, nullptr, textures);
  });
  std::printf("model %.1f MB, opening +%.1f MB, export +%.1f MB\n", opening.kept,
              opening.peakBeyond, exporting.peakBeyond);
  return exported == 1 ? 0 : 1;
}

int MeasureWeld() {
  const ON_Mesh mesh = SeamedMesh();
  const BenchFile file("weld.rib");
  bool written = false;
  const Usage welding = Measure([&] {
    orv::RibWriter writer(file.Path());
    written = orv::WriteMesh(writer, mesh, true, false) && writer.Close();
  });
  std::printf("weld +%.1f MB\n", welding.peakBeyond);
  return written ? 0 : 1;
}

bool RunAgain(const std::string& program, const std::string& argument) {
  std::fflush(stdout);
  return std::system(("\"" + program + "\" \"" + argument + "\"").c_str()) == 0;
}

}  // namespace

int main(int argc, char** argv) {
  const std::string argument = argc == 2 ? argv[1] : "";
  if (argument == "--weld") return MeasureWeld();
  if (!argument.empty()) return MeasureDocument(argument);
  const BenchFile dense("dense.3dm", WriteModel(ModelOf(DenseMesh())));
  const BenchFile many("many.3dm", WriteModel(ManySmallObjects()));
  std::printf("A mesh of a million vertices: ");
  const bool denseDone = RunAgain(argv[0], dense.Path());
  std::printf("20,000 boxes: ");
  const bool manyDone = RunAgain(argv[0], many.Path());
  std::printf("Welding a mesh of a million vertices: ");
  const bool weldDone = RunAgain(argv[0], "--weld");
  return denseDone && manyDone && weldDone ? 0 : 1;
}
