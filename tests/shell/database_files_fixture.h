#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "shell/database_locations.h"
#include "shell/session.h"
#include "shell/status.h"
#include "store/database.h"
#include "store/field_table.h"
#include "support/file_content.h"
#include "support/scripted_host.h"
#include "support/test_databases.h"

namespace orvex::test {

/// Both databases as files of a folder, and a session with settings of its own that has not opened them.
class DatabaseFilesFixture : public testing::Test {
 protected:
  DatabaseFilesFixture() {
    store::Database::Create(tank_, store::ReferenceTables());
    store::Database::Create(client_, store::ClientTables());
    session_.application_folder = folder_.Path();
  }

  void OpenBoth() {
    shell::OpenTankDatabase(session_, tank_);
    shell::OpenClientDatabase(session_, client_);
    host_.panels.clear();
  }

  [[nodiscard]] std::string File(const std::string& name) const { return folder_.Path() / name; }

  /// Another good file, with one row by which it is known.
  [[nodiscard]] std::string OtherTank() const {
    const auto path = File("Other Tank.mdb");
    AddRow(*store::Database::Create(path, store::ReferenceTables()), "deckseam", {{"NAME", "other"}});
    return path;
  }
  [[nodiscard]] std::string OtherClient() const {
    const auto path = File("Other Client.mdb");
    AddRow(*store::Database::Create(path, store::ClientTables()), "tank", {{"USER ID", "other"}});
    return path;
  }

  /// A message box without a title or icon of its own.
  void ExpectPlain(const std::string& text) {
    host_.ExpectMessage(text, "ORVEX", shell::Buttons::kOk, shell::Icon::kNone);
  }

  /// The pointer and the status line are as a command has to leave them.
  void ExpectRestored() const {
    ASSERT_FALSE(host_.pointers.empty());
    EXPECT_EQ(host_.pointers.back(), shell::Pointer::kDefault);
    EXPECT_EQ(host_.status.back(), "Ready");
  }

  /// Runs two commands whose file dialogs are cancelled: these must have been asked so, and nothing told.
  void ExpectCancelledDialogs(void (*for_tank)(shell::Session&), const std::string& tank_title,
                              void (*for_client)(shell::Session&), const std::string& client_title) {
    host_.ChooseFile("");
    host_.ChooseFile("");
    for_tank(session_);
    for_client(session_);
    ASSERT_EQ(host_.file_requests.size(), 2U);
    EXPECT_EQ(host_.file_requests[0].title, tank_title);
    EXPECT_EQ(host_.file_requests[1].title, client_title);
    for (const auto& request : host_.file_requests) {
      EXPECT_EQ(request.file_name, "*.mdb");
      EXPECT_EQ(request.filter, "Access (*.mdb) |*.mdb|");
      EXPECT_EQ(request.folder, folder_.Path());
    }
    EXPECT_EQ(host_.status,
              (std::vector<std::string>{"Processing, please wait...", "Ready", "Processing, please wait...", "Ready"}));
    EXPECT_TRUE(host_.messages.empty());
    ExpectRestored();
  }

  [[nodiscard]] std::string Setting(std::string_view key) const {
    return session_.settings.GetSetting(shell::kSettingsApplication, shell::kStartupSection, key, "(none)");
  }

  TemporaryFolder folder_;
  std::string tank_ = folder_.Path() / "TankData.mdb";
  std::string client_ = folder_.Path() / "Client1.mdb";
  ScriptedHost host_;
  shell::Session session_{host_};
};

}  // namespace orvex::test
