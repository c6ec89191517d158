#include <fmt/format.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>

#include "entry/liquid_fixture.h"

namespace orvex::entry {
namespace {

using test::Rows;

enum class Step : std::uint8_t { kAdd, kNext, kPrevious, kDelete, kRename };

/// The liquid page, and beside it what a list of names says that it should show.
class Walk : public test::LiquidTest {
 public:
  Walk() { At(OpenLiquid(shell::kVerticalFixedRoof), "dbcboCity").box.text = ""; }
  void TestBody() override {}

  void Take(Step step, const std::string& name) {
    switch (step) {
      case Step::kRename:
        return Rename(name);
      case Step::kDelete:
        return Delete();
      default:
        return Go(step);
    }
  }

  void Check() {
    Rows expected;
    for (const auto& name : names_)
      expected.push_back(fmt::format("{}|{}", expected.size() + 1, name.empty() ? "-" : name));
    RC_ASSERT(Mixtures() == expected);
    RC_ASSERT(Label() == fmt::format("Mixture {} of {}", at_ + 1, names_.size()));
    RC_ASSERT(MixtureNameIsEmpty(Form()) == names_[at_].empty());
    RC_ASSERT(Form().cmdPrevMix.enabled == (at_ > 0));
    RC_ASSERT(Form().cmdNextMix.enabled == (at_ != 11 && at_ + 1 != names_.size()));
  }

 private:
  void Rename(const std::string& name) {
    ChooseKind("Multiple", "Full Speciation");
    Type("dbcboMixNameFull", name);
    names_[at_] = name;
  }

  void Delete() {
    if (names_.size() == 1) {
      host_.ExpectMessage("This is the only mixture for this tank.  It cannot be deleted.");
    } else {
      names_.erase(names_.begin() + static_cast<std::ptrdiff_t>(at_));
      at_ -= at_ > 0 ? 1 : 0;
    }
    ClickDelete(session_, Form());
  }

  bool MayLeave() {
    if (names_[at_].empty()) {
      host_.ExpectMessage("Mixture name cannot be null.  Delete this mixture if you do not wish to save it.");
      return false;
    }
    if (std::ranges::count(names_, names_[at_]) == 1) return true;
    host_.ExpectMessage("Duplicate Mixture Name");
    return false;
  }

  void Go(Step step) {
    if (MayLeave()) {
      if (step == Step::kAdd && at_ + 1 == names_.size()) names_.emplace_back();
      if (step == Step::kPrevious) {
        at_ -= at_ > 0 ? 1 : 0;
      } else {
        at_ = std::min(at_ + 1, names_.size() - 1);
      }
    }
    if (step == Step::kAdd) ClickAdd(session_, Form());
    if (step == Step::kNext) ClickNextMix(session_, Form());
    if (step == Step::kPrevious) ClickPrevMix(session_, Form());
  }

  Rows names_ = {""};
  std::size_t at_ = 0;
};

RC_GTEST_PROP(MixtureWalk, AlwaysNumbersTheMixturesFromOneAndShowsTheRightOne, ()) {
  Walk walk;
  const auto length = *rc::gen::inRange(1, 40);
  for (int i = 0; i < length; ++i) {
    const auto step = *rc::gen::weightedElement<Step>(
        {{3, Step::kAdd}, {2, Step::kNext}, {2, Step::kPrevious}, {1, Step::kDelete}, {4, Step::kRename}});
    walk.Take(step, *rc::gen::element<std::string>("", "a", "b", "c", "d", "e", "f", "g"));
    walk.Check();
  }
}

}  // namespace
}  // namespace orvex::entry
