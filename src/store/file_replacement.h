#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace orvex::store {

/// A file that takes the place of another only when it is complete: it is written beside it, flushed to the disk and
/// renamed. Left without `Commit`, nothing changes; a process that is killed leaves the unfinished file, which the next
/// replacement of the same file removes. Errors, which name the file: 3044 its folder is not there or it is none that
/// could be replaced (a device, a pipe), 3043 the disk refused.
class FileReplacement {
 public:
  explicit FileReplacement(std::filesystem::path path);
  FileReplacement(const FileReplacement&) = delete;
  FileReplacement& operator=(const FileReplacement&) = delete;
  ~FileReplacement();

  void Write(std::string_view content);

  /// Brings all that was written to the disk, so that of the errors only those of a renaming are left to `Commit`: of
  /// several files none takes its place before all are complete.
  void Complete();
  void Commit();

  /// Takes the place only if nothing has the name, not even a link that leads nowhere; false if something has it. Of
  /// several programs that try at once one succeeds.
  [[nodiscard]] bool CommitAsNew();

 private:
  void Open();
  void Flush();
  void Finish();
  [[noreturn]] void Fail(int cause) const;

  std::filesystem::path path_;
  std::filesystem::path beside_;
  std::string buffer_;
  int file_ = -1;
};

/// Removes what replacements of a file left beside it when they were killed. One that is still at work, in whatever
/// process, keeps its own.
void RemoveUnfinished(const std::filesystem::path& path);

}  // namespace orvex::store
