#pragma once

#include <filesystem>
#include <memory>

namespace orvex::store {

/// An empty file that at most one program holds: beside a file that everybody may use, it says that somebody is at work
/// on it. The hold ends with the process, however that ends; the file is removed when it is let go of, and one that a
/// killed program left is taken over. Where no such file can be made (the folder may not be written, the name is taken
/// by a folder or a link, the file system has no locks) nobody can be told and nobody is kept out: then whoever asks
/// holds it.
class LockFile {
 public:
  /// Null if another program holds it, or this one does already.
  static std::shared_ptr<LockFile> Take(const std::filesystem::path& path);

  LockFile(const LockFile&) = delete;
  LockFile& operator=(const LockFile&) = delete;
  ~LockFile();

 private:
  LockFile(std::filesystem::path path, int file);

  std::filesystem::path path_;
  int file_;  ///< -1 where no such file can be made
};

}  // namespace orvex::store
