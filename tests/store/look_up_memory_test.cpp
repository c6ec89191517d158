#include <gtest/gtest.h>

#include <optional>
#include <random>
#include <string>
#include <vector>

#include "store/database.h"
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
      case 5:
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
    const int kind = below(8);
    const int id = below(2);
    const int mix = below(2);
    const int comp = below(4);
    ASSERT_EQ(remembering.Step(kind, id, mix, comp), forgetting.Step(kind, id, mix, comp)) << "step " << i;
  }
}

}  // namespace
}  // namespace orvex::store
