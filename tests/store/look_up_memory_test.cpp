#include <gtest/gtest.h>

#include <optional>
#include <random>
#include <string>
#include <vector>

#include "store/database.h"
#include "store/run_time_error.h"
#include "support/expect_error.h"
#include "support/test_databases.h"

// What is remembered of look-ups while a transaction is open must never show.
namespace orvex::store {
namespace {

using test::AddRow;
using List = std::vector<std::string>;

class LookUpMemory : public testing::Test {
 protected:
  void AddComponent(int id, int mix, int comp, const char* name = "Benzene") {
    AddRow(client, "components", {{"ID", id}, {"MIX ID", mix}, {"COMP ID", comp}, {"NAME", name}});
  }
  static List Names(RecordSet& set) {
    List names;
    for (; !set.AtEnd(); set.MoveNext()) names.push_back(set.TextOrEmpty("NAME"));
    return names;
  }
  List NamesOf(int id, int mix) {
    auto set = client.OpenMatching("components", "IDMIX", {id, mix});
    return Names(set);
  }
  test::TestSession test;
  Database& client = test.client();
};

TEST_F(LookUpMemory, ARowIsFoundAfterItWasMissedAndAdded) {
  const Transaction transaction(client);
  auto components = client.OpenTable("components");
  components.SetIndex("IDMIX");
  for (const int depth : {3, 2, 1}) {
    const std::vector<Value> whole = {depth, 1, 1};
    const auto key = std::span(whole).first(static_cast<std::size_t>(depth));
    components.Seek(key);
    EXPECT_TRUE(components.NoMatch()) << depth;
    AddComponent(depth, 1, 1);
    components.Seek(key);
    EXPECT_FALSE(components.NoMatch()) << depth;
    EXPECT_EQ(components.Long("ID"), depth);
  }
}

TEST_F(LookUpMemory, AMissedTextIsFoundAfterItWasAddedInAnotherCase) {
  const Transaction transaction(client);
  auto tanks = client.OpenTable("tank");
  tanks.SetIndex("USER ID");
  tanks.Seek({"north 1"});
  EXPECT_TRUE(tanks.NoMatch());
  AddRow(client, "tank", {{"USER ID", "NORTH 1"}});
  tanks.Seek({"north 1"});
  EXPECT_FALSE(tanks.NoMatch());
  EXPECT_EQ(tanks.Text("USER ID"), "NORTH 1");
}

TEST_F(LookUpMemory, AMissedKeyIsStillMissedAfterAnotherRowWasAdded) {
  const Transaction transaction(client);
  auto components = client.OpenTable("components");
  components.SetIndex("IDMIX");
  components.Seek({1, 1, 1});
  AddComponent(1, 1, 2);
  components.Seek({1, 1, 1});
  EXPECT_TRUE(components.NoMatch());
  AddComponent(1, 1, 1);
  components.Seek({1, 1, 1});
  EXPECT_FALSE(components.NoMatch());
}

TEST_F(LookUpMemory, ASetOpenedAfterARowWasAddedHoldsItAndOneOpenedBeforeDoesNot) {
  const Transaction transaction(client);
  AddComponent(1, 1, 1, "Benzene");
  auto before = client.OpenMatching("components", "IDMIX", {1, 1});
  AddComponent(1, 1, 2, "Toluene");
  AddComponent(1, 2, 1, "Xylene");
  EXPECT_EQ(NamesOf(1, 1), (List{"Benzene", "Toluene"}));
  EXPECT_EQ(NamesOf(1, 2), (List{"Xylene"}));
  EXPECT_EQ(Names(before), (List{"Benzene"}));
  before.Requery();
  EXPECT_EQ(Names(before), (List{"Benzene", "Toluene"}));
}

TEST_F(LookUpMemory, ATankIsFoundByItsNumberUntilItIsDeleted) {
  const Transaction transaction(client);
  AddRow(client, "tank", {{"USER ID", "a"}});
  AddRow(client, "tank", {{"USER ID", "b"}});
  auto tanks = client.OpenTable("tank");
  tanks.SetIndex("ID");
  tanks.Seek({2});
  EXPECT_EQ(tanks.Text("USER ID"), "b");
  EXPECT_EQ(client.OpenMatching("tank", "ID", {2}).RecordCount(), 1);
  tanks.Delete();
  tanks.Seek({2});
  EXPECT_TRUE(tanks.NoMatch());
  EXPECT_EQ(client.OpenMatching("tank", "ID", {2}).RecordCount(), 0);
  tanks.Seek({1});
  EXPECT_EQ(tanks.Text("USER ID"), "a");
}

TEST_F(LookUpMemory, RowsDeletedByTheirKeyAreGoneForEverySet) {
  const Transaction transaction(client);
  for (const int mix : {1, 2})
    for (const int comp : {1, 2}) AddComponent(1, mix, comp);
  AddComponent(2, 1, 1);
  auto components = client.OpenTable("components");
  components.SetIndex("IDMIX");
  components.Seek({1, 2});
  EXPECT_EQ(client.DeleteMatching("components", "IDMIX", {1, 2}), 2);
  EXPECT_EQ(client.DeleteMatching("components", "IDMIX", {1, 2}), 0);
  components.Seek({1, 2});
  EXPECT_TRUE(components.NoMatch());
  EXPECT_TRUE(NamesOf(1, 2).empty());
  EXPECT_EQ(NamesOf(1, 1).size(), 2U);
  EXPECT_EQ(client.DeleteMatching("components", "IDMIX", {1}), 2);
  EXPECT_EQ(components.RecordCount(), 1);
}

TEST_F(LookUpMemory, NothingOfUndoneWorkIsRemembered) {
  auto components = client.OpenTable("components");
  components.SetIndex("IDMIX");
  {
    const Transaction transaction(client);
    components.Seek({1, 1, 1});
    EXPECT_TRUE(NamesOf(1, 1).empty());
    AddComponent(1, 1, 1);
    components.Seek({1, 1, 1});
    EXPECT_FALSE(components.NoMatch());
    EXPECT_EQ(NamesOf(1, 1), (List{"Benzene"}));
  }
  for (const bool in_transaction : {false, true}) {
    std::optional<Transaction> transaction;
    if (in_transaction) transaction.emplace(client);
    components.Seek({1, 1, 1});
    EXPECT_TRUE(components.NoMatch());
    EXPECT_TRUE(NamesOf(1, 1).empty());
  }
}

TEST_F(LookUpMemory, NothingIsRememberedFromOneTransactionToTheNext) {
  const auto other = Database::Open(client.Path());
  auto components = client.OpenTable("components");
  components.SetIndex("IDMIX");
  {
    Transaction transaction(client);
    components.Seek({1, 1, 1});
    EXPECT_TRUE(NamesOf(1, 1).empty());
    transaction.Commit();
  }
  AddRow(*other, "components", {{"ID", 1}, {"MIX ID", 1}, {"COMP ID", 1}, {"NAME", "Toluene"}});
  const Transaction transaction(client);
  components.Seek({1, 1, 1});
  EXPECT_FALSE(components.NoMatch());
  EXPECT_EQ(NamesOf(1, 1), (List{"Toluene"}));
}

TEST_F(LookUpMemory, ARowIsFoundUnderTheKeyThatAnotherSetGaveIt) {
  const Transaction transaction(client);
  AddComponent(1, 1, 1);
  auto components = client.OpenTable("components");
  components.SetIndex("IDMIX");
  components.Seek({1, 1, 1});
  EXPECT_TRUE(NamesOf(1, 2).empty());
  auto other = client.OpenTable("components");
  other.Edit();
  other.Set("MIX ID", 2);
  other.Update();
  EXPECT_EQ(components.Long("MIX ID"), 2) << "the set stands on the row, whatever its key";
  components.Seek({1, 1, 1});
  EXPECT_TRUE(components.NoMatch());
  components.Seek({1, 2, 1});
  EXPECT_FALSE(components.NoMatch());
  EXPECT_TRUE(NamesOf(1, 1).empty());
  EXPECT_EQ(NamesOf(1, 2), (List{"Benzene"}));
}

TEST_F(LookUpMemory, RowsThatAQueryDeletedAreNotFound) {
  const Transaction transaction(client);
  AddComponent(1, 1, 1);
  auto components = client.OpenTable("components");
  components.SetIndex("IDMIX");
  components.Seek({1, 1, 1});
  EXPECT_EQ(NamesOf(1, 1).size(), 1U);
  EXPECT_EQ(client.Execute("DELETE * FROM components WHERE ID = 1"), 1);
  components.Seek({1, 1, 1});
  EXPECT_TRUE(components.NoMatch());
  EXPECT_TRUE(NamesOf(1, 1).empty());
}

TEST_F(LookUpMemory, AMissedKeyIsStillMissedAfterItsRowWasRefused) {
  client.CreateTable("t", {{"a", FieldType::kLong, 0}, {"b", FieldType::kText, 5}},
                     {{"a", {"a"}, false}, {"b", {"b"}, true}});
  AddRow(client, "t", {{"a", 1}, {"b", "x"}});
  const Transaction transaction(client);
  auto rows = client.OpenTable("t");
  rows.SetIndex("a");
  rows.Seek({2});
  EXPECT_EQ(client.OpenMatching("t", "a", {2}).RecordCount(), 0);
  EXPECT_RUN_TIME_ERROR(AddRow(client, "t", {{"a", 2}, {"b", "X"}}), ErrorNumber::kDuplicateKey);
  rows.Seek({2});
  EXPECT_TRUE(rows.NoMatch());
  EXPECT_EQ(client.OpenMatching("t", "a", {2}).RecordCount(), 0);
}

TEST_F(LookUpMemory, RowsCannotBeDeletedByKeyFromAFileThatIsReadOnly) {
  AddComponent(1, 1, 1);
  const auto reader = Database::Open(client.Path(), OpenMode::kReadOnly);
  EXPECT_RUN_TIME_ERROR(reader->DeleteMatching("components", "IDMIX", {1}), ErrorNumber::kReadOnly);
  EXPECT_RUN_TIME_ERROR(client.DeleteMatching("components", "no index", {1}), ErrorNumber::kItemNotFound);
  EXPECT_EQ(NamesOf(1, 1).size(), 1U);
}

/// A database on which steps are made, and what they showed.
class Bench {
 public:
  explicit Bench(bool in_transaction) {
    if (in_transaction) transaction_.emplace(client_);
    walker_.SetIndex("IDMIX");
  }

  std::string Step(int kind, int id, int mix, int comp) {
    const auto key = std::to_string(id) + "," + std::to_string(mix) + "," + std::to_string(comp) + ": ";
    switch (kind) {
      case 0:
        walker_.Seek({id, mix, comp});
        return key + "seek " + Current();
      case 1:
        walker_.Seek({id, mix});
        return key + "seek two " + Current();
      case 2:
        walker_.Seek({id, mix, comp});
        if (!walker_.NoMatch()) return key + "is there";
        AddRow(client_, "components", {{"ID", id}, {"MIX ID", mix}, {"COMP ID", comp}, {"NAME", key}});
        return key + "added";
      case 3:
        walker_.Seek({id, mix, comp});
        if (walker_.NoMatch()) return key + "nothing to delete";
        walker_.Delete();
        return key + "deleted";
      case 4: {
        walker_.Seek({id, mix, comp});
        if (walker_.NoMatch()) return key + "nothing to change";
        walker_.Edit();
        walker_.Set("NAME", walker_.Text("NAME") + "!");
        walker_.Update();
        return key + "changed";
      }
      case 5: {
        walker_.Seek({id, mix, comp});
        if (walker_.NoMatch()) return key + "nothing to move";
        auto other = client_.OpenTable("components");
        other.Move(walker_.CurrentBookmark());
        other.Edit();
        other.Set("MIX ID", 1 - mix);
        try {
          other.Update();
        } catch (const RunTimeError& error) {
          if (error.Number() != ErrorNumber::kDuplicateKey) throw;
          return key + "not moved";
        }
        return key + "moved";
      }
      case 6:
        return key +
               std::to_string(client_.Execute("DELETE * FROM components WHERE ID = " + std::to_string(id) +
                                              " AND [COMP ID] = " + std::to_string(comp))) +
               " deleted by a query";
      case 7:
        return key + std::to_string(client_.DeleteMatching("components", "IDMIX", {id, mix})) + " deleted";
      default: {
        std::string list;
        auto matching = client_.OpenMatching("components", "IDMIX", {id, mix});
        for (; !matching.AtEnd(); matching.MoveNext()) list += matching.Text("NAME") + ";";
        return key + list;
      }
    }
  }

 private:
  std::string Current() { return walker_.NoMatch() ? "nothing" : walker_.Text("NAME"); }

  test::TestSession test_;
  Database& client_ = test_.client();
  std::optional<Transaction> transaction_;
  RecordSet walker_ = client_.OpenTable("components");
};

TEST(LookUpMemoryProperty, EveryStepShowsTheSameInATransactionAsWithoutOne) {
  std::mt19937 random(20240607);
  const auto below = [&](unsigned bound) { return static_cast<int>(random() % bound); };
  Bench remembering(true);
  Bench forgetting(false);
  for (int i = 0; i < 2000; ++i) {
    const int kind = below(11);
    const int id = below(2);
    const int mix = below(2);
    const int comp = below(4);
    ASSERT_EQ(remembering.Step(kind, id, mix, comp), forgetting.Step(kind, id, mix, comp)) << "step " << i;
  }
}

}  // namespace
}  // namespace orvex::store
