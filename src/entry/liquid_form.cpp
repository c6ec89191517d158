#include "entry/liquid_form.h"

#include <algorithm>

#include "entry/mixture_page.h"
#include "shell/tank_types.h"

namespace orvex::entry {
namespace {

constexpr Section kForms[] = {Section::kSingle, Section::kPartial, Section::kFull};

struct OptionForm {
  std::string_view option;
  Section form;
};

constexpr OptionForm kOptionForms[] = {
    {shell::kFullSpeciation, Section::kFull},
    {shell::kPartialSpeciation, Section::kPartial},
    {shell::kVaporWeightSpeciation, Section::kPartial},
    {shell::kNoSpeciation, Section::kPartial},
};

/// Of a partial form whose name is a chemical, what the table gives.
constexpr std::string_view kTableProperties[] = {"MOLWT", "VP_MOLWT", "L_DENS", "VP", "VP_MIN", "VP_MAX"};
constexpr std::string_view kTemperatures[] = {"ALS_TEMP", "MLS_TEMP", "XLS_TEMP", "BULK_TEMP"};

std::optional<Section> FormOf(FrmTank& form, std::string_view option) {
  const auto kind = StoredText(At(form, "cboSingleMultiple"));
  if (kind == shell::kSingle) return Section::kSingle;
  if (kind != shell::kMultiple) return std::nullopt;
  const auto* found = std::ranges::find(kOptionForms, option, &OptionForm::option);
  return found == std::end(kOptionForms) ? std::nullopt : std::optional(found->form);
}

void EnableFields(FrmTank& form, Section section, std::span<const std::string_view> fields, bool enabled) {
  for (auto& entry : EntriesOf(form, section))
    if (std::ranges::find(fields, entry.info->field) != fields.end()) entry.box.enabled = enabled;
}

}  // namespace

void ShowForm(shell::Session& session, FrmTank& form) {
  const auto option = SpeciationOption(session, form);
  form.form = FormOf(form, option);
  At(form, "cboSpecOpt").box.visible = StoredText(At(form, "cboSingleMultiple")) == shell::kMultiple;
  // Without speciation nothing asks for the weight of the liquid or for components.
  const bool speciated = option != shell::kNoSpeciation;
  At(form, "txtMolWtPartial").box.visible = speciated;
  form.cmdSpecCompPartial.visible = form.cmdCopySpecPartial.visible = form.form == Section::kPartial && speciated;
  form.cmdSpecCompFull.visible = form.cmdCopySpecFull.visible = form.form == Section::kFull;
  if (form.form != Section::kPartial) return;
  EnableProperties(form, session.ReferenceDb->OpenAt("chemical", "chemname", {MixtureName(form)}).NoMatch());
}

void EnableProperties(FrmTank& form, bool enabled) { EnableFields(form, Section::kPartial, kTableProperties, enabled); }

void EnableTemperatures(FrmTank& form) {
  for (const auto section : kForms) EnableFields(form, section, kTemperatures, IsHeated(form));
}

std::string SpeciationOption(shell::Session& session, FrmTank& form) {
  const auto& shown = At(form, "cboSpecOpt").box.text;
  if (!shown.empty()) return shown;
  auto row = session.ClientDb->OpenAt("mixtures", "IDMIX", {form.ID, form.MixID});
  return row.NoMatch() ? std::string() : row.TextOrEmpty("SPEC_OPT");
}

std::string MixtureName(FrmTank& form) {
  const auto* shown = FindLiquid(form, "MIX NAME");
  return shown != nullptr ? StoredText(*shown) : At(form, "dbcboMixNameFull").committed;
}

bool MixtureNameIsEmpty(FrmTank& form) { return MixtureName(form).empty(); }

bool IsHeated(FrmTank& form) {
  const auto* heated = FindPhysical(form, "HEATED");
  return heated != nullptr && IsYes(*heated);
}

void Put(Entry& entry, std::string_view text) {
  entry.box.text = text;
  entry.refusal.clear();
}

}  // namespace orvex::entry
