#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "host/archive/byte_source.h"
#include "host/archive/model.h"
#include "host/system/file.h"

// What a document was read from: a file, which stays open so that it can be read even when another
// one takes its name or it is removed, or bytes in memory.
class DocumentSource {
 public:
  // Opens a file. Check IsOpen.
  static std::shared_ptr<const DocumentSource> FromFile(std::string_view path);
  // The file that was committed.
  static std::shared_ptr<const DocumentSource> FromFile(host::FileReplacement& committed);
  // A document in memory.
  static std::shared_ptr<const DocumentSource> FromBytes(std::string bytes);

  [[nodiscard]] bool IsOpen() const { return !file_ || file_->IsOpen(); }
  // Why it isn't open.
  std::string Error() const { return file_ ? file_->Error() : std::string(); }
  std::uint64_t Size() const { return file_ ? file_->Size() : bytes_.size(); }
  // The file; null for a document in memory.
  const host::FileReader* File() const { return file_ ? &*file_ : nullptr; }

  // A reader from the front on. The source outlives it.
  ByteSource Read() const {
    if (file_) return ByteSource(*file_);
    return ByteSource(std::as_bytes(std::span(bytes_)));
  }
  // The bytes of a stretch; fewer when it leads outside or can't be read.
  std::string Bytes(ON_FileSpan span) const;

 private:
  std::optional<host::FileReader> file_;
  std::string bytes_;
};
