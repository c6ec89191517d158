#include "entry/record_copy.h"

#include <fmt/format.h>

#include "entry/lifecycle_fixture.h"

namespace orvex::entry {
namespace {

using TextRows = test::Rows;

/// A tank with two mixtures, a component and a fitting, and another tank beside it.
class RecordCopyTest : public test::LifecycleTest {
 protected:
  RecordCopyTest() : ID(StoreTank(shell::kInternalFloatingRoof, "T1")), other(StoreTank(shell::kHorizontal, "T2")) {
    test::AddRow(Client(), "mixtures",
                 {{"ID", ID}, {"MIX ID", 2}, {"MIX NAME", "Second"}, {"JUNE", true}, {"JUN_THRU", 5}});
    test::AddRow(Client(), "components", {{"ID", ID}, {"MIX ID", 1}, {"COMP ID", 1}, {"NAME", "Benzene"}});
    test::AddRow(Client(), "fittings", {{"ID", ID}, {"FIT ID", 1}, {"FIT_TYPE", "Ladder"}, {"QUANTITY", 2}});
  }
  TextRows Fittings() { return Query("SELECT * FROM fittings", {"ID", "FIT ID", "FIT_TYPE", "QUANTITY"}); }
  TextRows Components() { return Query("SELECT * FROM components", {"ID", "MIX ID", "COMP ID", "NAME"}); }
  TextRows Mixtures() {
    return Query(fmt::format("SELECT * FROM mixtures WHERE ID = {} ORDER BY [MIX ID]", ID),
                 {"MIX ID", "MIX NAME", "JUNE", "JUN_THRU"});
  }
  const entry::RecordCopy& Copy() { return session_.tank_entry->copy; }

  std::int32_t ID, other;
};

TEST_F(RecordCopyTest, HoldsAllRowsOfTheTankAndNoOthers) {
  GetRecordCopy(session_, ID);
  EXPECT_EQ(Copy().ID, ID);
  ASSERT_EQ(Copy().TankCopy.size(), 1U);
  EXPECT_EQ(Copy().TankCopy[0].size(), Client().Fields("tank").size());
  EXPECT_EQ(Copy().TankCopy[0][1], store::Value("T1"));
  ASSERT_EQ(Copy().MixtureCopy.size(), 2U);
  EXPECT_EQ(Copy().MixtureCopy[1][2], store::Value("Second"));
  EXPECT_EQ(Copy().FittingCopy.size(), 1U);
  EXPECT_EQ(Copy().ComponentCopy.size(), 1U);
}

TEST_F(RecordCopyTest, OfATankWithoutFittingsAndComponentsHoldsNone) {
  GetRecordCopy(session_, other);
  EXPECT_TRUE(Copy().FittingCopy.empty());
  EXPECT_TRUE(Copy().ComponentCopy.empty());
}

TEST_F(RecordCopyTest, BringsBackWhatWasChangedAddedAndDeleted) {
  const auto mixtures = Mixtures();
  GetRecordCopy(session_, ID);
  test::ChangeRow(Client(), "tank", "ID", {ID}, {{"USER ID", "changed"}, {"DIAMETER", 50}});
  Client().DeleteMatching("mixtures", "IDMIX", {ID, 2});
  test::AddRow(Client(), "mixtures", {{"ID", ID}, {"MIX ID", 3}});
  Client().DeleteMatching("components", "IDMIX", {ID});
  test::AddRow(Client(), "fittings", {{"ID", ID}, {"FIT ID", 2}});
  RestoreRecordCopy(session_, ID);
  EXPECT_EQ(Query(fmt::format("SELECT * FROM tank WHERE ID = {}", ID), {"USER ID", "DIAMETER"}), (TextRows{"T1|-"}));
  EXPECT_EQ(Mixtures(), mixtures);
  EXPECT_EQ(Components(), (TextRows{fmt::format("{}|1|1|Benzene", ID)}));
  EXPECT_EQ(Fittings(), (TextRows{fmt::format("{}|1|Ladder|2", ID)}));
  EXPECT_EQ(UserId(other), "T2");
  EXPECT_EQ(host_.status, (std::vector<std::string>{"Processing, please wait...", "Ready"}));
  ExpectIdle();
}

TEST_F(RecordCopyTest, LeavesFittingsAndComponentsGivenToATankThatHadNone) {
  GetRecordCopy(session_, other);
  test::AddRow(Client(), "components", {{"ID", other}, {"MIX ID", 1}, {"COMP ID", 1}});
  test::AddRow(Client(), "fittings", {{"ID", other}, {"FIT ID", 1}});
  RestoreRecordCopy(session_, other);
  EXPECT_EQ(Count("components"), 2);
  EXPECT_EQ(Count("fittings"), 2);
}

TEST_F(RecordCopyTest, RemovesMixturesOfATankThatHadNone) {
  Client().DeleteMatching("mixtures", "IDMIX", {other});
  GetRecordCopy(session_, other);
  test::AddRow(Client(), "mixtures", {{"ID", other}, {"MIX ID", 1}});
  RestoreRecordCopy(session_, other);
  EXPECT_EQ(Count("mixtures"), 2);
}

TEST_F(RecordCopyTest, DoesNotMakeATankAgainThatIsGone) {
  GetRecordCopy(session_, ID);
  Client().DeleteMatching("tank", "ID", {ID});
  RestoreRecordCopy(session_, ID);
  EXPECT_EQ(Query("SELECT * FROM tank", {"USER ID"}), (TextRows{"T2"}));
  EXPECT_EQ(Mixtures().size(), 2U);
}

TEST_F(RecordCopyTest, IsNeverWrittenIntoAnotherTank) {
  GetRecordCopy(session_, ID);
  RestoreRecordCopy(session_, other);
  EXPECT_EQ(UserId(other), "T2");
  EXPECT_EQ(Count("mixtures"), 3);
}

TEST_F(RecordCopyTest, ThatFailsIsReportedAndLeavesNoCopy) {
  GetRecordCopy(session_, other);
  Client().DeleteTable("components");
  host_.ExpectError(3011, "mDatabase.GetRecordCopy");
  GetRecordCopy(session_, ID);
  EXPECT_TRUE(Copy().TankCopy.empty());
  RestoreRecordCopy(session_, ID);
  EXPECT_EQ(Mixtures().size(), 2U);
}

TEST_F(RecordCopyTest, ThatCannotBeWrittenBackIsReportedAndChangesNothing) {
  GetRecordCopy(session_, ID);
  test::ChangeRow(Client(), "tank", "ID", {ID}, {{"USER ID", "changed"}});
  Client().DeleteTable("components");
  host_.ExpectError(3011, "mDatabase.RestoreRecordCopy");
  RestoreRecordCopy(session_, ID);
  EXPECT_EQ(UserId(ID), "changed");
  ExpectIdle();
}

}  // namespace
}  // namespace orvex::entry
