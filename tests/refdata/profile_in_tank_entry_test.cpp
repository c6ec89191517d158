#include <algorithm>

#include "entry/bound_record.h"
#include "entry/entry_commands.h"
#include "entry/frmspecpro.h"
#include "entry/tank_entry.h"
#include "refdata/profile_fixture.h"
#include "shell/tank_types.h"

namespace orvex::refdata {
namespace {

using test::Rows;

/// What is saved in the editor of profiles is offered to the mixtures of tanks at once.
class ProfileInTankEntryTest : public test::ProfileTest {
 protected:
  ProfileInTankEntryTest() {
    session_.ClientDb = store::Database::Create(folder_.Path() / "client1.mdb", store::ClientTables());
    entry::AddTankEntry(session_);
    auto& client = *session_.ClientDb;
    test::AddRow(client, "tank", {{"TANK_TYPE", shell::kVerticalFixedRoof}});
    const auto ID = client.OpenTable("tank").Long("ID");
    test::AddRow(client, "mixtures", {{"ID", ID}, {"MIX ID", 1}});
    session_.tank_entry->frmTank =
        std::make_unique<entry::FrmTank>(entry::MakeFrmTank(std::string(shell::kVerticalFixedRoof)));
    auto& tank = entry::Editor(session_);
    tank.ID = ID;
    entry::ShowTank(session_, tank);
    entry::ShowMixtureRow(session_, tank);
  }

  /// Copies the profile of this name to the mixture; the components that it has then.
  Rows Copy(std::string_view option, const std::string& name) {
    auto& tank = entry::Editor(session_);
    tank.form = option == shell::kFullSpeciation ? entry::Section::kFull : entry::Section::kPartial;
    entry::FindLiquid(tank, "SPEC_OPT")->box.text = option;
    auto window = entry::OpenFrmspecpro(session_);
    const auto& items = window.lstProfiles.items;
    const auto found = std::ranges::find(items, name);
    if (found == items.end()) return {};
    entry::PickProfile(session_, window, static_cast<std::size_t>(found - items.begin()));
    entry::ClickOK(session_, window);
    return test::QueryRows(*session_.ClientDb, "SELECT * FROM components",
                           {"COMP ID", "NAME", "WT_FRACT", "VP_FRACT", "WEIGHT"});
  }
};

TEST_F(ProfileInTankEntryTest, APartialProfileIsOfferedAndCopied) {
  AddSaved("Ours", "Partial", {{"Toluene", "20"}, {"Benzene", "1.5"}});
  EXPECT_EQ(Copy(shell::kPartialSpeciation, "Ours"), (Rows{"1|Toluene|20|0|0", "2|Benzene|1.5|0|0"}));
}

TEST_F(ProfileInTankEntryTest, AVaporProfileIsOfferedAndCopied) {
  AddSaved("Ours", "Vapor", {{"Toluene", "20"}});
  EXPECT_EQ(Copy(shell::kVaporWeightSpeciation, "Ours"), Rows{"1|Toluene|0|20|0"});
}

TEST_F(ProfileInTankEntryTest, AFullProfileOfRelativeWeightsIsOfferedAndCopied) {
  AddSaved("Ours", "Full", {{"Toluene", "300"}, {"Benzene", "45.5"}}, true);
  EXPECT_EQ(Copy(shell::kFullSpeciation, "Ours"), (Rows{"1|Toluene|0|0|300", "2|Benzene|0|0|45.5"}));
}

TEST_F(ProfileInTankEntryTest, AProfileIsOfferedUnderItsNewTypeAndNameOnly) {
  AddSaved("Ours", "Full", {{"Toluene", "60"}, {"Benzene", "40"}});
  Type("dbcboProfName", "Theirs");
  Choose("cboType", "Partial");
  Save();
  EXPECT_EQ(Copy(shell::kFullSpeciation, "Ours"), Rows{});
  EXPECT_EQ(Copy(shell::kFullSpeciation, "Theirs"), Rows{});
  EXPECT_EQ(Copy(shell::kPartialSpeciation, "Theirs").size(), 2U);
}

TEST_F(ProfileInTankEntryTest, ADeletedProfileIsNotOffered) {
  AddSaved("Ours", "Partial", {{"Toluene", "20"}});
  ExpectDeleteQuestion("Are you sure you want to delete this profile?", Answer::kOk);
  ClickDelete(session_, form_);
  EXPECT_EQ(Copy(shell::kPartialSpeciation, "Ours"), Rows{});
}

}  // namespace
}  // namespace orvex::refdata
