#include "host/system/command_line.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <system_error>
#include <utility>

#include "host/system/file.h"
#include "host/system/path.h"
#include "host/system/text.h"

namespace host {
namespace {

struct Word {
  std::string Text;
  // A part of it at least stood in double quotes.
  bool IsQuoted = false;
};

std::vector<Word> SplitWords(std::string_view line) {
  std::vector<Word> words;
  bool in_word = false;
  bool in_quotes = false;
  for (const char letter : line) {
    const bool separates = !in_quotes && (letter == ' ' || letter == '\t');
    if (!separates && !in_word) words.emplace_back();
    in_word = !separates;
    if (letter == '"') {
      in_quotes = !in_quotes;
      words.back().IsQuoted = true;
    } else if (!separates) {
      words.back().Text += letter;
    }
  }
  return words;
}

// The word as a program finds the file that it names, if it names one.
std::string ProgramWord(Word word) {
  if (!FileExists(word.Text)) return std::move(word.Text);
  const std::filesystem::path name = NativePath(word.Text);
  if (name.has_parent_path()) {
    std::error_code failure;
    const std::filesystem::path path = std::filesystem::absolute(name, failure);
    return failure ? name.string() : path.string();
  }
  const bool looks_like_option = word.IsQuoted && word.Text.starts_with('-');
  return looks_like_option ? "./" + word.Text : std::move(word.Text);
}

}  // namespace

std::vector<std::string> SplitCommandLine(std::string_view line) {
  std::vector<std::string> words;
  for (Word& word : SplitWords(line)) words.push_back(std::move(word.Text));
  return words;
}

std::vector<std::string> ProgramWords(std::string_view line) {
  std::vector<std::string> words;
  for (Word& word : SplitWords(line)) words.push_back(ProgramWord(std::move(word)));
  return words;
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
    std::vector<std::string> words = ProgramWords(line);
    if (!words.empty()) lines.push_back(std::move(words));
    begin = end + 1;
  }
  return lines;
}

}  // namespace host
