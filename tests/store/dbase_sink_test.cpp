#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "store/dbase_file.h"
#include "store/run_time_error.h"
#include "store/table_sink.h"
#include "support/expect_error.h"
#include "support/file_content.h"
#include "support/file_size_limit.h"
#include "support/test_databases.h"

namespace orvex::store {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

using Fields = std::vector<StoredField>;
using Row = std::vector<Value>;

const StoredField kText{"TEXT", FieldType::kText, 255};
const StoredField kNumber{"NUMBER", FieldType::kDouble, 0};
const StoredField kWhole{"WHOLE", FieldType::kLong, 0};
const StoredField kFlag{"FLAG", FieldType::kBoolean, 0};

class DbaseSink : public testing::Test {
 protected:
  std::unique_ptr<TableSink> Sink(const Fields& fields, Existing existing = Existing::kRefuse) {
    return MakeDbaseSink(version, path, fields, existing);
  }
  /// Writes the rows; what was lost.
  std::vector<std::string> Write(const Fields& fields, const std::vector<Row>& rows) {
    const auto sink = Sink(fields, Existing::kReplace);
    for (const auto& row : rows) sink->Add(row);
    sink->Commit();
    return sink->Losses();
  }
  /// The values of one field.
  std::vector<std::string> WriteOne(const StoredField& field, const std::vector<Value>& values) {
    std::vector<Row> rows;
    for (const auto& value : values) rows.push_back({value});
    return Write({field}, rows);
  }
  std::vector<Value> ReadOne() {
    DbaseTable table(path);
    std::vector<Value> values;
    for (; !table.AtEnd(); table.MoveNext()) values.push_back(table.Get(table.Fields().front().name));
    return values;
  }
  /// The field's type, width and decimals, then its content in all records.
  std::string RawOne() {
    const DbaseTable table(path);
    const auto& field = table.Fields().front();
    return fmt::format("{}{},{}:", field.type, field.width, field.decimals) + test::FileContent(path).substr(65);
  }

  test::TemporaryFolder folder;
  std::filesystem::path path = folder.Path() / "t.dbf";
  DbaseVersion version = DbaseVersion::kDbaseIv;
};

TEST_F(DbaseSink, ARowComesBackValueByValue) {
  EXPECT_THAT(
      Write(
          {kText, kNumber, kWhole, kFlag, {"ID", FieldType::kCounter, 0}},
          {{"Benzene", 78.11, 3, true, 1}, {Value(), Value(), Value(), Value(), Value()}, {"x", -0.5, -12, false, 2}}),
      ElementsAre());
  DbaseTable table(path);
  EXPECT_EQ(table.Get("TEXT"), Value("Benzene"));
  EXPECT_EQ(table.Get("NUMBER"), Value(78.11));
  EXPECT_EQ(table.Get("WHOLE"), Value(3.0));
  EXPECT_EQ(table.Get("FLAG"), Value(true));
  EXPECT_EQ(table.Get("ID"), Value(1.0));
  table.MoveNext();
  for (const char* field : {"TEXT", "NUMBER", "WHOLE", "FLAG", "ID"}) EXPECT_TRUE(table.IsNull(field));
  table.MoveNext();
  EXPECT_EQ(table.Get("NUMBER"), Value(-0.5));
  EXPECT_EQ(table.Get("FLAG"), Value(false));
  table.MoveNext();
  EXPECT_TRUE(table.AtEnd());
}

TEST_F(DbaseSink, FieldsAreAsWideAsTheirWidestValue) {
  WriteOne(kText, {"ab", "abcde", Value()});
  EXPECT_EQ(RawOne(), "C5,0: ab    abcde      \x1A");
  WriteOne(kNumber, {-12.5, 0.125, Value(), 3.0});
  EXPECT_EQ(RawOne(), "N7,3: -12.500   0.125           3.000\x1A");
  WriteOne(kWhole, {7, -100});
  EXPECT_EQ(RawOne(), "N4,0:    7 -100\x1A");
  WriteOne(kFlag, {true, Value(), false});
  EXPECT_EQ(RawOne(), "L1,0: T   F\x1A");
  WriteOne(kText, {Value()});
  EXPECT_EQ(RawOne(), "C1,0:  \x1A");
  WriteOne(kNumber, {});
  EXPECT_EQ(RawOne(), "N1,0:\x1A");
}

TEST_F(DbaseSink, NumbersKeepTheirDigitsWhereTwentyCharactersHoldThem) {
  EXPECT_THAT(WriteOne(kNumber, {0.1, 123.456, -0.0625}), ElementsAre());
  EXPECT_THAT(ReadOne(), ElementsAre(Value(0.1), Value(123.456), Value(-0.0625)));
  // 0.3333333333333333 has 16 decimals, and 1 + 1 + 16 characters.
  EXPECT_THAT(WriteOne(kNumber, {1.0 / 3}), ElementsAre());
  EXPECT_THAT(ReadOne(), ElementsAre(Value(1.0 / 3)));
}

TEST_F(DbaseSink, NumbersAreRoundedToTheDecimalsThatFitBesideTheGreatestAndSaid) {
  // 1234567890.5 takes 10 characters in front of the point, the point one: 9 decimals are left of the 16 of a third.
  EXPECT_THAT(WriteOne(kNumber, {1234567890.5, 1.0 / 3, 2.0 / 3, -4e-10, 1e-300}),
              ElementsAre("Fields whose numbers were rounded: NUMBER to 9 decimals."));
  EXPECT_EQ(RawOne(),
            "N20,9: 1234567890.500000000          0.333333333          0.666666667          0.000000000 "
            "         0.000000000\x1A");
}

TEST_F(DbaseSink, NumbersOfUpToTwentyDigitsFit) {
  EXPECT_THAT(WriteOne(kNumber, {12345678901234567000.0}), ElementsAre());
  EXPECT_EQ(RawOne(), "N20,0: 12345678901234567168\x1A");
  EXPECT_THAT(WriteOne(kNumber, {12345678901234567000.0, 0.5}),
              ElementsAre("Fields whose numbers were rounded: NUMBER to 0 decimals."));
  EXPECT_THAT(WriteOne(kNumber, {1234567890123456800.0, 1.5}),
              ElementsAre("Fields whose numbers were rounded: NUMBER to 0 decimals."))
      << "19 digits leave one character, which is the point's";
  EXPECT_THAT(WriteOne(kWhole, {std::numeric_limits<std::int64_t>::min()}), ElementsAre());
  EXPECT_EQ(RawOne(), "N20,0: -9223372036854775808\x1A");
}

TEST_F(DbaseSink, AWholeNumberAmongNumbersWithDecimalsKeepsItsDigits) {
  // As a binary number it would be 1000000000000000000.
  WriteOne(kNumber, {std::int64_t{999999999999999999}, 0.5});
  EXPECT_EQ(RawOne(), "N20,1: 999999999999999999.0                  0.5\x1A");
}

TEST_F(DbaseSink, ZeroHasNoSign) {
  WriteOne(kNumber, {-0.0, 0.0});
  EXPECT_EQ(RawOne(), "N2,0:  0  0\x1A");
}

TEST_F(DbaseSink, ANumberOfMoreDigitsIsRefusedWithItsField) {
  for (const double number : {1e20, -1e19, 1e300, -std::numeric_limits<double>::max()}) {
    const auto sink = Sink({kText, kNumber});
    try {
      sink->Add(Row{"x", number});
      ADD_FAILURE() << number;
    } catch (const RunTimeError& error) {
      EXPECT_EQ(error.Number(), ErrorNumber::kOverflow);
      EXPECT_THAT(error.Description(), HasSubstr("The field 'NUMBER' holds the number "));
    }
  }
}

TEST_F(DbaseSink, AValueThatIsNotOfItsFieldsTypeIsTakenAsItOrRefused) {
  EXPECT_THAT(Write({kText, kNumber, kFlag}, {{1.5, "2.5", 1}}), ElementsAre());
  const DbaseTable table(path);
  EXPECT_EQ(table.Get("TEXT"), Value("1.5"));
  EXPECT_EQ(table.Get("NUMBER"), Value(2.5));
  EXPECT_EQ(table.Get("FLAG"), Value(true));
  for (const Value& wrong : {Value("two"), Value(std::numeric_limits<double>::infinity())}) {
    EXPECT_RUN_TIME_ERROR(WriteOne(kNumber, {wrong}), ErrorNumber::kDataConversion);
    EXPECT_RUN_TIME_ERROR(WriteOne(kFlag, {wrong}), ErrorNumber::kDataConversion);
  }
}

TEST_F(DbaseSink, TextsAreInCodePage1252AndTheHeadSaysSo) {
  const char* const text = "\u20AC 5, Gr\u00F6\u00DFe \u2013 \u00B0F";
  for (const auto& [program, language] :
       {std::pair{DbaseVersion::kDbaseIv, '\x57'}, std::pair{DbaseVersion::kFoxPro26, '\x03'}}) {
    version = program;
    EXPECT_THAT(WriteOne(kText, {text}), ElementsAre());
    EXPECT_EQ(RawOne(),
              "C15,0: \x80 5, Gr\xF6\xDF"
              "e \x96 \xB0"
              "F\x1A");
    EXPECT_EQ(test::FileContent(path)[29], language);
    EXPECT_THAT(ReadOne(), ElementsAre(Value(text)));
  }
}

TEST_F(DbaseSink, CharactersThatTheFileCannotHoldBecomeQuestionMarksAndAreSaid) {
  EXPECT_THAT(Write({{"Delta", FieldType::kText, 0}, kText},
                    {{"\u0394T \U0001F6E2 \xFF", "plain"}, {std::string("a\0b", 3), Value()}}),
              ElementsAre("Fields with characters that the file cannot hold, written as '?': Delta."));
  EXPECT_THAT(ReadOne(), ElementsAre(Value("?T ? ?"), Value("a?b")));
}

TEST_F(DbaseSink, BlanksAtTheEndAndEmptyTextsAreSaidToBeLost) {
  EXPECT_THAT(WriteOne(kText, {"a ", "", " b"}),
              ElementsAre("Fields with blanks at the end of a text, which are lost: TEXT.",
                          "Fields with empty texts, which are null in the file: TEXT."));
  EXPECT_THAT(ReadOne(), ElementsAre(Value("a"), Value(), Value(" b")));
}

TEST_F(DbaseSink, ATextOf254CharactersFitsAndALongerOneIsRefusedWithItsField) {
  // Counted as the file holds them: each of these takes two bytes in UTF-8.
  std::string text;
  for (int i = 0; i < 254; ++i) text += "\u00E9";
  EXPECT_THAT(WriteOne(kText, {text}), ElementsAre());
  EXPECT_THAT(ReadOne(), ElementsAre(Value(text)));
  const auto sink = Sink({{"DESC", FieldType::kText, 255}}, Existing::kReplace);
  try {
    sink->Add(Row{text + "x"});
    ADD_FAILURE();
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::kTextTooLong);
    EXPECT_EQ(error.Description(), "The field 'DESC' holds a text of 255 characters; a dBASE file holds 254.");
  }
}

TEST_F(DbaseSink, FieldsWithLongNamesGetOthersAndItIsSaid) {
  EXPECT_THAT(Write({{"DECK_SEAM_LENGTH", FieldType::kDouble, 0},
                     {"deck_seam_name", FieldType::kText, 0},
                     {"mix id", FieldType::kLong, 0},
                     {"sd", FieldType::kDouble, 0}},
                    {{1.5, "Sheet", 7, 0.2}}),
              ElementsAre("Fields that have other names in the file: DECK_SEAM_LENGTH is DECK_SEAM_, deck_seam_name is "
                          "DECK_SEAM2, mix id is MIX_ID."));
  const DbaseTable table(path);
  EXPECT_EQ(table.Get("DECK_SEAM_"), Value(1.5));
  EXPECT_EQ(table.Get("DECK_SEAM2"), Value("Sheet"));
}

TEST_F(DbaseSink, FoxProIsToldWhereEachFieldStands) {
  version = DbaseVersion::kFoxPro26;
  Write({kText, kWhole, kFlag}, {{"abc", 12, true}});
  const std::string head = test::FileContent(path);
  EXPECT_EQ(head[32 + 12], 1);  // behind the mark of deletion
  EXPECT_EQ(head[64 + 12], 4);
  EXPECT_EQ(head[96 + 12], 6);
}

TEST_F(DbaseSink, TheFormatHas255FieldsAtMost) {
  Fields fields;
  Row row;
  for (int i = 0; i < 255; ++i) {
    fields.push_back({"F" + std::to_string(i), FieldType::kLong, 0});
    row.emplace_back(i);
  }
  EXPECT_THAT(Write(fields, {row}), ElementsAre());
  EXPECT_EQ(DbaseTable(path).Get("F254"), Value(254.0));
  fields.push_back({"F255", FieldType::kLong, 0});
  EXPECT_RUN_TIME_ERROR(Sink(fields, Existing::kReplace), ErrorNumber::kTooManyFields);
  EXPECT_RUN_TIME_ERROR(Sink({}, Existing::kReplace), ErrorNumber::kTooManyFields);
}

TEST_F(DbaseSink, RecordsThatAreTooLongForTheirProgramAreRefused) {
  Fields fields;
  Row row;
  for (int i = 0; i < 16; ++i) {
    fields.push_back({"F" + std::to_string(i), FieldType::kText, 0});
    row.emplace_back(std::string(250, 'x'));
  }
  // 4001 bytes with the mark of deletion.
  EXPECT_RUN_TIME_ERROR(Write(fields, {row}), ErrorNumber::kRecordTooLarge);
  EXPECT_FALSE(std::filesystem::exists(path));
  row.back() = std::string(249, 'x');
  EXPECT_THAT(Write(fields, {row}), ElementsAre());
  row.back() = std::string(250, 'x');
  version = DbaseVersion::kFoxPro26;
  EXPECT_THAT(Write(fields, {row}), ElementsAre());
}

TEST_F(DbaseSink, AFileNameThatIsTooLongForTheFormatIsRefused) {
  path = folder.Path() / "all my chemicals.dbf";
  EXPECT_RUN_TIME_ERROR(Sink({kText}), ErrorNumber::kInvalidName);
  EXPECT_EQ(test::EntryCount(folder.Path()), 0);
}

TEST_F(DbaseSink, AMissingFolderIsTold) {
  path = folder.Path() / "none" / "t.dbf";
  EXPECT_RUN_TIME_ERROR(Sink({kText}), ErrorNumber::kInvalidPath);
}

TEST_F(DbaseSink, AnExistingFileIsRefusedOrReplacedAsAsked) {
  test::WriteFile(path, "old");
  EXPECT_RUN_TIME_ERROR(Sink({kText}), ErrorNumber::kAlreadyExists);
  EXPECT_EQ(test::FileContent(path), "old");
  WriteOne(kText, {"new"});
  EXPECT_THAT(ReadOne(), ElementsAre(Value("new")));
}

TEST_F(DbaseSink, AFileThatAppearsMeanwhileIsNotOverwritten) {
  const auto sink = Sink({kText});
  sink->Add(Row{"mine"});
  test::WriteFile(path, "another program's");
  EXPECT_RUN_TIME_ERROR(sink->Commit(), ErrorNumber::kAlreadyExists);
  EXPECT_EQ(test::FileContent(path), "another program's");
}

TEST_F(DbaseSink, LeftWithoutACommitNothingChanges) {
  test::WriteFile(path, "old");
  {
    const auto sink = Sink({kText}, Existing::kReplace);
    for (int i = 0; i < 10000; ++i) sink->Add(Row{"a row of many"});
  }
  EXPECT_EQ(test::FileContent(path), "old");
  EXPECT_EQ(test::EntryCount(folder.Path()), 1);
}

TEST_F(DbaseSink, AFullDiskIsToldAndLeavesTheOldFile) {
  test::WriteFile(path, "old");
  // Rows that wait take less than the file: both the first and the last step meet the limit.
  const auto write = [&](rlim_t limit) {
    const auto sink = Sink({kText, {"WIDE", FieldType::kText, 0}}, Existing::kReplace);
    const test::FileSizeLimit full(limit);
    sink->Add(Row{std::string(200, 'x'), std::string(200, 'y')});
    for (int i = 0; i < 2000; ++i) sink->Add(Row{"a row", Value()});
    sink->Commit();
  };
  for (const rlim_t limit : {20'000U, 300'000U}) {
    EXPECT_RUN_TIME_ERROR(write(limit), ErrorNumber::kDiskFailure);
    EXPECT_EQ(test::FileContent(path), "old");
    EXPECT_EQ(test::EntryCount(folder.Path()), 1);
  }
}

}  // namespace
}  // namespace orvex::store
