#include <QVBoxLayout>

#include "shell/frmoverview.h"
#include "windows/pictures.h"
#include "windows/text_view.h"
#include "windows/views.h"

namespace orvex::windows {
namespace {

constexpr std::string_view kParagraphs[] = {"lblPurpose", "lblTanks", "lblDatabases", "lblEquations"};
constexpr int kIconLines = 4;

class FrmoverviewView : public TextView {
 public:
  explicit FrmoverviewView(const ViewPlace& place) : TextView(place, shell::kFrmoverviewText) {
    const int line = fontMetrics().lineSpacing();
    auto* icon = new QLabel(this);
    icon->setPixmap(Picture(QStringLiteral("orvex"), QSize(line, line) * kIconLines, devicePixelRatioF(), palette()));
    auto* texts = new QVBoxLayout;
    texts->setSpacing(line * 2 / 3);
    for (const auto name : kParagraphs) texts->addWidget(MakeText(name));
    texts->addStretch(1);
    auto* row = new QHBoxLayout;
    row->setSpacing(line);
    row->addWidget(icon, 0, Qt::AlignTop);
    row->addLayout(texts, 1);
    auto* column = new QVBoxLayout(this);
    column->addLayout(row, 1);
    column->addSpacing(line / 2);
    column->addLayout(MakeOkRow());
  }
};

}  // namespace

std::unique_ptr<ModelDialog> MakeFrmoverview(const ViewPlace& place) {
  return std::make_unique<FrmoverviewView>(place);
}

}  // namespace orvex::windows
