#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Command lines as texts: they are taken apart here, and no shell ever sees one.
namespace host {

// The words of a command line: blanks separate them, and a part in double quotes holds blanks. A
// backslash is a letter like any other.
std::vector<std::string> SplitCommandLine(std::string_view line);

// Spells words that name existing files with the system's own separators, so that other programs
// find them: "/tmp\a.rib" becomes "/tmp/a.rib" where "\" separates nothing. Any other word stays.
void UseNativeNames(std::vector<std::string>& words);

// True for an existing file whose name ends in ".bat".
bool IsBatchFile(std::string_view path);
// The command lines of a batch file, taken apart, with native names and without the empty ones. Nothing when it can't be
// read.
std::optional<std::vector<std::vector<std::string>>> ReadBatchFile(std::string_view path);

}  // namespace host
