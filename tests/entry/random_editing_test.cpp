#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <sstream>

#include "entry/random_editing_life.h"

namespace orvex::test {
namespace {

/// So many stories, of up to so many steps. The shortest one that breaks a rule is printed as what was done.
void Tell(int stories, int steps, Numbers numbers) {
  Life life;
  auto params = rc::detail::configuration().testParams;
  params.maxSuccess = stories;
  params.maxSize = steps;
  rc::detail::TestMetadata metadata;
  metadata.id = testing::UnitTest::GetInstance()->current_test_info()->name();
  const auto story = [&] {
    const auto taken = *AnySteps();
    try {
      life.GoThrough(taken, numbers);
    } catch (const std::exception& fault) {
      RC_FAIL(fault.what() + std::string("\nafter\n") + life.Story());
    }
  };
  const auto result = rc::detail::checkTestable(story, metadata, params);
  std::ostringstream told;
  rc::detail::printResultMessage(result, told);
  EXPECT_TRUE(result.is<rc::detail::SuccessResult>()) << told.str();
}

TEST(RandomEditing, KeepsEveryTankSoundAndUndoesWhatIsDeclined) { Tell(700, 60, Numbers::kAnyOfTanks); }

TEST(RandomEditing, StoresNoNumberThatIsNotFiniteHoweverGreatThoseTypedAre) { Tell(250, 60, Numbers::kAll); }

}  // namespace
}  // namespace orvex::test
