#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <cfloat>
#include <cmath>
#include <memory>

#include "exchange/inventory_folder.h"
#include "support/random_tanks.h"

/// What was exported and is imported into an empty database is the same.
namespace orvex::exchange {
namespace {

using store::Value;
using test::ChangeTank;

class InventoryRoundTrip : public test::InventoryFolder {
 protected:
  /// The tables of a new database into which the exported one was imported.
  static std::vector<test::TableRows> Returned(test::TestSession& test) {
    const auto folder = test.folder.Path() / "csv";
    ExportInventory(test.client(), folder);
    const auto path = test.folder.Path() / "returned.mdb";
    std::filesystem::remove(path);
    const auto returned = store::Database::Create(path, store::ClientTables());
    ImportInventory(*returned, test.reference(), folder);
    return test::InventoryTables(*returned);
  }

  /// The tank of the test with these fields comes back as it was.
  void ExpectReturned(test::FieldValues fields) {
    const auto ID = test::AddVerticalTank(test_, fields);
    EXPECT_EQ(Returned(test_), test::InventoryTables(test_.client())) << ID;
  }
};

TEST_F(InventoryRoundTrip, OfTheSampleInventoryGivesTheSameRows) {
  const auto sample = store::Database::Open(ORVEX_SAMPLE_DATABASE, store::OpenMode::kReadOnly);
  const auto reference = store::Database::Open(ORVEX_REFERENCE_DATABASE, store::OpenMode::kReadOnly);
  const auto exported = ExportInventory(*sample, Folder());
  EXPECT_EQ(exported.tanks, 25);
  EXPECT_EQ(exported.left_out, 0);
  const auto imported = ImportInventory(test_.client(), *reference, Folder());
  EXPECT_EQ(imported.Text(), exported.Text());
  EXPECT_EQ(test::InventoryTables(test_.client()), test::InventoryTables(*sample));
}

TEST_F(InventoryRoundTrip, OfTheSampleInventoryGivesTheSameFilesAgain) {
  const auto sample = store::Database::Open(ORVEX_SAMPLE_DATABASE, store::OpenMode::kReadOnly);
  const auto reference = store::Database::Open(ORVEX_REFERENCE_DATABASE, store::OpenMode::kReadOnly);
  ExportInventory(*sample, Folder());
  ImportInventory(test_.client(), *reference, Folder());
  const auto again = test_.folder.Path() / "again";
  ExportInventory(test_.client(), again);
  for (const auto* file : {"tanks.csv", "mixtures.csv", "components.csv", "fittings.csv"})
    EXPECT_EQ(test::FileContent(again / file), Content(file)) << file;
}

TEST_F(InventoryRoundTrip, OfRandomTanksGivesTheSameRows) {
  EXPECT_TRUE(rc::check([] {
    test::TestSession test;
    test::AddRandomTankReference(test.reference());
    const int tanks = *rc::gen::inRange(0, 4);
    for (int i = 0; i < tanks; ++i) {
      const auto ID = test::AddRandomTank(test, test::Storage::kAnyMixtures);
      auto tank = test.client().OpenMatching("tank", "ID", {ID});
      // The random tanks tell a welded deck in the field of bolted ones, too, which the window leaves empty.
      if (tank.TextOrEmpty("DECK_CONSTRUCT") == "Welded") ChangeTank(test.client(), ID, {{"DECK_CONSTRUCT", Value()}});
    }
    test::AddFittingsInUse(test);
    RC_ASSERT(Returned(test) == test::InventoryTables(test.client()));
  }));
}

/// A text of what makes a CSV file hard to write and to read.
std::string HardText() {
  constexpr std::string_view kParts[] = {"\"",
                                         "\"\"",
                                         ",",
                                         ";",
                                         "\r\n",
                                         "\n",
                                         " ",
                                         "\t",
                                         "'",
                                         "=1+1",
                                         "Yes",
                                         "-1",
                                         "\u00C4\u00D6\u00FC\u00DF",
                                         "\u6CB9",
                                         "\U0001F6E2",
                                         "0",
                                         "NULL",
                                         "\\"};
  std::string text;
  const int count = *rc::gen::inRange(0, 8);
  for (int i = 0; i < count; ++i) text += kParts[*rc::gen::inRange<std::size_t>(0, std::size(kParts))];
  return text;
}

Value AnyOrNull(const Value& value) { return *rc::gen::inRange(0, 3) == 0 ? Value() : value; }

TEST_F(InventoryRoundTrip, KeepsAnyTextAndAnyNumber) {
  EXPECT_TRUE(rc::check([] {
    test::TestSession test;
    const auto ID = test::AddInternalTank(test);
    test::AddFittingsInUse(test);
    const auto number = [] { return AnyOrNull(*rc::gen::suchThat<double>([](double x) { return std::isfinite(x); })); };
    ChangeTank(test.client(), ID,
               {{"USER ID", "x" + HardText()},
                {"CITY", AnyOrNull(HardText())},
                {"COMPANY", AnyOrNull(HardText())},
                {"DESC", AnyOrNull(HardText())},
                {"VOLUME", number()},
                {"Q_NET", number()}});
    test::ChangeMixture(test.client(), ID, 1,
                        {{"COMPONENT", "Multiple"}, {"MIX NAME", AnyOrNull(HardText())}, {"JAN_THRU", number()}});
    test::AddComponent(test.client(), ID, 1, 1, {{"CAS", AnyOrNull("\"1,2\"")}, {"WT_FRACT", number()}});
    RC_ASSERT(Returned(test) == test::InventoryTables(test.client()));
  }));
}

TEST_F(InventoryRoundTrip, TellsNullFromEmptyText) {
  ExpectReturned({{"CITY", ""}, {"STATE", Value()}, {"COMPANY", " "}});
  EXPECT_NE(Content("tanks.csv").find(",\"\",, ,"), std::string::npos) << Content("tanks.csv");
}

TEST_F(InventoryRoundTrip, KeepsTheLastBitOfANumber) {
  ExpectReturned({{"DIAMETER", DBL_MAX},
                  {"HEIGHT S", DBL_MIN},
                  {"HEIGHT ML", DBL_TRUE_MIN},
                  {"HEIGHT AL", 0.1 + 0.2},
                  {"VOLUME", -1.0 / 3},
                  {"Q_NET", 9007199254740993.0}});
}

TEST_F(InventoryRoundTrip, KeepsAHalfFilledTankAsTheWindowCanLeaveIt) {
  test::AddRow(test_.client(), "tank", {{"USER ID", "half"}, {"TANK_TYPE", "External Floating Roof Tank"}});
  test::AddRow(test_.client(), "mixtures", {{"ID", 1}, {"MIX ID", 1}});
  test::AddRow(test_.client(), "fittings", {{"ID", 1}, {"FIT ID", 1}});
  test::AddRow(test_.client(), "components", {{"ID", 1}, {"MIX ID", 1}, {"COMP ID", 1}});
  EXPECT_EQ(Returned(test_), test::InventoryTables(test_.client()));
}

TEST_F(InventoryRoundTrip, KeepsTheNumbersOfTanksAfterSomeWereDeleted) {
  for (int i = 0; i < 5; ++i) test::AddHorizontalTank(test_);
  for (const int ID : {1, 4}) {
    test_.client().DeleteMatching("tank", "ID", {ID});
    test_.client().DeleteMatching("mixtures", "IDMIX", {ID});
  }
  EXPECT_EQ(Returned(test_), test::InventoryTables(test_.client()));
  const auto tanks = Returned(test_).front();
  ASSERT_EQ(tanks.size(), 3U);
  EXPECT_EQ(tanks[2][0], Value(5));
}

TEST_F(InventoryRoundTrip, KeepsTheOrderOfRowsThatWereAddedInTurns) {
  test::AddHorizontalTank(test_);
  test::AddHorizontalTank(test_);
  test::AddMixture(test_.client(), 1, 3);
  test::AddMixture(test_.client(), 2, 2);
  test::AddMixture(test_.client(), 1, 2);
  EXPECT_EQ(Returned(test_), test::InventoryTables(test_.client()));
}

TEST_F(InventoryRoundTrip, OfAnEmptyDatabaseIsATemplate) {
  EXPECT_EQ(ExportInventory(test_.client(), Folder()).Text(), "0 tanks, 0 mixtures, 0 components and 0 fittings");
  EXPECT_TRUE(Content("tanks.csv").starts_with("ID,USER ID,TANK_TYPE,CITY,")) << Content("tanks.csv");
  EXPECT_TRUE(Content("mixtures.csv").starts_with("USER ID,ID,MIX ID,MIX NAME,")) << Content("mixtures.csv");
  EXPECT_TRUE(Content("components.csv").starts_with("USER ID,ID,MIX ID,COMP ID,NAME,")) << Content("components.csv");
  EXPECT_EQ(Content("fittings.csv"), "USER ID,ID,FIT ID,FIT_TYPE,COVR_TYPE,K_FA,K_FB,K_M,QUANTITY\r\n");
  EXPECT_EQ(Import().tanks, 0);
}

TEST_F(InventoryRoundTrip, KeepsComponentsWhoseMixtureWasDeleted) {
  test::AddHorizontalTank(test_);
  test::AddMixture(test_.client(), 1, 2);
  // Of three mixtures the second was deleted: the third took its number, and what it was made of did not.
  test::AddComponent(test_.client(), 1, 3, 2);
  test::AddComponent(test_.client(), 1, 2, 1);
  test::AddComponent(test_.client(), 1, 3, 1);
  EXPECT_EQ(Returned(test_), test::InventoryTables(test_.client()));
  EXPECT_EQ(Returned(test_)[2].size(), 3U);
}

TEST_F(InventoryRoundTrip, LeavesOutWhatBelongsToNoTankAndTellsHowMuch) {
  test::AddHorizontalTank(test_);
  test::AddComponent(test_.client(), 7, 1, 1);
  test::AddMixture(test_.client(), 7, 1);
  test::AddFitting(test_.client(), 7, 1);
  const auto counts = ExportInventory(test_.client(), Folder());
  EXPECT_EQ(counts.Text(), "1 tank, 1 mixture, 0 components and 0 fittings");
  EXPECT_EQ(counts.left_out, 3);
  test_.client().DeleteMatching("tank", "ID", {1});
  test_.client().DeleteMatching("mixtures", "IDMIX", {1});
  EXPECT_EQ(Import().tanks, 1);
}

}  // namespace
}  // namespace orvex::exchange
