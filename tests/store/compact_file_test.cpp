#include "store/compact_file.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <fstream>
#include <string>
#include <thread>

#include "store/database.h"
#include "store/raw_file.h"
#include "store/run_time_error.h"
#include "support/child_process.h"
#include "support/expect_error.h"
#include "support/file_content.h"
#include "support/file_size_limit.h"
#include "support/ordinary_person.h"
#include "support/query_rows.h"
#include "support/test_databases.h"

namespace orvex::store {
namespace {

namespace fs = std::filesystem;

TEST(CompactionPath, HasAnNForItsLastCharacter) {
  EXPECT_EQ(CompactionPath("/data/client1.mdb"), "/data/client1.mdN");
  EXPECT_EQ(CompactionPath("/data/tankdata.MDB"), "/data/tankdata.MDN");
}

TEST(CompactionPath, OfAnExtensionOfOneCharacterReplacesJustThat) {
  EXPECT_EQ(CompactionPath("/data/client.d"), "/data/client.N");
  EXPECT_EQ(CompactionPath("/data/client"), "/data/clienN");
  EXPECT_EQ(CompactionPath("c"), "N");
}

TEST(CompactionPath, ReplacesACharacterOfSeveralBytesAsAWhole) {
  EXPECT_EQ(CompactionPath("/data/Beh\xC3\xA4lter \xE2\x82\xAC"), "/data/Beh\xC3\xA4lter N");
}

TEST(CompactionPath, IsNeverThePathItself) { EXPECT_EQ(CompactionPath("/data/client1.mdN"), "/data/client1.mdM"); }

class CompactFileTest : public testing::Test {
 protected:
  CompactFileTest() {
    const auto client = Database::Create(path, ClientTables());
    Transaction transaction(*client);
    for (int i = 0; i < 500; ++i) {
      test::AddRow(*client, "tank", {{"USER ID", "T" + std::to_string(i)}, {"DESC", std::string(200, 'd')}});
    }
    (void)client->Execute("DELETE * FROM tank WHERE ID > 3");
    transaction.Commit();
  }
  void ExpectTanks(const fs::path& file) {
    const auto client = Database::Open(file);
    EXPECT_EQ(test::QueryRows(*client, "SELECT * FROM tank", {"ID", "USER ID"}), (test::Rows{"1|T0", "2|T1", "3|T2"}));
    EXPECT_TRUE(client->IntegrityCheck());
  }
  /// Compacting must fail with this error and leave the folder as it is.
  void ExpectRefused(ErrorNumber number) {
    const std::string before = test::FileContent(path);
    const int entries = test::EntryCount(folder.Path());
    EXPECT_RUN_TIME_ERROR(CompactFile(path), number);
    EXPECT_EQ(test::FileContent(path), before);
    EXPECT_EQ(test::EntryCount(folder.Path()), entries);
  }
  test::TemporaryFolder folder;
  fs::path path = folder.Path() / "client1.mdb";
  fs::path beside = folder.Path() / "client1.mdN";
};

TEST_F(CompactFileTest, MakesTheFileSmallerAndKeepsItsContent) {
  const auto before = fs::file_size(path);
  CompactFile(path);
  EXPECT_LT(fs::file_size(path), before / 2);
  EXPECT_EQ(test::EntryCount(folder.Path()), 1);
  ExpectTanks(path);
  // A number that was given is not given again.
  test::AddRow(*Database::Open(path), "tank", {{"USER ID", "new"}});
  EXPECT_EQ(test::QueryRows(*Database::Open(path), "SELECT * FROM tank WHERE [USER ID] = 'new'", {"ID"}),
            (test::Rows{"501"}));
}

TEST_F(CompactFileTest, KeepsTheDefinitionsOfAllTables) {
  const auto definitions = [&] {
    std::string all;
    const auto client = Database::Open(path);
    for (const auto& table : client->TableNames()) {
      all += "\n" + table + ":";
      for (const auto& field : client->Fields(table)) all += " " + field.name + "/" + std::to_string(field.width);
      for (const auto& index : client->Indexes(table)) all += " " + index.name;
    }
    return all;
  };
  const auto before = definitions();
  CompactFile(path);
  EXPECT_EQ(definitions(), before);
}

TEST_F(CompactFileTest, KeepsTheRightsOfTheFile) {
  fs::permissions(path, fs::perms{0640});
  CompactFile(path);
  EXPECT_EQ(fs::status(path).permissions(), fs::perms{0640});
}

TEST_F(CompactFileTest, ReplacesTheFileBehindALink) {
  const auto link = folder.Path() / "link.mdb";
  fs::create_symlink(path, link);
  const auto before = fs::file_size(path);
  CompactFile(link);
  EXPECT_TRUE(fs::is_symlink(link));
  EXPECT_LT(fs::file_size(path), before);
  ExpectTanks(link);
}

TEST_F(CompactFileTest, AMissingForeignOrDamagedFileIsLeftAsItIs) {
  EXPECT_RUN_TIME_ERROR(CompactFile(folder.Path() / "none.mdb"), ErrorNumber::kFileNotFound);
  EXPECT_RUN_TIME_ERROR(CompactFile(folder.Path() / "none" / "client1.mdb"), ErrorNumber::kInvalidPath);
  std::string content = test::FileContent(path);
  test::WriteFile(path, "Dear reader,\n");
  ExpectRefused(ErrorNumber::kNotADatabase);
  std::fill(content.begin() + 3 * 4096, content.end(), '\x55');
  test::WriteFile(path, content);
  ExpectRefused(ErrorNumber::kDamagedFile);
}

TEST_F(CompactFileTest, AFileThatAnotherProgramHasOpenIsLeftAsItIs) {
  {
    test::RawFile other(path);
    other.Run("SELECT * FROM tank");
    ExpectRefused(ErrorNumber::kFileLocked);
    // Nothing of what the other one does later is lost.
    other.Run(R"(INSERT INTO tank ("USER ID") VALUES ('later'))");
  }
  CompactFile(path);
  EXPECT_EQ(Database::Open(path)->OpenTable("tank").RecordCount(), 4);
}

TEST_F(CompactFileTest, AProgramThatLetsGoOfTheFileSoonIsWaitedFor) {
  std::ifstream file(path);
  std::thread other([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    file.close();
  });
  EXPECT_NO_THROW(CompactFile(path));
  other.join();
  ExpectTanks(path);
}

TEST_F(CompactFileTest, AProgramThatOpensTheFileAgainAndAgainDoesNotEndThisOne) {
  test::ChildProcess other([&] {
    while (true) close(open(path.c_str(), O_RDONLY | O_CLOEXEC));
    return 0;
  });
  test::ChildProcess compacting([&] {
    for (int i = 0; i < 20; ++i) {
      try {
        CompactFile(path);
      } catch (const RunTimeError& error) {
        // The other one may be in the file at every attempt.
        EXPECT_EQ(error.Number(), ErrorNumber::kFileLocked) << error.Description();
      }
    }
    return 0;
  });
  EXPECT_EQ(compacting.Wait(), 0);
  EXPECT_TRUE(other.Kill());
  ExpectTanks(path);
}

TEST_F(CompactFileTest, AReadOnlyFileIsLeftAsItIs) {
  fs::permissions(path, fs::perms{0444});
  EXPECT_TRUE(test::AsOrdinaryPerson(folder.Path(), test::kOpenFolder, [&] { ExpectRefused(ErrorNumber::kReadOnly); }));
  ExpectTanks(path);
}

TEST_F(CompactFileTest, AFolderThatMayNotBeWrittenLeavesTheFileAsItIs) {
  fs::permissions(path, fs::perms{0666});
  EXPECT_TRUE(
      test::AsOrdinaryPerson(folder.Path(), test::kClosedFolder, [&] { ExpectRefused(ErrorNumber::kDiskFailure); }));
  ExpectTanks(path);
}

TEST_F(CompactFileTest, AFullDiskLeavesTheFileAsItIs) {
  const test::FileSizeLimit full_disk(8192);
  ExpectRefused(ErrorNumber::kDiskFailure);
}

TEST_F(CompactFileTest, AnotherFileOfTheNameBesideIsNotTouched) {
  test::WriteFile(beside, "mine");
  ExpectRefused(ErrorNumber::kAlreadyExists);
  EXPECT_EQ(test::FileContent(beside), "mine");
}

TEST_F(CompactFileTest, WhatAnEndedProgramLeftBesideIsClearedAway) {
  test::WriteFile(beside, "a part of a database");
  test::WriteFile(beside.string() + ".compacting", "");
  CompactFile(path);
  EXPECT_EQ(test::EntryCount(folder.Path()), 1);
  ExpectTanks(path);
}

TEST_F(CompactFileTest, WhatStandsInALogBesideTheFileIsInTheNewOne) {
  const auto crashed = folder.Path() / "crashed.mdb";
  {
    test::RawFile other(path);
    other.Run(R"(PRAGMA journal_mode = WAL; INSERT INTO tank ("USER ID") VALUES ('in the log'))");
    fs::copy_file(path, crashed);
    fs::copy_file(path.string() + "-wal", crashed.string() + "-wal");
  }
  CompactFile(crashed);
  EXPECT_FALSE(fs::exists(crashed.string() + "-wal"));
  EXPECT_EQ(Database::Open(crashed)->OpenTable("tank").RecordCount(), 4);
}

}  // namespace
}  // namespace orvex::store
