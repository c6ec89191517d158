#include "windows/refusal_note.h"

#include <QCoreApplication>
#include <QLineEdit>
#include <QTest>
#include <memory>

#include "entry/frmrecfit.h"
#include "shell/tank_types.h"
#include "windows/desktop_fixture.h"
#include "windows/open_tank.h"
#include "windows/person.h"
#include "windows/window_table.h"

namespace orvex::test {
namespace {

TEST_F(DesktopTest, ARefusedQuantityIsToldBesideItsEntryUntilItChanges) {
  OpenTank(session_, shell::kInternalFloatingRoof);
  const auto window = windows::FindWindow("frmrecfit").make({session_, &host_.Main(), nullptr});
  window->Prepare();
  window->show();
  window->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
  const QString told = QStringLiteral("Please enter a number.");
  Person person;
  person.Answer(told, QStringLiteral("OK"));
  auto& quantity = Find<QLineEdit>(*window, QStringLiteral("txtQuantity"));
  quantity.setFocus();
  QCoreApplication::processEvents();
  Write(*window, QStringLiteral("txtQuantity"), QStringLiteral("few"));
  QTest::keyClick(&quantity, Qt::Key_Tab);
  EXPECT_TRUE(QTest::qWaitFor([&] { return person.IsDone(); }));
  QCoreApplication::processEvents();
  const auto& note = Find<windows::RefusalNote>(*window, QStringLiteral("refusal"));
  EXPECT_EQ(window->focusWidget(), &quantity);
  EXPECT_TRUE(note.isVisible());
  EXPECT_EQ(note.text(), told);
  EXPECT_EQ(note.pos(), quantity.mapTo(window.get(), QPoint(0, quantity.height())));
  EXPECT_LE(note.geometry().right(), window->rect().right());
  EXPECT_TRUE(quantity.accessibleDescription().startsWith(told));
  Write(*window, QStringLiteral("txtQuantity"), QStringLiteral("3"));
  QCoreApplication::processEvents();
  EXPECT_FALSE(note.isVisible());
  EXPECT_FALSE(quantity.accessibleDescription().contains(told));
}

}  // namespace
}  // namespace orvex::test
