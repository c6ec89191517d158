#include "store/dbase_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <shapefil.h>
#include <sys/stat.h>

#include "store/dbase_bytes.h"
#include "store/run_time_error.h"
#include "support/expect_error.h"
#include "support/file_content.h"
#include "support/ordinary_person.h"
#include "support/plain_numbers.h"
#include "support/test_databases.h"

namespace orvex::store {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class DbaseFile : public testing::Test {
 protected:
  DbaseTable Open(const DbaseBytes& file) {
    test::WriteFile(path, file.Bytes());
    return DbaseTable(path);
  }
  /// The only field of the first record.
  Value Only(char type, const std::string& content, int language = 0) {
    return Open({.fields = {{"X", type, static_cast<int>(content.size())}},
                 .records = {" " + content},
                 .language = language})
        .Get("X");
  }
  /// What reading it is refused with; the message must name file, record and field.
  std::string RefusalOf(char type, const std::string& content, int language = 0) {
    try {
      const Value value = Only(type, content, language);
      ADD_FAILURE() << "read: " << value.TextOrEmpty();
    } catch (const RunTimeError& error) {
      EXPECT_EQ(error.Number(), ErrorNumber::kDataConversion);
      EXPECT_THAT(error.Description(), HasSubstr("t.dbf', record 1, field 'X': "));
      return error.Description();
    }
    return {};
  }
  std::vector<std::string> Names(DbaseTable& table) {
    std::vector<std::string> names;
    for (; !table.AtEnd(); table.MoveNext()) names.push_back(table.TextOrEmpty("NAME"));
    return names;
  }

  test::TemporaryFolder folder;
  std::filesystem::path path = folder.Path() / "t.dbf";
};

/// With a name of three characters each.
DbaseBytes Named(std::vector<std::string> records) {
  return {.fields = {{"NAME", 'C', 3}}, .records = std::move(records)};
}

TEST_F(DbaseFile, WhatAnotherProgramWroteIsReadFieldByField) {
  std::optional<test::PlainNumbers> plain(std::in_place);
  DBFHandle file = DBFCreate(path.c_str());
  DBFAddField(file, "NAME", FTString, 20, 0);
  DBFAddField(file, "MOLWT", FTDouble, 12, 4);
  DBFAddField(file, "COUNT", FTInteger, 6, 0);
  DBFAddField(file, "WELDED", FTLogical, 1, 0);
  DBFWriteStringAttribute(file, 0, 0, "Benzene");
  DBFWriteDoubleAttribute(file, 0, 1, 78.11);
  DBFWriteIntegerAttribute(file, 0, 2, -12);
  DBFWriteLogicalAttribute(file, 0, 3, 'T');
  DBFWriteStringAttribute(file, 1, 0, "");
  DBFWriteStringAttribute(file, 1, 3, "F");
  DBFClose(file);
  plain.reset();

  DbaseTable table(path);
  ASSERT_EQ(table.Fields().size(), 4U);
  EXPECT_EQ(table.Fields()[1].name, "MOLWT");
  EXPECT_EQ(table.Fields()[1].type, 'N');
  EXPECT_EQ(table.Fields()[1].width, 12);
  EXPECT_EQ(table.Fields()[1].decimals, 4);
  EXPECT_TRUE(table.HasField("molwt"));
  EXPECT_FALSE(table.HasField("CAS"));
  EXPECT_EQ(table.RecordCount(), 2);

  EXPECT_EQ(table.Get("NAME"), Value("Benzene"));
  EXPECT_EQ(table.Get("Molwt"), Value(78.11));
  EXPECT_EQ(table.DoubleOrZero("COUNT"), -12);
  EXPECT_EQ(table.TextOrEmpty("COUNT"), "-12");
  EXPECT_TRUE(table.BoolOrFalse("WELDED"));
  table.MoveNext();
  EXPECT_TRUE(table.IsNull("NAME"));
  EXPECT_TRUE(table.IsNull("MOLWT"));
  EXPECT_EQ(table.TextOrEmpty("NAME"), "");
  EXPECT_EQ(table.DoubleOrZero("MOLWT"), 0);
  EXPECT_EQ(table.Get("WELDED"), Value(false));
  table.MoveNext();
  EXPECT_TRUE(table.AtEnd());
}

TEST_F(DbaseFile, DeletedRecordsArePassedOver) {
  auto table = Open(Named({"*one", " two", "*thr", "*fou", " fiv", "*six"}));
  EXPECT_THAT(Names(table), ElementsAre("two", "fiv"));
  EXPECT_EQ(table.RecordCount(), 6);
  table.MoveFirst();
  EXPECT_EQ(table.Position(), 2);
}

TEST_F(DbaseFile, ATableOfDeletedRecordsOrOfNoneIsAtItsEnd) {
  EXPECT_TRUE(Open(Named({"*one", "*two"})).AtEnd());
  EXPECT_TRUE(Open(Named({})).AtEnd());
}

TEST_F(DbaseFile, ARecordIsComeBackToByItsPosition) {
  auto table = Open(Named({" one", "*two", " thr"}));
  table.MoveNext();
  const auto third = table.Position();
  EXPECT_EQ(third, 3);
  table.MoveFirst();
  table.MoveTo(third);
  EXPECT_EQ(table.TextOrEmpty("NAME"), "thr");
  for (const std::int64_t position : {-1, 0, 2, 4})
    EXPECT_RUN_TIME_ERROR(table.MoveTo(position), ErrorNumber::kNoCurrentRecord);
  EXPECT_EQ(table.Position(), 3) << "stays where it was";
}

TEST_F(DbaseFile, AtTheEndThereIsNoCurrentRecord) {
  auto table = Open(Named({" one"}));
  table.MoveNext();
  EXPECT_TRUE(table.AtEnd());
  EXPECT_RUN_TIME_ERROR(table.MoveNext(), ErrorNumber::kNoCurrentRecord);
  EXPECT_RUN_TIME_ERROR(table.Position(), ErrorNumber::kNoCurrentRecord);
  EXPECT_RUN_TIME_ERROR(table.Get("NAME"), ErrorNumber::kNoCurrentRecord);
}

TEST_F(DbaseFile, AnUnknownFieldIsAnError) {
  EXPECT_RUN_TIME_ERROR(Open(Named({" one"})).Get("CAS"), ErrorNumber::kItemNotFound);
}

TEST_F(DbaseFile, ALongTableIsReadBlockByBlockForwardsAndBackwards) {
  constexpr int kRecords = 30000;  // of 101 bytes: more than 40 blocks
  DbaseBytes file{.fields = {{"N", 'N', 10}, {"TEXT", 'C', 90}}};
  for (int i = 1; i <= kRecords; ++i) {
    std::string number = std::to_string(i);
    number.insert(0, 10 - number.size(), ' ');
    file.records.push_back((i % 7 == 0 ? "*" : " ") + number + std::string(90, 'x'));
  }
  auto table = Open(file);
  int seen = 0;
  for (; !table.AtEnd(); table.MoveNext(), ++seen) EXPECT_EQ(table.DoubleOrZero("N"), table.Position());
  EXPECT_EQ(seen, kRecords - kRecords / 7);
  for (std::int64_t position = kRecords; position > 0; position -= 1001) {
    if (position % 7 == 0) continue;
    table.MoveTo(position);
    EXPECT_EQ(table.DoubleOrZero("N"), position);
  }
}

TEST_F(DbaseFile, TextsLoseTheBlanksAtTheirEndOnly) {
  EXPECT_EQ(Only('C', "  two words   "), Value("  two words"));
  EXPECT_TRUE(Only('C', "    ").IsNull());
}

TEST_F(DbaseFile, TextsEndAtTheNulThatSomeProgramsFillWith) {
  EXPECT_EQ(Only('C', std::string("ab \0rest", 8)), Value("ab"));
  EXPECT_TRUE(Only('C', std::string(8, '\0')).IsNull());
}

TEST_F(DbaseFile, ControlCharactersOfATextAreRead) { EXPECT_EQ(Only('C', "a\tb\x01"), Value("a\tb\x01")); }

TEST_F(DbaseFile, TextsComeFromTheCodePageThatTheHeadNames) {
  // e acute, u umlaut, sharp s, degree
  const std::string meant = "\u00E9\u00FC\u00DF\u00B0";
  EXPECT_EQ(Only('C', "\x82\x81\xE1\xF8", 0x01), Value(meant)) << "437";
  EXPECT_EQ(Only('C', "\x82\x81\xE1\xF8", 0x02), Value(meant)) << "850";
  for (const int ansi : {0x00, 0x03, 0x57, 0x58, 0x59}) EXPECT_EQ(Only('C', "\xE9\xFC\xDF\xB0", ansi), Value(meant));
  EXPECT_EQ(Only('C', "\xD5", 0x01), Value("\u2552")) << "437 draws a box there";
  EXPECT_EQ(Only('C', "\xD5", 0x02), Value("\u0131")) << "850 has a dotless i there";
  EXPECT_EQ(Only('C', "\x80", 0x03), Value("\u20AC")) << "1252 has the euro sign";
}

TEST_F(DbaseFile, BytesThatTheirCodePageLeavesOpenAreControlCharacters) {
  EXPECT_EQ(Only('C', "\x81\x8D\x8F\x90\x9D", 0x03), Value("\u0081\u008D\u008F\u0090\u009D"));
}

TEST_F(DbaseFile, EveryByteIsReadInEveryCodePageOrRefused) {
  std::string all;
  for (int byte = 1; byte < 256; ++byte) all += static_cast<char>(byte);
  int refused = 0;
  for (int language = 0; language < 256; ++language) {
    try {
      EXPECT_FALSE(Only('C', all, language).IsNull());
    } catch (const RunTimeError& error) {
      EXPECT_EQ(error.Number(), ErrorNumber::kDataConversion);
      ++refused;
    }
  }
  EXPECT_EQ(refused, 256 - 53) << "53 drivers of code pages with one byte a character";
}

TEST_F(DbaseFile, OfAnUnknownCodePageOnlyAsciiIsRead) {
  constexpr int kShiftJis = 0x13;
  EXPECT_EQ(Only('C', "Benzene", kShiftJis), Value("Benzene"));
  EXPECT_THAT(RefusalOf('C', "Benz\xE9ne", kShiftJis), HasSubstr("'Benz?ne' is in a code page that is not known"));
}

TEST_F(DbaseFile, NumbersAreReadInWhateverFormTheyWereWritten) {
  for (const char type : {'N', 'F'}) {
    EXPECT_EQ(Only(type, "   12.50"), Value(12.5));
    EXPECT_EQ(Only(type, "12.50   "), Value(12.5));
    EXPECT_EQ(Only(type, "-0.25"), Value(-0.25));
    EXPECT_EQ(Only(type, "+3"), Value(3.0));
    EXPECT_EQ(Only(type, ".5"), Value(0.5));
    EXPECT_EQ(Only(type, "-.5"), Value(-0.5));
    EXPECT_EQ(Only(type, "5."), Value(5.0));
    EXPECT_EQ(Only(type, "00012"), Value(12.0));
    EXPECT_EQ(Only(type, "1.5E+03"), Value(1500.0));
    EXPECT_EQ(Only(type, "12345678901234567890"), Value(12345678901234567890.0));
    EXPECT_EQ(Only(type, std::string("7\0\0", 3)), Value(7.0));
  }
}

TEST_F(DbaseFile, ABlankNumberIsNullNotZero) {
  EXPECT_TRUE(Only('N', "       ").IsNull());
  EXPECT_TRUE(Only('F', std::string(5, '\0')).IsNull());
  EXPECT_EQ(Only('N', "0"), Value(0.0));
}

TEST_F(DbaseFile, WhatIsNoNumberIsToldWithRecordAndField) {
  EXPECT_THAT(RefusalOf('N', " 12x "), HasSubstr("'12x' is not a number"));
  EXPECT_THAT(RefusalOf('N', "\x01\x02\xFF\x7F"), HasSubstr("'\x3F\x3F\x3F\x3F' is not a number"));
  for (const char* garbage : {"nan", "inf", "-inf", "0x10", "1 2", "1,5", "-", ".", "+", "+-5", "--5", "1e999", "1e"})
    EXPECT_THAT(RefusalOf('N', garbage), HasSubstr("is not a number"));
}

TEST_F(DbaseFile, ANumberThatWasTooWideForItsFieldIsNotReadAsNull) {
  EXPECT_THAT(RefusalOf('N', "******"), HasSubstr("too wide"));
}

TEST_F(DbaseFile, ALongWrongNumberIsShownInPart) {
  EXPECT_LT(RefusalOf('N', std::string(200, 'x')).size(), path.string().size() + 120);
}

TEST_F(DbaseFile, LogicalFieldsKnowTrueFalseAndNull) {
  int refused = 0;
  for (int byte = 0; byte < 256; ++byte) {
    const char c = static_cast<char>(byte);
    const std::string known("TtYyFfNn? \0", 11);
    const auto place = known.find(c);
    if (place == std::string::npos) {
      EXPECT_THAT(RefusalOf('L', std::string(1, c)), HasSubstr("neither true nor false"));
      ++refused;
    } else {
      EXPECT_EQ(Only('L', std::string(1, c)), place < 4 ? Value(true) : place < 8 ? Value(false) : Value());
    }
  }
  EXPECT_EQ(refused, 256 - 11);
}

TEST_F(DbaseFile, DatesAreEightDigits) {
  EXPECT_EQ(Only('D', "19951110"), Value("19951110"));
  EXPECT_EQ(Only('D', "20000229"), Value("20000229"));
  EXPECT_TRUE(Only('D', "        ").IsNull());
  EXPECT_TRUE(Only('D', "00000000").IsNull());
  for (const char* wrong : {"19950230", "19951301", "1995 110", "10.11.95", "995     ", "19990229"})
    EXPECT_THAT(RefusalOf('D', wrong), HasSubstr("is not a date"));
}

TEST_F(DbaseFile, AMemoIsRefusedOnlyWhenItIsRead) {
  DbaseBytes file{.fields = {{"NAME", 'C', 3}, {"NOTES", 'M', 10}},
                  .records = {" one         7", " two          ", " thr0000000000"},
                  .program = 0x83};
  auto table = Open(file);
  EXPECT_EQ(table.TextOrEmpty("NAME"), "one");
  EXPECT_THAT(RefusalOf('M', "         7"), HasSubstr("memos are not read"));
  EXPECT_RUN_TIME_ERROR(table.Get("NOTES"), ErrorNumber::kDataConversion);
  table.MoveNext();
  EXPECT_TRUE(table.IsNull("NOTES"));
  table.MoveNext();
  EXPECT_TRUE(table.IsNull("NOTES"));
}

TEST_F(DbaseFile, FieldsOfOtherProgramsTypesAreRefusedOnlyWhenTheyAreRead) {
  DbaseBytes file{.fields = {{"NAME", 'C', 3}, {"STAMP", 'T', 8}, {"_NULLS", '0', 1}},
                  .records = {std::string(" one\1\2\3\4\5\6\7\1\0", 13)},
                  .program = 0x30,
                  .behind_fields = "\r" + std::string(263, '\0')};
  auto table = Open(file);
  EXPECT_EQ(table.TextOrEmpty("NAME"), "one");
  EXPECT_THAT(RefusalOf('T', "12345678"), HasSubstr("fields of its type are not read"));
  EXPECT_TRUE(table.IsNull("_NULLS"));
}

TEST_F(DbaseFile, ATextMayBeWiderThan255Characters) {
  DbaseBytes file{.fields = {{"LONG", 'C', 300 & 0xFF, 300 >> 8}}, .records = {" " + std::string(300, 'x')}};
  std::string bytes = file.Bytes();
  DbaseBytes::Put(bytes, 10, 301, 2);
  test::WriteFile(path, bytes);
  EXPECT_EQ(DbaseTable(path).TextOrEmpty("LONG"), std::string(300, 'x'));
}

TEST_F(DbaseFile, ARecordWithAWrongMarkIsToldWhenItIsRead) {
  auto table = Open(Named({" one", "?two", " thr"}));
  table.MoveNext();
  EXPECT_RUN_TIME_ERROR(table.Get("NAME"), ErrorNumber::kWrongFormat);
  table.MoveNext();
  EXPECT_EQ(table.TextOrEmpty("NAME"), "thr");
}

TEST_F(DbaseFile, AMissingFileAndAMissingFolderAreToldApart) {
  EXPECT_RUN_TIME_ERROR(DbaseTable(folder.Path() / "none.dbf"), ErrorNumber::kFileNotFound);
  EXPECT_RUN_TIME_ERROR(DbaseTable(folder.Path() / "none" / "t.dbf"), ErrorNumber::kInvalidPath);
}

TEST_F(DbaseFile, AFolderAndAPipeAreNoTables) {
  EXPECT_RUN_TIME_ERROR(DbaseTable(folder.Path()), ErrorNumber::kWrongFormat);
  ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
  EXPECT_RUN_TIME_ERROR(DbaseTable{path}, ErrorNumber::kWrongFormat);
}

TEST_F(DbaseFile, AFileThatMayNotBeReadIsTold) {
  test::WriteFile(path, Named({}).Bytes());
  std::filesystem::permissions(path, std::filesystem::perms::none);
  EXPECT_TRUE(test::AsOrdinaryPerson(folder.Path(), test::kOpenFolder,
                                     [&] { EXPECT_RUN_TIME_ERROR(DbaseTable{path}, ErrorNumber::kDiskFailure); }));
}

TEST_F(DbaseFile, AFileThatShrinksWhileItIsReadIsToldAndEndsTheTable) {
  auto file = Named({});
  for (int i = 0; i < 40000; ++i) file.records.emplace_back(" one");
  auto table = Open(file);
  std::filesystem::resize_file(path, 2000);
  const auto read_all = [&] {
    for (; !table.AtEnd(); table.MoveNext()) EXPECT_EQ(table.TextOrEmpty("NAME"), "one");
  };
  EXPECT_RUN_TIME_ERROR(read_all(), ErrorNumber::kDiskFailure);
  EXPECT_TRUE(table.AtEnd());
}

}  // namespace
}  // namespace orvex::store
