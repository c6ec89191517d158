#include <fmt/format.h>

#include <chrono>
#include <string>
#include <utility>

#include "store/dbase_column.h"
#include "store/dbase_head.h"
#include "store/dbase_names.h"
#include "store/little_endian.h"
#include "store/row_spool.h"
#include "store/run_time_error.h"
#include "store/table_sink.h"
#include "store/target_file.h"

namespace orvex::store {
namespace {

constexpr std::size_t kMostFields = 255;

/// How the files of two programs differ.
struct Program {
  std::size_t longest_record;
  char language;          ///< the driver for code page 1252
  bool places_of_fields;  ///< each field tells its place in the record
};

Program ProgramOf(DbaseVersion version) {
  return version == DbaseVersion::kDbaseIv ? Program{4000, 0x57, false} : Program{65000, 0x03, true};
}

std::vector<DbaseColumn> ColumnsFor(const std::vector<StoredField>& fields) {
  std::vector<std::string> names;
  names.reserve(fields.size());
  for (const auto& field : fields) names.push_back(field.name);
  names = DbaseFieldNames(names);

  std::vector<DbaseColumn> columns;
  for (std::size_t i = 0; i < fields.size(); ++i) columns.emplace_back(fields[i].name, names[i], fields[i].type);
  return columns;
}

class DbaseSink : public TableSink {
 public:
  DbaseSink(const Program& program, const std::filesystem::path& path, const std::vector<StoredField>& fields,
            Existing existing)
      : path_(path),
        program_(program),
        columns_(ColumnsFor(fields)),
        file_(path, existing),
        spool_(path, fields.size()) {}

  void Add(std::span<const Value> row) override {
    row_.clear();
    for (std::size_t i = 0; i < columns_.size(); ++i) row_.push_back(columns_[i].Take(row[i]));
    spool_.Add(row_);
    ++record_count_;
  }

  void Commit() override {
    for (auto& column : columns_) column.Settle();
    file_.Write(Head());
    WriteRecords();
    file_.Write(std::string(1, DbaseHead::kFileEnd));
    file_.Commit();
  }

  [[nodiscard]] std::vector<std::string> Losses() const override { return DbaseLosses(columns_); }

 private:
  [[nodiscard]] std::size_t RecordSize() const {
    std::size_t size = 1;
    for (const auto& column : columns_) size += column.Width();
    if (size > program_.longest_record)
      throw RunTimeError(ErrorNumber::kRecordTooLarge,
                         fmt::format("'{}': the records are {} bytes long; the format holds {}.", path_.string(), size,
                                     program_.longest_record));
    return size;
  }

  [[nodiscard]] std::string Head() const {
    const std::chrono::year_month_day today(std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now()));
    std::string head(1, DbaseHead::kWithoutMemos);
    AppendLittle(head, static_cast<std::size_t>(static_cast<int>(today.year()) - 1900), 1);
    AppendLittle(head, static_cast<unsigned>(today.month()), 1);
    AppendLittle(head, static_cast<unsigned>(today.day()), 1);
    AppendLittle(head, record_count_, 4);
    AppendLittle(head, DbaseHead::kFixedSize + columns_.size() * DbaseHead::kFieldSize + 1, 2);
    AppendLittle(head, RecordSize(), 2);
    head.resize(DbaseHead::kFixedSize);
    head[DbaseHead::kLanguageOffset] = program_.language;

    std::size_t place = 1;
    for (const auto& column : columns_) {
      const std::size_t start = head.size();
      head += column.Name();
      head.resize(start + DbaseHead::kFieldTypeOffset);
      head += column.Type();
      AppendLittle(head, program_.places_of_fields ? place : 0, 4);
      AppendLittle(head, column.Width(), 1);
      AppendLittle(head, column.Decimals(), 1);
      head.resize(start + DbaseHead::kFieldSize);
      place += column.Width();
    }
    return head + DbaseHead::kFieldsEnd;
  }

  void WriteRecords() {
    spool_.Rewind();
    std::string record;
    for (std::size_t i = 0; i < record_count_; ++i) {
      spool_.Read(row_);
      record.assign(1, DbaseHead::kLive);
      for (std::size_t k = 0; k < columns_.size(); ++k) columns_[k].AppendTo(record, row_[k]);
      file_.Write(record);
    }
  }

  std::filesystem::path path_;
  Program program_;
  std::vector<DbaseColumn> columns_;
  TargetFile file_;
  RowSpool spool_;
  std::size_t record_count_ = 0;
  std::vector<Value> row_;
};

}  // namespace

std::unique_ptr<TableSink> MakeDbaseSink(DbaseVersion version, const std::filesystem::path& path,
                                         const std::vector<StoredField>& fields, Existing existing) {
  CheckDbaseFileName(path);
  if (fields.empty() || fields.size() > kMostFields)
    throw RunTimeError(ErrorNumber::kTooManyFields, fmt::format("'{}': a dBASE file has 1 to {} fields, not {}.",
                                                                path.string(), kMostFields, fields.size()));
  return std::make_unique<DbaseSink>(ProgramOf(version), path, fields, existing);
}

}  // namespace orvex::store
