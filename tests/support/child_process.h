#pragma once

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>
#include <stdexcept>
#include <utility>

namespace orvex::test {

/// A process of its own that does something and ends with the number it gives, unless it is killed before.
class ChildProcess {
 public:
  explicit ChildProcess(const std::function<int()>& work) : id_(fork()) {
    if (id_ < 0) throw std::runtime_error("no process");
    if (id_ > 0) return;
    const int result = work();
    // Nothing of the test itself may go on in here.
    _exit(testing::Test::HasFailure() ? 100 : result);
  }
  ChildProcess(ChildProcess&& other) noexcept : id_(std::exchange(other.id_, 0)) {}
  ChildProcess& operator=(ChildProcess&&) = delete;
  ~ChildProcess() {
    if (id_ > 0) Kill();
  }

  /// The number it ended with; -1 if a signal ended it.
  int Wait() {
    const int status = End();
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  /// True if it was still there to be killed.
  bool Kill() {
    kill(id_, SIGKILL);
    return WIFSIGNALED(End());
  }

 private:
  int End() {
    int status = 0;
    waitpid(std::exchange(id_, 0), &status, 0);
    return status;
  }

  pid_t id_;
};

}  // namespace orvex::test
