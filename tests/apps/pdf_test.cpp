#include "orvex-report/pdf.h"

#include <gtest/gtest.h>

#include "apps/report_program.h"
#include "orvex-report/failure.h"
#include "support/file_content.h"
#include "support/sample_tanks.h"

/// What the program makes of its printing program; scripts stand in for that.
namespace orvex::report_app {
namespace {

namespace fs = std::filesystem;
using test::FileContent;

/// Writes its arguments, each in a line, and what the page and the report are, to the PDF file.
constexpr const char* kPrinting = R"(
{ for a in "$@"; do printf '%s\n' "$a"; done; cat "$1"; head -c 5 "${1%briefdisplay.htm}briefdata.xml"; } >"$2"
)";

class PdfTest : public test::ReportProgram {
 protected:
  PdfTest() { test::AddVerticalTank(test_, {{"USER ID", "V"}}); }

  [[nodiscard]] std::string Pdf() const { return (test_.folder.Path() / "report.pdf").string(); }
  [[nodiscard]] bool Computed() const {
    return !store::Database::Open(Client(), store::OpenMode::kReadOnly)->OpenTable("emission").AtEnd();
  }
};

TEST_F(PdfTest, ThePageOfTheReportIsPrinted) {
  SetPrinter(kPrinting);
  ASSERT_EQ(RunOn({"--annual", "--pdf", Pdf()}), kDone) << err_.str();
  EXPECT_EQ(FileContent(Pdf()),
            (Output() / "briefdisplay.htm").string() + "\n" + Pdf() + "\n--paper\nletter\norvex briefdisplay.htm<?xml");
  EXPECT_TRUE(
      out_.str().ends_with("\nDisplay page: " + (Output() / "briefdisplay.htm").string() + "\nPDF: " + Pdf() + "\n"))
      << out_.str();
  EXPECT_EQ(err_.str(), "");
}

TEST_F(PdfTest, PaperAndKindAreHandedOn) {
  SetPrinter(R"(printf '%s %s' "${1##*/}" "$4" >"$2")");
  ASSERT_EQ(RunOn({"--annual", "--kind", "detail", "--pdf", Pdf(), "--paper", "A4"}), kDone) << err_.str();
  EXPECT_EQ(FileContent(Pdf()), "summarydisplay.htm a4");
}

TEST_F(PdfTest, QuietPrintsNothing) {
  SetPrinter(kPrinting);
  ASSERT_EQ(RunOn({"--annual", "--quiet", "--pdf", Pdf()}), kDone);
  EXPECT_EQ(out_.str() + err_.str(), "");
  EXPECT_TRUE(fs::exists(Pdf()));
}

TEST_F(PdfTest, NamesOfAnyKindAreHandedOnAsTheyAre) {
  SetPrinter(kPrinting);
  const auto folder = test_.folder.Path() / "-rf *" / "it's \"my\" dossier é $HOME";
  const auto pdf = (folder / "-a4 `id`;.pdf").string();
  ASSERT_EQ(RunOn({"--annual", "--out=" + folder.string(), "--pdf=" + pdf}), kDone) << err_.str();
  EXPECT_TRUE(FileContent(pdf).starts_with((folder / "briefdisplay.htm").string() + "\n" + pdf + "\n--paper\n"));
  EXPECT_TRUE(out_.str().ends_with("\nPDF: " + pdf + "\n")) << out_.str();
}

TEST_F(PdfTest, NamesThatBeginWithADashInTheCurrentFolderAreNoOptions) {
  SetPrinter(kPrinting);
  const auto before = fs::current_path();
  fs::current_path(test_.folder.Path());
  const int status = RunOn({"--annual", "--out=-out", "--pdf=--paper"});
  fs::current_path(before);
  ASSERT_EQ(status, kDone) << err_.str();
  const auto here = fs::canonical(test_.folder.Path());
  EXPECT_TRUE(FileContent(here / "--paper").starts_with((here / "-out" / "briefdisplay.htm").string() + "\n"))
      << FileContent(here / "--paper");
}

TEST_F(PdfTest, WithoutThePrintingProgramNothingIsComputed) {
  EXPECT_EQ(RunOn({"--annual", "--pdf", Pdf()}), kCannotOpen);
  EXPECT_TRUE(Told("--pdf: there is no program '" + (test_.folder.Path() / "bin" / "orvex-pdf").string() + "'"))
      << err_.str();
  EXPECT_TRUE(Told("without windows")) << err_.str();
  EXPECT_FALSE(Computed());
}

TEST_F(PdfTest, AFileOfItsNameThatIsNoProgramWillNotDo) {
  SetPrinter("");
  fs::permissions(test_.folder.Path() / "bin" / "orvex-pdf", fs::perms::owner_read);
  EXPECT_EQ(RunOn({"--annual", "--pdf", Pdf()}), kCannotOpen);
  fs::remove(test_.folder.Path() / "bin" / "orvex-pdf");
  fs::create_directory(test_.folder.Path() / "bin" / "orvex-pdf");
  EXPECT_EQ(RunOn({"--annual", "--pdf", Pdf()}), kCannotOpen);
  EXPECT_FALSE(Computed());
}

TEST_F(PdfTest, AProgramOfThatNameInTheCurrentFolderIsNotStarted) {
  SetPrinter(kPrinting);
  const auto before = fs::current_path();
  fs::current_path(test_.folder.Path() / "bin");
  EXPECT_THROW(FindPdfProgram(""), Failure);
  EXPECT_THROW(FindPdfProgram("orvex-report"), Failure);
  fs::current_path(before);
}

TEST_F(PdfTest, WithoutAPageNothingIsComputed) {
  SetPrinter(kPrinting);
  fs::remove(Delivered() / "briefdisplay.htm");
  EXPECT_EQ(RunOn({"--annual", "--pdf", Pdf()}), kCannotOpen);
  EXPECT_TRUE(Told("--pdf: the page '" + (Output() / "briefdisplay.htm").string() + "' is not there")) << err_.str();
  EXPECT_FALSE(Computed());
}

TEST_F(PdfTest, APlaceThatCannotBeWrittenIsToldBeforeTheRun) {
  SetPrinter(kPrinting);
  const auto nowhere = (test_.folder.Path() / "missing" / "report.pdf").string();
  EXPECT_EQ(RunOn({"--annual", "--pdf", nowhere}), kCannotOpen);
  EXPECT_TRUE(Told("--pdf: '" + nowhere + "'")) << err_.str();
  const auto folder = test_.folder.Path().string();
  EXPECT_EQ(RunOn({"--annual", "--pdf", folder}), kCannotOpen);
  EXPECT_TRUE(Told("--pdf: '" + folder + "' is a folder")) << err_.str();
  EXPECT_EQ(RunOn({"--annual", "--pdf", "/proc/report.pdf"}), kCannotOpen);
  EXPECT_TRUE(Told("--pdf: The file '/proc/report.pdf' cannot be written")) << err_.str();
  EXPECT_FALSE(Computed());
}

TEST_F(PdfTest, FilesInUseAreNotOverwritten) {
  SetPrinter(kPrinting);
  const auto client = FileContent(Client());
  EXPECT_EQ(RunOn({"--annual", "--pdf", Client()}), kWrongUse);
  EXPECT_TRUE(Told("'" + Client() + "' is a database in use")) << err_.str();
  EXPECT_EQ(RunOn({"--annual", "--pdf", Reference()}), kWrongUse);
  for (const auto* name : {"briefdata.xml", "briefdisplay.htm", "display.js"}) {
    const auto own = (Output() / "." / name).string();
    EXPECT_EQ(RunOn({"--annual", "--pdf", own}), kWrongUse) << name;
    EXPECT_TRUE(Told("--pdf: '" + own + "' is the report's own file")) << err_.str();
  }
  EXPECT_EQ(RunOn({"--annual", "--pdf", Pdf(), "--csv", Pdf()}), kWrongUse);
  EXPECT_TRUE(Told("--pdf: '" + Pdf() + "'")) << err_.str();
  EXPECT_EQ(FileContent(Client()), client);
}

TEST_F(PdfTest, WhatThePrintingProgramSaysIsPassedOnWithItsName) {
  SetPrinter("printf 'warming up\\n' >&2; printf 'orvex-pdf: no \\033[31mpaper\\n' >&2; exit 70");
  EXPECT_EQ(RunOn({"--annual", "--pdf", Pdf()}), kRunTimeFailure);
  EXPECT_EQ(err_.str(), "orvex-pdf: warming up\norvex-pdf: no \\x1B[31mpaper\norvex-report: the PDF '" + Pdf() +
                            "' was not made: orvex-pdf ended with status 70\n");
  // The report itself is there.
  EXPECT_NE(out_.str().find("\nReport: "), std::string::npos) << out_.str();
  EXPECT_EQ(out_.str().find("\nPDF: "), std::string::npos) << out_.str();
}

TEST_F(PdfTest, APrintingProgramThatCrashesIsTold) {
  SetPrinter("kill -SEGV $$");
  EXPECT_EQ(RunOn({"--annual", "--pdf", Pdf()}), kRunTimeFailure);
  EXPECT_TRUE(Told("'" + Pdf() + "' was not made: orvex-pdf was ended by signal 11")) << err_.str();
}

TEST_F(PdfTest, APrintingProgramThatDoesNotStartIsTold) {
  SetPrinter("");
  test::WriteFile(test_.folder.Path() / "bin" / "orvex-pdf", "#!/no/such/interpreter\n");
  EXPECT_EQ(RunOn({"--annual", "--pdf", Pdf()}), kRunTimeFailure);
  EXPECT_TRUE(Told("'" + Pdf() + "' was not made: ")) << err_.str();
  EXPECT_TRUE(Told("cannot be started")) << err_.str();
}

TEST_F(PdfTest, APrintingProgramThatHangsIsEnded) {
  SetPrinter("sleep 600");
  pdf_limit_ = std::chrono::seconds(1);
  EXPECT_EQ(RunOn({"--annual", "--pdf", Pdf()}), kRunTimeFailure);
  EXPECT_TRUE(Told("orvex-pdf took longer than 1 seconds and was ended")) << err_.str();
}

TEST_F(PdfTest, AnInterruptedPrintingLeavesTheReport) {
  const auto started = test_.folder.Path() / "started";
  SetPrinter("touch '" + started.string() + "'; sleep 600");
  stop_requested_ = [&] { return fs::exists(started); };
  EXPECT_EQ(RunOn({"--annual", "--pdf", Pdf()}), kInterrupted);
  EXPECT_TRUE(Told("Stopped; the report is written, the PDF '" + Pdf() + "' is not")) << err_.str();
  EXPECT_TRUE(FileContent(Output() / "briefdata.xml").ends_with("</REPORT>"));
}

TEST_F(PdfTest, AReportThatWasNotWrittenIsNotPrinted) {
  SetPrinter(kPrinting);
  fs::create_directories(Output() / "briefdata.xml");
  EXPECT_EQ(RunOn({"--annual", "--pdf", Pdf()}), kRunTimeFailure);
  EXPECT_FALSE(fs::exists(Pdf()));
}

TEST_F(PdfTest, FaultsOfTheDataPrintNothing) {
  SetPrinter(kPrinting);
  test::ChangeRow(test_.client(), "tank", "USER ID", {"V"}, {{"MET CTYST", "Nowhere, Ohio"}});
  EXPECT_EQ(RunOn({"--annual", "--pdf", Pdf()}), kDataFaults);
  EXPECT_FALSE(fs::exists(Pdf()));
}

}  // namespace
}  // namespace orvex::report_app
