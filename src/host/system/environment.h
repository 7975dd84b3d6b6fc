#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace host {

// The value of an environment variable; nothing when it is not set.
std::optional<std::string> EnvironmentValue(std::string_view name);

// Gives TEMP a value (the system's folder for temporary files) when the environment has none.
// Called once by the program, at its start.
void EnsureTempVariable();

// The folder of the user's settings, without a trailing separator: $XDG_CONFIG_HOME, or .config
// in the home folder. Empty when the environment tells neither.
std::string UserConfigurationFolder();

}  // namespace host
