#include <algorithm>

#include "entry/mixture_page.h"
#include "shell/status.h"
#include "shell/trap.h"

namespace orvex::entry {
namespace {

using shell::Session;
using std::int32_t;

constexpr std::string_view kOnlyLabel = "Mixture 1 of 1";
constexpr const char* kOnlyMixture = "This is the only mixture for this tank.  It cannot be deleted.";

/// Numbers the tank's mixtures from 1 in the order of the table. Their components keep the old numbers.
void Renumber(Session& session, int32_t ID) {
  // No two mixtures may share a number even in between, and the table need not be in the order of the numbers: each
  // takes a number below zero first, which is free.
  for (const int32_t sign : {-1, 1}) {
    int32_t number = 0;
    auto mixtures = session.ClientDb->OpenMatching("mixtures", "IDMIX", {ID});
    for (; !mixtures.AtEnd(); mixtures.MoveNext()) {
      mixtures.Edit();
      mixtures.Set("MIX ID", sign * ++number);
      mixtures.Update();
    }
  }
}

/// Deletes the mixture shown, and gives the name that it had.
std::string DeleteMixture(Session& session, const FrmTank& form) {
  store::Transaction transaction(*session.ClientDb);
  auto mixture = session.ClientDb->OpenAt("mixtures", "IDMIX", {form.ID, form.MixID});
  auto name = mixture.TextOrEmpty("MIX NAME");
  mixture.Delete();
  Renumber(session, form.ID);
  transaction.Commit();
  return name;
}

}  // namespace

void ClickDelete(Session& session, FrmTank& form) {
  shell::Trapped(session, "frmTank.cmdDelete_Click", [&] {
    if (form.lblMixtureXofX.text == kOnlyLabel) {
      shell::Tell(session.host, kOnlyMixture, shell::Icon::kExclamation);
      return;
    }
    const auto name = DeleteMixture(session, form);
    for (auto& month : form.months) {
      if (month.cboMix.text != name) continue;
      month.cboMix.text.clear();
      month.cboMix.items.clear();
    }
    form.MixID = std::max(form.MixID - 1, 1);
    ShowMixture(session, form);
  });
}

}  // namespace orvex::entry
