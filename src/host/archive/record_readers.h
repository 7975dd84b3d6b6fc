#pragma once

#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "host/archive/annotation_styles.h"
#include "host/archive/binary_archive.h"
#include "host/archive/model.h"

// One function per kind of record. Each is called with the record's chunk (20008050 for a layer...)
// opened and reads its content; closing the chunk is the caller's. False when the record can't be
// used; the archive then holds the reason and the value is partly filled. A table names its members
// by position, so that the caller keeps the place of a broken record with a default value.

namespace host {

// How many records of each kind were not read, in the order in which the kinds were met first.
class UnreadCounter {
 public:
  // `kind` in words, as ONX_UnreadKind::m_name.
  void Add(std::string_view kind);
  std::vector<ONX_UnreadKind> Take() { return std::exchange(kinds_, {}); }

 private:
  std::vector<ONX_UnreadKind> kinds_;
};

[[nodiscard]] bool ReadLayer(ON_BinaryArchive& archive, ON_Layer& layer);
[[nodiscard]] bool ReadMaterial(ON_BinaryArchive& archive, ON_Material& material);
[[nodiscard]] bool ReadGroup(ON_BinaryArchive& archive, ON_Group& group);
[[nodiscard]] bool ReadLinetype(ON_BinaryArchive& archive, ON_Linetype& linetype);
[[nodiscard]] bool ReadTextStyle(ON_BinaryArchive& archive, TextStyle& style);
// Up to version 5 a style names its font by its position in the table of text styles.
[[nodiscard]] bool ReadDimStyle(ON_BinaryArchive& archive, ON_DimStyle& style,
                                std::span<const TextStyle> text_styles = {});
[[nodiscard]] bool ReadInstanceDefinition(ON_BinaryArchive& archive,
                                          ON_InstanceDefinition& definition);
// Light and attributes; m_span is the caller's.
[[nodiscard]] bool ReadLightRecord(ON_BinaryArchive& archive, ONX_ModelLight& light);
// Geometry, where its class is read, and attributes; m_span is the caller's. An object of another
// class is a success without geometry, counted in `unread`. `styles` are those of the document.
[[nodiscard]] bool ReadObjectRecord(ON_BinaryArchive& archive, ONX_ModelObject& object,
                                    UnreadCounter& unread, const AnnotationStyles& styles = {});

// The attributes alone, with their user strings; what stands before them is passed over.
[[nodiscard]] bool ReadObjectAttributes(ON_BinaryArchive& archive,
                                        ON_3dmObjectAttributes& attributes);

// The plug-in id under which a document keeps its own user strings in a user table.
inline constexpr ON_UUID kDocumentUserStringsId = "06f3218e-f5ec-4f6c-b74c-14583f0ed7bc"_uuid;
// The document's user strings from that table's bytes. False when they are broken; `strings` then
// holds nothing new.
[[nodiscard]] bool ReadDocumentUserStrings(const ONX_PlugInData& table, ON_UserStringList& strings);

}  // namespace host
