#include <QLineEdit>

#include "shell/frmtankdata.h"
#include "windows/locate_view.h"
#include "windows/views.h"

namespace orvex::windows {
namespace {

class FrmtankdataView : public LocateView<shell::Frmtankdata> {
 public:
  explicit FrmtankdataView(const ViewPlace& place)
      : LocateView(place, shell::kFrmtankdataText, shell::OpenFrmtankdata(place.session)) {
    LayOut("txtTankPath", MakeTextBox("txtTankPath", model_.txtTankPath, {}));
  }
};

}  // namespace

std::unique_ptr<ModelDialog> MakeFrmtankdata(const ViewPlace& place) {
  return std::make_unique<FrmtankdataView>(place);
}

}  // namespace orvex::windows
