#include "store/ole_file.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>

#include "store/little_endian.h"

namespace orvex::store {
namespace {

/// Bytes that tell their place, so that parts that change places are noticed.
std::string Content(std::size_t size) {
  std::string content;
  for (std::size_t i = 0; i < size; ++i) content += static_cast<char>((i * 7 + i / 512) & 0xFF);
  return content;
}

OleFile FileOf(std::initializer_list<std::size_t> sizes) {
  OleFile file;
  for (const auto size : sizes)
    file.streams.push_back({std::u16string(1, static_cast<char16_t>(u'A' + file.streams.size())), Content(size)});
  return file;
}

void ExpectReadBack(const OleFile& file) {
  const auto read = ReadOleFile(WriteOleFile(file));
  ASSERT_TRUE(read);
  EXPECT_EQ(read->class_id, file.class_id);
  EXPECT_FALSE(read->has_storages);
  ASSERT_EQ(read->streams.size(), file.streams.size());
  for (std::size_t i = 0; i < file.streams.size(); ++i) {
    EXPECT_EQ(read->streams[i].name, file.streams[i].name);
    EXPECT_TRUE(read->streams[i].content == file.streams[i].content) << file.streams[i].content.size();
  }
}

TEST(OleFile, StreamsOfAllSizesAreReadBack) {
  ExpectReadBack(FileOf({}));
  ExpectReadBack(FileOf({0}));
  ExpectReadBack(FileOf({1, 63, 64, 65, 511, 512, 513, 4095, 4096, 4097, 0, 9000}));
  auto file = FileOf({10, 5000});
  file.class_id = "0123456789abcdef";
  file.streams[0].name = u"\u0005SummaryInformation";
  file.streams[1].name = u"the longest name: 31 characters";
  ExpectReadBack(file);
}

TEST(OleFile, LargeStreamsNeedListsOfSectorsThatAreFoundAgain) {
  // 109 sectors of the table stand in the header, and each tells of 128 sectors of 512 bytes: 7,143,424 bytes. A
  // further list holds 127 more.
  for (const std::size_t size : {7000000U, 7143424U, 7200000U, 15466496U, 15600000U, 24000000U})
    ExpectReadBack(FileOf({size}));
}

RC_GTEST_PROP(OleFile, AnyStreamsAreReadBack, ()) {
  OleFile file;
  for (const auto size : *rc::gen::container<std::vector<unsigned>>(rc::gen::inRange(0U, 9000U)))
    file.streams.push_back({std::u16string(1, static_cast<char16_t>(u'a' + file.streams.size())), Content(size)});
  if (file.streams.size() > 26) file.streams.resize(26);
  const auto read = ReadOleFile(WriteOleFile(file));
  RC_ASSERT(read.has_value());
  RC_ASSERT(read->streams.size() == file.streams.size());
  for (std::size_t i = 0; i < file.streams.size(); ++i) RC_ASSERT(read->streams[i].content == file.streams[i].content);
}

TEST(OleFile, AFileThatIsCutOffAnywhereIsNone) {
  const auto bytes = WriteOleFile(FileOf({100, 5000}));
  for (std::size_t size = 0; size < bytes.size(); ++size)
    EXPECT_FALSE(ReadOleFile(std::string_view(bytes).substr(0, size))) << size;
}

/// Where things stand in a file of one stream of 5000 bytes, which takes the sectors 0 to 9; the table comes last.
constexpr std::size_t kSector = 512;
constexpr std::size_t kDirectory = kSector + 10 * kSector;
constexpr std::size_t kTable = kDirectory + kSector;

TEST(OleFile, AStreamThatRunsInARingIsDamage) {
  auto bytes = WriteOleFile(FileOf({5000}));
  Replace32(bytes, kTable + 9 * 4, 0);
  EXPECT_FALSE(ReadOleFile(bytes));
}

TEST(OleFile, AStreamThatLeavesTheFileIsDamage) {
  auto bytes = WriteOleFile(FileOf({5000}));
  Replace32(bytes, kTable + 4 * 4, 1000000);
  EXPECT_FALSE(ReadOleFile(bytes));
}

TEST(OleFile, AStreamShorterThanItClaimsIsDamage) {
  auto bytes = WriteOleFile(FileOf({5000}));
  constexpr std::size_t kSizeOfStream = kDirectory + 128 + 120;
  ASSERT_EQ(Read32(bytes, kSizeOfStream), 5000U);
  Replace32(bytes, kSizeOfStream, 10 * kSector + 1);
  EXPECT_FALSE(ReadOleFile(bytes));
}

TEST(OleFile, StreamsThatShareBytesAreDamage) {
  // They would be read once for each, without end in a file that is large enough.
  auto bytes = WriteOleFile(FileOf({5000}));
  std::string copy = bytes.substr(kDirectory + 128, 128);
  copy[0] = 'B';
  bytes.replace(kDirectory + 256, 128, copy);
  copy[0] = 'C';
  bytes.replace(kDirectory + 384, 128, copy);
  EXPECT_FALSE(ReadOleFile(bytes));
}

TEST(OleFile, TwoStreamsOfOneNameAreDamage) {
  auto file = FileOf({10, 10});
  file.streams[1].name = file.streams[0].name;
  EXPECT_FALSE(ReadOleFile(WriteOleFile(file)));
}

TEST(OleFile, TellsOfStorages) {
  auto bytes = WriteOleFile(FileOf({5000}));
  bytes[kDirectory + 256 + 66] = 1;
  const auto read = ReadOleFile(bytes);
  ASSERT_TRUE(read);
  EXPECT_TRUE(read->has_storages);
  EXPECT_EQ(read->streams.size(), 1U);
}

TEST(OleFile, ReadsSectorsOf4096BytesToo) {
  // Header, directory, table, then a stream of two sectors, as programs of today write large files.
  auto bytes = WriteOleFile(FileOf({5000}));
  constexpr std::size_t kLarge = 4096;
  std::string large = bytes.substr(0, kSector);
  Replace32(large, 30, 12 | 6U << 16);
  Replace32(large, 44, 1);  // one sector of the table
  Replace32(large, 48, 0);  // the directory
  Replace32(large, 76, 1);  // the table
  large.resize(kLarge);
  large += bytes.substr(kDirectory, kSector);
  Replace32(large, kLarge + 128 + 116, 2);
  large.resize(2 * kLarge);
  for (const std::uint32_t next : {0xFFFFFFFEU, 0xFFFFFFFDU, 3U, 0xFFFFFFFEU}) Append32(large, next);
  large.resize(3 * kLarge, '\xFF');
  large += Content(5000);
  large.resize(5 * kLarge);
  const auto read = ReadOleFile(large);
  ASSERT_TRUE(read);
  ASSERT_EQ(read->streams.size(), 1U);
  EXPECT_TRUE(read->streams[0].content == Content(5000));
}

}  // namespace
}  // namespace orvex::store
