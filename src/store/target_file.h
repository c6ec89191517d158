#pragma once

#include <filesystem>
#include <string_view>

#include "store/file_replacement.h"
#include "store/table_sink.h"

namespace orvex::store {

/// The file that a table is exported to as a whole: written beside its place and put there when it is complete.
class TargetFile {
 public:
  /// Errors: 3010 the file is there and is not to be replaced, 3044 and 3043 as for `FileReplacement`.
  TargetFile(std::filesystem::path path, Existing existing);

  void Write(std::string_view content) { file_.Write(content); }
  /// Error 3010 if another program has put a file there meanwhile and it is not to be replaced.
  void Commit();

 private:
  std::filesystem::path path_;
  Existing existing_;
  FileReplacement file_;
};

}  // namespace orvex::store
