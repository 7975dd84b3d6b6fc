#include "support/model_corpus.h"

#include <cstdlib>

std::optional<std::filesystem::path> ModelCorpus() {
  const char* folder = std::getenv("ORV_MODEL_CORPUS");
  if (folder == nullptr || *folder == '\0') return std::nullopt;
  return std::filesystem::path(folder);
}
