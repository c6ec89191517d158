#include "entry/month_page.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "entry/bound_record.h"
#include "entry/mixture_page.h"
#include "shell/entry_number.h"
#include "shell/entry_text.h"
#include "shell/number_format.h"
#include "shell/periods.h"
#include "shell/status.h"
#include "shell/trap.h"
#include "store/database.h"

namespace orvex::entry {
namespace {

using shell::Session;

constexpr const char* kNoMixtureName =
    "Mixture name cannot be null.  Please correct this error on the previous tab.  Delete this mixture if you do not "
    "wish to save it.";
constexpr const char* kDuplicateName = "Duplicate Mixture Name";

/// "frmTank.chkJAN_Click" for January's "frmTank.chk" and "_Click".
std::string RoutineOf(std::string_view control, std::size_t month, std::string_view event) {
  return fmt::format("frmTank.{}{}_{}", control, shell::kMonths.at(month).suffix, event);
}

void Warn(Session& session, const char* text) { shell::Tell(session.host, text, shell::Icon::kExclamation); }

double Gallons(const std::string& text) { return text.empty() ? 0 : shell::EntryNumber(text); }

/// Enables and shows what a box that is ticked gives the month, or empties it.
void ShowTick(MonthEntry& month, bool ticked) {
  month.chk.checked = ticked;
  month.txtThru.enabled = ticked;
  month.cboMix.visible = ticked;
  if (ticked) return;
  month.txtThru.text = "0";
  month.cboMix.items.clear();
  month.cboMix.text.clear();
}

/// Tells the person if the mixture shown has no name.
bool RefuseWithoutName(Session& session, FrmTank& form) {
  if (!MixtureNameIsEmpty(form)) return false;
  Warn(session, kNoMixtureName);
  return true;
}

/// The tank's mixtures by their names, null for one without, in their order.
store::RecordSet MixtureNames(Session& session, const FrmTank& form) {
  return session.ClientDb->OpenQuery(
      fmt::format("SELECT [MIX ID], [MIX NAME] FROM mixtures WHERE ID = {} ORDER BY [MIX ID]", form.ID));
}

/// The name that the mixture shown has in the table; null without one.
store::Value NameOfShown(Session& session, const FrmTank& form) {
  return session.ClientDb->OpenAt("mixtures", "IDMIX", {form.ID, form.MixID}).Get("MIX NAME");
}

/// Fills the emptied list of a month; false, with the names in front of it, at one that the mixture shown has, too.
bool FillMixtures(Session& session, FrmTank& form, shell::ComboBox& list) {
  const auto shown = NameOfShown(session, form);
  for (auto names = MixtureNames(session, form); !names.AtEnd(); names.MoveNext()) {
    const auto name = names.Get("MIX NAME");
    if (names.Long("MIX ID") != form.MixID && !name.IsNull() && name == shown) return false;
    if (!name.IsNull()) list.items.push_back(name.AsText());
  }
  return true;
}

bool BuildMixtures(Session& session, FrmTank& form, shell::ComboBox& list) {
  if (RefuseWithoutName(session, form)) return false;
  CommitMixture(session, form);
  const auto remembered = std::exchange(list.text, {});
  list.items.clear();
  if (!FillMixtures(session, form, list)) {
    Warn(session, kDuplicateName);
    return false;
  }
  if (std::ranges::find(list.items, remembered) != list.items.end()) list.text = remembered;
  return true;
}

/// Which mixture, by its number less 1, holds each month: the first one that bears the name in the month's list.
using Holders = std::array<std::optional<std::size_t>, shell::kMonths.size()>;

Holders FindHolders(const FrmTank& form, const std::vector<std::string>& names) {
  Holders holders;
  for (std::size_t month = 0; month < holders.size(); ++month) {
    const auto& [chk, txtThru, cboMix] = form.months[month];
    // A mixture without a name holds nothing.
    if (!chk.checked || cboMix.text.empty()) continue;
    const auto found = std::ranges::find(names, cboMix.text);
    if (found != names.end()) holders[month] = static_cast<std::size_t>(found - names.begin());
  }
  return holders;
}

/// The names of the tank's mixtures; empty for one without.
std::vector<std::string> NamesOrEmpty(Session& session, const FrmTank& form) {
  std::vector<std::string> names;
  for (auto set = MixtureNames(session, form); !set.AtEnd(); set.MoveNext())
    names.push_back(set.Get("MIX NAME").TextOrEmpty());
  return names;
}

/// The same by the numbers of the mixtures, from 1 to their count; empty for a number that is missing.
std::vector<std::string> NamesByNumber(Session& session, const FrmTank& form) {
  auto set = MixtureNames(session, form);
  std::vector<std::string> names(static_cast<std::size_t>(set.RecordCount()));
  for (; !set.AtEnd(); set.MoveNext()) {
    const auto number = set.Long("MIX ID");
    if (number >= 1 && number <= std::ssize(names))
      names[static_cast<std::size_t>(number - 1)] = set.Get("MIX NAME").TextOrEmpty();
  }
  return names;
}

void LoadMixture(FrmTank& form, store::RecordSet& mixture, std::size_t place) {
  for (std::size_t month = 0; month < shell::kMonths.size(); ++month) {
    if (!mixture.BoolOrFalse(shell::kMonths[month].name)) continue;
    auto& entry = form.months[month];
    ShowTick(entry, true);
    entry.cboMix.text = entry.cboMix.items.at(place);
    entry.txtThru.text = shell::FormatTwoToSixDecimals(mixture.DoubleOrZero(shell::kMonths[month].throughput));
  }
}

}  // namespace

void LoadMonths(Session& session, FrmTank& form) {
  const auto names = NamesOrEmpty(session, form);
  for (auto& month : form.months) {
    ShowTick(month, false);
    month.cboMix.items = names;
  }
  for (std::size_t place = 0; place < names.size(); ++place) {
    auto mixture = session.ClientDb->OpenAt("mixtures", "IDMIX", {form.ID, static_cast<std::int32_t>(place + 1)});
    shell::Statement([&] { LoadMixture(form, mixture, place); });
  }
  ShowMonthTotal(form);
}

void StoreMonths(Session& session, FrmTank& form) {
  const auto names = NamesByNumber(session, form);
  const auto holders = FindHolders(form, names);
  store::Transaction transaction(*session.ClientDb);
  for (std::size_t place = 0; place < names.size(); ++place) {
    shell::Statement([&] {
      auto mixture = session.ClientDb->OpenAt("mixtures", "IDMIX", {form.ID, static_cast<std::int32_t>(place + 1)});
      mixture.Edit();
      for (std::size_t month = 0; month < holders.size(); ++month) {
        const bool held = holders[month] == place;
        mixture.Set(shell::kMonths[month].name, held);
        mixture.Set(shell::kMonths[month].throughput, held ? Gallons(form.months[month].txtThru.text) : 0);
      }
      mixture.Update();
    });
  }
  transaction.Commit();
}

void ShowMonthTotal(FrmTank& form) {
  double total = 0;
  for (const auto& month : form.months) total += Gallons(month.txtThru.text);
  form.txtTotalMonths.text = shell::FormatTwoToSixDecimals(total);
}

void TickMonth(Session& session, FrmTank& form, std::size_t month, bool ticked) {
  shell::Trapped(session, RoutineOf("chk", month, "Click"), [&] {
    ShowTick(form.months.at(month), ticked);
    ShowMonthTotal(form);
  });
}

void LeaveThroughput(Session& session, FrmTank& form, std::size_t month) {
  shell::Trapped(session, RoutineOf("txtThru", month, "LostFocus"), [&] {
    auto& text = form.months.at(month).txtThru.text;
    const auto gallons = shell::ParseEntryNumber(text);
    if (!gallons) {
      text = "0";
      shell::Refuse(session.host, form.window, kMonthTexts.at(month).txtThru.name, std::string(shell::kNoNumber));
      return;
    }
    ShowMonthTotal(form);
    text = shell::FormatTwoToSixDecimals(*gallons);
  });
}

void OpenMixtures(Session& session, FrmTank& form, std::size_t month) {
  shell::Trapped(session, RoutineOf("cboMix", month, "DropDown"),
                 [&] { BuildMixtures(session, form, form.months.at(month).cboMix); });
}

void ClickDistribute(Session& session, FrmTank& form) {
  shell::Trapped(session, "frmTank.cmdDistribute_Click", [&] {
    const shell::BusyScope busy(session, "Processing");
    const auto ticked = std::ranges::count_if(form.months, [](const auto& month) { return month.chk.checked; });
    if (ticked > 0) {
      const auto share = shell::FormatTwoToSixDecimals(Gallons(form.txtThruSpec.text) / static_cast<double>(ticked));
      for (auto& month : form.months)
        if (month.chk.checked) month.txtThru.text = share;
    }
    ShowMonthTotal(form);
  });
}

void ClickFillMixName(Session& session, FrmTank& form) {
  shell::Trapped(session, "frmTank.cmdFillMixName_Click", [&] {
    if (RefuseWithoutName(session, form)) return;
    for (auto& month : form.months) {
      if (!month.chk.checked) continue;
      // What is refused for one month is so for all.
      if (!BuildMixtures(session, form, month.cboMix)) return;
      if (!month.cboMix.items.empty()) month.cboMix.text = month.cboMix.items.front();
    }
  });
}

}  // namespace orvex::entry
