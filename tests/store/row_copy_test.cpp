#include "store/row_copy.h"

#include <gtest/gtest.h>

#include <string>

#include "store/raw_file.h"
#include "store/run_time_error.h"
#include "support/expect_error.h"
#include "support/query_rows.h"
#include "support/test_databases.h"

namespace orvex::store {
namespace {

class RowCopyTest : public testing::Test {
 protected:
  RowCopyTest() {
    from->CreateTable("source",
                      {{"N", FieldType::kCounter, 0}, {"A", FieldType::kText, 9}, {"B", FieldType::kDouble, 0}}, {});
    to->CreateTable("target",
                    {{"b", FieldType::kDouble, 0},
                     {"EXTRA", FieldType::kBoolean, 0},
                     {"n", FieldType::kLong, 0},
                     {"a", FieldType::kText, 9}},
                    {});
    for (int i = 0; i < 3; ++i) test::AddRow(*from, "source", {{"A", "t" + std::to_string(i)}, {"B", 0.5 * i}});
  }
  void CopyAll() {
    RowCopy copy(*from, "SOURCE", *to, "target");
    EXPECT_FALSE(copy.Add(100));
  }
  void ExpectDifference() {
    RowCopy copy(*from, "source", *to, "target");
    EXPECT_RUN_TIME_ERROR((void)copy.Compare(100), ErrorNumber::kDamagedFile);
  }
  void Change(const std::string& sql) const { test::RawFile(folder.Path() / "to.mdb").Run(sql); }

  test::TemporaryFolder folder;
  std::unique_ptr<Database> from = Database::Create(folder.Path() / "from.mdb", {});
  std::unique_ptr<Database> to = Database::Create(folder.Path() / "to.mdb", {});
};

TEST_F(RowCopyTest, FieldsGoByTheirNamesAndOthersAreAsInANewRecord) {
  CopyAll();
  EXPECT_EQ(test::QueryRows(*to, "SELECT * FROM target", {"N", "A", "B", "EXTRA"}),
            (test::Rows{"1|t0|0|0", "2|t1|0.5|0", "3|t2|1|0"}));
}

TEST_F(RowCopyTest, RecordsComeInPortions) {
  RowCopy copy(*from, "source", *to, "target");
  EXPECT_TRUE(copy.Add(2));
  EXPECT_EQ(to->OpenTable("target").RecordCount(), 2);
  EXPECT_FALSE(copy.Add(2));
  EXPECT_FALSE(copy.Add(2));
  EXPECT_EQ(to->OpenTable("target").RecordCount(), 3);
}

TEST_F(RowCopyTest, AFieldThatTheTargetLacksIsAnError) {
  EXPECT_RUN_TIME_ERROR(RowCopy(*to, "target", *from, "source"), ErrorNumber::kItemNotFound);
  EXPECT_RUN_TIME_ERROR(RowCopy(*from, "none", *to, "target"), ErrorNumber::kObjectNotFound);
}

TEST_F(RowCopyTest, ACopyComparesEqual) {
  CopyAll();
  RowCopy copy(*from, "source", *to, "target");
  EXPECT_TRUE(copy.Compare(2));
  EXPECT_FALSE(copy.Compare(2));
}

TEST_F(RowCopyTest, WhatAnotherProgramStoredUnderOtherTypesComparesAsItWasCopied) {
  test::RawFile(folder.Path() / "from.mdb").Run("INSERT INTO source (A, B) VALUES (x'6162', '2.5')");
  CopyAll();
  RowCopy copy(*from, "source", *to, "target");
  EXPECT_FALSE(copy.Compare(100));
}

TEST_F(RowCopyTest, ARecordThatIsMissingTooManyOrOtherwiseShows) {
  CopyAll();
  Change("UPDATE target SET A = 'T1' WHERE N = 2");
  ExpectDifference();
  Change("UPDATE target SET A = 't1' WHERE N = 2; UPDATE target SET B = B + 1e-12 WHERE N = 3");
  ExpectDifference();
  Change("UPDATE target SET B = 1 WHERE N = 3; INSERT INTO target (N) VALUES (4)");
  ExpectDifference();
  Change("DELETE FROM target WHERE N > 2");
  ExpectDifference();
}

}  // namespace
}  // namespace orvex::store
