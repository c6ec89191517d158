#include "reports/export.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <memory>

#include "reports/export_fixture.h"
#include "store/dbase_file.h"

namespace orvex::reports {
namespace {

using test::Rows;

class Exports : public test::ExportTest {
 protected:
  static constexpr const char* kDatabase = test::kDatabaseFormat;
  static constexpr const char* kDbase = test::kDbaseFormat;
  static constexpr const char* kFoxPro = test::kFoxProFormat;
  static constexpr const char* kExcel = test::kExcelFormat;
  static constexpr const char* kText = test::kTextFormat;

  /// What the command-line program of the database library makes of a file.
  static std::string Sqlite(const std::string& path, const std::string& sql) {
    const std::string command = "sqlite3 '" + path + "' \"" + sql + "\" 2>&1";
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> program(popen(command.c_str(), "r"), pclose);
    std::string output;
    for (int c = std::fgetc(program.get()); c != EOF; c = std::fgetc(program.get())) output += static_cast<char>(c);
    return output;
  }
  static Strings DbaseNames(const std::string& path) {
    Strings names;
    for (store::DbaseTable table(path); !table.AtEnd(); table.MoveNext()) names.push_back(table.TextOrEmpty("NAME"));
    return names;
  }
};

// The formats -------------------------------------------------------------------------------------------------------

TEST_F(Exports, ToADatabaseThatIsMade) {
  AddChemicals({"Benzene", "o'Xylene"});
  ExpectSuccess("chemical");
  ExportChemicals(kDatabase, Path("new.mdb"), "chemical");
  EXPECT_EQ(test_.host.windows, (Strings{"Frmexformat", "frmexname", "frmexptbl"}));
  EXPECT_EQ(test_.host.status, (Strings{"Exporting 'chemical', please wait...", "Ready"}));
  EXPECT_EQ(test_.host.pointers, (std::vector{shell::Pointer::kBusy, shell::Pointer::kDefault}));

  auto made = store::Database::Open(Path("new.mdb"));
  EXPECT_EQ(made->TableNames(), Strings{"chemical"});
  EXPECT_TRUE(made->IntegrityCheck());
  const auto fields = made->Fields("chemical");
  const auto& expected = store::FindTable("chemical").fields;
  ASSERT_EQ(fields.size(), expected.size());
  for (std::size_t i = 0; i < fields.size(); ++i) EXPECT_EQ(fields[i].name, expected[i].name);
  EXPECT_EQ(test::QueryRows(*made, "SELECT * FROM chemical", {"Counter", "NAME", "CAS", "MOLWT", "USER_DEF"}),
            (Rows{"1|Benzene|-|78.125|0", "2|o'Xylene|-|78.125|0"}));
  EXPECT_EQ(Sqlite(Path("new.mdb"), "SELECT Counter, NAME, CAS IS NULL, MOLWT, USER_DEF FROM chemical"),
            "1|Benzene|1|78.125|0\n2|o'Xylene|1|78.125|0\n");
  EXPECT_EQ(test::EntryCount(out_.Path()), 1) << "nothing else is left";
  ExpectDatabasesWhole();
}

TEST_F(Exports, ToADatabaseBesideItsOtherTables) {
  AddChemicals({"Benzene"});
  auto older = store::Database::Create(Path("older.mdb"), {});
  older->CreateTable("mine", {{"N", store::FieldType::kLong, 0}}, {});
  test::AddRow(*older, "mine", {{"N", 7}});
  older.reset();
  ExpectSuccess("chemical");
  ExportChemicals(kDatabase, Path("older.mdb"), "liquids");
  EXPECT_EQ(NamesIn(Path("older.mdb"), "liquids"), Rows{"Benzene"});
  EXPECT_EQ(Sqlite(Path("older.mdb"), "SELECT N FROM mine"), "7\n");
}

TEST_F(Exports, ToDbaseAndFoxPro) {
  AddChemicals({"Benzene", "Toluene"});
  test::AddRow(test_.reference(), "chemical", {{"CAS", "1-2-3"}, {"USER_DEF", true}});
  for (const auto* token : {kDbase, kFoxPro}) {
    const std::string path = Path(token == kDbase ? "chem4.dbf" : "chemfox.dbf");
    ExpectSuccess("chemical");
    ExportChemicals(token, path);
    store::DbaseTable table(path);
    EXPECT_EQ(table.Fields().size(), store::FindTable("chemical").fields.size());
    EXPECT_EQ(table.TextOrEmpty("NAME"), "Benzene");
    EXPECT_EQ(table.DoubleOrZero("MOLWT"), 78.125);
    EXPECT_TRUE(table.IsNull("CAS"));
    table.MoveNext();
    table.MoveNext();
    EXPECT_TRUE(table.IsNull("NAME"));
    EXPECT_EQ(table.TextOrEmpty("CAS"), "1-2-3");
    EXPECT_TRUE(table.BoolOrFalse("USER_DEF"));
    table.MoveNext();
    EXPECT_TRUE(table.AtEnd());
  }
  EXPECT_EQ(test_.host.windows, (Strings{"Frmexformat", "frmexname", "Frmexformat", "frmexname"}))
      << "the file has named the table";
  EXPECT_EQ(test::EntryCount(out_.Path()), 2);
}

TEST_F(Exports, ToAWorkbook) {
  AddChemicals({"Benzene"});
  ExpectSuccess("chemical");
  ExportChemicals(kExcel, Path("book.xls"), "chemical");
  EXPECT_EQ(test_.host.windows, (Strings{"Frmexformat", "frmexname", "frmexptbl"}));
  const auto content = test::FileContent(Path("book.xls"));
  EXPECT_TRUE(content.starts_with("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1"));
  EXPECT_NE(content.find("Benzene"), std::string::npos);
  EXPECT_EQ(test::EntryCount(out_.Path()), 1);
}

TEST_F(Exports, ToTextUnderTheWholeNameOfTheFile) {
  test::AddRow(test_.reference(), "deckseam", {{"NAME", "Sheet: 5 Ft \"Wide\""}, {"CONSTRUC", "Sheet, riveted"}});
  PickFormat(kText);
  NameFile(Path("seams.of.decks.csv"));
  ExpectSuccess("deckseam");
  Export("Deck");
  EXPECT_EQ(test_.host.windows, (Strings{"Frmexformat", "frmexname"}));
  const auto content = test::FileContent(Path("seams.of.decks.csv"));
  EXPECT_NE(content.find("\"NAME\""), std::string::npos);
  EXPECT_NE(content.find("\"Sheet: 5 Ft \"\"Wide\"\"\""), std::string::npos);
  EXPECT_NE(content.find("\"Sheet, riveted\""), std::string::npos);
  EXPECT_EQ(test::EntryCount(out_.Path()), 1);
}

// Ended by the person -----------------------------------------------------------------------------------------------

TEST_F(Exports, EndWithTheFormatThatWasNotChosen) {
  session_.ExportFormat = kText;
  test_.host.WhenShown("Frmexformat", [this] {
    auto form = OpenFrmexformat(session_);
    ClickCancel(session_, form);
  });
  Export("Chemical");
  EXPECT_EQ(test_.host.windows, Strings{"Frmexformat"});
  EXPECT_EQ(test_.host.status, Strings{"Ready"});
  session_.ExportFormat = kText;
  Export("Chemical");
  EXPECT_EQ(test_.host.windows, (Strings{"Frmexformat", "Frmexformat"})) << "a window that was shut chooses nothing";
}

TEST_F(Exports, EndWithTheFileThatWasNotNamed) {
  session_.ExportTarget = Path("of the last export");
  PickFormat(kText);
  test_.host.WhenShown("frmexname", [this] {
    auto form = OpenFrmexname(session_);
    ClickClose(session_, form);
  });
  Export("Chemical");
  EXPECT_EQ(test_.host.status, Strings{"Ready"});
  EXPECT_EQ(test::EntryCount(out_.Path()), 0);
}

TEST_F(Exports, EndWithTheTableThatWasNotNamed) {
  AddChemicals({"Benzene"});
  for (const auto* token : {kDatabase, kExcel}) {
    ExportChemicals(token, Path("new"), "");
    EXPECT_EQ(test_.host.status.back(), "Ready");
  }
  EXPECT_EQ(test::EntryCount(out_.Path()), 0) << "no file is made before its table has a name";
}

// What is there already ---------------------------------------------------------------------------------------------

TEST_F(Exports, AskBeforeTheyOverwriteATableOrFile) {
  struct Target {
    const char *token, *file, *name;
  };
  for (const auto& [token, file, name] : {Target{kDatabase, "a.mdb", "chemical"}, Target{kDbase, "b.dbf", "b"},
                                          Target{kFoxPro, "c.dbf", "c"}, Target{kText, "d.txt", "d.txt"}}) {
    const auto export_chemicals = [&, file = file, token = token] {
      PickFormat(token);
      NameFile(Path(file));
      if (token == std::string(kDatabase)) NameTable("chemical", "chemical");
      Export("Chemical");
    };
    test_.reference().Execute("DELETE * FROM chemical");
    AddChemicals({"Benzene"});
    ExpectSuccess("chemical");
    export_chemicals();
    const auto older = test::FileContent(Path(file));

    AddChemicals({"Toluene"});
    ExpectOverwriteQuestion(name, shell::Answer::kCancel);
    export_chemicals();
    EXPECT_EQ(test::FileContent(Path(file)), older);

    ExpectOverwriteQuestion(name, shell::Answer::kOk);
    ExpectSuccess("chemical");
    export_chemicals();
    if (token == std::string(kDatabase)) {
      EXPECT_EQ(NamesIn(Path(file), "chemical"), (Rows{"Benzene", "Toluene"}));
      EXPECT_EQ(store::Database::Open(Path(file))->TableNames(), Strings{"chemical"});
    } else if (token == std::string(kText)) {
      EXPECT_NE(test::FileContent(Path(file)).find("Toluene"), std::string::npos);
    } else {
      EXPECT_EQ(DbaseNames(Path(file)), (Strings{"Benzene", "Toluene"}));
    }
  }
  EXPECT_EQ(test::EntryCount(out_.Path()), 4);
}

TEST_F(Exports, ASecondOneToTheSameSheetAsksForAnotherName) {
  AddChemicals({"Benzene"});
  ExpectSuccess("chemical");
  ExportChemicals(kExcel, Path("book.xls"), "chemical");
  const auto first = test::FileContent(Path("book.xls"));

  test_.host.windows.clear();
  PickFormat(kExcel);
  NameFile(Path("book.xls"));
  NameTable("chemical", "Chemical");
  NameTable("chemical", "again");
  test_.host.ExpectMessage("Please enter an alternate worksheet name.", "ORVEX", shell::Buttons::kOk,
                           shell::Icon::kNone);
  ExpectSuccess("chemical");
  Export("Chemical");
  EXPECT_EQ(test_.host.windows, (Strings{"Frmexformat", "frmexname", "frmexptbl", "frmexptbl"}));
  const auto both = test::FileContent(Path("book.xls"));
  EXPECT_NE(both.find("again"), std::string::npos);
  EXPECT_NE(both.find("chemical"), std::string::npos);

  // Without another name it ends there.
  PickFormat(kExcel);
  NameFile(Path("book.xls"));
  NameTable("chemical", "again");
  NameTable("chemical", "");
  test_.host.ExpectMessage("Please enter an alternate worksheet name.");
  Export("Chemical");
  EXPECT_EQ(test::FileContent(Path("book.xls")), both);
}

// What is exported --------------------------------------------------------------------------------------------------

TEST_F(Exports, EachSourceHasItsTable) {
  test::AddRow(test_.reference(), "chemical", {{"NAME", "in chemical"}});
  test::AddRow(test_.reference(), "met", {{"CTYST", "in met"}});
  test::AddRow(test_.reference(), "fitting", {{"FIT_TYPE", "in fitting"}});
  test::AddRow(test_.reference(), "rimseal", {{"PRIM_SEAL", "in rimseal"}});
  test::AddRow(test_.reference(), "deckseam", {{"NAME", "in deckseam"}});
  test::AddRow(test_.reference(), "import errors", {{"Error", "in import errors"}});
  test::AddRow(test_.client(), "error", {{"error", "in error"}});
  test::AddRow(test_.client(), "emission", {{"NAME", "in emission"}, {"ID", 1}});
  struct Source {
    const char *print_mode, *table, *field;
  };
  for (const auto& [print_mode, table, field] :
       {Source{"Chemical", "chemical", "NAME"}, Source{"Met", "met", "CTYST"}, Source{"Fit", "fitting", "FIT_TYPE"},
        Source{"Rim", "rimseal", "PRIM_SEAL"}, Source{"Deck", "deckseam", "NAME"},
        Source{"Import", "import errors", "Error"}, Source{"Error", "error", "error"},
        Source{"Report", "emission", "NAME"}}) {
    PickFormat(kDatabase);
    NameFile(Path("all.mdb"));
    NameTable(table, table);
    ExpectSuccess(table);
    Export(print_mode);
    EXPECT_EQ(test_.host.status[test_.host.status.size() - 2],
              "Exporting '" + std::string(table) + "', please wait...");
    EXPECT_EQ(
        test::QueryRows(*store::Database::Open(Path("all.mdb")), "SELECT * FROM [" + std::string(table) + "]", {field}),
        Rows{"in " + std::string(table)});
  }
}

TEST_F(Exports, OfReferenceDataHoldTheChosenRows) {
  AddChemicals({"Benzene", "Toluene", "Xylene"});
  session_.ReportCondition = "((Chemical.NAME= 'Xylene')) OR ((Chemical.NAME= 'Benzene'))";
  session_.ReportFilter = "(({Chemical.NAME} = 'Xylene')) OR (({Chemical.NAME} = 'Benzene'))";
  ExpectSuccess("chemical");
  ExportChemicals(kDatabase, Path("some.mdb"), "chemical");
  EXPECT_EQ(NamesIn(Path("some.mdb"), "chemical"), (Rows{"Benzene", "Xylene"})) << "in the order of the table";
}

TEST_F(Exports, OfSomeFittingsDoNotMissTheWordThatTheirReportMisses) {
  for (const auto* status : {"Bolted", "Loose"})
    test::AddRow(test_.reference(), "fitting", {{"FIT_TYPE", "Ladder"}, {"COVR_TYPE", status}});
  session_.ReportCondition = "((fitting.Fit_TYPE = 'Ladder' AND fitting.COVR_TYPE = 'Loose'))";
  PickFormat(kDatabase);
  NameFile(Path("some.mdb"));
  NameTable("fitting", "fitting");
  ExpectSuccess("fitting");
  Export("Fit");
  EXPECT_EQ(test::QueryRows(*store::Database::Open(Path("some.mdb")), "SELECT * FROM fitting", {"COVR_TYPE"}),
            Rows{"Loose"});
}

TEST_F(Exports, OfAReportHoldTheChosenTanks) {
  for (const int id : {1, 2, 3}) test::AddRow(test_.client(), "emission", {{"ID", id}, {"S_LOSS", 0.1 * id}});
  session_.ReportFilter = "(emission.[ID] = 1) OR (emission.[ID] = 3)";
  session_.ReportCondition = "of a reference table";
  PickFormat(kText);
  NameFile(Path("emissions of 2024.txt"));
  ExpectSuccess("emission");
  Export("Report");
  const auto content = test::FileContent(Path("emissions of 2024.txt"));
  EXPECT_EQ(std::count(content.begin(), content.end(), '\n'), 3) << "the names of the fields and two rows";
}

TEST_F(Exports, OfFaultsAndOfTheLogHaveNoCondition) {
  session_.ReportFilter = session_.ReportCondition = "of another report";
  test::AddRow(test_.client(), "error", {{"ID", 4}, {"error", "No diameter."}});
  test::AddRow(test_.reference(), "import errors", {{"ID", "North"}, {"Error", "No city."}});
  PickFormat(kText);
  NameFile(Path("faults.txt"));
  ExpectSuccess("error");
  Export("Error");
  EXPECT_EQ(test::FileContent(Path("faults.txt")), "\"ID\",\"USER ID\",\"error\"\r\n4,,\"No diameter.\"\r\n");
  PickFormat(kText);
  NameFile(Path("log.txt"));
  ExpectSuccess("import errors");
  Export("Import");
  EXPECT_EQ(test::FileContent(Path("log.txt")), "\"IDX_ID\",\"ID\",\"Error\"\r\n,\"North\",\"No city.\"\r\n");
}

TEST_F(Exports, OfProfilesHoldARowForEachComponent) {
  for (const auto* name : {"Gasoline", "Crude", "Empty"})
    test::AddRow(test_.reference(), "profile names", {{"Profile Name", name}, {"TYPE", "Full"}});
  const auto add = [&](int profile, const char* name, double share) {
    test::AddRow(test_.reference(), "profile components",
                 {{"SPEC ID", profile}, {"NAME", name}, {"CAS", "c"}, {"WT_FRACT", share}, {"VP_MOLWT", 80.5}});
  };
  add(2, "Hexane", 40);
  add(1, "Benzene", 1.8);
  add(1, "Toluene", 7);
  const auto export_profiles = [&](const char* name) {
    PickFormat(kDatabase);
    NameFile(Path("profiles.mdb"));
    NameTable("profiles", name);
    ExpectSuccess("profiles");
    Export("Profile");
  };
  export_profiles("all");
  auto made = store::Database::Open(Path("profiles.mdb"));
  const auto fields = made->Fields("all");
  Strings names;
  for (const auto& field : fields) names.push_back(field.name);
  EXPECT_EQ(names,
            (Strings{"Profile Name", "TYPE", "NAME", "CAS", "WT_FRACT", "VP_FRACT", "WEIGHT", "MOLWT", "VP_MOLWT"}));
  EXPECT_EQ(
      test::QueryRows(*made, "SELECT * FROM [all]",
                      {"Profile Name", "TYPE", "NAME", "CAS", "WT_FRACT", "VP_FRACT", "VP_MOLWT"}),
      (Rows{"Crude|Full|Hexane|c|40|-|80.5", "Gasoline|Full|Benzene|c|1.8|-|80.5", "Gasoline|Full|Toluene|c|7|-|80.5"}))
      << "one without components has no row";

  session_.ReportCondition = "(([Profile Names].[Profile Name] = 'Gasoline'))";
  export_profiles("some");
  EXPECT_EQ(test::QueryRows(*made, "SELECT * FROM some", {"NAME"}), (Rows{"Benzene", "Toluene"}));
}

TEST_F(Exports, AnApostropheInAChosenNameIsReported) {
  AddChemicals({"o'Xylene"});
  session_.ReportCondition = "((Chemical.NAME= 'o'Xylene'))";
  ExpectError(3075);
  ExportChemicals(kText, Path("some.txt"));
  EXPECT_EQ(test::EntryCount(out_.Path()), 0);
}

TEST_F(Exports, OfATableWhoseDatabaseIsClosedIsReported) {
  session_.ReferenceDb.reset();
  ExpectError(3420);
  ExportChemicals(kText, Path("some.txt"));
}

TEST_F(Exports, TellOfTheirProgress) {
  {
    store::Transaction transaction(test_.reference());
    for (int i = 0; i < 2500; ++i) AddChemicals({"Benzene"});
    transaction.Commit();
  }
  ExpectSuccess("chemical");
  ExportChemicals(kText, Path("many.txt"));
  EXPECT_EQ(test_.host.progress, (std::vector<std::pair<std::int64_t, std::int64_t>>{{1000, 2500}, {2000, 2500}}));
}

}  // namespace
}  // namespace orvex::reports
