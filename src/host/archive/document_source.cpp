#include "host/archive/document_source.h"

#include <algorithm>

#include "host/system/file_replacement.h"

std::shared_ptr<const DocumentSource> DocumentSource::FromFile(std::string_view path) {
  const auto source = std::make_shared<DocumentSource>();
  source->file_.emplace(path);
  return source;
}

std::shared_ptr<const DocumentSource> DocumentSource::FromFile(host::FileReplacement& committed) {
  const auto source = std::make_shared<DocumentSource>();
  source->file_.emplace(committed);
  return source;
}

std::shared_ptr<const DocumentSource> DocumentSource::FromBytes(std::string bytes) {
  const auto source = std::make_shared<DocumentSource>();
  source->bytes_ = std::move(bytes);
  return source;
}

std::string DocumentSource::Bytes(ON_FileSpan span) const {
  if (span.offset >= Size()) return {};
  const std::uint64_t length = std::min(span.length, Size() - span.offset);
  std::string bytes(static_cast<std::size_t>(length), '\0');
  ByteSource reader = Read();
  reader.Seek(span.offset);
  if (!reader.Read(std::as_writable_bytes(std::span(bytes)))) bytes.clear();
  return bytes;
}
