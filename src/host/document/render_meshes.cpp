#include "host/document/render_meshes.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <future>
#include <thread>
#include <unordered_set>

#include "host/document/app.h"
#include "host/document/doc.h"
#include "host/document/object_name.h"
#include "host/geometry/on_brep.h"
#include "host/geometry/on_extrusion.h"
#include "host/modeling/render_mesh.h"
#include "host/system/interrupt.h"
#include "host/system/progress_meter.h"

namespace {

using Meshes = CRhinoObject::Meshes;

// The render meshes of an object on their way.
struct Making {
  const CRhinoObject* object;
  Meshes meshes{};
  // How many faces could not be meshed; -1 for an object of whose faces nothing is known.
  int failed_faces = 0;
  bool is_done = false;
};

// The meshes that the document holds for the faces, and `made` for the others. Those that are made
// meet each other; where one of them meets one that is held, the two are as close as their
// tolerances are.
Meshes FillGaps(const ON_Brep& brep, const host::MadeMeshes& made) {
  Meshes meshes;
  auto next_made = made.meshes.begin();
  auto next_failed = made.failed_faces.begin();
  for (std::size_t i = 0; i < brep.m_F.size(); ++i) {
    const bool has_failed =
        next_failed != made.failed_faces.end() && static_cast<std::size_t>(*next_failed) == i;
    const auto& held = brep.m_F[i].m_render_mesh;
    if (held != nullptr) {
      meshes.push_back(held);
    } else if (!has_failed) {
      meshes.push_back(*next_made);
    }
    if (has_failed) {
      ++next_failed;
    } else {
      ++next_made;
    }
  }
  return meshes;
}

void MakeMeshesOfBrep(const ON_Brep& brep, const ON_MeshParameters& parameters, Making& making) {
  const auto is_missing = [&brep](int face) {
    return brep.m_F[static_cast<std::size_t>(face)].m_render_mesh == nullptr;
  };
  brep.GetMesh(ON_Brep::MeshType::render, making.meshes);
  if (making.meshes.size() == brep.m_F.size()) return;
  const host::MadeMeshes made = host::MakeRenderMeshes(brep, parameters);
  making.meshes = FillGaps(brep, made);
  making.failed_faces = static_cast<int>(
      std::count_if(made.failed_faces.begin(), made.failed_faces.end(), is_missing));
}

// The mesh that the document holds for an extrusion as a whole; null when it holds none.
std::shared_ptr<const ON_Mesh> MeshOfExtrusion(const ON_Geometry* geometry) {
  const ON_Extrusion* extrusion = ON_Extrusion::Cast(geometry);
  return extrusion == nullptr ? nullptr : extrusion->m_render_mesh;
}

void MakeMeshes(Making& making) {
  const ON_MeshParameters& parameters =
      making.object->Document().Properties().Settings().m_render_mesh;
  const auto geometry = making.object->SharedGeometry();
  if (const ON_Brep* brep = ON_Brep::Cast(geometry.get())) {
    MakeMeshesOfBrep(*brep, parameters, making);
  } else if (const auto mesh = std::dynamic_pointer_cast<const ON_Mesh>(geometry)) {
    making.meshes = {mesh};
  } else if (const auto held = MeshOfExtrusion(geometry.get())) {
    making.meshes = {held};
  } else if (geometry != nullptr && geometry->HasBrepForm()) {
    const std::unique_ptr<ON_Brep> form = geometry->BrepForm();
    if (form == nullptr) making.failed_faces = -1;
    if (form != nullptr) MakeMeshesOfBrep(*form, parameters, making);
  }
}

// Each object once, in the order in which it comes first.
std::vector<Making> MeshesToMake(std::span<const CRhinoObject* const> objects) {
  std::vector<Making> makings;
  std::unordered_set<const CRhinoObject*> seen;
  for (const CRhinoObject* object : objects) {
    if (!object->KeptRenderMeshes() && seen.insert(object).second) makings.push_back({object});
  }
  return makings;
}

// Ctrl-C ends it: what isn't done then, is not marked as done.
void Make(Making& making) {
  if (host::InterruptRequested()) return;
  MakeMeshes(making);
  making.is_done = !host::InterruptRequested();
}

// On all processors, while this thread tells how far they are.
void MakeTogether(std::vector<Making>& makings) {
  constexpr std::chrono::milliseconds kBetweenTellings{100};
  std::atomic<std::size_t> next = 0;
  std::atomic<std::size_t> done = 0;
  const auto work = [&makings, &next, &done] {
    for (std::size_t i = next++; i < makings.size(); i = next++) {
      Make(makings[i]);
      ++done;
    }
  };
  const std::size_t count =
      std::min<std::size_t>(makings.size(), std::max(1u, std::thread::hardware_concurrency()));
  std::vector<std::future<void>> workers;
  for (std::size_t i = 0; i < count; ++i) {
    workers.push_back(std::async(std::launch::async, work));
  }
  host::ProgressMeter progress(RhinoApp().CommandWindow(), "Meshing", makings.size());
  for (std::future<void>& worker : workers) {
    do {
      progress.Show(done);
    } while (worker.wait_for(kBetweenTellings) != std::future_status::ready);
    worker.get();
  }
}

void TellFailure(const Making& making) {
  if (making.failed_faces == 0) return;
  std::string text =
      "No render mesh could be made of " + host::DescribeByName(*making.object) + ".\n";
  if (making.failed_faces > 0) {
    const std::string faces = making.failed_faces == 1
                                  ? "1 face of "
                                  : std::to_string(making.failed_faces) + " faces of ";
    text = faces + host::DescribeByName(*making.object) + " could not be meshed.\n";
  }
  RhinoApp().Print(text);
}

}  // namespace

CRhinoObjRef::CRhinoObjRef(const CRhinoObject& object, std::shared_ptr<const ON_Mesh> mesh)
    : object_(&object), mesh_(std::move(mesh)) {}

int RhinoGetRenderMeshes(std::span<const CRhinoObject* const> objects,
                         std::vector<CRhinoObjRef>& meshes) {
  std::vector<Making> makings = MeshesToMake(objects);
  if (makings.size() > 1) {
    MakeTogether(makings);
  } else {
    for (Making& making : makings) Make(making);
  }
  for (Making& making : makings) {
    if (!making.is_done) continue;
    TellFailure(making);
    making.object->KeepRenderMeshes(std::move(making.meshes));
  }
  const std::size_t before = meshes.size();
  for (const CRhinoObject* object : objects) {
    if (!object->KeptRenderMeshes()) continue;
    for (const auto& mesh : *object->KeptRenderMeshes()) meshes.emplace_back(*object, mesh);
  }
  return static_cast<int>(meshes.size() - before);
}
