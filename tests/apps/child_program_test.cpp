#include "orvex-report/child_program.h"

#include <gtest/gtest.h>

#include <csignal>
#include <system_error>
#include <thread>

#include "support/file_content.h"
#include "support/test_databases.h"

namespace orvex::report_app {
namespace {

using How = ChildEnd::How;
using std::chrono::milliseconds;
using std::chrono::seconds;

class ChildProgramTest : public testing::Test {
 protected:
  [[nodiscard]] std::string Path(const char* name) const { return (folder_.Path() / name).string(); }

  /// Runs a shell script, and keeps the lines that it writes.
  ChildEnd Run(const std::string& script, std::vector<std::string> arguments = {},
               std::chrono::milliseconds limit = seconds(60)) {
    const auto path = folder_.Path() / "program";
    test::WriteFile(path, "#!/bin/sh\n" + script);
    std::filesystem::permissions(path, std::filesystem::perms::owner_all);
    return RunChild({.program = path,
                     .arguments = std::move(arguments),
                     .limit = limit,
                     .stop_requested = stop_requested_,
                     .on_line = [this](std::string_view line) { lines_.emplace_back(line); }});
  }

  /// The process whose id stands in a file is gone, or is so within a second.
  [[nodiscard]] bool IsGone(const char* name) const {
    const auto id = std::stoi(test::FileContent(Path(name)));
    for (int i = 0; i < 100; ++i) {
      if (kill(id, 0) != 0) return true;
      // Ended, and waiting for whoever looks after orphans here.
      if (test::FileContent("/proc/" + std::to_string(id) + "/stat").find(") Z ") != std::string::npos) return true;
      std::this_thread::sleep_for(milliseconds(10));
    }
    return false;
  }

  test::TemporaryFolder folder_;
  std::function<bool()> stop_requested_;
  std::vector<std::string> lines_;
};

TEST_F(ChildProgramTest, EndsWithItsStatus) {
  for (const int status : {0, 1, 70}) {
    const auto end = Run("exit " + std::to_string(status));
    EXPECT_EQ(end.how, How::kExited);
    EXPECT_EQ(end.code, status);
  }
}

TEST_F(ChildProgramTest, PassesItsLinesOn) {
  Run("echo out; echo err >&2; echo; printf 'no line end'");
  EXPECT_EQ(lines_, (std::vector<std::string>{"out", "err", "", "no line end"}));
}

TEST_F(ChildProgramTest, MuchOutputNeitherBlocksNorIsLost) {
  EXPECT_EQ(Run("i=0; while [ $i -lt 20000 ]; do echo line $i; i=$((i+1)); done").code, 0);
  ASSERT_EQ(lines_.size(), 20000U);
  EXPECT_EQ(lines_.back(), "line 19999");
}

TEST_F(ChildProgramTest, AnEndlessLineComesInParts) {
  Run("head -c 10000 /dev/zero | tr '\\0' x");
  ASSERT_EQ(lines_.size(), 3U);
  EXPECT_EQ(lines_[0].size() + lines_[1].size() + lines_[2].size(), 10000U);
}

TEST_F(ChildProgramTest, GetsItsArgumentsAsTheyAre) {
  const std::vector<std::string> arguments = {"with blank", "it's", "\"quoted\"", "$HOME `id`", "-n", "*", "é", ""};
  Run("for a in \"$@\"; do printf '<%s>\\n' \"$a\"; done", arguments);
  ASSERT_EQ(lines_.size(), arguments.size());
  for (std::size_t i = 0; i < arguments.size(); ++i) EXPECT_EQ(lines_[i], "<" + arguments[i] + ">");
}

TEST_F(ChildProgramTest, HasNoInput) {
  EXPECT_EQ(Run("cat; echo end").code, 0);
  EXPECT_EQ(lines_, std::vector<std::string>{"end"});
}

TEST_F(ChildProgramTest, ASignalThatEndsItIsTold) {
  const auto end = Run("kill -SEGV $$");
  EXPECT_EQ(end.how, How::kSignalled);
  EXPECT_EQ(end.code, SIGSEGV);
}

TEST_F(ChildProgramTest, HearsSignalsThatThisProgramDoesNot) {
  const auto before = std::signal(SIGTERM, SIG_IGN);
  const auto end = Run("kill -TERM $$; exit 0");
  (void)std::signal(SIGTERM, before);
  EXPECT_EQ(end.how, How::kSignalled);
  EXPECT_EQ(end.code, SIGTERM);
}

TEST_F(ChildProgramTest, IsEndedWhenItTakesTooLongAndSoIsWhatItStarted) {
  const auto began = std::chrono::steady_clock::now();
  const auto end = Run("sleep 600 & echo $! > " + Path("id") + "; echo started; wait", {}, milliseconds(500));
  EXPECT_EQ(end.how, How::kTimedOut);
  EXPECT_EQ(lines_, std::vector<std::string>{"started"});
  EXPECT_TRUE(IsGone("id"));
  EXPECT_LT(std::chrono::steady_clock::now() - began, seconds(30));
}

TEST_F(ChildProgramTest, MayPutThingsAwayBeforeItIsEnded) {
  stop_requested_ = [&] { return std::filesystem::exists(Path("ready")); };
  const auto end = Run("trap 'echo bye; exit 0' TERM; touch " + Path("ready") + "; while :; do sleep 0.01; done");
  EXPECT_EQ(end.how, How::kStopped);
  ASSERT_FALSE(lines_.empty());
  EXPECT_EQ(lines_.back(), "bye");
}

TEST_F(ChildProgramTest, IsEndedEvenIfItDoesNotListen) {
  const auto began = std::chrono::steady_clock::now();
  stop_requested_ = [&] { return std::filesystem::exists(Path("ready")); };
  EXPECT_EQ(Run("trap '' TERM; touch " + Path("ready") + "; while :; do sleep 0.01; done").how, How::kStopped);
  EXPECT_LT(std::chrono::steady_clock::now() - began, seconds(30));
}

TEST_F(ChildProgramTest, WhatItLeavesBehindEndsWithIt) {
  const auto began = std::chrono::steady_clock::now();
  const auto end = Run("sleep 600 & echo $! > " + Path("id") + "; exit 3");
  EXPECT_EQ(end.how, How::kExited);
  EXPECT_EQ(end.code, 3);
  EXPECT_TRUE(IsGone("id"));
  EXPECT_LT(std::chrono::steady_clock::now() - began, seconds(30));
}

TEST_F(ChildProgramTest, AProgramThatCannotBeStartedIsAnErrorThatNamesIt) {
  test::WriteFile(Path("text"), "no program");
  test::WriteFile(Path("lost"), "#!/no/such/interpreter\n");
  std::filesystem::permissions(Path("lost"), std::filesystem::perms::owner_all);
  for (const auto& path : {Path("missing"), Path("text"), Path("lost"), folder_.Path().string()}) {
    try {
      RunChild({.program = path, .arguments = {}, .limit = seconds(60)});
      ADD_FAILURE() << path << " was started";
    } catch (const std::system_error& error) {
      EXPECT_NE(std::string(error.what()).find("'" + path + "'"), std::string::npos) << error.what();
    }
  }
}

}  // namespace
}  // namespace orvex::report_app
