#include "shell/frmclientdata.h"

#include "shell/database_files_fixture.h"
#include "store/raw_file.h"

namespace orvex::shell {
namespace {

class LocateClientDatabase : public test::DatabaseFilesFixture {
 protected:
  Frmclientdata Opened() {
    session_.ClientPath = File("Moved.mdb");
    return OpenFrmclientdata(session_);
  }
  void ExpectWrongFile(Frmclientdata& model, const std::string& path) {
    SCOPED_TRACE(path);
    const std::string before = test::FileContent(path);
    ExpectPlain("The file you specified does not have the correct format.  Please try another file.");
    model.txtClientPath.text = path;
    ClickOK(session_, model);
    EXPECT_FALSE(model.window.closed);
    EXPECT_EQ(model.txtClientPath.text, path);
    EXPECT_EQ(session_.ClientDb, nullptr);
    EXPECT_EQ(Setting("client"), "(none)");
    EXPECT_EQ(test::FileContent(path), before);
  }
};

TEST_F(LocateClientDatabase, ShowsThePathThatFailed) {
  EXPECT_EQ(Opened().txtClientPath.text, File("Moved.mdb"));
  EXPECT_EQ(kFrmclientdataText.title, "Locate Client Database");
}

TEST_F(LocateClientDatabase, OKOpensTheFileAndKeepsItsPath) {
  auto model = Opened();
  model.txtClientPath.text = client_;
  ClickOK(session_, model);
  EXPECT_TRUE(model.window.closed);
  ASSERT_NE(session_.ClientDb, nullptr);
  EXPECT_EQ(session_.ClientDb->Path(), client_);
  EXPECT_EQ(Setting("client"), client_);
  ASSERT_EQ(host_.panels.size(), 1U);
  EXPECT_TRUE(host_.panels[0].second.ends_with("/client1.mdb"));
  // Neither the hourglass nor a status here.
  EXPECT_TRUE(host_.pointers.empty());
  EXPECT_TRUE(host_.status.empty());
}

TEST_F(LocateClientDatabase, AnyFailureIsToldInTheSameWords) {
  auto model = Opened();
  test::WriteFile(File("text.mdb"), "Dear reader,\n");
  test::WriteFile(File("empty.mdb"), "");
  for (const auto& path : {File("Moved.mdb"), File("none/client1.mdb"), tank_, File("text.mdb"), File("empty.mdb"),
                           std::string(), folder_.Path().string()})
    ExpectWrongFile(model, path);
  {
    test::RawFile other(client_);
    other.Run("BEGIN EXCLUSIVE");
    ExpectWrongFile(model, client_);
  }
  ClickOK(session_, model);
  EXPECT_TRUE(model.window.closed);
}

TEST_F(LocateClientDatabase, SettingsThatCannotBeWrittenKeepNobodyFromGoingOn) {
  test::WriteFile(File("file"), "");
  session_.settings = Settings(File("file/orvex"));
  auto model = Opened();
  model.txtClientPath.text = client_;
  host_.ExpectError(3043, "frmCleintData.");
  ClickOK(session_, model);
  EXPECT_TRUE(model.window.closed);
  EXPECT_NE(session_.ClientDb, nullptr);
}

TEST_F(LocateClientDatabase, BrowseAsksForTheFile) {
  auto model = Opened();
  host_.ChooseFile(client_);
  ClickBrowse(session_, model);
  EXPECT_EQ(model.txtClientPath.text, client_);
  host_.ChooseFile("");
  ClickBrowse(session_, model);
  EXPECT_EQ(model.txtClientPath.text, client_);
  ASSERT_EQ(host_.file_requests.size(), 2U);
  EXPECT_EQ(host_.file_requests[0].title, "Locate Client Database");
  EXPECT_EQ(host_.file_requests[0].file_name, "client1.mdb");
  EXPECT_EQ(host_.file_requests[0].folder, folder_.Path());
  ExpectRestored();
}

TEST_F(LocateClientDatabase, ExitEndsTheProgram) {
  auto model = Opened();
  ClickExit(session_, model);
  EXPECT_TRUE(session_.ended);
  EXPECT_TRUE(model.window.closed);
}

TEST_F(LocateClientDatabase, HelpOpensItsTopic) {
  auto model = Opened();
  ClickHelp(session_, model);
  EXPECT_EQ(host_.help, (std::vector<std::string>{"locate_database"}));
}

}  // namespace
}  // namespace orvex::shell
