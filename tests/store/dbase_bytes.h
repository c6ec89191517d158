#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace orvex::store {

/// A .dbf file byte by byte, right or wrong as a test wants it.
struct DbaseBytes {
  struct Field {
    std::string name;
    char type;
    int width;
    int decimals = 0;
  };

  std::vector<Field> fields = {};
  std::vector<std::string> records = {};  ///< with the mark of deletion in front
  int program = 0x03;
  int language = 0;
  std::string behind_fields = "\r";
  std::string behind_records = "\x1A";

  static void Put(std::string& bytes, std::size_t place, std::size_t number, std::size_t size) {
    for (std::size_t i = 0; i < size; ++i) bytes[place + i] = static_cast<char>((number >> (8 * i)) & 0xFFU);
  }

  [[nodiscard]] std::string Bytes() const {
    std::string bytes(32, '\0');
    std::size_t record_size = 1;
    for (const auto& field : fields) {
      std::string described = field.name;
      described.resize(32);
      described[11] = field.type;
      Put(described, 16, static_cast<std::size_t>(field.width), 1);
      Put(described, 17, static_cast<std::size_t>(field.decimals), 1);
      bytes += described;
      record_size += static_cast<std::size_t>(field.width);
    }
    bytes += behind_fields;
    Put(bytes, 0, static_cast<std::size_t>(program), 1);
    Put(bytes, 1, 0x0B0A5F, 3);  // the tenth day of November 1995
    Put(bytes, 4, records.size(), 4);
    Put(bytes, 8, bytes.size(), 2);
    Put(bytes, 10, record_size, 2);
    Put(bytes, 29, static_cast<std::size_t>(language), 1);
    for (const auto& record : records) bytes += record;
    return bytes + behind_records;
  }
};

}  // namespace orvex::store
