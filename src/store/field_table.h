#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace orvex::store {

/// The types of stored fields. Boolean stores true as -1 and false as 0; Counter is a Long that the store assigns.
enum class FieldType : std::uint8_t { kBoolean, kLong, kDouble, kText, kCounter };

/// One field of a record type: what schema, entry, reports, CSV files and help need to know of it.
struct FieldInfo {
  std::string_view name;
  FieldType type;
  int width;               ///< greatest number of characters of a text; 0 for other types
  std::string_view unit;   ///< empty where the field has none
  std::string_view label;  ///< what a person reads for it
};

/// One index: its name and the fields it orders by.
struct IndexInfo {
  std::string_view name;
  std::span<const std::string_view> fields;
  bool unique;
};

/// One record type.
struct TableInfo {
  std::string_view name;
  std::span<const FieldInfo> fields;
  std::span<const IndexInfo> indexes;
};

/// The tables of a client database, in the order in which a file is tested.
std::span<const TableInfo> ClientTables();

/// The tables of a reference database, in the order in which a file is tested, then the import log.
std::span<const TableInfo> ReferenceTables();

/// Those whose presence makes a file a reference database: all but the import log.
std::span<const TableInfo> TestedReferenceTables();

/// The named table of either database, names compared without regard to case; error 3011 if there is none.
const TableInfo& FindTable(std::string_view name);

/// The named field of a table, names compared without regard to case; error 3265 if there is none.
const FieldInfo& FindField(const TableInfo& table, std::string_view name);

}  // namespace orvex::store
