#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "store/biff_records.h"

namespace orvex::store {

/// The records of a worksheet that is filled row by row.
class BiffSheet {
 public:
  void AddNumber(int row, int column, double number);
  void AddBool(int row, int column, bool flag);
  /// In the workbook's code page, `biff::kMaxText` bytes at most.
  void AddText(int row, int column, std::string_view text);

  /// The whole sheet. One sheet of a workbook is chosen: what is typed goes to all that are.
  [[nodiscard]] std::string Records(bool chosen) const;

 private:
  void Widen(int row, int column, std::size_t width);

  std::string cells_;
  int rows_ = 0;
  int columns_ = 0;
  std::array<std::size_t, biff::kMaxColumns> widths_{};  ///< in characters
};

/// Whether the records of a sheet say that it is chosen.
bool IsChosen(std::string_view records);

}  // namespace orvex::store
