#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "entry/fittings_fixture.h"

namespace orvex::entry {
namespace {

using shell::Answer;

/// A person who acknowledges what a window tells, answers at random what it asks, and keeps what was said.
class AnsweringHost : public test::ScriptedHost {
 public:
  Answer ShowMessage(const std::string& text, const std::string&, shell::Buttons buttons, shell::Icon) override {
    said.push_back(text);
    return buttons == shell::Buttons::kOk || *rc::gen::arbitrary<bool>() ? Answer::kOk : Answer::kCancel;
  }
  std::vector<std::string> said;
};

constexpr std::string_view kTypes[] = {test::kHatch, test::kStubDrain, test::kColumnWell, "Roof Leg (3-in. Diameter)",
                                       "Vacuum Breaker (10-in. Diam.)"};
constexpr std::string_view kQuantities[] = {"1", "12", "1,200", "0", "-1", "2.5", "", "nan", "1e400", "\x02"};
constexpr std::string_view kTanks[] = {shell::kInternalFloatingRoof, shell::kExternalFloatingRoof,
                                       shell::kDomedExternalFloatingRoof};
constexpr std::string_view kCategories[] = {"Typical", "Detail", ""};

/// What the window may say.
bool IsKnown(const std::string& text) {
  const std::string_view known[] = {
      test::kIncomplete,
      "Quantity must be greater than zero.",
      "Duplicate Fitting",
      "Please enter a number.",
      "Please enter a whole number.",
      "Fitting was not found.  Please make sure you have specified a fitting and status.",
  };
  return std::ranges::find(known, text) != std::end(known) || text.starts_with("Estimated number of fittings is ");
}

/// One of these, all equally likely however far the case has grown.
template <std::size_t kSize>
std::string Any(const std::string_view (&of)[kSize]) {
  return std::string(of[*rc::gen::resize(rc::kNominalSize, rc::gen::inRange<std::size_t>(0, kSize))]);
}

/// A person at the window of the fittings.
class Walk {
 public:
  Walk() {
    const auto reference = folder_.Path() / "tankdata.mdb";
    std::filesystem::copy_file(ORVEX_REFERENCE_DATABASE, reference);
    session_.ReferenceDb = store::Database::Open(reference);
    session_.ClientDb = store::Database::Create(folder_.Path() / "client1.mdb", store::ClientTables());
    AddTankEntry(session_);
  }

  /// Opens the fittings of a tank that has none yet, or its typical ones.
  void Open() {
    host_.said.clear();
    session_.ClientDb->DeleteMatching("fittings", "fitid", {kTank});
    auto& tank = *(session_.tank_entry->frmTank = std::make_unique<FrmTank>(MakeFrmTank(Any(kTanks))));
    tank.ID = kTank;
    Physical(tank, "DIAMETER").box.text = "100";
    Physical(tank, "FITTING").box.text = Any(kCategories);
    RebuildTypicalFittings(session_, tank);
    form_ = OpenFrmrecfit(session_);
  }

  /// Does one thing that the window offers as it stands.
  void Act() {
    const auto before = form_.FIT_ID;
    switch (*rc::gen::resize(rc::kNominalSize, rc::gen::inRange(0, 12))) {
      case 0:
      case 1:
        return Leave(form_.cmdAdd, ClickAdd, before + 1);
      case 2:
        return Leave(form_.cmdNext, ClickNext, before + 1);
      case 3:
        return Leave(form_.cmdPrevious, ClickPrevious, before - 1);
      case 4:
        return Click(form_.cmdDelete, ClickDelete);
      case 5:
        if (Any({"no", "no", "no", "yes"}) == "yes") Click(form_.cmdDeleteAll, ClickDeleteAll);
        return;
      case 6:
        return Click(form_.cmdQuantity, ClickQuantity);
      case 7:
        return Click(form_.cmdClose, ClickClose);
      case 8:
      case 9:
        return Choose(form_.cboFitType, ChooseFitType, Any(kTypes));
      case 10:
        if (form_.cboStatus.items.empty()) return;
        return Choose(form_.cboStatus, ChooseStatus, *rc::gen::elementOf(form_.cboStatus.items));
      default:
        if (!form_.txtQuantity.enabled) return;
        form_.txtQuantity.text = Any(kQuantities);
        LeaveQuantity(session_, form_);
    }
  }

  void RequireSound() {
    const auto rows = Read();
    for (std::size_t i = 0; i < rows.size(); ++i) {
      RC_ASSERT(rows[i].number == static_cast<std::int32_t>(i + 1));
      RC_ASSERT(rows[i].quantity == static_cast<std::int32_t>(rows[i].quantity));
    }
    for (const auto& text : host_.said) RC_ASSERT(IsKnown(text));
    if (form_.window.closed) return;
    const auto count = static_cast<std::int32_t>(rows.size());
    RC_ASSERT(form_.FIT_ID >= 1);
    RC_ASSERT(form_.FIT_ID <= count);
    RC_ASSERT(form_.lblRecord.text == "Record " + std::to_string(form_.FIT_ID) + " of " + std::to_string(count));
    RC_ASSERT(form_.cmdPrevious.enabled == (form_.FIT_ID > 1));
    RC_ASSERT(form_.cmdNext.enabled == (form_.FIT_ID < count));
    RC_ASSERT(RowOf(rows, form_.FIT_ID).kind == form_.cboFitType.text + "/" + form_.cboStatus.text);
  }

  [[nodiscard]] bool IsClosed() const { return form_.window.closed; }

 private:
  static constexpr std::int32_t kTank = 1;
  struct Row {
    std::int32_t number;
    std::string kind;
    double quantity;
  };

  std::vector<Row> Read() {
    std::vector<Row> found;
    auto rows = session_.ClientDb->OpenQuery("SELECT * FROM fittings WHERE ID = 1 ORDER BY [FIT ID]");
    for (; !rows.AtEnd(); rows.MoveNext())
      found.push_back({rows.Long("FIT ID"), rows.TextOrEmpty("FIT_TYPE") + "/" + rows.TextOrEmpty("COVR_TYPE"),
                       rows.DoubleOrZero("QUANTITY")});
    return found;
  }
  static const Row& RowOf(const std::vector<Row>& rows, std::int32_t number) {
    return rows.at(static_cast<std::size_t>(number - 1));
  }

  using Event = void (*)(shell::Session&, Frmrecfit&);
  void Click(const shell::Button& button, Event event) {
    if (button.enabled) event(session_, form_);
  }
  void Choose(shell::ComboBox& list, Event event, const std::string& item) {
    if (!list.enabled) return;
    list.text = item;
    event(session_, form_);
  }
  /// A row that could be left is complete, and the only one of its kind.
  void Leave(const shell::Button& button, Event event, std::int32_t to) {
    const auto left = form_.FIT_ID;
    Click(button, event);
    if (form_.FIT_ID == left) return;
    RC_ASSERT(form_.FIT_ID == to);
    const auto rows = Read();
    const auto& row = RowOf(rows, left);
    RC_ASSERT(std::ranges::count(rows, row.kind, &Row::kind) == 1);
    RC_ASSERT(!row.kind.starts_with("/"));
    RC_ASSERT(row.quantity > 0);
  }

  test::TemporaryFolder folder_;
  AnsweringHost host_;
  shell::Session session_{host_};
  Frmrecfit form_;
};

TEST(FrmrecfitProperties, WhateverAPersonDoesNumbersHaveNoGapsAndNoDuplicateIsPassed) {
  Walk walk;
  EXPECT_TRUE(rc::check([&] {
    walk.Open();
    walk.RequireSound();
    const int steps = *rc::gen::resize(rc::kNominalSize, rc::gen::inRange(1, 60));
    for (int step = 0; step < steps && !walk.IsClosed(); ++step) {
      walk.Act();
      walk.RequireSound();
    }
  }));
}

}  // namespace
}  // namespace orvex::entry
