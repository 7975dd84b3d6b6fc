#include "host/system/command_line.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "host/system/file.h"
#include "host/system/path.h"
#include "host/system/text.h"

namespace host {

std::vector<std::string> SplitCommandLine(std::string_view line) {
  std::vector<std::string> words;
  bool in_word = false;
  bool in_quotes = false;
  for (const char letter : line) {
    const bool separates = !in_quotes && (letter == ' ' || letter == '\t');
    if (!separates && !in_word) words.emplace_back();
    in_word = !separates;
    if (letter == '"') in_quotes = !in_quotes;
    if (!separates && letter != '"') words.back() += letter;
  }
  return words;
}

void UseNativeNames(std::vector<std::string>& words) {
  for (std::string& word : words) {
    if (word.find('\\') != std::string::npos && FileExists(word)) word = NativePath(word).string();
  }
}

bool IsBatchFile(std::string_view path) {
  return EqualNoCase(SplitPath(path).Extension, ".bat") && FileExists(path);
}

std::optional<std::vector<std::vector<std::string>>> ReadBatchFile(std::string_view path) {
  constexpr std::uint64_t kMostBytes = std::uint64_t{1} << 28;
  const std::optional<std::string> text = ReadWholeFile(path, kMostBytes);
  if (!text) return std::nullopt;
  std::vector<std::vector<std::string>> lines;
  for (std::size_t begin = 0; begin < text->size();) {
    const std::size_t end = std::min(text->find('\n', begin), text->size());
    std::string_view line = std::string_view(*text).substr(begin, end - begin);
    if (line.ends_with('\r')) line.remove_suffix(1);
    std::vector<std::string> words = SplitCommandLine(line);
    UseNativeNames(words);
    if (!words.empty()) lines.push_back(std::move(words));
    begin = end + 1;
  }
  return lines;
}

}  // namespace host
