// Writing the frames of sequences: files a second, beside that of the same files written alone.

#include <benchmark/benchmark.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "host/document/doc.h"
#include "host/geometry/on_nurbs_curve.h"
#include "jobs/animation_frames.h"
#include "jobs/frame_camera.h"
#include "jobs/job_files.h"

namespace {

constexpr int kFrames = 10000;

// A folder that is there as long as the object is.
class BenchFolder {
 public:
  BenchFolder() { std::filesystem::create_directories(path_); }
  ~BenchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  BenchFolder(const BenchFolder&) = delete;
  BenchFolder& operator=(const BenchFolder&) = delete;

  std::string File(const std::string& name) const { return (path_ / name).string(); }

 private:
  std::filesystem::path path_ = std::filesystem::temp_directory_path() / "orv sequence bench";
};

// A curve of 100 spans with uneven speed.
std::shared_ptr<ON_NurbsCurve> MakePath(double height) {
  constexpr int kPoints = 103;
  ON_SimpleArray<ON_4dPoint> points;
  for (int i = 0; i < kPoints; ++i) {
    points.push_back({i * 1.0 * i, 10.0 * (i % 3), height, 1});
  }
  ON_SimpleArray<double> knots;
  for (int i = 0; i < kPoints + 2; ++i) knots.push_back(std::min(std::max(i - 2, 0), kPoints - 3));
  auto curve = std::make_shared<ON_NurbsCurve>();
  curve->Create(4, std::move(knots), std::move(points));
  return curve;
}

void FillDocument(CRhinoDoc& doc) {
  ONX_Model model;
  for (const char* name : {"Path", "Target"}) {
    ONX_ModelObject& object = model.m_object_table.emplace_back();
    object.m_attributes.m_name = name;
    object.m_geometry = MakePath(model.m_object_table.size() == 1 ? 10 : 0);
  }
  doc.SetModel(std::move(model), "");
}

orv::RenderSettings SettingsFor(int mode, const BenchFolder& folder) {
  orv::RenderSettings settings;
  settings.RibName = folder.File("a.rib");
  settings.AnimMode = mode;
  settings.AnimFrames = kFrames;
  settings.CameraPath = "Path";
  settings.TargetPath = "Target";
  return settings;
}

void Sequence(benchmark::State& state) {
  const BenchFolder folder;
  CRhinoDoc doc;
  FillDocument(doc);
  for (auto _ : state) {
    orv::RenderSettings settings = SettingsFor(static_cast<int>(state.range(0)), folder);
    std::string all;
    if (!WriteAnimationFrames(doc, settings, &all)) state.SkipWithError("a frame has failed");
  }
  state.SetItemsProcessed(state.iterations() * kFrames);
}
BENCHMARK(Sequence)->ArgName("mode")->Arg(1)->Arg(2)->Arg(3)->Unit(benchmark::kMillisecond);

// As many files of a frame's text.
void FilesAlone(benchmark::State& state) {
  const BenchFolder folder;
  const std::string text(250, 'x');
  for (auto _ : state) {
    for (int i = 0; i < kFrames; ++i) {
      if (!orv::WriteTextFile(orv::FrameFileName(folder.File("a"), i), text)) {
        state.SkipWithError("a file has failed");
      }
    }
  }
  state.SetItemsProcessed(state.iterations() * kFrames);
}
BENCHMARK(FilesAlone)->Unit(benchmark::kMillisecond);

// The cameras alone, which are found by the way along the paths.
void Cameras(benchmark::State& state) {
  const auto path = MakePath(10);
  const auto target = MakePath(0);
  orv::RenderSettings settings;
  settings.AnimFrames = kFrames;
  for (auto _ : state) {
    const orv::FrameCamera camera(*path, target.get(), settings, 1);
    for (int i = 0; i < kFrames; ++i) benchmark::DoNotOptimize(camera.Statements(i));
  }
  state.SetItemsProcessed(state.iterations() * kFrames);
}
BENCHMARK(Cameras)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
