#include <algorithm>
#include <array>
#include <utility>

#include "host/archive/record_patches.h"
#include "host/archive/record_writers.h"

namespace host {
namespace {

constexpr AttributeTypecodes kObjectTypecodes{TCODE_OBJECT_RECORD_ATTRIBUTES,
                                              TCODE_OBJECT_RECORD_ATTRIBUTES_USERDATA,
                                              TCODE_OBJECT_RECORD_END};

// A pair of ids.
constexpr std::size_t kPairSize = 32;

// How the value of an item of the tagged form is stored.
enum class ItemForm { none, byte, four_bytes, eight_bytes, id, text, numbers, pairs, chunk };

// By the tags, up to the last one that is known.
constexpr std::array kItemForms = [] {
  using enum ItemForm;
  return std::array{none,       text,       text,        four_bytes, four_bytes, chunk,
                    four_bytes, four_bytes, eight_bytes, byte,       four_bytes, byte,
                    byte,       byte,       byte,        byte,       byte,       byte,
                    numbers,    byte,       id,          pairs,      four_bytes};
}();
static_assert(kItemForms.size() == 23);

bool SkipElements(ON_BinaryArchive& archive, std::size_t size) {
  std::size_t count = 0;
  return archive.ReadCount(size, &count) && archive.Skip(count * size);
}

bool SkipItem(DocumentPatch& patch, ItemForm form) {
  ON_BinaryArchive& archive = patch.Archive();
  std::string text;
  switch (form) {
    case ItemForm::none:
      break;
    case ItemForm::byte:
      return archive.Skip(1);
    case ItemForm::four_bytes:
      return archive.Skip(4);
    case ItemForm::eight_bytes:
      return archive.Skip(8);
    case ItemForm::id:
      return archive.Skip(16);
    case ItemForm::text:
      return archive.ReadString(&text);
    case ItemForm::numbers:
      return SkipElements(archive, sizeof(std::int32_t));
    case ItemForm::pairs:
      return SkipElements(archive, kPairSize);
    case ItemForm::chunk:
      return patch.SkipChunk();
  }
  return false;
}

// The items that differ take the place of their old forms, or come in between in their order. One
// that has its default now goes.
bool PatchTagged(DocumentPatch& patch, const ON_3dmObjectAttributes& before,
                 const ON_3dmObjectAttributes& now) {
  ON_BinaryArchive& archive = patch.Archive();
  if (!archive.Skip(sizeof(ON_UUID)) || !patch.Int(before.m_layer_index, now.m_layer_index)) {
    return false;
  }
  const std::vector<AttributeItem> items = DifferingItems(now, before);
  const std::vector<AttributeItem> stored = DifferingItems(now, ON_3dmObjectAttributes());
  const auto isDefault = [&stored](std::uint8_t tag) {
    return std::none_of(stored.begin(), stored.end(),
                        [tag](const AttributeItem& item) { return item.tag == tag; });
  };
  auto item = items.begin();
  std::uint8_t tag = 0;
  for (;;) {
    const std::uint64_t at = archive.CurrentPosition();
    if (!archive.ReadChar(&tag)) return false;
    const bool isEnd = tag == 0 || tag >= kItemForms.size();
    for (; item != items.end() && (isEnd || item->tag < tag); ++item) {
      patch.Replace(at, 0, static_cast<char>(item->tag) + item->bytes);
    }
    if (isEnd) return true;
    if (!SkipItem(patch, kItemForms[tag])) return false;
    if (item == items.end() || item->tag != tag) continue;
    patch.Replace(at, archive.CurrentPosition() - at,
                  isDefault(tag) ? std::string() : static_cast<char>(tag) + item->bytes);
    ++item;
  }
}

bool PatchGroups(DocumentPatch& patch, const std::vector<int>& before,
                 const std::vector<int>& now) {
  ON_BinaryArchive& archive = patch.Archive();
  const std::uint64_t at = archive.CurrentPosition();
  if (!SkipElements(archive, sizeof(std::int32_t))) return false;
  if (before == now) return true;
  patch.Replace(at, archive.CurrentPosition() - at,
                patch.Written([&](ON_BinaryArchive& a) { WriteArray(a, now); }));
  return true;
}

template <class Enum>
bool PatchEnum(DocumentPatch& patch, Enum before, Enum now) {
  return patch.Char(static_cast<int>(before), static_cast<int>(now));
}

bool PatchFirstFields(DocumentPatch& patch, const ON_3dmObjectAttributes& before,
                      const ON_3dmObjectAttributes& now) {
  // A line style that was never used.
  constexpr std::uint64_t kLineStyleSize = 20;
  return patch.Archive().Skip(sizeof(ON_UUID)) &&
         patch.Int(before.m_layer_index, now.m_layer_index) &&
         patch.Int(before.m_material_index, now.m_material_index) &&
         patch.Color(before.m_color, now.m_color) && patch.Archive().Skip(kLineStyleSize) &&
         patch.Int(before.m_wire_density, now.m_wire_density) &&
         PatchEnum(patch, before.m_mode, now.m_mode) &&
         PatchEnum(patch, before.m_color_source, now.m_color_source) &&
         PatchEnum(patch, before.m_linetype_source, now.m_linetype_source) &&
         PatchEnum(patch, before.m_material_source, now.m_material_source) &&
         patch.String(before.m_name, now.m_name) && patch.String(before.m_url, now.m_url);
}

bool PatchPlotFields(DocumentPatch& patch, const ON_3dmObjectAttributes& before,
                     const ON_3dmObjectAttributes& now) {
  return patch.Int(before.m_decoration, now.m_decoration) &&
         PatchEnum(patch, before.m_plot_color_source, now.m_plot_color_source) &&
         patch.Color(before.m_plot_color, now.m_plot_color) &&
         PatchEnum(patch, before.m_plot_weight_source, now.m_plot_weight_source) &&
         patch.Double(before.m_plot_weight_mm, now.m_plot_weight_mm);
}

bool PatchFixed(DocumentPatch& patch, int minor, const ON_3dmObjectAttributes& before,
                const ON_3dmObjectAttributes& now) {
  ON_BinaryArchive& archive = patch.Archive();
  if (!PatchFirstFields(patch, before, now)) return false;
  if (minor >= 1 && !PatchGroups(patch, before.m_group, now.m_group)) return false;
  if (minor >= 2 && !patch.Bool(before.m_visible, now.m_visible)) return false;
  if (minor >= 3 && !SkipElements(archive, kPairSize)) return false;
  if (minor >= 4 && !PatchPlotFields(patch, before, now)) return false;
  if (minor >= 5 && !patch.Int(before.m_linetype_index, now.m_linetype_index)) return false;
  if (minor >= 6 &&
      !(patch.Char(before.m_space, now.m_space) && SkipElements(archive, kPairSize))) {
    return false;
  }
  return minor < 7 || patch.SkipChunk();
}

bool PatchAttributes(DocumentPatch& patch, const ON_3dmObjectAttributes& before,
                     const ON_3dmObjectAttributes& now) {
  int major = 0, minor = 0;
  if (!patch.Archive().Read3dmChunkVersion(&major, &minor)) return false;
  return major == 1 ? PatchFixed(patch, minor, before, now) : PatchTagged(patch, before, now);
}

// The chunks of attributes in a record.
class AttributeChunks {
 public:
  AttributeChunks(DocumentPatch& patch, const AttributeTypecodes& typecodes,
                  const ON_3dmObjectAttributes& before, const ON_3dmObjectAttributes& now)
      : patch_(patch), typecodes_(typecodes), before_(before), now_(now) {}

  bool Patch() {
    ON_BinaryArchive& archive = patch_.Archive();
    while (archive.BytesLeft() > 0 && archive.PeekAt3dmChunkType() != typecodes_.end) {
      if (!PatchNext(archive.PeekAt3dmChunkType())) return false;
    }
    std::string missing =
        patch_.Written([this](ON_BinaryArchive& chunks) { WriteMissing(chunks); });
    if (!missing.empty()) patch_.ReplaceChunks(archive.CurrentPosition(), 0, std::move(missing));
    return true;
  }

 private:
  bool PatchNext(std::uint32_t typecode) {
    if (typecode == typecodes_.attributes) {
      has_attributes_ = true;
      if (!patch_.BeginChunk() || !PatchAttributes(patch_, before_, now_)) return false;
      patch_.EndChunk();
      return true;
    }
    if (typecode != typecodes_.user_data || !StringsDiffer()) return patch_.SkipChunk();
    // The first list is replaced, more of them are removed: the last one would count.
    return PatchUserData(std::exchange(has_user_data_, true) ? ON_UserStringList()
                                                             : now_.m_user_strings);
  }

  bool StringsDiffer() const { return before_.m_user_strings.m_e != now_.m_user_strings.m_e; }

  // A chunk that would hold nothing any more goes.
  bool PatchUserData(const ON_UserStringList& strings) {
    const std::uint64_t start = patch_.Archive().CurrentPosition();
    if (strings.IsEmpty() && HoldsOnlyUserStrings(patch_)) {
      if (!patch_.SkipChunk()) return false;
      patch_.ReplaceChunks(start, patch_.Archive().CurrentPosition() - start, {});
      return true;
    }
    if (!patch_.BeginChunk() || !ReplaceUserStrings(patch_, strings)) return false;
    patch_.EndChunk();
    return true;
  }

  // What the record has no chunk for yet.
  void WriteMissing(ON_BinaryArchive& archive) const {
    const bool differ =
        before_.m_layer_index != now_.m_layer_index || !DifferingItems(now_, before_).empty();
    if (!has_attributes_ && differ) {
      const ChunkWriter chunk(archive, typecodes_.attributes);
      WriteAttributes(archive, now_);
    }
    if (!has_user_data_ && StringsDiffer()) {
      WriteAttributeStrings(archive, now_.m_user_strings, typecodes_.user_data);
    }
  }

  DocumentPatch& patch_;
  const AttributeTypecodes& typecodes_;
  const ON_3dmObjectAttributes& before_;
  const ON_3dmObjectAttributes& now_;
  bool has_attributes_ = false;
  bool has_user_data_ = false;
};

}  // namespace

bool PatchAttributeChunks(DocumentPatch& patch, const AttributeTypecodes& typecodes,
                          const ON_3dmObjectAttributes& before, const ON_3dmObjectAttributes& now) {
  return AttributeChunks(patch, typecodes, before, now).Patch();
}

bool PatchObject(DocumentPatch& patch, const ON_3dmObjectAttributes& before,
                 const ON_3dmObjectAttributes& now) {
  if (!patch.BeginChunkOf(TCODE_OBJECT_RECORD)) return false;
  if (!PatchAttributeChunks(patch, kObjectTypecodes, before, now)) return false;
  patch.EndChunk();
  return true;
}

}  // namespace host
