#include "entry/frmrecdelete.h"

#include <cstdint>
#include <string>
#include <vector>

#include "entry/tank_entry_fixture.h"
#include "shell/editing.h"
#include "shell/tank_types.h"

namespace orvex::entry {
namespace {

using Names = std::vector<std::string>;

constexpr const char* kQuestion = "Are you sure you want to delete these tanks?";
constexpr std::string_view kTables[] = {"emission", "tank", "fittings", "mixtures", "components"};

class FrmrecdeleteTest : public test::TankEntryTest {
 protected:
  store::Database& Client() { return *session_.ClientDb; }

  /// Adds tanks, each with two rows in every other table; gives the last one's number.
  std::int32_t AddTanks(const Names& user_ids) {
    std::int32_t ID = 0;
    for (const auto& user_id : user_ids) {
      test::AddRow(Client(), "tank", {{"USER ID", user_id}});
      auto tanks = Client().OpenTable("tank");
      tanks.MoveLast();
      ID = tanks.Long("ID");
      for (const std::int32_t number : {1, 2}) {
        test::AddRow(Client(), "mixtures", {{"ID", ID}, {"MIX ID", number}});
        test::AddRow(Client(), "fittings", {{"ID", ID}, {"FIT ID", number}});
        test::AddRow(Client(), "components", {{"ID", ID}, {"MIX ID", 1}, {"COMP ID", number}});
        test::AddRow(Client(), "emission", {{"ID", ID}, {"MIX ID", number}, {"NAME", "Benzene"}, {"MONTH", "Annual"}});
      }
    }
    return ID;
  }
  /// A window in which these rows were selected for deletion.
  Frmrecdelete Open(const std::vector<std::size_t>& rows) {
    auto form = OpenFrmrecdelete(session_);
    form.lstTanks.selected = rows;
    ClickSelect(session_, form);
    return form;
  }
  void Answer(shell::Answer answer) {
    host_.ExpectMessage(kQuestion, "ORVEX", shell::Buttons::kYesNo, shell::Icon::kNone, answer);
  }
  /// How many rows of each table there are, in the order of `kTables`.
  std::vector<std::int64_t> Counts() {
    std::vector<std::int64_t> counts;
    for (const auto table : kTables) counts.push_back(Client().OpenTable(table).RecordCount());
    return counts;
  }
};

TEST_F(FrmrecdeleteTest, ListsTheTanksInTheOrderOfTheirIndex) {
  AddTanks({"zeta", "Alpha", "alpha", "10", "9"});
  test::AddRow(Client(), "tank", {{"CITY", "No name yet"}});
  const auto form = OpenFrmrecdelete(session_);
  EXPECT_EQ(form.lstTanks.items, (Names{"10", "9", "Alpha", "alpha", "zeta"}));
  EXPECT_TRUE(form.lstDelTanks.items.empty());
  EXPECT_FALSE(form.cmdDelete.enabled);
}

TEST_F(FrmrecdeleteTest, ShowsThePickedTank) {
  test::AddRow(Client(), "tank",
               {{"USER ID", "North 1"},
                {"CITY", "Enid"},
                {"STATE", "Oklahoma"},
                {"COMPANY", "Acme & Sons"},
                {"TANK_TYPE", shell::kHorizontal}});
  AddTanks({"South"});
  auto form = OpenFrmrecdelete(session_);
  const auto shown = [&]() -> Names {
    const auto& details = form.details;
    return {details.txtUserID.text,  details.txtCity.text,     details.txtState.text,
            details.txtCompany.text, details.txtTankType.text, details.txtID.text};
  };
  PickTank(session_, form, 0);
  EXPECT_EQ(shown(), (Names{"North 1", "Enid", "Oklahoma", "Acme & Sons", "Horizontal Tank", "1"}));
  PickTank(session_, form, 1);
  EXPECT_EQ(shown(), (Names{"South", "", "", "", "", "2"})) << "null shows as nothing";
  Client().DeleteMatching("tank", "ID", {1});
  PickTank(session_, form, 0);
  EXPECT_EQ(shown(), Names(6)) << "gone meanwhile";
}

TEST_F(FrmrecdeleteTest, SelectAddsWhatIsNotThereYetAndLeavesTheFirstList) {
  AddTanks({"A", "B", "C"});
  auto form = Open({2});
  form.lstTanks.selected = {0, 2};
  ClickSelect(session_, form);
  EXPECT_EQ(form.lstDelTanks.items, (Names{"C", "A"}));
  EXPECT_EQ(form.lstTanks.items, (Names{"A", "B", "C"}));
}

TEST_F(FrmrecdeleteTest, SelectAllListsEveryTankThereIsNow) {
  AddTanks({"B", "A"});
  auto form = Open({1});
  AddTanks({"C"});
  test::AddRow(Client(), "tank", {{"CITY", "No name yet"}});
  ClickSelectAll(session_, form);
  EXPECT_EQ(form.lstDelTanks.items, (Names{"A", "B", "C"}));
  EXPECT_EQ(host_.status, (Names{"Processing, please wait...", "Ready"}));
  EXPECT_EQ(host_.pointers, (std::vector{shell::Pointer::kBusy, shell::Pointer::kDefault}));
}

TEST_F(FrmrecdeleteTest, DeleteIsEnabledExactlyWhileThereIsATankToDelete) {
  AddTanks({"A", "B"});
  auto form = Open({});
  EXPECT_FALSE(form.cmdDelete.enabled) << "Select without a selection";
  form.lstTanks.selected = {1};
  ClickSelect(session_, form);
  EXPECT_TRUE(form.cmdDelete.enabled);
  form.lstDelTanks.selected = {0};
  ClickRemove(session_, form);
  EXPECT_FALSE(form.cmdDelete.enabled) << "the last one removed";
  ClickSelectAll(session_, form);
  EXPECT_TRUE(form.cmdDelete.enabled);
  form.lstDelTanks.selected = {0};
  ClickRemove(session_, form);
  EXPECT_EQ(form.lstDelTanks.items, Names{"B"});
  EXPECT_TRUE(form.cmdDelete.enabled) << "one of two removed";
  ClickRemoveAll(session_, form);
  EXPECT_TRUE(form.lstDelTanks.items.empty());
  EXPECT_FALSE(form.cmdDelete.enabled);
}

TEST_F(FrmrecdeleteTest, SelectAllWithoutTanksEnablesNothing) {
  auto form = OpenFrmrecdelete(session_);
  ClickSelectAll(session_, form);
  EXPECT_FALSE(form.cmdDelete.enabled);
}

TEST_F(FrmrecdeleteTest, NoKeepsEverything) {
  AddTanks({"A", "B"});
  auto form = Open({0});
  Answer(shell::Answer::kNo);
  ClickDelete(session_, form);
  EXPECT_EQ(Counts(), (std::vector<std::int64_t>{4, 2, 4, 4, 4}));
  EXPECT_EQ(form.lstDelTanks.items, Names{"A"});
  EXPECT_TRUE(form.cmdDelete.enabled);
  EXPECT_EQ(host_.status, (Names{"Processing, please wait...", "Ready"}));
  EXPECT_EQ(host_.pointers, (std::vector{shell::Pointer::kBusy, shell::Pointer::kDefault}));
}

TEST_F(FrmrecdeleteTest, ADeletedTankIsGoneWithAllItsRowsThoseOfEmissionToo) {
  AddTanks({"Kept", "Sold"});
  auto form = Open({1});
  PickTank(session_, form, 1);
  Answer(shell::Answer::kYes);
  ClickDelete(session_, form);
  EXPECT_EQ(Counts(), (std::vector<std::int64_t>{2, 1, 2, 2, 2}));
  for (const auto table : kTables) EXPECT_EQ(Client().OpenTable(table).Long("ID"), 1) << table;
  EXPECT_EQ(form.lstTanks.items, Names{"Kept"});
  EXPECT_TRUE(form.lstTanks.selected.empty());
  EXPECT_TRUE(form.lstDelTanks.items.empty());
  EXPECT_FALSE(form.cmdDelete.enabled);
  EXPECT_EQ(form.details.txtUserID.text, "");
  EXPECT_EQ(host_.status.back(), "Ready");
  EXPECT_EQ(host_.pointers.back(), shell::Pointer::kDefault);
}

TEST_F(FrmrecdeleteTest, TheTablesAreGoneThroughInTheirOrderAndAFailureInTheMiddleDeletesNothing) {
  AddTanks({"A", "B"});
  auto form = Open({0, 1});
  // From the last table on: the first one missing is the one that is told.
  for (const std::string table : {"components", "mixtures", "fittings", "emission"}) {
    Client().DeleteTable(table);
    Answer(shell::Answer::kYes);
    host_.ExpectError(3011, "frmRecDelete.");
    ClickDelete(session_, form);
    EXPECT_NE(host_.messages.back().find("'" + table + "'"), std::string::npos) << host_.messages.back();
    for (const auto kept : kTables) {
      if (!Client().HasTable(kept)) continue;
      EXPECT_EQ(Client().OpenTable(kept).RecordCount(), kept == "tank" ? 2 : 4) << kept;
    }
  }
  EXPECT_EQ(form.lstTanks.items, (Names{"A", "B"}));
  EXPECT_EQ(form.lstDelTanks.items, (Names{"A", "B"}));
  EXPECT_EQ(host_.status.back(), "Ready");
  EXPECT_EQ(host_.pointers.back(), shell::Pointer::kDefault);
}

TEST_F(FrmrecdeleteTest, ATankThatHasVanishedMeanwhileDoesNotTakeAnotherWithIt) {
  AddTanks({"A", "B", "C", "D"});
  auto form = Open({0, 1, 2});
  for (const auto table : kTables) Client().Execute("DELETE * FROM " + std::string(table) + " WHERE ID = 2");
  Answer(shell::Answer::kYes);
  ClickDelete(session_, form);
  EXPECT_EQ(Counts(), (std::vector<std::int64_t>{2, 1, 2, 2, 2}));
  EXPECT_EQ(form.lstTanks.items, Names{"D"});
}

TEST_F(FrmrecdeleteTest, WhileAnotherProgramEditsNothingIsDeleted) {
  AddTanks({"A"});
  auto form = Open({0});
  const auto other = store::LockFile::Take(shell::EditingPath(session_.ClientPath));
  ASSERT_TRUE(other);
  host_.ExpectMessage("The client database " + session_.ClientPath +
                      " is being edited by another program. Nothing was changed. Close the tank there, then try "
                      "again.");
  ClickDelete(session_, form);
  EXPECT_EQ(Counts(), (std::vector<std::int64_t>{2, 1, 2, 2, 2}));
  EXPECT_EQ(form.lstDelTanks.items, Names{"A"});
}

TEST_F(FrmrecdeleteTest, NamesAreDataWhateverIsInThem) {
  const Names names = {"O'Brien", "'; DELETE * FROM tank; --", "100%", "[x] & \"y\" * ? #1#", " ", "\u6CB9 \u00D6l"};
  AddTanks(names);
  AddTanks({"Kept"});
  auto form = OpenFrmrecdelete(session_);
  for (std::size_t row = 0; row < form.lstTanks.items.size(); ++row) {
    PickTank(session_, form, row);
    EXPECT_EQ(form.details.txtUserID.text, form.lstTanks.items[row]);
    if (form.lstTanks.items[row] != "Kept") form.lstTanks.selected.push_back(row);
  }
  ClickSelect(session_, form);
  Answer(shell::Answer::kYes);
  ClickDelete(session_, form);
  EXPECT_EQ(form.lstTanks.items, Names{"Kept"});
  EXPECT_EQ(Counts(), (std::vector<std::int64_t>{2, 1, 2, 2, 2}));
}

TEST_F(FrmrecdeleteTest, OfTwoNamesThatDifferInCaseTheOneChosenIsDeleted) {
  AddTanks({"tank", "Tank"});
  auto form = OpenFrmrecdelete(session_);
  ASSERT_EQ(form.lstTanks.items, (Names{"tank", "Tank"}));
  PickTank(session_, form, 1);
  EXPECT_EQ(form.details.txtID.text, "2");
  form.lstTanks.selected = {1};
  ClickSelect(session_, form);
  Answer(shell::Answer::kYes);
  ClickDelete(session_, form);
  EXPECT_EQ(form.lstTanks.items, Names{"tank"});
}

TEST_F(FrmrecdeleteTest, TanksOfOneNameAreDeletedOneForEachTimeItIsListed) {
  AddTanks({"Twin", "Twin", "Twin"});
  auto form = Open({0, 1});
  EXPECT_EQ(form.lstDelTanks.items, Names{"Twin"}) << "Select takes a name once";
  Answer(shell::Answer::kYes);
  ClickDelete(session_, form);
  EXPECT_EQ(form.lstTanks.items, (Names{"Twin", "Twin"}));
  ClickSelectAll(session_, form);
  Answer(shell::Answer::kYes);
  ClickDelete(session_, form);
  EXPECT_EQ(Counts(), std::vector<std::int64_t>(5));
}

TEST_F(FrmrecdeleteTest, CloseClosesAndHelpShowsItsTopic) {
  auto form = OpenFrmrecdelete(session_);
  ClickHelp(session_, form);
  EXPECT_EQ(host_.help, Names{"delete_tanks"});
  EXPECT_FALSE(form.window.closed);
  ClickClose(session_, form);
  EXPECT_TRUE(form.window.closed);
}

TEST_F(FrmrecdeleteTest, AMissingTableIsReportedUnderTheWindowsName) {
  AddTanks({"A"});
  auto form = OpenFrmrecdelete(session_);
  Client().DeleteTable("tank");
  host_.ExpectError(3011, "frmRecDelete.");
  PickTank(session_, form, 0);
  host_.ExpectError(3011, "frmRecDelete.");
  ClickSelectAll(session_, form);
  EXPECT_FALSE(form.cmdDelete.enabled);
  host_.ExpectError(3011, "frmRecDelete.");
  EXPECT_TRUE(OpenFrmrecdelete(session_).lstTanks.items.empty());
}

}  // namespace
}  // namespace orvex::entry
