#include <fmt/format.h>
#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <algorithm>
#include <cmath>
#include <ostream>
#include <sstream>
#include <stdexcept>

#include "refdata/profile_fixture.h"
#include "store/letter_case.h"

/// A person who works on profiles without any plan.
namespace orvex::refdata {
namespace {

using shell::Session;
using test::Rows;

/// Notes what it is told, and answers by turns.
class CarelessPerson : public test::ScriptedHost {
 public:
  shell::Answer ShowMessage(const std::string& text, const std::string& title, shell::Buttons buttons,
                            shell::Icon) override {
    if (text.starts_with("The following Error occurred:")) throw std::runtime_error(text);
    if (title.empty()) throw std::runtime_error("no title: " + text);
    ++asked_;
    switch (buttons) {
      case shell::Buttons::kYesNo:
        return asked_ % 3 == 0 ? shell::Answer::kNo : shell::Answer::kYes;
      case shell::Buttons::kOkCancel:
        return asked_ % 3 == 0 ? shell::Answer::kCancel : shell::Answer::kOk;
      default:
        return shell::Answer::kOk;
    }
  }

  void Forget() { asked_ = 0; }

 private:
  int asked_ = 0;
};

constexpr const char* kNames[] = {"Gasoline", "Mine", "MINE", "Ours", "O'Brien [x]", "", "BTEX Cut"};
constexpr const char* kChemicals[] = {"Toluene", "Benzene", "benzene", "71-43-2", "Own mix", "", "a\tb"};
constexpr const char* kNumbers[] = {"0",  "10", "50",   "100", "99.95", "0.1", "-5", "1e308",
                                    "33", "",   "text", "1,5", "25",    "40",  "60", "1"};
constexpr const char* kShares[] = {"100", "50", "20"};
constexpr const char* kTypes[] = {"Partial", "Vapor", "Full"};
constexpr std::string_view kWeights[] = {"txtMOLWT", "txtVP_MOLWT"};
constexpr std::string_view kTextEntries[] = {"dbcboProfName", "dbcboChemName", "dbcboCAS"};

struct Command {
  const char* name;
  void (*run)(Session&, FrmProfile&);
};
constexpr Command kCommands[] = {
    {"Next", ClickNextComp}, {"Previous", ClickPrevComp}, {"Add", ClickAdd},
    {"Save", ClickSave},     {"Next", ClickNextComp},     {"DeleteComponent", ClickDeleteComp},
    {"RelLiq", ClickRelLiq}, {"AddNew", ClickAddNew},     {"Delete", ClickDelete},
    {"Save", ClickSave},     {"Add", ClickAdd},           {"Help", ClickHelp},
};

/// What is done, and with what: each an index that is cut to the number of choices.
struct Step {
  unsigned deed, entry, text;
};

std::ostream& operator<<(std::ostream& out, const Step& step) {
  return out << step.deed << '/' << step.entry << '/' << step.text;
}

template <std::size_t kCount, typename Item>
const Item& OneOf(const Item (&items)[kCount], unsigned index) {
  return items[index % kCount];
}

void Require(bool holds, const std::string& rule) {
  if (!holds) throw std::runtime_error(rule);
}

class Story : public test::ProfileTest {
 public:
  void TestBody() override {}

  Story() {
    person_session_.TankPath = session_.TankPath;
    person_session_.ReferenceDb = std::move(session_.ReferenceDb);
    form_ = {};
    shipped_ = Shipped();
    shipped_components_ = Reference().OpenTable("profile components").RecordCount();
  }

  void GoThrough(const std::vector<Step>& steps) {
    told_.clear();
    person_.Forget();
    Reference().Execute("DELETE * FROM [profile names] WHERE User = True");
    Reference().Execute("DELETE * FROM [profile components] WHERE [spec id] > 14");
    form_ = {};
    form_ = OpenFrmProfile(person_session_);
    for (const auto& step : steps) {
      const auto stored = Names();
      Do(step);
      saved_ += Names() == stored ? 0 : 1;
      Check();
    }
  }
  [[nodiscard]] const std::string& Told() const { return told_; }
  [[nodiscard]] int Saved() const { return saved_; }

 private:
  store::Database& Reference() { return *person_session_.ReferenceDb; }
  Rows Shipped() {
    auto rows = test::QueryRows(Reference(), "SELECT * FROM [profile names] WHERE User = False",
                                {"SPEC ID", "Profile Name", "TYPE"});
    for (auto& row : test::QueryRows(Reference(), "SELECT * FROM [profile components] WHERE [spec id] <= 14",
                                     {"SPEC ID", "NAME", "CAS", "WT_FRACT", "VP_FRACT", "WEIGHT", "MOLWT", "VP_MOLWT"}))
      rows.push_back(std::move(row));
    return rows;
  }

  void Note(std::string_view deed, std::string_view control = "", std::string_view text = "") {
    told_ += fmt::format("{} {} '{}'\n", deed, control, text);
  }

  void Do(const Step& step) {
    switch (step.deed % 6) {
      case 0: {
        const auto control = OneOf(kTextEntries, step.entry);
        Enter(control, control == "dbcboProfName" ? OneOf(kNames, step.text) : OneOf(kChemicals, step.text));
        break;
      }
      case 1:
        // Of the shares a person sees only one.
        Enter(step.entry % 2 == 0 ? ShareEntry() : OneOf(kWeights, step.entry / 2), OneOf(kNumbers, step.text));
        break;
      case 2: {
        const auto control = step.entry % 3 == 0 ? "cboType" : step.entry % 3 == 1 ? "dbcboChemName" : "dbcboCAS";
        const auto* item = step.entry % 3 == 0 ? OneOf(kTypes, step.text) : OneOf(kChemicals, step.text);
        Note("choose", control, item);
        Text(control) = item;
        ChooseItem(person_session_, form_, control);
        break;
      }
      case 3:
        if (step.entry % 5 == 0) {
          const auto* name = OneOf(kNames, step.text);
          Note("pick", "dbcboProfName", name);
          form_.dbcboProfName.text = name;
          PickProfile(person_session_, form_);
          break;
        }
        FillAll(step);
        break;
      case 4:
        if (step.text % 16 == 0) {
          Note("close");
          ClickClose(person_session_, form_);
          if (!form_.window.closed) break;
          form_ = {};
          form_ = OpenFrmProfile(person_session_);
          break;
        }
        [[fallthrough]];
      default: {
        const auto& command = OneOf(kCommands, step.entry);
        Note(command.name);
        command.run(person_session_, form_);
      }
    }
  }
  /// All that a profile of one component needs, so that some are saved.
  void FillAll(const Step& step) {
    if (!form_.user_defined) ClickAddNew(person_session_, form_);
    Enter("dbcboProfName", fmt::format("Profile {}", step.text % 5));
    const auto* type = OneOf(kTypes, step.text);
    Note("fill", "cboType", type);
    form_.cboType.text = type;
    ChooseItem(person_session_, form_, "cboType");
    if (step.entry % 4 == 0) ClickRelLiq(person_session_, form_);
    Text("dbcboChemName") = "Toluene";
    ChooseItem(person_session_, form_, "dbcboChemName");
    Enter(ShareEntry(), OneOf(kShares, step.text));
    if (step.entry % 2 == 0) ClickSave(person_session_, form_);
  }
  void Enter(std::string_view control, const std::string& text) {
    Note("type", control, text);
    Text(control) = text;
    TypeText(person_session_, form_, control);
    LeaveEntry(person_session_, form_, control);
  }

  Rows Names() {
    return test::QueryRows(Reference(), "SELECT * FROM [profile names] WHERE User = True", {"SPEC ID", "Profile Name"});
  }

  void Check() {
    Require(Shipped() == shipped_, "a shipped profile changed");
    CheckWindow();
    components_ = 0;
    Rows names;
    auto rows = Reference().OpenQuery("SELECT * FROM [profile names] WHERE User = True");
    for (; !rows.AtEnd(); rows.MoveNext()) {
      names.push_back(store::LowerCase(rows.TextOrEmpty("Profile Name")));
      CheckSaved(rows.Long("SPEC ID"), rows.TextOrEmpty("Profile Name"), rows.TextOrEmpty("TYPE"));
    }
    std::ranges::sort(names);
    Require(std::ranges::adjacent_find(names) == names.end(), "two profiles of one name");
    Require(
        Reference().OpenQuery("SELECT * FROM [profile components]").RecordCount() == components_ + shipped_components_,
        "components without a profile");
  }
  void CheckWindow() const {
    const auto count = form_.profile.components.size();
    Require(form_.component < count, "no such component on show");
    Require(form_.lblComponentXofX.text == fmt::format("Component {} of {}", form_.component + 1, count), "counter");
    Require(form_.cmdPrevComp.enabled == (form_.component > 0), "Previous");
    Require(form_.cmdNextComp.enabled == (form_.component + 1 < count), "Next");
    Require(form_.picProfile.enabled == form_.user_defined, "panel");
    Require(form_.dbcboProfName.text == form_.profile.Name, "name on show");
    Require(form_.dbcboChemName.text == form_.profile.components[form_.component].NAME, "chemical on show");
    Require(form_.txtWT_FRACT.visible + form_.txtVP_FRACT.visible + form_.txtWEIGHT.visible == 1, "shares on show");
    Require(form_.user_defined || form_.profile == form_.loaded, "a shipped profile was changed");
  }
  /// What is stored satisfies all that is asked of a profile when it is saved.
  void CheckSaved(std::int32_t spec_id, const std::string& name, const std::string& type) {
    Require(!name.empty(), "saved without a name");
    double liquid = 0, vapor = 0, weight = 0;
    bool all_liquid = true, all_vapor = true, all_weight = true;
    int count = 0;
    auto rows = Reference().OpenMatching("profile components", "Spec ID", {spec_id});
    for (; !rows.AtEnd(); rows.MoveNext(), ++count) {
      Require(!rows.TextOrEmpty("NAME").empty(), "saved without a chemical");
      const double wt = rows.DoubleOrZero("WT_FRACT"), vp = rows.DoubleOrZero("VP_FRACT");
      liquid += wt, vapor += vp, weight += rows.DoubleOrZero("WEIGHT");
      all_liquid = all_liquid && wt != 0, all_vapor = all_vapor && vp != 0;
      all_weight = all_weight && rows.DoubleOrZero("WEIGHT") != 0;
    }
    components_ += count;
    Require(count > 0, "saved without a component");
    constexpr double kNoise = 1e-9;
    if (type == "Partial") Require(all_liquid && liquid < 100.1 + kNoise, "a partial profile breaks a rule");
    if (type == "Vapor") Require(all_vapor && vapor < 100.1 + kNoise, "a vapor profile breaks a rule");
    if (type == "Full") {
      const bool percents = all_liquid && std::abs(liquid - 100) < 0.1 + kNoise;
      Require(percents || (all_weight && liquid == 0), "a full profile breaks a rule");
    }
    Require(std::ranges::count(kTypes, type) == 1, "saved without a type");
  }

  CarelessPerson person_;
  Session person_session_{person_};
  Rows shipped_;
  std::string told_;
  std::int64_t shipped_components_ = 0;
  std::int64_t components_ = 0;  ///< of saved profiles
  int saved_ = 0;
};

rc::Gen<std::vector<Step>> AnySteps() {
  const auto any = [] { return rc::gen::resize(rc::kNominalSize, rc::gen::inRange(0U, 10'000U)); };
  return rc::gen::container<std::vector<Step>>(rc::gen::build<Step>(
      rc::gen::set(&Step::deed, any()), rc::gen::set(&Step::entry, any()), rc::gen::set(&Step::text, any())));
}

TEST(RandomProfiles, ShippedOnesStayAndSavedOnesSatisfyAllRules) {
  Story life;
  auto params = rc::detail::configuration().testParams;
  params.maxSuccess = 200;
  params.maxSize = 60;
  rc::detail::TestMetadata metadata;
  metadata.id = "profiles";
  const auto story = [&] {
    const auto steps = *AnySteps();
    try {
      life.GoThrough(steps);
    } catch (const std::exception& fault) {
      RC_FAIL(fault.what() + std::string("\nafter\n") + life.Told());
    }
  };
  const auto result = rc::detail::checkTestable(story, metadata, params);
  std::ostringstream told;
  rc::detail::printResultMessage(result, told);
  EXPECT_TRUE(result.is<rc::detail::SuccessResult>()) << told.str();
  RecordProperty("saved", life.Saved());
  EXPECT_GT(life.Saved(), 50);
}

}  // namespace
}  // namespace orvex::refdata
