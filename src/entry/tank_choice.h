#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "shell/controls.h"
#include "shell/session.h"
#include "store/database.h"
#include "store/run_time_error.h"

/// What the windows share that work on whole tanks.
namespace orvex::entry {

/// Who the tank is that was picked last; all empty before one was.
struct TankDetails {
  shell::TextBox txtUserID{.text = "", .read_only = true};
  shell::TextBox txtCity{.text = "", .read_only = true};
  shell::TextBox txtState{.text = "", .read_only = true};
  shell::TextBox txtCompany{.text = "", .read_only = true};
  shell::TextBox txtTankType{.text = "", .read_only = true};
  shell::TextBox txtID{.text = "", .read_only = true};
};

inline constexpr auto kTankDetailTexts = std::to_array<shell::ControlText>({
    {"txtUserID", "Identification:", "Identification of the tank picked last"},
    {"txtCity", "City:", "City of the tank picked last"},
    {"txtState", "State:", "State of the tank picked last"},
    {"txtCompany", "Company:", "Company of the tank picked last"},
    {"txtTankType", "Tank Type:", "Type of the tank picked last"},
    {"txtID", "Tank Number:", "Number under which the program keeps the tank picked last"},
});

/// The details and then a window's other controls.
template <std::size_t kCount>
constexpr auto TankDetailTextsAnd(const shell::ControlText (&others)[kCount]) {
  std::array<shell::ControlText, kTankDetailTexts.size() + kCount> texts{};
  std::size_t at = 0;
  for (const auto& text : kTankDetailTexts) texts[at++] = text;
  for (const auto& text : others) texts[at++] = text;
  return texts;
}

/// The `USER ID` of every tank of a client database that has one, in the order of that index.
std::vector<std::string> NamesInOrder(store::Database& client);

/// Whether a tank comes into question.
using Accept = std::function<bool(store::RecordSet& tank)>;
inline bool AnyTank(store::RecordSet&) { return true; }

/// The tank of this `USER ID`: the one that bears it letter for letter, else the first that bears it in other case.
/// Without one there is no current record, and the set is at its end.
store::RecordSet FindTank(store::Database& client, const std::string& user_id, const Accept& accept = AnyTank);

/// Shows who a tank is; nothing without a current record.
void ShowDetails(store::RecordSet tank, TankDetails& details);

/// What a window fails with when only its list still knows a tank: error 3167.
store::RunTimeError TankIsGone(const std::string& user_id);

}  // namespace orvex::entry
