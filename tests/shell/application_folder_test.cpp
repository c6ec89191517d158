#include "shell/application_folder.h"

#include <fmt/format.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <optional>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "shell/delivered_files.h"
#include "shell/delivered_fixture.h"
#include "store/database.h"
#include "store/field_table.h"
#include "support/child_process.h"
#include "support/expect_error.h"
#include "support/file_size_limit.h"

namespace orvex::shell {
namespace {

namespace fs = std::filesystem;
using store::ErrorNumber;
using test::FileContent;
using test::WriteFile;

PersonFolders Person(const char* data_home, const char* home, const char* account_home) {
  return {.data_home = data_home, .home = home, .account_home = account_home};
}

TEST(ApplicationFolderPlace, IsInTheDataHomeIfThatIsSet) {
  EXPECT_EQ(ApplicationFolder(Person("/x/data", "/home/a", "/home/b")), "/x/data/orvex");
  EXPECT_EQ(ApplicationFolder(Person("/x/with blank \"ü\"", "", "")), "/x/with blank \"ü\"/orvex");
}

TEST(ApplicationFolderPlace, IsBelowHomeOtherwise) {
  EXPECT_EQ(ApplicationFolder(Person("", "/home/a", "/home/b")), "/home/a/.local/share/orvex");
}

TEST(ApplicationFolderPlace, IsBelowTheHomeOfTheAccountWithoutHome) {
  EXPECT_EQ(ApplicationFolder(Person("", "", "/home/b")), "/home/b/.local/share/orvex");
}

TEST(ApplicationFolderPlace, ARelativePathCountsAsNotSet) {
  EXPECT_EQ(ApplicationFolder(Person("data", "/home/a", "")), "/home/a/.local/share/orvex");
  EXPECT_EQ(ApplicationFolder(Person("../data", "home", "/home/b")), "/home/b/.local/share/orvex");
}

TEST(ApplicationFolderPlace, NoHomeAtAllIsAnError) {
  EXPECT_RUN_TIME_ERROR(ApplicationFolder(Person("", "", "")), ErrorNumber::kInvalidPath);
  EXPECT_RUN_TIME_ERROR(ApplicationFolder(Person("data", "home", ".")), ErrorNumber::kInvalidPath);
}

/// Sets an environment variable, or takes it away, for as long as it lives.
class Variable {
 public:
  Variable(const char* name, const char* value) : name_(name) {
    if (const char* before = std::getenv(name)) before_ = before;
    Set(value);
  }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;
  ~Variable() { Set(before_ ? before_->c_str() : nullptr); }

 private:
  void Set(const char* value) const { value == nullptr ? unsetenv(name_) : setenv(name_, value, 1); }
  const char* name_;
  std::optional<std::string> before_;
};

TEST(ApplicationFolderPlace, FollowsTheEnvironment) {
  {
    const Variable data_home("XDG_DATA_HOME", "/x/data");
    EXPECT_EQ(ApplicationFolder(FindPersonFolders()), "/x/data/orvex");
  }
  const Variable data_home("XDG_DATA_HOME", nullptr);
  {
    const Variable home("HOME", "/home/a");
    EXPECT_EQ(ApplicationFolder(FindPersonFolders()), "/home/a/.local/share/orvex");
  }
  const Variable home("HOME", nullptr);
  EXPECT_EQ(FindPersonFolders().home, "");
  EXPECT_TRUE(fs::path(FindPersonFolders().account_home).is_absolute());
}

class ApplicationFolderTest : public test::DeliveredFixture {
 protected:
  Filling Fill() { return FillApplicationFolder(folder_, program_); }

  /// Every delivered file stands in the folder as it was delivered.
  void ExpectAllDelivered() {
    for (const auto& [name, content] : All()) EXPECT_EQ(FileContent(folder_ / name), content) << name;
  }

  [[nodiscard]] std::vector<std::string> Names(const std::vector<fs::path>& paths) const {
    std::vector<std::string> names;
    for (const auto& path : paths) {
      EXPECT_EQ(path.parent_path(), folder_);
      names.push_back(path.filename());
    }
    return names;
  }

  /// The only failure of a filling, with this number, and names this path.
  static void ExpectFailure(const Filling& filling, ErrorNumber number, const fs::path& path) {
    ASSERT_EQ(filling.failures.size(), 1U);
    EXPECT_EQ(filling.failures[0].Number(), number);
    EXPECT_NE(filling.failures[0].Description().find("'" + path.string() + "'"), std::string::npos)
        << filling.failures[0].Description();
  }
};

TEST_F(ApplicationFolderTest, IsMadeAndFilledOnTheFirstStart) {
  const auto filling = Fill();
  EXPECT_TRUE(filling.first_start);
  EXPECT_EQ(Names(filling.added),
            (std::vector<std::string>{"tankdata.mdb", "client1.mdb", "briefdisplay.htm", "display.js", "ORVEX40.hlp"}));
  EXPECT_TRUE(filling.updated.empty());
  EXPECT_TRUE(filling.failures.empty());
  ExpectAllDelivered();
  // Those and the mark.
  EXPECT_EQ(test::EntryCount(folder_), 6);
}

TEST_F(ApplicationFolderTest, IsForThePersonAlone) {
  Fill();
  struct stat about {};
  ASSERT_EQ(stat(folder_.c_str(), &about), 0);
  EXPECT_EQ(about.st_mode & 0777U, 0700U);
}

TEST_F(ApplicationFolderTest, ASecondStartDoesNothing) {
  Fill();
  const auto filling = Fill();
  EXPECT_FALSE(filling.first_start);
  EXPECT_TRUE(filling.added.empty());
  EXPECT_TRUE(filling.updated.empty());
  EXPECT_TRUE(filling.failures.empty());
  ExpectAllDelivered();
}

TEST_F(ApplicationFolderTest, ANewVersionBringsPagesAndHelpUpToDateAndLeavesTheDatabases) {
  Fill();
  WriteFile(folder_ / "client1.mdb", "my tanks");
  WriteFile(folder_ / "tankdata.mdb", "");
  WriteFile(delivered_ / "client1.mdb", "client 2");
  WriteFile(delivered_ / "tankdata.mdb", "reference 2");
  WriteFile(delivered_ / "display" / "display.js", "orvex script 2");
  WriteFile(delivered_ / "display" / "charts.js", "orvex charts");
  WriteFile(folder_ / "ORVEX40.hlp", "changed help");
  const auto filling = Fill();
  EXPECT_EQ(Names(filling.added), std::vector<std::string>{"charts.js"});
  EXPECT_EQ(Names(filling.updated), (std::vector<std::string>{"display.js", "ORVEX40.hlp"}));
  EXPECT_EQ(FileContent(folder_ / "client1.mdb"), "my tanks");
  EXPECT_EQ(FileContent(folder_ / "tankdata.mdb"), "");
  EXPECT_EQ(FileContent(folder_ / "display.js"), "orvex script 2");
  EXPECT_EQ(FileContent(folder_ / "ORVEX40.hlp"), "help");
}

TEST_F(ApplicationFolderTest, DatabasesThatStandThereOnTheFirstStartAreLeft) {
  fs::create_directories(folder_);
  WriteFile(folder_ / "client1.mdb", "damaged");
  WriteFile(folder_ / "tankdata.mdb", "");
  const auto filling = Fill();
  EXPECT_TRUE(filling.first_start);
  EXPECT_TRUE(filling.failures.empty());
  EXPECT_EQ(FileContent(folder_ / "client1.mdb"), "damaged");
  EXPECT_EQ(FileContent(folder_ / "tankdata.mdb"), "");
  EXPECT_FALSE(Fill().first_start);
}

TEST_F(ApplicationFolderTest, ADatabaseThatWasMovedAwayIsNotReplacedByAnEmptyOne) {
  Fill();
  fs::rename(folder_ / "client1.mdb", root_ / "client1.mdb");
  const auto filling = Fill();
  EXPECT_TRUE(filling.added.empty());
  EXPECT_FALSE(fs::exists(folder_ / "client1.mdb"));
}

TEST_F(ApplicationFolderTest, ARemovedFolderIsFilledAgain) {
  Fill();
  fs::remove_all(folder_);
  EXPECT_TRUE(Fill().first_start);
  ExpectAllDelivered();
}

TEST_F(ApplicationFolderTest, AHelpThatIsNotDeliveredIsNoFailure) {
  fs::remove_all(delivered_ / "help");
  EXPECT_TRUE(Fill().failures.empty());
}

TEST_F(ApplicationFolderTest, AMissingDeliveredDatabaseDoesNotKeepTheRestAway) {
  fs::rename(delivered_ / "tankdata.mdb", root_ / "tankdata.mdb");
  ExpectFailure(Fill(), ErrorNumber::kFileNotFound, delivered_ / "tankdata.mdb");
  EXPECT_EQ(FileContent(folder_ / "client1.mdb"), "client");
  EXPECT_EQ(FileContent(folder_ / "display.js"), "orvex script");
  // It was not the whole filling, so the next start goes on with it.
  fs::rename(root_ / "tankdata.mdb", delivered_ / "tankdata.mdb");
  const auto filling = Fill();
  EXPECT_TRUE(filling.first_start);
  EXPECT_EQ(Names(filling.added), std::vector<std::string>{"tankdata.mdb"});
}

TEST_F(ApplicationFolderTest, MissingPagesAreAFailure) {
  fs::remove_all(delivered_ / "display");
  ExpectFailure(Fill(), ErrorNumber::kFileNotFound, delivered_ / "display");
}

TEST_F(ApplicationFolderTest, AFileWhereTheFolderShouldBeIsNamed) {
  fs::create_directories(folder_.parent_path());
  WriteFile(folder_, "a file");
  ExpectFailure(Fill(), ErrorNumber::kInvalidPath, folder_);
  EXPECT_EQ(FileContent(folder_), "a file");
}

TEST_F(ApplicationFolderTest, AFileAboveTheFolderIsNamed) {
  WriteFile(root_ / "data", "a file");
  const auto filling = Fill();
  ASSERT_EQ(filling.failures.size(), 1U);
  EXPECT_NE(filling.failures[0].Description().find((root_ / "data").string()), std::string::npos);
}

TEST_F(ApplicationFolderTest, AFolderThatTakesNothingIsNamed) {
  ASSERT_TRUE(fs::exists("/proc/self")) << "it refuses files to everybody";
  ExpectFailure(FillApplicationFolder("/proc/orvex", program_), ErrorNumber::kDiskFailure, "/proc/orvex");
  const auto filling = FillApplicationFolder("/proc/self", program_);
  ASSERT_EQ(filling.failures.size(), 5U);
  EXPECT_NE(filling.failures[0].Description().find("'/proc/self/tankdata.mdb'"), std::string::npos);
  EXPECT_TRUE(filling.added.empty());
}

TEST_F(ApplicationFolderTest, OfManyFailuresTheFirstAreToldAndTheOthersCounted) {
  Filling filling;
  EXPECT_EQ(FailureText(filling), "");
  const auto fail = [&](int number) {
    filling.failures.emplace_back(ErrorNumber::kDiskFailure, "No " + std::to_string(number) + ".");
  };
  fail(1);
  EXPECT_EQ(FailureText(filling), "Not all files of the program could be put into their folder:\n\nNo 1.");
  for (int i = 2; i <= 5; ++i) fail(i);
  const std::string five =
      "Not all files of the program could be put into their folder:\n\nNo 1.\nNo 2.\nNo 3.\nNo 4.\nNo 5.";
  EXPECT_EQ(FailureText(filling), five);
  for (int i = 6; i <= 24; ++i) fail(i);
  EXPECT_EQ(FailureText(filling), five + "\nAnd 19 more.");
}

TEST_F(ApplicationFolderTest, ALinkToAFolderWillDo) {
  fs::create_directories(root_ / "elsewhere");
  fs::create_directories(folder_.parent_path());
  fs::create_directory_symlink(root_ / "elsewhere", folder_);
  EXPECT_TRUE(Fill().failures.empty());
  EXPECT_EQ(FileContent(root_ / "elsewhere" / "client1.mdb"), "client");
}

TEST_F(ApplicationFolderTest, ALinkThatLeadsNowhereIsNamed) {
  fs::create_directories(folder_.parent_path());
  fs::create_directory_symlink(root_ / "nowhere", folder_);
  ExpectFailure(Fill(), ErrorNumber::kDiskFailure, folder_);
  EXPECT_FALSE(fs::exists(root_ / "nowhere"));
}

TEST_F(ApplicationFolderTest, NamesOfAnyKindWillDo) {
  folder_ = root_ / "-rf" / "it's \"my\" dossier é\nü" / "orvex";
  EXPECT_TRUE(Fill().failures.empty());
  ExpectAllDelivered();
}

TEST_F(ApplicationFolderTest, ADiskThatFillsUpLeavesNoHalfFilesAndTheNextStartGoesOn) {
  WriteFile(delivered_ / "tankdata.mdb", std::string(300000, 'r'));
  ExpectFailure(
      [&] {
        const test::FileSizeLimit full(100000);
        return Fill();
      }(),
      ErrorNumber::kDiskFailure, folder_ / "tankdata.mdb");
  EXPECT_FALSE(fs::exists(folder_ / "tankdata.mdb"));
  EXPECT_EQ(FileContent(folder_ / "client1.mdb"), "client");
  EXPECT_TRUE(Fill().failures.empty());
  EXPECT_EQ(FileContent(folder_ / "tankdata.mdb"), std::string(300000, 'r'));
}

TEST_F(ApplicationFolderTest, ProgramsThatStartAtOnceDoNoHarm) {
  for (int round = 0; round < 10; ++round) {
    fs::remove_all(folder_);
    const auto start = std::chrono::steady_clock::now() + std::chrono::milliseconds(20);
    std::vector<test::ChildProcess> programs;
    for (int i = 0; i < 8; ++i) {
      programs.emplace_back([&] {
        std::this_thread::sleep_until(start);
        const auto filling = Fill();
        EXPECT_TRUE(filling.failures.empty());
        return static_cast<int>(std::ranges::count(filling.added, folder_ / "client1.mdb"));
      });
    }
    // One of them put the database there, and nobody after it.
    int added = 0;
    for (auto& program : programs) added += program.Wait();
    EXPECT_EQ(added, 1);
    ExpectAllDelivered();
    EXPECT_EQ(test::EntryCount(folder_), 6);
  }
}

TEST_F(ApplicationFolderTest, WhatAKilledStartLeftIsClearedByTheNext) {
  ASSERT_TRUE(Fill().failures.empty());
  const auto entries = test::EntryCount(folder_);
  for (const auto* name : {"tankdata.mdb", "client1.mdb", ".filled", "display.js", "ORVEX40.hlp"})
    WriteFile(folder_ / (std::string(name) + ".4711-0.new"), "half a fil");
  WriteFile(folder_ / "letter.txt.4711-0.new", "a person's");
  EXPECT_TRUE(Fill().failures.empty());
  EXPECT_EQ(test::EntryCount(folder_), entries + 1);
  EXPECT_EQ(FileContent(folder_ / "letter.txt.4711-0.new"), "a person's");
  ExpectAllDelivered();
}

/// The files that are in their places are whole, whenever the filling was ended.
TEST_F(ApplicationFolderTest, EndedAtAnyMomentItLeavesWholeFilesAndTheNextStartGoesOn) {
  const std::string reference(400000, 'r');
  WriteFile(delivered_ / "tankdata.mdb", reference);
  WriteFile(delivered_ / "display" / "display.js", "orvex" + std::string(200000, 's'));
  const auto began = std::chrono::steady_clock::now();
  ASSERT_EQ(test::ChildProcess([&] { return static_cast<int>(Fill().failures.size()); }).Wait(), 0);
  // How long a filling lives: on a busy machine the first may have been slow, so whenever a kill comes too late the
  // later ones come sooner.
  std::chrono::duration<double> life = std::chrono::steady_clock::now() - began;
  std::mt19937 random(20241121);
  std::uniform_real_distribution<double> within(0, 1);
  int killed = 0;
  for (int i = 0; i < 40; ++i) {
    fs::remove_all(folder_);
    test::ChildProcess program([&] { return static_cast<int>(Fill().failures.size()); });
    std::this_thread::sleep_for(within(random) * life);
    if (program.Kill()) {
      ++killed;
    } else {
      life *= 0.8;
    }
    const bool marked = fs::exists(folder_ / ".filled");
    for (const auto& name : {"tankdata.mdb", "client1.mdb", "briefdisplay.htm", "display.js", "ORVEX40.hlp"}) {
      const auto& source = name == std::string("ORVEX40.hlp")    ? delivered_ / "help"
                           : std::string(name).ends_with(".mdb") ? delivered_
                                                                 : delivered_ / "display";
      if (fs::exists(folder_ / name)) {
        EXPECT_EQ(FileContent(folder_ / name), FileContent(source / name)) << name;
      } else {
        EXPECT_FALSE(marked && std::string(name).ends_with(".mdb")) << name;
      }
    }
    EXPECT_TRUE(Fill().failures.empty());
    EXPECT_EQ(FileContent(folder_ / "tankdata.mdb"), reference);
    EXPECT_EQ(FileContent(folder_ / "client1.mdb"), "client");
    // The five files and the mark: nothing unfinished is left.
    EXPECT_EQ(test::EntryCount(folder_), 6);
  }
  RecordProperty("killed", killed);
  EXPECT_GT(killed, 0);  // how many depends on what else the computer does
}

TEST_F(ApplicationFolderTest, ADatabaseThatWasDeliveredWithoutWriteAccessCanBeWritten) {
  fs::remove(delivered_ / "client1.mdb");
  store::Database::Create(delivered_ / "client1.mdb", store::ClientTables());
  fs::permissions(delivered_ / "client1.mdb", fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
  EXPECT_TRUE(Fill().failures.empty());
  const auto client = store::Database::Open(folder_ / "client1.mdb");
  EXPECT_FALSE(client->ReadOnly());
  EXPECT_TRUE(client->OpenTable("tank").AtEnd());
  struct stat about {};
  ASSERT_EQ(stat((folder_ / "client1.mdb").c_str(), &about), 0);
  EXPECT_NE(about.st_mode & S_IWUSR, 0U);
}

}  // namespace
}  // namespace orvex::shell
