#pragma once

#include <fmt/format.h>
#include <shapefil.h>

#include <cstddef>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "store/letter_case.h"
#include "store/value.h"

/// dBASE files by a writer that the program has no part in. Programs of tests that include this link shapelib.
namespace orvex::test {

struct DbaseColumn {
  std::string name;
  char type;  ///< as in the file: 'C', 'N', 'F', 'L', 'D' or 'M'
  int width;
  int decimals;
};

inline DbaseColumn TextColumn(std::string name, int width) { return {std::move(name), 'C', width, 0}; }
inline DbaseColumn NumberColumn(std::string name, int width = 19, int decimals = 8) {
  return {std::move(name), 'N', width, decimals};
}
inline DbaseColumn LogicalColumn(std::string name) { return {std::move(name), 'L', 1, 0}; }

using DbaseRow = std::vector<std::pair<std::string, store::Value>>;

/// Writes one file; it is complete when this goes out of scope.
class DbaseWriter {
 public:
  /// shapelib's name of the code page of its default: Windows's 1252. Texts are written as their bytes stand.
  DbaseWriter(const std::filesystem::path& path, std::vector<DbaseColumn> columns,
              const std::string& code_page = "LDID/87")
      : columns_(std::move(columns)), file_(DBFCreateEx(path.c_str(), code_page.c_str())) {
    if (!file_) throw std::runtime_error("cannot make " + path.string());
    for (const auto& column : columns_) {
      Require(DBFAddNativeFieldType(file_.get(), column.name.c_str(), column.type, column.width, column.decimals) >= 0,
              column.name);
    }
  }

  /// A record with these fields; the others, and those that are null, are blank. A text stands as it is in a field of
  /// any type, so that a field can hold what does not belong there. Of values for one field the last counts.
  void Add(const DbaseRow& row) {
    const int record = DBFGetRecordCount(file_.get());
    std::string blank;
    Require(DBFWriteAttributeDirectly(file_.get(), record, 0, blank.data()) != 0, "a new record");
    for (const auto& [name, value] : row) Write(record, Column(name), value);
  }

  /// Marks the record last added as deleted.
  void DeleteLast() {
    Require(DBFMarkRecordDeleted(file_.get(), DBFGetRecordCount(file_.get()) - 1, 1) != 0, "a deletion");
  }

 private:
  struct Close {
    void operator()(DBFInfo* file) const { DBFClose(file); }
  };

  static void Require(bool done, std::string_view what) {
    if (!done) throw std::runtime_error("shapelib cannot write " + std::string(what));
  }

  [[nodiscard]] int Column(std::string_view name) const {
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      if (store::EqualNoCase(columns_[i].name, name)) return static_cast<int>(i);
    }
    throw std::runtime_error("the file has no field " + std::string(name));
  }

  /// shapelib's own way to write numbers follows the locale.
  [[nodiscard]] static std::string TextOf(const DbaseColumn& column, const store::Value& value) {
    if (value.IsNull()) return {};
    if (value.GetKind() == store::Value::Kind::kText) return value.RawText();
    if (column.type == 'L') return value.AsBool() ? "T" : "F";
    return fmt::format("{:>{}.{}f}", value.AsDouble(), column.width, column.decimals);
  }

  void Write(int record, int column, const store::Value& value) {
    const auto& field = columns_[static_cast<std::size_t>(column)];
    std::string text = TextOf(field, value);
    Require(text.size() <= static_cast<std::size_t>(field.width), field.name);
    Require(DBFWriteAttributeDirectly(file_.get(), record, column, text.data()) != 0, field.name);
  }

  std::vector<DbaseColumn> columns_;
  std::unique_ptr<DBFInfo, Close> file_;
};

}  // namespace orvex::test
