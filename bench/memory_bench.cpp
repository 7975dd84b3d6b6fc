// The most memory that opening and exporting a document take beyond the model itself.
//
//   bench_memory [MODEL.3dm]
//
// Without a model: the documents of the other benchmarks.

#include <cstdio>
#include <fstream>
#include <string>

#include "bench_documents.h"
#include "export/mesh_writer.h"
#include "export/scene_export.h"
#include "host/archive/model_reader.h"
#include "host/document/doc.h"
#include "support/model_writer.h"

namespace {

// A value of /proc/self/status in MB.
double Status(const std::string& key) {
  std::ifstream status("/proc/self/status");
  std::string word;
  while (status >> word) {
    double kilobytes = 0;
    if (word == key && status >> kilobytes) return kilobytes / 1024;
  }
  return 0;
}

// Runs `work` and gives the most memory that was in use meanwhile beyond what it leaves in use.
template <class Work>
double PeakBeyondRest(Work work) {
  std::ofstream("/proc/self/clear_refs") << "5";  // the peak is counted anew
  work();
  return Status("VmHWM:") - Status("VmRSS:");
}

bool Measure(const std::string& name, const std::string& path) {
  ONX_Model model;
  ON_ReadResult result;
  const double before = Status("VmRSS:");
  const double opening = PeakBeyondRest([&] { result = ON_ReadModel(path, model); });
  if (!result.ok) {
    std::fprintf(stderr, "%s: %s\n", path.c_str(), result.error.c_str());
    return false;
  }
  const double size = Status("VmRSS:") - before;
  CRhinoDoc doc;
  doc.SetModel(std::move(model), path);
  orv::RenderSettings settings;
  const BenchFile file("memory.rib");
  int exported = 0;
  const double exporting = PeakBeyondRest(
      [&] { exported = orv::ExportSceneRib(file.Path(), doc, {}, 1, {}, settings, nullptr); });
  std::printf("%-20s model %6.1f MB, opening +%.1f MB, export +%.1f MB\n", name.c_str(), size,
              opening, exporting);
  return exported == 1;
}

bool MeasureWeld() {
  const ON_Mesh mesh = SeamedMesh();
  const BenchFile file("weld.rib");
  bool written = false;
  const double peak = PeakBeyondRest([&] {
    orv::RibWriter writer(file.Path());
    written = orv::WriteMesh(writer, mesh, true, false) && writer.Close();
  });
  std::printf("%-20s %26s weld   +%.1f MB\n", "million vertices", "", peak);
  return written;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 2) return Measure(argv[1], argv[1]) ? 0 : 1;
  const BenchFile dense("dense.3dm", WriteModel(ModelOf(DenseMesh())));
  const BenchFile many("many.3dm", WriteModel(ManySmallObjects()));
  const bool done = Measure("million vertices", dense.Path()) &&
                    Measure("20,000 boxes", many.Path()) && MeasureWeld();
  return done ? 0 : 1;
}
