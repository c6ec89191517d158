#include "windows/pages.h"

#include <fmt/format.h>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QProcess>
#include <QRegularExpression>

#include "support/file_content.h"

namespace orvex::test {
namespace {

namespace fs = std::filesystem;

QString OutputOf(const QString& program, const QStringList& arguments) {
  QProcess process;
  process.start(program, arguments);
  EXPECT_TRUE(process.waitForFinished(kPatienceMs)) << program.toStdString();
  return QString::fromUtf8(process.readAllStandardOutput());
}

constexpr std::string_view kBriefReport = R"(<?xml version="1.0"?><REPORT>
<TYPE>Brief</TYPE>
<TimePeriod><Value>Annual</Value></TimePeriod>
<Tank><TankName>T-1   -   Horizontal Tank</TankName><TankType>Horizontal Tank</TankType>
<COMPONENT Type="Horizontal Tank"><NAME>Acetone</NAME><WorkingLoss>1,000.25</WorkingLoss>
<BreathingLoss>234.50</BreathingLoss><TotalEmissions>1,234.75</TotalEmissions></COMPONENT></Tank>
<Tank><TankName>T-2   -   Horizontal Tank</TankName><TankType>Horizontal Tank</TankType>
<COMPONENT Type="Horizontal Tank"><NAME>Benzene</NAME><WorkingLoss>2.00</WorkingLoss>
<BreathingLoss>3.00</BreathingLoss><TotalEmissions>5.00</TotalEmissions></COMPONENT></Tank>
</REPORT>)";

constexpr std::string_view kDeckSeamReport = R"(<?xml version="1.0"?><DataExport><Type>Deck</Type>\r\n\r\n
<Deck>Deck Seam Report<Counter>1</Counter><NAME>Panel: 5 x 7.5 Ft</NAME><CONSTRUC>Panel</CONSTRUC><SWIDTH/><PWIDTH>7.50</PWIDTH>
<PLENGTH>5.00</PLENGTH><SD>0.33</SD><KD>0.14</KD><APICERT/><USER_DEF>Y</USER_DEF><REC_NO>1</REC_NO></Deck>
</DataExport>)";

}  // namespace

const std::string_view kTinyReport = R"(
<p>tank tank</p>
<table id="losses"><tr><th>Tank</th><th>Loss</th></tr><tr><td>T-1</td><td>8,068.35</td></tr></table>
<div class="sheet"><i class="mark"></i>Sheet one</div><div class="sheet">Sheet two</div><div class="sheet">Sheet three</div>
<style>.printing .sheet { break-after: page } .printing .sheet:last-child { break-after: auto }
.printing body { margin: 0 } .printing p, .printing table { display: none }
.sheet { color: gray } .mark { display: none } .printing .mark { display: block; width: 100pt; height: 50pt; background: black;
  print-color-adjust: exact; -webkit-print-color-adjust: exact }</style>
<script>
window.orvex = {
  preparePrint() { document.documentElement.classList.add('printing'); return 3; },
  finishPrint() { document.documentElement.classList.remove('printing'); },
  tableContent() {
    return {text: 'Tank\tLoss\nT-1\t8,068.35', html: document.getElementById('losses').outerHTML};
  },
};
setTimeout(() => { document.documentElement.dataset.state = 'ready'; }, 50);
</script>)";

fs::path PageTest::WritePage(const std::string& name, std::string_view state, std::string_view title,
                             std::string_view body) {
  const auto path = folder_.Path() / name;
  WriteFile(path, fmt::format("<!DOCTYPE html><html data-state=\"{}\"><head><meta charset=\"utf-8\"><title>{}</title>"
                              "</head><body>{}</body></html>",
                              state, title, body));
  return path;
}

fs::path PageTest::WriteReport(const std::string& name, std::string_view title) {
  return WritePage(name, "loading", title, kTinyReport);
}

void PageTest::DeliverPages() {
  for (const auto& entry : fs::directory_iterator(ORVEX_DISPLAY_FOLDER))
    fs::copy_file(entry, folder_.Path() / entry.path().filename());
}

fs::path PageTest::DeliverBriefReport() {
  DeliverPages();
  WriteFile(folder_.Path() / "briefdata.xml", kBriefReport);
  return folder_.Path() / "briefdisplay.htm";
}

fs::path PageTest::DeliverDeckSeamReport() {
  DeliverPages();
  WriteFile(folder_.Path() / "data_export.xml", kDeckSeamReport);
  return folder_.Path() / "data_display.htm";
}

bool PageTest::WaitFor(const std::function<bool()>& condition) {
  const QDeadlineTimer deadline(kPatienceMs);
  while (!condition()) {
    if (deadline.hasExpired()) return false;
    QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  return true;
}

PdfFacts ReadPdf(const fs::path& file) {
  const auto path = QString::fromStdString(file.string());
  const auto info = OutputOf(QStringLiteral("pdfinfo"), {path});
  const auto pages = QRegularExpression(QStringLiteral("Pages:\\s+(\\d+)")).match(info);
  const auto size = QRegularExpression(QStringLiteral("Page size:\\s+([\\d.]+) x ([\\d.]+) pts")).match(info);
  return {pages.captured(1).toInt(), size.captured(1).toDouble(), size.captured(2).toDouble(),
          OutputOf(QStringLiteral("pdftotext"), {path, QStringLiteral("-")}).toStdString()};
}

}  // namespace orvex::test
