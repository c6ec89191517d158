#include <QLineEdit>

#include "shell/frmclientdata.h"
#include "windows/locate_view.h"
#include "windows/views.h"

namespace orvex::windows {
namespace {

class FrmclientdataView : public LocateView<shell::Frmclientdata> {
 public:
  explicit FrmclientdataView(const ViewPlace& place)
      : LocateView(place, shell::kFrmclientdataText, shell::OpenFrmclientdata(place.session)) {
    LayOut("txtClientPath", MakeTextBox("txtClientPath", model_.txtClientPath, {}));
  }
};

}  // namespace

std::unique_ptr<ModelDialog> MakeFrmclientdata(const ViewPlace& place) {
  return std::make_unique<FrmclientdataView>(place);
}

}  // namespace orvex::windows
