#include "store/csv.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <random>

#include "store/run_time_error.h"
#include "support/test_databases.h"

namespace orvex::store {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

/// What reading the text fails with.
std::string FailureOf(std::string_view text) {
  try {
    CsvTable::Parse(text, "t.csv");
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::kDataConversion);
    return error.Description();
  }
  ADD_FAILURE() << "the text was read: " << text;
  return {};
}

TEST(Csv, CellsAreFoundByTheNameOfTheirColumn) {
  const CsvTable table = CsvTable::Parse("NAME,CAS\nBenzene,71-43-2\nToluene,108-88-3\n", "t.csv");
  EXPECT_THAT(table.Columns(), ElementsAre("NAME", "CAS"));
  ASSERT_EQ(table.RowCount(), 2u);
  EXPECT_EQ(table.Cell(0, "NAME"), "Benzene");
  EXPECT_EQ(table.Cell(1, "cas"), "108-88-3");
}

TEST(Csv, SemicolonsOrTabsBetweenColumnsAreTold) {
  EXPECT_EQ(FailureOf("NAME;CAS\nBenzene;71-43-2\n"),
            "t.csv, line 1: the columns are parted by semicolons. Save the file with commas between the columns and "
            "points in the numbers.");
  EXPECT_THAT(FailureOf("\xEF\xBB\xBF\"NAME\";\"CAS\"\r\n"), HasSubstr("parted by semicolons"));
  EXPECT_THAT(FailureOf("NAME\tCAS\n"), HasSubstr("parted by tabs"));
  EXPECT_EQ(CsvTable::Parse("A;B,C\n1;2,3\n", "t.csv").Cell(0, "A;B"), "1;2");
  EXPECT_EQ(CsvTable::Parse("A\n1;2\n", "t.csv").Cell(0, "A"), "1;2");
}

TEST(Csv, ACellIsFoundByItsPlace) {
  EXPECT_EQ(CsvTable::Parse("A,B\n1,2\n3,\n", "t.csv").CellAt(0, 1), "2");
  EXPECT_EQ(CsvTable::Parse("A,B\n1,2\n3,\n", "t.csv").CellAt(1, 1), std::nullopt);
}

TEST(Csv, AnUnknownColumnIsAnError) {
  const CsvTable table = CsvTable::Parse("NAME\nBenzene\n", "t.csv");
  try {
    static_cast<void>(table.Cell(0, "CAS"));
    FAIL() << "a cell was found";
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::kItemNotFound);
    EXPECT_THAT(error.Description(), HasSubstr("t.csv"));
  }
}

TEST(Csv, WindowsAndUnixLineEndsReadAlike) {
  const CsvTable table = CsvTable::Parse("A,B\r\n1,2\r\n3,4\n5,6", "t.csv");
  ASSERT_EQ(table.RowCount(), 3u);
  EXPECT_EQ(table.Cell(0, "B"), "2");
  EXPECT_EQ(table.Cell(2, "B"), "6");
}

TEST(Csv, QuotedCellsHoldCommasQuotesAndLineEnds) {
  const CsvTable table = CsvTable::Parse("A,B\n\"Sock, \"\"blue\"\"\",\"one\ntwo\"\nx,y\n", "t.csv");
  EXPECT_EQ(table.Cell(0, "A"), "Sock, \"blue\"");
  EXPECT_EQ(table.Cell(0, "B"), "one\ntwo");
  EXPECT_EQ(table.Line(0), 2u);
  EXPECT_EQ(table.Line(1), 4u);
}

TEST(Csv, AnEmptyCellIsNothingAndAQuotedOneAnEmptyText) {
  const CsvTable table = CsvTable::Parse("A,B,C\n,\"\",\n", "t.csv");
  EXPECT_EQ(table.Cell(0, "A"), std::nullopt);
  EXPECT_EQ(table.Cell(0, "B"), "");
  EXPECT_EQ(table.Cell(0, "C"), std::nullopt);
}

TEST(Csv, BlanksArePartOfACell) {
  const CsvTable table = CsvTable::Parse("A,B\n x , \n", "t.csv");
  EXPECT_EQ(table.Cell(0, "A"), " x ");
  EXPECT_EQ(table.Cell(0, "B"), " ");
}

TEST(Csv, LinesWithoutAnythingAreCountedButGiveNoRow) {
  const CsvTable table = CsvTable::Parse("A,B\n\n1,2\r\n\r\n3,4\n\n", "t.csv");
  ASSERT_EQ(table.RowCount(), 2u);
  EXPECT_EQ(table.Line(0), 3u);
  EXPECT_EQ(table.Line(1), 5u);
}

TEST(Csv, AByteOrderMarkIsNoPartOfTheFirstName) {
  EXPECT_THAT(CsvTable::Parse("\xEF\xBB\xBFNAME\nx\n", "t.csv").Columns(), ElementsAre("NAME"));
}

TEST(Csv, AHeaderAloneIsATableWithoutRows) { EXPECT_EQ(CsvTable::Parse("A,B\n", "t.csv").RowCount(), 0u); }

TEST(Csv, LettersBeyondAsciiAreKept) {
  const CsvTable table = CsvTable::Parse(
      "A\nMayag\xC3\xBC"
      "ez \xF0\x9F\x9B\xA2\n",
      "t.csv");
  EXPECT_EQ(table.Cell(0, "A"),
            "Mayag\xC3\xBC"
            "ez \xF0\x9F\x9B\xA2");
}

TEST(Csv, AnEmptyFileIsRefused) {
  EXPECT_THAT(FailureOf(""), HasSubstr("t.csv, line 1: the file is empty"));
  EXPECT_THAT(FailureOf("\n\r\n"), HasSubstr("the file is empty"));
}

TEST(Csv, AQuoteThatIsNeverClosedIsRefusedWithItsLine) {
  EXPECT_THAT(FailureOf("A,B\n1,2\n3,\"4\n5,6\n"), HasSubstr("t.csv, line 3: a quote is opened and never closed"));
}

TEST(Csv, AQuoteInsideABareCellIsRefusedWithItsPlace) {
  EXPECT_THAT(FailureOf("A,B\n1,2\"\n"), HasSubstr("t.csv, line 2, character 4: a quote stands where none can be"));
}

TEST(Csv, TextBehindAClosingQuoteIsRefused) {
  EXPECT_THAT(FailureOf("A,B\n\"1\"x,2\n"), HasSubstr("t.csv, line 2, character 4"));
}

TEST(Csv, ARowOfTheWrongLengthIsRefused) {
  EXPECT_THAT(FailureOf("A,B\n1,2\n1,2,3\n"), HasSubstr("t.csv, line 3: 3 cells where the header has 2 columns"));
  EXPECT_THAT(FailureOf("A,B\n1\n"), HasSubstr("t.csv, line 2: 1 cells where the header has 2 columns"));
}

TEST(Csv, AColumnWithoutANameIsRefused) {
  EXPECT_THAT(FailureOf("A,,C\n1,2,3\n"), HasSubstr("t.csv, line 1: column 2 has no name"));
}

TEST(Csv, TwoColumnsOfOneNameAreRefusedWhateverTheCase) {
  EXPECT_THAT(FailureOf("CAS,NAME,Cas\n1,2,3\n"), HasSubstr("two columns 'Cas'"));
}

TEST(Csv, ABareCarriageReturnIsRefused) {
  for (const char* text : {"A,B\n1,2\r3,4\n", "A,B\n\r1,2\n", "A,B\n1,2\r\r\n", "A,B\n1,2\r", "A,B\n\"1\"\r,2\n"})
    EXPECT_THAT(FailureOf(text), HasSubstr("t.csv, line 2: a carriage return stands alone")) << text;
  EXPECT_EQ(CsvTable::Parse("A,B\n\"1\r\",2\n", "t.csv").Cell(0, "A"), "1\r") << "in quotes it is part of the text";
}

TEST(Csv, TextThatIsNotUtf8IsRefusedWithItsPlace) {
  EXPECT_THAT(FailureOf("A\nMayag\xFC"
                        "ez\n"),
              HasSubstr("t.csv, line 2, character 6: the text is not UTF-8"));
  for (const char* bytes : {"\xC3", "\xC0\xAF", "\xE0\x80\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xF8", "\x80",
                            "\xE2\x82", "\xFF\xFE"}) {
    EXPECT_THAT(FailureOf(std::string("A\n") + bytes + "\n"), HasSubstr("not UTF-8"));
  }
  EXPECT_THAT(FailureOf(std::string("A\nx\0y\n", 6)), HasSubstr("line 2, character 2: the text is not UTF-8"));
}

TEST(Csv, RandomBytesAreReadOrRefusedButNeverHarmful) {
  std::mt19937 random(20240229);
  const std::string letters = "a,,\"\"\n\r 1\xC3\xBC";
  for (int round = 0; round < 20000; ++round) {
    std::string text = "A,B\n";
    for (int i = 0; i < 12; ++i) text += letters[random() % letters.size()];
    try {
      const CsvTable table = CsvTable::Parse(text, "t.csv");
      for (std::size_t row = 0; row < table.RowCount(); ++row) {
        EXPECT_NO_THROW(static_cast<void>(table.Cell(row, "B")));
      }
    } catch (const RunTimeError& error) {
      EXPECT_EQ(error.Number(), ErrorNumber::kDataConversion);
    }
  }
}

TEST(Csv, AMissingFileIsNamed) {
  test::TemporaryFolder folder;
  try {
    CsvTable::Read(folder.Path() / "absent.csv");
    FAIL() << "a file was read";
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::kFileNotFound);
    EXPECT_THAT(error.Description(), HasSubstr("absent.csv"));
  }
}

TEST(Csv, AFolderCannotBeRead) {
  test::TemporaryFolder folder;
  try {
    CsvTable::Read(folder.Path());
    FAIL() << "a folder was read";
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::kDiskFailure);
  }
}

TEST(Csv, AFileIsCalledByItsNameWithoutItsFolder) {
  test::TemporaryFolder folder;
  std::ofstream(folder.Path() / "met.csv") << "A\n1\n";
  EXPECT_EQ(CsvTable::Read(folder.Path() / "met.csv").Name(), "met.csv");
}

TEST(Csv, ARefusedCellIsNamedByFileLineAndColumn) {
  const CsvTable table = CsvTable::Parse("A,B\n1,2\n\n3,x\n", "t.csv");
  try {
    table.Refuse(1, "B", "'x' is not a number.");
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::kDataConversion);
    EXPECT_EQ(error.Description(), "t.csv, line 4, B: 'x' is not a number.");
  }
}

TEST(CsvLine, CellsAreQuotedOnlyWhereTheyHaveToBe) {
  const CsvCell cells[] = {"a", std::nullopt, "", "b,c", "d \"e\"", "f\ng", " h "};
  EXPECT_EQ(CsvLine(cells), "a,,\"\",\"b,c\",\"d \"\"e\"\"\",\"f\ng\", h \r\n");
}

TEST(CsvLine, WhatIsWrittenReadsBackTheSame) {
  const std::vector<CsvCell> cells = {"x", std::nullopt, "", "\"", ",", "\r\n", " "};
  const CsvTable table = CsvTable::Parse("a,b,c,d,e,f,g\n" + CsvLine(cells), "t.csv");
  ASSERT_EQ(table.RowCount(), 1u);
  for (std::size_t i = 0; i < cells.size(); ++i) EXPECT_EQ(table.Cell(0, table.Columns()[i]), cells[i]) << i;
}

}  // namespace
}  // namespace orvex::store
