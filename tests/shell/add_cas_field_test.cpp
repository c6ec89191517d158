#include "shell/add_cas_field.h"

#include "shell/database_files_fixture.h"
#include "shell/older_client.h"
#include "store/raw_file.h"
#include "support/query_rows.h"

namespace orvex::shell {
namespace {

class AddCASFieldTest : public test::DatabaseFilesFixture {
 protected:
  AddCASFieldTest() {
    test::MakeOlderClient(older_);
    const auto client = store::Database::Open(older_);
    for (const auto* month : {"January", "February"}) {
      test::AddRow(*client, "emission",
                   {{"ID", 7}, {"MIX ID", 1}, {"NAME", "Benzene"}, {"MONTH", month}, {"S_LOSS", 1.5}});
    }
  }
  void OpenOlder(store::OpenMode mode = store::OpenMode::kReadWrite) {
    session_.ClientDb = store::Database::Open(older_, mode);
  }
  std::vector<std::string> FieldNames() {
    std::vector<std::string> names;
    for (const auto& field : session_.ClientDb->Fields("emission")) names.push_back(field.name);
    return names;
  }
  std::string older_ = File("older.mdb");
};

TEST_F(AddCASFieldTest, AnOlderClientFileGainsTheFieldAtItsPlace) {
  OpenOlder();
  auto names = FieldNames();
  AddCASField(session_);
  names.insert(names.begin() + 5, "CAS");
  EXPECT_EQ(FieldNames(), names);
  const auto field = session_.ClientDb->Fields("emission")[5];
  EXPECT_EQ(field.type, store::FieldType::kText);
  EXPECT_EQ(field.width, 10);
  // Now it is as a new file is.
  std::vector<std::string> in_a_new_file;
  for (const auto& info : store::FindTable("emission").fields) in_a_new_file.emplace_back(info.name);
  EXPECT_EQ(names, in_a_new_file);
}

TEST_F(AddCASFieldTest, TheFileStaysReadableByTheNamesOfItsFields) {
  const auto read = [&] {
    auto by_index = session_.ClientDb->OpenAt("emission", "COMPID", {7, 1, "Benzene", "January"});
    EXPECT_EQ(by_index.Double("S_LOSS"), 1.5);
    return test::QueryRows(*session_.ClientDb, "SELECT * FROM emission WHERE ID = 7 ORDER BY MONTH",
                           {"ID", "MIX ID", "NAME", "MONTH", "PRIMARY", "S_LOSS", "W_LOSS"});
  };
  OpenOlder();
  const auto before = read();
  EXPECT_EQ(before, (test::Rows{"7|1|Benzene|February|0|1.5|-", "7|1|Benzene|January|0|1.5|-"}));
  AddCASField(session_);
  EXPECT_EQ(read(), before);
  OpenOlder();
  EXPECT_EQ(read(), before);
  EXPECT_EQ(test::QueryRows(*session_.ClientDb, "SELECT * FROM emission", {"CAS"}), (test::Rows{"-", "-"}));
}

TEST_F(AddCASFieldTest, AFileThatHasTheFieldIsNotWritten) {
  OpenOlder();
  AddCASField(session_);
  session_.ClientDb.reset();
  const std::string before = test::FileContent(older_);
  OpenOlder();
  AddCASField(session_);
  EXPECT_EQ(test::FileContent(older_), before);
}

TEST_F(AddCASFieldTest, TheNameIsLookedForInItsExactCase) {
  test::RawFile(older_).Run("ALTER TABLE emission ADD COLUMN cas TEXT(10)");
  OpenOlder();
  // Which the store then refuses, since it tells no names apart by their case.
  host_.ExpectError(3010, "mDatabase.AddCASField");
  AddCASField(session_);
  EXPECT_EQ(FieldNames().back(), "cas");
}

TEST_F(AddCASFieldTest, AReadOnlyFileIsToldAndLeftAsItIs) {
  const std::string before = test::FileContent(older_);
  OpenOlder(store::OpenMode::kReadOnly);
  host_.ExpectError(3027, "mDatabase.AddCASField");
  AddCASField(session_);
  EXPECT_EQ(test::FileContent(older_), before);
  EXPECT_EQ(session_.ClientDb->OpenTable("emission").RecordCount(), 2);
}

TEST_F(AddCASFieldTest, AFileThatAnotherProgramWritesIsToldAndLeftAsItIs) {
  OpenOlder();
  test::RawFile other(older_);
  other.Run("BEGIN IMMEDIATE");
  host_.ExpectError(3260, "mDatabase.AddCASField");
  AddCASField(session_);
  other.Run("COMMIT");
  EXPECT_EQ(session_.ClientDb->OpenTable("emission").RecordCount(), 2);
  AddCASField(session_);
  EXPECT_EQ(FieldNames()[5], "CAS");
}

}  // namespace
}  // namespace orvex::shell
