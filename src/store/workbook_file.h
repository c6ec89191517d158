#pragma once

#include <filesystem>
#include <string>

#include "store/biff_workbook.h"
#include "store/ole_file.h"

namespace orvex::store {

/// A workbook in its file, with what else lies in there (the author's name and the like).
struct WorkbookFile {
  OleFile container;  ///< without the stream of the workbook
  BiffWorkbook workbook;

  /// A new one if no file is at the path. Errors: 3274 the file is no workbook that a sheet could be added to, 3043 it
  /// cannot be read.
  static WorkbookFile ReadOrNew(const std::filesystem::path& path);

  [[nodiscard]] std::string Bytes() const;
};

}  // namespace orvex::store
