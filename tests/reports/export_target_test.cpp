#include "reports/export_target.h"

#include <gtest/gtest.h>

#include "reports/export_fixture.h"
#include "support/expect_error.h"
#include "support/file_size_limit.h"
#include "support/unprivileged.h"

namespace orvex::reports {
namespace {

using test::Rows;

const ExportFormat& FormatOf(const char* token) { return *FindExportFormat(token); }

TEST(ExportTarget, AFileWithoutAPointInItsNameGetsTheEndingOfTheFormat) {
  EXPECT_EQ(CompletePath(FormatOf(test::kDatabaseFormat), "/no/where.to/be"), "/no/where.to/be.mdb");
  EXPECT_EQ(CompletePath(FormatOf(test::kDbaseFormat), "be"), "be.dbf");
  EXPECT_EQ(CompletePath(FormatOf(test::kFoxProFormat), "C:\\no.where\\be"), "C:\\no.where\\be.dbf");
  EXPECT_EQ(CompletePath(FormatOf(test::kExcelFormat), "/be"), "/be.xls");
  EXPECT_EQ(CompletePath(FormatOf(test::kTextFormat), "/be"), "/be.txt");
  for (const auto& format : ExportFormats()) {
    EXPECT_EQ(CompletePath(format, "/no/where.csv"), "/no/where.csv");
    EXPECT_EQ(CompletePath(format, "/no/where."), "/no/where.");
  }
}

TEST(ExportTarget, AFolderIsNoFile) {
  const test::TemporaryFolder folder;
  for (const auto& format : ExportFormats()) {
    EXPECT_RUN_TIME_ERROR(CompletePath(format, folder.Path()), store::ErrorNumber::kInvalidPath);
    EXPECT_RUN_TIME_ERROR(CompletePath(format, folder.Path().string() + "/"), store::ErrorNumber::kInvalidPath);
    EXPECT_RUN_TIME_ERROR(CompletePath(format, "C:\\"), store::ErrorNumber::kInvalidPath);
  }
}

TEST(ExportTarget, IsTheFileOrItsFolderInFrontOfTheName) {
  struct Row {
    const char *token, *path, *prefix, *name, *file;
  };
  for (const auto& [token, path, prefix, name, file] :
       {Row{test::kDatabaseFormat, "/a/b.mdb", "[;database=/a/b.mdb].", "b", "/a/b.mdb"},
        Row{test::kDbaseFormat, "/a/b.dbf", "[dBase IV;database=/a].", "b", "/a/b.dbf"},
        Row{test::kFoxProFormat, "/a/b.dbf", "[FoxPro 2.6;database=/a].", "b", "/a/b.dbf"},
        Row{test::kExcelFormat, "/a/b.xls", "[Excel 5.0;database=/a/b.xls].", "b", "/a/b.xls"},
        Row{test::kTextFormat, "/a/b.txt", "[Text;database=/a].", "b.txt", "/a/b.txt"},
        Row{test::kTextFormat, "b.txt", "[Text;database=].", "b.txt", "b.txt"},
        Row{test::kTextFormat, "/b.txt", "[Text;database=/].", "b.txt", "/b.txt"},
        Row{test::kTextFormat, "/a [1]/b]", "[Text;database=/a [1]]].", "b]", "/a [1]/b]"},
        Row{test::kDbaseFormat, "/a/x.b.dbf", "[dBase IV;database=/a].", "x.b", "/a/b.dbf"}}) {
    EXPECT_EQ(TargetPrefix(FormatOf(token), path), prefix);
    EXPECT_EQ(TargetName(FormatOf(token), path), name);
    EXPECT_EQ(TargetFile(FormatOf(token), path), file);
  }
}

TEST(ExportTarget, APrefixIsNoPartOfATablesName) {
  for (const auto* token : {test::kDatabaseFormat, test::kDbaseFormat, test::kFoxProFormat, test::kExcelFormat})
    EXPECT_EQ(WrittenName(FormatOf(token), "dbo.my.table"), "my.table");
  EXPECT_EQ(WrittenName(FormatOf(test::kTextFormat), "dbo.my.table"), "dbo.my.table");
}

class ExportTargets : public test::ExportTest {
 protected:
  ExportTargets() { AddChemicals({"Benzene"}); }
  void ExpectInUse() {
    test_.host.ExpectMessage("You cannot write the one of the data base paths currently in use.", "ORVEX",
                             shell::Buttons::kOk, shell::Icon::kExclamation);
  }
};

// Names -------------------------------------------------------------------------------------------------------------

TEST_F(ExportTargets, AnEndingThatWasLeftOutIsAdded) {
  for (const auto& [token, file] :
       {std::pair(test::kDbaseFormat, "chem.dbf"), std::pair(test::kTextFormat, "chem.txt")}) {
    ExpectSuccess("chemical");
    ExportChemicals(token, Path("chem"));
    EXPECT_TRUE(std::filesystem::exists(Path(file))) << file;
  }
  for (const auto& [token, file] :
       {std::pair(test::kDatabaseFormat, "chem.mdb"), std::pair(test::kExcelFormat, "chem.xls")}) {
    ExpectSuccess("chemical");
    ExportChemicals(token, Path("chem"), "chemical");
    EXPECT_EQ(session_.ExportTarget, Path(file)) << "which the window that asks for the table has shown";
    EXPECT_TRUE(std::filesystem::exists(Path(file))) << file;
  }
}

TEST_F(ExportTargets, MayHaveQuotesBlanksAndBracketsInTheirNames) {
  const std::string folder = Path("it's [a] \"folder\"");
  std::filesystem::create_directory(folder);
  ExpectSuccess("chemical");
  ExportChemicals(test::kTextFormat, folder + "/it's \"a\" [file].txt");
  EXPECT_TRUE(std::filesystem::exists(folder + "/it's \"a\" [file].txt"));
  ExpectSuccess("chemical");
  ExportChemicals(test::kDbaseFormat, folder + "/it's [a].dbf");
  EXPECT_TRUE(std::filesystem::exists(folder + "/it's [a].dbf"));
  ExpectSuccess("chemical");
  ExportChemicals(test::kDatabaseFormat, folder + "/it's ]a[.mdb", "it's \"a\" [table]");
  EXPECT_EQ(store::Database::Open(folder + "/it's ]a[.mdb")->TableNames(), Strings{"it's \"a\" [table]"});
  ExpectSuccess("chemical");
  ExportChemicals(test::kExcelFormat, folder + "/it's [a].xls", "it's \"a\" sheet");
  EXPECT_TRUE(std::filesystem::exists(folder + "/it's [a].xls"));
}

TEST_F(ExportTargets, LoseWhatStandsInFrontOfAPointAndSaySo) {
  ExpectSuccess("chemical");
  ExpectLosses("The name is 'liquids', without what stood in front of the point.");
  ExportChemicals(test::kDatabaseFormat, Path("a.mdb"), "dbo.liquids");
  EXPECT_EQ(store::Database::Open(Path("a.mdb"))->TableNames(), Strings{"liquids"});
}

TEST_F(ExportTargets, ADbaseNameThatIsTooLongIsReported) {
  for (const auto* token : {test::kDbaseFormat, test::kFoxProFormat}) {
    ExpectError(3125);
    ExportChemicals(token, Path("ninechars.dbf"));
    ExpectSuccess("chemical");
    ExportChemicals(token, Path(token == test::kDbaseFormat ? "8letters.dbf" : "9letters.dbf"));
  }
  EXPECT_EQ(test::EntryCount(out_.Path()), 2);
}

TEST_F(ExportTargets, ADbaseFileIsTheSameInCapitals) {
  test::WriteFile(Path("CHEM.DBF"), "older");
  ExpectOverwriteQuestion("chem", shell::Answer::kOk);
  ExpectSuccess("chemical");
  ExportChemicals(test::kDbaseFormat, Path("chem.dbf"));
  EXPECT_EQ(test::EntryCount(out_.Path()), 1);
  EXPECT_NE(test::FileContent(Path("CHEM.DBF")).find("Benzene"), std::string::npos);
}

TEST_F(ExportTargets, TellWhatTheFormatCouldNotHold) {
  AddChemicals({"\u03B1-Pinene"});
  ExpectSuccess("chemical");
  ExpectLosses("Fields with characters that the file cannot hold, written as '?': NAME.");
  ExportChemicals(test::kDbaseFormat, Path("chem.dbf"));
}

// What cannot be written --------------------------------------------------------------------------------------------

TEST_F(ExportTargets, NeedTheirFolder) {
  for (const auto& format : ExportFormats()) {
    ExpectError(3044);
    ExportChemicals(std::string(format.token), Path("none/chem"));
  }
  for (const auto& format : ExportFormats()) {
    ExpectError(3044);
    ExportChemicals(std::string(format.token), out_.Path());
  }
  EXPECT_EQ(test::EntryCount(out_.Path()), 0);
}

TEST_F(ExportTargets, ThatAreNoDatabaseOrWorkbookAreLeftAlone) {
  test::WriteFile(Path("letter.mdb"), "Dear reader, ...");
  ExpectError(3343);
  ExportChemicals(test::kDatabaseFormat, Path("letter.mdb"));
  EXPECT_EQ(test::FileContent(Path("letter.mdb")), "Dear reader, ...");
  test::WriteFile(Path("letter.xls"), "Dear reader, ...");
  ExpectError(3274);
  ExportChemicals(test::kExcelFormat, Path("letter.xls"), "chemical");
  EXPECT_EQ(test::FileContent(Path("letter.xls")), "Dear reader, ...");
}

/// The targets of a test, as they were and what is beside them.
class OlderTargets : public ExportTargets, public testing::WithParamInterface<const char*> {
 protected:
  OlderTargets() {
    ExpectSuccess("chemical");
    ExportIt("chemical");
    older_ = test::FileContent(File());
    store::Transaction transaction(test_.reference());
    for (int i = 0; i < 500; ++i) AddChemicals({"Toluene"});
    transaction.Commit();
  }
  [[nodiscard]] std::string File() const { return CompletePath(FormatOf(GetParam()), Path("older")); }
  [[nodiscard]] bool Is(const char* format) const { return GetParam() == std::string(format); }
  [[nodiscard]] bool IsFolder() const { return FormatOf(GetParam()).is_folder; }
  /// As it is named when something is to be overwritten.
  [[nodiscard]] std::string Name() const { return IsFolder() ? TargetName(FormatOf(GetParam()), File()) : "chemical"; }
  void ExportIt(const std::string& name) {
    PickFormat(GetParam());
    NameFile(Path("older"));
    if (!IsFolder()) NameTable("chemical", name);
    Export("Chemical");
  }
  /// Over what is there; a sheet can only come beside the other ones.
  void ExpectFailure(int number, bool after_question) {
    if (after_question && !Is(test::kExcelFormat)) ExpectOverwriteQuestion(Name(), shell::Answer::kOk);
    ExpectError(number);
    ExportIt(Is(test::kExcelFormat) ? "second" : "chemical");
  }
  void ExpectAsItWas() {
    EXPECT_EQ(test::FileContent(File()), older_);
    EXPECT_EQ(test::EntryCount(out_.Path()), 1) << "nothing half-written is left";
  }
  std::string older_;
};

INSTANTIATE_TEST_SUITE_P(Formats, OlderTargets,
                         testing::Values(test::kDatabaseFormat, test::kDbaseFormat, test::kFoxProFormat,
                                         test::kExcelFormat, test::kTextFormat),
                         [](const auto& token) { return std::string(token.param).substr(5); });

TEST_P(OlderTargets, StayAsTheyWereOnAFullDisk) {
  {
    const test::FileSizeLimit disk(older_.size() + 2000);
    ExpectFailure(3043, true);
  }
  ExpectAsItWas();
}

TEST_P(OlderTargets, StayAsTheyWereInAFolderThatIsClosed) {
  std::filesystem::permissions(File(), std::filesystem::perms(0444));
  std::filesystem::permissions(out_.Path(), std::filesystem::perms(0555));
  {
    const test::Unprivileged person;
    // A database is written in its place.
    ExpectFailure(Is(test::kDatabaseFormat) ? 3027 : 3043, !Is(test::kDatabaseFormat));
  }
  std::filesystem::permissions(out_.Path(), std::filesystem::perms(0755));
  ExpectAsItWas();
}

TEST_P(OlderTargets, StayAsTheyWereWhenThePersonStopsTheExport) {
  store::Transaction transaction(test_.reference());
  for (int i = 0; i < 1000; ++i) AddChemicals({"Toluene"});
  transaction.Commit();
  class StoppingHost : public test::ScriptedHost {
   public:
    void Progress(std::int64_t, std::int64_t) override { throw shell::Interrupted(); }
  };
  StoppingHost host;
  shell::Session session(host);
  session.TankPath = session_.TankPath;
  session.ReferenceDb = std::move(session_.ReferenceDb);
  session.PrintMode = "Chemical";
  host.WhenShown("Frmexformat", [&] { session.ExportFormat = GetParam(); });
  host.WhenShown("frmexname", [&] { session.ExportTarget = Path("older"); });
  const bool beside = Is(test::kExcelFormat);
  if (!IsFolder()) host.WhenShown("frmexptbl", [&] { session.ExportTable = beside ? "second" : "chemical"; });
  if (!beside) host.ExpectMessage("'" + Name() + "' already exists - overwrite?");
  auto form = OpenFrmprintrep(session);
  ChooseFile(session, form);
  EXPECT_THROW(ClickOK(session, form), shell::Interrupted);
  EXPECT_EQ(host.status.back(), "Ready");
  EXPECT_EQ(host.pointers.back(), shell::Pointer::kDefault);
  ExpectAsItWas();
}

TEST_F(ExportTargets, OnAFullDiskLeaveNoNewFile) {
  store::Transaction transaction(test_.reference());
  for (int i = 0; i < 500; ++i) AddChemicals({"Toluene"});
  transaction.Commit();
  const test::FileSizeLimit disk(6000);
  for (const auto& format : ExportFormats()) {
    ExpectError(3043);
    PickFormat(std::string(format.token));
    NameFile(Path("new"));
    if (!format.is_folder) NameTable("chemical", "chemical");
    Export("Chemical");
    EXPECT_EQ(test::EntryCount(out_.Path()), 0) << format.token;
  }
}

// Databases in use --------------------------------------------------------------------------------------------------

TEST_F(ExportTargets, ADatabaseInUseGetsTheTable) {
  std::filesystem::create_symlink(session_.ClientPath, Path("link.mdb"));
  std::filesystem::create_hard_link(session_.TankPath, Path("hard.mdb"));
  for (const auto& path : {session_.ClientPath, session_.TankPath, Path("link.mdb"), Path("hard.mdb")}) {
    const std::string table = "from " + std::filesystem::path(path).stem().string();
    ExpectSuccess("chemical");
    ExportChemicals(test::kDatabaseFormat, path, table);
    EXPECT_EQ(NamesIn(path, table), Rows{"Benzene"});
    // Over it, with a row more.
    AddChemicals({"Toluene"});
    ExpectOverwriteQuestion(table, shell::Answer::kOk);
    ExpectSuccess("chemical");
    ExportChemicals(test::kDatabaseFormat, path, table);
    EXPECT_EQ(NamesIn(path, table), (Rows{"Benzene", "Toluene"}));
    test_.reference().Execute("DELETE * FROM chemical WHERE NAME = 'Toluene'");
  }
  EXPECT_TRUE(test_.client().HasTable("from link")) << "the program sees it at once";
  EXPECT_TRUE(test_.reference().HasTable("from hard"));
  EXPECT_TRUE(test_.client().IntegrityCheck());
  EXPECT_TRUE(test_.reference().IntegrityCheck());
}

TEST_F(ExportTargets, ATableThatTheProgramWorksWithIsNotReplaced) {
  test::AddRow(test_.client(), "tank", {{"USER ID", "North"}});
  std::filesystem::create_symlink(session_.TankPath, Path("link.mdb"));
  std::filesystem::create_symlink(session_.ClientPath, Path("client.mdb"));
  for (const auto& [path, table] : {std::pair(session_.TankPath, "chemical"), std::pair(Path("link.mdb"), "Chemical"),
                                    std::pair(session_.ClientPath, "TANK"), std::pair(Path("client.mdb"), "a.tank")}) {
    PickFormat(test::kDatabaseFormat);
    NameFile(path);
    NameTable("chemical", table);
    NameTable("chemical", "");
    test_.host.ExpectMessage(
        "'" + std::string(table) + "' is a table of a database in use. Please enter an alternate table name.", "ORVEX",
        shell::Buttons::kOk, shell::Icon::kExclamation);
    Export("Chemical");
  }
  EXPECT_EQ(test::QueryRows(test_.reference(), "SELECT * FROM chemical", {"NAME"}), Rows{"Benzene"});
  EXPECT_EQ(test::QueryRows(test_.client(), "SELECT * FROM tank", {"USER ID"}), Rows{"North"});
  ExpectDatabasesWhole();
}

TEST_F(ExportTargets, ADatabaseInUseBecomesNoFileOfAnotherKind) {
  std::filesystem::create_symlink(session_.ClientPath, Path("link.txt"));
  std::filesystem::create_symlink(session_.TankPath, Path("link.dbf"));
  const auto tank = test::FileContent(session_.TankPath);
  for (const auto& [token, path] :
       {std::pair(test::kTextFormat, session_.ClientPath), std::pair(test::kTextFormat, Path("link.txt")),
        std::pair(test::kDbaseFormat, Path("link.dbf")), std::pair(test::kExcelFormat, session_.TankPath)}) {
    PickFormat(token);
    NameFile(path);
    ExpectInUse();
    Export("Chemical");
    EXPECT_EQ(test_.host.windows.back(), "frmexname") << "another name can be given";
  }
  ExpectDatabasesWhole();
  EXPECT_EQ(test::FileContent(session_.TankPath), tank);
}

}  // namespace
}  // namespace orvex::reports
