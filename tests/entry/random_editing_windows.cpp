#include <fmt/format.h>

#include <algorithm>

#include "entry/frmcomponent.h"
#include "entry/frmcopydata.h"
#include "entry/frmrecfit.h"
#include "entry/frmspecpro.h"
#include "entry/random_editing_life.h"
#include "entry/random_editing_texts.h"
#include "shell/entry_number.h"

/// A person in the small windows that the tank editor opens.
namespace orvex::test {
namespace {

using entry::Frmcomponent;
using entry::FrmCopyData;
using entry::Frmrecfit;

/// The number that has the focus: left before anything else is done, and come back to if that is refused.
template <typename Form>
class Window {
 public:
  using Event = void (*)(shell::Session&, Form&);
  Window(Life& life, Form& form) : life_(life), form_(form) {}

  template <typename Leave>
  bool LeaveNumber(const Leave& leave) {
    if (entered_.empty()) return true;
    leave(std::exchange(entered_, {}));
    const auto back = std::exchange(form_.window.focus, {});
    if (back.starts_with("txt")) entered_ = back;
    return back.empty();
  }

  void Click(const shell::Button& button, std::string_view name, Event event) {
    if (!button.enabled || !button.visible) return;
    life_.Say(fmt::format("  click {}", name));
    event(life_.TheSession(), form_);
    form_.window.focus = {};
    life_.RequireIdle();
  }

  void Type(shell::TextBox& box, std::string_view name, const std::string& text) {
    if (!box.enabled || !box.visible || box.read_only) return;
    life_.Say(fmt::format("  type \"{}\" into {}", text, name));
    box.text = text;
    entered_ = name;
  }

 private:
  Life& life_;
  Form& form_;
  std::string entered_;
};

template <typename Number>
Number OneOf(const std::vector<Number>& of, std::uint16_t number) {
  return of[Life::OneOf(number, of.size())];
}

// Components ----------------------------------------------------------------------------------------------------------

class ComponentVisit {
 public:
  explicit ComponentVisit(Life& life) : life_(life), form_(entry::OpenFrmcomponent(life.TheSession())) {}

  void Work() {
    Look();
    while (!form_.window.closed && life_.Next()) {
      Act();
      if (!form_.window.closed) Look();
    }
    Leave();
  }

 private:
  using Window = test::Window<Frmcomponent>;

  bool LeaveNumber() {
    return window_.LeaveNumber([&](const std::string& name) {
      entry::LeaveNumber(life_.TheSession(), form_, name);
      life_.RequireIdle();
    });
  }

  void Act() {
    const auto now = life_.Now();
    switch (now.what % 16) {
      case 0:
      case 1:
      case 2:
        return TypeNumber(now);
      case 3:
      case 4:
      case 5:
        return ChooseName(now);
      case 6:
        return ChooseNumber(now);
      default:
        if (LeaveNumber()) Click(now.what % 16);
    }
  }

  void Click(int what) {
    switch (what) {
      case 7:
      case 8:
        return window_.Click(form_.cmdAdd, "cmdAdd", entry::ClickAdd);
      case 9:
        return window_.Click(form_.cmdNext, "cmdNext", entry::ClickNext);
      case 10:
        return window_.Click(form_.cmdPrevious, "cmdPrevious", entry::ClickPrevious);
      case 11:
        return window_.Click(form_.cmdDelete, "cmdDelete", entry::ClickDelete);
      case 12:
        return window_.Click(form_.cmdDeleteAll, "cmdDeleteAll", entry::ClickDeleteAll);
      case 13:
        return window_.Click(form_.cmdRelative, "cmdRelative", entry::ClickRelative);
      default:
        return window_.Click(form_.cmdClose, "cmdClose", entry::ClickClose);
    }
  }

  void TypeNumber(const Step& now) {
    struct Number {
      std::string_view name;
      shell::TextBox Frmcomponent::*box;
    };
    static constexpr Number kNumbers[] = {{"txtShare", &Frmcomponent::txtShare},
                                          {"txtMolWt", &Frmcomponent::txtMolWt},
                                          {"txtShare", &Frmcomponent::txtShare},
                                          {"txtVPMolWt", &Frmcomponent::txtVPMolWt},
                                          {"txtLDens", &Frmcomponent::txtLDens}};
    const auto& number = kNumbers[Life::OneOf(now.which, std::size(kNumbers))];
    if (LeaveNumber()) window_.Type(form_.*number.box, number.name, NumberOf(life_, now.how));
  }

  void ChooseName(const Step& now) {
    if (!LeaveNumber() || form_.dbcboChemName.items.empty()) return;
    // Often one of few, so that some meet.
    const auto name = form_.dbcboChemName.items[Life::OneOf(now.which, now.how % 2 == 0 ? 4 : 100)];
    life_.Say("  choose " + name);
    form_.dbcboChemName.text = name;
    entry::ChooseChemName(life_.TheSession(), form_, name);
  }

  void ChooseNumber(const Step& now) {
    if (!LeaveNumber() || form_.dbcboCAS.items.empty()) return;
    const auto number = OneOf(form_.dbcboCAS.items, now.which);
    life_.Say("  choose " + number);
    form_.dbcboCAS.text = number;
    entry::ChooseCAS(life_.TheSession(), form_, number);
  }

  void Look() {
    life_.RequireIdle();
    const auto rows = entry::ReadRows(life_.Client(), form_.ID);
    RequireSound(rows);
    const auto count = std::ranges::count_if(rows.ComponentCopy, [&](const auto& row) {
      return FieldOf(row, "components", "MIX ID").AsLong() == form_.MixID;
    });
    Require(form_.lblComponentXofX.text.ends_with(fmt::format(" of {}", count)),
            fmt::format("\"{}\" is shown of {} components", form_.lblComponentXofX.text, count));
    Require(form_.cmdPrevious.enabled == (form_.CompID > 1), "Previous is enabled wrongly");
    Require(form_.cmdNext.enabled == (form_.CompID < count), "Next is enabled wrongly");
  }

  void Leave() {
    if (form_.window.closed) return;
    if (LeaveNumber()) window_.Click(form_.cmdClose, "cmdClose", entry::ClickClose);
    if (!form_.window.closed) window_.Click(form_.cmdDeleteAll, "cmdDeleteAll", entry::ClickDeleteAll);
    if (!form_.window.closed) window_.Click(form_.cmdDelete, "cmdDelete", entry::ClickDelete);
    Require(form_.window.closed, "the components cannot be left");
  }

  Life& life_;
  Frmcomponent form_;
  Window window_{life_, form_};
};

// Fittings ------------------------------------------------------------------------------------------------------------

class FittingVisit {
 public:
  explicit FittingVisit(Life& life) : life_(life), form_(entry::OpenFrmrecfit(life.TheSession())) {}

  void Work() {
    Require(!form_.window.closed, "the fittings do not open");
    Look();
    while (!form_.window.closed && life_.Next()) {
      Act();
      if (!form_.window.closed) Look();
    }
    Leave();
  }

 private:
  bool LeaveNumber() {
    return window_.LeaveNumber([&](const std::string&) {
      entry::LeaveQuantity(life_.TheSession(), form_);
      life_.RequireIdle();
    });
  }

  void Act() {
    const auto now = life_.Now();
    if (!LeaveNumber()) return;
    switch (now.what % 16) {
      case 0:
      case 1:
      case 2:
        return Choose(form_.cboFitType, "cboFitType", entry::ChooseFitType, now.which);
      case 3:
      case 4:
      case 5:
        return Choose(form_.cboStatus, "cboStatus", entry::ChooseStatus, now.which);
      case 6:
      case 7:
        return window_.Type(form_.txtQuantity, "txtQuantity", NumberOf(life_, now.how));
      case 8:
      case 9:
        return window_.Click(form_.cmdAdd, "cmdAdd", entry::ClickAdd);
      case 10:
        return window_.Click(form_.cmdNext, "cmdNext", entry::ClickNext);
      case 11:
        return window_.Click(form_.cmdPrevious, "cmdPrevious", entry::ClickPrevious);
      case 12:
        return window_.Click(form_.cmdDelete, "cmdDelete", entry::ClickDelete);
      case 13:
        return window_.Click(form_.cmdDeleteAll, "cmdDeleteAll", entry::ClickDeleteAll);
      case 14:
        return window_.Click(form_.cmdQuantity, "cmdQuantity", entry::ClickQuantity);
      default:
        return window_.Click(form_.cmdClose, "cmdClose", entry::ClickClose);
    }
  }

  void Choose(shell::ComboBox& list, std::string_view name, void (*event)(shell::Session&, Frmrecfit&),
              std::uint16_t which) {
    if (!list.enabled || list.items.empty()) return;
    list.text = std::string(OneOf(list.items, which));
    life_.Say(fmt::format("  choose \"{}\" in {}", list.text, name));
    event(life_.TheSession(), form_);
    life_.RequireIdle();
  }

  void Look() {
    const auto rows = entry::ReadRows(life_.Client(), form_.ID);
    RequireSound(rows);
    const auto count = rows.FittingCopy.size();
    Require(form_.lblRecord.text == fmt::format("Record {} of {}", form_.FIT_ID, count),
            fmt::format("\"{}\" is shown of {} fittings", form_.lblRecord.text, count));
    Require(form_.cmdPrevious.enabled == (form_.FIT_ID > 1), "Previous is enabled wrongly");
    Require(form_.cmdNext.enabled == (form_.FIT_ID < static_cast<std::int32_t>(count)), "Next is enabled wrongly");
  }

  void Leave() {
    if (form_.window.closed) return;
    if (LeaveNumber()) window_.Click(form_.cmdClose, "cmdClose", entry::ClickClose);
    if (!form_.window.closed) window_.Click(form_.cmdDeleteAll, "cmdDeleteAll", entry::ClickDeleteAll);
    if (!form_.window.closed) window_.Click(form_.cmdDelete, "cmdDelete", entry::ClickDelete);
    Require(form_.window.closed, "the fittings cannot be left");
  }

  Life& life_;
  Frmrecfit form_;
  Window<Frmrecfit> window_{life_, form_};
};

// Copy ----------------------------------------------------------------------------------------------------------------

/// Copied fields are all but the two that say which tank it is.
bool SameFromThirdFieldOn(const std::vector<store::Value>& a, const std::vector<store::Value>& b) {
  return std::equal(a.begin() + 2, a.end(), b.begin() + 2, b.end());
}

entry::Rows WithoutID(entry::Rows rows) {
  for (auto& row : rows) row.erase(row.begin());
  return rows;
}

/// Their properties are computed anew when the tank is shown.
std::vector<store::Value> Names(std::string_view table, std::string_view field, const entry::Rows& rows) {
  std::vector<store::Value> names;
  for (const auto& row : rows) names.push_back(FieldOf(row, table, field));
  return names;
}

/// The tank edited may bear the same name, in other case too, until it is saved.
RecordCopy OtherTank(store::Database& client, std::int32_t ID, const std::string& name) {
  for (const auto& [other, rows] : ReadAllRows(client))
    if (other != ID && FieldOf(rows.TankCopy.front(), "tank", "USER ID").TextOrEmpty() == name) return rows;
  throw Broken("there is no tank " + name + " to copy");
}

void RequireCopied(const FrmCopyData& form, const RecordCopy& source, const RecordCopy& before,
                   const RecordCopy& after) {
  const bool tank = !form.optLiquid.chosen, liquid = !form.optTank.chosen;
  Require(SameFromThirdFieldOn(after.TankCopy.front(), (tank ? source : before).TankCopy.front()),
          "the tank's fields were copied wrongly");
  const auto& fittings = tank && !source.FittingCopy.empty() ? source : before;
  Require(WithoutID(after.FittingCopy) == WithoutID(fittings.FittingCopy), "the fittings were copied wrongly");
  const auto& components = liquid && !source.ComponentCopy.empty() ? source : before;
  Require(Names("components", "NAME", after.ComponentCopy) == Names("components", "NAME", components.ComponentCopy),
          "the components were copied wrongly");
  const auto& mixtures = liquid ? source : before;
  Require(Names("mixtures", "MIX NAME", after.MixtureCopy) == Names("mixtures", "MIX NAME", mixtures.MixtureCopy),
          "the mixtures were copied wrongly");
}

}  // namespace

void WorkOnComponents(Life& life) { ComponentVisit(life).Work(); }

void WorkOnFittings(Life& life) { FittingVisit(life).Work(); }

void ChooseProfile(Life& life) {
  auto form = entry::OpenFrmspecpro(life.TheSession());
  const auto& now = life.Now();
  if (now.how % 5 == 0) return entry::ClickCancel(life.TheSession(), form);
  const auto row = Life::OneOf(now.which, form.lstProfiles.items.size());
  life.Say("  take the profile " + form.lstProfiles.items[row]);
  entry::PickProfile(life.TheSession(), form, row);
  entry::ClickOK(life.TheSession(), form);
  Require(form.window.closed, "the profiles stay open");
}

void CopyData(Life& life) {
  auto& session = life.TheSession();
  auto& client = life.Client();
  auto form = entry::OpenFrmCopyData(session);
  const auto& now = life.Now();
  if (now.how % 5 == 0) return entry::ClickCancel(session, form);
  const auto name = OneOf(form.cboTankName.items, now.which);
  static constexpr void (*kChoices[])(shell::Session&, FrmCopyData&) = {entry::ChooseTank, entry::ChooseLiquid,
                                                                        entry::ChooseAll};
  kChoices[now.how % 3](session, form);
  entry::ChangeTankName(session, form, name);
  life.Say(fmt::format("  copy {} of {}",
                       form.optTank.chosen  ? "the tank data"
                       : form.optAll.chosen ? "all"
                                            : "the liquid",
                       name));
  const auto ID = entry::Editor(session).ID;
  const auto source = OtherTank(client, ID, name);
  const auto before = entry::ReadRows(client, ID);
  entry::ClickOK(session, form);
  Require(form.window.closed, "the window for the copy stays open");
  RequireCopied(form, source, before, entry::ReadRows(client, ID));
}

}  // namespace orvex::test
