#include <gtest/gtest.h>

#include <cctype>
#include <set>
#include <string>
#include <vector>

#include "entry/frmcopydata.h"
#include "entry/frmeditrec.h"
#include "entry/frmrecdelete.h"

namespace orvex::entry {
namespace {

constexpr const shell::WindowText* kWindows[] = {&kFrmeditrecText, &kFrmCopyDataText, &kFrmrecdeleteText};

TEST(TankWindowTexts, HaveTheirTitlesAndTopics) {
  const std::vector<std::vector<std::string_view>> expected = {{"frmeditrec", "Edit Tank", "edit_tank"},
                                                               {"FrmCopyData", "Copy Data", "copy_tank"},
                                                               {"frmrecdelete", "Delete Tank(s)", "delete_tanks"}};
  std::vector<std::vector<std::string_view>> found;
  for (const auto* window : kWindows) found.push_back({window->name, window->title, window->topic});
  EXPECT_EQ(found, expected);
}

TEST(TankWindowTexts, TheChoicesOfTheCopyAreNamed) {
  std::vector<std::string_view> captions;
  for (const auto& control : kFrmCopyDataText.controls)
    if (control.name.starts_with("opt")) captions.push_back(control.caption);
  EXPECT_EQ(captions, (std::vector<std::string_view>{"&All Data", "&Liquid Data", "&Tank Data"}));
}

TEST(TankWindowTexts, EveryControlHasATipAndItsOwnAccessKey) {
  for (const auto* window : kWindows) {
    std::set<std::string_view> names;
    std::set<int> keys;
    for (const auto& [name, caption, tip] : window->controls) {
      EXPECT_TRUE(names.insert(name).second) << window->name << "." << name;
      EXPECT_FALSE(tip.empty()) << window->name << "." << name;
      const auto at = caption.find('&');
      EXPECT_TRUE(at != std::string_view::npos || !name.starts_with("cmd")) << window->name << "." << name;
      if (at == std::string_view::npos) continue;
      const int key = std::toupper(static_cast<unsigned char>(caption.at(at + 1)));
      EXPECT_TRUE(keys.insert(key).second) << window->name << "." << name;
    }
  }
}

}  // namespace
}  // namespace orvex::entry
