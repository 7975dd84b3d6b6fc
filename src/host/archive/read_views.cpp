#include <array>
#include <cmath>
#include <optional>

#include "host/archive/chunk_scope.h"
#include "host/archive/document_readers.h"

namespace host {
namespace {

// A chunk needs at least its head.
constexpr std::size_t kMinChunk = 8;

// How a view is displayed, by the number that older documents have in place of the mode's id.
ON_UUID DisplayModeFrom(std::int64_t number) {
  switch (number) {
    case 1:
      return "1311adcb-d89e-4051-a3f0-f64441fb8ec6"_uuid;
    case 2:
      return "8bc8debe-c83b-4c47-b13c-9db074510cac"_uuid;
    case 3:
      return "cae60bae-2d51-4299-abf7-a339fca86f3b"_uuid;
    default:
      return {};
  }
}

bool ReadConstructionPlane(ON_BinaryArchive& archive, ON_3dmConstructionPlane& plane) {
  int major = 0;
  int minor = 0;
  return archive.Read3dmChunkVersion(&major, &minor) && archive.ReadPlane(&plane.m_plane) &&
         archive.ReadDouble(&plane.m_grid_spacing) && archive.ReadDouble(&plane.m_snap_spacing) &&
         archive.ReadInt(&plane.m_grid_line_count) &&
         archive.ReadInt(&plane.m_grid_thick_frequency) && archive.ReadString(&plane.m_name);
}

bool IsUnset(ON_3dPoint p) {
  return p.x == ON_UNSET_VALUE || !std::isfinite(p.x + p.y + p.z);
}

bool ReadFlag(ON_BinaryArchive& archive, bool& flag) {
  std::int32_t stored = 0;
  if (!archive.ReadInt(&stored)) return false;
  flag = stored != 0;
  return true;
}

bool ReadCamera(ON_BinaryArchive& archive, ON_Viewport& vp) {
  std::int32_t projection = 0;
  if (!ReadFlag(archive, vp.m_camera_valid) || !ReadFlag(archive, vp.m_frustum_valid) ||
      !ReadFlag(archive, vp.m_port_valid) || !archive.ReadInt(&projection)) {
    return false;
  }
  const bool perspective = projection == static_cast<int>(ON_Viewport::View::perspective);
  vp.m_projection = perspective ? ON_Viewport::View::perspective : ON_Viewport::View::parallel;
  return archive.ReadPoint(&vp.m_location) && archive.ReadVector(&vp.m_direction) &&
         archive.ReadVector(&vp.m_up) && archive.ReadVector(&vp.m_x) &&
         archive.ReadVector(&vp.m_y) && archive.ReadVector(&vp.m_z);
}

bool ReadFrustumAndPort(ON_BinaryArchive& archive, ON_Viewport& vp) {
  ON_Viewport::Frustum& f = vp.m_frustum;
  for (double* side : {&f.left, &f.right, &f.bottom, &f.top, &f.near, &f.far}) {
    if (!archive.ReadDouble(side)) return false;
  }
  ON_Viewport::ScreenPort& p = vp.m_port;
  for (int* side : {&p.left, &p.right, &p.bottom, &p.top, &p.near, &p.far}) {
    if (!archive.ReadInt(side)) return false;
  }
  return true;
}

bool ReadViewport(ON_BinaryArchive& archive, ON_Viewport& vp) {
  // Which of its parts are locked, and which sides are symmetric.
  constexpr std::uint64_t kLocks = 5;
  int major = 0;
  int minor = 0;
  if (!archive.Read3dmChunkVersion(&major, &minor) || !ReadCamera(archive, vp) ||
      !ReadFrustumAndPort(archive, vp)) {
    return false;
  }
  if (minor >= 1 && !archive.ReadUuid(&vp.m_id)) return false;
  if (minor >= 2 && !archive.Skip(kLocks)) return false;
  if (minor < 3) return true;
  ON_3dPoint target{};
  if (!archive.ReadPoint(&target)) return false;
  if (!IsUnset(target)) vp.m_target = target;
  return true;
}

bool ReadPosition(ON_BinaryArchive& archive, ON_3dmView& view) {
  int major = 0;
  int minor = 0;
  if (!archive.Read3dmChunkVersion(&major, &minor) || !ReadFlag(archive, view.m_maximized)) {
    return false;
  }
  for (double& side : view.m_window) {
    if (!archive.ReadDouble(&side)) return false;
  }
  return true;
}

// A trace image and a wallpaper begin with the file's name.
bool ReadImageName(ON_BinaryArchive& archive, std::string& name) {
  int major = 0;
  int minor = 0;
  return archive.Read3dmChunkVersion(&major, &minor) && archive.ReadString(&name);
}

bool SkipClippingPlanes(ON_BinaryArchive& archive) {
  std::size_t count = 0;
  if (!archive.ReadCount(kMinChunk, &count)) return false;
  for (std::size_t i = 0; i < count; ++i) {
    if (!SkipChunk(archive)) return false;
  }
  return true;
}

bool ReadViewAttributes(ON_BinaryArchive& archive, ON_3dmView& view, bool& has_display_mode) {
  // Width and height of the page, the id of the view around this one, a box.
  constexpr std::uint64_t kPage = 2 * 8 + 16 + 6 * 8;
  int major = 0;
  int minor = 0;
  if (!archive.Read3dmChunkVersion(&major, &minor)) return false;
  if (minor < 1) return true;
  if (!archive.ReadInt(&view.m_view_type) || !archive.Skip(kPage)) return false;
  if (minor < 2) return true;
  if (!archive.ReadUuid(&view.m_display_mode_id) || !SkipChunk(archive)) return false;
  has_display_mode = true;
  if (minor >= 3 && !archive.ReadBool(&view.m_locked_projection)) return false;
  if (minor >= 4 && !SkipClippingPlanes(archive)) return false;
  return minor < 5 || archive.ReadUuid(&view.m_named_view_id);
}

// What the parts of a view say besides the view itself.
struct ViewParts {
  std::optional<ON_3dPoint> target;
  std::int64_t display_mode = 0;
  bool has_display_mode_id = false;
  bool has_viewport = false;
};

bool ReadTarget(ON_BinaryArchive& archive, ViewParts& parts) {
  ON_3dPoint target{};
  if (!archive.ReadPoint(&target)) return false;
  if (!IsUnset(target)) parts.target = target;
  return true;
}

bool ReadViewPart(ON_BinaryArchive& archive, std::uint32_t typecode, std::int64_t value,
                  ON_3dmView& view, ViewParts& parts) {
  switch (typecode) {
    case TCODE_VIEW_VIEWPORT:
      parts.has_viewport = true;
      return ReadViewport(archive, view.m_vp);
    case TCODE_VIEW_TARGET:
      return ReadTarget(archive, parts);
    case TCODE_VIEW_NAME:
      return archive.ReadString(&view.m_name);
    case TCODE_VIEW_CPLANE:
      return ReadConstructionPlane(archive, view.m_cplane);
    case TCODE_VIEW_POSITION:
      return ReadPosition(archive, view);
    case TCODE_VIEW_SHOWCONGRID:
      view.m_show_grid = value != 0;
      return true;
    case TCODE_VIEW_SHOWCONAXES:
      view.m_show_axes = value != 0;
      return true;
    case TCODE_VIEW_SHOWWORLDAXES:
      view.m_show_world_axes = value != 0;
      return true;
    case TCODE_VIEW_DISPLAYMODE:
      parts.display_mode = value;
      return true;
    case TCODE_VIEW_TRACEIMAGE:
      return ReadImageName(archive, view.m_trace_image);
    case TCODE_VIEW_WALLPAPER:
      return archive.ReadString(&view.m_wallpaper);
    case TCODE_VIEW_WALLPAPER_V3:
      return ReadImageName(archive, view.m_wallpaper);
    case TCODE_VIEW_ATTRIBUTES:
      return ReadViewAttributes(archive, view, parts.has_display_mode_id);
    default:
      return true;
  }
}

bool ReadView(ON_BinaryArchive& archive, ON_3dmView& view) {
  ViewParts parts;
  std::uint32_t typecode = 0;
  std::int64_t value = 0;
  while (archive.BytesLeft() > 0) {
    if (!archive.BeginRead3dmChunk(&typecode, &value)) return false;
    const bool ok =
        typecode == TCODE_ENDOFTABLE || ReadViewPart(archive, typecode, value, view, parts);
    if (!archive.EndRead3dmChunk() || !ok) return false;
    if (typecode == TCODE_ENDOFTABLE) break;
  }
  if (!parts.has_viewport) return archive.Fail("a view has no viewport");
  if (view.m_vp.m_target) parts.target = view.m_vp.m_target;
  if (parts.target) view.m_target = *parts.target;
  if (!parts.has_display_mode_id) view.m_display_mode_id = DisplayModeFrom(parts.display_mode);
  return true;
}

// Reads a list: a count, and a chunk for each entry. A broken entry is left out.
template <class T>
bool ReadList(ON_BinaryArchive& archive, std::vector<T>& list,
              bool (*read)(ON_BinaryArchive&, T&)) {
  std::size_t count = 0;
  if (!archive.ReadCount(kMinChunk, &count)) return false;
  list.clear();
  bool whole = true;
  for (std::size_t i = 0; i < count; ++i) {
    const ChunkScope scope(archive);
    std::uint32_t typecode = 0;
    std::int64_t value = 0;
    if (!archive.BeginRead3dmChunk(&typecode, &value)) return false;
    T entry;
    const bool ok = read(archive, entry);
    if (ok) list.push_back(std::move(entry));
    whole = whole && ok;
  }
  return whole;
}

}  // namespace

bool ReadViewList(ON_BinaryArchive& archive, std::vector<ON_3dmView>& views) {
  return ReadList(archive, views, ReadView);
}

bool ReadConstructionPlaneList(ON_BinaryArchive& archive,
                               std::vector<ON_3dmConstructionPlane>& planes) {
  return ReadList(archive, planes, ReadConstructionPlane);
}

}  // namespace host
