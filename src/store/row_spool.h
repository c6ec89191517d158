#pragma once

#include <cstdio>
#include <filesystem>
#include <memory>
#include <span>
#include <vector>

#include "store/value.h"

namespace orvex::store {

/// Rows that wait in a file without a name, in the folder of the file they are for: some formats want to know the
/// widest of all rows before the first. Errors, which name the file they are for: 3043 the disk refused.
class RowSpool {
 public:
  RowSpool(std::filesystem::path target, std::size_t values_a_row);

  void Add(std::span<const Value> row);
  /// Ends the adding; `Read` begins with the first row.
  void Rewind();
  /// The next row; to be called as often as `Add` was.
  void Read(std::vector<Value>& row);

 private:
  struct Close {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };

  void Write(const void* bytes, std::size_t size);
  void Read(void* bytes, std::size_t size);
  [[noreturn]] void Fail(int cause) const;

  std::filesystem::path target_;
  std::size_t values_a_row_;
  std::unique_ptr<std::FILE, Close> file_;
};

}  // namespace orvex::store
