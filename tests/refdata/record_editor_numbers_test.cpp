#include <functional>

#include "refdata/editor_fixture.h"
#include "refdata/frmchemical.h"
#include "refdata/frmmet.h"

/// Every number field of the editors keeps out what is no number.
namespace orvex::refdata {
namespace {

struct Editor {
  std::string_view name;
  RecordEditor (*open)(shell::Session&);
  std::size_t numbers;
};

class NumberFields : public test::EditorTest, public testing::WithParamInterface<Editor> {
 protected:
  /// Does something to each number field of a record of the person's own.
  void ForEach(const std::function<void(const std::string& control)>& act) {
    Open(GetParam().open);
    Add();
    std::size_t numbers = 0;
    for (const auto& entry : form_.info->entries) {
      if (!IsNumber(entry)) continue;
      const std::string control(entry.text.name);
      SCOPED_TRACE(control);
      act(control);
      ++numbers;
    }
    EXPECT_EQ(numbers, GetParam().numbers);
  }
};

TEST_P(NumberFields, RefuseWhatIsNoNumberBecomeZeroAndKeepTheFocus) {
  ForEach([&](const std::string& control) {
    for (const auto* text : {"abc", "", " ", "1,5", "1.234,5", "12x", "nan", "inf", "1e999", "0x10", "1\n", "--1"}) {
      SCOPED_TRACE(text);
      Type(control, "3");
      form_.window = {};
      host_.ExpectMessage("Please enter a number.", "ORVEX", shell::Buttons::kOk, shell::Icon::kExclamation);
      Type(control, text);
      EXPECT_EQ(Shown(control), "0");
      EXPECT_EQ(form_.window.focus, control);
      EXPECT_EQ(form_.window.refusal, "Please enter a number.");
      EXPECT_EQ(Number(At(form_, control)), 0);
    }
  });
}

TEST_P(NumberFields, TakeEveryWayOfWritingANumber) {
  const std::vector<std::pair<std::string, double>> texts = {{"12.5", 12.5},      {" 7 ", 7},    {"-3", -3},  {"+4", 4},
                                                             {"1,234.5", 1234.5}, {"1e3", 1000}, {".5", 0.5}, {"0", 0}};
  ForEach([&](const std::string& control) {
    for (const auto& [text, number] : texts) {
      Type(control, text);
      EXPECT_EQ(Shown(control), text);
      EXPECT_EQ(Number(At(form_, control)), number);
    }
  });
}

TEST_P(NumberFields, AreBlankInANewRecordAndStayBlankWhenPassedThrough) {
  ForEach([&](const std::string& control) {
    EXPECT_EQ(Shown(control), "0");
    LeaveEntry(session_, form_, control);
    EXPECT_EQ(At(form_, control).held, "");
  });
}

TEST_P(NumberFields, TakeAZeroThatIsTypedOverABlank) {
  ForEach([&](const std::string& control) {
    for (const auto* text : {"", "0"}) {
      At(form_, control).box.text = text;
      TypeText(session_, form_, control);
    }
    LeaveEntry(session_, form_, control);
    EXPECT_EQ(At(form_, control).held, "0");
    EXPECT_TRUE(IsChanged(At(form_, control)));
  });
}

INSTANTIATE_TEST_SUITE_P(Editors, NumberFields,
                         testing::Values(Editor{"chemical", OpenFrmchemical, 17}, Editor{"met", OpenFrmMet, 54}),
                         [](const auto& editor) { return std::string(editor.param.name); });

}  // namespace
}  // namespace orvex::refdata
