#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QTimer>
#include <QVBoxLayout>

#include "shell/frmstart.h"
#include "windows/display_text.h"
#include "windows/model_view.h"
#include "windows/pictures.h"
#include "windows/views.h"

namespace orvex::windows {
namespace {

constexpr QSize kLogoSize(480, 240);
constexpr int kMargin = 28;
constexpr double kVersionScale = 1.6;

class FrmstartView : public ModelView<shell::Frmstart> {
 public:
  explicit FrmstartView(const ViewPlace& place) : ModelView(place, shell::kFrmstartText, shell::Frmstart()) {
    setWindowFlag(Qt::FramelessWindowHint);
    auto* logo = MakeParagraph("imgLogo");
    const auto& tip = shell::kFrmstartControls[0].tip;
    logo->setToolTip(PlainToolTip(Shown(tip)));
    logo->setAccessibleName(Shown(tip));
    logo->setPixmap(Picture(QStringLiteral("logo"), kLogoSize, devicePixelRatioF(), palette()));
    logo->setAlignment(Qt::AlignCenter);
    auto* version = MakeParagraph("lblVersion");
    version->setAlignment(Qt::AlignCenter);
    auto large = version->font();
    large.setPointSizeF(large.pointSizeF() * kVersionScale);
    large.setBold(true);
    version->setFont(large);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    column->addWidget(logo, 1);
    column->addWidget(version);
    timer_.setSingleShot(true);
    connect(&timer_, &QTimer::timeout, this, [this] { End(); });
    AlsoDraw([this] {
      if (!model_.timer_enabled) timer_.stop();
    });
  }

  void reject() override { End(); }

 protected:
  void showEvent(QShowEvent* event) override {
    ModelDialog::showEvent(event);
    timer_.start(shell::kSplashTime);
  }
  void paintEvent(QPaintEvent* event) override {
    ModelDialog::paintEvent(event);
    // Without a frame of the desktop's it would run into what stands behind it.
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
  }
  void mousePressEvent(QMouseEvent*) override { End(); }
  void keyPressEvent(QKeyEvent*) override { End(); }

 private:
  void End() {
    Act([this] { shell::EndFrmstart(model_); });
  }

  QTimer timer_;
};

}  // namespace

std::unique_ptr<ModelDialog> MakeFrmstart(const ViewPlace& place) { return std::make_unique<FrmstartView>(place); }

}  // namespace orvex::windows
