#include "store/file_replacement.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <string>
#include <thread>
#include <vector>

#include "support/child_process.h"
#include "support/expect_error.h"
#include "support/file_content.h"
#include "support/file_size_limit.h"
#include "support/test_databases.h"

namespace orvex::store {
namespace {

using test::EntryCount;
using test::FileContent;
using test::TemporaryFolder;

TEST(FileReplacement, MakesANewFile) {
  const TemporaryFolder folder;
  FileReplacement file(folder.Path() / "new.txt");
  file.Write("one ");
  file.Write("two");
  file.Commit();
  EXPECT_EQ(FileContent(folder.Path() / "new.txt"), "one two");
  EXPECT_EQ(EntryCount(folder.Path()), 1);
}

TEST(FileReplacement, KeepsTheOldFileUntilTheNewOneIsComplete) {
  const TemporaryFolder folder;
  const auto path = folder.Path() / "kept.txt";
  test::WriteFile(path, "old");
  FileReplacement file(path);
  file.Write(std::string(200000, 'x'));
  EXPECT_EQ(FileContent(path), "old");
  file.Commit();
  EXPECT_EQ(FileContent(path), std::string(200000, 'x'));
}

TEST(FileReplacement, OnceCompleteNeedsNoMoreRoomToTakeItsPlace) {
  const TemporaryFolder folder;
  const auto path = folder.Path() / "file";
  FileReplacement late(path), early(path);
  for (auto* file : {&late, &early}) file->Write(std::string(3000, 'x'));
  early.Complete();
  const test::FileSizeLimit full_disk(2000);
  EXPECT_RUN_TIME_ERROR(late.Complete(), ErrorNumber::kDiskFailure);
  early.Commit();
  EXPECT_EQ(test::FileContent(path).size(), 3000U);
}

TEST(FileReplacement, LeavesNothingBehindWhenItIsGivenUp) {
  const TemporaryFolder folder;
  const auto path = folder.Path() / "kept.txt";
  test::WriteFile(path, "old");
  { FileReplacement(path).Write(std::string(200000, 'x')); }
  EXPECT_EQ(FileContent(path), "old");
  EXPECT_EQ(EntryCount(folder.Path()), 1);
}

TEST(FileReplacement, AsNewItTakesAFreePlace) {
  const TemporaryFolder folder;
  FileReplacement file(folder.Path() / "new.txt");
  file.Write("content");
  EXPECT_TRUE(file.CommitAsNew());
  EXPECT_EQ(FileContent(folder.Path() / "new.txt"), "content");
  EXPECT_EQ(EntryCount(folder.Path()), 1);
}

TEST(FileReplacement, AsNewItLeavesWhateverHasTheName) {
  const TemporaryFolder folder;
  const auto file = folder.Path() / "file", empty = folder.Path() / "empty", taken = folder.Path() / "folder",
             nowhere = folder.Path() / "link";
  test::WriteFile(file, "old");
  test::WriteFile(empty, "");
  std::filesystem::create_directory(taken);
  std::filesystem::create_symlink("missing", nowhere);
  for (const auto& path : {file, empty, taken, nowhere}) {
    FileReplacement replacement(path);
    replacement.Write("new");
    EXPECT_FALSE(replacement.CommitAsNew()) << path;
  }
  EXPECT_EQ(FileContent(file), "old");
  EXPECT_EQ(FileContent(empty), "");
  EXPECT_TRUE(std::filesystem::is_directory(taken));
  EXPECT_EQ(std::filesystem::read_symlink(nowhere), "missing");
  EXPECT_EQ(EntryCount(folder.Path()), 4);
}

TEST(FileReplacement, TwoOfThemOnOneFileDoNotMix) {
  const TemporaryFolder folder;
  const auto path = folder.Path() / "shared.txt";
  FileReplacement first(path);
  FileReplacement second(path);
  first.Write("first");
  second.Write("second");
  second.Commit();
  first.Commit();
  EXPECT_EQ(FileContent(path), "first");
}

TEST(FileReplacement, NamesTheFileWhoseFolderIsMissing) {
  const TemporaryFolder folder;
  const auto path = folder.Path() / "missing" / "file.txt";
  try {
    FileReplacement file(path);
    FAIL() << "made a file without a folder";
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::kInvalidPath);
    EXPECT_NE(error.Description().find(path.string()), std::string::npos) << error.Description();
  }
}

TEST(FileReplacement, CannotReplaceAFolder) {
  const TemporaryFolder folder;
  const auto path = folder.Path() / "taken";
  std::filesystem::create_directory(path);
  FileReplacement file(path);
  file.Write("x");
  EXPECT_RUN_TIME_ERROR(file.Commit(), ErrorNumber::kDiskFailure);
}

TEST(FileReplacement, NeverTakesThePlaceOfADeviceOrAPipe) {
  const TemporaryFolder folder;
  const auto pipe = folder.Path() / "pipe";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  std::filesystem::create_symlink("pipe", folder.Path() / "link");
  std::filesystem::create_symlink("/dev/null", folder.Path() / "null");
  for (const auto* name : {"pipe", "link", "null"})
    EXPECT_RUN_TIME_ERROR(FileReplacement(folder.Path() / name), ErrorNumber::kInvalidPath);
  EXPECT_TRUE(std::filesystem::is_fifo(pipe));
  EXPECT_EQ(EntryCount(folder.Path()), 3);
}

TEST(FileReplacement, NamesAFolderThatTakesNoFiles) {
  ASSERT_TRUE(std::filesystem::exists("/proc/self")) << "it refuses files to everybody";
  EXPECT_RUN_TIME_ERROR(FileReplacement("/proc/self/file.txt"), ErrorNumber::kDiskFailure);
}

TEST(FileReplacement, ADiskThatFillsUpLeavesTheOldFile) {
  const TemporaryFolder folder;
  const auto path = folder.Path() / "kept.txt";
  test::WriteFile(path, "old");
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  const rlimit small{100000, before.rlim_max};
  setrlimit(RLIMIT_FSIZE, &small);
  EXPECT_RUN_TIME_ERROR(FileReplacement(path).Write(std::string(200000, 'x')), ErrorNumber::kDiskFailure);
  setrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, handler);
  EXPECT_EQ(FileContent(path), "old");
  EXPECT_EQ(EntryCount(folder.Path()), 1);
}

/// A process that is killed while it writes a file.
void LeaveUnfinished(const std::filesystem::path& path) {
  test::ChildProcess writer([&] {
    FileReplacement file(path);
    file.Write(std::string(200000, 'x'));
    return kill(getpid(), SIGKILL);
  });
  ASSERT_EQ(writer.Wait(), -1);
}

TEST(FileReplacement, WhatAKilledProgramLeftIsRemovedByTheNext) {
  const TemporaryFolder folder;
  const auto path = folder.Path() / "report.xml";
  LeaveUnfinished(path);
  LeaveUnfinished(folder.Path() / "other.xml");
  ASSERT_EQ(EntryCount(folder.Path()), 2);
  FileReplacement file(path);
  file.Write("whole");
  file.Commit();
  EXPECT_EQ(FileContent(path), "whole");
  // That of another file is not its own.
  EXPECT_EQ(EntryCount(folder.Path()), 2);
  RemoveUnfinished(folder.Path() / "other.xml");
  EXPECT_EQ(EntryCount(folder.Path()), 1);
}

TEST(FileReplacement, WhatIsStillBeingWrittenIsNotRemoved) {
  const TemporaryFolder folder;
  const auto path = folder.Path() / "shared.txt";
  FileReplacement mine(path);
  mine.Write("mine");
  RemoveUnfinished(path);
  test::ChildProcess other([&] {
    FileReplacement file(path);
    RemoveUnfinished(path);
    file.Write("theirs");
    file.Commit();
    return EntryCount(folder.Path());
  });
  // The file, and that of the test's own process.
  EXPECT_EQ(other.Wait(), 2);
  mine.Commit();
  EXPECT_EQ(FileContent(path), "mine");
  EXPECT_EQ(EntryCount(folder.Path()), 1);
}

TEST(FileReplacement, OnlyFilesOfTheNamesItGivesAreRemoved) {
  const TemporaryFolder folder;
  const auto path = folder.Path() / "report.xml";
  for (const auto* name :
       {"report.xml.new", "report.xml.1-.new", "report.xml.-0.new", "report.xml.a-0.new", "report.xml.1-0.news",
        "report.xml.1-0.new.old", "my report.xml.1-0.new", "report.xml1-0.new"})
    test::WriteFile(folder.Path() / name, "a person's");
  std::filesystem::create_directory(folder.Path() / "report.xml.1-0.new");
  test::WriteFile(folder.Path() / "letter.txt", "a person's");
  std::filesystem::create_symlink("letter.txt", folder.Path() / "report.xml.2-0.new");
  ASSERT_EQ(mkfifo((folder.Path() / "report.xml.3-0.new").c_str(), 0600), 0);
  const auto before = EntryCount(folder.Path());
  RemoveUnfinished(path);
  EXPECT_EQ(EntryCount(folder.Path()), before);
  test::WriteFile(folder.Path() / "report.xml.4-0.new", "left by a program that was killed");
  RemoveUnfinished(path);
  EXPECT_EQ(EntryCount(folder.Path()), before);
  RemoveUnfinished(folder.Path() / "no such folder" / "report.xml");
}

/// Programs that write and clear at once never take a file away from one another.
TEST(FileReplacement, ProgramsThatWriteOneFileAtOnceDoNoHarm) {
  const TemporaryFolder folder;
  const auto path = folder.Path() / "shared.txt";
  const auto start = std::chrono::steady_clock::now() + std::chrono::milliseconds(20);
  std::vector<test::ChildProcess> programs;
  for (int i = 0; i < 6; ++i) {
    programs.emplace_back([&] {
      std::this_thread::sleep_until(start);
      for (int round = 0; round < 100; ++round) {
        FileReplacement file(path);
        file.Write("whole");
        file.Commit();
      }
      return 0;
    });
  }
  for (auto& program : programs) EXPECT_EQ(program.Wait(), 0);
  EXPECT_EQ(FileContent(path), "whole");
  EXPECT_EQ(EntryCount(folder.Path()), 1);
}

}  // namespace
}  // namespace orvex::store
