#include "reports/reference_report.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>

#include "shell/choices.h"
#include "store/blanks.h"

namespace orvex::reports {
namespace {

constexpr char kPartsFrom = '/';

using Item = std::optional<std::string>;

Item TextOf(store::RecordSet& row, std::string_view field) {
  const auto value = row.Get(field);
  return value.IsNull() ? Item() : value.AsText();
}

Item ChemicalItem(store::RecordSet& row) { return TextOf(row, "NAME"); }
Item MetItem(store::RecordSet& row) { return TextOf(row, "CTYST"); }
Item DeckItem(store::RecordSet& row) { return TextOf(row, "NAME"); }
Item ProfileItem(store::RecordSet& row) { return TextOf(row, "Profile Name"); }

Item FitItem(store::RecordSet& row) {
  auto item = TextOf(row, "FIT_TYPE");
  const auto status = TextOf(row, "COVR_TYPE");
  if (item && status) *item += kPartsFrom + *status;
  return item;
}

Item RimItem(store::RecordSet& row) {
  const auto primary = TextOf(row, "PRIM_SEAL");
  if (!primary) return {};
  return fmt::format("{}/{}/{}", *primary, row.TextOrEmpty("SECND_SEAL"),
                     row.BoolOrFalse("WELDED") ? shell::kWelded : shell::kRiveted);
}

/// Takes the text up to the first slash, and that slash, off an item; the whole item when it has none.
std::string_view TakePart(std::string_view& item) {
  const auto end = item.find(kPartsFrom);
  const auto part = item.substr(0, end);
  item = end == std::string_view::npos ? std::string_view() : item.substr(end + 1);
  return part;
}

template <typename... Parts>
Clause Filled(fmt::format_string<const Parts&...> condition, fmt::format_string<const Parts&...> filter,
              const Parts&... parts) {
  return {fmt::format(condition, parts...), fmt::format(filter, parts...)};
}

// The quotes in an item are no others than those around it: one of that kind breaks its clause.

Clause ChemicalClause(std::string_view item) {
  return Filled("((Chemical.NAME= '{}'))", "(({{Chemical.NAME}} = '{}'))", item);
}

Clause MetClause(std::string_view item) { return Filled("((Met.CTYST= \"{}\"))", "(({{Met.CTYST}} = \"{}\"))", item); }

Clause FitClause(std::string_view item) {
  if (item.find(kPartsFrom) == std::string_view::npos) {
    return Filled("((fitting.Fit_TYPE= '{}'))", "(({{fitting.Fit_TYPE}} = '{}'))", item);
  }
  const auto type = TakePart(item);
  return Filled("((fitting.Fit_TYPE = '{}' AND fitting.COVR_TYPE = '{}'))",
                "(({{fitting.Fit_TYPE}} = '{}' AND {{fitting.COVR_TYPE}} = '{}'))", type, item);
}

Clause RimClause(std::string_view item) {
  const auto primary = store::WithoutBlanks(TakePart(item));
  const auto secondary = store::WithoutBlanks(TakePart(item));
  const bool welded = item == shell::kWelded;
  return Filled(
      "((rimseal.Prim_SEAL = '{}') AND (rimseal.Secnd_SEAL ='{}') AND (rimseal.WELDED = {}) AND (rimseal.RIVETED = "
      "{}))",
      "(({{rimseal.Prim_SEAL}} = '{}') AND ({{rimseal.Secnd_SEAL}} = '{}') AND ({{rimseal.WELDED}} = {}) AND "
      "({{rimseal.RIVETED}} = {}))",
      primary, secondary, std::string_view(welded ? "True" : "False"), std::string_view(welded ? "False" : "True"));
}

Clause DeckClause(std::string_view item) {
  return Filled("((deckseam.Name = '{}'))", "(({{deckseam.Name}} = '{}'))", item);
}

Clause ProfileClause(std::string_view item) {
  return Filled("(([Profile Names].[Profile Name] = '{}'))", "(({{Profile Names.Profile Name}} = '{}'))", item);
}

constexpr std::string_view kSeals = "Primary Seal/Secondary Seal/Welded or Riveted";

constexpr ReferenceReport kReports[] = {
    {"Chemical", "Chemical Report", "Chemcial Name", "Chemcal Name", "Chemical", "Select * from Chemical where ",
     "Chemical", ChemicalItem, ChemicalClause},
    {"Met", "Meteorological Report", "City, State", "City, State", "Met", "Select * from Met where ", "Met", MetItem,
     MetClause},
    // The head of this query has always lacked a word: a report on some fittings ends in the store's syntax error.
    {"Fit", "Fitting Report", "Fitting Type/Cover Type", "Fitting Type/Cover Type", "fitting",
     "Select * fitting where ", "Fit", FitItem, FitClause},
    {"Rim", "Rim Seal Report", kSeals, kSeals, "rimseal", "Select * from rimseal where ", "Rim", RimItem, RimClause},
    {"Deck", "Deck Seam Report", "Name", "Name", "deckseam", "Select * from deckseam where ", "Deck", DeckItem,
     DeckClause},
    {"Profile", "Speciation Profile Report", "Profile Name", "Profile Name", "Profile Names",
     "Select * from [profile names] where ", "Speciation", ProfileItem, ProfileClause},
};

}  // namespace

const ReferenceReport kImportReport = {"Import", "Import Report", "",      "",     "import errors",
                                       "",       "Import",        nullptr, nullptr};

std::span<const ReferenceReport> ReferenceReports() { return kReports; }

const ReferenceReport* FindReferenceReport(std::string_view print_mode) {
  const auto* found = std::ranges::find(kReports, print_mode, &ReferenceReport::print_mode);
  return found == std::end(kReports) ? nullptr : found;
}

}  // namespace orvex::reports
