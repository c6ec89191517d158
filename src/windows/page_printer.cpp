#include "windows/page_printer.h"

#include <fmt/format.h>

#include <QEventLoop>
#include <QTimer>
#include <QWebEngineView>
#include <string>
#include <string_view>
#include <system_error>

#include "store/file_replacement.h"
#include "store/run_time_error.h"
#include "windows/landscape.h"
#include "windows/report_page.h"
#include "windows/web_application.h"

namespace orvex::windows {
namespace {

constexpr int kScreenDpi = 96;

/// Works the page's event loop until there is a PDF, a fault, or no time left.
QByteArray Pdf(const PrintJob& job) {
  ReportPage page(job.page);
  // A page behind no window has no width, and its animation frames stand still.
  QWebEngineView view;
  view.setAttribute(Qt::WA_DontShowOnScreen);
  view.setPage(&page.Page());
  view.resize(Landscape(job.paper).paintRectPixels(kScreenDpi).size());
  view.show();

  QEventLoop loop;
  QByteArray result;
  QString fault;
  const auto end = [&](const QByteArray& pdf, const QString& sentence) {
    result = pdf;
    fault = sentence;
    loop.quit();
  };
  const auto give_up = [&](const QString& sentence) { end({}, sentence); };
  QObject::connect(&page, &ReportPage::Ready, &loop, [&] { page.MakePdf(job.paper, end); });
  QObject::connect(&page, &ReportPage::Waiting, &loop, give_up);
  QObject::connect(&page, &ReportPage::Failed, &loop, give_up);
  QTimer limit;
  limit.setSingleShot(true);
  QObject::connect(&limit, &QTimer::timeout, &loop, [&] {
    give_up(QString::fromStdString(
        fmt::format("The page '{}' was not printed within {} seconds.", job.page.string(), job.limit.count())));
  });
  limit.start(job.limit);
  QTimer::singleShot(0, &page, &ReportPage::Open);
  loop.exec();
  view.setPage(nullptr);
  if (result.isEmpty()) throw PageFailure(fault.toStdString());
  return result;
}

}  // namespace

void PrintPage(const PrintJob& job) {
  std::error_code unreadable;
  if (!std::filesystem::is_regular_file(job.page, unreadable))
    throw store::RunTimeError(store::ErrorNumber::kFileNotFound,
                              fmt::format("The page '{}' is not there.", job.page.string()));
  // A file that can't be written is told of at once rather than after a long run.
  { const store::FileReplacement trial(job.file); }
  const WebApplication application("orvex-pdf", Screen::kNone);
  const auto pdf = Pdf(job);
  store::FileReplacement file(job.file);
  file.Write(std::string_view(pdf.constData(), static_cast<std::size_t>(pdf.size())));
  file.Commit();
}

}  // namespace orvex::windows
