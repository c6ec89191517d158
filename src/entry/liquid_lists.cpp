#include "entry/liquid_lists.h"

#include <fmt/format.h>

#include "entry/mixture_page.h"
#include "shell/tank_types.h"

namespace orvex::entry {
namespace {

using Items = std::vector<std::string>;

constexpr std::string_view kNameQuery =
    "SELECT DISTINCTROW CHEMICAL.Name AS chem From chemical WHERE ((CHEMICAL.CATEGORY='{}'))ORDER BY chemical.NAME";
constexpr std::string_view kCasQuery =
    "SELECT DISTINCTROW CHEMICAL.CAS From chemical Where ((chemical.CATEGORY = '{}')) GROUP BY CHEMICAL.CAS "
    "HAVING ((CHEMICAL.CAS Is Not Null))ORDER BY chemical.CAS";

constexpr std::string_view kNameLists[] = {"dbcboChemName", "dbcboMixNamePartial", "dbcboMixNameFull"};

constexpr std::string_view kFixedRoofOptions[] = {shell::kFullSpeciation, shell::kPartialSpeciation,
                                                  shell::kVaporWeightSpeciation, shell::kNoSpeciation};
constexpr std::string_view kFloatingRoofOptions[] = {shell::kFullSpeciation, shell::kPartialSpeciation,
                                                     shell::kNoSpeciation};

/// The texts of a query's only field.
Items ItemsOf(shell::Session& session, std::string_view query, std::string_view category, std::string_view field) {
  Items items;
  // An entry of a fixed list holds one of its items or nothing, so that the query has no other text in it.
  if (category.empty()) return items;
  auto rows = session.ReferenceDb->OpenQuery(fmt::format(fmt::runtime(query), category));
  for (; !rows.AtEnd(); rows.MoveNext()) {
    if (auto text = rows.TextOrEmpty(field); !text.empty()) items.push_back(std::move(text));
  }
  return items;
}

}  // namespace

void FillChemicalLists(shell::Session& session, FrmTank& form) {
  const auto category = StoredText(At(form, "cboChemCat"));
  const auto names = ItemsOf(session, kNameQuery, category, "chem");
  for (const auto list : kNameLists) At(form, list).box.items = names;
  At(form, "dbcboCAS").box.items = ItemsOf(session, kCasQuery, category, "CAS");
}

void FillSpeciationOptions(FrmTank& form) {
  auto& option = At(form, "cboSpecOpt");
  if (shell::IsFixedRoof(form.tank_type)) {
    option.box.items.assign(std::begin(kFixedRoofOptions), std::end(kFixedRoofOptions));
  } else {
    option.box.items.assign(std::begin(kFloatingRoofOptions), std::end(kFloatingRoofOptions));
  }
  // Only the choice is taken back: the mixture's row keeps its option.
  option.box.text.clear();
  option.committed.clear();
}

}  // namespace orvex::entry
