#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include "store/ole_file.h"
#include "store/run_time_error.h"
#include "store/table_sink.h"
#include "store/workbook_file.h"
#include "store/workbook_readers.h"
#include "support/expect_error.h"
#include "support/file_content.h"
#include "support/test_databases.h"

namespace orvex::store {
namespace {

using test::EntryCount;
using test::FileContent;
using test::TemporaryFolder;

const std::vector<StoredField> kFields{{"NAME", FieldType::kText, 0}, {"N", FieldType::kDouble, 0}};

void Export(const std::filesystem::path& path, const std::string& sheet, int rows) {
  const auto sink = MakeWorkbookSink(path, sheet, kFields, Existing::kRefuse);
  for (int i = 0; i < rows; ++i) sink->Add(std::vector<Value>{"Tank " + std::to_string(i), i * 0.5});
  sink->Commit();
}

/// The bytes of a workbook of two sheets.
std::string TwoSheets(const TemporaryFolder& folder) {
  const auto path = folder.Path() / "made.xls";
  Export(path, "one", 3);
  Export(path, "two", 60);
  auto bytes = FileContent(path);
  std::filesystem::remove(path);
  return bytes;
}

/// A sheet can be added, or a message names the file, which is as it was. True if it was added.
bool AddsOrRefuses(const std::filesystem::path& path, const std::string& bytes) {
  test::WriteFile(path, bytes);
  try {
    Export(path, "three", 1);
    return true;
  } catch (const RunTimeError& error) {
    EXPECT_TRUE(error.Number() == ErrorNumber::kWrongFormat || error.Number() == ErrorNumber::kAlreadyExists)
        << error.Description();
    EXPECT_NE(error.Description().find(path.string()), std::string::npos) << error.Description();
    EXPECT_TRUE(FileContent(path) == bytes);
    EXPECT_EQ(EntryCount(path.parent_path()), 1);
    return false;
  }
}

std::string RefusalOf(const std::filesystem::path& path) {
  try {
    Export(path, "three", 1);
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::kWrongFormat);
    return error.Description();
  }
  return "";
}

TEST(HostileWorkbooks, OneThatIsCutOffIsRefusedAndKept) {
  const TemporaryFolder folder;
  const auto bytes = TwoSheets(folder);
  for (std::size_t size = 0; size < bytes.size(); size += size < 1024 ? 31 : 97)
    EXPECT_FALSE(AddsOrRefuses(folder.Path() / "cut.xls", bytes.substr(0, size))) << size;
  EXPECT_FALSE(AddsOrRefuses(folder.Path() / "cut.xls", bytes.substr(0, bytes.size() - 1)));
}

TEST(HostileWorkbooks, OneWithWrongBytesIsRefusedOrKeepsItsForm) {
  const TemporaryFolder folder;
  const auto path = folder.Path() / "flipped.xls";
  const auto bytes = TwoSheets(folder);
  std::mt19937 random(7);
  int added = 0;
  constexpr int kFiles = 1500;
  for (int i = 0; i < kFiles; ++i) {
    auto damaged = bytes;
    for (std::size_t k = 1 + random() % 6; k-- > 0;) damaged[random() % damaged.size()] = static_cast<char>(random());
    if (!AddsOrRefuses(path, damaged)) continue;
    ++added;
    // Whatever the damage was, the next sheet finds a workbook.
    EXPECT_TRUE(WorkbookFile::ReadOrNew(path).workbook.HasSheet("three"));
  }
  // A wrong byte in a cell does no harm, one in the structures does.
  EXPECT_GT(added, kFiles / 10);
  EXPECT_LT(added, kFiles * 9 / 10);
}

TEST(HostileWorkbooks, FilesOfOtherKindsAreRefusedAndKept) {
  const TemporaryFolder folder;
  const auto path = folder.Path() / "other.xls";
  for (const std::string& content : {std::string(), std::string("a,b\r\n1,2\r\n"), std::string(100000, '\0'),
                                     "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1" + std::string(2000, '\xFF')})
    EXPECT_FALSE(AddsOrRefuses(path, content));
}

TEST(HostileWorkbooks, SaysWhatKeepsASheetFromBeingAdded) {
  const TemporaryFolder folder;
  const auto path = folder.Path() / "other.xls";
  const auto refused = "No sheet can be added to the workbook '" + path.string() + "': ";
  auto file = *ReadOleFile(TwoSheets(folder));
  const auto book = file.streams.front();

  file.streams = {{u"Workbook", book.content}};
  test::WriteFile(path, WriteOleFile(file));
  EXPECT_EQ(RefusalOf(path), refused + "it is of a later version of Excel.");

  file.streams = {{u"Book", book.content}, {u"Workbook", book.content}};
  test::WriteFile(path, WriteOleFile(file));
  EXPECT_EQ(RefusalOf(path), refused + "it is of a later version of Excel.");

  file.streams = {{u"WordDocument", book.content}};
  test::WriteFile(path, WriteOleFile(file));
  EXPECT_EQ(RefusalOf(path), refused + "it is no workbook of Excel 5.0.");

  test::WriteFile(path, "no workbook");
  EXPECT_EQ(RefusalOf(path), refused + "it is no workbook of Excel 5.0, or is damaged.");

  // The first entry behind that of the stream becomes a storage, which macros lie in.
  auto bytes = WriteOleFile({file.class_id, {book}});
  const auto entry = bytes.find(std::string("B\0o\0o\0k\0", 8));
  ASSERT_NE(entry, std::string::npos);
  bytes[entry + 128 + 66] = 1;
  test::WriteFile(path, bytes);
  EXPECT_EQ(RefusalOf(path), refused + "it holds macros or objects, which would be lost.");

  std::filesystem::resize_file(path, (std::uintmax_t{1} << 30) + 1);
  EXPECT_EQ(RefusalOf(path), refused + "it is too large.");
}

TEST(HostileWorkbooks, WhatElseLiesInTheFileStays) {
  const TemporaryFolder folder;
  const auto path = folder.Path() / "author.xls";
  auto file = *ReadOleFile(TwoSheets(folder));
  file.streams.push_back({u"\u0005SummaryInformation", "the author's name"});
  test::WriteFile(path, WriteOleFile(file));
  Export(path, "three", 2);
  const auto after = *ReadOleFile(FileContent(path));
  ASSERT_EQ(after.streams.size(), 2U);
  EXPECT_EQ(after.streams[1].name, u"\u0005SummaryInformation");
  EXPECT_EQ(after.streams[1].content, "the author's name");
  EXPECT_EQ(after.class_id, file.class_id);
  EXPECT_EQ(test::ReadWithFreexl(path).size(), 3U);
}

TEST(HostileWorkbooks, AFolderInThePlaceOfTheFileStays) {
  const TemporaryFolder folder;
  std::filesystem::create_directory(folder.Path() / "a.xls");
  EXPECT_RUN_TIME_ERROR(Export(folder.Path() / "a.xls", "one", 1), ErrorNumber::kDiskFailure);
  EXPECT_TRUE(std::filesystem::is_directory(folder.Path() / "a.xls"));
  EXPECT_EQ(EntryCount(folder.Path()), 1);
}

}  // namespace
}  // namespace orvex::store
