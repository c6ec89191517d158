#include <QVBoxLayout>

#include "shell/frmnotice.h"
#include "windows/text_view.h"
#include "windows/views.h"

namespace orvex::windows {
namespace {

class FrmNoticeView : public TextView {
 public:
  explicit FrmNoticeView(const ViewPlace& place) : TextView(place, shell::kFrmNoticeText) {
    auto* heading = MakeHeading("lblHeading");
    heading->setAlignment(Qt::AlignHCenter);
    auto* column = new QVBoxLayout(this);
    column->addWidget(heading);
    column->addSpacing(fontMetrics().lineSpacing() / 2);
    column->addWidget(MakeText("lblNotice"), 1, Qt::AlignTop);
    column->addSpacing(fontMetrics().lineSpacing() / 2);
    column->addLayout(MakeOkRow());
  }
};

}  // namespace

std::unique_ptr<ModelDialog> MakeFrmNotice(const ViewPlace& place) { return std::make_unique<FrmNoticeView>(place); }

}  // namespace orvex::windows
