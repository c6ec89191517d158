#include <rapidcheck.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "entry/component_fixture.h"
#include "shell/entry_number.h"

namespace orvex::entry {
namespace {

constexpr std::size_t kSteps = 40;

std::size_t OneOf(std::size_t count) {
  return *rc::gen::resize(rc::kNominalSize, rc::gen::inRange<std::size_t>(0, count));
}

class ComponentPropertiesTest : public test::ComponentTest {
 protected:
  enum class Step : std::uint8_t {
    kChooseName,
    kChooseNumber,
    kTypeShare,
    kAdd,
    kNext,
    kPrevious,
    kDelete,
    kDeleteAll,
    kSwitch,
    kCopyProfile,
    kCount
  };

  /// Two mixtures besides the one worked on, one in front of it and one behind it.
  void StartAnew(std::string_view option) {
    session_.ClientDb->Execute("DELETE * FROM components");
    Tank().MixID = 2;
    for (const int mixture : {1, 3}) {
      AddComponent(1, {{"NAME", "Styrene"}, {"CAS", "100-42-5"}, {"WT_FRACT", 7.0}, {"VP_FRACT", 4.0}}, mixture);
      AddComponent(2, {{"NAME", "Aniline"}, {"CAS", "62-53-3"}, {"WEIGHT", 3.0}}, mixture);
    }
    form_ = Open(option);
    switched_ = false;
  }

  /// What the person is to be told when the component is left as it stands.
  void ExpectWhatLeavingSays() {
    if (form_.txtName.empty() || shell::EntryNumber(form_.txtShare.text) == 0) {
      host_.ExpectMessage(kIncomplete);
      return;
    }
    const auto names = Column("NAME", 2);
    for (std::size_t i = 0; i < names.size(); ++i) {
      if (i + 1 == static_cast<std::size_t>(form_.CompID) || names[i] != form_.txtName) continue;
      host_.ExpectMessage("Duplicate Component Name");
      return;
    }
  }

  void Leave(void (*leave)(shell::Session&, Frmcomponent&), bool enabled) {
    if (!enabled) return;
    ExpectWhatLeavingSays();
    leave(session_, form_);
  }

  void CopyAProfile() {
    auto profiles = OpenFrmspecpro(session_);
    PickProfile(session_, profiles, OneOf(profiles.lstProfiles.items.size()));
    ClickOK(session_, profiles);
    form_ = OpenFrmcomponent(session_);
  }

  void Do(Step step) {
    static const Texts kNames = {"Acetone", "Benzene", "Toluene", "Styrene", "Unobtainium", ""};
    static const Texts kNumbers = {"67-64-1", "71-43-2", "108-88-3", "0-0-0", ""};
    static const Texts kShares = {"0", "12.5", "1,000", "-3", "7", "1e-3"};
    switch (step) {
      case Step::kChooseName:
        return ChooseChemName(session_, form_, kNames[OneOf(kNames.size())]);
      case Step::kChooseNumber:
        return ChooseCAS(session_, form_, kNumbers[OneOf(kNumbers.size())]);
      case Step::kTypeShare:
        return TypeShare(form_, kShares[OneOf(kShares.size())]);
      case Step::kAdd:
        return Leave(ClickAdd, true);
      case Step::kNext:
        return Leave(ClickNext, form_.cmdNext.enabled);
      case Step::kPrevious:
        return Leave(ClickPrevious, form_.cmdPrevious.enabled);
      case Step::kDelete:
        return ClickDelete(session_, form_);
      case Step::kDeleteAll:
        return ClickDeleteAll(session_, form_);
      case Step::kSwitch:
        if (!form_.cmdRelative.visible) return;
        switched_ = true;
        return ClickRelative(session_, form_);
      case Step::kCopyProfile:
        return CopyAProfile();
      case Step::kCount:
        break;
    }
  }

  void CheckOtherMixtures() {
    for (const int mixture : {1, 3}) {
      RC_ASSERT(Column("NAME", mixture) == (Texts{"Styrene", "Aniline"}));
      RC_ASSERT(Column("COMP ID", mixture) == (Texts{"1", "2"}));
      RC_ASSERT(Column("VP_FRACT", mixture) == (Texts{"4", "null"}));
      RC_ASSERT(Column("WT_FRACT", mixture) == (switched_ ? Texts{"0", "0"} : Texts{"7", "null"}));
    }
  }

  void CheckMixture() {
    const auto numbers = Column("COMP ID", 2);
    for (std::size_t i = 0; i < numbers.size(); ++i) RC_ASSERT(numbers[i] == std::to_string(i + 1));
    RC_ASSERT(form_.window.closed == numbers.empty());
    if (form_.window.closed) return;
    RC_ASSERT(form_.lblComponentXofX.text ==
              "Component " + std::to_string(form_.CompID) + " of " + std::to_string(numbers.size()));
    RC_ASSERT(form_.cmdPrevious.enabled == (form_.CompID > 1));
    RC_ASSERT(form_.cmdNext.enabled == (form_.CompID < static_cast<std::int32_t>(numbers.size())));
    RC_ASSERT(form_.dbcboChemName.text == form_.txtName);
    RC_ASSERT(form_.dbcboCAS.text == form_.txtCAS);
  }

  Frmcomponent form_;
  bool switched_ = false;
};

TEST_F(ComponentPropertiesTest, AnySequenceOfCommandsKeepsTheNumbersRunningAndTheOtherMixturesAsTheyAre) {
  EXPECT_TRUE(rc::check([this] {
    StartAnew(*rc::gen::element(shell::kFullSpeciation, shell::kPartialSpeciation, shell::kVaporWeightSpeciation));
    for (std::size_t i = 0; i < kSteps; ++i) {
      Do(static_cast<Step>(OneOf(static_cast<std::size_t>(Step::kCount))));
      CheckMixture();
      CheckOtherMixtures();
      RC_ASSERT(!HasFailure());
      if (form_.window.closed) form_ = OpenFrmcomponent(session_);
    }
  }));
}

}  // namespace
}  // namespace orvex::entry
