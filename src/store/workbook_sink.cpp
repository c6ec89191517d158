#include <fmt/format.h>

#include <cmath>
#include <cstddef>
#include <string_view>
#include <utility>

#include "store/biff_records.h"
#include "store/biff_sheet.h"
#include "store/code_page.h"
#include "store/file_replacement.h"
#include "store/run_time_error.h"
#include "store/table_sink.h"
#include "store/workbook_file.h"

namespace orvex::store {
namespace {

/// The name as it is stored; error 3125 if a sheet cannot have it.
std::string SheetName(const CodePage& code_page, const std::string& name) {
  const auto encoded = code_page.Encode(name);
  const auto& bytes = encoded.bytes;
  std::string_view reason;
  if (bytes.empty()) {
    reason = "it is empty";
  } else if (bytes.size() > biff::kMaxSheetName) {
    reason = "it has more than 31 characters";
  } else if (bytes.find_first_of(std::string_view("[]:*?/\\")) != std::string::npos || !encoded.whole) {
    reason = "a character in it is not allowed";
  } else if (bytes.front() == '\'' || bytes.back() == '\'') {
    reason = "an apostrophe may not stand at either end";
  } else {
    return bytes;
  }
  throw RunTimeError(ErrorNumber::kInvalidName, fmt::format("'{}' is not a valid name of a sheet: {}.", name, reason));
}

class WorkbookSink final : public TableSink {
 public:
  WorkbookSink(const std::filesystem::path& path, const std::string& sheet, const std::vector<StoredField>& fields,
               Existing existing)
      : path_(path), sheet_name_(sheet), sheet_bytes_(SheetName(code_page_, sheet)), existing_(existing), file_(path) {
    if (fields.size() > biff::kMaxColumns)
      throw RunTimeError(ErrorNumber::kTooManyFields,
                         fmt::format("A sheet of '{}' cannot hold more than 256 fields.", path.string()));
    (void)Read();
    for (const auto& field : fields) columns_.push_back({field.name, field.type == FieldType::kBoolean});
    for (std::size_t i = 0; i < columns_.size(); ++i) AddText(columns_[i].name, i);
    ++row_;
  }

  void Add(std::span<const Value> row) override {
    if (row_ == biff::kMaxRows)
      throw RunTimeError(ErrorNumber::kSheetFull,
                         fmt::format("The sheet '{}' of '{}' cannot hold more than {} rows and the names of fields.",
                                     sheet_name_, path_.string(), biff::kMaxRows - 1));
    for (std::size_t i = 0; i < row.size(); ++i) AddCell(row[i], i);
    ++row_;
  }

  void Commit() override {
    // Read anew: another program may have added a sheet meanwhile, which must not be lost.
    auto target = Read();
    target.workbook.PutSheet(sheet_bytes_, sheet_);
    file_.Write(target.Bytes());
    file_.Commit();
  }

  [[nodiscard]] std::vector<std::string> Losses() const override {
    std::vector<std::string> losses;
    for (const auto& column : columns_) {
      if (column.replaced > 0)
        losses.push_back(fmt::format(
            "Field '{}': characters that a workbook of Excel 5.0 cannot hold are written as '{}' (cells: {}).",
            column.name, CodePage::kReplacement, column.replaced));
      if (column.rounded > 0)
        losses.push_back(fmt::format("Field '{}': whole numbers of more than 15 digits are rounded (cells: {}).",
                                     column.name, column.rounded));
    }
    return losses;
  }

 private:
  struct Column {
    std::string name;
    bool is_boolean;
    int replaced = 0;
    int rounded = 0;
  };

  [[nodiscard]] WorkbookFile Read() const {
    auto target = WorkbookFile::ReadOrNew(path_);
    if (existing_ == Existing::kRefuse && target.workbook.HasSheet(sheet_bytes_))
      throw RunTimeError(ErrorNumber::kAlreadyExists,
                         fmt::format("The sheet '{}' of '{}' already exists.", sheet_name_, path_.string()));
    return target;
  }

  void AddCell(const Value& value, std::size_t column) {
    switch (value.GetKind()) {
      case Value::Kind::kInteger:
        AddInteger(value.RawInteger(), column);
        break;
      case Value::Kind::kReal:
        if (!std::isfinite(value.RawReal()))
          throw RunTimeError(ErrorNumber::kOverflow,
                             fmt::format("The field '{}' is not finite.", columns_[column].name));
        sheet_.AddNumber(row_, static_cast<int>(column), value.RawReal());
        break;
      case Value::Kind::kText:
        AddText(value.RawText(), column);
        break;
      case Value::Kind::kNull:
        break;
    }
  }

  void AddInteger(std::int64_t number, std::size_t column) {
    if (columns_[column].is_boolean) return sheet_.AddBool(row_, static_cast<int>(column), number != 0);
    constexpr std::int64_t kExact = std::int64_t{1} << 53;
    if (number > kExact || number < -kExact) ++columns_[column].rounded;
    sheet_.AddNumber(row_, static_cast<int>(column), static_cast<double>(number));
  }

  void AddText(std::string_view text, std::size_t column) {
    const auto encoded = code_page_.Encode(text);
    if (encoded.bytes.size() > biff::kMaxText)
      throw RunTimeError(
          ErrorNumber::kTextTooLong,
          fmt::format(
              "The field '{}' is too long: a cell of a workbook of Excel 5.0 holds {} characters, row {} has {}.",
              columns_[column].name, biff::kMaxText, row_, encoded.bytes.size()));
    if (!encoded.whole) ++columns_[column].replaced;
    sheet_.AddText(row_, static_cast<int>(column), encoded.bytes);
  }

  const CodePage code_page_{"CP1252"};
  std::filesystem::path path_;
  std::string sheet_name_;
  std::string sheet_bytes_;  ///< its name in the code page
  Existing existing_;
  FileReplacement file_;
  std::vector<Column> columns_;
  BiffSheet sheet_;
  int row_ = 0;
};

}  // namespace

std::unique_ptr<TableSink> MakeWorkbookSink(const std::filesystem::path& path, const std::string& sheet,
                                            const std::vector<StoredField>& fields, Existing existing) {
  return std::make_unique<WorkbookSink>(path, sheet, fields, existing);
}

}  // namespace orvex::store
