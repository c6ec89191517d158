#pragma once

#include <unistd.h>

#include <stdexcept>

namespace orvex::test {

/// While it lives, the process may not write where the file modes forbid it, not even when root runs the tests.
class Unprivileged {
 public:
  Unprivileged() : user_(geteuid()) {
    if (user_ == 0 && seteuid(kNobody) != 0) throw std::runtime_error("the rights can't be given up");
  }
  Unprivileged(const Unprivileged&) = delete;
  Unprivileged& operator=(const Unprivileged&) = delete;
  ~Unprivileged() { (void)!seteuid(user_); }

 private:
  static constexpr uid_t kNobody = 65534;
  uid_t user_;
};

}  // namespace orvex::test
