#include "host/document/object_name.h"

#include <gtest/gtest.h>

namespace {

TEST(QuotedName, IsTheNameInQuotes) {
  EXPECT_EQ(host::QuotedName("lid"), "\"lid\"");
  EXPECT_EQ(host::QuotedName("Größe \"B\""), "\"Größe \"B\"\"");
  EXPECT_EQ(host::QuotedName(""), "\"\"");
}

TEST(QuotedName, StaysOnOneLine) {
  EXPECT_EQ(host::QuotedName("two\r\nlines\x1b[2J"), "\"two  lines [2J\"");
  std::string text, first;
  for (int i = 0; i < 101; ++i) {
    text += "ü";
    if (i < 100) first += "ü";
  }
  EXPECT_EQ(host::QuotedName(first), '"' + first + '"');
  EXPECT_EQ(host::QuotedName(text), '"' + first + "...\"");
}

}  // namespace
