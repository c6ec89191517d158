#include "store/blanks.h"

#include <gtest/gtest.h>

namespace orvex::store {
namespace {

TEST(WithoutBlanks, LeavesThoseInside) {
  EXPECT_EQ(WithoutBlanks("  Tank  A "), "Tank  A");
  EXPECT_EQ(WithoutBlanks("7.3"), "7.3");
  EXPECT_EQ(WithoutBlanks("\t7"), "\t7");
}

TEST(WithoutBlanks, NothingButBlanksIsAnEmptyText) {
  EXPECT_EQ(WithoutBlanks("   "), "");
  EXPECT_EQ(WithoutBlanks(""), "");
}

TEST(WithoutBlanks, OtherCharactersCanCountAsBlanks) {
  EXPECT_EQ(WithoutBlanks(std::string_view("\0 7\0", 4), std::string_view(" \0", 2)), "7");
}

}  // namespace
}  // namespace orvex::store
