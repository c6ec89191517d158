#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "store/code_page.h"

namespace orvex::store {

/// A field as the head of a dBASE file describes it.
struct DbaseField {
  std::string name;
  char type;     ///< 'C' text, 'N' and 'F' numbers, 'L' logical, 'D' date, 'M' memo, and what other programs add
  int width;     ///< bytes
  int decimals;  ///< of a number
};

/// What stands in front of the records. All numbers in a file are little-endian.
///
///     0  program that wrote it           12..31  among them 15: encrypted, 29: language driver
///     1  year - 1900, month, day         32      fields, 32 bytes each:  0 name (ended by a NUL)  11 type
///     4  number of records, 4 bytes                                     16 width  17 decimals
///     8  bytes in front of the records           0x0D behind the last field
///    10  bytes of a record
struct DbaseHead {
  static constexpr std::size_t kFixedSize = 32;
  static constexpr std::size_t kFieldSize = 32;
  static constexpr std::size_t kLanguageOffset = 29;
  static constexpr std::size_t kFieldTypeOffset = 11;
  static constexpr char kWithoutMemos = 0x03;  ///< the program's byte
  static constexpr char kFieldsEnd = 0x0D;
  static constexpr char kFileEnd = 0x1A;
  static constexpr char kLive = ' ';
  static constexpr char kDeleted = '*';

  std::size_t size = 0;  ///< bytes in front of the records
  std::size_t record_size = 0;
  std::int64_t record_count = 0;
  std::vector<DbaseField> fields;
  CodePage code_page;

  /// Bytes in front of the records, from the first `kFixedSize` bytes of a file of `file_size` bytes. Throws what is
  /// wrong as a DbaseHeadError.
  static std::size_t SizeFrom(std::string_view fixed, std::uint64_t file_size);

  /// The head from all its bytes; consistent in itself and with the size of the file, else a DbaseHeadError.
  static DbaseHead Parse(std::string_view bytes, std::uint64_t file_size);
};

/// Why a file is no dBASE table that could be read, as the end of a sentence.
struct DbaseHeadError {
  std::string reason;
};

}  // namespace orvex::store
