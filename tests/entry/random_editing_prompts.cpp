#include "entry/random_editing_prompts.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <string_view>

#include "shell/entry_number.h"
#include "shell/status.h"

namespace orvex::test {
namespace {

using shell::Buttons;
using shell::Icon;

constexpr std::string_view kProgram = shell::kApplicationTitle;

/// A question; the number that it proposes, if any, stands between beginning and ending.
struct Question {
  std::string_view beginning, ending, title;
  Buttons buttons;
  Icon icon = Icon::kNone;
};

constexpr Question kQuestions[] = {
    {"Save Changes?", "", "Save?", Buttons::kYesNoCancel},
    {"The calculated cone roof slope value is ", "(ft/ft). Use This Value?", "Cone Roof Slope", Buttons::kYesNo},
    {"The default cone roof slope value is ", "(ft/ft). Use This Value?", "Cone Roof Slope", Buttons::kYesNo},
    {"The default dome roof radius value is ", "(ft). Use This Value?", "Dome Roof Radius", Buttons::kYesNo},
    {"The calculated volume is ", ". Use This Value?", "Recalculate?", Buttons::kYesNo},
    {"The calculated value is ", ". Use This Value?", "Recalculate?", Buttons::kYesNo},
    {"The default value is ", ". Use This Value?", "Recalculate?", Buttons::kYesNo},
    {"The suggested value is ", ". Use This Value?", "Deck Seam Length", Buttons::kYesNo},
    {"The suggested deck seam length is ", "(ft). Use This Value?", "Deck Seam Length", Buttons::kYesNo},
    {"Estimated number of Columns is ", " .  Use this Estimate?", "Number of Columns", Buttons::kOkCancel},
    {"Estimated number of Columns is ", " .  Use this Estimate?", "Number of Columns", Buttons::kYesNo},
    {"Estimated number of fittings is ", " .  Use this Estimate?", "Number of Fittings", Buttons::kOkCancel},
    {"Update monthly throughput information?", "", "Update?", Buttons::kYesNo, Icon::kQuestion},
    {"The breather vent setting for a heated tank must be zero.  Do you want to set these values to zero now?", "",
     kProgram, Buttons::kYesNo},
    {"Are you sure you want to delete these tanks?", "", kProgram, Buttons::kYesNo},
};

/// What is told; a star stands for any text.
constexpr std::string_view kTold[] = {
    "Please enter a number.",
    "Please enter a whole number.",
    "Please enter a text without control characters.",
    "Please enter no more than * characters.",
    "Average liquid height must not exceed the maximum liquid height.",
    "Shell height must be between 5 and 65 feet.",
    "Shell length must be between 5 and 75 feet.",
    "Shell diameter must be between 3 and 20 feet.",
    "This is an unusually large number of turnovers.  Please check.",
    "Please enter a number bewteen -1 and 0.",
    "Please enter a value between 0 and 1.",
    "Are you sure you want to speciate this organic liquid?  This option is for crude oils, petroleum distillates and "
    "other mixtures.",
    "Speciation Option must be selected before properties are calculated.",
    "Mixture name cannot be null.  Delete this mixture if you do not wish to save it.",
    "Mixture name cannot be null.  Please correct this error on the previous tab.  Delete this mixture if you do not "
    "wish to save it.",
    "Duplicate Mixture Name",
    "This is the only mixture for this tank.  It cannot be deleted.",
    "This component must have a name, and a percent or weight.  Delete this component if you do not wish to save it.",
    "Duplicate Component Name",
    "There are no * Profiles",
    "There are no other * tanks.",
    "This fitting must have a type and status.  Delete this fitting if you do not wish to save it.",
    "Quantity must be greater than zero.",
    "Duplicate Fitting",
    "Fitting was not found.  Please make sure you have specified a fitting and status.",
    "Please enter an Identification Number for this record.",
    "Please enter a mixture name.",
    "Warning: This is not a unique User Identification Number.  Having two records with the same ID will cause "
    "errors. Please change this ID.",
};

/// A failure that a number or a share leads to which the person may enter, and that is reported.
struct ToldReport {
  int number;
  std::string_view routine;
};

constexpr ToldReport kToldReports[] = {
    // The components of the mixture have no shares or weights.
    {11, "modEmission.TotalMoles"},
    {11, "modEmission.MixLiquidMW"},
    {11, "modEmission.MixturePVA"},
    {11, "modEmission.MixVaporMW"},
    {11, "modEmission.MixLiquidDensity"},
    {11, "modEmission.VapMixPV"},
    {11, "modEmission.VapMixPVMinMax"},
    {11, "modEmission.VapMixVaporMW"},
    {11, "modEmission.VapMixLiquidMWf"},
    {11, "modEmission.VapMIxLdens"},
    // A liquid whose height or volume is below zero has no diameter.
    {5, "frmTank.CheckLostFocus"},
    {5, "frmTank.txtDiameterVT_GotFocus"},
};

constexpr std::string_view kFailure = "The following Error occurred:\r\n\r\n";

bool Fits(std::string_view text, std::string_view pattern) {
  const auto star = pattern.find('*');
  if (star == std::string_view::npos) return text == pattern;
  const auto ending = pattern.substr(star + 1);
  // Something must stand in its place.
  return text.size() > pattern.size() - 1 && text.starts_with(pattern.substr(0, star)) && text.ends_with(ending) &&
         text[star] != ' ';
}

bool Fits(const Prompt& prompt, const Question& question) {
  return prompt.title == question.title && prompt.buttons == question.buttons && prompt.icon == question.icon &&
         prompt.text.starts_with(question.beginning) && prompt.text.ends_with(question.ending);
}

std::string Proposed(const Prompt& prompt, const Question& question) {
  const auto length = prompt.text.size() - question.beginning.size() - question.ending.size();
  return prompt.text.substr(question.beginning.size(), length);
}

}  // namespace

std::string WhatIsWrongWith(const Prompt& prompt) {
  if (prompt.buttons == Buttons::kOk) {
    const bool known = std::ranges::any_of(kTold, [&](auto pattern) { return Fits(prompt.text, pattern); });
    return known && prompt.title == kProgram ? "" : "unknown message";
  }
  const auto* question =
      std::ranges::find_if(kQuestions, [&](const auto& candidate) { return Fits(prompt, candidate); });
  if (question == std::end(kQuestions)) return "unknown question";
  const auto proposed = Proposed(prompt, *question);
  const bool is_number = question->ending.empty() ? proposed.empty() : shell::ParseEntryNumber(proposed).has_value();
  return is_number ? "" : "no number is proposed";
}

bool IsFailureReport(const Prompt& prompt) { return prompt.text.starts_with(kFailure); }

bool IsToldReport(const Prompt& prompt) {
  return IsFailureReport(prompt) && std::ranges::any_of(kToldReports, [&](const ToldReport& told) {
           return prompt.text.ends_with(fmt::format("\r\nNumber: {}\r\n in {}", told.number, told.routine));
         });
}

bool IsRangeReport(const Prompt& prompt) {
  constexpr std::string_view kOverflow = "\r\nNumber: 6\r\n", kDivisionByZero = "\r\nNumber: 11\r\n";
  return IsFailureReport(prompt) &&
         (prompt.text.find(kOverflow) != std::string::npos || prompt.text.find(kDivisionByZero) != std::string::npos);
}

}  // namespace orvex::test
