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

// The words of a command line that starts a program, which finds the files from another folder than
// this one, too: a word that names an existing file in a folder becomes its full path, with the
// system's own separators. A name in quotes is none of the program's options: "-a.rib" becomes
// "./-a.rib" when there is such a file. Any other word stays.
std::vector<std::string> ProgramWords(std::string_view line);

// True for an existing file whose name ends in ".bat".
bool IsBatchFile(std::string_view path);
// The words of each command line of a batch file, without the empty lines. Nothing when it can't be
// read.
std::optional<std::vector<std::vector<std::string>>> ReadBatchFile(std::string_view path);

}  // namespace host
