#include <gtest/gtest.h>

#include "store/database.h"
#include "support/expect_error.h"
#include "support/test_databases.h"

namespace orvex::store {
namespace {

class ReadOnlyFile : public ::testing::Test {
 protected:
  ReadOnlyFile() {
    const auto path = folder_.Path() / "client1.mdb";
    test::AddRow(*Database::Create(path, ClientTables()), "tank", {{"USER ID", "A"}});
    database = Database::Open(path, OpenMode::kReadOnly);
  }

  test::TemporaryFolder folder_;
  std::unique_ptr<Database> database;
};

TEST_F(ReadOnlyFile, CanBeReadInATransaction) {
  Transaction view(*database, Transaction::Purpose::kRead);
  EXPECT_EQ(database->OpenTable("tank").Text("USER ID"), "A");
  view.Commit();
}

TEST_F(ReadOnlyFile, RefusesAWritingTransactionAtItsBeginning) {
  EXPECT_RUN_TIME_ERROR(Transaction{*database}, ErrorNumber::kReadOnly);
  // Nothing of it is left open.
  Transaction view(*database, Transaction::Purpose::kRead);
  view.Commit();
}

TEST_F(ReadOnlyFile, RefusesAChange) {
  EXPECT_RUN_TIME_ERROR(database->Execute("DELETE * FROM tank"), ErrorNumber::kReadOnly);
  EXPECT_EQ(database->OpenTable("tank").RecordCount(), 1);
}

}  // namespace
}  // namespace orvex::store
