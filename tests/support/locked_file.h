#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <filesystem>
#include <stdexcept>

namespace orvex::test {

/// Locks a file as another program would: nobody else, this program included, can open it as a database meanwhile.
class LockedFile {
 public:
  explicit LockedFile(const std::filesystem::path& path) : descriptor_(open(path.c_str(), O_RDWR | O_CLOEXEC)) {
    // The lock belongs to this opening of the file, unlike the usual ones, which a process never refuses to itself.
    struct flock whole = {};
    whole.l_type = F_WRLCK;
    whole.l_whence = SEEK_SET;
    if (descriptor_ < 0 || fcntl(descriptor_, F_OFD_SETLK, &whole) != 0)
      throw std::runtime_error("cannot lock " + path.string());
  }
  LockedFile(const LockedFile&) = delete;
  LockedFile& operator=(const LockedFile&) = delete;
  ~LockedFile() { close(descriptor_); }

 private:
  int descriptor_;
};

}  // namespace orvex::test
