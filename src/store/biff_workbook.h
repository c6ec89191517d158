#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "store/biff_sheet.h"

namespace orvex::store {

/// A workbook of Excel 5.0, as the content of the stream that it is: globals (fonts, formats, names) and sheets. What
/// is there stays as it is when a sheet is added, but for the places of things in the stream.
class BiffWorkbook {
 public:
  /// One without sheets.
  BiffWorkbook();

  /// Error 3274, with the file's name in it, if the stream is of another version of Excel, locked by a password, in
  /// another code page than 1252, or damaged.
  static BiffWorkbook Parse(std::string_view stream, const std::string& file);

  [[nodiscard]] bool HasSheet(std::string_view name);

  /// Adds a sheet behind the others, or in the place of the one that has the name. The name is in code page 1252; names
  /// compare without regard to case.
  void PutSheet(std::string_view name, const BiffSheet& sheet);

  [[nodiscard]] std::string Stream() const;

 private:
  struct Sheet {
    std::string entry;    ///< what its BOUNDSHEET record holds
    std::string records;  ///< of the sheet itself
    std::size_t old_start = 0;
    [[nodiscard]] std::string_view Name() const;
  };

  explicit BiffWorkbook(std::string globals) : globals_(std::move(globals)) {}
  static BiffWorkbook Parse(std::string_view stream);
  void AddEntry(std::string_view content);
  void TakeSheets(std::string_view stream, std::size_t globals_end);
  Sheet* Find(std::string_view name);

  std::string globals_;               ///< without BOUNDSHEET and EOF
  std::size_t sheet_entries_at_ = 0;  ///< where in `globals_` the BOUNDSHEETs stand
  std::vector<Sheet> sheets_;
};

}  // namespace orvex::store
