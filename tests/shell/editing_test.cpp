#include "shell/editing.h"

#include <gtest/gtest.h>

#include "support/scripted_host.h"
#include "support/test_databases.h"

namespace orvex::shell {
namespace {

/// Two programs on the same two databases.
class Editing : public testing::Test {
 protected:
  Editing() {
    second_.ReferenceDb = store::Database::Open(first_.reference().Path());
    second_.ClientDb = store::Database::Open(first_.client().Path());
  }

  test::TestSession first_;
  test::ScriptedHost second_host_;
  Session second_{second_host_};
};

TEST_F(Editing, OfADatabaseTheSecondProgramIsToldAndGetsNothing) {
  const auto tanks = BeginEditing(first_.session, DatabaseKind::kClient);
  const auto reference = BeginEditing(first_.session, DatabaseKind::kTank);
  ASSERT_TRUE(tanks && reference);
  second_host_.ExpectMessage("The client database " + first_.client().Path().string() +
                             " is being edited by another program. Nothing was changed. Close the tank there, then "
                             "try again.");
  EXPECT_EQ(BeginEditing(second_, DatabaseKind::kClient), nullptr);
  second_host_.ExpectMessage("The tank database " + first_.reference().Path().string() +
                             " is being edited by another program. Nothing was changed. Close the window there, then "
                             "try again.");
  EXPECT_EQ(BeginEditing(second_, DatabaseKind::kTank), nullptr);
}

TEST_F(Editing, TheSecondProgramMayTryWithoutAWord) {
  auto first = TryEditing(first_.session, DatabaseKind::kTank);
  EXPECT_EQ(TryEditing(second_, DatabaseKind::kTank), nullptr);
  first.reset();
  EXPECT_NE(TryEditing(second_, DatabaseKind::kTank), nullptr);
}

TEST_F(Editing, OfOneDatabaseDoesNotHoldUpTheOther) {
  const auto tanks = BeginEditing(first_.session, DatabaseKind::kClient);
  EXPECT_NE(BeginEditing(second_, DatabaseKind::kTank), nullptr);
}

TEST_F(Editing, ACommandInsideAnotherOneHasTheSameRight) {
  auto outer = BeginEditing(first_.session, DatabaseKind::kTank);
  auto inner = BeginEditing(first_.session, DatabaseKind::kTank);
  EXPECT_EQ(inner, outer);
  inner.reset();
  EXPECT_EQ(TryEditing(second_, DatabaseKind::kTank), nullptr) << "the outer one still edits";
  outer.reset();
  EXPECT_NE(TryEditing(second_, DatabaseKind::kTank), nullptr);
}

TEST_F(Editing, IsToldByAFileBesideTheDatabaseAsLongAsItLasts) {
  const auto path = EditingPath(first_.reference().Path());
  EXPECT_EQ(path.filename(), first_.reference().Path().filename() += ".editing");
  auto editing = BeginEditing(first_.session, DatabaseKind::kTank);
  EXPECT_TRUE(std::filesystem::exists(path));
  editing.reset();
  EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(Editing, ThroughALinkIsEditingOfTheFileBehindIt) {
  const test::TemporaryFolder folder;
  const auto link = folder.Path() / "link.mdb";
  std::filesystem::create_symlink(first_.reference().Path(), link);
  second_.ReferenceDb = store::Database::Open(link);
  const auto editing = BeginEditing(first_.session, DatabaseKind::kTank);
  EXPECT_EQ(TryEditing(second_, DatabaseKind::kTank), nullptr);
}

}  // namespace
}  // namespace orvex::shell
