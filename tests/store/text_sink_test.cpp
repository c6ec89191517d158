#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "store/run_time_error.h"
#include "store/table_sink.h"
#include "support/expect_error.h"
#include "support/file_content.h"
#include "support/file_size_limit.h"
#include "support/program_output.h"
#include "support/test_databases.h"

namespace orvex::store {
namespace {

using test::EntryCount;
using test::FileContent;
using test::TemporaryFolder;

const std::vector<StoredField> kFields{{"ID", FieldType::kLong, 0},
                                       {"USER ID", FieldType::kText, 40},
                                       {"DIAMETER", FieldType::kDouble, 0},
                                       {"HEATED", FieldType::kBoolean, 0}};

TEST(TextSink, WritesNamesThenRowsWithTextsInQuotes) {
  const TemporaryFolder folder;
  const auto path = folder.Path() / "tanks.txt";
  const auto sink = MakeTextSink(path, kFields, Existing::kRefuse);
  sink->Add(std::vector<Value>{1, "Tank \"A\", north", 12.5, true});
  sink->Add(std::vector<Value>{2, "", -0.0, false});
  sink->Add(std::vector<Value>{3, Value(), Value(), Value()});
  sink->Add(std::vector<Value>{4, "two\r\nlines, \xC3\xA9", 1e308, true});
  sink->Commit();
  EXPECT_EQ(FileContent(path),
            "\"ID\",\"USER ID\",\"DIAMETER\",\"HEATED\"\r\n"
            "1,\"Tank \"\"A\"\", north\",12.5,-1\r\n"
            "2,\"\",-0,0\r\n"
            "3,,,\r\n"
            "4,\"two\r\nlines, \xC3\xA9\",1e+308,-1\r\n");
  EXPECT_EQ(EntryCount(folder.Path()), 1);
  EXPECT_TRUE(sink->Losses().empty());
}

TEST(TextSink, ATableWithoutRowsIsALineOfNames) {
  const TemporaryFolder folder;
  MakeTextSink(folder.Path() / "none.txt", kFields, Existing::kRefuse)->Commit();
  EXPECT_EQ(FileContent(folder.Path() / "none.txt"), "\"ID\",\"USER ID\",\"DIAMETER\",\"HEATED\"\r\n");
}

TEST(TextSink, AnotherReaderGetsTheSameNumbersAndTexts) {
  using Limits = std::numeric_limits<double>;
  const TemporaryFolder folder;
  const auto path = folder.Path() / "numbers.txt";
  const auto sink = MakeTextSink(path, kFields, Existing::kRefuse);
  const std::vector<double> numbers{Limits::denorm_min(), Limits::min(), -Limits::max(), 0.1, 1.0 / 3, -0.0, 123456789};
  for (std::size_t i = 0; i < numbers.size(); ++i)
    sink->Add(std::vector<Value>{static_cast<std::int32_t>(i), "a,\"b\"\r\nc\nd", numbers[i], false});
  sink->Commit();
  // Python prints each number as its exact hexadecimal form.
  const std::string output = test::ProgramOutput(
      "/usr/bin/python3 -c \"import csv, sys\n"
      "for row in list(csv.reader(open(sys.argv[1], newline='', encoding='utf-8')))[1:]:\n"
      "  print(row[0], repr(row[1]), float(row[2]).hex(), row[3])\" " +
      path.string());
  EXPECT_EQ(output,
            R"(0 'a,"b"\r\nc\nd' 0x0.0000000000001p-1022 0
1 'a,"b"\r\nc\nd' 0x1.0000000000000p-1022 0
2 'a,"b"\r\nc\nd' -0x1.fffffffffffffp+1023 0
3 'a,"b"\r\nc\nd' 0x1.999999999999ap-4 0
4 'a,"b"\r\nc\nd' 0x1.5555555555555p-2 0
5 'a,"b"\r\nc\nd' -0x0.0p+0 0
6 'a,"b"\r\nc\nd' 0x1.d6f3454000000p+26 0
)");
}

TEST(TextSink, RefusesAFileThatIsThere) {
  const TemporaryFolder folder;
  const auto path = folder.Path() / "there.txt";
  test::WriteFile(path, "old");
  EXPECT_RUN_TIME_ERROR(MakeTextSink(path, kFields, Existing::kRefuse), ErrorNumber::kAlreadyExists);
  EXPECT_EQ(FileContent(path), "old");
  EXPECT_EQ(EntryCount(folder.Path()), 1);
}

TEST(TextSink, RefusesAFileThatComesWhileItIsWritten) {
  const TemporaryFolder folder;
  const auto path = folder.Path() / "late.txt";
  const auto sink = MakeTextSink(path, kFields, Existing::kRefuse);
  test::WriteFile(path, "of somebody else");
  EXPECT_RUN_TIME_ERROR(sink->Commit(), ErrorNumber::kAlreadyExists);
  EXPECT_EQ(FileContent(path), "of somebody else");
}

TEST(TextSink, ReplacesAFileOnlyWhenTheNewOneIsComplete) {
  const TemporaryFolder folder;
  const auto path = folder.Path() / "there.txt";
  test::WriteFile(path, "old");
  const auto sink = MakeTextSink(path, {{"N", FieldType::kLong, 0}}, Existing::kReplace);
  sink->Add(std::vector<Value>{7});
  EXPECT_EQ(FileContent(path), "old");
  sink->Commit();
  EXPECT_EQ(FileContent(path), "\"N\"\r\n7\r\n");
}

TEST(TextSink, LeavesTheOldFileWhenItIsGivenUp) {
  const TemporaryFolder folder;
  const auto path = folder.Path() / "there.txt";
  test::WriteFile(path, "old");
  MakeTextSink(path, kFields, Existing::kReplace)->Add(std::vector<Value>{1, "a", 1.0, true});
  EXPECT_EQ(FileContent(path), "old");
  EXPECT_EQ(EntryCount(folder.Path()), 1);
}

TEST(TextSink, RefusesNumbersThatAreNotFinite) {
  const TemporaryFolder folder;
  const auto sink = MakeTextSink(folder.Path() / "n.txt", {{"N", FieldType::kDouble, 0}}, Existing::kRefuse);
  EXPECT_RUN_TIME_ERROR(sink->Add(std::vector<Value>{std::nan("")}), ErrorNumber::kOverflow);
}

TEST(TextSink, TellsOfAFolderThatIsNotThereAndOfAFullDisk) {
  const TemporaryFolder folder;
  EXPECT_RUN_TIME_ERROR(MakeTextSink(folder.Path() / "none" / "a.txt", kFields, Existing::kRefuse),
                        ErrorNumber::kInvalidPath);
  const auto path = folder.Path() / "full.txt";
  test::WriteFile(path, "old");
  {
    const test::FileSizeLimit limit(1000);
    const auto sink = MakeTextSink(path, kFields, Existing::kReplace);
    for (int i = 0; i < 100; ++i) sink->Add(std::vector<Value>{i, "Tank", 1.5, true});
    EXPECT_RUN_TIME_ERROR(sink->Commit(), ErrorNumber::kDiskFailure);
  }
  EXPECT_EQ(FileContent(path), "old");
  EXPECT_EQ(EntryCount(folder.Path()), 1);
}

}  // namespace
}  // namespace orvex::store
