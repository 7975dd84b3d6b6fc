#include "host/archive/record_patches.h"

namespace host {
namespace {

constexpr int kNormal = 0, kOff = 1, kLocked = 2;

int ModeOf(const ON_Layer& layer) {
  return !layer.m_visible ? kOff : layer.m_locked ? kLocked : kNormal;
}

// The mode stays where the fields of later versions, which also tell of off and locked, don't
// contradict it.
bool PatchMode(DocumentPatch& patch, int minor, const ON_Layer& before, const ON_Layer& now) {
  ON_BinaryArchive& archive = patch.Archive();
  const std::uint64_t at = archive.CurrentPosition();
  std::int32_t mode = 0;
  if (!archive.ReadInt(&mode)) return false;
  if (before.m_visible == now.m_visible && before.m_locked == now.m_locked) return true;
  const bool fits = !(mode == kOff && now.m_visible) && !(mode == kLocked && !now.m_locked);
  const bool isToldLater = (now.m_visible || minor >= 1) && (!now.m_locked || minor >= 4);
  if (fits && isToldLater) return true;
  patch.Replace(at, sizeof mode,
                patch.Written([&](ON_BinaryArchive& field) { field.WriteInt(ModeOf(now)); }));
  return true;
}

bool PatchFirstFields(DocumentPatch& patch, int minor, const ON_Layer& before,
                      const ON_Layer& now) {
  constexpr std::uint64_t kIndexSize = 4, kUnusedSize = 4, kLineStyleSize = 20;
  return PatchMode(patch, minor, before, now) && patch.Archive().Skip(kIndexSize) &&
         patch.Int(before.m_iges_level, now.m_iges_level) &&
         patch.Int(before.m_render_material_index, now.m_render_material_index) &&
         patch.Archive().Skip(kUnusedSize) && patch.Color(before.m_color, now.m_color) &&
         patch.Archive().Skip(kLineStyleSize) && patch.String(before.m_name, now.m_name);
}

bool PatchLayerData(DocumentPatch& patch, const ON_Layer& before, const ON_Layer& now) {
  int major = 0, minor = 0;
  if (!patch.Archive().Read3dmChunkVersion(&major, &minor)) return false;
  if (!PatchFirstFields(patch, minor, before, now)) return false;
  if (minor >= 1 && !patch.Bool(before.m_visible, now.m_visible)) return false;
  if (minor >= 2 && !patch.Int(before.m_linetype_index, now.m_linetype_index)) return false;
  if (minor >= 3 && !(patch.Color(before.m_plot_color, now.m_plot_color) &&
                      patch.Double(before.m_plot_weight_mm, now.m_plot_weight_mm))) {
    return false;
  }
  return minor < 4 || patch.Bool(before.m_locked, now.m_locked);
}

}  // namespace

bool PatchLayer(DocumentPatch& patch, const ON_Layer& before, const ON_Layer& now) {
  if (!patch.BeginChunkOf(TCODE_LAYER_RECORD) || !BeginPatchClass(patch) ||
      !PatchLayerData(patch, before, now) ||
      !EndPatchClass(patch, before.m_user_strings, now.m_user_strings)) {
    return false;
  }
  patch.EndChunk();
  return true;
}

}  // namespace host
