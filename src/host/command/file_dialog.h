#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

class CRhinoCommandContext;

// A row of a file dialog's list of types: "RIB Files (*.rib)", "*.rib". A pattern that begins "*.*"
// takes every file.
struct CRhinoFileFilter {
  std::string Description;
  std::string Pattern;
};

// The host's dialogs that choose a file. At a terminal they are a prompt for a path, with
// completion of file names.
struct CRhinoFileDialog {
  std::string Title;
  std::vector<CRhinoFileFilter> Filters;
  // The row that is chosen at first, counted from 1.
  int FilterIndex = 1;
  // Where relative names stand; the current folder when it is empty.
  std::string Folder;
  // What Enter takes; empty when there is none.
  std::string FileName;
};

struct CRhinoFileChoice {
  std::string Path;
  // The row of the file's type, counted from 1: the one with the pattern of its extension, and the
  // row that was chosen at first when there is none.
  int FilterIndex = 1;
};

// Why a path with its extension names no file that can be written: it has nothing before that.
// Empty when it has.
std::string NameObjection(std::string_view path);

// Asks for an existing file. Nothing when the dialog was cancelled.
std::optional<CRhinoFileChoice> GetOpenFileName(CRhinoCommandContext& context,
                                                const CRhinoFileDialog& dialog);
// Asks for a file to write in a folder that exists, and whether it may be replaced when there is
// one of that name. Nothing when the dialog was cancelled.
std::optional<CRhinoFileChoice> GetSaveFileName(CRhinoCommandContext& context,
                                                const CRhinoFileDialog& dialog);
