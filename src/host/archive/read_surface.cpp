#include "host/archive/read_surface.h"

#include <algorithm>

#include "host/archive/class_names.h"
#include "host/archive/class_wrapper.h"
#include "host/archive/read_surface_classes.h"

namespace host {
namespace {

struct SurfaceClass {
  ON_UUID id;
  std::unique_ptr<ON_Surface> (*read)(ON_BinaryArchive& archive);
};

template <class T, bool (*kRead)(ON_BinaryArchive&, T&)>
std::unique_ptr<ON_Surface> Read(ON_BinaryArchive& archive) {
  auto surface = std::make_unique<T>();
  return kRead(archive, *surface) ? std::move(surface) : nullptr;
}

std::unique_ptr<ON_Surface> ReadPlane(ON_BinaryArchive& archive) {
  auto surface = Read<ON_PlaneSurface, ReadPlaneSurface>(archive);
  if (surface == nullptr || surface->IsValid()) return surface;
  archive.Fail("a plane surface that isn't valid");
  return nullptr;
}

constexpr SurfaceClass kSurfaceClasses[] = {
    {"4ed7d4df-e947-11d3-bfe5-0010830122f0"_uuid, ReadPlane},
    {"4ed7d4de-e947-11d3-bfe5-0010830122f0"_uuid, Read<ON_NurbsSurface, ReadNurbsSurface>},
    {"4760c817-0be3-11d4-bffe-0010830122f0"_uuid, Read<ON_NurbsSurface, ReadNurbsSurface>},
    {"fa4fd4b5-1613-11d4-8000-0010830122f0"_uuid, Read<ON_NurbsSurface, ReadNurbsSurface>},
    {"a16220d3-163b-11d4-8000-0010830122f0"_uuid, Read<ON_RevSurface, ReadRevSurface>},
    {"0a8401b6-4d34-4b99-8615-1b4e723dc4e5"_uuid, Read<ON_RevSurface, ReadRevSurface>},
    {"c4cd5359-446d-4690-9ff5-29059732472b"_uuid, Read<ON_SumSurface, ReadSumSurface>},
    {"665f6331-2a66-4cce-81d0-b5eebd9b5417"_uuid, Read<ON_SumSurface, ReadSumSurface>},
};

const SurfaceClass* FindClass(const ON_UUID& class_id) {
  const auto* found = std::find_if(std::begin(kSurfaceClasses), std::end(kSurfaceClasses),
                                   [&](const SurfaceClass& c) { return c.id == class_id; });
  return found == std::end(kSurfaceClasses) ? nullptr : found;
}

}  // namespace

bool IsSurfaceClass(const ON_UUID& class_id) {
  return FindClass(class_id) != nullptr;
}

std::unique_ptr<ON_Surface> ReadSurfaceData(ON_BinaryArchive& archive, const ON_UUID& class_id) {
  const SurfaceClass* found = FindClass(class_id);
  if (found != nullptr) return found->read(archive);
  archive.Fail("a part that should be a surface is of another class: " + ClassName(class_id));
  return nullptr;
}

std::unique_ptr<ON_Surface> ReadSurface(ON_BinaryArchive& archive) {
  std::unique_ptr<ON_Surface> surface;
  ON_UserStringList strings;
  const bool read =
      ReadWrappedClass(archive, &strings, [&](ON_BinaryArchive& data, const ON_UUID& class_id) {
        surface = ReadSurfaceData(data, class_id);
        return surface != nullptr;
      });
  if (!read) return nullptr;
  surface->m_user_strings = std::move(strings);
  return surface;
}

}  // namespace host
