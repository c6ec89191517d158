#include "windows/report_page.h"

#include <QFileInfo>
#include <QWebEngineLoadingInfo>
#include <QWebEngineScript>
#include <utility>

#include "windows/landscape.h"

namespace orvex::windows {
namespace {

constexpr int kAskEveryMs = 20;
constexpr int kAnswerWithinMs = 1000;

/// The page's state, a line end, and the sentence in which it tells the person of it. Asked in a world of its own,
/// where the page's scripts can't answer in its stead.
const QString kAskState = QStringLiteral(
    "(() => { const told = document.querySelector('[role=\"alert\"], [role=\"status\"]');"
    " return (document.documentElement.dataset.state || '') + '\\n' + (told ? told.textContent.trim() : ''); })()");

const QString kPreparePrint = QStringLiteral(
    "(() => { try { return String(orvex.preparePrint()); } catch (fault) { return String(fault); } })()");
const QString kFinishPrint = QStringLiteral("orvex.finishPrint(); undefined");
const QString kReadTable =
    QStringLiteral("(() => { try { return orvex.tableContent() || {}; } catch { return {}; } })()");

QString PathText(const std::filesystem::path& path) {
  return QFileInfo(QString::fromStdString(path.string())).absoluteFilePath();
}

QString FolderOf(const std::filesystem::path& page) { return QFileInfo(PathText(page)).absolutePath(); }

/// The engine's page without what a report has no use for: other places, other windows, questions, console lines.
class QuietPage : public QWebEnginePage {
 public:
  explicit QuietPage(FolderProfile& profile) : QWebEnginePage(&profile), guard_(profile.Guard()) {}

 protected:
  bool acceptNavigationRequest(const QUrl& url, NavigationType, bool) override { return guard_.Allows(url); }
  QWebEnginePage* createWindow(WebWindowType) override { return nullptr; }
  void javaScriptAlert(const QUrl&, const QString&) override {}
  bool javaScriptConfirm(const QUrl&, const QString&) override { return false; }
  bool javaScriptPrompt(const QUrl&, const QString&, const QString&, QString*) override { return false; }
  void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString&, int, const QString&) override {}

 private:
  const FolderGuard& guard_;
};

}  // namespace

ReportPage::ReportPage(const std::filesystem::path& page, QObject* parent)
    : QObject(parent), path_(PathText(page)), profile_(FolderOf(page)), page_(std::make_unique<QuietPage>(profile_)) {
  ask_.setInterval(kAskEveryMs);
  connect(&ask_, &QTimer::timeout, this, &ReportPage::AskState);
  connect(page_.get(), &QWebEnginePage::loadingChanged, this, &ReportPage::TakeLoading);
  connect(page_.get(), &QWebEnginePage::renderProcessTerminated, this, [this] {
    ended_ = true;
    Fail(QStringLiteral("The page '%1' ended unexpectedly.").arg(path_));
  });
}

ReportPage::~ReportPage() { here_.reset(); }

void ReportPage::Open() {
  state_.clear();
  if (!QFileInfo(path_).isFile()) return Fail(QStringLiteral("The page '%1' is not there.").arg(path_));
  page_->load(QUrl::fromLocalFile(path_));
  // From here on, since a link that is refused meanwhile takes the place of the news that the page was read.
  ask_.start();
}

void ReportPage::TakeLoading(const QWebEngineLoadingInfo& info) {
  // A link or frame that the guard refused counts as a failed load too, of another place.
  if (info.status() == QWebEngineLoadingInfo::LoadFailedStatus && info.url() == QUrl::fromLocalFile(path_))
    Fail(QStringLiteral("The page '%1' cannot be loaded.").arg(path_));
}

bool ReportPage::IsShown() const { return !ended_ && page_->url() == QUrl::fromLocalFile(path_); }

void ReportPage::AskState() {
  // An answer may never come when the page took the place of the empty one meanwhile.
  if (asked_.isValid() && asked_.elapsed() < kAnswerWithinMs) return;
  asked_.start();
  page_->runJavaScript(kAskState, QWebEngineScript::ApplicationWorld, WhileHere([this](const QVariant& answer) {
                         asked_.invalidate();
                         const auto text = answer.toString();
                         TakeState(text.section(QLatin1Char('\n'), 0, 0), text.section(QLatin1Char('\n'), 1));
                       }));
}

void ReportPage::TakeState(const QString& state, const QString& sentence) {
  if (!ask_.isActive()) return;
  if (std::exchange(state_, state) == state) return;
  if (state == QLatin1String("ready")) {
    ask_.stop();
    Q_EMIT Ready();
  }
  // Of these two there is more to come: the person may hand the page its file.
  if (state == QLatin1String("waiting")) Q_EMIT Waiting(sentence);
  if (state == QLatin1String("failed"))
    Q_EMIT Failed(sentence.isEmpty() ? QStringLiteral("The page '%1' failed.").arg(path_) : sentence);
}

void ReportPage::Fail(const QString& sentence) {
  ask_.stop();
  Q_EMIT Failed(sentence);
}

void ReportPage::ReadTable(std::function<void(const PageTable&)> done) {
  page_->runJavaScript(
      kReadTable, WhileHere([done = std::move(done)](const QVariant& answer) {
        const auto table = answer.toMap();
        done({table.value(QStringLiteral("text")).toString(), table.value(QStringLiteral("html")).toString()});
      }));
}

void ReportPage::PreparePrint(std::function<void(const QString&)> done) {
  page_->runJavaScript(kPreparePrint, WhileHere([this, done = std::move(done)](const QVariant& answer) {
                         const auto sheets = answer.toString();
                         bool counted = false;
                         if (sheets.toInt(&counted) > 0 && counted) return done({});
                         done(QStringLiteral("The page '%1' cannot be laid out for printing%2.")
                                  .arg(path_, sheets.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(sheets)));
                       }));
}

void ReportPage::FinishPrint() { page_->runJavaScript(kFinishPrint); }

void ReportPage::MakePdf(Paper paper, PdfDone done) {
  PreparePrint([this, paper, done = std::move(done)](const QString& fault) {
    if (!fault.isEmpty()) return done({}, fault);
    page_->printToPdf(WhileHere([this, done](const QByteArray& pdf) {
                        FinishPrint();
                        done(pdf,
                             pdf.isEmpty() ? QStringLiteral("The page '%1' cannot be printed.").arg(path_) : QString());
                      }),
                      Landscape(paper));
  });
}

}  // namespace orvex::windows
