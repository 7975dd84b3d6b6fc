#include "wrong_bytes.h"

#include <gtest/gtest.h>

#include <span>

#include "host/archive/model_reader.h"

void ReadWithWrongBytes(const std::string& document, std::size_t first,
                        const std::function<void(const ONX_Model& model)>& check) {
  for (std::size_t i = first; i < document.size(); ++i) {
    for (const int flip : {0x01, 0x80, 0xff}) {
      SCOPED_TRACE("byte " + std::to_string(i) + " changed by " + std::to_string(flip));
      std::string bytes = document;
      bytes[i] = static_cast<char>(bytes[i] ^ flip);
      ONX_Model model;
      const ON_ReadResult result = ON_ReadModel(std::as_bytes(std::span(bytes)), model);
      EXPECT_EQ(result.error.empty(), result.ok);
      check(model);
    }
  }
}
