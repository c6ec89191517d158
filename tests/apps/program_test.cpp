#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>
#include <vector>

#include "orvex-report/failure.h"
#include "support/file_content.h"
#include "support/sample_tanks.h"

/// The program itself, started as a person would.
namespace orvex::report_app {
namespace {

using test::FileContent;

class ProgramTest : public testing::Test {
 protected:
  [[nodiscard]] std::string Path(const char* name) const { return (test_.folder.Path() / name).string(); }

  /// Starts the program with its streams in files, optionally with a signal waiting for it; its exit status.
  int Start(std::vector<std::string> arguments, int waiting_signal = 0) {
    arguments.insert(arguments.begin(), program_);
    std::vector<char*> argv;
    for (auto& argument : arguments) argv.push_back(argument.data());
    argv.push_back(nullptr);
    const auto out = Path("out.txt");
    const auto err = Path("err.txt");
    const pid_t child = fork();
    if (child == 0) {
      if (waiting_signal != 0) {
        sigset_t blocked;
        sigemptyset(&blocked);
        sigaddset(&blocked, waiting_signal);
        sigprocmask(SIG_BLOCK, &blocked, nullptr);
        raise(waiting_signal);
      }
      if (freopen(out.c_str(), "w", stdout) == nullptr || freopen(err.c_str(), "w", stderr) == nullptr) _exit(126);
      execv(program_.c_str(), argv.data());
      _exit(127);
    }
    int status = 0;
    waitpid(child, &status, 0);
    out_ = FileContent(out);
    err_ = FileContent(err);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
  }

  std::vector<std::string> Databases() {
    return {"--client", Path("client1.mdb"), "--reference", Path("tankdata.mdb"), "--out", Path("out")};
  }

  int StartOn(std::vector<std::string> more, int waiting_signal = 0) {
    auto arguments = Databases();
    arguments.insert(arguments.end(), more.begin(), more.end());
    return Start(arguments, waiting_signal);
  }

  test::TestSession test_;
  std::string program_ = ORVEX_REPORT_PROGRAM;
  std::string out_, err_;
};

TEST_F(ProgramTest, TellsItsVersion) {
  EXPECT_EQ(Start({"--version"}), kDone);
  EXPECT_EQ(out_, "orvex-report 4.0.9d\n");
}

TEST_F(ProgramTest, TellsWrongUseOnTheErrorStream) {
  EXPECT_EQ(Start({"--client"}), kWrongUse);
  EXPECT_EQ(out_, "");
  EXPECT_NE(err_.find("--client"), std::string::npos) << err_;
}

TEST_F(ProgramTest, RunsAReport) {
  test::AddVerticalTank(test_, {{"USER ID", "V"}});
  ASSERT_EQ(StartOn({"--annual"}), kDone) << err_;
  EXPECT_NE(out_.find("\nV        VFRT "), std::string::npos) << out_;
  EXPECT_EQ(err_, "");
  EXPECT_TRUE(FileContent(Path("out/briefdata.xml")).ends_with("</REPORT>"));
}

TEST_F(ProgramTest, TheReportIsTheSameUnderADecimalComma) {
  test::AddVerticalTank(test_, {{"USER ID", "V"}});
  ASSERT_EQ(StartOn({"--annual"}), kDone) << err_;
  const auto report = FileContent(Path("out/briefdata.xml"));
  setenv("LC_ALL", "de_DE.UTF-8", 1);
  const int status = StartOn({"--annual"});
  unsetenv("LC_ALL");
  EXPECT_EQ(status, kDone) << err_;
  EXPECT_EQ(FileContent(Path("out/briefdata.xml")), report);
}

TEST_F(ProgramTest, ASignalStopsTheRunAndLeavesTheDatabaseAsItWas) {
  for (int i = 0; i < 20; ++i) test::AddVerticalTank(test_);
  for (const int signal : {SIGINT, SIGTERM}) {
    EXPECT_EQ(StartOn({"--annual"}, signal), kInterrupted) << err_;
    EXPECT_NE(err_.find("Stopped; "), std::string::npos) << err_;
    EXPECT_TRUE(test_.client().OpenTable("emission").AtEnd());
    EXPECT_TRUE(test_.client().IntegrityCheck());
  }
}

/// The program as it is installed, with a shell script in the place of the printing program.
class InstalledProgramTest : public ProgramTest {
 protected:
  InstalledProgramTest() {
    namespace fs = std::filesystem;
    for (const auto* name : {"bin", "share/orvex/display"}) fs::create_directories(Path(name));
    program_ = Path("bin/orvex-report");
    fs::copy_file(ORVEX_REPORT_PROGRAM, program_);
    test::WriteFile(Path("share/orvex/display/briefdisplay.htm"), "orvex page");
    test::AddVerticalTank(test_, {{"USER ID", "V"}});
    fs::copy_file(Path("tankdata.mdb"), Path("share/orvex/tankdata.mdb"));
  }

  void SetPrinter(const std::string& script) const {
    test::WriteFile(Path("bin/orvex-pdf"), "#!/bin/sh\n" + script);
    std::filesystem::permissions(Path("bin/orvex-pdf"), std::filesystem::perms::owner_all);
  }

  int Print() {
    return Start({"--client", Path("client1.mdb"), "--annual", "--out", Path("out"), "--pdf", Path("report.pdf")});
  }
};

TEST_F(InstalledProgramTest, FindsAllThatItWasDeliveredWith) {
  SetPrinter("cp \"$1\" \"$2\"");
  ASSERT_EQ(Print(), kDone) << err_;
  EXPECT_EQ(err_, "");
  EXPECT_EQ(FileContent(Path("report.pdf")), "orvex page");
  EXPECT_NE(out_.find("\nPDF: " + Path("report.pdf") + "\n"), std::string::npos) << out_;
}

TEST_F(InstalledProgramTest, ASignalWhileItPrintsStopsThePrintingAndLeavesTheReport) {
  for (const auto* signal : {"INT", "TERM"}) {
    SetPrinter(std::string("echo $$ >'") + Path("id") + "'; kill -" + signal + " $PPID; exec sleep 600");
    EXPECT_EQ(Print(), kInterrupted) << err_;
    EXPECT_NE(err_.find("Stopped; the report is written"), std::string::npos) << err_;
    EXPECT_NE(kill(std::stoi(FileContent(Path("id"))), 0), 0) << "the printing program still runs";
    EXPECT_TRUE(FileContent(Path("out/briefdata.xml")).ends_with("</REPORT>"));
    EXPECT_FALSE(std::filesystem::exists(Path("report.pdf")));
  }
}

TEST_F(InstalledProgramTest, TellsThatItWasInstalledWithoutWindows) {
  EXPECT_EQ(Print(), kCannotOpen);
  EXPECT_NE(err_.find("'" + Path("bin/orvex-pdf") + "'"), std::string::npos) << err_;
  EXPECT_EQ(out_, "");
}

}  // namespace
}  // namespace orvex::report_app
