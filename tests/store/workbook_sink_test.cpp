#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "store/run_time_error.h"
#include "store/table_sink.h"
#include "store/workbook_readers.h"
#include "support/expect_error.h"
#include "support/file_content.h"
#include "support/file_size_limit.h"
#include "support/test_databases.h"

namespace orvex::store {
namespace {

using test::EntryCount;
using test::FileContent;
using test::FreexlCell;
using test::TemporaryFolder;

const std::vector<StoredField> kFields{{"ID", FieldType::kLong, 0},
                                       {"USER ID", FieldType::kText, 40},
                                       {"DIAMETER", FieldType::kDouble, 0},
                                       {"HEATED", FieldType::kBoolean, 0}};
const std::vector<StoredField> kText{{"NAME", FieldType::kText, 0}};
const std::vector<StoredField> kNumber{{"N", FieldType::kDouble, 0}};

void Export(const std::filesystem::path& path, const std::string& sheet, const std::vector<StoredField>& fields,
            const std::vector<std::vector<Value>>& rows, Existing existing = Existing::kRefuse) {
  const auto sink = MakeWorkbookSink(path, sheet, fields, existing);
  for (const auto& row : rows) sink->Add(row);
  sink->Commit();
}

TEST(WorkbookSink, TwoOtherReadersGetNamesNumbersTextsLogicalsAndNulls) {
  const TemporaryFolder folder;
  const auto path = folder.Path() / "tanks.xls";
  Export(path, "tank", kFields,
         {{1, "Tank A", 12.5, true}, {-2147483647, "", 0.1, false}, {3, Value(), Value(), Value()}});
  EXPECT_EQ(test::ReadWithXlrd(path),
            "[tank]\n"
            "=ID\t=USER ID\t=DIAMETER\t=HEATED\n"
            "0x1.0000000000000p+0\t=Tank A\t0x1.9000000000000p+3\ttrue\n"
            "-0x1.fffffffc00000p+30\t=\t0x1.999999999999ap-4\tfalse\n"
            "0x1.8000000000000p+1\tnull\tnull\tnull\n");
  const auto sheets = test::ReadWithFreexl(path);
  ASSERT_EQ(sheets.size(), 1U);
  EXPECT_EQ(sheets[0].name, "tank");
  const std::vector<std::vector<FreexlCell>> expected{{"ID", "USER ID", "DIAMETER", "HEATED"},
                                                      {1.0, "Tank A", 12.5, 1},
                                                      {-2147483647.0, "", 0.1, 0},
                                                      {3.0, {}, {}, {}}};
  EXPECT_EQ(sheets[0].rows, expected);
  EXPECT_EQ(EntryCount(folder.Path()), 1);
}

TEST(WorkbookSink, NumbersKeepEachBit) {
  using Limits = std::numeric_limits<double>;
  const TemporaryFolder folder;
  const auto path = folder.Path() / "numbers.xls";
  const std::vector<double> numbers{Limits::denorm_min(), Limits::min(), Limits::max(), -1e308, 1.0 / 3, -0.0};
  std::vector<std::vector<Value>> rows;
  for (const double number : numbers) rows.push_back({number});
  Export(path, "numbers", kNumber, rows);
  EXPECT_EQ(test::ReadWithXlrd(path),
            "[numbers]\n=N\n"
            "0x0.0000000000001p-1022\n0x1.0000000000000p-1022\n0x1.fffffffffffffp+1023\n-0x1.1ccf385ebc8a0p+1023\n"
            "0x1.5555555555555p-2\n-0x0.0p+0\n");
  const auto sheets = test::ReadWithFreexl(path);
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    const auto read = std::get<double>(sheets.at(0).rows.at(i + 1).at(0));
    EXPECT_EQ(read, numbers[i]);
    EXPECT_EQ(std::signbit(read), std::signbit(numbers[i]));
  }
}

TEST(WorkbookSink, RefusesNumbersThatAreNotFiniteWithTheNameOfTheField) {
  const TemporaryFolder folder;
  const auto sink = MakeWorkbookSink(folder.Path() / "n.xls", "n", kNumber, Existing::kRefuse);
  EXPECT_RUN_TIME_ERROR(sink->Add(std::vector<Value>{std::nan("")}), ErrorNumber::kOverflow);
  EXPECT_RUN_TIME_ERROR(sink->Add(std::vector<Value>{HUGE_VAL}), ErrorNumber::kOverflow);
}

TEST(WorkbookSink, TellsOfWholeNumbersThatWereRounded) {
  const TemporaryFolder folder;
  // 2^53 + 1 lies between two numbers that a cell holds, 2^53 is one of them.
  constexpr std::int64_t kHeld = std::int64_t{1} << 53;
  const auto sink = MakeWorkbookSink(folder.Path() / "n.xls", "n", {{"COUNT", FieldType::kLong, 0}}, Existing::kRefuse);
  sink->Add(std::vector<Value>{kHeld});
  sink->Commit();
  EXPECT_TRUE(sink->Losses().empty());
  const auto other =
      MakeWorkbookSink(folder.Path() / "n.xls", "m", {{"COUNT", FieldType::kLong, 0}}, Existing::kRefuse);
  other->Add(std::vector<Value>{kHeld + 1});
  other->Commit();
  EXPECT_EQ(other->Losses(),
            std::vector<std::string>{"Field 'COUNT': whole numbers of more than 15 digits are rounded (cells: 1)."});
}

TEST(WorkbookSink, HoldsAFullSheetOfRowsAndNoMore) {
  constexpr int kRows = 16383, kColumns = 40;  // more than 7 MB, for which the container needs further lists of sectors
  const TemporaryFolder folder;
  const auto path = folder.Path() / "full.xls";
  std::vector<StoredField> fields;
  for (int i = 0; i < kColumns; ++i) fields.push_back({"F" + std::to_string(i), FieldType::kDouble, 0});
  const auto number = [](int row, int column) { return row + column / 64.0; };
  std::vector<Value> values(kColumns);
  const auto fill = [&](TableSink& sink) {
    for (int row = 1; row <= kRows; ++row) {
      for (int column = 0; column < kColumns; ++column) values[static_cast<std::size_t>(column)] = number(row, column);
      sink.Add(values);
    }
  };
  const auto sink = MakeWorkbookSink(path, "emission", fields, Existing::kRefuse);
  fill(*sink);
  sink->Commit();

  const auto sheets = test::ReadWithFreexl(path);
  ASSERT_EQ(sheets.at(0).rows.size(), std::size_t{kRows + 1});
  int different = 0;
  for (int row = 1; row <= kRows; ++row)
    for (int column = 0; column < kColumns; ++column)
      if (sheets[0].rows[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)] !=
          FreexlCell(number(row, column)))
        ++different;
  EXPECT_EQ(different, 0);

  const auto before = FileContent(path);
  const auto more = MakeWorkbookSink(path, "more", fields, Existing::kRefuse);
  fill(*more);
  EXPECT_RUN_TIME_ERROR(more->Add(values), ErrorNumber::kSheetFull);
  EXPECT_TRUE(FileContent(path) == before);
}

TEST(WorkbookSink, Holds256FieldsAndNoMore) {
  const TemporaryFolder folder;
  const auto path = folder.Path() / "wide.xls";
  std::vector<StoredField> fields;
  std::vector<Value> row;
  for (int i = 0; i < 256; ++i) {
    fields.push_back({"F" + std::to_string(i), FieldType::kLong, 0});
    row.emplace_back(i);
  }
  Export(path, "wide", fields, {row});
  const auto sheets = test::ReadWithFreexl(path);
  ASSERT_EQ(sheets.at(0).rows.at(1).size(), 256U);
  for (std::size_t i = 0; i < 256; ++i) EXPECT_EQ(sheets[0].rows[1][i], FreexlCell(static_cast<double>(i)));
  fields.push_back({"ONE MORE", FieldType::kLong, 0});
  EXPECT_RUN_TIME_ERROR(MakeWorkbookSink(path, "wider", fields, Existing::kRefuse), ErrorNumber::kTooManyFields);
  EXPECT_EQ(EntryCount(folder.Path()), 1);
}

TEST(WorkbookSink, Holds255CharactersOfATextAndRefusesMoreWithTheNameOfTheField) {
  const TemporaryFolder folder;
  const auto path = folder.Path() / "long.xls";
  std::string longest;
  for (int i = 0; i < 255; ++i) longest += "\xC3\xA9";  // two bytes here, one there
  Export(path, "long", kText, {{longest}});
  EXPECT_EQ(test::ReadWithFreexl(path).at(0).rows.at(1).at(0), FreexlCell(longest));
  const auto sink = MakeWorkbookSink(path, "longer", kText, Existing::kRefuse);
  try {
    sink->Add(std::vector<Value>{longest + "x"});
    FAIL() << "a text of 256 characters was taken";
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::kTextTooLong);
    EXPECT_NE(error.Description().find("'NAME'"), std::string::npos);
  }
}

TEST(WorkbookSink, WritesOtherCharactersAsQuestionMarksAndTellsSo) {
  const TemporaryFolder folder;
  const auto path = folder.Path() / "characters.xls";
  const auto sink = MakeWorkbookSink(path, "texts", {kText[0], {"CITY", FieldType::kText, 0}}, Existing::kRefuse);
  // The code page holds the euro sign, o with diaeresis and the dash. It holds no Greek, no emoji; a byte that is no
  // character counts as one of those.
  sink->Add(std::vector<Value>{"\xE2\x82\xAC \xC3\xB6 \xE2\x80\x94", "K\xC3\xB6ln"});
  sink->Add(std::vector<Value>{"a\xCE\xA9z \xF0\x9F\x98\x80 \xFF", "Ulm"});
  sink->Add(std::vector<Value>{"\xCE\xA9", "Linz"});
  sink->Commit();
  const auto rows = test::ReadWithFreexl(path).at(0).rows;
  EXPECT_EQ(rows.at(1), (std::vector<FreexlCell>{"\xE2\x82\xAC \xC3\xB6 \xE2\x80\x94", "K\xC3\xB6ln"}));
  EXPECT_EQ(rows.at(2), (std::vector<FreexlCell>{"a?z ? ?", "Ulm"}));
  EXPECT_EQ(test::ReadWithXlrd(path),
            "[texts]\n=NAME\t=CITY\n=\\u20ac \\xf6 \\u2014\t=K\\xf6ln\n=a?z ? ?\t=Ulm\n=?\t=Linz\n");
  EXPECT_EQ(sink->Losses(),
            std::vector<std::string>{"Field 'NAME': characters that a workbook of Excel 5.0 cannot hold are written as "
                                     "'?' (cells: 2)."});
}

TEST(WorkbookSink, RefusesNamesThatASheetCannotHave) {
  const TemporaryFolder folder;
  const auto path = folder.Path() / "names.xls";
  for (const std::string name : {"", "a[b", "a]b", "a:b", "a*b", "a?b", "a/b", "a\\b", "'a", "a'", "\xCE\xA9",
                                 "this name has 32 characters....."}) {
    EXPECT_RUN_TIME_ERROR(MakeWorkbookSink(path, name, kText, Existing::kRefuse), ErrorNumber::kInvalidName);
  }
  EXPECT_EQ(EntryCount(folder.Path()), 0);
  const std::string longest = "a's name, 31 characters - \xC3\xA9. !$";
  Export(path, longest, kText, {});
  EXPECT_EQ(test::ReadWithFreexl(path).at(0).name, longest);
}

TEST(WorkbookSink, RefusesASheetThatIsThereWhateverTheCase) {
  const TemporaryFolder folder;
  const auto path = folder.Path() / "there.xls";
  Export(path, "Chemical \xC3\x89", kText, {{"old"}});
  const auto before = FileContent(path);
  EXPECT_RUN_TIME_ERROR(MakeWorkbookSink(path, "CHEMICAL \xC3\xA9", kText, Existing::kRefuse),
                        ErrorNumber::kAlreadyExists);
  EXPECT_EQ(FileContent(path), before);
  EXPECT_EQ(EntryCount(folder.Path()), 1);
}

TEST(WorkbookSink, ReplacesASheetInItsPlace) {
  const TemporaryFolder folder;
  const auto path = folder.Path() / "replaced.xls";
  for (const char* name : {"one", "two", "three"}) Export(path, name, kText, {{"old"}, {"rows"}});
  Export(path, "TWO", kText, {{"new"}}, Existing::kReplace);
  EXPECT_EQ(test::ReadWithXlrd(path), "[one]\n=NAME\n=old\n=rows\n[TWO]\n=NAME\n=new\n[three]\n=NAME\n=old\n=rows\n");
}

TEST(WorkbookSink, KeepsASheetThatAnotherProgramAddedMeanwhile) {
  const TemporaryFolder folder;
  const auto path = folder.Path() / "shared.xls";
  const auto slow = MakeWorkbookSink(path, "slow", kText, Existing::kRefuse);
  const auto late = MakeWorkbookSink(path, "quick", kText, Existing::kRefuse);
  Export(path, "quick", kText, {{"x"}});
  slow->Add(std::vector<Value>{"y"});
  slow->Commit();
  EXPECT_EQ(test::ReadWithXlrd(path), "[quick]\n=NAME\n=x\n[slow]\n=NAME\n=y\n");
  EXPECT_RUN_TIME_ERROR(late->Commit(), ErrorNumber::kAlreadyExists);
}

TEST(WorkbookSink, MakesTheSameBytesOfTheSameRows) {
  const TemporaryFolder folder;
  for (const char* name : {"a.xls", "b.xls"}) Export(folder.Path() / name, "tank", kFields, {{1, "A", 2.5, true}});
  EXPECT_EQ(FileContent(folder.Path() / "a.xls"), FileContent(folder.Path() / "b.xls"));
}

TEST(WorkbookSink, ChangesNothingWhenItIsGivenUpOrFails) {
  const TemporaryFolder folder;
  const auto path = folder.Path() / "kept.xls";
  EXPECT_RUN_TIME_ERROR(MakeWorkbookSink(folder.Path() / "none" / "a.xls", "a", kText, Existing::kRefuse),
                        ErrorNumber::kInvalidPath);
  MakeWorkbookSink(path, "a", kText, Existing::kRefuse)->Add(std::vector<Value>{"x"});
  EXPECT_EQ(EntryCount(folder.Path()), 0);
  Export(path, "a", kText, {{"x"}});
  const auto before = FileContent(path);
  {
    const test::FileSizeLimit limit(1000);
    const auto sink = MakeWorkbookSink(path, "b", kText, Existing::kRefuse);
    EXPECT_RUN_TIME_ERROR(sink->Commit(), ErrorNumber::kDiskFailure);
  }
  EXPECT_EQ(FileContent(path), before);
  EXPECT_EQ(EntryCount(folder.Path()), 1);
}

}  // namespace
}  // namespace orvex::store
