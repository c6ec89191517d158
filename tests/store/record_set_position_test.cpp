#include <gtest/gtest.h>

#include <initializer_list>
#include <limits>
#include <memory>
#include <utility>

#include "store/database.h"
#include "store/record_set.h"
#include "store/run_time_error.h"
#include "support/expect_error.h"
#include "support/test_databases.h"

namespace orvex::store {
namespace {

using test::AddRow;
using List = std::vector<std::string>;

class RecordSetPosition : public testing::Test {
 protected:
  void AddTanks(std::initializer_list<const char*> names) {
    for (const char* name : names) AddRow(client, "tank", {{"USER ID", name}});
  }
  /// An empty set of each kind.
  std::vector<RecordSet> EmptySets() {
    std::vector<RecordSet> sets;
    sets.push_back(client.OpenTable("mixtures"));
    sets.push_back(client.OpenTable("mixtures"));
    sets.back().SetIndex("IDMIX");
    sets.push_back(client.OpenQuery("SELECT * FROM mixtures"));
    sets.push_back(client.OpenQuery("SELECT ID FROM mixtures"));
    sets.push_back(client.OpenMatching("mixtures", "IDMIX", {1}));
    return sets;
  }
  /// A set of each kind over all tanks, in the order of their names.
  std::vector<RecordSet> TankSets() {
    std::vector<RecordSet> sets;
    sets.push_back(client.OpenTable("tank"));
    sets.back().SetIndex("USER ID");
    sets.push_back(client.OpenQuery("SELECT * FROM tank ORDER BY [USER ID]"));
    sets.push_back(client.OpenQuery("SELECT [USER ID] FROM tank ORDER BY [USER ID]"));
    return sets;
  }
  test::TestSession test;
  Database& client = test.client();
};

TEST_F(RecordSetPosition, AnEmptySetStaysAtItsStartAndItsEnd) {
  for (auto& set : EmptySets()) {
    const auto expect_both_ends = [&] {
      EXPECT_TRUE(set.AtEnd());
      EXPECT_TRUE(set.AtStart());
    };
    expect_both_ends();
    EXPECT_RUN_TIME_ERROR(set.MoveLast(), ErrorNumber::kNoCurrentRecord);
    expect_both_ends();
    EXPECT_RUN_TIME_ERROR(set.MovePrevious(), ErrorNumber::kNoCurrentRecord);
    expect_both_ends();
    EXPECT_RUN_TIME_ERROR(set.MoveNext(), ErrorNumber::kNoCurrentRecord);
    expect_both_ends();
    EXPECT_RUN_TIME_ERROR(set.CurrentBookmark(), ErrorNumber::kNoCurrentRecord);
    EXPECT_TRUE(set.GetRows(5).empty());
    EXPECT_EQ(set.RecordCount(), 0);
  }
}

TEST_F(RecordSetPosition, NoSetMovesBeyondItsEnds) {
  AddTanks({"b", "a"});
  for (auto& set : TankSets()) {
    set.MoveNext();
    EXPECT_EQ(set.Text("USER ID"), "b");
    set.MoveNext();
    EXPECT_TRUE(set.AtEnd());
    EXPECT_FALSE(set.AtStart());
    EXPECT_RUN_TIME_ERROR(set.MoveNext(), ErrorNumber::kNoCurrentRecord);
    EXPECT_RUN_TIME_ERROR(set.Text("USER ID"), ErrorNumber::kNoCurrentRecord);
    set.MovePrevious();
    EXPECT_EQ(set.Text("USER ID"), "b");
    set.MovePrevious();
    set.MovePrevious();
    EXPECT_TRUE(set.AtStart());
    EXPECT_FALSE(set.AtEnd());
    EXPECT_RUN_TIME_ERROR(set.MovePrevious(), ErrorNumber::kNoCurrentRecord);
    set.MoveNext();
    EXPECT_EQ(set.Text("USER ID"), "a");
  }
}

TEST_F(RecordSetPosition, ABookmarkLeadsBack) {
  AddTanks({"b", "a", "c"});
  for (auto& set : TankSets()) {
    set.MoveNext();
    const Bookmark bookmark = set.CurrentBookmark();
    set.MoveLast();
    set.Move(bookmark);
    EXPECT_EQ(set.Text("USER ID"), "b");
    set.MoveNext();
    EXPECT_EQ(set.Text("USER ID"), "c");
  }
}

TEST_F(RecordSetPosition, ABookmarkOfNoRecordIsAnError) {
  AddTanks({"a"});
  auto sets = TankSets();
  EXPECT_RUN_TIME_ERROR(sets[0].Move(99), ErrorNumber::kRecordDeleted);
  EXPECT_RUN_TIME_ERROR(sets[1].Move(99), ErrorNumber::kNoCurrentRecord);
  EXPECT_RUN_TIME_ERROR(sets[2].Move(99), ErrorNumber::kNoCurrentRecord);
  EXPECT_RUN_TIME_ERROR(sets[2].Move(-1), ErrorNumber::kNoCurrentRecord);
}

TEST_F(RecordSetPosition, TheAbsolutePositionCountsFromZero) {
  AddTanks({"a", "b"});
  auto sets = TankSets();
  EXPECT_RUN_TIME_ERROR(sets[0].AbsolutePosition(), ErrorNumber::kOperationNotSupported);
  for (auto* set : {&sets[1], &sets[2]}) {
    EXPECT_EQ(set->AbsolutePosition(), 0);
    set->MoveNext();
    EXPECT_EQ(set->AbsolutePosition(), 1);
    set->MoveNext();
    EXPECT_EQ(set->AbsolutePosition(), -1);
  }
}

TEST_F(RecordSetPosition, AnIndexWalkGoesOnFromARecordItDeletes) {
  AddTanks({"d", "b", "a", "c", "b"});
  for (const bool in_transaction : {true, false}) {
    SCOPED_TRACE(in_transaction);
    std::unique_ptr<Transaction> transaction;
    if (in_transaction) transaction = std::make_unique<Transaction>(client);
    auto tanks = client.OpenTable("tank");
    tanks.SetIndex("USER ID");
    List seen;
    for (; !tanks.AtEnd(); tanks.MoveNext()) {
      seen.push_back(tanks.Text("USER ID"));
      if (seen.back() == "b") {
        tanks.Delete();
        EXPECT_RUN_TIME_ERROR(tanks.Text("USER ID"), ErrorNumber::kRecordDeleted);
      }
    }
    EXPECT_EQ(seen, (List{"a", "b", "b", "c", "d"}));
    tanks.MoveLast();
    tanks.Delete();
    tanks.MovePrevious();
    EXPECT_EQ(tanks.Text("USER ID"), "c");
  }
}

TEST_F(RecordSetPosition, AnIndexWalkGoesOnFromARecordThatAStatementDeleted) {
  AddTanks({"c", "b", "a"});
  auto tanks = client.OpenTable("tank");
  tanks.SetIndex("USER ID");
  tanks.Seek({"b"});
  EXPECT_EQ(client.Execute("DELETE * FROM tank WHERE [USER ID] = 'b'"), 1);
  // Other records take the place of what was remembered.
  for (int i = 0; i < 1100; i += 512) AddRow(client, "tank", {{"ID", 514 + i}, {"USER ID", "z"}});
  tanks.MoveNext();
  EXPECT_EQ(tanks.Text("USER ID"), "c");
}

TEST_F(RecordSetPosition, AnIndexWalkGoesOnFromTheNewKeyOfARecord) {
  AddTanks({"a", "b", "c", "d"});
  auto tanks = client.OpenTable("tank");
  tanks.SetIndex("USER ID");
  tanks.Edit();
  tanks.Set("USER ID", "cc");
  tanks.Update();
  tanks.MoveNext();
  EXPECT_EQ(tanks.Text("USER ID"), "d");
}

TEST_F(RecordSetPosition, AWalkOverANullInTheMiddleOfAKeyMissesNothing) {
  struct Row {
    const char* fitting;
    Value status;
  };
  Database& reference = test.reference();
  int number = 0;
  for (const auto& [fitting, status] : {Row{"b", "x"}, Row{"a", Value()}, Row{"b", Value()}, Row{"a", "y"},
                                        Row{"a", Value()}, Row{"b", ""}, Row{"a", "X"}}) {
    AddRow(reference, "fitting", {{"FIT_TYPE", fitting}, {"COVR_TYPE", status}, {"QUANTITY", ++number}});
  }
  AddRow(reference, "fitting", {{"COVR_TYPE", "x"}, {"QUANTITY", ++number}});
  auto fittings = reference.OpenTable("fitting");
  fittings.SetIndex("TYPE");
  std::vector<int> forward, backward;
  for (; !fittings.AtEnd(); fittings.MoveNext()) forward.push_back(fittings.Long("QUANTITY"));
  for (fittings.MoveLast(); !fittings.AtStart(); fittings.MovePrevious()) {
    backward.push_back(fittings.Long("QUANTITY"));
  }
  EXPECT_EQ(forward, (std::vector<int>{8, 2, 5, 7, 4, 3, 6, 1})) << "null comes first, an empty text next";
  EXPECT_EQ(backward, (std::vector<int>{1, 6, 3, 4, 7, 5, 2, 8}));
}

TEST_F(RecordSetPosition, ASetThatIsClosedOrHandedOnSaysSo) {
  AddTanks({"a"});
  auto tanks = client.OpenTable("tank");
  tanks.Close();
  EXPECT_NO_THROW(tanks.Close());
  auto first = client.OpenTable("tank");
  auto second = std::move(first);
  EXPECT_EQ(second.Text("USER ID"), "a");
  for (auto* set : {&tanks, &first}) {  // NOLINT(bugprone-use-after-move): it is the subject
    EXPECT_RUN_TIME_ERROR(set->Text("USER ID"), ErrorNumber::kObjectClosed);
    EXPECT_RUN_TIME_ERROR(set->AtEnd(), ErrorNumber::kObjectClosed);
    EXPECT_RUN_TIME_ERROR(set->MoveNext(), ErrorNumber::kObjectClosed);
    EXPECT_RUN_TIME_ERROR(set->AddNew(), ErrorNumber::kObjectClosed);
    EXPECT_RUN_TIME_ERROR(set->FieldCount(), ErrorNumber::kObjectClosed);
  }
  first = std::move(second);
  EXPECT_EQ(first.Text("USER ID"), "a");
}

TEST_F(RecordSetPosition, ARequeryThatFailsLeavesTheSetUsable) {
  AddTanks({"b", "a"});
  auto names = client.OpenQuery("SELECT [USER ID] FROM tank");
  names.MoveLast();
  {
    const Transaction transaction(client);
    client.DeleteTable("tank");
    EXPECT_RUN_TIME_ERROR(names.Requery(), ErrorNumber::kObjectNotFound);
  }
  EXPECT_EQ(names.Text("USER ID"), "b");
  names.Requery();
  EXPECT_EQ(names.RecordCount(), 2);
}

TEST_F(RecordSetPosition, RequeryOnATableGoesBackToTheFirstRecord) {
  AddTanks({"a", "b"});
  auto tanks = client.OpenTable("tank");
  tanks.MoveLast();
  tanks.Requery();
  EXPECT_EQ(tanks.Text("USER ID"), "a");
}

TEST_F(RecordSetPosition, AnEmptyIndexNameGoesBackToTheOrderOfTheFile) {
  AddTanks({"b", "a"});
  auto tanks = client.OpenTable("tank");
  tanks.SetIndex("USER ID");
  EXPECT_EQ(tanks.Text("USER ID"), "a");
  tanks.SetIndex("");
  EXPECT_EQ(tanks.Text("USER ID"), "b");
}

TEST_F(RecordSetPosition, ATableHasThePositionsOfItsFields) {
  auto tanks = client.OpenTable("tank");
  EXPECT_EQ(tanks.FieldName(1), "USER ID");
  EXPECT_RUN_TIME_ERROR(tanks.FieldName(-1), ErrorNumber::kItemNotFound);
  EXPECT_RUN_TIME_ERROR(tanks.FieldName(tanks.FieldCount()), ErrorNumber::kItemNotFound);
}

// Edits
// ----------------------------------------------------------------------------------------------------------------

TEST_F(RecordSetPosition, ACounterCanBeGivenToANewRecordButNotChanged) {
  AddRow(client, "tank", {{"ID", 7}, {"USER ID", "a"}});
  auto tanks = client.OpenTable("tank");
  EXPECT_EQ(tanks.Long("ID"), 7);
  tanks.Edit();
  tanks.Set("ID", 7);
  tanks.Set("DIAMETER", 1.0);
  EXPECT_NO_THROW(tanks.Update());
  tanks.Edit();
  tanks.Set("ID", 8);
  EXPECT_RUN_TIME_ERROR(tanks.Update(), ErrorNumber::kOperationNotSupported);
  tanks.CancelUpdate();
  EXPECT_EQ(tanks.Long("ID"), 7);
  EXPECT_RUN_TIME_ERROR(AddRow(client, "tank", {{"ID", 7}}), ErrorNumber::kDuplicateKey);
  AddTanks({"b"});
  tanks.MoveLast();
  EXPECT_EQ(tanks.Long("ID"), 8) << "counting goes on from the greatest number";
}

TEST_F(RecordSetPosition, AnUpdateWithoutAChangeWritesNothing) {
  AddTanks({"a"});
  auto tanks = client.OpenTable("tank");
  tanks.Edit();
  tanks.Set("USER ID", "a");
  tanks.Update();
  EXPECT_EQ(tanks.LastModified(), tanks.CurrentBookmark());
}

TEST_F(RecordSetPosition, AFailingUpdateCanBeMendedAndRepeated) {
  for (const int comp : {1, 2}) AddRow(client, "components", {{"ID", 1}, {"MIX ID", 1}, {"COMP ID", comp}});
  auto components = client.OpenTable("components");
  components.Edit();
  components.Set("COMP ID", 2);
  EXPECT_RUN_TIME_ERROR(components.Update(), ErrorNumber::kDuplicateKey);
  components.Set("COMP ID", 3);
  components.Update();
  EXPECT_EQ(components.Long("COMP ID"), 3);
}

TEST_F(RecordSetPosition, ValuesOfAnyKindGoIntoAnyFieldThatCanHoldThem) {
  AddTanks({"a"});
  auto tanks = client.OpenTable("tank");
  tanks.Edit();
  tanks.Set("DIAMETER", Value("12.5"));
  tanks.Set("USER ID", Value(7));
  tanks.Set("HEATED", Value("-1"));
  tanks.Set("COMPANY", true);
  tanks.Set("CITY", std::string("x"));
  tanks.Set("STATE", Value(2.5));
  tanks.Update();
  EXPECT_EQ(tanks.Double("DIAMETER"), 12.5);
  EXPECT_EQ(tanks.Text("USER ID"), "7");
  EXPECT_TRUE(tanks.Bool("HEATED"));
  EXPECT_EQ(tanks.Text("COMPANY"), "-1");
  EXPECT_EQ(tanks.Text("STATE"), "2.5");
  tanks.Edit();
  tanks.Set("DIAMETER", Value());
  EXPECT_RUN_TIME_ERROR(tanks.Set("DIAMETER", "inf"), ErrorNumber::kDataConversion);
  EXPECT_RUN_TIME_ERROR(tanks.Set("DIAMETER", ""), ErrorNumber::kDataConversion);
  EXPECT_RUN_TIME_ERROR(tanks.Set("CITY", std::numeric_limits<double>::infinity()), ErrorNumber::kOverflow);
  EXPECT_RUN_TIME_ERROR(tanks.Set("ID", -2147483649.0), ErrorNumber::kOverflow);
  EXPECT_RUN_TIME_ERROR(tanks.Set("nothing", 1), ErrorNumber::kItemNotFound);
  tanks.Update();
  EXPECT_TRUE(tanks.IsNull("DIAMETER"));
}

TEST_F(RecordSetPosition, AKeyIsFoundWhateverTheKindOfItsValue) {
  AddRow(client, "mixtures", {{"ID", 1}, {"MIX ID", 2}});
  const Transaction transaction(client);
  auto mixtures = client.OpenTable("mixtures");
  mixtures.SetIndex("IDMIX");
  for (int repeat = 0; repeat < 2; ++repeat) {
    for (const Value& number : {Value(1), Value(1.0), Value("1")}) {
      mixtures.Seek({number, 2});
      EXPECT_FALSE(mixtures.NoMatch());
    }
    mixtures.Seek({1, 2, 99});
    EXPECT_FALSE(mixtures.NoMatch()) << "values beyond the index are left aside";
    mixtures.Seek({1.5, 2});
    EXPECT_TRUE(mixtures.NoMatch());
    mixtures.Seek({});
    EXPECT_FALSE(mixtures.NoMatch());
    EXPECT_EQ(client.OpenMatching("mixtures", "IDMIX", {}).RecordCount(), 1);
  }
}

}  // namespace
}  // namespace orvex::store
