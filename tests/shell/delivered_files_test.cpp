#include "shell/delivered_files.h"

#include <gtest/gtest.h>

#include "shell/delivered_fixture.h"
#include "support/expect_error.h"

namespace orvex::shell {
namespace {

namespace fs = std::filesystem;
using store::ErrorNumber;
using test::FileContent;
using test::WriteFile;

class DeliveredFilesTest : public test::DeliveredFixture {
 protected:
  DeliveredFilesTest() { fs::create_directories(folder_); }
};

TEST_F(DeliveredFilesTest, AreFoundWhereTheProgramIsInstalled) {
  EXPECT_EQ(FindDelivered(program_, "tankdata.mdb"), delivered_ / "tankdata.mdb");
  EXPECT_EQ(FindDelivered(program_, kDisplayFolder), delivered_ / "display");
}

TEST_F(DeliveredFilesTest, AreFoundWhereTheProgramWasBuilt) {
  fs::create_directories(root_ / "build" / "data");
  WriteFile(root_ / "build" / "data" / "tankdata.mdb", "built");
  EXPECT_EQ(FindDelivered(root_ / "build" / "apps" / "orvex" / "orvex", "tankdata.mdb"),
            root_ / "build" / "data" / "tankdata.mdb");
}

TEST_F(DeliveredFilesTest, BothPlacesAreNamedWhenAFileIsInNone) {
  try {
    FindDelivered(program_, "missing.mdb");
    FAIL() << "found a file that is not there";
  } catch (const store::RunTimeError& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::kFileNotFound);
    EXPECT_NE(error.Description().find("'" + (delivered_ / "missing.mdb").string() + "'"), std::string::npos);
    EXPECT_NE(error.Description().find("data/missing.mdb'"), std::string::npos) << error.Description();
  }
}

TEST_F(DeliveredFilesTest, OfAFolderAreItsFilesByName) {
  fs::create_directory(delivered_ / "display" / "folder");
  EXPECT_EQ(DeliveredFiles(delivered_ / "display"),
            (std::vector{delivered_ / "display" / "briefdisplay.htm", delivered_ / "display" / "display.js"}));
  EXPECT_RUN_TIME_ERROR(DeliveredFiles(delivered_ / "missing"), ErrorNumber::kDiskFailure);
}

TEST_F(DeliveredFilesTest, AProgramsFileIsAddedThenLeftThenUpdated) {
  const auto page = delivered_ / "display" / "briefdisplay.htm";
  EXPECT_EQ(BringUpToDate(page, folder_), Delivery::kAdded);
  const auto written = fs::last_write_time(folder_ / "briefdisplay.htm");
  EXPECT_EQ(BringUpToDate(page, folder_), Delivery::kNone);
  EXPECT_EQ(fs::last_write_time(folder_ / "briefdisplay.htm"), written);
  WriteFile(page, "orvex new brief page");
  EXPECT_EQ(BringUpToDate(page, folder_), Delivery::kUpdated);
  EXPECT_EQ(FileContent(folder_ / "briefdisplay.htm"), "orvex new brief page");
  EXPECT_EQ(test::EntryCount(folder_), 1);
}

TEST_F(DeliveredFilesTest, AnEmptyFileIsAFileLikeOthers) {
  WriteFile(delivered_ / "display" / "empty.css", "");
  EXPECT_EQ(BringUpToDate(delivered_ / "display" / "empty.css", folder_), Delivery::kAdded);
  EXPECT_TRUE(fs::exists(folder_ / "empty.css"));
}

TEST_F(DeliveredFilesTest, ALinkIsReplacedAndWhatItLeadsToIsLeft) {
  WriteFile(root_ / "letter.txt", "Dear Sir or Madam");
  fs::create_symlink(root_ / "letter.txt", folder_ / "briefdisplay.htm");
  EXPECT_EQ(BringUpToDate(delivered_ / "display" / "briefdisplay.htm", folder_), Delivery::kUpdated);
  EXPECT_FALSE(fs::is_symlink(folder_ / "briefdisplay.htm"));
  EXPECT_EQ(FileContent(root_ / "letter.txt"), "Dear Sir or Madam");
}

TEST_F(DeliveredFilesTest, AFolderInTheWayIsNamed) {
  fs::create_directory(folder_ / "briefdisplay.htm");
  try {
    BringUpToDate(delivered_ / "display" / "briefdisplay.htm", folder_);
    FAIL() << "replaced a folder";
  } catch (const store::RunTimeError& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::kDiskFailure);
    EXPECT_NE(error.Description().find((folder_ / "briefdisplay.htm").string()), std::string::npos);
  }
}

TEST_F(DeliveredFilesTest, ADeliveredFileThatCannotBeReadIsNamed) {
  EXPECT_RUN_TIME_ERROR(BringUpToDate(delivered_ / "display" / "missing.js", folder_), ErrorNumber::kDiskFailure);
  EXPECT_RUN_TIME_ERROR(BringUpToDate(delivered_ / "display", folder_), ErrorNumber::kDiskFailure);
  EXPECT_EQ(test::EntryCount(folder_), 0);
}

TEST_F(DeliveredFilesTest, ADisplayFileIsKnownByItsMark) {
  EXPECT_TRUE(IsDisplayFile(delivered_ / "display" / "display.js"));
  WriteFile(root_ / "display.css", "/* ORVEX report pages */");
  EXPECT_TRUE(IsDisplayFile(root_ / "display.css"));
  WriteFile(root_ / "charts.js", "function draw() {}");
  EXPECT_FALSE(IsDisplayFile(root_ / "charts.js"));
  EXPECT_FALSE(IsDisplayFile(root_));
  EXPECT_FALSE(IsDisplayFile(root_ / "missing.js"));
}

TEST_F(DeliveredFilesTest, ADatabaseIsAddedOnce) {
  EXPECT_TRUE(AddDatabase(delivered_ / "client1.mdb", folder_));
  EXPECT_EQ(FileContent(folder_ / "client1.mdb"), "client");
  WriteFile(delivered_ / "client1.mdb", "another client");
  EXPECT_FALSE(AddDatabase(delivered_ / "client1.mdb", folder_));
  EXPECT_EQ(FileContent(folder_ / "client1.mdb"), "client");
  EXPECT_EQ(test::EntryCount(folder_), 1);
}

TEST_F(DeliveredFilesTest, ADatabaseIsNeverPutOverAnything) {
  const auto target = folder_ / "client1.mdb";
  WriteFile(target, "");
  EXPECT_FALSE(AddDatabase(delivered_ / "client1.mdb", folder_));
  EXPECT_TRUE(fs::is_empty(target));
  WriteFile(target, "no database at all");
  EXPECT_FALSE(AddDatabase(delivered_ / "client1.mdb", folder_));
  EXPECT_EQ(FileContent(target), "no database at all");
  fs::remove(target);
  fs::create_directory(target);
  EXPECT_FALSE(AddDatabase(delivered_ / "client1.mdb", folder_));
  EXPECT_TRUE(fs::is_directory(target));
  fs::remove(target);
  // A link into a drive that is not there today.
  fs::create_symlink(root_ / "drive" / "client1.mdb", target);
  EXPECT_FALSE(AddDatabase(delivered_ / "client1.mdb", folder_));
  EXPECT_TRUE(fs::is_symlink(target));
  EXPECT_FALSE(fs::exists(root_ / "drive"));
}

TEST_F(DeliveredFilesTest, ALeftoverOfARemovedDatabaseDoesNotGetIntoTheNewOne) {
  WriteFile(folder_ / "client1.mdb-journal", "old pages");
  WriteFile(folder_ / "client1.mdb-wal", "old frames");
  EXPECT_TRUE(AddDatabase(delivered_ / "client1.mdb", folder_));
  EXPECT_FALSE(fs::exists(folder_ / "client1.mdb-journal"));
  EXPECT_FALSE(fs::exists(folder_ / "client1.mdb-wal"));
  EXPECT_EQ(FileContent(folder_ / "client1.mdb-journal.old"), "old pages");
}

TEST_F(DeliveredFilesTest, TheJournalOfADatabaseThatIsThereStays) {
  WriteFile(folder_ / "client1.mdb", "mine");
  WriteFile(folder_ / "client1.mdb-journal", "its pages");
  EXPECT_FALSE(AddDatabase(delivered_ / "client1.mdb", folder_));
  EXPECT_EQ(FileContent(folder_ / "client1.mdb-journal"), "its pages");
}

}  // namespace
}  // namespace orvex::shell
