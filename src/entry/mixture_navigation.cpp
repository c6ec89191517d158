#include <fmt/format.h>

#include "entry/bound_record.h"
#include "entry/liquid_form.h"
#include "entry/liquid_lists.h"
#include "entry/mixture_page.h"
#include "shell/status.h"
#include "shell/trap.h"

namespace orvex::entry {
namespace {

using shell::Session;
using std::int32_t;

constexpr const char* kNoName = "Mixture name cannot be null.  Delete this mixture if you do not wish to save it.";
constexpr const char* kDuplicateName = "Duplicate Mixture Name";

/// At this mixture Next is off, though Add still goes on.
constexpr int32_t kLastByNext = 12;

/// What to do where the next number has no mixture.
enum class Missing : std::uint8_t { kStay, kAdd };

void Refuse(Session& session, const char* reason) { shell::Tell(session.host, reason, shell::Icon::kExclamation); }

/// Counts the tank's mixtures on the way.
bool AnotherHasTheName(Session& session, FrmTank& form) {
  const auto name = MixtureName(form);
  bool found = false;
  form.mixtures = 0;
  auto mixtures = session.ClientDb->OpenMatching("mixtures", "IDMIX", {form.ID});
  for (; !mixtures.AtEnd(); mixtures.MoveNext()) {
    ++form.mixtures;
    found = found || (mixtures.Long("MIX ID") != form.MixID && mixtures.TextOrEmpty("MIX NAME") == name);
  }
  return found;
}

/// Stores the mixture shown with its properties; false when it cannot be left, which the person is told.
bool LeaveMixture(Session& session, FrmTank& form) {
  CommitMixture(session, form);
  if (MixtureNameIsEmpty(form)) {
    Refuse(session, kNoName);
    return false;
  }
  ClickCalcProp(session, form);
  if (!AnotherHasTheName(session, form)) return true;
  Refuse(session, kDuplicateName);
  return false;
}

void AddMixtureRow(Session& session, int32_t ID, int32_t MixID) {
  auto mixtures = session.ClientDb->OpenTable("mixtures");
  mixtures.AddNew();
  mixtures.Set("ID", ID);
  mixtures.Set("MIX ID", MixID);
  mixtures.Update();
}

void Go(Session& session, FrmTank& form, std::string_view routine, int32_t step, Missing missing) {
  const shell::BusyScope busy(session, "Processing");
  shell::Trapped(session, routine, [&] {
    if (!LeaveMixture(session, form)) return;
    const int32_t next = form.MixID + step;
    if (session.ClientDb->OpenAt("mixtures", "IDMIX", {form.ID, next}).NoMatch()) {
      if (missing == Missing::kStay) return;
      AddMixtureRow(session, form.ID, next);
    }
    form.MixID = next;
    ShowMixture(session, form);
  });
}

void SetCommands(FrmTank& form) {
  form.cmdAdd.enabled = true;
  form.cmdPrevMix.enabled = form.MixID != 1;
  form.cmdNextMix.enabled = form.MixID != kLastByNext && form.MixID != form.mixtures;
}

}  // namespace

void ShowMixture(Session& session, FrmTank& form) {
  form.mixtures = static_cast<int32_t>(session.ClientDb->OpenMatching("mixtures", "IDMIX", {form.ID}).RecordCount());
  shell::Statement([&] { ShowMixtureRow(session, form); });
  FillChemicalLists(session, form);
  ShowForm(session, form);
  EnableTemperatures(form);
  form.lblMixtureXofX.text = fmt::format("Mixture {} of {}", form.MixID, form.mixtures);
  SetCommands(form);
}

void ClickAdd(Session& session, FrmTank& form) { Go(session, form, "frmTank.cmdAdd_Click", 1, Missing::kAdd); }

void ClickNextMix(Session& session, FrmTank& form) { Go(session, form, "frmTank.cmdNextMix_Click", 1, Missing::kStay); }

void ClickPrevMix(Session& session, FrmTank& form) {
  Go(session, form, "frmTank.cmdprevmix_Click", -1, Missing::kStay);
}

}  // namespace orvex::entry
