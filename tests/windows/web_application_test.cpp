#include "windows/web_application.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <clocale>
#include <string>

namespace orvex::windows {
namespace {

TEST(WebApplication, NumbersKeepTheirDecimalPointInAnyLocale) {
  ASSERT_NE(QCoreApplication::instance(), nullptr);
  EXPECT_STREQ(std::localeconv()->decimal_point, ".");
}

TEST(WebApplication, TheSandboxIsOffForRootAlone) {
  const auto arguments = QCoreApplication::arguments();
  EXPECT_EQ(arguments.contains(QStringLiteral("--no-sandbox")), geteuid() == 0);
}

TEST(WebApplication, NeedsNoDisplayWhereItIsToldSo) {
  EXPECT_EQ(QGuiApplication::platformName(), QStringLiteral("offscreen"));
}

}  // namespace
}  // namespace orvex::windows
