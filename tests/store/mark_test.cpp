#include <gtest/gtest.h>

#include "store/compact_file.h"
#include "store/database.h"
#include "store/run_time_error.h"
#include "support/expect_error.h"
#include "support/test_databases.h"

namespace orvex::store {
namespace {

/// The number that a file keeps beside its tables.
class MarkTest : public testing::Test {
 protected:
  test::TemporaryFolder folder_;
  std::filesystem::path path_ = folder_.Path() / "client.mdb";
  std::unique_ptr<Database> client_ = Database::Create(path_, ClientTables());
};

TEST_F(MarkTest, IsZeroInANewFile) { EXPECT_EQ(client_->Mark(), 0); }

TEST_F(MarkTest, StaysInTheFile) {
  client_->SetMark(2147483647);
  client_.reset();
  EXPECT_EQ(Database::Open(path_)->Mark(), 2147483647);
}

TEST_F(MarkTest, IsUndoneWithItsTransaction) {
  client_->SetMark(7);
  {
    const Transaction undone(*client_);
    test::AddRow(*client_, "tank", {{"USER ID", "T1"}});
    client_->SetMark(8);
    EXPECT_EQ(client_->Mark(), 8);
  }
  EXPECT_EQ(client_->Mark(), 7);
  EXPECT_EQ(client_->OpenTable("tank").RecordCount(), 0);
}

TEST_F(MarkTest, IsSeenByOthersFromTheCommitOn) {
  const auto other = Database::Open(path_);
  Transaction transaction(*client_);
  client_->SetMark(9);
  EXPECT_EQ(other->Mark(), 0);
  transaction.Commit();
  EXPECT_EQ(other->Mark(), 9);
}

TEST_F(MarkTest, SurvivesACompaction) {
  client_->SetMark(5);
  client_.reset();
  CompactFile(path_);
  EXPECT_EQ(Database::Open(path_)->Mark(), 5);
}

TEST_F(MarkTest, OfAReadOnlyFileIsReadAndNotWritten) {
  client_->SetMark(5);
  const auto read_only = Database::Open(path_, OpenMode::kReadOnly);
  EXPECT_EQ(read_only->Mark(), 5);
  EXPECT_RUN_TIME_ERROR(read_only->SetMark(6), ErrorNumber::kReadOnly);
}

}  // namespace
}  // namespace orvex::store
