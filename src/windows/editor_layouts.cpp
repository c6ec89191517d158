#include "windows/editor_layouts.h"

#include <algorithm>
#include <iterator>

#include "refdata/chemical_entries.h"
#include "refdata/met_entries.h"

namespace orvex::windows {
namespace {

constexpr GroupLayout kLayouts[] = {
    {refdata::kOption1, GroupShape::kLine, true},
    {refdata::kOption2, GroupShape::kLine},
    {refdata::kOption3, GroupShape::kLine},
    {refdata::kMaximumTemperature, GroupShape::kMonths},
    {refdata::kMinimumTemperature, GroupShape::kMonths},
    {refdata::kInsolation, GroupShape::kMonths},
    {refdata::kWindSpeed, GroupShape::kMonths},
};

}  // namespace

GroupLayout LayoutOf(std::string_view heading) {
  const auto* found = std::ranges::find(kLayouts, heading, &GroupLayout::heading);
  return found == std::end(kLayouts) ? GroupLayout{heading, GroupShape::kColumn} : *found;
}

}  // namespace orvex::windows
