#pragma once

#include <functional>
#include <string>

#include "host/archive/binary_archive.h"

// Bytes of records for tests, written piece by piece.

using WriteContent = std::function<void(ON_BinaryArchive& archive)>;

// What `write` writes under these versions.
std::string RecordBytes(int archive_version, unsigned opennurbs_version, const WriteContent& write);
void WriteChunk(ON_BinaryArchive& archive, std::uint32_t typecode, const WriteContent& content);
// A chunk whose owner knows what it holds, with a version of two numbers.
void WriteVersioned(ON_BinaryArchive& archive, int major, int minor, const WriteContent& content);
// A class wrapper: id, data, user data, end.
void WriteClass(ON_BinaryArchive& archive, const ON_UUID& class_id, const WriteContent& data,
                const WriteContent& user_data = nullptr);

struct UserDataVersions {
  int minor = 2;
  int archive_version = 80;
  unsigned opennurbs_version = 0x90000000;
};
// An item of user data of version 2 whose payload was written under `versions`.
void WriteUserData(ON_BinaryArchive& archive, const ON_UUID& class_id,
                   const UserDataVersions& versions, const WriteContent& payload);

// Calls `read` with an archive over `bytes`; its result and what the archive has to tell.
struct Reading {
  bool ok = false;
  std::vector<std::string> problems;
};
Reading ReadBytes(const std::string& bytes, int archive_version, unsigned opennurbs_version,
                  const std::function<bool(ON_BinaryArchive& archive)>& read);
