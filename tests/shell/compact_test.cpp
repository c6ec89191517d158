#include "shell/compact.h"

#include <cstdint>

#include "shell/database_files_fixture.h"
#include "store/raw_file.h"
#include "support/file_size_limit.h"
#include "support/ordinary_person.h"

namespace orvex::shell {
namespace {

namespace fs = std::filesystem;

class CompactTest : public test::DatabaseFilesFixture {
 protected:
  CompactTest() {
    const auto client = store::Database::Open(client_);
    store::Transaction transaction(*client);
    for (int i = 0; i < 300; ++i) test::AddRow(*client, "tank", {{"DESC", std::string(200, 'd')}});
    (void)client->Execute("DELETE * FROM tank WHERE ID > 2");
    transaction.Commit();
  }
  void ExpectFailure(int number) {
    const std::string before = test::FileContent(client_);
    const int entries = test::EntryCount(folder_.Path());
    host_.ExpectError(number, "mDatabase.Compact");
    Compact(session_, client_);
    EXPECT_EQ(test::FileContent(client_), before);
    EXPECT_EQ(test::EntryCount(folder_.Path()), entries);
    // The file, or the one beside it whose name differs in the last character.
    EXPECT_NE(host_.messages.back().find(client_.substr(0, client_.size() - 1)), std::string::npos)
        << host_.messages.back();
    ExpectRestored();
  }
};

TEST_F(CompactTest, TheFileIsSmallerAndItsContentTheSame) {
  const auto before = fs::file_size(client_);
  Compact(session_, client_);
  EXPECT_LT(fs::file_size(client_), before);
  EXPECT_EQ(test::EntryCount(folder_.Path()), 2);
  EXPECT_EQ(OpenGoodDatabase(DatabaseKind::kClient, client_)->OpenTable("tank").RecordCount(), 2);
  EXPECT_EQ(host_.status, (std::vector<std::string>{"Compacting " + client_ + ", please wait...", "Ready"}));
  EXPECT_EQ(host_.pointers, (std::vector{Pointer::kBusy, Pointer::kDefault}));
}

TEST_F(CompactTest, AnExtensionOfOneCharacterLosesJustThatInTheTemporaryName) {
  const auto short_name = File("client.d");
  fs::rename(client_, short_name);
  // A file that stands where the temporary one is to be shows which name that is.
  test::WriteFile(File("client.N"), "mine");
  host_.ExpectError(3010, "mDatabase.Compact");
  Compact(session_, short_name);
  EXPECT_EQ(test::FileContent(File("client.N")), "mine");
  fs::remove(File("client.N"));
  Compact(session_, short_name);
  EXPECT_EQ(OpenGoodDatabase(DatabaseKind::kClient, short_name)->OpenTable("tank").RecordCount(), 2);
}

TEST_F(CompactTest, AFileThatIsInUseIsToldAndLeftAsItIs) {
  OpenClientDatabase(session_, client_);
  ExpectFailure(3260);
  session_.ClientDb.reset();
  test::RawFile other(client_);
  other.Run("BEGIN EXCLUSIVE");
  ExpectFailure(3260);
}

TEST_F(CompactTest, AFullDiskIsToldAndTheFileLeftAsItIs) {
  const test::FileSizeLimit full_disk(8192);
  ExpectFailure(3043);
}

/// The person who stops a command as soon as it tells how far it is.
class StoppingHost : public test::ScriptedHost {
 public:
  void Progress(std::int64_t done, std::int64_t total) override {
    EXPECT_LE(done, total);
    ++asked;
    throw Interrupted();
  }
  int asked = 0;
};

TEST_F(CompactTest, AStoppedOneLeavesTheFileAsItIsAndThePersonIsNotAsked) {
  {
    const auto client = store::Database::Open(client_);
    store::Transaction transaction(*client);
    for (int i = 0; i < 5000; ++i) test::AddRow(*client, "tank", {{"USER ID", std::to_string(i)}});
    transaction.Commit();
  }
  const std::string before = test::FileContent(client_);
  StoppingHost host;
  Session session(host);
  Compact(session, client_);
  EXPECT_EQ(host.asked, 1);
  EXPECT_EQ(test::FileContent(client_), before);
  EXPECT_EQ(test::EntryCount(folder_.Path()), 2);
  EXPECT_TRUE(host.messages.empty());
  EXPECT_EQ(host.status.back(), "Ready");
}

TEST_F(CompactTest, AFolderThatMayNotBeWrittenIsTold) {
  fs::permissions(client_, fs::perms{0666});
  EXPECT_TRUE(test::AsOrdinaryPerson(folder_.Path(), test::kClosedFolder, [&] { ExpectFailure(3043); }));
}

TEST_F(CompactTest, AFileThatHasGoneOrIsNoDatabaseIsTold) {
  test::WriteFile(client_, "Dear reader,\n");
  ExpectFailure(3343);
  fs::remove(client_);
  ExpectFailure(3024);
  EXPECT_FALSE(fs::exists(client_));
}

}  // namespace
}  // namespace orvex::shell
