#pragma once

#include <sys/resource.h>

#include <csignal>

namespace orvex::test {

/// While it lives, no file of this process grows beyond so many bytes: what a full disk looks like.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes) : old_handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &old_limit_);
    const rlimit limit{bytes, old_limit_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;
  ~FileSizeLimit() {
    setrlimit(RLIMIT_FSIZE, &old_limit_);
    (void)std::signal(SIGXFSZ, old_handler_);
  }

 private:
  rlimit old_limit_{};
  void (*old_handler_)(int);
};

}  // namespace orvex::test
