#include "refdata/profile_entries.h"

#include <fmt/format.h>

#include <cmath>

#include "refdata/profile_types.h"
#include "shell/entry_number.h"
#include "shell/entry_text.h"
#include "shell/number_format.h"
#include "shell/status.h"
#include "store/field_table.h"
#include "store/value.h"

namespace orvex::refdata {
namespace {

/// A number of a component, and its entry.
struct BoundNumber {
  std::string_view control;
  std::optional<double> ProfileComponent::*number;
  shell::TextBox FrmProfile::*box;
};
constexpr BoundNumber kNumbers[] = {
    {"txtMOLWT", &ProfileComponent::MOLWT, &FrmProfile::txtMOLWT},
    {"txtVP_MOLWT", &ProfileComponent::VP_MOLWT, &FrmProfile::txtVP_MOLWT},
    {"txtWT_FRACT", &ProfileComponent::WT_FRACT, &FrmProfile::txtWT_FRACT},
    {"txtVP_FRACT", &ProfileComponent::VP_FRACT, &FrmProfile::txtVP_FRACT},
    {"txtWEIGHT", &ProfileComponent::WEIGHT, &FrmProfile::txtWEIGHT},
};

struct BoundText {
  std::string_view control, field;
  std::string ProfileComponent::*text;
  shell::ComboBox FrmProfile::*list;
};
constexpr BoundText kTexts[] = {
    {"dbcboChemName", "NAME", &ProfileComponent::NAME, &FrmProfile::dbcboChemName},
    {"dbcboCAS", "CAS", &ProfileComponent::CAS, &FrmProfile::dbcboCAS},
};

std::string ShownNumber(std::optional<double> number) { return number ? store::Value(*number).AsText() : "0"; }

std::string SumText(const ProfileRecord& profile) {
  const double sum = SumOfShares(profile);
  if (!std::isfinite(sum)) return "Sum: too large";
  return fmt::format("Sum: {}{}", shell::FormatTwoToSixDecimals(sum), profile.relative ? "" : " of 100");
}

void ShowPlace(FrmProfile& form) {
  const auto count = form.profile.components.size();
  form.lblComponentXofX.text = fmt::format("Component {} of {}", form.component + 1, count);
  form.cmdPrevComp.enabled = form.component > 0;
  form.cmdNextComp.enabled = form.component + 1 < count;
}

void EnableEntries(FrmProfile& form) {
  const bool own = form.user_defined;
  form.picProfile.enabled = form.cboType.enabled = form.cmdAdd.enabled = form.cmdDeleteComp.enabled = own;
  form.cmdRelLiq.visible = form.profile.Type == kFullType;
  form.cmdRelLiq.enabled = own && form.cmdRelLiq.visible;
  for (const auto& bound : kTexts) (form.*bound.list).enabled = own;
  for (const auto& bound : kNumbers) (form.*bound.box).enabled = own;
  for (auto* box : {&form.txtWT_FRACT, &form.txtVP_FRACT, &form.txtWEIGHT}) box->visible = false;
  const auto* share = FindShare(form.profile);
  for (const auto& bound : kNumbers) {
    if (share != nullptr && bound.number == share->share) (form.*bound.box).visible = true;
  }
}

bool IsStorable(shell::Session& session, FrmProfile& form, std::string_view control, const std::string& text,
                std::string_view table, std::string_view field) {
  const auto reason = shell::TextRefusal(text, store::FindField(store::FindTable(table), field).width);
  if (reason.empty()) return true;
  shell::Refuse(session.host, form.window, control, reason);
  return false;
}

}  // namespace

ProfileComponent& OnShow(FrmProfile& form) { return form.profile.components.at(form.component); }

void ShowEntries(FrmProfile& form) {
  form.dbcboProfName.text = form.profile.Name;
  form.cboType.text = form.profile.Type;
  const auto& component = OnShow(form);
  for (const auto& bound : kTexts) (form.*bound.list).text = component.*bound.text;
  for (const auto& bound : kNumbers) (form.*bound.box).text = ShownNumber(component.*bound.number);
  form.txtSum.text = SumText(form.profile);
  ShowPlace(form);
  EnableEntries(form);
}

void ShowComponent(FrmProfile& form, std::size_t component) {
  form.component = component;
  ShowEntries(form);
}

bool TakeEntries(shell::Session& session, FrmProfile& form) {
  if (!form.user_defined) return true;
  form.profile.Name = form.dbcboProfName.text;
  auto& component = OnShow(form);
  for (const auto& bound : kTexts) component.*bound.text = (form.*bound.list).text;
  std::string_view refused;
  for (const auto& bound : kNumbers) {
    // A number that was left alone stays as it is stored.
    const auto& text = (form.*bound.box).text;
    if (text == ShownNumber(component.*bound.number)) continue;
    const auto number = shell::ParseEntryNumber(text);
    component.*bound.number = number.value_or(0);
    if (!number && refused.empty()) refused = bound.control;
  }
  ShowEntries(form);
  if (!refused.empty()) shell::Refuse(session.host, form.window, refused, std::string(shell::kNoNumber));
  return refused.empty();
}

bool IsComponentStorable(shell::Session& session, FrmProfile& form) {
  for (const auto& bound : kTexts) {
    if (!IsStorable(session, form, bound.control, OnShow(form).*bound.text, "profile components", bound.field))
      return false;
  }
  return true;
}

bool IsProfileStorable(shell::Session& session, FrmProfile& form) {
  return IsStorable(session, form, "dbcboProfName", form.profile.Name, "profile names", "Profile Name");
}

}  // namespace orvex::refdata
