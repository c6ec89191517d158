#include "windows/sheet_printer.h"

#include <gtest/gtest.h>

#include <QPageRanges>
#include <QPageSize>

#include "support/file_content.h"
#include "windows/landscape.h"
#include "windows/pages.h"
#include "windows/report_page.h"

namespace orvex::windows {
namespace {

constexpr int kDpi = 72;  // a pixel is a point

/// Prints the three sheets of the tiny report; the margin is 36 pt.
class SheetPrinterTest : public test::PageTest {
 protected:
  SheetPrinterTest() {
    printer_->setOutputFormat(QPrinter::PdfFormat);
    printer_->setOutputFileName(QString::fromStdString(File().string()));
    printer_->setPageLayout(Landscape(Paper::kLetter));
    printer_->setResolution(kDpi);
  }

  [[nodiscard]] std::filesystem::path File() const { return folder_.Path() / "printed.pdf"; }

  /// The report as a PDF on this paper.
  QByteArray Pdf(Paper paper) {
    ReportPage page(WriteReport("mark.htm", "Mark"));
    QByteArray pdf;
    QObject::connect(&page, &ReportPage::Ready,
                     [&] { page.MakePdf(paper, [&](const QByteArray& made, const QString&) { pdf = made; }); });
    page.Open();
    EXPECT_TRUE(WaitFor([&] { return !pdf.isEmpty(); }));
    return pdf;
  }

  std::string Print(const QByteArray& pdf) {
    SheetPrinter sheets(pdf, std::move(printer_));
    bool done = false;
    std::string told;
    QObject::connect(&sheets, &SheetPrinter::Done, [&](const QString& fault) {
      told = fault.toStdString();
      done = true;
    });
    sheets.Start();
    EXPECT_TRUE(WaitFor([&] { return done; }));
    return told;
  }

  /// Where the black mark stands on the first printed page {pt}.
  QRect Mark() {
    QPdfDocument printed;
    printed.load(QString::fromStdString(File().string()));
    const auto size = printed.pagePointSize(0).toSize();
    const auto image = printed.render(0, size);
    QRect mark;
    for (int y = 0; y < size.height(); ++y)
      for (int x = 0; x < size.width(); ++x)
        if (qGray(image.pixel(x, y)) < 50 && qAlpha(image.pixel(x, y)) > 200) mark |= QRect(x, y, 1, 1);
    return mark;
  }

  std::unique_ptr<QPrinter> printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
};

TEST_F(SheetPrinterTest, PrintsEverySheetAtItsOwnSize) {
  EXPECT_EQ(Print(Pdf(Paper::kLetter)), "");
  const auto printed = test::ReadPdf(File());
  EXPECT_EQ(printed.pages, 3);
  EXPECT_NEAR(printed.width_pt, 792, 1);
  EXPECT_NEAR(printed.height_pt, 612, 1);
  const auto mark = Mark();
  EXPECT_NEAR(mark.left(), 36, 2);
  EXPECT_NEAR(mark.top(), 36, 2);
  EXPECT_NEAR(mark.width(), 100, 3);
  EXPECT_NEAR(mark.height(), 50, 3);
}

// A landscape A4 sheet, 841.9 pt wide, on landscape Letter, 792 pt: 792 / 841.9 = 0.941, and 100 pt become 94.
TEST_F(SheetPrinterTest, ShrinksASheetThatIsLargerThanThePaper) {
  EXPECT_EQ(Print(Pdf(Paper::kA4)), "");
  EXPECT_NEAR(Mark().width(), 94, 3);
}

// A landscape Letter sheet on landscape A3, 1190.6 by 841.9 pt: (1190.6 - 792) / 2 + 36 = 235 from the left, and
// (841.9 - 612) / 2 + 36 = 151 from the top.
TEST_F(SheetPrinterTest, PutsASheetInTheMiddleOfLargerPaper) {
  printer_->setPageSize(QPageSize(QPageSize::A3));
  EXPECT_EQ(Print(Pdf(Paper::kLetter)), "");
  const auto mark = Mark();
  EXPECT_NEAR(mark.left(), 235, 3);
  EXPECT_NEAR(mark.top(), 151, 3);
  EXPECT_NEAR(mark.width(), 100, 3);
}

TEST_F(SheetPrinterTest, PrintsTheSheetsThatWereChosen) {
  printer_->setFromTo(2, 3);
  EXPECT_EQ(Print(Pdf(Paper::kLetter)), "");
  EXPECT_EQ(test::ReadPdf(File()).pages, 2);
}

TEST_F(SheetPrinterTest, LettersAreNotPackedAsAPhotograph) {
  EXPECT_EQ(Print(Pdf(Paper::kLetter)), "");
  const auto printed = test::FileContent(File());
  EXPECT_NE(printed.find("/FlateDecode"), std::string::npos);
  EXPECT_EQ(printed.find("/DCTDecode"), std::string::npos);
}

TEST_F(SheetPrinterTest, LeavesOutTheSheetsBetween) {
  printer_->setPageRanges(QPageRanges::fromString(QStringLiteral("1,3")));
  EXPECT_EQ(Print(Pdf(Paper::kLetter)), "");
  EXPECT_EQ(test::ReadPdf(File()).pages, 2);
  EXPECT_FALSE(Mark().isNull());
}

TEST_F(SheetPrinterTest, SaysWhenNoneOfTheChosenSheetsIsThere) {
  printer_->setFromTo(7, 9);
  EXPECT_EQ(Print(Pdf(Paper::kLetter)), "There are no such sheets.");
  EXPECT_FALSE(std::filesystem::exists(File()));
}

TEST_F(SheetPrinterTest, NamesAFileThatCannotBePrintedInto) {
  const auto file = (folder_.Path() / "none" / "printed.pdf").string();
  printer_->setOutputFileName(QString::fromStdString(file));
  EXPECT_EQ(Print(Pdf(Paper::kLetter)), "The report could not be printed on '" + file + "'.");
}

}  // namespace
}  // namespace orvex::windows
