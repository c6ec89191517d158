#include "shell/fix_data.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <string_view>

#include "shell/editing.h"
#include "shell/status.h"
#include "shell/trap.h"
#include "store/database.h"

namespace orvex::shell {
namespace {

constexpr std::int32_t kJetKerosene = 6;  ///< `SPEC ID` of the delivered profile

struct Share {
  std::string_view name;
  double percent;
};
constexpr Share kShares[] = {{"Hexane (-n)", 0.005}, {"Benzene", 0.004}};

constexpr const char* kDone =
    "The update was successful.  If you have used the 'Jet Kerosene' speciation profile in any of your tanks you "
    "should change the liquid weight percents for Hexane (n) and Benzene to 0.005 and 0.004, respectively.";

void SetShares(store::Database& reference) {
  store::Transaction transaction(reference);
  for (auto row = reference.OpenMatching("profile components", "Spec ID", {kJetKerosene}); !row.AtEnd();
       row.MoveNext()) {
    const auto* share = std::ranges::find(kShares, row.TextOrEmpty("NAME"), &Share::name);
    if (share == std::end(kShares)) continue;
    row.Edit();
    row.Set("WT_FRACT", share->percent);
    row.Update();
  }
  transaction.Commit();
}

}  // namespace

void FixData(Session& session) {
  Trapped(session, "MDIForm1.", [&] {
    const auto editing = BeginEditing(session, DatabaseKind::kTank);
    if (!editing) return;
    SetShares(*session.ReferenceDb);
    Tell(session.host, kDone);
  });
}

}  // namespace orvex::shell
