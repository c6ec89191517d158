#include "store/database_replacement.h"

#include <gtest/gtest.h>

#include <string>

#include "store/raw_file.h"
#include "store/run_time_error.h"
#include "support/expect_error.h"
#include "support/file_content.h"
#include "support/file_size_limit.h"
#include "support/ordinary_person.h"
#include "support/test_databases.h"

namespace orvex::store {
namespace {

namespace fs = std::filesystem;

class DatabaseReplacementTest : public testing::Test {
 protected:
  static void Fill(DatabaseReplacement& replacement) {
    replacement.New().CreateTable("t", {{"A", FieldType::kText, 20}}, {});
    test::AddRow(replacement.New(), "t", {{"A", "new"}});
  }
  void ExpectNew() { EXPECT_EQ(Database::Open(path)->OpenTable("t").Text("A"), "new"); }
  test::TemporaryFolder folder;
  fs::path path = folder.Path() / "copy.mdb";
};

TEST_F(DatabaseReplacementTest, StandsThereOnceItIsCommitted) {
  DatabaseReplacement replacement(path);
  Fill(replacement);
  EXPECT_FALSE(fs::exists(path));
  replacement.Commit();
  ExpectNew();
  EXPECT_EQ(test::EntryCount(folder.Path()), 1);
}

TEST_F(DatabaseReplacementTest, TakesThePlaceOfAnyFile) {
  for (const auto* old : {"", "Dear reader,\n"}) {
    test::WriteFile(path, old);
    DatabaseReplacement replacement(path);
    Fill(replacement);
    EXPECT_EQ(test::FileContent(path), old);
    replacement.Commit();
    ExpectNew();
  }
}

TEST_F(DatabaseReplacementTest, LeftAloneChangesNothing) {
  test::WriteFile(path, "old");
  {
    DatabaseReplacement replacement(path);
    Fill(replacement);
  }
  EXPECT_EQ(test::FileContent(path), "old");
  EXPECT_EQ(test::EntryCount(folder.Path()), 1);
}

TEST_F(DatabaseReplacementTest, StaysAsFarAsItGotIfNothingHasThePlace) {
  {
    DatabaseReplacement replacement(path);
    Fill(replacement);
    replacement.KeepUnfinished();
  }
  ExpectNew();
  test::WriteFile(path, "old");
  {
    DatabaseReplacement replacement(path);
    Fill(replacement);
    replacement.KeepUnfinished();
  }
  EXPECT_EQ(test::FileContent(path), "old");
  EXPECT_EQ(test::EntryCount(folder.Path()), 1);
}

TEST_F(DatabaseReplacementTest, WhatTheCallerFindsWrongInTheWrittenFileKeepsTheOldOne) {
  test::WriteFile(path, "old");
  {
    DatabaseReplacement replacement(path);
    Fill(replacement);
    EXPECT_RUN_TIME_ERROR(replacement.Check([](Database& written) {
      EXPECT_TRUE(written.ReadOnly());
      EXPECT_EQ(written.OpenTable("t").Text("A"), "new");
      throw RunTimeError(ErrorNumber::kDamagedFile, "Not so.");
    }),
                          ErrorNumber::kDamagedFile);
  }
  EXPECT_EQ(test::FileContent(path), "old");
  EXPECT_EQ(test::EntryCount(folder.Path()), 1);
}

TEST_F(DatabaseReplacementTest, HasTheRightsOfTheOldFile) {
  test::WriteFile(path, "old");
  fs::permissions(path, fs::perms{0640});
  DatabaseReplacement replacement(path);
  Fill(replacement);
  replacement.Commit();
  EXPECT_EQ(fs::status(path).permissions(), fs::perms{0640});
}

TEST_F(DatabaseReplacementTest, RemovesTheJournalsOfWhatAKilledOneLeft) {
  for (const auto* ending : {".1-0.new", ".1-0.new-journal", ".1-0.new-wal"})
    test::WriteFile(path.string() + ending, "");
  { const DatabaseReplacement replacement(path); }
  EXPECT_EQ(test::EntryCount(folder.Path()), 0);
}

TEST_F(DatabaseReplacementTest, RemovesWhatAKilledOneLeftAndLeavesAloneWhatIsAtWork) {
  test::WriteFile(path.string() + ".1-0.new", "a part of a database");
  test::WriteFile(path.string() + ".1-0.news", "mine");
  DatabaseReplacement replacement(path);
  Fill(replacement);
  {
    DatabaseReplacement another(path);
    EXPECT_EQ(test::EntryCount(folder.Path()), 3);
  }
  replacement.Commit();
  ExpectNew();
  EXPECT_EQ(test::EntryCount(folder.Path()), 2);
  EXPECT_EQ(test::FileContent(path.string() + ".1-0.news"), "mine");
}

TEST_F(DatabaseReplacementTest, WhatAnotherProgramLeftBesideTheOldFileIsNotPlayedIntoTheNewOne) {
  const auto other = folder.Path() / "other.mdb";
  {
    test::RawFile writer(other);
    writer.Run("PRAGMA journal_mode = WAL; CREATE TABLE t (A TEXT); INSERT INTO t VALUES ('old')");
    fs::copy_file(other, path);
    fs::copy_file(other.string() + "-wal", path.string() + "-wal");
  }
  test::WriteFile(path.string() + "-journal", "no journal");
  DatabaseReplacement replacement(path);
  Fill(replacement);
  replacement.Commit();
  EXPECT_FALSE(fs::exists(path.string() + "-wal"));
  EXPECT_FALSE(fs::exists(path.string() + "-journal"));
  ExpectNew();
}

TEST_F(DatabaseReplacementTest, AnOldFileThatAnotherProgramWorksOnIsLeftAlone) {
  Database::Create(path, ClientTables());
  test::RawFile other(path);
  other.Run(R"(BEGIN EXCLUSIVE; INSERT INTO tank ("USER ID") VALUES ('theirs'))");
  {
    DatabaseReplacement replacement(path);
    Fill(replacement);
    EXPECT_RUN_TIME_ERROR(replacement.Commit(), ErrorNumber::kFileLocked);
  }
  other.Run("COMMIT");
  EXPECT_EQ(Database::Open(path)->OpenTable("tank").Text("USER ID"), "theirs");
  EXPECT_EQ(test::EntryCount(folder.Path()), 1);
}

TEST_F(DatabaseReplacementTest, APlaceThatCannotBeTakenIsAnErrorThatNamesIt) {
  const auto expect = [&](const fs::path& place, ErrorNumber number) {
    try {
      const DatabaseReplacement replacement(place);
      ADD_FAILURE() << place;
    } catch (const RunTimeError& error) {
      EXPECT_EQ(error.Number(), number) << error.Description();
      EXPECT_NE(error.Description().find(place.string()), std::string::npos) << error.Description();
    }
  };
  expect(folder.Path(), ErrorNumber::kDiskFailure);
  expect("/dev/null", ErrorNumber::kDiskFailure);
  expect(folder.Path() / "none" / "copy.mdb", ErrorNumber::kInvalidPath);
  EXPECT_TRUE(
      test::AsOrdinaryPerson(folder.Path(), test::kClosedFolder, [&] { expect(path, ErrorNumber::kDiskFailure); }));
}

}  // namespace
}  // namespace orvex::store
