#include "shell/database_locations.h"

#include "shell/database_files_fixture.h"
#include "store/raw_file.h"
#include "store/run_time_error.h"
#include "support/expect_error.h"

namespace orvex::shell {
namespace {

namespace fs = std::filesystem;
using store::Database;
using store::ErrorNumber;
using test::WriteFile;

constexpr std::string_view kTankTables[] = {"chemical",      "deckseam",           "fitting", "met",
                                            "profile names", "profile components", "rimseal"};
constexpr std::string_view kClientTables[] = {"components", "emission", "fittings", "mixtures", "tank", "error"};

class DatabaseLocations : public test::DatabaseFilesFixture {
 protected:
  /// Opening the file as a tank database fails so, and changes nothing about it.
  void ExpectFailure(const std::string& path, ErrorNumber number, bool wrong_location) {
    const std::string before = test::FileContent(path);
    try {
      OpenTankDatabase(session_, path);
      ADD_FAILURE() << path;
    } catch (const store::RunTimeError& error) {
      EXPECT_EQ(static_cast<int>(error.Number()), static_cast<int>(number)) << error.Description();
      EXPECT_EQ(IsWrongLocation(error), wrong_location) << error.Description();
      EXPECT_NE(error.Description().find(path), std::string::npos) << error.Description();
    }
    EXPECT_EQ(test::FileContent(path), before);
  }

  /// What is missing is told of the tables in the order of the list.
  static void ExpectEachNeeded(DatabaseKind kind, const std::string& path, std::span<const std::string_view> tables) {
    for (auto table = tables.rbegin(); table != tables.rend(); ++table) {
      Database::Open(path)->DeleteTable(*table);
      try {
        (void)OpenGoodDatabase(kind, path);
        ADD_FAILURE() << *table;
      } catch (const store::RunTimeError& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::kObjectNotFound);
        EXPECT_TRUE(error.Description().starts_with("The table '" + std::string(*table) + "' was not found"))
            << error.Description();
        EXPECT_TRUE(IsWrongLocation(error));
      }
    }
  }
};

TEST_F(DatabaseLocations, AGoodFileIsOpenAndItsPathShownInLowerCase) {
  OpenTankDatabase(session_, tank_);
  OpenClientDatabase(session_, client_);
  EXPECT_EQ(session_.ReferenceDb->Path(), tank_);
  EXPECT_EQ(session_.ClientDb->Path(), client_);
  EXPECT_FALSE(session_.ClientDb->ReadOnly());
  EXPECT_EQ(session_.TankPath, tank_);
  EXPECT_EQ(session_.ClientPath, client_);
  ASSERT_EQ(host_.panels.size(), 2U);
  EXPECT_EQ(host_.panels[0].first, PathPanel::kTank);
  EXPECT_TRUE(host_.panels[0].second.ends_with("/tankdata.mdb")) << host_.panels[0].second;
  EXPECT_EQ(host_.panels[1].first, PathPanel::kClient);
  EXPECT_TRUE(host_.panels[1].second.ends_with("/client1.mdb")) << host_.panels[1].second;
  // Nothing else is held open.
  EXPECT_NO_THROW(store::Transaction{*session_.ReferenceDb});
}

TEST_F(DatabaseLocations, EachTableOfTheTankListIsNeededInItsOrder) {
  ExpectEachNeeded(DatabaseKind::kTank, tank_, kTankTables);
}

TEST_F(DatabaseLocations, EachTableOfTheClientListIsNeededInItsOrder) {
  ExpectEachNeeded(DatabaseKind::kClient, client_, kClientTables);
}

TEST_F(DatabaseLocations, OtherTablesAndTheFieldsAreNotLookedAt) {
  Database::Open(tank_)->DeleteTable("import errors");
  EXPECT_NO_THROW((void)OpenGoodDatabase(DatabaseKind::kTank, tank_));
  const auto path = File("odd.mdb");
  {
    const auto odd = Database::Create(path, {});
    for (const auto table : kClientTables)
      odd->CreateTable(std::string(table), {{"X", store::FieldType::kLong, 0}}, {});
  }
  EXPECT_NO_THROW((void)OpenGoodDatabase(DatabaseKind::kClient, path));
}

TEST_F(DatabaseLocations, AMissingFileAMissingTableAndAnInvalidPathAreToldApart) {
  ExpectFailure(File("none.mdb"), ErrorNumber::kFileNotFound, true);
  ExpectFailure(client_, ErrorNumber::kObjectNotFound, true);
  ExpectFailure(File("none/tankdata.mdb"), ErrorNumber::kInvalidPath, true);
}

TEST_F(DatabaseLocations, ATextFileNamedAsADatabaseIsAWrongLocation) {
  const auto path = File("text.mdb");
  WriteFile(path, "Dear reader,\n");
  ExpectFailure(path, ErrorNumber::kNotADatabase, true);
}

TEST_F(DatabaseLocations, AnEmptyFileAFolderAndACutOffFileAreWrongLocations) {
  WriteFile(File("empty.mdb"), "");
  ExpectFailure(File("empty.mdb"), ErrorNumber::kNotADatabase, true);
  fs::create_directory(File("folder.mdb"));
  ExpectFailure(File("folder.mdb"), ErrorNumber::kNotADatabase, true);
  const std::string whole = test::FileContent(tank_);
  WriteFile(File("cut.mdb"), whole.substr(0, whole.size() / 2));
  ExpectFailure(File("cut.mdb"), ErrorNumber::kDamagedFile, true);
}

TEST_F(DatabaseLocations, ALockedFileIsNotAWrongLocation) {
  test::RawFile other(tank_);
  other.Run("BEGIN EXCLUSIVE");
  ExpectFailure(tank_, ErrorNumber::kFileLocked, false);
}

TEST_F(DatabaseLocations, AReadOnlyFileIsGood) {
  fs::permissions(tank_, fs::perms{0444});
  OpenTankDatabase(session_, tank_);
  EXPECT_NE(session_.ReferenceDb, nullptr);
}

TEST_F(DatabaseLocations, AFailureKeepsThePathAndTheDatabaseThatWasOpen) {
  OpenBoth();
  EXPECT_RUN_TIME_ERROR(OpenClientDatabase(session_, File("None.mdb")), ErrorNumber::kFileNotFound);
  EXPECT_EQ(session_.ClientPath, File("None.mdb"));
  ASSERT_EQ(host_.panels.size(), 1U);
  EXPECT_TRUE(host_.panels[0].second.ends_with("/none.mdb"));
  ASSERT_NE(session_.ClientDb, nullptr);
  EXPECT_EQ(session_.ClientDb->Path(), client_);
}

TEST_F(DatabaseLocations, PathsAreThoseBesideTheReportPagesUntilTheyAreSaved) {
  EXPECT_EQ(TankPathSetting(session_), File("tankdata.mdb"));
  EXPECT_EQ(ClientPathSetting(session_), File("client1.mdb"));
  OpenBoth();
  SaveTankPath(session_);
  SaveClientPath(session_);
  EXPECT_EQ(TankPathSetting(session_), tank_);
  EXPECT_EQ(ClientPathSetting(session_), client_);
  EXPECT_EQ(Setting("tankdata"), tank_);
  EXPECT_EQ(Setting("client"), client_);
}

}  // namespace
}  // namespace orvex::shell
