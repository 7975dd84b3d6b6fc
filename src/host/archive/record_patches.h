#pragma once

#include "host/archive/document_patch.h"
#include "host/archive/model.h"

// One function per kind of record: each replaces, in the record that is the next chunk, the fields
// in which `now` differs from `before`, which is what was read from it, and its user strings. False
// when the record can't be walked through; then nothing of it may be taken from the patch.

namespace host {

[[nodiscard]] bool PatchLayer(DocumentPatch& patch, const ON_Layer& before, const ON_Layer& now);
[[nodiscard]] bool PatchMaterial(DocumentPatch& patch, const ON_Material& before,
                                 const ON_Material& now);
[[nodiscard]] bool PatchLight(DocumentPatch& patch, const ONX_ModelLight& before,
                              const ONX_ModelLight& now);
// The bytes of the record of a light, written under the archive's versions, with what is now in it;
// empty when it can't be walked through.
[[nodiscard]] std::string PatchedLight(std::string record, const ON_BinaryArchive& archive,
                                       const ONX_ModelLight& now);
// The attributes of an object; its geometry stays.
[[nodiscard]] bool PatchObject(DocumentPatch& patch, const ON_3dmObjectAttributes& before,
                               const ON_3dmObjectAttributes& now);

// The kinds of chunks in which a record holds attributes, their user data, and its end mark.
struct AttributeTypecodes {
  std::uint32_t attributes;
  std::uint32_t user_data;
  std::uint32_t end;
};
// The attributes among the chunks that are left of the open record.
[[nodiscard]] bool PatchAttributeChunks(DocumentPatch& patch, const AttributeTypecodes& typecodes,
                                        const ON_3dmObjectAttributes& before,
                                        const ON_3dmObjectAttributes& now);

// User strings among the items of user data that are left of the open chunk.
[[nodiscard]] bool PatchUserStrings(DocumentPatch& patch, const ON_UserStringList& before,
                                    const ON_UserStringList& now);
// The same whatever they were: `now` is then the only list there.
[[nodiscard]] bool ReplaceUserStrings(DocumentPatch& patch, const ON_UserStringList& now);
// True when the next chunk holds items of user data, and those are user strings and nothing else.
[[nodiscard]] bool HoldsOnlyUserStrings(DocumentPatch& patch);
// Opens the class wrapper that is the next chunk, and its data. Then the caller patches the data
// and calls EndPatchClass.
[[nodiscard]] bool BeginPatchClass(DocumentPatch& patch);
// Ends the data; patches the user strings behind it and ends the wrapper.
[[nodiscard]] bool EndPatchClass(DocumentPatch& patch, const ON_UserStringList& before,
                                 const ON_UserStringList& now);

}  // namespace host
