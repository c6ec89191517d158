#pragma once

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace orvex::fuzz {

/// A file that is written anew for each input, in a folder of its own, which is removed at the end of the process.
class ScratchFile {
 public:
  explicit ScratchFile(std::string_view name) {
    std::string folder = std::filesystem::temp_directory_path() / "fuzz-XXXXXX";
    if (mkdtemp(folder.data()) == nullptr) std::abort();
    path_ = std::filesystem::path(folder) / name;
  }
  ScratchFile(const ScratchFile&) = delete;
  ScratchFile& operator=(const ScratchFile&) = delete;
  ~ScratchFile() {
    std::error_code ignored;
    std::filesystem::remove_all(path_.parent_path(), ignored);
  }

  const std::filesystem::path& Fill(std::string_view bytes) {
    std::filesystem::remove(path_.string() + "-journal");
    std::ofstream(path_, std::ios::binary) << bytes;
    return path_;
  }

 private:
  std::filesystem::path path_;
};

/// What must be true of a reader.
inline void Require(bool condition) {
  if (!condition) std::abort();
}

}  // namespace orvex::fuzz
