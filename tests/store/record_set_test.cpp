#include "store/record_set.h"

#include <gtest/gtest.h>

#include <limits>

#include "store/database.h"
#include "store/run_time_error.h"
#include "support/expect_error.h"
#include "support/test_databases.h"

namespace orvex::store {
namespace {

using test::AddRow;

class RecordSetTest : public testing::Test {
 protected:
  void AddTank(const char* user_id, double diameter = 10) {
    AddRow(client, "tank", {{"USER ID", user_id}, {"DIAMETER", diameter}});
  }
  void AddComponent(int id, int mix, int comp, const char* name) {
    AddRow(client, "components", {{"ID", id}, {"MIX ID", mix}, {"COMP ID", comp}, {"NAME", name}});
  }
  static std::vector<std::string> Names(RecordSet& set, const char* field) {
    std::vector<std::string> names;
    for (; !set.AtEnd(); set.MoveNext()) names.push_back(set.TextOrEmpty(field));
    return names;
  }
  using List = std::vector<std::string>;
  test::TestSession test;
  Database& client = test.client();
};

TEST_F(RecordSetTest, AnEmptyTableIsAtItsStartAndItsEnd) {
  auto tanks = client.OpenTable("tank");
  EXPECT_TRUE(tanks.AtEnd());
  EXPECT_TRUE(tanks.AtStart());
  EXPECT_EQ(tanks.RecordCount(), 0);
  EXPECT_RUN_TIME_ERROR(tanks.Text("USER ID"), ErrorNumber::kNoCurrentRecord);
  EXPECT_RUN_TIME_ERROR(tanks.MoveFirst(), ErrorNumber::kNoCurrentRecord);
  EXPECT_RUN_TIME_ERROR(tanks.MoveLast(), ErrorNumber::kNoCurrentRecord);
}

TEST_F(RecordSetTest, TableOrderIsTheOrderOfTheFile) {
  for (const char* name : {"b", "A", "c"}) AddTank(name);
  auto tanks = client.OpenTable("TANK");
  EXPECT_EQ(Names(tanks, "user id"), (List{"b", "A", "c"}));
  tanks.MoveLast();
  EXPECT_EQ(tanks.Text("USER ID"), "c");
  tanks.MovePrevious();
  EXPECT_EQ(tanks.Text("USER ID"), "A");
  tanks.MovePrevious();
  tanks.MovePrevious();
  EXPECT_TRUE(tanks.AtStart());
  EXPECT_FALSE(tanks.AtEnd());
  tanks.MoveNext();
  EXPECT_EQ(tanks.Text("USER ID"), "b");
}

TEST_F(RecordSetTest, AnIndexOrdersTextWithoutRegardToCase) {
  for (const char* name : {"b", "A", "c", "B", "a"}) AddTank(name);
  auto tanks = client.OpenTable("tank");
  tanks.SetIndex("User Id");
  EXPECT_EQ(Names(tanks, "USER ID"), (List{"A", "a", "b", "B", "c"}));
  tanks.MoveLast();
  List backward;
  for (; !tanks.AtStart(); tanks.MovePrevious()) backward.push_back(tanks.Text("USER ID"));
  EXPECT_EQ(backward, (List{"c", "B", "b", "a", "A"}));
}

TEST_F(RecordSetTest, AnIndexWalkPassesRowsWhoseKeyIsNull) {
  AddTank("b");
  AddRow(client, "tank", {{"DIAMETER", 1.0}});
  AddRow(client, "tank", {{"DIAMETER", 2.0}});
  AddTank("a");
  auto tanks = client.OpenTable("tank");
  tanks.SetIndex("USER ID");
  EXPECT_EQ(Names(tanks, "USER ID"), (List{"", "", "a", "b"}));
  tanks.MoveLast();
  List backward;
  for (; !tanks.AtStart(); tanks.MovePrevious()) backward.push_back(tanks.TextOrEmpty("USER ID"));
  EXPECT_EQ(backward, (List{"b", "a", "", ""}));
}

TEST_F(RecordSetTest, AWalkOverACompoundIndexFollowsAllItsFields) {
  AddComponent(1, 2, 1, "d");
  AddComponent(1, 1, 2, "b");
  AddComponent(2, 1, 1, "e");
  AddComponent(1, 1, 1, "a");
  AddComponent(1, 1, 3, "c");
  auto components = client.OpenTable("components");
  components.SetIndex("idmix");
  EXPECT_EQ(Names(components, "NAME"), (List{"a", "b", "c", "d", "e"}));
}

TEST_F(RecordSetTest, SeekFindsTheFirstOfEqualKeysWithoutRegardToCase) {
  AddTank("other", 1);
  AddTank("Twin", 2);
  AddTank("TWIN", 3);
  auto tanks = client.OpenTable("tank");
  tanks.SetIndex("USER ID");
  tanks.Seek({"tWIN"});
  EXPECT_FALSE(tanks.NoMatch());
  EXPECT_EQ(tanks.Double("DIAMETER"), 2);
  tanks.MoveNext();
  EXPECT_EQ(tanks.Double("DIAMETER"), 3);
}

TEST_F(RecordSetTest, SeekWithoutAMatchLeavesNoCurrentRecord) {
  AddTank("a");
  auto tanks = client.OpenTable("tank");
  tanks.SetIndex("USER ID");
  tanks.Seek({"b"});
  EXPECT_TRUE(tanks.NoMatch());
  EXPECT_RUN_TIME_ERROR(tanks.Text("USER ID"), ErrorNumber::kNoCurrentRecord);
  EXPECT_RUN_TIME_ERROR(tanks.Edit(), ErrorNumber::kNoCurrentRecord);
  EXPECT_RUN_TIME_ERROR(tanks.MoveNext(), ErrorNumber::kNoCurrentRecord);
  tanks.Seek({"a"});
  EXPECT_FALSE(tanks.NoMatch());
}

TEST_F(RecordSetTest, SeekWithFewerValuesMatchesThePrefixOfTheIndex) {
  AddComponent(1, 2, 2, "second");
  AddComponent(1, 2, 1, "first");
  auto components = client.OpenTable("components");
  components.SetIndex("IDMIX");
  components.Seek({1, 2});
  EXPECT_EQ(components.Text("NAME"), "first");
  components.Seek({1});
  EXPECT_EQ(components.Text("NAME"), "first");
  components.Seek({1, 3});
  EXPECT_TRUE(components.NoMatch());
}

TEST_F(RecordSetTest, SeekOnFiveValuesFindsTheEmissionRow) {
  for (const bool primary : {true, false}) {
    AddRow(client, "emission",
           {{"ID", 1},
            {"MIX ID", 1},
            {"NAME", "Benzene"},
            {"MONTH", "Annual"},
            {"PRIMARY", primary},
            {"S_LOSS", primary ? 1.0 : 2.0}});
  }
  auto emission = client.OpenTable("emission");
  emission.SetIndex("compid");
  emission.Seek({1, 1, "BENZENE", "annual", false});
  EXPECT_EQ(emission.Double("S_LOSS"), 2);
}

TEST_F(RecordSetTest, SeekFindsANullKey) {
  AddRow(client, "tank", {{"DIAMETER", 7.0}});
  auto tanks = client.OpenTable("tank");
  tanks.SetIndex("USER ID");
  tanks.Seek({Value()});
  EXPECT_FALSE(tanks.NoMatch());
  EXPECT_EQ(tanks.Double("DIAMETER"), 7);
}

TEST_F(RecordSetTest, ATableCanBeOpenedOnTheRowOfAKey) {
  AddComponent(1, 1, 1, "a");
  AddComponent(1, 2, 1, "b");
  auto found = client.OpenAt("components", "IDMIX", {1, 2});
  EXPECT_FALSE(found.NoMatch());
  EXPECT_EQ(found.Text("NAME"), "b");
  found.MovePrevious();
  EXPECT_EQ(found.Text("NAME"), "a") << "it is the whole table, in the order of the index";
  auto missed = client.OpenAt("components", "IDMIX", {2});
  EXPECT_TRUE(missed.NoMatch());
  EXPECT_RUN_TIME_ERROR(missed.Text("NAME"), ErrorNumber::kNoCurrentRecord);
  EXPECT_RUN_TIME_ERROR(client.OpenAt("components", "none", {1}), ErrorNumber::kItemNotFound);
  EXPECT_RUN_TIME_ERROR(client.OpenAt("none", "IDMIX", {1}), ErrorNumber::kObjectNotFound);
}

TEST_F(RecordSetTest, SeekNeedsATableWithACurrentIndex) {
  AddTank("a");
  auto tanks = client.OpenTable("tank");
  EXPECT_RUN_TIME_ERROR(tanks.Seek({1}), ErrorNumber::kOperationNotSupported);
  auto query = client.OpenQuery("SELECT * FROM tank");
  EXPECT_RUN_TIME_ERROR(query.Seek({1}), ErrorNumber::kOperationNotSupported);
  EXPECT_RUN_TIME_ERROR(query.SetIndex("ID"), ErrorNumber::kOperationNotSupported);
  EXPECT_RUN_TIME_ERROR(tanks.SetIndex("no such index"), ErrorNumber::kItemNotFound);
}

TEST_F(RecordSetTest, RecordSetsOnOneTableSeeEachOthersEditsAtOnce) {
  AddTank("a", 1);
  for (const bool in_transaction : {false, true}) {
    std::unique_ptr<Transaction> transaction;
    if (in_transaction) transaction = std::make_unique<Transaction>(client);
    auto one = client.OpenTable("tank");
    auto other = client.OpenTable("tank");
    auto query = client.OpenQuery("SELECT tank.* FROM tank");
    one.SetIndex("USER ID");
    one.Seek({"a"});
    other.SetIndex("ID");
    other.Seek({1});
    EXPECT_EQ(other.Double("DIAMETER"), query.Double("DIAMETER"));
    one.Edit();
    one.Set("DIAMETER", in_transaction ? 3.0 : 2.0);
    one.Update();
    EXPECT_EQ(other.Double("DIAMETER"), in_transaction ? 3.0 : 2.0);
    EXPECT_EQ(query.Double("DIAMETER"), in_transaction ? 3.0 : 2.0);
  }
}

TEST_F(RecordSetTest, ASeekAfterAnEditOfTheKeyFindsTheNewKeyInATransaction) {
  AddTank("old");
  const Transaction transaction(client);
  auto tanks = client.OpenTable("tank");
  tanks.SetIndex("USER ID");
  tanks.Seek({"new"});
  EXPECT_TRUE(tanks.NoMatch());
  tanks.Seek({"old"});
  tanks.Edit();
  tanks.Set("USER ID", "new");
  tanks.Update();
  tanks.Seek({"old"});
  EXPECT_TRUE(tanks.NoMatch());
  tanks.Seek({"new"});
  EXPECT_FALSE(tanks.NoMatch());
  tanks.Delete();
  tanks.Seek({"new"});
  EXPECT_TRUE(tanks.NoMatch());
  AddTank("new");
  tanks.Seek({"new"});
  EXPECT_FALSE(tanks.NoMatch());
}

TEST_F(RecordSetTest, ADeleteByStatementIsSeenAtOnce) {
  AddComponent(1, 1, 1, "a");
  AddComponent(1, 1, 2, "b");
  const Transaction transaction(client);
  auto components = client.OpenTable("components");
  components.SetIndex("IDMIX");
  components.Seek({1, 1, 1});
  EXPECT_EQ(components.Text("NAME"), "a");
  EXPECT_EQ(client.OpenMatching("components", "IDMIX", {1, 1}).RecordCount(), 2);
  EXPECT_EQ(client.Execute("DELETE * FROM components WHERE ID = 1 AND [COMP ID] = 1"), 1);
  EXPECT_RUN_TIME_ERROR(components.Text("NAME"), ErrorNumber::kRecordDeleted);
  components.Seek({1, 1, 1});
  EXPECT_TRUE(components.NoMatch());
  EXPECT_EQ(client.OpenMatching("components", "IDMIX", {1, 1}).RecordCount(), 1);
}

TEST_F(RecordSetTest, AnotherProgramsEditIsSeenAtTheNextMove) {
  AddTank("a", 1);
  auto tanks = client.OpenTable("tank");
  EXPECT_EQ(tanks.Double("DIAMETER"), 1);
  const auto other = Database::Open(client.Path());
  test::ChangeRow(*other, "tank", "ID", {1}, {{"DIAMETER", 5.0}});
  tanks.MoveFirst();
  EXPECT_EQ(tanks.Double("DIAMETER"), 5);
}

TEST_F(RecordSetTest, MatchingRowsComeInTheOrderOfTheFile) {
  AddComponent(1, 1, 3, "c");
  AddComponent(1, 1, 1, "a");
  AddComponent(1, 2, 1, "other");
  AddComponent(1, 1, 2, "b");
  auto rows = client.OpenMatching("components", "IDMIX", {1, 1});
  EXPECT_EQ(rows.RecordCount(), 3);
  EXPECT_EQ(Names(rows, "NAME"), (List{"c", "a", "b"}));
}

TEST_F(RecordSetTest, AddNewStartsWithFalseFlagsAndNullElse) {
  auto tanks = client.OpenTable("tank");
  tanks.AddNew();
  EXPECT_FALSE(tanks.Bool("HEATED"));
  EXPECT_TRUE(tanks.IsNull("DIAMETER"));
  EXPECT_TRUE(tanks.IsNull("USER ID"));
  tanks.Update();
  tanks.Move(tanks.LastModified());
  EXPECT_EQ(tanks.Long("ID"), 1);
  EXPECT_FALSE(tanks.Bool("HEATED"));
  EXPECT_EQ(tanks.DoubleOrZero("DIAMETER"), 0);
  EXPECT_EQ(tanks.TextOrEmpty("USER ID"), "");
  EXPECT_EQ(tanks.LongOrZero("COL_NO"), 0);
  EXPECT_RUN_TIME_ERROR(tanks.Double("DIAMETER"), ErrorNumber::kInvalidUseOfNull);
  EXPECT_RUN_TIME_ERROR(tanks.Text("USER ID"), ErrorNumber::kInvalidUseOfNull);
}

TEST_F(RecordSetTest, ANewTanksNumberIsReadBackFromTheRecordLastModified) {
  AddTank("a");
  AddTank("b");
  auto tanks = client.OpenTable("tank");
  tanks.MoveFirst();
  tanks.AddNew();
  tanks.Set("USER ID", "c");
  tanks.Update();
  EXPECT_EQ(tanks.Text("USER ID"), "a") << "adding does not move";
  tanks.Move(tanks.LastModified());
  EXPECT_EQ(tanks.Long("ID"), 3);
}

TEST_F(RecordSetTest, ACounterIsNeverGivenTwice) {
  AddTank("a");
  AddTank("b");
  auto tanks = client.OpenTable("tank");
  tanks.MoveLast();
  tanks.Delete();
  AddTank("c");
  tanks.MoveLast();
  EXPECT_EQ(tanks.Long("ID"), 3);
}

TEST_F(RecordSetTest, ADeletedRecordGivesNoValuesButLeadsToTheNextOne) {
  for (const char* name : {"a", "b", "c"}) AddTank(name);
  auto tanks = client.OpenTable("tank");
  tanks.MoveNext();
  tanks.Delete();
  EXPECT_RUN_TIME_ERROR(tanks.Text("USER ID"), ErrorNumber::kRecordDeleted);
  EXPECT_RUN_TIME_ERROR(tanks.Delete(), ErrorNumber::kRecordDeleted);
  tanks.MoveNext();
  EXPECT_EQ(tanks.Text("USER ID"), "c");
}

TEST_F(RecordSetTest, TrueIsStoredAsMinusOne) {
  AddRow(client, "tank", {{"USER ID", "a"}, {"HEATED", true}, {"UNDER", 5}});
  auto tanks = client.OpenTable("tank");
  EXPECT_EQ(tanks.Get("HEATED"), Value(-1));
  EXPECT_EQ(tanks.Get("UNDER"), Value(-1)) << "any number but zero is true";
  EXPECT_EQ(tanks.Get("SELF_SUP"), Value(0));
}

TEST_F(RecordSetTest, ATextWiderThanItsFieldIsRefused) {
  auto mixtures = client.OpenTable("mixtures");
  mixtures.AddNew();
  EXPECT_NO_THROW(mixtures.Set("MIX NAME", std::string(50, 'x')));
  EXPECT_RUN_TIME_ERROR(mixtures.Set("MIX NAME", std::string(51, 'x')), ErrorNumber::kTextTooLong);
  std::string umlauts;
  for (int i = 0; i < 50; ++i) umlauts += "\xC3\xBC";
  EXPECT_NO_THROW(mixtures.Set("MIX NAME", umlauts)) << "the width counts characters";
}

TEST_F(RecordSetTest, NumbersThatAFieldCannotHoldAreRefused) {
  auto mixtures = client.OpenTable("mixtures");
  mixtures.AddNew();
  EXPECT_RUN_TIME_ERROR(mixtures.Set("VP", std::numeric_limits<double>::infinity()), ErrorNumber::kOverflow);
  EXPECT_RUN_TIME_ERROR(mixtures.Set("VP", std::numeric_limits<double>::quiet_NaN()), ErrorNumber::kOverflow);
  EXPECT_RUN_TIME_ERROR(mixtures.Set("ID", 3e9), ErrorNumber::kOverflow);
  EXPECT_RUN_TIME_ERROR(mixtures.Set("VP", "much"), ErrorNumber::kDataConversion);
  EXPECT_RUN_TIME_ERROR(mixtures.Set("VP", "1,5"), ErrorNumber::kDataConversion);
  EXPECT_NO_THROW(mixtures.Set("VP", "1.5"));
  EXPECT_EQ(mixtures.Double("VP"), 1.5);
  mixtures.Set("ID", 2.5);
  EXPECT_EQ(mixtures.Long("ID"), 2) << "halves go to the even neighbour";
  mixtures.Set("MIX NAME", 12.5);
  EXPECT_EQ(mixtures.Text("MIX NAME"), "12.5");
  EXPECT_RUN_TIME_ERROR(mixtures.Long("MIX NAME "), ErrorNumber::kItemNotFound);
}

TEST_F(RecordSetTest, UpdateNeedsAnEdit) {
  AddTank("a");
  auto tanks = client.OpenTable("tank");
  EXPECT_RUN_TIME_ERROR(tanks.Update(), ErrorNumber::kNoEditPending);
  EXPECT_RUN_TIME_ERROR(tanks.Set("DIAMETER", 1.0), ErrorNumber::kNoEditPending);
  tanks.Edit();
  tanks.Set("DIAMETER", 99.0);
  tanks.CancelUpdate();
  EXPECT_EQ(tanks.Double("DIAMETER"), 10);
  tanks.Edit();
  tanks.Set("DIAMETER", 99.0);
  tanks.MoveFirst();
  EXPECT_EQ(tanks.Double("DIAMETER"), 10) << "moving away drops what was not updated";
}

TEST_F(RecordSetTest, AUniqueIndexRefusesAKeyTwice) {
  AddComponent(1, 1, 1, "a");
  EXPECT_RUN_TIME_ERROR(AddComponent(1, 1, 1, "b"), ErrorNumber::kDuplicateKey);
  AddTank("a");
  AddTank("a");
  EXPECT_EQ(client.OpenTable("tank").RecordCount(), 2) << "USER ID may stand twice";
}

TEST_F(RecordSetTest, AQueryOfWholeRowsCanBeEditedAndKeepsItsKeys) {
  for (const char* name : {"c", "a", "b"}) AddTank(name);
  auto tanks = client.OpenQuery("SELECT tank.* FROM tank WHERE tank.DIAMETER = 10 ORDER BY tank.[USER ID]");
  EXPECT_EQ(tanks.RecordCount(), 3);
  EXPECT_EQ(tanks.AbsolutePosition(), 0);
  tanks.Edit();
  tanks.Set("DIAMETER", 11.0);
  tanks.Update();
  AddTank("d");
  EXPECT_EQ(Names(tanks, "USER ID"), (List{"a", "b", "c"})) << "the keys are those of the opening";
  tanks.Requery();
  EXPECT_EQ(Names(tanks, "USER ID"), (List{"b", "c", "d"}));
  tanks.MoveLast();
  EXPECT_EQ(tanks.AbsolutePosition(), 2);
  const Bookmark last = tanks.CurrentBookmark();
  tanks.MoveFirst();
  tanks.Move(last);
  EXPECT_EQ(tanks.Text("USER ID"), "d");
}

TEST_F(RecordSetTest, ASnapshotIsReadOnlyAndKnowsItsColumns) {
  AddTank("a", 2);
  AddTank("b", 3);
  auto sums = client.OpenQuery("SELECT Sum(tank.DIAMETER) AS Total, Count(*) AS Tanks FROM tank");
  EXPECT_EQ(sums.FieldCount(), 2);
  EXPECT_EQ(sums.FieldName(0), "Total");
  EXPECT_EQ(sums.Double("total"), 5);
  EXPECT_EQ(sums.Get(1), Value(2));
  EXPECT_RUN_TIME_ERROR(sums.AddNew(), ErrorNumber::kOperationNotSupported);
  EXPECT_RUN_TIME_ERROR(sums.Edit(), ErrorNumber::kOperationNotSupported);
  EXPECT_RUN_TIME_ERROR(sums.Delete(), ErrorNumber::kOperationNotSupported);
  EXPECT_RUN_TIME_ERROR(sums.Get("nothing"), ErrorNumber::kItemNotFound);
  EXPECT_RUN_TIME_ERROR(sums.Get(2), ErrorNumber::kItemNotFound);
}

TEST_F(RecordSetTest, GetRowsGivesRecordsFromTheCurrentOneAndMovesBehindThem) {
  for (const char* name : {"a", "b", "c"}) AddTank(name);
  auto names = client.OpenQuery("SELECT [USER ID] FROM tank");
  const auto rows = names.GetRows(2);
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_EQ(rows[1][0], Value("b"));
  EXPECT_EQ(names.Text("USER ID"), "c");
  EXPECT_EQ(names.GetRows(10).size(), 1U);
  EXPECT_TRUE(names.AtEnd());
}

TEST_F(RecordSetTest, AWalkGoesOnOverRowsThatAnotherSetAddsAndDeletes) {
  for (const char* name : {"a", "b", "c"}) AddTank(name);
  auto walker = client.OpenTable("tank");
  auto editor = client.OpenTable("tank");
  List seen;
  for (; !walker.AtEnd(); walker.MoveNext()) {
    seen.push_back(walker.Text("USER ID"));
    if (seen.back() == "a") {
      editor.MoveFirst();
      editor.MoveNext();
      editor.Delete();
      AddTank("d");
    }
  }
  EXPECT_EQ(seen, (List{"a", "c", "d"}));
}

}  // namespace
}  // namespace orvex::store
