#pragma once

#include <span>
#include <string>
#include <vector>

// What the program was told on its command line.
struct Arguments {
  // One -c or --script, in the order in which they stand.
  struct Script {
    bool IsFile = false;
    // The script itself, or its file.
    std::string Text;
  };

  std::string Model;
  std::vector<Script> Scripts;
  std::string Export;
  std::string PlugIn;
  // Scripts go on behind their errors.
  bool KeepGoing = false;
  bool Help = false;
  bool Version = false;

  // What is wrong with the command line; empty when nothing is.
  std::string Error;
};

// `words` without the program's name.
Arguments ParseArguments(std::span<const char* const> words);

// The text of --help.
extern const char kUsage[];
