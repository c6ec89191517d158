#include "windows/report_page.h"

#include <gtest/gtest.h>

#include <QWebEngineLoadingInfo>

#include "windows/pages.h"

namespace orvex::windows {
namespace {

class ReportPageTest : public test::PageTest {
 protected:
  /// Opens a page and gives the word for how it went with the sentence that came along.
  std::string Opened(const std::filesystem::path& file) {
    page_ = std::make_unique<ReportPage>(file);
    std::string how;
    QObject::connect(page_.get(), &ReportPage::Ready, [&] { how = "ready"; });
    QObject::connect(page_.get(), &ReportPage::Waiting,
                     [&](const QString& said) { how = "waiting: " + said.toStdString(); });
    QObject::connect(page_.get(), &ReportPage::Failed,
                     [&](const QString& said) { how = "failed: " + said.toStdString(); });
    page_->Open();
    EXPECT_TRUE(WaitFor([&] { return !how.empty(); }));
    page_->disconnect();
    return how;
  }

  std::unique_ptr<ReportPage> page_;
};

TEST_F(ReportPageTest, TellsWhenTheReportIsDrawn) { EXPECT_EQ(Opened(WriteReport()), "ready"); }

TEST_F(ReportPageTest, ShowsAReportOnReferenceData) { EXPECT_EQ(Opened(DeliverDeckSeamReport()), "ready"); }

TEST_F(ReportPageTest, PassesOnTheSentenceOfAPageThatFailed) {
  EXPECT_EQ(Opened(WritePage("p.htm", "failed", "Report", "<p role=\"alert\"> The file is cut off. </p>")),
            "failed: The file is cut off.");
}

TEST_F(ReportPageTest, PassesOnTheSentenceOfAPageThatAsksForItsFile) {
  EXPECT_EQ(Opened(WritePage("p.htm", "waiting", "Report", "<p role=\"status\">Choose the file.</p>")),
            "waiting: Choose the file.");
}

TEST_F(ReportPageTest, APageThatFailedWithoutAWordIsNamed) {
  const auto file = WritePage("p.htm", "failed", "Report", "");
  EXPECT_EQ(Opened(file), "failed: The page '" + file.string() + "' failed.");
}

TEST_F(ReportPageTest, AMissingPageIsNamed) {
  const auto file = folder_.Path() / "none.htm";
  EXPECT_EQ(Opened(file), "failed: The page '" + file.string() + "' is not there.");
}

TEST_F(ReportPageTest, ALinkOutOfTheFolderLeavesTheReportStanding) {
  const auto file = WriteReport();
  ASSERT_EQ(Opened(file), "ready");
  bool failed = false;
  QObject::connect(page_.get(), &ReportPage::Failed, [&] { failed = true; });
  bool refused = false;
  QObject::connect(&page_->Page(), &QWebEnginePage::loadingChanged, [&](const QWebEngineLoadingInfo& info) {
    refused = refused || info.status() == QWebEngineLoadingInfo::LoadStoppedStatus;
  });
  page_->Page().runJavaScript(QStringLiteral("location = 'file:///etc/passwd'; undefined"));
  ASSERT_TRUE(WaitFor([&] { return refused; }));
  EXPECT_FALSE(failed);
  EXPECT_EQ(page_->Page().url().toLocalFile().toStdString(), file.string());
}

TEST_F(ReportPageTest, MakesAPdfAndPutsThePageBackForTheScreen) {
  ASSERT_EQ(Opened(WriteReport()), "ready");
  QByteArray pdf;
  QString classes = QStringLiteral("not asked");
  page_->MakePdf(Paper::kLetter, [&](const QByteArray& made, const QString& fault) {
    EXPECT_TRUE(fault.isEmpty()) << fault.toStdString();
    pdf = made;
    page_->Page().runJavaScript(QStringLiteral("document.documentElement.className"),
                                [&](const QVariant& answer) { classes = answer.toString(); });
  });
  ASSERT_TRUE(WaitFor([&] { return classes != QStringLiteral("not asked"); }));
  EXPECT_TRUE(pdf.startsWith("%PDF"));
  EXPECT_EQ(classes.toStdString(), "");
}

TEST_F(ReportPageTest, APageWithoutSheetsSaysWhyItCannotBePrinted) {
  const auto file = WritePage("p.htm", "ready", "Report", "no script");
  ASSERT_EQ(Opened(file), "ready");
  QString told;
  page_->MakePdf(Paper::kLetter, [&](const QByteArray& made, const QString& fault) {
    EXPECT_TRUE(made.isEmpty());
    told = fault;
  });
  ASSERT_TRUE(WaitFor([&] { return !told.isEmpty(); }));
  EXPECT_EQ(told.toStdString(),
            "The page '" + file.string() + "' cannot be laid out for printing (ReferenceError: orvex is not defined).");
}

TEST_F(ReportPageTest, ClosingItInTheMiddleOfAPdfComesToNothing) {
  ASSERT_EQ(Opened(WriteReport()), "ready");
  bool called = false;
  page_->MakePdf(Paper::kA4, [&](const QByteArray&, const QString&) { called = true; });
  page_.reset();
  EXPECT_EQ(Opened(WriteReport()), "ready");  // time enough for a call
  EXPECT_FALSE(called);
}

}  // namespace
}  // namespace orvex::windows
