#include "entry/component_row.h"
#include "shell/trap.h"

namespace orvex::entry {
namespace {

using shell::Session;
using Fields = std::span<const std::string_view>;

/// What the switch to a mode does.
struct Switch {
  std::string_view from_caption;  ///< of the command in the mode that is left
  std::string_view to_mode;
  Fields cleared;
};
constexpr std::string_view kClearedForWeights[] = {"WT_FRACT"};
constexpr std::string_view kClearedForPercents[] = {"WEIGHT", "WT_FRACT"};
constexpr Switch kSwitches[] = {
    {"Use Relative Weight", kWeightMode, kClearedForWeights},
    {"Use Percent of Weight", kPercentMode, kClearedForPercents},
};

/// In the rows of all mixtures of the tank.
void ClearInTank(Session& session, std::int32_t ID, Fields fields) {
  for (auto rows = session.ClientDb->OpenMatching("components", "IDMIX", {ID}); !rows.AtEnd(); rows.MoveNext()) {
    rows.Edit();
    for (const auto field : fields) rows.Set(field, 0.0);
    rows.Update();
  }
}

}  // namespace

void ClickRelative(Session& session, Frmcomponent& form) {
  shell::TrappedWriting(session, *session.ClientDb, kComponentRoutine, [&] {
    const auto caption = form.cmdRelativeCaption.text;
    for (const auto& to : kSwitches) {
      if (to.from_caption != caption) continue;
      ClearInTank(session, form.ID, to.cleared);
      UseBasis(form, FindBasis(form.SpecOpt, to.to_mode));
      ShowShare(session, form);
      ShowSum(form, 0);
    }
  });
}

}  // namespace orvex::entry
