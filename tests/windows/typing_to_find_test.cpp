#include <fmt/format.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QTest>
#include <algorithm>
#include <functional>
#include <memory>
#include <string>

#include "windows/desktop_fixture.h"
#include "windows/person.h"
#include "windows/window_table.h"

namespace orvex::test {
namespace {

constexpr int kRows = 5'000;
/// A person feels 100 ms; the machine of a test may be busy with other things.
constexpr qint64 kLimitMs = 1'000;

/// A table of the reference database with many records of the person's own.
struct LongTable {
  std::string_view window;
  std::string_view table;
  std::string_view user_defined;
  const char* finder;
  /// Where a record of one's own is named.
  const char* named;
  void (*name)(store::RecordSet& row, int number);
  const char* last;
};

const LongTable kChemicals = {"frmchemical",
                              "chemical",
                              "USER_DEF",
                              "dbcboChemName",
                              "dbcboChemName",
                              [](store::RecordSet& row, int number) {
                                row.Set("NAME", fmt::format("Process stream {:05}", number));
                                row.Set("CAS", fmt::format("{:05}-1", number));
                              },
                              "Process stream 05000"};
const LongTable kCities = {"frmMet",
                           "met",
                           "USER DEF",
                           "dbcboMetCTYST",
                           "txtCITY",
                           [](store::RecordSet& row, int number) {
                             row.Set("CTYST", fmt::format("Process terminal {:05}, Ohio", number));
                             row.Set("CITY", fmt::format("Process terminal {:05}", number));
                             row.Set("STATE", "Ohio");
                           },
                           "Process terminal 05000, Ohio"};

/// The editors of tables with thousands of rows.
class TypingToFind : public DesktopTest {
 protected:
  std::unique_ptr<windows::ModelDialog> Open(const LongTable& table) {
    AddRows(table);
    auto window = windows::FindWindow(table.window).make({session_, &host_.Main(), nullptr});
    window->Prepare();
    window->show();
    window->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
    return window;
  }

  /// Types letter by letter where the focus is.
  /// @return the longest time until a letter was worked off and the window was drawn {ms}
  static qint64 SlowestLetter(QWidget& window, const QString& text) {
    qint64 slowest = 0;
    for (const auto letter : text) {
      QElapsedTimer clock;
      clock.start();
      QTest::keyClick(window.windowHandle(), letter.toLatin1());
      QCoreApplication::processEvents();
      window.grab();
      slowest = std::max(slowest, clock.elapsed());
    }
    RecordProperty("slowest letter of " + text.toStdString() + " in ms", static_cast<int>(slowest));
    return slowest;
  }

 private:
  void AddRows(const LongTable& table) {
    store::Transaction transaction(*session_.ReferenceDb);
    auto rows = session_.ReferenceDb->OpenTable(table.table);
    for (int number = 1; number <= kRows; ++number) {
      rows.AddNew();
      table.name(rows, number);
      rows.Set(table.user_defined, true);
      rows.Update();
    }
    transaction.Commit();
  }
};

class TypingToFindIn : public TypingToFind, public testing::WithParamInterface<const LongTable*> {};

TEST_P(TypingToFindIn, RecordIsFoundWithoutWaitingForALetter) {
  const auto window = Open(*GetParam());
  auto& finder = Find<QComboBox>(*window, QLatin1String(GetParam()->finder));
  EXPECT_GT(finder.count(), kRows);
  finder.setFocus(Qt::TabFocusReason);
  EXPECT_LT(SlowestLetter(*window, QStringLiteral("process")), kLimitMs);
  EXPECT_LT(SlowestLetter(*window, QString::fromLatin1(GetParam()->last).mid(7)), kLimitMs);
  QElapsedTimer clock;
  clock.start();
  QTest::keyClick(window->windowHandle(), Qt::Key_Return);
  EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activePopupWidget() == nullptr; }));
  QCoreApplication::processEvents();
  EXPECT_LT(clock.elapsed(), kLimitMs);
  EXPECT_EQ(finder.currentText().toStdString(), GetParam()->last);
}

TEST_P(TypingToFindIn, RecordOfOnesOwnIsNamedWithoutWaitingForALetter) {
  const auto window = Open(*GetParam());
  QTest::keyClick(window.get(), Qt::Key_A, Qt::AltModifier);
  auto& named = Find<QWidget>(*window, QLatin1String(GetParam()->named));
  ASSERT_TRUE(QTest::qWaitFor([&] { return named.hasFocus() && named.isEnabled(); }));
  EXPECT_LT(SlowestLetter(*window, QStringLiteral("process new")), kLimitMs);
}

INSTANTIATE_TEST_SUITE_P(, TypingToFindIn, testing::Values(&kChemicals, &kCities),
                         [](const auto& param) { return std::string(param.param->table); });

}  // namespace
}  // namespace orvex::test
