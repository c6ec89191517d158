#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "entry/answering_host.h"

namespace orvex::entry {
namespace {

/// What a person, or a paste, puts into a number, and the number that it stands for: 0 for what is none.
struct TypedNumber {
  std::string text;
  double number;
};

const std::vector<TypedNumber>& TypedNumbers() {
  static const std::vector<TypedNumber> kNumbers = {
      {"nan", 0},
      {"NaN", 0},
      {"inf", 0},
      {"-inf", 0},
      {"infinity", 0},
      {"1e999", 0},
      {"-1e999", 0},
      {std::string(400, '9'), 0},
      {"0." + std::string(400, '3'), 1.0 / 3},
      {std::string(400, '0') + "12", 12},
      {std::string(1, '\0'), 0},
      {"1\x01", 0},
      {"\t5", 0},
      {"5\n", 0},
      {"5\x7F", 0},
      {"1,5", 0},
      {"0,5", 0},
      {"1.234,5", 0},
      {"1,234.5", 1234.5},
      {"12,34", 0},
      {"1,234,567.25", 1234567.25},
      {"1e1", 10},
      {"1E-05", 0.00001},
      {"1.5e+2", 150},
      {"1e", 0},
      {"", 0},
      {"   ", 0},
      {" 7 ", 7},
      {"+3", 3},
      {"--3", 0},
      {"-0", 0},
      {"-0.5", -0.5},
      {"12 ft", 0},
      {"0x10", 0},
      {"１２", 0},
      {"5e-324", 5e-324},
      {"'; DROP TABLE tank; --", 0},
  };
  return kNumbers;
}

class HostileNumbersTest : public test::AnsweredPageTest, public testing::WithParamInterface<std::string_view> {
 protected:
  static bool IsQuantity(std::string_view field) {
    return field == "VOLUME" || field == "TURNOVER" || field == "Q_NET";
  }

  /// The number that the rules leave in the row of a tank whose other numbers are 0.
  static double Kept(std::string_view field, double number) {
    if (field == "VENT_V") {
      const auto vacuum = number > 0 ? shell::RoundSixDecimals(-number) : number;
      return vacuum < -1 ? 0 : vacuum;
    }
    if (field == "VENT_P") return number < 0 || number > 1 ? 0 : number;
    if (field == "HEIGHT AL") return std::min(number, 0.0);
    return IsQuantity(field) ? shell::RoundSixDecimals(number) : number;
  }

  std::vector<const EntryInfo*> Numbers() {
    std::vector<const EntryInfo*> numbers;
    auto& form = Editor(answered_);
    for (const auto& entry : EntriesOf(form, PhysicalSection(form)))
      if (entry.info->kind == EntryKind::kNumber) numbers.push_back(entry.info);
    return numbers;
  }

  /// Types a text and looks at the page twice, as a person does who comes and goes.
  void TypeAndLeave(const std::string& control, const std::string& text) {
    person_.messages.clear();
    Type(control, text);
    LeavePage();
    LeavePage();
  }

  void ExpectNoFailureReport(const std::string& text) {
    for (const auto& message : person_.messages)
      EXPECT_EQ(message.find("The following Error occurred:"), std::string::npos) << text << ": " << message;
  }
};

TEST_P(HostileNumbersTest, AreStoredAsWhatTheyStandForOrAsZero) {
  OpenTank(GetParam());
  for (const auto* info : Numbers()) {
    const std::string control(info->text.name);
    for (const auto& [text, number] : TypedNumbers()) {
      SCOPED_TRACE(control + " " + text);
      TypeAndLeave(control, text);
      EXPECT_EQ(Stored(info->field).DoubleOrZero(), Kept(info->field, number));
      EXPECT_EQ(Number(At(Editor(answered_), control)), Kept(info->field, number));
      ExpectNoFailureReport(text);
      Given({{control, "0"}});
      Editor(answered_).last_field.clear();
    }
  }
}

TEST_P(HostileNumbersTest, ChangeNoOtherNumberOfTheTank) {
  OpenTank(GetParam());
  for (const auto* info : Numbers()) {
    const std::string control(info->text.name);
    for (const auto& typed : TypedNumbers()) {
      const auto& text = typed.text;
      TypeAndLeave(control, text);
      for (const auto* other : Numbers()) {
        if (other == info) continue;
        EXPECT_EQ(Stored(other->field).DoubleOrZero(), 0) << control << " " << text << ": " << other->field;
      }
      Given({{control, "0"}});
      Editor(answered_).last_field.clear();
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Tanks, HostileNumbersTest, testing::Values(shell::kVerticalFixedRoof, shell::kHorizontal),
                         [](const auto& type) { return type.param == shell::kHorizontal ? "Horizontal" : "Vertical"; });

}  // namespace
}  // namespace orvex::entry
