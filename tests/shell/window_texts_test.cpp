#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <set>
#include <string>

#include "shell/frmchange.h"
#include "shell/frmclientdata.h"
#include "shell/frmnotice.h"
#include "shell/frmoverview.h"
#include "shell/frmqmenu.h"
#include "shell/frmstart.h"
#include "shell/frmtankdata.h"

namespace orvex::shell {
namespace {

constexpr const WindowText* kWindows[] = {&kFrmstartText,    &kFrmNoticeText,     &kFrmqmenuText, &kFrmoverviewText,
                                          &kFrmtankdataText, &kFrmclientdataText, &kFrmChangeText};

TEST(WindowTexts, NoTwoControlsOfAWindowShareANameOrAnAccessKey) {
  for (const auto* window : kWindows) {
    std::set<std::string_view> names;
    std::set<int> keys;
    for (const auto& control : window->controls) {
      EXPECT_TRUE(names.insert(control.name).second) << window->name << ": " << control.name;
      const auto mark = control.caption.find('&');
      if (mark == std::string_view::npos) continue;
      ASSERT_LT(mark + 1, control.caption.size());
      EXPECT_TRUE(keys.insert(std::toupper(static_cast<unsigned char>(control.caption[mark + 1]))).second)
          << window->name << ": " << control.caption;
    }
  }
}

TEST(WindowTexts, EveryControlThatIsUsedSaysWhatItIsFor) {
  for (const auto* window : kWindows) {
    EXPECT_FALSE(window->title.empty()) << window->name;
    EXPECT_FALSE(window->topic.empty()) << window->name;
    for (const auto& control : window->controls)
      EXPECT_TRUE(control.name.starts_with("lbl") || !control.tip.empty()) << window->name << ": " << control.name;
  }
}

TEST(Frmstart, ShowsTheVersionForFiveSeconds) {
  EXPECT_EQ(kSplashTime, 5000);
  EXPECT_EQ(kFrmstartText.controls[1].caption, "ORVEX 4.0.9d");
}

TEST(Frmstart, EndsItsTimerAndClosesItself) {
  Frmstart model;
  EXPECT_TRUE(model.timer_enabled);
  EXPECT_FALSE(model.window.closed);
  EndFrmstart(model);
  EXPECT_FALSE(model.timer_enabled);
  EXPECT_TRUE(model.window.closed);
}

TEST(FrmNotice, TellsOfTheRightsInTheEquationsUnderItsHeading) {
  EXPECT_EQ(kNoticeHeading, "NOTICE");
  EXPECT_NE(kNoticeText.find("Rights in the equations"), std::string_view::npos);
  EXPECT_EQ(kFrmNoticeText.controls.back().name, "cmdOK");
}

TEST(Frmoverview, TellsOfTheProgramInFourParagraphs) {
  EXPECT_EQ(kFrmoverviewText.title, "About ORVEX (Version 4.0.9d)");
  EXPECT_EQ(std::size(kOverviewParagraphs), 4U);
  std::string all;
  for (const auto paragraph : kOverviewParagraphs) all += paragraph;
  for (const char* told : {"over 100 organic liquids", "over 175 cities", "you can add", "On-line help",
                           "KV-58 Section 7.1, \"Organic Liquid Storage Tanks\""})
    EXPECT_NE(all.find(told), std::string::npos) << told;
}

}  // namespace
}  // namespace orvex::shell
