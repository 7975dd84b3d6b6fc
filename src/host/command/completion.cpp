#include "host/command/completion.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "host/system/environment.h"
#include "host/system/path.h"
#include "host/system/text.h"

namespace {

// The folder that a typed path's names stand in.
std::filesystem::path FolderOf(std::string_view prompt_folder, std::string_view typed_folder) {
  std::filesystem::path typed = host::NativePath(typed_folder);
  if (typed_folder.starts_with("~/")) {
    typed = host::NativePath(host::EnvironmentValue("HOME").value_or("~") +
                             std::string(typed_folder.substr(1)));
  }
  const std::filesystem::path base = host::NativePath(prompt_folder);
  const std::filesystem::path folder = base / typed;
  return folder.empty() ? std::filesystem::path(".") : folder;
}

void AddFiles(const Prompt& prompt, std::string_view line, Completion& completion) {
  const std::size_t slash = line.find_last_of("/\\");
  completion.start = slash == std::string_view::npos ? 0 : slash + 1;
  const std::string_view begun = line.substr(completion.start);
  std::error_code error;
  std::filesystem::directory_iterator it(FolderOf(prompt.Folder, line.substr(0, completion.start)),
                                         error);
  for (; !error && it != std::filesystem::directory_iterator(); it.increment(error)) {
    std::string name = it->path().filename().string();
    const bool hidden = name.starts_with('.') && !begun.starts_with('.');
    if (hidden || !std::string_view(name).starts_with(begun)) continue;
    std::error_code ignored;
    if (it->is_directory(ignored)) name += '/';
    completion.candidates.push_back(std::move(name));
  }
}

void AddMatching(const std::vector<std::string>& words, std::string_view begun,
                 std::string_view before, Completion& completion) {
  for (const std::string& word : words) {
    if (host::StartsWithNoCase(word, begun)) {
      completion.candidates.push_back(std::string(before) + word);
    }
  }
}

// Options by name, and after "Name=" their values.
void AddOptions(const Prompt& prompt, std::string_view begun, Completion& completion) {
  const std::size_t equal = begun.find('=');
  for (const PromptOption& option : prompt.Options) {
    if (equal == std::string_view::npos) {
      if (!host::StartsWithNoCase(option.Name, begun)) continue;
      completion.candidates.push_back(option.Choices.empty() ? option.Name : option.Name + "=");
    } else if (host::EqualNoCase(option.Name, begun.substr(0, equal))) {
      AddMatching(option.Choices, begun.substr(equal + 1), option.Name + "=", completion);
    }
  }
}

// Where the last word of a line begins, behind marks that may stand before a name.
std::size_t WordStart(std::string_view line) {
  const std::size_t blank = line.find_last_of(" \t");
  const std::size_t start = blank == std::string_view::npos ? 0 : blank + 1;
  return std::min(line.find_first_not_of("-_", start), line.size());
}

}  // namespace

Completion Complete(const Prompt& prompt, std::string_view line) {
  Completion completion;
  if (prompt.TakesPath) AddFiles(prompt, line, completion);
  if (!prompt.TakesText) completion.start = WordStart(line);
  if (completion.start == 0 || !prompt.TakesText) {
    const std::string_view begun = line.substr(completion.start);
    AddOptions(prompt, begun, completion);
    AddMatching(prompt.Words, begun, {}, completion);
  }
  std::sort(completion.candidates.begin(), completion.candidates.end());
  return completion;
}

std::string Completion::CommonPrefix() const {
  if (candidates.empty()) return {};
  std::string_view common = candidates.front();
  for (const std::string& candidate : candidates) {
    const auto differ =
        std::mismatch(common.begin(), common.end(), candidate.begin(), candidate.end());
    common = common.substr(0, static_cast<std::size_t>(differ.first - common.begin()));
  }
  // Not inside a character.
  return std::string(host::FirstBytes(candidates.front(), common.size()));
}
