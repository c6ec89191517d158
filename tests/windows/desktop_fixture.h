#pragma once

#include <gtest/gtest.h>

#include <filesystem>

#include "shell/session.h"
#include "store/database.h"
#include "support/test_databases.h"
#include "windows/desktop_host.h"
#include "windows/main_window.h"
#include "windows/program_commands.h"

namespace orvex::test {

/// The main window over copies of the delivered reference database and the sample inventory.
class DesktopTest : public testing::Test {
 protected:
  DesktopTest() {
    std::filesystem::copy_file(ORVEX_REFERENCE_DATABASE, folder_.Path() / "tankdata.mdb");
    std::filesystem::copy_file(ORVEX_SAMPLE_DATABASE, folder_.Path() / "client1.mdb");
    session_.TankPath = (folder_.Path() / "tankdata.mdb").string();
    session_.ClientPath = (folder_.Path() / "client1.mdb").string();
    session_.ReferenceDb = store::Database::Open(session_.TankPath);
    session_.ClientDb = store::Database::Open(session_.ClientPath);
    session_.application_folder = folder_.Path();
    session_.PrintMode = "Report";
    windows::AddCommands(session_);
    host_.Attach(session_);
    host_.ShowMainWindow();
  }
  ~DesktopTest() override { host_.CloseAll(); }

  TemporaryFolder folder_;
  windows::DesktopHost host_{nullptr};
  shell::Session session_{host_};
};

}  // namespace orvex::test
