#include "reports/fitting_loss.h"

#include "emission/arithmetic.h"
#include "emission/floating_roof.h"
#include "reports/month_walk.h"
#include "shell/tank_types.h"
#include "shell/trap.h"

namespace orvex::reports {
namespace {

using store::RecordSet;

/// One step of the computation: without a record, or on a null, it is skipped and its result stays.
template <typename Body>
void Step(Body&& body) {
  shell::Statement<store::ErrorNumber::kInvalidUseOfNull>(std::forward<Body>(body));
}

class FittingLoss {
 public:
  FittingLoss(RecordSet& fitting, RecordSet& emission) : fitting_(fitting), emission_(emission) {}

  double OfYear() {
    FindFactor();
    AddLoss(1);
    return loss_;
  }

  double OfMonths() {
    WalkMonths(emission_, [&](std::size_t month, bool present) {
      if (!present) return;
      FindFactor();
      AddLoss(static_cast<double>(shell::kMonths[month].days) / shell::kDaysPerYear);
    });
    return loss_;
  }

 private:
  /// {lb-mole/yr}
  void FindFactor() {
    Step([&] {
      const auto tank_type = emission_.Text("TANK_TYPE");
      if (tank_type == shell::kInternalFloatingRoof || tank_type == shell::kDomedExternalFloatingRoof) {
        factor_ = emission::Finite(fitting_.Double("K_FA") * fitting_.Double("QUANTITY"));
      } else if (tank_type == shell::kExternalFloatingRoof) {
        factor_ = emission::DeckFittingFactor(fitting_.Double("QUANTITY"), fitting_.Double("K_FA"),
                                              fitting_.Double("K_FB"), fitting_.Double("K_M"), emission_.Double("M_V"));
      }
    });
  }

  void AddLoss(double share_of_year) {
    Step([&] {
      loss_ = emission::Finite(loss_ + factor_ * emission_.Double("M_P") * emission_.Double("VP_MOLWT") *
                                           emission_.Double("M_KC") * share_of_year);
    });
  }

  RecordSet& fitting_;
  RecordSet& emission_;
  double factor_ = 0;
  double loss_ = 0;
};

}  // namespace

double OneFit(shell::Session& session, RecordSet& fitting, RecordSet& emission, bool monthly) {
  return shell::Trapped(session, "frmPreview.OneFit", 0.0, [&] {
    FittingLoss loss(fitting, emission);
    return monthly ? loss.OfMonths() : loss.OfYear();
  });
}

}  // namespace orvex::reports
