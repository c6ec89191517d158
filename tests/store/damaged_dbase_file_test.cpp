#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

#include "store/dbase_bytes.h"
#include "store/dbase_file.h"
#include "store/run_time_error.h"
#include "support/file_content.h"
#include "support/test_databases.h"

namespace orvex::store {
namespace {

using ::testing::HasSubstr;

constexpr std::size_t kCountPlace = 4, kSizePlace = 8, kRecordSizePlace = 10, kEncryptedPlace = 15;

class DamagedDbaseFile : public testing::Test {
 protected:
  /// Why the file is refused; empty if it is read.
  std::string RefusalOf(const std::string& bytes) {
    test::WriteFile(path, bytes);
    try {
      DbaseTable table(path);
      return {};
    } catch (const RunTimeError& error) {
      EXPECT_EQ(error.Number(), ErrorNumber::kWrongFormat);
      EXPECT_THAT(error.Description(), HasSubstr("t.dbf' is no dBASE table that could be read: "));
      return error.Description();
    }
  }
  std::string RefusalOf(const DbaseBytes& file) { return RefusalOf(file.Bytes()); }
  /// The sound file with a number put somewhere.
  std::string RefusalWith(std::size_t place, std::size_t number, std::size_t size) {
    std::string bytes = sound.Bytes();
    DbaseBytes::Put(bytes, place, number, size);
    return RefusalOf(bytes);
  }

  test::TemporaryFolder folder;
  std::filesystem::path path = folder.Path() / "t.dbf";
  DbaseBytes sound{.fields = {{"NAME", 'C', 5}, {"N", 'N', 6, 2}, {"L", 'L', 1}, {"D", 'D', 8}},
                   .records = {" one    1.50T19951110", "*two   -2.00F        ", " three      ?20000229"}};
};

TEST_F(DamagedDbaseFile, ASoundOneIsReadAlsoWithoutTheMarkOfItsEnd) {
  EXPECT_EQ(RefusalOf(sound), "");
  sound.behind_records.clear();
  EXPECT_EQ(RefusalOf(sound), "");
  sound.behind_records = "whatever stands behind its records";
  EXPECT_EQ(RefusalOf(sound), "");
}

TEST_F(DamagedDbaseFile, OneThatIsCutOffAnywhereIsRefused) {
  const std::string bytes = sound.Bytes();
  for (std::size_t size = 0; size + 1 < bytes.size(); ++size) EXPECT_NE(RefusalOf(bytes.substr(0, size)), "") << size;
  EXPECT_THAT(RefusalOf(std::string()), HasSubstr("the file is empty"));
  EXPECT_THAT(RefusalOf(bytes.substr(0, 20)), HasSubstr("it is cut off"));
  EXPECT_THAT(RefusalOf(bytes.substr(0, 100)), HasSubstr("it is cut off"));
  EXPECT_THAT(RefusalOf(bytes.substr(0, bytes.size() - 2)), HasSubstr("records are missing at its end"));
}

TEST_F(DamagedDbaseFile, MoreRecordsThanTheFileHoldsAreNotBelieved) {
  EXPECT_THAT(RefusalWith(kCountPlace, 4, 4), HasSubstr("records are missing at its end"));
  EXPECT_THAT(RefusalWith(kCountPlace, 50'000'000, 4), HasSubstr("records are missing at its end")) << "of 1 GB";
  EXPECT_THAT(RefusalWith(kCountPlace, 0xFFFFFFFF, 4), HasSubstr("records are missing at its end"));
}

TEST_F(DamagedDbaseFile, AWrongLengthOfTheRecordsIsRefused) {
  for (const std::size_t wrong : {0U, 1U, 20U, 22U, 277U, 65535U})
    EXPECT_THAT(RefusalWith(kRecordSizePlace, wrong, 2), HasSubstr("do not add up")) << wrong;
}

TEST_F(DamagedDbaseFile, AWrongLengthOfTheHeadIsRefused) {
  for (const std::size_t wrong : {0U, 1U, 31U, 32U, 33U, 64U, 65U, 160U, 163U, 200U, 65535U})
    EXPECT_NE(RefusalWith(kSizePlace, wrong, 2), "") << wrong;
}

TEST_F(DamagedDbaseFile, FieldsWithoutAnEndAreRefused) {
  sound.behind_fields.clear();
  EXPECT_NE(RefusalOf(sound), "");
  sound.records.clear();
  sound.behind_records.clear();
  EXPECT_THAT(RefusalOf(sound), HasSubstr("the end of its fields is not marked"));
}

TEST_F(DamagedDbaseFile, OneWithoutFieldsIsRefused) {
  EXPECT_THAT(RefusalOf(DbaseBytes{.records = {" "}}), HasSubstr("it has no fields"));
}

TEST_F(DamagedDbaseFile, AFieldWithoutWidthIsRefused) {
  sound.fields.push_back({"EMPTY", 'C', 0});
  EXPECT_THAT(RefusalOf(sound), HasSubstr("the field 'EMPTY' has no width"));
}

TEST_F(DamagedDbaseFile, AFieldWithoutNameIsRefused) {
  for (const char* name : {"", "   ", "A\x01", "\x7F\x1F"}) {
    sound.fields.back().name = name;
    EXPECT_THAT(RefusalOf(sound), HasSubstr("field 4 has no name"));
  }
}

TEST_F(DamagedDbaseFile, TwoFieldsOfOneNameAreRefused) {
  sound.fields.back().name = "Name";
  EXPECT_THAT(RefusalOf(sound), HasSubstr("two of its fields are called 'name'"));
}

TEST_F(DamagedDbaseFile, AFieldWithoutTypeOrWithAWrongWidthIsRefused) {
  for (const char type : {'\0', ' ', 'c', '1', '\xFF'}) {
    sound.fields.front().type = type;
    EXPECT_THAT(RefusalOf(sound), HasSubstr("the field 'NAME' has no type"));
  }
  for (const char type : {'L', 'D'}) {
    sound.fields.front().type = type;
    EXPECT_THAT(RefusalOf(sound), HasSubstr("the field 'NAME' has a wrong width"));
  }
}

TEST_F(DamagedDbaseFile, AnEncryptedOneIsRefused) {
  EXPECT_THAT(RefusalWith(kEncryptedPlace, 1, 1), HasSubstr("it is encrypted"));
}

TEST_F(DamagedDbaseFile, OnlyTheProgramsWithThisLayoutAreRead) {
  std::vector<int> read;
  for (sound.program = 0; sound.program < 256; ++sound.program) {
    const std::string refusal = RefusalOf(sound);
    if (refusal.empty()) {
      read.push_back(sound.program);
    } else {
      EXPECT_THAT(refusal, HasSubstr("it does not begin as one"));
    }
  }
  EXPECT_THAT(read, testing::ElementsAre(0x03, 0x04, 0x05, 0x30, 0x31, 0x32, 0x43, 0x63, 0x7B, 0x83, 0x8B, 0x8E, 0xCB,
                                         0xF5, 0xFB));
}

TEST_F(DamagedDbaseFile, FilesOfOtherKindsAreRefused) {
  EXPECT_NE(RefusalOf("NAME,CAS\nBenzene,71-43-2\n"), "");
  EXPECT_NE(RefusalOf(std::string("SQLite format 3\0", 16) + std::string(4080, '\0')), "");
  EXPECT_NE(RefusalOf(std::string(100000, '\0')), "");
  EXPECT_NE(RefusalOf(std::string(100000, '\x03')), "");
}

TEST_F(DamagedDbaseFile, AFileOfManyWideFieldsIsRead) {
  DbaseBytes wide;
  std::string record = " ";
  for (int i = 0; i < 255; ++i) {
    wide.fields.push_back({"F" + std::to_string(i), 'C', 200});
    record += std::string(200, static_cast<char>('A' + i % 26));
  }
  wide.records.assign(3, record);
  test::WriteFile(path, wide.Bytes());
  DbaseTable table(path);
  EXPECT_EQ(table.Fields().size(), 255U);
  table.MoveTo(3);
  EXPECT_EQ(table.TextOrEmpty("F254"), std::string(200, 'A' + 254 % 26));
}

TEST_F(DamagedDbaseFile, ADamagedOneIsRefusedOrReadAndNeverMore) {
  const std::string whole = sound.Bytes();
  std::mt19937 random(1995);
  int refused = 0, wrong_fields = 0;
  for (int file = 0; file < 3000; ++file) {
    std::string bytes = whole;
    for (auto flips = 1 + random() % 3; flips-- > 0;) bytes[random() % bytes.size()] = static_cast<char>(random());
    test::WriteFile(path, bytes);
    try {
      DbaseTable table(path);
      int records = 0;
      for (; !table.AtEnd(); table.MoveNext(), ++records) {
        for (const auto& field : table.Fields()) {
          try {
            (void)table.Get(field.name);
          } catch (const RunTimeError& error) {
            EXPECT_FALSE(error.Description().empty());
            ++wrong_fields;
          }
        }
      }
      EXPECT_LE(records, 3);
    } catch (const RunTimeError& error) {
      EXPECT_EQ(error.Number(), ErrorNumber::kWrongFormat);
      ++refused;
    }
  }
  EXPECT_GT(refused, 300);
  EXPECT_GT(wrong_fields, 300);
}

}  // namespace
}  // namespace orvex::store
