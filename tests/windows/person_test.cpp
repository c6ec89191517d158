#include "windows/person.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <QDialog>
#include <QTest>
#include <string>

namespace orvex::test {
namespace {

constexpr int kShortPatienceMs = 50;

/// A window that stays open until somebody closes it, as those of the program do.
class PersonAtAWindow : public testing::Test {
 protected:
  PersonAtAWindow() { window_.setObjectName(QStringLiteral("window")); }

  QDialog window_;
};

TEST_F(PersonAtAWindow, FailsAndClosesAllWhereADeedIsNeverDone) {
  testing::TestPartResultArray failures;
  {
    const testing::ScopedFakeTestPartResultReporter reporter(
        testing::ScopedFakeTestPartResultReporter::INTERCEPT_ONLY_CURRENT_THREAD, &failures);
    Person person(kShortPatienceMs);
    person.Until(QStringLiteral("window"), [](QWidget&) { return false; });
    window_.exec();
    EXPECT_TRUE(person.IsDone());
  }
  ASSERT_EQ(failures.size(), 2);
  EXPECT_NE(std::string(failures.GetTestPartResult(0).message()).find("waiting for window"), std::string::npos);
  EXPECT_NE(std::string(failures.GetTestPartResult(1).message()).find("with the focus in"), std::string::npos);
}

TEST_F(PersonAtAWindow, WaitsForADeedThatIsDoneAtLast) {
  Person person;
  int looks = 0;
  person.Until(QStringLiteral("window"), [&](QWidget& window) {
    if (++looks < 3) return false;
    window.close();
    return true;
  });
  window_.exec();
  EXPECT_EQ(looks, 3);
}

}  // namespace
}  // namespace orvex::test
