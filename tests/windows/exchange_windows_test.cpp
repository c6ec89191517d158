#include <gtest/gtest.h>

#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QTest>
#include <filesystem>
#include <memory>
#include <string>

#include "exchange/frmimport.h"
#include "windows/desktop_fixture.h"
#include "windows/display_text.h"
#include "windows/elided_label.h"
#include "windows/person.h"
#include "windows/window_table.h"

namespace orvex::test {
namespace {

/// The windows of imports and exports, by themselves.
class ExchangeWindows : public DesktopTest {
 protected:
  std::unique_ptr<windows::ModelDialog> Open(const char* name) {
    auto window = windows::FindWindow(name).make({session_, &host_.Main(), nullptr});
    window->Prepare();
    window->show();
    QCoreApplication::processEvents();
    return window;
  }
};

TEST_F(ExchangeWindows, DoubleClickOnAFormatChoosesIt) {
  const auto window = Open("Frmexformat");
  auto& formats = Find<QListView>(*window, QStringLiteral("lstFormats"));
  EXPECT_EQ(formats.model()->rowCount(), 5);
  EXPECT_EQ(formats.currentIndex().data().toString(), QStringLiteral("Access 2.0 (*.mdb)"));
  const auto excel = formats.visualRect(formats.model()->index(3, 0)).center();
  QTest::mouseClick(formats.viewport(), Qt::LeftButton, Qt::NoModifier, excel);
  QTest::mouseDClick(formats.viewport(), Qt::LeftButton, Qt::NoModifier, excel);
  EXPECT_TRUE(window->IsUnloaded());
  EXPECT_EQ(session_.ExportFormat, "gnDT_EXCEL50");
}

TEST_F(ExchangeWindows, FaultsOfAReportAreOfferedInTwoFormats) {
  session_.PrintMode = "Error";
  const auto window = Open("Frmexformat");
  EXPECT_EQ(Find<QListView>(*window, QStringLiteral("lstFormats")).model()->rowCount(), 2);
}

TEST_F(ExchangeWindows, LongPathOfAnExportGivesWayAndIsToldWhole) {
  session_.ExportTable = "chemical";
  session_.ExportTarget = "/" + std::string(300, 'x') + "/tables.xls";
  const auto window = Open("frmexptbl");
  EXPECT_LT(window->width(), 800);
  const auto& path = Find<windows::ElidedLabel>(*window, QStringLiteral("lblPath"));
  EXPECT_EQ(path.Text().toStdString(), "in " + session_.ExportTarget);
  EXPECT_TRUE(path.toolTip().contains(windows::Shown(session_.ExportTarget)));
  EXPECT_EQ(Find<QLineEdit>(*window, QStringLiteral("txtTable")).text(), QStringLiteral("chemical"));
}

TEST_F(ExchangeWindows, PathsOfTheTwoGroupsStandInOneLine) {
  const auto window = Open("frmImport");
  const auto left = [&](std::size_t file) {
    const auto& path = Find<QLineEdit>(*window, windows::Shown(exchange::kImportFiles[file].field));
    return path.mapTo(window.get(), QPoint()).x();
  };
  for (std::size_t file = 1; file < std::size(exchange::kImportFiles); ++file) EXPECT_EQ(left(file), left(0)) << file;
}

TEST_F(ExchangeWindows, EnterInAPathOfTheImportStartsIt) {
  const auto window = Open("frmImport");
  auto& path = Find<QLineEdit>(*window, QStringLiteral("txtRimSeal"));
  path.setFocus();
  Person person;
  person.Answer(QStringLiteral("All paths must be specified."), QStringLiteral("OK"));
  QTest::keyClick(&path, Qt::Key_Return);
  EXPECT_TRUE(QTest::qWaitFor([&] { return person.IsDone(); }));
  EXPECT_TRUE(window->isVisible());
}

}  // namespace
}  // namespace orvex::test
