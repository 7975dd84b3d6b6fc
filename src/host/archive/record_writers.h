#pragma once

#include <array>
#include <string>
#include <vector>

#include "host/archive/binary_archive.h"
#include "host/archive/model.h"

// One function per kind of record; each writes the whole record with its chunk, in the form that
// fits the archive's versions, 2 to 80. `index` is the position in the table.

namespace host {

void WriteLayer(ON_BinaryArchive& archive, const ON_Layer& layer, int index);
void WriteMaterial(ON_BinaryArchive& archive, const ON_Material& material, int index);
// A texture in its class wrapper, as materials of version 4 and later hold it.
void WriteTexture(ON_BinaryArchive& archive, const ON_Texture& texture);
void WriteLight(ON_BinaryArchive& archive, const ONX_ModelLight& light, int index);

// The attributes without their chunk.
void WriteAttributes(ON_BinaryArchive& archive, const ON_3dmObjectAttributes& attributes);
// Attributes and, when there are any, their user strings, each in its chunk.
void WriteAttributeChunks(ON_BinaryArchive& archive, const ON_3dmObjectAttributes& attributes,
                          std::uint32_t typecode, std::uint32_t user_data_typecode);
// The user strings of attributes in their chunk.
void WriteAttributeStrings(ON_BinaryArchive& archive, const ON_UserStringList& strings,
                           std::uint32_t user_data_typecode);

// An item of the tagged form of attributes, which versions 5 and later have.
struct AttributeItem {
  std::uint8_t tag;
  std::string bytes;
};
// The items that `attributes` has otherwise than `others`, in the order of their tags.
std::vector<AttributeItem> DifferingItems(const ON_3dmObjectAttributes& attributes,
                                          const ON_3dmObjectAttributes& others);

// The table of one plug-in.
void WritePlugInData(ON_BinaryArchive& archive, const ONX_PlugInData& data);
// What stands in the table in which a document keeps its own user strings.
ONX_PlugInData DocumentUserStringsData(int version, unsigned opennurbs_version,
                                       const ON_UserStringList& strings);
// That table; nothing when there are none.
void WriteDocumentUserStrings(ON_BinaryArchive& archive, const ON_UserStringList& strings);

// The kinds of textures that materials before version 4 have, each at most once, in the order in
// which they stand.
inline constexpr std::array kOldTextureTypes{ON_Texture::Type::bitmap, ON_Texture::Type::bump,
                                             ON_Texture::Type::environment};
// The mode of a texture as those materials store it.
int OldTextureMode(const ON_Texture* texture);
// The texture of the kind that such a material keeps; null when there is none.
const ON_Texture* OldTexture(const ON_Material& material, ON_Texture::Type type);

}  // namespace host
