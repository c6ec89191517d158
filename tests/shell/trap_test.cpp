#include "shell/trap.h"

#include <gtest/gtest.h>

#include <new>
#include <string>
#include <vector>

#include "shell/status.h"
#include "support/test_databases.h"

namespace orvex::shell {
namespace {

using store::ErrorNumber;
using store::RunTimeError;

[[noreturn]] void Throw(ErrorNumber number, const std::string& description = "A failure.") {
  throw RunTimeError(number, description);
}

class Trap : public testing::Test {
 protected:
  /// USER IDs of the stored tanks, in the order of the file, each followed by a blank.
  std::string Tanks() {
    std::string ids;
    for (auto tanks = test_.client().OpenTable("tank"); !tanks.AtEnd(); tanks.MoveNext())
      ids += tanks.Text("USER ID") + " ";
    return ids;
  }

  void AddTank(const char* user_id) { test::AddRow(test_.client(), "tank", {{"USER ID", user_id}}); }

  test::TestSession test_;
  Session& session_ = test_.session;
  test::ScriptedHost& host_ = test_.host;
};

TEST_F(Trap, ARoutineThatSucceedsGivesItsResultAndSaysNothing) {
  EXPECT_EQ(Trapped(session_, "General.Routine", -1, [] { return 7; }), 7);
  EXPECT_TRUE(host_.messages.empty());
  EXPECT_TRUE(host_.status.empty());
}

TEST_F(Trap, AFailureIsToldWithItsNumberAndRoutineAndGivesTheFallback) {
  host_.ExpectMessage(
      "The following Error occurred:\r\n\r\nDivision by zero.\r\nNumber: 11\r\n in modEmission.VaporVolume");
  const double result = Trapped(session_, "modEmission.VaporVolume", 0.5,
                                []() -> double { Throw(ErrorNumber::kDivisionByZero, "Division by zero."); });
  EXPECT_EQ(result, 0.5);
  EXPECT_EQ(host_.titles, std::vector<std::string>{"ORVEX"});
  EXPECT_EQ(host_.pointers, std::vector{Pointer::kDefault});
  EXPECT_EQ(host_.beeps, 1);
  EXPECT_EQ(host_.status, std::vector<std::string>{"Ready"});
}

/// Hears of failures before their message boxes.
class ListeningHost : public test::ScriptedHost {
 public:
  void NoteFailure(const RunTimeError& error) override {
    EXPECT_EQ(messages.size(), noted.size());
    noted.push_back(error.Number());
  }
  std::vector<ErrorNumber> noted;
};

TEST(TrapHost, IsToldOfEachFailureThatIsReportedAndOfNoOther) {
  ListeningHost host;
  Session session(host);
  host.ExpectError(11, "General.Routine");
  host.ExpectError(6, "General.Routine");
  for (const auto number : {ErrorNumber::kDivisionByZero, ErrorNumber::kNoCurrentRecord, ErrorNumber::kDialogCancelled,
                            ErrorNumber::kOverflow})
    Trapped(session, "General.Routine", [&] { Throw(number); });
  EXPECT_EQ(host.noted, (std::vector{ErrorNumber::kDivisionByZero, ErrorNumber::kOverflow}));
}

TEST_F(Trap, ABracedDescriptionIsToldAsItStands) {
  host_.ExpectMessage("The following Error occurred:\r\n\r\n{0} {} %s\r\nNumber: 3011\r\n in General.{}");
  Trapped(session_, "General.{}", [] { Throw(ErrorNumber::kObjectNotFound, "{0} {} %s"); });
}

TEST_F(Trap, NoCurrentRecordEndsARoutineWithoutAWord) {
  EXPECT_EQ(Trapped(session_, "General.Routine", 3, []() -> int { Throw(ErrorNumber::kNoCurrentRecord); }), 3);
  EXPECT_TRUE(host_.messages.empty());
  EXPECT_EQ(host_.beeps, 0);
}

TEST_F(Trap, ACancelledDialogEndsARoutineQuietly) {
  host_.ChooseFile("");
  bool went_on = false;
  Trapped(session_, "General.Routine", [&] {
    host_.OpenFile({});
    went_on = true;
  });
  EXPECT_FALSE(went_on);
  EXPECT_TRUE(host_.messages.empty());
}

TEST_F(Trap, AFailureEndsTheInnermostRoutineOnly) {
  host_.ExpectError(6, "modEmission.Inner");
  const int result = Trapped(session_, "modEmission.Outer", 0, [&] {
    const int inner = Trapped(session_, "modEmission.Inner", 20, []() -> int { Throw(ErrorNumber::kOverflow); });
    return inner + 1;
  });
  EXPECT_EQ(result, 21);
}

TEST_F(Trap, AnInterruptedCommandIsNoFailureOfTheRoutine) {
  EXPECT_THROW(Trapped(session_, "General.Routine", [] { throw Interrupted{}; }), Interrupted);
  EXPECT_TRUE(host_.messages.empty());
}

TEST_F(Trap, LackOfMemoryIsNoFailureOfTheRoutine) {
  EXPECT_THROW(Trapped(session_, "General.Routine", 0, []() -> int { throw std::bad_alloc(); }), std::bad_alloc);
}

TEST_F(Trap, AStatementWithoutACurrentRecordIsSkippedAndTheNextOneRuns) {
  std::string first = "kept";
  std::string second = "old";
  Trapped(session_, "General.Routine", [&] {
    auto tanks = test_.client().OpenTable("tank");  // empty: no current record
    Statement([&] { first = tanks.Text("USER ID"); });
    Statement([&] { second = "new"; });
  });
  EXPECT_EQ(first, "kept");
  EXPECT_EQ(second, "new");
}

TEST_F(Trap, AStatementThatIgnoresNullsIsSkippedOnThemAndWithoutARecordAlone) {
  host_.ExpectError(13, "General.Routine");
  std::string text = "old";
  Trapped(session_, "General.Routine", [&] {
    const auto skip = [&](ErrorNumber number) {
      Statement<ErrorNumber::kInvalidUseOfNull>([&] {
        Throw(number);
        text = "new";
      });
    };
    skip(ErrorNumber::kInvalidUseOfNull);
    skip(ErrorNumber::kNoCurrentRecord);
    text += " value";
    skip(ErrorNumber::kTypeMismatch);
    text = "passed over";
  });
  EXPECT_EQ(text, "old value");
}

TEST_F(Trap, AStatementPassesEveryOtherFailureOn) {
  host_.ExpectError(94, "General.Routine");
  bool went_on = false;
  Trapped(session_, "General.Routine", [&] {
    Statement([] { Throw(ErrorNumber::kInvalidUseOfNull); });
    went_on = true;
  });
  EXPECT_FALSE(went_on);
}

TEST_F(Trap, AFailureInsideABusyCommandEndsReady) {
  host_.ExpectError(13, "General.Routine");
  Trapped(session_, "General.Routine", [&] {
    const BusyScope busy(session_, "Saving");
    Throw(ErrorNumber::kTypeMismatch);
  });
  EXPECT_EQ(host_.pointers.back(), Pointer::kDefault);
  EXPECT_EQ(host_.status.back(), "Ready");
}

TEST_F(Trap, AWritingRoutineKeepsWhatItWroteBeforeAFailure) {
  host_.ExpectError(11, "General.Routine");
  TrappedWriting(session_, test_.client(), "General.Routine", [&] {
    AddTank("first");
    Throw(ErrorNumber::kDivisionByZero);
  });
  EXPECT_EQ(Tanks(), "first ");
}

TEST_F(Trap, AWritingRoutineThatIsInterruptedWritesNothing) {
  EXPECT_THROW(TrappedWriting(session_, test_.client(), "General.Routine",
                              [&] {
                                AddTank("first");
                                throw Interrupted{};
                              }),
               Interrupted);
  EXPECT_EQ(Tanks(), "");
}

TEST_F(Trap, AWritingRoutineTellsOnceThatAFileMayOnlyBeRead) {
  const auto read_only = store::Database::Open(test_.client().Path(), store::OpenMode::kReadOnly);
  host_.ExpectError(3027, "General.Routine");
  TrappedWriting(session_, *read_only, "General.Routine", [&] {
    test::AddRow(*read_only, "tank", {{"USER ID", "first"}});
  });
  EXPECT_EQ(Tanks(), "");
}

}  // namespace
}  // namespace orvex::shell
