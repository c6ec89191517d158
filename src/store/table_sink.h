#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "store/database.h"
#include "store/value.h"

namespace orvex::store {

/// What is done when the target of an export is there already.
enum class Existing : std::uint8_t {
  kRefuse,   ///< error 3010
  kReplace,  ///< it is replaced when the new one is complete
};

/// Takes the rows of SELECT ... INTO whose target is a file of another format. The file is written beside its place and
/// put there by `Commit`; left without it, nothing changes. Errors: 3010 (see `Existing`), 3044 the folder is not
/// there, 3043 the disk refused, and those of the format.
class TableSink {
 public:
  virtual ~TableSink() = default;
  /// A row, with one value a field.
  virtual void Add(std::span<const Value> row) = 0;
  virtual void Commit() = 0;
  /// What the format could not hold as it was, a sentence each; complete after `Commit`.
  [[nodiscard]] virtual std::vector<std::string> Losses() const { return {}; }
};

/// Who will read a dBASE file; their heads differ.
enum class DbaseVersion : std::uint8_t { kDbaseIv, kFoxPro26 };

/// A dBASE file (.dbf), its texts in code page 1252. Names of fields are capitals, digits and '_', at most ten and each
/// another one; widths are those of the widest values; numbers have up to 20 characters. What cannot be held at all is
/// an error that names the field: 3163 a text of more than 254 characters, 6 a number of more than 20 digits in front
/// of the point. So are 3125 a file name of more than eight characters in front of the extension, 3190 more than 255
/// fields (or none) and 3047 records of more than 4000 bytes (65,000 for FoxPro).
std::unique_ptr<TableSink> MakeDbaseSink(DbaseVersion version, const std::filesystem::path& path,
                                         const std::vector<StoredField>& fields, Existing existing);

/// A sheet of a workbook of Excel 5.0 (.xls), beside the sheets that are in it. `existing` is about the sheet.
std::unique_ptr<TableSink> MakeWorkbookSink(const std::filesystem::path& path, const std::string& sheet,
                                            const std::vector<StoredField>& fields, Existing existing);

/// A text file of comma-separated values with a header line.
std::unique_ptr<TableSink> MakeTextSink(const std::filesystem::path& path, const std::vector<StoredField>& fields,
                                        Existing existing);

}  // namespace orvex::store
