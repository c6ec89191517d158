#include "entry/frmspecpro.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>

#include "entry/liquid_form.h"
#include "entry/tank_entry.h"
#include "shell/status.h"
#include "shell/tank_types.h"
#include "shell/trap.h"

namespace orvex::entry {
namespace {

using shell::Session;
using store::RecordSet;

constexpr std::string_view kRoutine = "frmSpecPro.";

/// The profiles that fit a speciation option.
struct ProfileType {
  std::string_view option, type;
};
constexpr ProfileType kProfileTypes[] = {
    {shell::kFullSpeciation, "Full"},
    {shell::kPartialSpeciation, "Partial"},
    {shell::kVaporWeightSpeciation, "Vapor"},
};

constexpr std::string_view kTexts[] = {"NAME", "CAS"};
constexpr std::string_view kNumbers[] = {"WT_FRACT", "VP_FRACT", "WEIGHT", "MOLWT", "VP_MOLWT"};

/// The profile of this name; 0, which none has, if it is gone.
std::int32_t SpecID(Session& session, const std::string& name) {
  auto profile = session.ReferenceDb->OpenAt("profile names", "Profile Name", {name});
  std::int32_t spec_id = 0;
  shell::Statement([&] { spec_id = profile.Long("SPEC ID"); });
  return spec_id;
}

void CopyComponent(RecordSet& from, RecordSet& to) {
  for (const auto field : kTexts) to.Set(field, from.TextOrEmpty(field));
  for (const auto field : kNumbers) to.Set(field, from.DoubleOrZero(field));
}

void CopyProfile(Session& session, const FrmTank& editor, const std::string& name) {
  session.ClientDb->DeleteMatching("components", "IDMIX", {editor.ID, editor.MixID});
  auto profile = session.ReferenceDb->OpenMatching("profile components", "Spec ID", {SpecID(session, name)});
  auto components = session.ClientDb->OpenTable("components");
  for (std::int32_t number = 1; !profile.AtEnd(); profile.MoveNext(), ++number) {
    components.AddNew();
    components.Set("ID", editor.ID);
    components.Set("MIX ID", editor.MixID);
    components.Set("COMP ID", number);
    CopyComponent(profile, components);
    components.Update();
  }
}

}  // namespace

std::vector<std::string> ProfileNames(Session& session, FrmTank& editor) {
  std::vector<std::string> names;
  const auto* type = std::ranges::find(kProfileTypes, SpeciationOption(session, editor), &ProfileType::option);
  if (type == std::end(kProfileTypes)) return names;
  auto profiles = session.ReferenceDb->OpenQuery(
      fmt::format("SELECT [Profile Name] FROM [profile names] WHERE TYPE = '{}' AND [Profile Name] IS NOT NULL ORDER "
                  "BY [Profile Name]",
                  type->type));
  for (; !profiles.AtEnd(); profiles.MoveNext()) names.push_back(profiles.Text("Profile Name"));
  return names;
}

Frmspecpro OpenFrmspecpro(Session& session) {
  Frmspecpro form;
  shell::Trapped(session, kRoutine, [&] { form.lstProfiles.items = ProfileNames(session, Editor(session)); });
  return form;
}

void PickProfile(Session&, Frmspecpro& form, std::size_t row) {
  form.lstProfiles.selected = {row};
  form.cmdOK.enabled = true;
}

void ClickOK(Session& session, Frmspecpro& form) {
  const shell::BusyScope busy(session, "Processing");
  const auto& name = form.lstProfiles.items.at(form.lstProfiles.selected.at(0));
  shell::Trapped(session, kRoutine, [&] {
    store::Transaction transaction(*session.ClientDb);
    CopyProfile(session, Editor(session), name);
    transaction.Commit();
    form.window.closed = true;
  });
}

void ClickCancel(Session&, Frmspecpro& form) { form.window.closed = true; }

void ClickHelp(Session& session, Frmspecpro&) { session.host.ShowHelp(std::string(kFrmspecproText.topic)); }

}  // namespace orvex::entry
