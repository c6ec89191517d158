#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "support/file_content.h"
#include "support/test_databases.h"

namespace orvex::test {

/// A program as it is installed, with small stand-ins of its files, and a place for the application's folder.
class DeliveredFixture : public testing::Test {
 protected:
  DeliveredFixture() {
    for (const auto* name : {"bin", "share/orvex/display", "share/orvex/help"})
      std::filesystem::create_directories(root_ / name);
    WriteFile(delivered_ / "tankdata.mdb", "reference");
    WriteFile(delivered_ / "client1.mdb", "client");
    WriteFile(delivered_ / "display" / "briefdisplay.htm", "orvex brief page");
    WriteFile(delivered_ / "display" / "display.js", "orvex script");
    WriteFile(delivered_ / "help" / "ORVEX40.hlp", "help");
  }

  /// The folder's files as they are delivered.
  static std::vector<std::pair<std::string, std::string>> All() {
    return {{"tankdata.mdb", "reference"},
            {"client1.mdb", "client"},
            {"briefdisplay.htm", "orvex brief page"},
            {"display.js", "orvex script"},
            {"ORVEX40.hlp", "help"}};
  }

  TemporaryFolder temporary_;
  std::filesystem::path root_ = temporary_.Path();
  std::filesystem::path program_ = root_ / "bin" / "orvex";
  std::filesystem::path delivered_ = root_ / "share" / "orvex";
  std::filesystem::path folder_ = root_ / "data" / "orvex";
};

}  // namespace orvex::test
