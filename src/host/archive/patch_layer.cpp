#include "host/archive/record_patches.h"

namespace host {
namespace {

// Since version 1.4 a field of its own tells of locked layers.
int ModeOf(const ON_Layer& layer, int minor) {
  constexpr int kNormal = 0, kOff = 1, kLocked = 2;
  if (minor >= 4) return layer.m_visible ? kNormal : layer.m_locked ? kLocked : kOff;
  return !layer.m_visible ? kOff : layer.m_locked ? kLocked : kNormal;
}

// Writers differ in the mode of a layer that is both off and locked; it stays unless that changes.
bool PatchMode(DocumentPatch& patch, int minor, const ON_Layer& before, const ON_Layer& now) {
  const bool changes = before.m_visible != now.m_visible || before.m_locked != now.m_locked;
  constexpr int kOther = -1;
  const int mode = ModeOf(now, minor);
  return patch.Int(changes ? kOther : mode, mode);
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
