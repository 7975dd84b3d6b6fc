#pragma once

#include <filesystem>
#include <optional>

// The folder of real documents that ORV_MODEL_CORPUS names, with its folders `real`, `made` and
// `facts`; nothing when the variable is not set. Tests that need it skip themselves then.
std::optional<std::filesystem::path> ModelCorpus();
