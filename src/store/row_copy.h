#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "store/database.h"

namespace orvex::store {

/// Copies the records of a table to another one, in the order of the file, each field by its name. Errors: 3011 no such
/// table, 3265 the target lacks a field, and those of `RecordSet::Set` and `RecordSet::Update`.
class RowCopy {
 public:
  RowCopy(Database& from, std::string_view source, Database& to, std::string_view target);
  RowCopy(const RowCopy&) = delete;
  RowCopy& operator=(const RowCopy&) = delete;
  ~RowCopy();

  /// Adds the next records, up to so many; false when there are no more.
  bool Add(int count);
  /// Compares the next records, up to so many, with those of the target; false when there are no more. Error 3049 for a
  /// record that is not there as it was copied, or one too many.
  bool Compare(int count);

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace orvex::store
