#include "rib_fragment.h"

#include <gmock/gmock.h>

#include "export_fixture.h"
#include "support/rib_checker.h"

std::string WrittenRib(const std::function<void(orv::RibWriter&)>& write) {
  std::string rib = Written(write);
  EXPECT_THAT(CheckRib(rib).Complaints, testing::IsEmpty()) << rib;
  return rib;
}
