#include <fmt/format.h>

#include <cmath>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "store/csv.h"
#include "store/number_text.h"
#include "store/run_time_error.h"
#include "store/table_sink.h"
#include "store/target_file.h"

namespace orvex::store {
namespace {

/// Every text stands in quotes, so that a reader can tell one from a number and an empty one from null.
class TextSink final : public TableSink {
 public:
  TextSink(const std::filesystem::path& path, std::vector<StoredField> fields, Existing existing)
      : fields_(std::move(fields)), file_(path, existing) {
    for (const auto& field : fields_) {
      if (&field != &fields_.front()) line_ += ',';
      AppendQuoted(line_, field.name);
    }
    EndLine();
  }

  void Add(std::span<const Value> row) override {
    for (std::size_t i = 0; i < row.size(); ++i) {
      if (i > 0) line_ += ',';
      AppendCell(row[i], fields_[i]);
    }
    EndLine();
  }

  void Commit() override { file_.Commit(); }

 private:
  void AppendCell(const Value& value, const StoredField& field) {
    switch (value.GetKind()) {
      case Value::Kind::kInteger:
        line_ += std::to_string(value.RawInteger());
        break;
      case Value::Kind::kReal:
        if (!std::isfinite(value.RawReal()))
          throw RunTimeError(ErrorNumber::kOverflow, fmt::format("The field '{}' is not finite.", field.name));
        line_ += ShortestNumber(value.RawReal());
        break;
      case Value::Kind::kText:
        AppendQuoted(line_, value.RawText());
        break;
      case Value::Kind::kNull:
        break;
    }
  }

  void EndLine() {
    line_ += "\r\n";
    file_.Write(line_);
    line_.clear();
  }

  std::vector<StoredField> fields_;
  TargetFile file_;
  std::string line_;
};

}  // namespace

std::unique_ptr<TableSink> MakeTextSink(const std::filesystem::path& path, const std::vector<StoredField>& fields,
                                        Existing existing) {
  return std::make_unique<TextSink>(path, fields, existing);
}

}  // namespace orvex::store
