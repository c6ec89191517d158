#include "store/dbase_names.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "store/field_table.h"
#include "store/run_time_error.h"
#include "support/expect_error.h"

namespace orvex::store {
namespace {

using ::testing::ElementsAre;

TEST(DbaseNames, AreCapitalsDigitsAndUnderlines) {
  EXPECT_THAT(DbaseFieldNames({"USER ID", "s_loss", "K-FA", "Gr\u00F6\u00DFe", "a\xFF z"}),
              ElementsAre("USER_ID", "S_LOSS", "K_FA", "GR__E", "A__Z"));
}

TEST(DbaseNames, BeginWithALetter) {
  EXPECT_THAT(DbaseFieldNames({"1st", "_x", "", " "}), ElementsAre("F1ST", "F_X", "F", "F_"));
}

TEST(DbaseNames, AreCutToTenCharacters) {
  EXPECT_THAT(DbaseFieldNames({"DECK_SEAM_LENGTH", "ABCDEFGHIJ", "0123456789"}),
              ElementsAre("DECK_SEAM_", "ABCDEFGHIJ", "F012345678"));
}

TEST(DbaseNames, OneThatAnEarlierFieldHasEndsInANumber) {
  EXPECT_THAT(DbaseFieldNames({"MIX ID", "mix_id", "MIX-ID", "MIX_ID2"}),
              ElementsAre("MIX_ID", "MIX_ID2", "MIX_ID3", "MIX_ID22"));
  EXPECT_THAT(DbaseFieldNames({"TEMPERATURE MIN", "TEMPERATURE MAX", "TEMPERATU2"}),
              ElementsAre("TEMPERATUR", "TEMPERATU2", "TEMPERATU3"));
}

TEST(DbaseNames, ManyFieldsThatBeginAlikeStayApart) {
  std::vector<std::string> names;
  for (int i = 0; i < 1000; ++i) names.push_back("MONTHLY THROUGHPUT " + std::to_string(i));
  const auto cut = DbaseFieldNames(names);
  EXPECT_EQ(std::set<std::string>(cut.begin(), cut.end()).size(), 1000U);
  EXPECT_EQ(cut[9], "MONTHLY_10");
  EXPECT_EQ(cut[999], "MONTHL1000");
  for (const auto& name : cut) EXPECT_LE(name.size(), 10U);
}

TEST(DbaseNames, NoTwoFieldsOfATableGetTheSame) {
  for (const auto tables : {ClientTables(), ReferenceTables()}) {
    for (const auto& table : tables) {
      std::vector<std::string> names;
      for (const auto& field : table.fields) names.emplace_back(field.name);
      const auto cut = DbaseFieldNames(names);
      EXPECT_EQ(std::set<std::string>(cut.begin(), cut.end()).size(), names.size()) << table.name;
    }
  }
}

TEST(DbaseNames, AFileNameHasAtMostEightCharacters) {
  for (const char* name : {"chemical.dbf", "a.dbf", "MY TANKS.DBF",
                           "\u00F6\u00F6\u00F6\u00F6\u00F6\u00F6\u00F6\u00F6.dbf", "folder.of.mine/met.dbf"})
    EXPECT_NO_THROW(CheckDbaseFileName(name)) << name;
  for (const char* name : {"chemicals.dbf", "all my tanks.dbf", "met.old.dbf", ".dbf"})
    EXPECT_RUN_TIME_ERROR(CheckDbaseFileName(name), ErrorNumber::kInvalidName);
}

}  // namespace
}  // namespace orvex::store
