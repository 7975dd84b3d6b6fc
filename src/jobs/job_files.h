#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "settings/render_settings.h"
#include "settings/user_values.h"

// The files of a job: what they are called, and how those are written that aren't scenes.
namespace orv {

// `path` with `suffix` behind its base name: "C:\t\a.rib" and "_v7" give "C:\t\a_v7.rib".
std::string AppendToBaseName(std::string_view path, std::string_view suffix);

// The first 256 characters of a scene's path, which the files of its job are named after. Nothing,
// with a message, when its folder goes on behind them: the files would be in another one.
[[nodiscard]] std::optional<std::string> JobName(std::string_view path);
// The same, without the extension that they end with.
[[nodiscard]] std::optional<std::string> JobBaseName(std::string_view path);

// The file of a frame, from the path of the scene without its extension: "base_0012.rib".
std::string FrameFileName(std::string_view base, int frame);

// The numbers of the first and the last frame.
struct FrameRange {
  int First = 0;
  int Last = 0;
};

// Adds "_v" and the user's version to the names of the scene and the image, when the user wants
// that.
void ApplyVersionSuffix(const UserValues& user, RenderSettings& settings);
// Adds one to the version; the greatest integer stays.
void IncrementVersion(UserValues& user);

// Writes a text as a file of its own, in the place of an older one, which whoever has it open still
// reads to its end. False when it can't be written, or not to its end; an older file then stays.
[[nodiscard]] bool WriteTextFile(std::string_view path, std::string_view text);
// Writes the file that reads all these frames, whose names begin with `base`. False, with a
// message, when it can't be written.
[[nodiscard]] bool WriteFileOfFrames(std::string_view path, std::string_view base,
                                     FrameRange frames);

}  // namespace orv
