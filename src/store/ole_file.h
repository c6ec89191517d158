#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvex::store {

struct OleStream {
  std::u16string name;
  std::string content;
};

/// A compound file (OLE), the container that workbooks of old lie in: streams with names, and storages, which are
/// folders of more of them.
struct OleFile {
  std::string class_id = std::string(16, '\0');  ///< of the program that edits the file
  std::vector<OleStream> streams;                ///< those outside of storages
  bool has_storages = false;                     ///< only told: what is in them is not read and cannot be written
};

/// Nothing if the bytes are no compound file or damaged in whatever way. Takes time and memory in proportion to the
/// bytes, whatever they hold.
std::optional<OleFile> ReadOleFile(std::string_view bytes);

/// The bytes of the file, always the same for the same streams. A name has 31 characters at most.
std::string WriteOleFile(const OleFile& file);

}  // namespace orvex::store
