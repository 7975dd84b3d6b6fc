#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cstring>

// The main of every test program. Takes the environment's locale, as a program with a user
// interface does, so that a run under a comma locale shows whatever depends on it.
int main(int argc, char** argv) {
  std::setlocale(LC_ALL, "");
  if (std::getenv("ORV_EXPECT_COMMA_LOCALE") != nullptr &&
      std::strcmp(std::localeconv()->decimal_point, ",") != 0) {
    std::fprintf(stderr, "the locale with a decimal comma is not there\n");
    return 1;
  }
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
