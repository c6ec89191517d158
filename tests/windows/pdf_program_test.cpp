#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QProcess>
#include <csignal>
#include <string>

#include "support/file_content.h"
#include "windows/pages.h"

namespace orvex::windows {
namespace {

struct Ending {
  int status;
  std::string out;
  std::string err;
};

class PdfProgram : public test::PageTest {
 protected:
  PdfProgram() {
    std::filesystem::create_directory(Home());
    auto environment = QProcessEnvironment::systemEnvironment();
    for (const auto* name : {"DISPLAY", "WAYLAND_DISPLAY", "XDG_RUNTIME_DIR", "QT_QPA_PLATFORM", "QT_QUICK_BACKEND"})
      environment.remove(QLatin1String(name));
    environment.insert(QStringLiteral("HOME"), QString::fromStdString(Home().string()));
    environment.insert(QStringLiteral("TMPDIR"), QString::fromStdString(Home().string()));
    program_.setProcessEnvironment(environment);
    program_.setProgram(QStringLiteral(ORVEX_PDF_PROGRAM));
  }

  [[nodiscard]] std::filesystem::path Home() const { return folder_.Path() / "home"; }
  [[nodiscard]] std::filesystem::path Pdf() const { return folder_.Path() / "report.pdf"; }

  void Start(const QStringList& arguments) {
    program_.setArguments(arguments);
    program_.start();
    EXPECT_TRUE(program_.waitForStarted());
  }

  Ending Run(const QStringList& arguments) {
    Start(arguments);
    EXPECT_TRUE(program_.waitForFinished(test::kPatienceMs));
    return {program_.exitStatus() == QProcess::NormalExit ? program_.exitCode() : -1,
            program_.readAllStandardOutput().toStdString(), program_.readAllStandardError().toStdString()};
  }

  Ending Print(const std::filesystem::path& page, const QStringList& options = {}) {
    return Run(QStringList{QString::fromStdString(page.string()), QString::fromStdString(Pdf().string())} + options);
  }

  QProcess program_;
};

TEST_F(PdfProgram, PrintsOnLandscapeLetterUnlessToldOtherwise) {
  const auto ending = Print(WriteReport());
  EXPECT_EQ(ending.status, 0);
  EXPECT_EQ(ending.out + ending.err, "");
  const auto pdf = test::ReadPdf(Pdf());
  EXPECT_EQ(pdf.pages, 3);
  EXPECT_NEAR(pdf.width_pt, 792, 0.5);
  EXPECT_NEAR(pdf.height_pt, 612, 0.5);
  EXPECT_NE(pdf.text.find("Sheet three"), std::string::npos);
}

// A4 is 297 by 210 mm: 841.9 by 595.3 pt.
TEST_F(PdfProgram, PrintsOnLandscapeA4) {
  EXPECT_EQ(Print(WriteReport(), {QStringLiteral("--paper"), QStringLiteral("a4")}).status, 0);
  const auto pdf = test::ReadPdf(Pdf());
  EXPECT_EQ(pdf.pages, 3);
  EXPECT_NEAR(pdf.width_pt, 841.9, 0.5);
  EXPECT_NEAR(pdf.height_pt, 595.3, 0.5);
}

TEST_F(PdfProgram, PrintsTheDeliveredPageWithItsFigures) {
  const auto ending = Print(DeliverBriefReport());
  EXPECT_EQ(ending.status, 0) << ending.err;
  const auto pdf = test::ReadPdf(Pdf());
  EXPECT_GT(pdf.width_pt, pdf.height_pt);
  for (const auto* figure : {"1,000.25", "234.50", "1,234.75", "5.00"})
    EXPECT_NE(pdf.text.find(figure), std::string::npos) << figure;
}

TEST_F(PdfProgram, PrintsTheDeliveredPageOfReferenceData) {
  const auto ending = Print(DeliverDeckSeamReport());
  EXPECT_EQ(ending.status, 0) << ending.err;
  const auto pdf = test::ReadPdf(Pdf());
  EXPECT_EQ(pdf.pages, 1);
  EXPECT_GT(pdf.width_pt, pdf.height_pt);
  for (const auto* text : {"Deck Seam Report", "Panel: 5 x 7.5 Ft", "0.33", "lb-mole/ft-yr", "Yes"})
    EXPECT_NE(pdf.text.find(text), std::string::npos) << text;
}

TEST_F(PdfProgram, LeavesNothingBehindInHomeOrTemporaryFolder) {
  EXPECT_EQ(Print(WriteReport()).status, 0);
  EXPECT_EQ(test::EntryCount(Home()), 0);
  EXPECT_EQ(test::EntryCount(folder_.Path()), 3);  // home, page, PDF
}

TEST_F(PdfProgram, WrongUseIsExplained) {
  const auto ending = Print(WriteReport(), {QStringLiteral("--paper"), QStringLiteral("a5")});
  EXPECT_EQ(ending.status, 64);
  EXPECT_EQ(ending.err, "orvex-pdf: --paper: unknown paper 'a5'; use letter or a4\n");
  EXPECT_EQ(Run({}).status, 64);
  EXPECT_EQ(Print(WriteReport(), {QStringLiteral("--time-limit"), QStringLiteral("0")}).status, 64);
}

TEST_F(PdfProgram, HelpNamesTheOptionsAndTheExitStatuses) {
  const auto ending = Run({QStringLiteral("--help")});
  EXPECT_EQ(ending.status, 0);
  for (const auto* text : {"PAGE", "FILE", "--paper", "--time-limit", "Exit status"})
    EXPECT_NE(ending.out.find(text), std::string::npos) << text;
}

TEST_F(PdfProgram, AMissingPageIsNamed) {
  const auto page = folder_.Path() / "none.htm";
  const auto ending = Print(page);
  EXPECT_EQ(ending.status, 66);
  EXPECT_EQ(ending.err, "orvex-pdf: The page '" + page.string() + "' is not there.\n");
}

TEST_F(PdfProgram, APageThatFailedSpeaksForItselfAndTheOldFileStays) {
  test::WriteFile(Pdf(), "old");
  const auto ending = Print(WritePage("p.htm", "failed", "Report", "<p role=\"alert\">Cut \x1b[31moff.</p>"));
  EXPECT_EQ(ending.status, 70);
  EXPECT_EQ(ending.err, "orvex-pdf: Cut \\x1B[31moff.\n");
  EXPECT_EQ(test::FileContent(Pdf()), "old");
}

TEST_F(PdfProgram, TheDeliveredPageWithoutItsReportSaysSo) {
  const auto page = DeliverBriefReport();
  std::filesystem::remove(folder_.Path() / "briefdata.xml");
  const auto ending = Print(page);
  EXPECT_EQ(ending.status, 70);
  EXPECT_NE(ending.err.find("briefdata.xml"), std::string::npos) << ending.err;
  EXPECT_FALSE(std::filesystem::exists(Pdf()));
}

TEST_F(PdfProgram, GivesUpOnAPageThatIsNeverReady) {
  const auto page = WritePage("p.htm", "loading", "Report", "");
  const auto ending = Print(page, {QStringLiteral("--time-limit"), QStringLiteral("1")});
  EXPECT_EQ(ending.status, 70);
  EXPECT_EQ(ending.err, "orvex-pdf: The page '" + page.string() + "' was not printed within 1 seconds.\n");
}

TEST_F(PdfProgram, GivesUpOnAPageThatNeverAnswers) {
  const auto page = WritePage("p.htm", "loading", "Report", "<script>setTimeout(() => { for (;;); }, 50)</script>");
  const auto ending = Print(page, {QStringLiteral("--time-limit"), QStringLiteral("1")});
  EXPECT_EQ(ending.status, 70);
  EXPECT_EQ(ending.err, "orvex-pdf: The page '" + page.string() + "' was not printed within 1 seconds.\n");
}

TEST_F(PdfProgram, AFolderThatIsNotThereIsNamedBeforeThePageIsRead) {
  const auto file = (folder_.Path() / "none" / "report.pdf").string();
  const auto ending = Run({QString::fromStdString(WriteReport().string()), QString::fromStdString(file)});
  EXPECT_EQ(ending.status, 66);
  EXPECT_EQ(ending.err, "orvex-pdf: '" + file + "' is not a valid path: its folder is not there.\n");
}

TEST_F(PdfProgram, ATargetThatCannotBeWrittenIsNamedAndStays) {
  std::filesystem::create_directory(Pdf());
  const auto ending = Print(WriteReport());
  EXPECT_EQ(ending.status, 70);
  EXPECT_EQ(ending.err, "orvex-pdf: The file '" + Pdf().string() + "' cannot be written: Is a directory.\n");
  EXPECT_TRUE(std::filesystem::is_directory(Pdf()));
  EXPECT_EQ(test::EntryCount(folder_.Path()), 3);  // home, page, and what stood in the way
}

// The page reads a pipe in the middle of its layout: once somebody reads it, the program is at work.
TEST_F(PdfProgram, KilledInTheMiddleItLeavesTheOldFile) {
  test::WriteFile(Pdf(), "old");
  const auto gate = folder_.Path() / "gate";
  ASSERT_EQ(mkfifo(gate.c_str(), 0600), 0);
  const auto page = WritePage("p.htm", "loading", "Report", R"(<script>
window.orvex = {preparePrint() {
  const request = new XMLHttpRequest();
  request.open('GET', 'gate', false);
  request.send();
}};
document.documentElement.dataset.state = 'ready';
</script>)");
  Start({QString::fromStdString(page.string()), QString::fromStdString(Pdf().string())});
  int writer = -1;
  EXPECT_TRUE(WaitFor([&] { return (writer = open(gate.c_str(), O_WRONLY | O_NONBLOCK)) >= 0; }));
  kill(static_cast<pid_t>(program_.processId()), SIGKILL);
  EXPECT_TRUE(program_.waitForFinished(test::kPatienceMs));
  close(writer);
  EXPECT_EQ(program_.exitStatus(), QProcess::CrashExit);
  EXPECT_EQ(test::FileContent(Pdf()), "old");
  EXPECT_EQ(test::EntryCount(folder_.Path()), 4);  // home, page, pipe, and the old file
}

}  // namespace
}  // namespace orvex::windows
