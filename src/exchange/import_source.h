#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "store/dbase_file.h"

namespace orvex::exchange {

/// A dBASE file of the previous version, record by record. Each value is taken for what it is needed as.
///
/// Errors: those of `store::DbaseTable`, and 3421, which names record and field, for a text that is no such thing.
class ImportSource {
 public:
  explicit ImportSource(const std::filesystem::path& path) : table_(path), file_(path.string()) {}

  [[nodiscard]] bool AtEnd() const { return table_.AtEnd(); }
  void MoveNext() { table_.MoveNext(); }
  /// Number of the record, from 1, and of all records.
  [[nodiscard]] std::int64_t Position() const { return table_.Position(); }
  [[nodiscard]] std::int64_t RecordCount() const { return table_.RecordCount(); }

  // Of the current record.
  [[nodiscard]] bool IsNull(std::string_view field) const { return table_.IsNull(field); }
  /// Null reads as an empty text, 0 or false.
  [[nodiscard]] std::string Text(std::string_view field) const { return table_.TextOrEmpty(field); }
  [[nodiscard]] double Number(std::string_view field) const;
  [[nodiscard]] bool Flag(std::string_view field) const;

 private:
  [[noreturn]] void Refuse(std::string_view field, std::string_view expected) const;

  store::DbaseTable table_;
  std::string file_;
};

}  // namespace orvex::exchange
