// What the program writes as a dBASE file, as other programs and the program itself read it.

#include <fmt/format.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <shapefil.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <memory>
#include <sstream>

#include "store/code_page.h"
#include "store/dbase_file.h"
#include "store/dbase_names.h"
#include "store/number_text.h"
#include "store/table_sink.h"
#include "support/plain_numbers.h"
#include "support/test_databases.h"

namespace orvex::store {
namespace {

using Row = std::vector<Value>;

struct Table {
  std::vector<StoredField> fields;
  std::vector<Row> rows;
};

std::vector<std::string> Write(const Table& table, const std::filesystem::path& path, DbaseVersion version) {
  const auto sink = MakeDbaseSink(version, path, table.fields, Existing::kReplace);
  for (const auto& row : table.rows) sink->Add(row);
  sink->Commit();
  return sink->Losses();
}

/// Values that a file holds exactly.
Table Chemicals() {
  return {{{"NAME", FieldType::kText, 50},
           {"Liquid Density", FieldType::kDouble, 0},
           {"COUNT", FieldType::kLong, 0},
           {"USER_DEF", FieldType::kBoolean, 0},
           {"ID", FieldType::kCounter, 0}},
          {{"Benzene", 7.37, 12, true, 1},
           {"  M\u00F6bius & S\u00F8n, 5 \u20AC \"x\"", -0.0009765625, -2147483647, false, 2},
           {Value(), Value(), Value(), Value(), 3},
           {std::string(254, 'x'), 123456.0, 0, true, 4},
           {"tab\there", 0.1, 1, false, 5}}};
}

using Cells = std::vector<std::vector<std::string>>;

/// The lines of the script's output, parted at its tabs.
Cells ReadByPython(const std::filesystem::path& path) {
  const std::string command = "/usr/bin/python3 -B '" ORVEX_DBASE_READER "' '" + path.string() + "'";
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> pipe(popen(command.c_str(), "r"), pclose);
  std::string output;
  std::array<char, 4096> buffer{};
  while (const std::size_t size = std::fread(buffer.data(), 1, buffer.size(), pipe.get()))
    output.append(buffer.data(), size);

  Cells cells;
  std::istringstream lines(output);
  for (std::string line; std::getline(lines, line);) {
    std::istringstream parts(line);
    auto& row = cells.emplace_back();
    for (std::string part; std::getline(parts, part, '\t');) row.push_back(part);
  }
  return cells;
}

std::string Hexadecimal(std::string_view text) {
  std::string hexadecimal = "=";
  for (const char c : text) hexadecimal += fmt::format("{:02x}", static_cast<unsigned char>(c));
  return hexadecimal;
}

void ExpectCell(const std::string& cell, const Value& value, FieldType type) {
  if (value.IsNull()) {
    // To that reader a text without characters is no null.
    EXPECT_EQ(cell, type == FieldType::kText ? "=" : "null");
  } else if (type == FieldType::kText) {
    EXPECT_EQ(cell, Hexadecimal(value.AsText()));
  } else if (type == FieldType::kBoolean) {
    EXPECT_EQ(cell, value.AsBool() ? "true" : "false");
  } else {
    EXPECT_EQ(ParseNumber(cell), value.AsDouble());
  }
}

class DbaseReaders : public testing::TestWithParam<DbaseVersion> {
 protected:
  test::TemporaryFolder folder;
  std::filesystem::path path = folder.Path() / "chemical.dbf";
};

TEST_P(DbaseReaders, APythonLibraryReadsEveryValue) {
  const Table table = Chemicals();
  Write(table, path, GetParam());
  const Cells cells = ReadByPython(path);
  ASSERT_EQ(cells.size(), 1 + table.rows.size());
  EXPECT_EQ(cells[0], (std::vector<std::string>{"NAME", "LIQUID_DEN", "COUNT", "USER_DEF", "ID"}));
  for (std::size_t row = 0; row < table.rows.size(); ++row) {
    ASSERT_EQ(cells[row + 1].size(), table.fields.size());
    for (std::size_t i = 0; i < table.fields.size(); ++i)
      ExpectCell(cells[row + 1][i], table.rows[row][i], table.fields[i].type);
  }
}

TEST_P(DbaseReaders, ALibraryForMapFilesReadsEveryValue) {
  const Table table = Chemicals();
  Write(table, path, GetParam());
  const test::PlainNumbers plain;
  const std::unique_ptr<DBFInfo, void (*)(DBFHandle)> file(DBFOpen(path.c_str(), "rb"), DBFClose);
  ASSERT_TRUE(file);
  ASSERT_EQ(DBFGetFieldCount(file.get()), 5);
  ASSERT_EQ(DBFGetRecordCount(file.get()), static_cast<int>(table.rows.size()));
  EXPECT_EQ(DBFGetFieldIndex(file.get(), "LIQUID_DEN"), 1);
  const CodePage ansi("CP1252");
  for (int row = 0; row < DBFGetRecordCount(file.get()); ++row) {
    const Row& values = table.rows[static_cast<std::size_t>(row)];
    EXPECT_FALSE(DBFIsRecordDeleted(file.get(), row));
    for (int i = 0; i < 5; ++i) {
      const Value& value = values[static_cast<std::size_t>(i)];
      const auto type = table.fields[static_cast<std::size_t>(i)].type;
      if (type == FieldType::kText) {
        // It gives texts without the blanks around them.
        std::string text = value.TextOrEmpty();
        text.erase(0, text.find_first_not_of(' '));
        EXPECT_EQ(ansi.Decode(DBFReadStringAttribute(file.get(), row, i)), text);
      } else if (type == FieldType::kBoolean) {
        EXPECT_EQ(std::string(DBFReadLogicalAttribute(file.get(), row, i)), value.IsNull()   ? ""
                                                                            : value.AsBool() ? "T"
                                                                                             : "F");
      } else {
        EXPECT_EQ(DBFIsAttributeNULL(file.get(), row, i) != 0, value.IsNull());
        EXPECT_EQ(DBFReadDoubleAttribute(file.get(), row, i), value.DoubleOrZero());
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Programs, DbaseReaders, testing::Values(DbaseVersion::kDbaseIv, DbaseVersion::kFoxPro26));

// Any table -----------------------------------------------------------------------------------------------------------

/// A character of code page 1252 but NUL.
rc::Gen<char> AnyByte() {
  return rc::gen::map(rc::gen::inRange(1, 256), [](int byte) { return static_cast<char>(byte); });
}

rc::Gen<Value> AnyText() {
  return rc::gen::map(rc::gen::container<std::string>(AnyByte()), [](const std::string& bytes) {
    static const CodePage kAnsi("CP1252");
    return Value(*kAnsi.Decode(std::string_view(bytes).substr(0, 254)));
  });
}

rc::Gen<Value> AnyNumber() {
  const auto scaled = [](std::int64_t digits, int exponent) {
    return Value(static_cast<double>(digits) * std::pow(10.0, exponent));
  };
  return rc::gen::oneOf(
      // Of any magnitude, but less than 10^19.
      rc::gen::apply(scaled, rc::gen::inRange<std::int64_t>(-999'999'999'999, 1'000'000'000'000),
                     rc::gen::inRange(-30, 7)),
      rc::gen::map(rc::gen::inRange(-100000, 100000), [](int number) { return Value(number / 1000.0); }),
      rc::gen::map(rc::gen::arbitrary<std::int32_t>(), [](std::int32_t number) { return Value(number); }));
}

rc::Gen<Value> AnyValue(FieldType type) {
  const auto some =
      type == FieldType::kText     ? AnyText()
      : type == FieldType::kDouble ? AnyNumber()
      : type == FieldType::kBoolean
          ? rc::gen::map(rc::gen::arbitrary<bool>(), [](bool b) { return Value(b); })
          : rc::gen::map(rc::gen::arbitrary<std::int32_t>(), [](std::int32_t number) { return Value(number); });
  return rc::gen::weightedOneOf<Value>({{4, some}, {1, rc::gen::just(Value())}});
}

/// A number from a range, of which rapidcheck by itself begins with the smallest.
rc::Gen<int> Spread(int from, int to) { return rc::gen::resize(rc::kNominalSize, rc::gen::inRange(from, to)); }

/// Up to twelve fields with names of any characters, so that they are cut and made different.
Table AnyTable() {
  Table table;
  const auto count = *Spread(1, 13);
  for (int i = 0; i < count; ++i) {
    const auto type = *rc::gen::element(FieldType::kText, FieldType::kDouble, FieldType::kLong, FieldType::kBoolean,
                                        FieldType::kCounter);
    table.fields.push_back({*rc::gen::container<std::string>(AnyByte()), type, 0});
  }
  table.rows.resize(static_cast<std::size_t>(*Spread(0, 20)));
  for (auto& row : table.rows) {
    for (const auto& field : table.fields) row.push_back(*AnyValue(field.type));
  }
  return table;
}

/// As a field of this many decimals gives a value back.
void ExpectReadBack(const Value& read, const Value& written, const StoredField& field, int decimals) {
  if (field.type == FieldType::kText) {
    std::string text = written.TextOrEmpty();
    text.erase(text.find_last_not_of(' ') + 1);
    RC_ASSERT(read == (text.empty() ? Value() : Value(text)));
  } else if (written.IsNull()) {
    RC_ASSERT(read.IsNull());
  } else if (field.type == FieldType::kBoolean) {
    RC_ASSERT(read == Value(written.AsBool()));
  } else {
    // Half of the last decimal, and what the binary numbers themselves are off.
    const double number = written.AsDouble();
    RC_ASSERT(std::fabs(read.AsDouble() - number) <= 0.500001 * std::pow(10.0, -decimals) + std::fabs(number) * 1e-15);
  }
}

RC_GTEST_PROP(AnyDbaseTable, ComesBackFromItsFile, ()) {
  const test::TemporaryFolder folder;
  const auto path = folder.Path() / "t.dbf";
  const Table table = AnyTable();
  const auto version = *rc::gen::element(DbaseVersion::kDbaseIv, DbaseVersion::kFoxPro26);
  const auto losses = Write(table, path, version);
  const bool rounded =
      std::ranges::any_of(losses, [](const std::string& loss) { return loss.find("rounded") != std::string::npos; });

  std::vector<std::string> names;
  for (const auto& field : table.fields) names.push_back(field.name);
  names = DbaseFieldNames(names);
  DbaseTable file(path);
  for (const auto& row : table.rows) {
    for (std::size_t i = 0; i < names.size(); ++i) {
      const Value read = file.Get(names[i]);
      ExpectReadBack(read, row[i], table.fields[i], file.Fields()[i].decimals);
      if (!rounded && file.Fields()[i].type == 'N' && !row[i].IsNull()) RC_ASSERT(read.AsDouble() == row[i].AsDouble());
    }
    file.MoveNext();
  }
  RC_ASSERT(file.AtEnd());
}

}  // namespace
}  // namespace orvex::store
