#include "windows/folder_profile.h"

#include <gtest/gtest.h>

namespace orvex::windows {
namespace {

struct Address {
  const char* url;
  bool allowed;
};

TEST(FolderGuard, LetsAPageHaveTheFilesOfItsFolderAndNoOther) {
  const FolderGuard guard(QStringLiteral("/home/ann/orvex"));
  constexpr Address kAddresses[] = {
      {"file:///home/ann/orvex/briefdata.xml", true},
      {"file:///home/ann/orvex/display/display.css", true},
      {"file:///home/ann/orvex/briefdisplay.htm#tank-3", true},
      {"file:///home/ann/orvex/../secret.txt", false},
      {"file:///home/ann/orvex/%2e%2e/secret.txt", false},
      {"file:///home/ann/orvex/..%2fsecret.txt", false},
      {"file:///home/ann/orvex-old/secret.txt", false},
      {"file:///etc/passwd", false},
      {"file://server/home/ann/orvex/briefdata.xml", false},
      {"http://127.0.0.1/home/ann/orvex/briefdata.xml", false},
      {"https://example.com/", false},
      {"data:text/html,hello", false},
  };
  for (const auto& [url, allowed] : kAddresses) EXPECT_EQ(guard.Allows(QUrl(QLatin1String(url))), allowed) << url;
}

TEST(FolderGuard, KnowsAFolderWithBlanksAndPercentSigns) {
  const FolderGuard guard(QStringLiteral("/home/ann/my 100% tanks/"));
  EXPECT_TRUE(guard.Allows(QUrl::fromLocalFile(QStringLiteral("/home/ann/my 100% tanks/briefdata.xml"))));
  EXPECT_FALSE(guard.Allows(QUrl::fromLocalFile(QStringLiteral("/home/ann/my 100/briefdata.xml"))));
}

}  // namespace
}  // namespace orvex::windows
