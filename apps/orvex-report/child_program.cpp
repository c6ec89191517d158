#include "orvex-report/child_program.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <system_error>
#include <utility>

namespace orvex::report_app {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

/// How often it is looked whether the program has ended or is to be stopped.
constexpr milliseconds kTick{20};
/// How long a program that is to end may take to put things away.
constexpr milliseconds kGrace{2000};
/// A line is passed on at this length even if it goes on.
constexpr std::size_t kLongestLine = 4096;

[[noreturn]] void Fail(int cause, const std::string& what) {
  throw std::system_error(cause, std::generic_category(), what);
}

/// The lines that come out of a pipe.
class Lines {
 public:
  explicit Lines(const std::function<void(std::string_view)>& on_line) : on_line_(on_line) {
    if (pipe2(ends_, O_CLOEXEC) != 0) Fail(errno, "no pipe");
    fcntl(ends_[0], F_SETFL, O_NONBLOCK);
  }
  Lines(const Lines&) = delete;
  Lines& operator=(const Lines&) = delete;
  ~Lines() {
    close(ends_[0]);
    CloseWriting();
  }

  [[nodiscard]] int WritingEnd() const { return ends_[1]; }
  void CloseWriting() {
    if (ends_[1] >= 0) close(std::exchange(ends_[1], -1));
  }

  /// Waits for something to read, but no longer than a tick, and passes it on.
  void Read() {
    pollfd reading{.fd = ended_ ? -1 : ends_[0], .events = POLLIN, .revents = 0};
    if (poll(&reading, 1, static_cast<int>(kTick.count())) > 0) ReadOnce();
  }

  /// Passes on what is still there.
  void ReadRest() {
    while (!ended_ && ReadOnce()) continue;
    if (!line_.empty()) PassOn();
  }

 private:
  bool ReadOnce() {
    std::array<char, 4096> part{};
    const auto count = read(ends_[0], part.data(), part.size());
    if (count == 0) ended_ = true;
    for (ssize_t i = 0; i < count; ++i) Take(part[static_cast<std::size_t>(i)]);
    return count > 0;
  }
  void Take(char character) {
    if (character == '\n' || line_.size() == kLongestLine) PassOn();
    if (character != '\n') line_ += character;
  }
  void PassOn() {
    if (on_line_) on_line_(line_);
    line_.clear();
  }

  const std::function<void(std::string_view)>& on_line_;
  int ends_[2]{-1, -1};
  bool ended_ = false;
  std::string line_;
};

/// What a program starts with: no input, both outputs in one pipe, a process group of its own (so that all that it
/// starts can be ended together), and no signal blocked or ignored.
class SpawnSetup {
 public:
  explicit SpawnSetup(int output) {
    posix_spawn_file_actions_init(&files_);
    posix_spawn_file_actions_addopen(&files_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&files_, output, STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&files_, output, STDERR_FILENO);
    posix_spawnattr_init(&attributes_);
    sigset_t signals;
    sigemptyset(&signals);
    posix_spawnattr_setsigmask(&attributes_, &signals);
    for (const int signal : {SIGINT, SIGTERM, SIGPIPE}) sigaddset(&signals, signal);
    posix_spawnattr_setsigdefault(&attributes_, &signals);
    posix_spawnattr_setpgroup(&attributes_, 0);
    posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
  }
  SpawnSetup(const SpawnSetup&) = delete;
  SpawnSetup& operator=(const SpawnSetup&) = delete;
  ~SpawnSetup() {
    posix_spawn_file_actions_destroy(&files_);
    posix_spawnattr_destroy(&attributes_);
  }

  /// The id of the new process.
  pid_t Start(const std::filesystem::path& program, std::vector<std::string> arguments) {
    std::string name = program.string();
    std::vector<char*> argv = {name.data()};
    for (auto& argument : arguments) argv.push_back(argument.data());
    argv.push_back(nullptr);
    pid_t id = 0;
    const int error = posix_spawn(&id, program.c_str(), &files_, &attributes_, argv.data(), environ);
    if (error != 0) Fail(error, "'" + name + "' cannot be started");
    return id;
  }

 private:
  posix_spawn_file_actions_t files_{};
  posix_spawnattr_t attributes_{};
};

/// A process that was started, and all that it started.
class Process {
 public:
  explicit Process(pid_t id) : id_(id) {}
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;
  ~Process() { Reap(); }

  /// It has ended. Its id stays its own until it is reaped.
  [[nodiscard]] bool HasEnded() const {
    siginfo_t info{};
    return waitid(P_PID, static_cast<id_t>(id_), &info, WEXITED | WNOHANG | WNOWAIT) != 0 || info.si_pid != 0;
  }

  void Signal(int signal) const { kill(-id_, signal); }

  /// Ends what is left of it; its wait status.
  int Reap() {
    if (id_ == 0) return status_;
    Signal(SIGKILL);
    while (waitpid(id_, &status_, 0) < 0 && errno == EINTR) continue;
    id_ = 0;
    return status_;
  }

 private:
  pid_t id_;
  int status_ = 0;
};

}  // namespace

ChildEnd RunChild(const ChildSetup& setup) {
  Lines lines(setup.on_line);
  Process process(SpawnSetup(lines.WritingEnd()).Start(setup.program, setup.arguments));
  lines.CloseWriting();
  auto deadline = Clock::now() + setup.limit;
  auto how = ChildEnd::How::kExited;
  while (!process.HasEnded()) {
    lines.Read();
    const bool ending = how != ChildEnd::How::kExited;
    const bool late = Clock::now() >= deadline;
    if (ending && late) break;
    if (ending) continue;
    if (setup.stop_requested && setup.stop_requested()) how = ChildEnd::How::kStopped;
    if (how == ChildEnd::How::kExited && late) how = ChildEnd::How::kTimedOut;
    if (how == ChildEnd::How::kExited) continue;
    process.Signal(SIGTERM);
    deadline = Clock::now() + kGrace;
  }
  const int status = process.Reap();
  lines.ReadRest();
  if (how != ChildEnd::How::kExited) return {how, 0};
  if (WIFSIGNALED(status)) return {ChildEnd::How::kSignalled, WTERMSIG(status)};
  return {how, WEXITSTATUS(status)};
}

}  // namespace orvex::report_app
