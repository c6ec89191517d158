#include "shell/path_text.h"

#include <gtest/gtest.h>

namespace orvex::shell {
namespace {

TEST(PathText, BaseNameIsWhatStandsBetweenTheLastSeparatorAndTheLastPoint) {
  EXPECT_EQ(BaseName("/home/ann/import/tank.dbf"), "tank");
  EXPECT_EQ(BaseName("C:\\TANKS\\FIT_TBL.DBF"), "FIT_TBL");
  EXPECT_EQ(BaseName("/mixed\\rim_seal.dbf"), "rim_seal");
  EXPECT_EQ(BaseName("tank.dbf"), "tank");
  EXPECT_EQ(BaseName("/data/tank.old.dbf"), "tank.old");
  EXPECT_EQ(BaseName("/data.d/tank"), "tank");
  EXPECT_EQ(BaseName("/data/.dbf"), "");
  EXPECT_EQ(BaseName("/data/"), "");
  EXPECT_EQ(BaseName(""), "");
}

TEST(PathText, DirNameIsWhatStandsInFrontOfTheLastSeparator) {
  EXPECT_EQ(DirName("/home/ann/import/tank.dbf"), "/home/ann/import");
  EXPECT_EQ(DirName("C:\\TANKS\\FIT_TBL.DBF"), "C:\\TANKS");
  EXPECT_EQ(DirName("C:\\TANKS/tank.dbf"), "C:\\TANKS");
  EXPECT_EQ(DirName("/tank.dbf"), "");
  EXPECT_EQ(DirName("tank.dbf"), "");
  EXPECT_EQ(DirName(""), "");
}

TEST(PathText, StripPrefixIsWhatStandsBehindTheFirstPoint) {
  EXPECT_EQ(StripPrefix("tank.USER ID"), "USER ID");
  EXPECT_EQ(StripPrefix("a.b.c"), "b.c");
  EXPECT_EQ(StripPrefix("USER ID"), "USER ID");
  EXPECT_EQ(StripPrefix("tank."), "");
  EXPECT_EQ(StripPrefix(""), "");
}

TEST(PathText, StatusLineShowsAPathInLowerCase) {
  EXPECT_EQ(PathPanelText("/Home/Ann/TankData.MDB"), "/home/ann/tankdata.mdb");
  EXPECT_EQ(PathPanelText("/Räume/ÜBERSICHT.mdb"), "/räume/übersicht.mdb");
  EXPECT_EQ(PathPanelText("/\xFF/A.mdb"), "/\uFFFD/a.mdb");
  EXPECT_EQ(PathPanelText(""), "");
}

}  // namespace
}  // namespace orvex::shell
