#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "store/dbase_file.h"

namespace orvex::exchange {

/// Error 3265, which names file and field, unless the table has all these fields.
void RequireFields(const store::DbaseTable& table, const std::filesystem::path& path,
                   std::span<const std::string_view> fields);

/// A dBASE file whose records are looked up by one of its fields. One pass finds them all. What is kept of a record are
/// eight bytes, less than any record takes in the file.
///
/// Errors: those of `store::DbaseTable`.
class KeyedTable {
 public:
  /// `tick` is called for each record that is read and may end the work by what it throws.
  KeyedTable(const std::filesystem::path& path, std::string_view key, std::function<void()> tick);

  [[nodiscard]] const store::DbaseTable& Table() const { return table_; }

  /// Goes through the whole file. Until then no record is found.
  void Index();

  /// Calls `visit` on each record with this key, in the order of the file; their number. Nothing has an empty key.
  template <typename Visit>
  std::int64_t ForEach(const std::string& key, Visit&& visit) {
    std::int64_t found = 0;
    for (auto place = FirstPlace(key); MoveToPlace(place, key); ++place) {
      if (table_.TextOrEmpty(key_) != key) continue;
      ++found;
      visit(std::as_const(table_));
    }
    return found;
  }

 private:
  /// Where the records whose keys have that hash begin.
  [[nodiscard]] std::size_t FirstPlace(const std::string& key) const;
  /// False behind the last of them.
  [[nodiscard]] bool MoveToPlace(std::size_t place, const std::string& key);

  store::DbaseTable table_;
  std::string key_;
  std::function<void()> tick_;
  std::vector<std::uint64_t> places_;  ///< hash of the key, then number of the record, in increasing order
};

}  // namespace orvex::exchange
