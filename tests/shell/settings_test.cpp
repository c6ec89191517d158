#include "shell/settings.h"

#include <gtest/gtest.h>

#include "store/run_time_error.h"
#include "support/expect_error.h"
#include "support/file_content.h"
#include "support/test_databases.h"

namespace orvex::shell {
namespace {

namespace fs = std::filesystem;
using store::ErrorNumber;

class SettingsFile : public testing::Test {
 protected:
  void Save(std::string_view key, std::string_view text) {
    Settings(folder_).SaveSetting(kSettingsApplication, kStartupSection, key, text);
  }
  [[nodiscard]] std::string Get(std::string_view key) const {
    return Settings(folder_).GetSetting(kSettingsApplication, kStartupSection, key, "(default)");
  }

  test::TemporaryFolder home_;
  fs::path folder_ = home_.Path() / "config" / "orvex";
  fs::path file_ = folder_ / "td40.ini";
};

TEST_F(SettingsFile, GivesTheDefaultWhereNothingWasSaved) {
  EXPECT_EQ(Get("tankdata"), "(default)");
  EXPECT_FALSE(fs::exists(folder_)) << "asking makes nothing";
  Save("client", "/a.mdb");
  EXPECT_EQ(Get("tankdata"), "(default)");
}

TEST_F(SettingsFile, KeepsATextForTheNextStart) {
  Save("tankdata", "/data/tankdata.mdb");
  Save("client", "/data/client1.mdb");
  Save("client", "/data/client2.mdb");
  EXPECT_EQ(Get("tankdata"), "/data/tankdata.mdb");
  EXPECT_EQ(Get("client"), "/data/client2.mdb");
}

TEST_F(SettingsFile, CanBeReadByAPerson) {
  Save("tankdata", "/home/José Müller/My Data/tankdata.mdb");
  EXPECT_EQ(test::FileContent(file_), "[Startup]\ntankdata=/home/José Müller/My Data/tankdata.mdb\n");
}

TEST_F(SettingsFile, GivesEveryTextBackAsItWas) {
  std::string all_bytes = "/";
  for (int byte = 1; byte < 256; ++byte) all_bytes += static_cast<char>(byte);
  for (const std::string& text :
       {std::string(), std::string(" blanks around "), std::string("\ttab"), std::string("line\nbreak\r\n"),
        std::string("not UTF-8: \xFF\xC3"), std::string("[Startup]"), std::string("a=b;c,d#e"), std::string("100%"),
        std::string("%41"), std::string("back\\slash\\n"), std::string("C:\\TANKS\\CLIENT1.MDB"), all_bytes}) {
    Save("client", text);
    EXPECT_EQ(Get("client"), text);
  }
}

TEST_F(SettingsFile, TakesWhatAPersonWroteIntoIt) {
  fs::create_directories(folder_);
  test::WriteFile(file_, "# mine\n\n[Startup]\nclient = /data/50%/a.mdb\n\n[Other]\nkey=1\n");
  EXPECT_EQ(Get("client"), "/data/50%/a.mdb");
  Save("tankdata", "/t.mdb");
  const auto content = test::FileContent(file_);
  EXPECT_NE(content.find("# mine\n"), std::string::npos) << content;
  EXPECT_NE(content.find("[Other]\nkey=1\n"), std::string::npos) << content;
  EXPECT_EQ(Get("client"), "/data/50%/a.mdb");
  EXPECT_EQ(Get("tankdata"), "/t.mdb");
}

TEST_F(SettingsFile, ThatCannotBeUnderstoodHoldsNobodyUp) {
  fs::create_directories(folder_);
  for (const char* content : {"", "nonsense", "[Startup\nclient=x", "[Startup]\nclient", "\xFF\xFE\x01\x02"}) {
    test::WriteFile(file_, content);
    EXPECT_EQ(Get("client"), "(default)") << content;
    Save("client", "/a.mdb");
    EXPECT_EQ(Get("client"), "/a.mdb") << content;
  }
}

TEST_F(SettingsFile, ThatCannotBeReadIsNotReplaced) {
  fs::create_directories(file_ / "something of the person's");
  EXPECT_EQ(Get("client"), "(default)");
  EXPECT_RUN_TIME_ERROR(Save("client", "/a.mdb"), ErrorNumber::kDiskFailure);
  EXPECT_TRUE(fs::exists(file_ / "something of the person's"));
}

TEST_F(SettingsFile, ThatCannotBeMadeIsToldWithItsFolder) {
  test::WriteFile(home_.Path() / "config", "a file where the folder should be");
  try {
    Save("client", "/a.mdb");
    ADD_FAILURE() << "nothing was thrown";
  } catch (const store::RunTimeError& error) {
    EXPECT_NE(error.Description().find((home_.Path() / "config").string()), std::string::npos) << error.Description();
  }
}

TEST_F(SettingsFile, ThatIsALinkStaysOne) {
  fs::create_directories(folder_);
  const auto elsewhere = home_.Path() / "kept elsewhere.ini";
  test::WriteFile(elsewhere, "[Startup]\nclient=/a.mdb\n");
  fs::create_symlink(elsewhere, file_);
  Save("client", "/b.mdb");
  EXPECT_TRUE(fs::is_symlink(file_));
  EXPECT_EQ(test::FileContent(elsewhere), "[Startup]\nclient=/b.mdb\n");
}

TEST_F(SettingsFile, LeavesNothingBesideIt) {
  Save("client", "/a.mdb");
  Save("client", "/b.mdb");
  EXPECT_EQ(test::EntryCount(folder_), 1);
}

TEST(Settings, WithoutAFolderLastAsLongAsTheProgram) {
  Settings settings;
  EXPECT_EQ(settings.GetSetting("td40", "Startup", "client", "none"), "none");
  settings.SaveSetting("td40", "Startup", "client", "/a.mdb");
  EXPECT_EQ(settings.GetSetting("td40", "Startup", "client", "none"), "/a.mdb");
  EXPECT_EQ(settings.GetSetting("td40", "Other", "client", "none"), "none");
  EXPECT_EQ(Settings().GetSetting("td40", "Startup", "client", "none"), "none");
}

TEST(SettingsFolder, IsThePersonsOwn) {
  EXPECT_EQ(SettingsFolder({"", "/home/ann", "/account", "/conf"}), "/conf/orvex");
  EXPECT_EQ(SettingsFolder({"/data", "/home/ann", "/account", ""}), "/home/ann/.config/orvex");
  EXPECT_EQ(SettingsFolder({"", "/home/ann", "", "relative/conf"}), "/home/ann/.config/orvex");
  EXPECT_EQ(SettingsFolder({"", "", "/account", ""}), "/account/.config/orvex");
  EXPECT_RUN_TIME_ERROR(SettingsFolder({"/data", "", "", ""}), ErrorNumber::kInvalidPath);
}

}  // namespace
}  // namespace orvex::shell
