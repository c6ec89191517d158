#include "store/lock_file.h"

#include <gtest/gtest.h>

#include "support/child_process.h"
#include "support/file_content.h"
#include "support/test_databases.h"
#include "support/unprivileged.h"

namespace orvex::store {
namespace {

namespace fs = std::filesystem;

class LockFileTest : public testing::Test {
 protected:
  test::TemporaryFolder folder_;
  fs::path path_ = folder_.Path() / "a.editing";
};

TEST_F(LockFileTest, IsHeldByOneAtATime) {
  auto first = LockFile::Take(path_);
  ASSERT_NE(first, nullptr);
  EXPECT_EQ(LockFile::Take(path_), nullptr);
  first.reset();
  EXPECT_NE(LockFile::Take(path_), nullptr);
}

TEST_F(LockFileTest, IsRemovedAtTheEnd) {
  auto held = LockFile::Take(path_);
  EXPECT_TRUE(fs::exists(path_));
  EXPECT_EQ(fs::file_size(path_), 0U);
  held.reset();
  EXPECT_FALSE(fs::exists(path_));
}

TEST_F(LockFileTest, LeftByAKilledProgramIsTakenOver) {
  int ready[2];
  ASSERT_EQ(pipe(ready), 0);
  test::ChildProcess child([&] {
    const auto held = LockFile::Take(path_);
    (void)!write(ready[1], "x", 1);
    pause();
    return 0;
  });
  char byte = 0;
  ASSERT_EQ(read(ready[0], &byte, 1), 1);
  close(ready[0]);
  close(ready[1]);
  EXPECT_EQ(LockFile::Take(path_), nullptr);
  EXPECT_TRUE(child.Kill());
  EXPECT_TRUE(fs::exists(path_));
  EXPECT_NE(LockFile::Take(path_), nullptr);
  EXPECT_FALSE(fs::exists(path_));
}

TEST_F(LockFileTest, WithAContentIsNotRemoved) {
  test::WriteFile(path_, "mine");
  EXPECT_NE(LockFile::Take(path_), nullptr);
  EXPECT_EQ(test::FileContent(path_), "mine");
}

TEST_F(LockFileTest, ThatCannotBeMadeKeepsNobodyOut) {
  fs::create_directory(path_);
  EXPECT_NE(LockFile::Take(path_), nullptr);
  EXPECT_TRUE(fs::is_directory(path_));
  EXPECT_NE(LockFile::Take(folder_.Path() / "none" / "a.editing"), nullptr);
}

TEST_F(LockFileTest, InAFolderThatMayNotBeWrittenKeepsNobodyOut) {
  fs::permissions(folder_.Path(), fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_exec);
  {
    const test::Unprivileged person;
    EXPECT_NE(LockFile::Take(path_), nullptr);
  }
  EXPECT_FALSE(fs::exists(path_));
  fs::permissions(folder_.Path(), fs::perms::owner_all);
}

TEST_F(LockFileTest, NeverFollowsALink) {
  const auto target = folder_.Path() / "target";
  fs::create_symlink(target, path_);
  EXPECT_NE(LockFile::Take(path_), nullptr);
  EXPECT_FALSE(fs::exists(target));
  EXPECT_TRUE(fs::is_symlink(path_));
}

}  // namespace
}  // namespace orvex::store
