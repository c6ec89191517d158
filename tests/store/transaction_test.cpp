#include <gtest/gtest.h>

#include <memory>
#include <optional>

#include "store/database.h"
#include "store/run_time_error.h"
#include "support/expect_error.h"
#include "support/file_content.h"
#include "support/file_size_limit.h"
#include "support/test_databases.h"

namespace orvex::store {
namespace {

using test::AddRow;

class TransactionTest : public testing::Test {
 protected:
  void AddTank(const std::string& user_id) { AddRow(client, "tank", {{"USER ID", user_id}}); }
  std::int64_t Tanks() { return client.OpenTable("tank").RecordCount(); }
  test::TestSession test;
  Database& client = test.client();
};

TEST_F(TransactionTest, CommittedWorkStandsInTheFile) {
  {
    Transaction transaction(client);
    AddTank("a");
    AddTank("b");
    EXPECT_EQ(Database::Open(client.Path(), OpenMode::kReadOnly)->OpenTable("tank").RecordCount(), 0)
        << "others do not see it before";
    transaction.Commit();
  }
  EXPECT_EQ(Database::Open(client.Path())->OpenTable("tank").RecordCount(), 2);
}

TEST_F(TransactionTest, WorkWithoutACommitIsUndone) {
  AddTank("kept");
  auto tanks = client.OpenTable("tank");
  tanks.SetIndex("USER ID");
  {
    const Transaction transaction(client);
    AddTank("gone");
    tanks.Seek({"gone"});
    EXPECT_FALSE(tanks.NoMatch());
    tanks.Seek({"kept"});
    tanks.Edit();
    tanks.Set("DIAMETER", 5.0);
    tanks.Update();
    EXPECT_EQ(tanks.Double("DIAMETER"), 5);
  }
  EXPECT_EQ(Tanks(), 1);
  EXPECT_TRUE(tanks.IsNull("DIAMETER")) << "nothing of the undone work is remembered";
  tanks.Seek({"gone"});
  EXPECT_TRUE(tanks.NoMatch());
}

TEST_F(TransactionTest, FlushedWorkIsStillUndoneOrCommitted) {
  {
    Transaction transaction(client);
    AddTank("gone");
    transaction.Flush();
  }
  EXPECT_EQ(Tanks(), 0);
  {
    Transaction transaction(client);
    AddTank("kept");
    transaction.Flush();
    transaction.Commit();
  }
  EXPECT_EQ(Database::Open(client.Path())->OpenTable("tank").RecordCount(), 1);
}

TEST_F(TransactionTest, AFullDiskIsMetWhenFlushingAndNotFirstWhenCommitting) {
  {
    Transaction transaction(client);
    for (int i = 0; i < 500; ++i) AddTank(std::string(200, 'x'));
    const test::FileSizeLimit limit(std::filesystem::file_size(client.Path()));
    EXPECT_RUN_TIME_ERROR(transaction.Flush(), ErrorNumber::kDiskFailure);
  }
  EXPECT_EQ(Tanks(), 0);
  EXPECT_TRUE(client.IntegrityCheck());
}

TEST_F(TransactionTest, AReaderWhoHoldsTheFileUpIsMetWhenFlushing) {
  const auto other = Database::Open(client.Path());
  const Transaction reading(*other, Transaction::Purpose::kRead);
  (void)other->OpenTable("tank").RecordCount();
  {
    Transaction transaction(client);
    AddTank("gone");
    EXPECT_RUN_TIME_ERROR(transaction.Flush(), ErrorNumber::kFileLocked);
  }
  EXPECT_EQ(Tanks(), 0);
}

TEST_F(TransactionTest, AnInnerTransactionIsPartOfTheOuterOne) {
  {
    const Transaction outer(client);
    {
      Transaction inner(client);
      AddTank("a");
      inner.Commit();
    }
    EXPECT_EQ(Tanks(), 1);
  }
  EXPECT_EQ(Tanks(), 0) << "the outer one was undone";
  {
    Transaction outer(client);
    {
      const Transaction inner(client);
      AddTank("b");
    }
    outer.Commit();
  }
  EXPECT_EQ(Tanks(), 1) << "the outer one was committed";
}

TEST_F(TransactionTest, ACounterGoesOnBehindUndoneRecords) {
  AddTank("a");
  {
    const Transaction transaction(client);
    AddTank("gone");
  }
  AddTank("b");
  auto tanks = client.OpenTable("tank");
  tanks.MoveLast();
  EXPECT_EQ(tanks.Long("ID"), 2);
}

TEST_F(TransactionTest, ATableMadeInUndoneWorkIsForgotten) {
  {
    const Transaction transaction(client);
    client.CreateTable("t", {{"a", FieldType::kLong, 0}}, {});
    AddRow(client, "t", {{"a", 1}});
  }
  EXPECT_RUN_TIME_ERROR(client.OpenTable("t"), ErrorNumber::kObjectNotFound);
  client.CreateTable("t", {{"b", FieldType::kText, 10}}, {});
  AddRow(client, "t", {{"b", "x"}});
  EXPECT_EQ(client.OpenTable("t").Text("b"), "x");
}

TEST_F(TransactionTest, ATableDeletedInUndoneWorkIsThereAgain) {
  AddTank("a");
  {
    const Transaction transaction(client);
    client.DeleteTable("tank");
    EXPECT_FALSE(client.HasTable("tank"));
  }
  EXPECT_EQ(Tanks(), 1);
}

TEST_F(TransactionTest, AReadTransactionIsOneViewOfTheFile) {
  AddTank("a");
  const auto other = Database::Open(client.Path());
  {
    const Transaction view(client, Transaction::Purpose::kRead);
    EXPECT_EQ(Tanks(), 1);
    EXPECT_RUN_TIME_ERROR(AddRow(*other, "tank", {{"USER ID", "b"}}), ErrorNumber::kFileLocked);
    EXPECT_EQ(Tanks(), 1);
  }
  AddRow(*other, "tank", {{"USER ID", "b"}});
  EXPECT_EQ(Tanks(), 2);
}

TEST_F(TransactionTest, OnlyOneProgramWritesAtATime) {
  const auto other = Database::Open(client.Path());
  {
    const Transaction transaction(client);
    EXPECT_RUN_TIME_ERROR(Transaction{*other}, ErrorNumber::kFileLocked);
    AddTank("a");
  }
  EXPECT_NO_THROW(Transaction{*other});
}

TEST_F(TransactionTest, ATransactionMayOutliveItsDatabase) {
  const auto path = test.folder.Path() / "other.mdb";
  auto database = Database::Create(path, ClientTables());
  {
    const Transaction transaction(*database);
    AddRow(*database, "tank", {{"USER ID", "a"}});
    database.reset();
  }
  EXPECT_EQ(Database::Open(path)->OpenTable("tank").RecordCount(), 0);
}

TEST_F(TransactionTest, ADiskThatFillsUpUndoesTheWorkAndSaysSo) {
  AddTank("kept");
  const std::string before = test::FileContent(client.Path());
  {
    Transaction outer(client);
    Transaction inner(client);
    {
      const test::FileSizeLimit full_disk(1024);  // not even the journal's first page
      EXPECT_RUN_TIME_ERROR(AddTank("lost"), ErrorNumber::kDiskFailure);
    }
    // The disk has room again, but what the command wrote before is gone: nothing may be added to half of its work.
    EXPECT_RUN_TIME_ERROR(outer.RequireAlive(), ErrorNumber::kTransactionLost);
    EXPECT_RUN_TIME_ERROR(AddTank("late"), ErrorNumber::kTransactionLost);
    EXPECT_RUN_TIME_ERROR(client.Execute("DELETE * FROM tank"), ErrorNumber::kTransactionLost);
    EXPECT_RUN_TIME_ERROR(client.Execute("SELECT * INTO copy FROM tank"), ErrorNumber::kTransactionLost);
    EXPECT_RUN_TIME_ERROR(client.CreateTable("t", {{"a", FieldType::kLong, 0}}, {}), ErrorNumber::kTransactionLost);
    EXPECT_RUN_TIME_ERROR(client.DeleteTable("tank"), ErrorNumber::kTransactionLost);
    EXPECT_RUN_TIME_ERROR(inner.Commit(), ErrorNumber::kTransactionLost);
    EXPECT_RUN_TIME_ERROR(outer.Commit(), ErrorNumber::kTransactionLost);
  }
  EXPECT_EQ(test::FileContent(client.Path()), before);
  EXPECT_TRUE(client.IntegrityCheck());
  Transaction transaction(client);
  AddTank("later");
  transaction.Commit();
  EXPECT_EQ(Tanks(), 2);
}

TEST_F(TransactionTest, ADiskThatFillsUpAtTheCommitLeavesTheFileAsItWas) {
  AddTank("kept");
  {
    Transaction transaction(client);
    for (int i = 0; i < 1000; ++i) AddTank(std::string(200, 'x') + std::to_string(i));
    const test::FileSizeLimit full_disk(std::filesystem::file_size(client.Path()) + 3000);
    EXPECT_RUN_TIME_ERROR(transaction.Commit(), ErrorNumber::kDiskFailure);
  }
  EXPECT_EQ(Tanks(), 1);
  EXPECT_TRUE(client.IntegrityCheck());
}

}  // namespace
}  // namespace orvex::store
