#include "exchange/reference_import.h"

#include <algorithm>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

#include "exchange/reference_import_fixture.h"
#include "shell/editing.h"
#include "support/file_content.h"

namespace orvex::exchange {
namespace {

using test::AddRow;
using test::ImportCase;
using test::Rows;
using test::With;

/// A host whose person stops the command at a record.
class StoppingHost : public test::ScriptedHost {
 public:
  void Progress(std::int64_t done, std::int64_t total) override {
    ScriptedHost::Progress(done, total);
    if (done == stop_at) throw shell::Interrupted();
  }
  std::int64_t stop_at = -1;
};

/// What holds for each of the four imports.
class ReferenceImport : public test::ReferenceImportTest, public testing::WithParamInterface<ImportCase> {
 protected:
  void Import(const std::vector<test::DbaseRow>& rows, int added) {
    ReferenceImportTest::Import(GetParam(), rows, added);
  }
  /// The person chooses the file, and is told about a failure with this number.
  void ExpectFailure(int number) {
    test_.host.ChooseFile(path_.string());
    test_.host.ExpectError(number, GetParam().import_label);
    GetParam().import(session());
    ExpectUntouched();
  }
  /// A row in the table and a row in the log, to see whether they stay.
  void AddOldRows() {
    AddRow(reference(), GetParam().table, {});
    AddRow(reference(), "import errors", {{"IDX_ID", "Old"}, {"ID", "Old"}, {"Error", "Old."}});
  }
  void ExpectUntouched() {
    EXPECT_EQ(Log(), Rows{"Old|Old."});
    EXPECT_EQ(Count(GetParam().table), 1);
    EXPECT_EQ(test_.host.pointers.back(), shell::Pointer::kDefault);
    EXPECT_EQ(test_.host.status.back(), "Ready");
    EXPECT_TRUE(test_.host.windows.empty());
    EXPECT_EQ(session().PrintMode, "");
    // Nothing is left open that would keep others from writing.
    auto other = store::Database::Open(reference().Path());
    const store::Transaction writing(*other);
  }
};

INSTANTIATE_TEST_SUITE_P(Of, ReferenceImport, testing::ValuesIn(test::ImportCases()), test::CaseName);

TEST_P(ReferenceImport, AsksForTheFileOfThePreviousVersion) {
  Import({}, 0);
  ASSERT_EQ(test_.host.file_requests.size(), 1U);
  const auto& request = test_.host.file_requests[0];
  EXPECT_EQ(request.title, GetParam().title);
  EXPECT_EQ(request.file_name, GetParam().file);
  EXPECT_EQ(request.folder, "C:\\orvex31");
  EXPECT_EQ(request.filter, "dBASE (*.dbf) |*.dbf|");
}

TEST_P(ReferenceImport, GoesFromTheFileToTheReportOfItsLog) {
  Import({GetParam().row}, 1);
  EXPECT_EQ(test_.host.steps,
            (Rows{"status Processing, please wait...", "file dialog " + GetParam().title, "status Ready",
                  "message 1 records were appended to the current tank database.", "show frmprintrep"}));
  EXPECT_EQ(test_.host.pointers, (std::vector{shell::Pointer::kBusy, shell::Pointer::kDefault}));
  EXPECT_EQ(session().PrintMode, "Import");
}

TEST_P(ReferenceImport, TellsTheCountUnderTheProgramsTitle) {
  Write(GetParam(), {GetParam().row});
  test_.host.ChooseFile(path_.string());
  test_.host.ExpectMessage("1 records were appended to the current tank database.", "ORVEX", shell::Buttons::kOk,
                           shell::Icon::kNone);
  GetParam().import(session());
}

TEST_P(ReferenceImport, IsFinishedWhenTheReportIsOffered) {
  Write(GetParam(), {GetParam().row});
  test_.host.ChooseFile(path_.string());
  test_.host.ExpectMessage("1 records were appended to the current tank database.");
  test_.host.WhenShown("frmprintrep", [&] {
    const auto other = store::Database::Open(reference().Path());
    EXPECT_EQ(other->OpenTable(GetParam().table).RecordCount(), 1);
    EXPECT_EQ(other->OpenTable("import errors").RecordCount(), 1);
    EXPECT_FALSE(std::filesystem::exists(shell::EditingPath(reference().Path())));
  });
  GetParam().import(session());
}

TEST_P(ReferenceImport, NotesTheAddedRecordByItsKey) {
  Import({GetParam().row}, 1);
  EXPECT_EQ(Query("SELECT * FROM [import errors]", {"IDX_ID", "ID", "Error"}),
            Rows{GetParam().key + "|" + GetParam().key + "|" + test::kImported});
}

TEST_P(ReferenceImport, ForgetsTheLogBefore) {
  AddRow(reference(), "import errors", {{"ID", "Old"}, {"Error", "Old."}});
  Import({GetParam().row}, 1);
  EXPECT_EQ(Log(), Rows{GetParam().key + "|" + test::kImported});
}

TEST_P(ReferenceImport, OfNothingShowsTheCountAndTheReportNevertheless) {
  AddRow(reference(), "import errors", {{"ID", "Old"}, {"Error", "Old."}});
  Import({}, 0);
  EXPECT_EQ(test_.host.windows, Rows{"frmprintrep"});
  EXPECT_EQ(Log(), Rows{});
}

TEST_P(ReferenceImport, OfAFileWithFaultsOnlyShowsTheCountAndTheReport) {
  Import({{}}, 0);
  EXPECT_EQ(test_.host.windows, Rows{"frmprintrep"});
  EXPECT_FALSE(Log().empty());
}

TEST_P(ReferenceImport, ASecondTimeAddsNothing) {
  Import({GetParam().row}, 1);
  Import({GetParam().row}, 0);
  EXPECT_EQ(Count(GetParam().table), 1);
  EXPECT_TRUE(Log().at(0).starts_with(GetParam().key + "|") && Log().at(0).find("uplicate") != std::string::npos)
      << Log().at(0);
}

TEST_P(ReferenceImport, PassesOverDeletedRecords) {
  {
    test::DbaseWriter file(path_, GetParam().columns);
    file.Add({});
    file.DeleteLast();
    file.Add(GetParam().row);
  }
  ReferenceImportTest::Import(GetParam(), 1);
  EXPECT_EQ(Said(), Rows{test::kImported});
}

TEST_P(ReferenceImport, GoesOnBehindARecordWithFaults) {
  Import({{}, GetParam().row, {}}, 1);
  EXPECT_EQ(Count(GetParam().table), 1);
}

TEST_P(ReferenceImport, TakesFieldsInAnyOrderAndLeavesOthersAlone) {
  auto columns = GetParam().columns;
  std::reverse(columns.begin(), columns.end());
  columns.insert(columns.begin(), {test::TextColumn("NOTES", 30), test::NumberColumn("Counter")});
  Write(columns, {With(GetParam().row, {{"NOTES", "kept there"}, {"Counter", 77}})});
  ReferenceImportTest::Import(GetParam(), 1);
  EXPECT_EQ(Query("SELECT * FROM " + GetParam().table, {"Counter"}), Rows{"1"});
}

TEST_P(ReferenceImport, TakesTextsInTheFilesCodePage) {
  // The first text of each file tells its rows apart. 0x82 is an acute e in code page 437.
  const auto& field = GetParam().columns[0].name;
  {
    test::DbaseWriter file(path_, GetParam().columns, "LDID/1");
    file.Add(With(GetParam().row, {{field, "Caf\x82"}}));
  }
  ReferenceImportTest::Import(GetParam(), 1);
  EXPECT_EQ(Query("SELECT * FROM " + GetParam().table, {field}), Rows{"Café"});
}

TEST_P(ReferenceImport, TakesNumbersAndFlagsFromFieldsOfTexts) {
  auto columns = GetParam().columns;
  auto row = GetParam().row;
  for (auto& column : columns)
    if (column.type != 'C') column = test::TextColumn(column.name, 19);
  for (auto& [field, value] : row) {
    const auto column = std::ranges::find(GetParam().columns, field, &test::DbaseColumn::name);
    if (column->type == 'L') value = value.AsBool() ? "T" : "F";
    if (column->type == 'N') value = "  " + value.AsText();
  }
  Import({GetParam().row}, 1);
  const auto sql = "SELECT * FROM " + GetParam().table;
  const auto as_numbers = reference().OpenQuery(sql).GetRows(1);
  reference().Execute("DELETE * FROM " + GetParam().table);
  Write(columns, {row});
  ReferenceImportTest::Import(GetParam(), 1);
  const auto as_texts = reference().OpenQuery(sql).GetRows(1);
  ASSERT_EQ(as_texts.size(), 1U);
  // All but the counter.
  EXPECT_TRUE(std::equal(as_numbers[0].begin() + 1, as_numbers[0].end(), as_texts[0].begin() + 1));
}

// What goes wrong -----------------------------------------------------------------------------------------------------

TEST_P(ReferenceImport, CancelledSaysAndChangesNothing) {
  AddOldRows();
  test_.host.ChooseFile("");
  GetParam().import(session());
  EXPECT_TRUE(test_.host.messages.empty());
  EXPECT_EQ(test_.host.beeps, 0);
  ExpectUntouched();
}

TEST_P(ReferenceImport, StoppedChangesNothing) {
  AddOldRows();
  Write(GetParam(), {GetParam().row, {}, {}});
  StoppingHost host;
  shell::Session session(host);
  session.ReferenceDb = store::Database::Open(reference().Path());
  host.ChooseFile(path_.string());
  host.stop_at = 2;
  EXPECT_THROW(GetParam().import(session), shell::Interrupted);
  EXPECT_EQ(host.progress, (std::vector<std::pair<std::int64_t, std::int64_t>>{{1, 3}, {2, 3}}));
  EXPECT_TRUE(host.messages.empty());
  EXPECT_EQ(host.pointers.back(), shell::Pointer::kDefault);
  EXPECT_EQ(host.status.back(), "Ready");
  EXPECT_EQ(Log(), Rows{"Old|Old."});
  EXPECT_EQ(Count(GetParam().table), 1);
}

TEST_P(ReferenceImport, WaitsForTheProgramThatEdits) {
  AddOldRows();
  test::ScriptedHost other_host;
  shell::Session other(other_host);
  other.ReferenceDb = store::Database::Open(reference().Path());
  const auto editing = shell::BeginEditing(other, shell::DatabaseKind::kTank);
  ASSERT_TRUE(editing);
  test_.host.ExpectMessage("The tank database " + reference().Path().string() +
                           " is being edited by another program. Nothing was changed. Close the window there, then "
                           "try again.");
  GetParam().import(session());
  ExpectUntouched();
}

TEST_P(ReferenceImport, KeepsOthersFromEditingMeanwhile) {
  class LookingHost : public test::ScriptedHost {
   public:
    void Progress(std::int64_t, std::int64_t) override { seen = std::filesystem::exists(file); }
    std::filesystem::path file;
    bool seen = false;
  };
  LookingHost host;
  shell::Session session(host);
  session.ReferenceDb = store::Database::Open(reference().Path());
  host.file = shell::EditingPath(reference().Path());
  Write(GetParam(), {GetParam().row});
  host.ChooseFile(path_.string());
  host.ExpectMessage("1 records were appended to the current tank database.");
  GetParam().import(session);
  EXPECT_TRUE(host.seen);
}

TEST_P(ReferenceImport, OfAFileThatIsNotThereIsAnErrorReport) {
  AddOldRows();
  ExpectFailure(3024);
}

TEST_P(ReferenceImport, OfAFileOfAnotherKindIsAnErrorReport) {
  AddOldRows();
  for (const auto& content :
       {std::string(), std::string("Not a table at all.\n"), std::string(5000, '\xFF'), std::string(5000, '\0')}) {
    test::WriteFile(path_, content);
    ExpectFailure(3274);
  }
}

TEST_P(ReferenceImport, OfAFileThatIsCutOffIsAnErrorReport) {
  AddOldRows();
  Write(GetParam(), {GetParam().row, GetParam().row, GetParam().row});
  const auto whole = test::FileContent(path_);
  // Within the head, within its fields, within the first record and within the last.
  const auto record = (whole.size() - 1) / 3;
  for (const std::size_t size : {std::size_t{20}, std::size_t{70}, whole.size() - 2 * record, whole.size() - 10}) {
    test::WriteFile(path_, whole.substr(0, size));
    ExpectFailure(3274);
  }
}

TEST_P(ReferenceImport, OfAFileThatLacksAFieldIsAnErrorReportThatNamesIt) {
  AddOldRows();
  for (const auto& missing : GetParam().columns) {
    auto columns = GetParam().columns;
    auto row = GetParam().row;
    std::erase_if(columns, [&](const auto& column) { return column.name == missing.name; });
    std::erase_if(row, [&](const auto& value) { return value.first == missing.name; });
    Write(columns, {row});
    ExpectFailure(3265);
    EXPECT_NE(test_.host.messages.back().find(missing.name), std::string::npos) << test_.host.messages.back();
  }
}

TEST_P(ReferenceImport, OfARecordWithNoNumberWhereOneBelongsIsAnErrorReportThatNamesIt) {
  AddOldRows();
  for (const auto& number : GetParam().columns) {
    if (number.type != 'N') continue;
    Write(GetParam(),
          {GetParam().row, With(GetParam().row, {{GetParam().columns[0].name, "Next"}, {number.name, "abc"}})});
    ExpectFailure(3421);
    const auto& told = test_.host.messages.back();
    EXPECT_NE(told.find(number.name), std::string::npos) << told;
    EXPECT_NE(told.find('2'), std::string::npos) << told;
  }
}

TEST_P(ReferenceImport, OfATextFieldWithNoNumberWhereOneBelongsIsAnErrorReportThatNamesIt) {
  AddOldRows();
  auto columns = GetParam().columns;
  const auto number = std::ranges::find(columns, 'N', &test::DbaseColumn::type);
  *number = test::TextColumn(number->name, 19);
  Write(columns, {With(GetParam().row, {{number->name, "many"}})});
  ExpectFailure(3421);
  EXPECT_NE(test_.host.messages.back().find("The field " + number->name + " in record 1 of " + path_.string() +
                                            " holds \"many\" instead of a number."),
            std::string::npos)
      << test_.host.messages.back();
}

TEST_P(ReferenceImport, IntoADatabaseWithoutALogIsAnErrorReport) {
  reference().DeleteTable("import errors");
  Write(GetParam(), {GetParam().row});
  test_.host.ChooseFile(path_.string());
  test_.host.ExpectError(3011, GetParam().import_label);
  GetParam().import(session());
  EXPECT_EQ(Count(GetParam().table), 0);
}

TEST_P(ReferenceImport, IntoADatabaseThatMayNotBeWrittenIsAnErrorReport) {
  AddOldRows();
  session().ReferenceDb = store::Database::Open(reference().Path(), store::OpenMode::kReadOnly);
  Write(GetParam(), {GetParam().row});
  ExpectFailure(3027);
}

// As a step of the import of tanks ------------------------------------------------------------------------------------

TEST_P(ReferenceImport, AsAStepAddsToTheLogWithoutAWord) {
  AddOldRows();
  Write(GetParam(), {GetParam().row, GetParam().row});
  EXPECT_TRUE(GetParam().step(session(), path_.string()));
  EXPECT_EQ(Count(GetParam().table), 2);
  ASSERT_EQ(Log().size(), 3U);
  EXPECT_EQ(Log()[0], "Old|Old.");
  EXPECT_EQ(Log()[1], GetParam().key + "|" + test::kImported);
  EXPECT_NE(Log()[2].find("uplicate"), std::string::npos) << Log()[2];
  EXPECT_TRUE(test_.host.steps.empty());
  EXPECT_TRUE(test_.host.pointers.empty());
}

TEST_P(ReferenceImport, AsAStepIsPartOfTheCallersTransaction) {
  Write(GetParam(), {GetParam().row});
  {
    const store::Transaction callers(reference());
    EXPECT_TRUE(GetParam().step(session(), path_.string()));
    EXPECT_EQ(Count(GetParam().table), 1);
  }
  EXPECT_EQ(Count(GetParam().table), 0);
  EXPECT_EQ(Log(), Rows{});
}

TEST_P(ReferenceImport, AsAStepTellsOfItsFailureUnderItsOwnName) {
  test_.host.ExpectError(3024, GetParam().step_label);
  EXPECT_FALSE(GetParam().step(session(), path_.string()));
}

TEST_P(ReferenceImport, AsAStepThatFailsLeavesTheRestToTheCaller) {
  const auto& columns = GetParam().columns;
  const auto number = std::ranges::find(columns, 'N', &test::DbaseColumn::type)->name;
  Write(columns, {GetParam().row, With(GetParam().row, {{columns[0].name, "Next"}, {number, "abc"}})});
  {
    const store::Transaction callers(reference());
    test_.host.ExpectError(3421, GetParam().step_label);
    EXPECT_FALSE(GetParam().step(session(), path_.string()));
  }
  EXPECT_EQ(Count(GetParam().table), 0);
}

// Size ----------------------------------------------------------------------------------------------------------------

TEST_P(ReferenceImport, OfFiveThousandRecordsAddsEachOnce) {
  constexpr int kRecords = 5000;
  const auto& field = GetParam().columns[0].name;
  {
    test::DbaseWriter file(path_, GetParam().columns);
    for (int i = 0; i < kRecords; ++i) file.Add(With(GetParam().row, {{field, "Row " + std::to_string(i)}}));
  }
  ReferenceImportTest::Import(GetParam(), kRecords);
  ReferenceImportTest::Import(GetParam(), 0);
  EXPECT_EQ(Count(GetParam().table), kRecords);
  EXPECT_EQ(Count("import errors"), kRecords);
}

}  // namespace
}  // namespace orvex::exchange
