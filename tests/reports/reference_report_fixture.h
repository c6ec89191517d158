#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "reports/export_check.h"
#include "reports/frmprintrep.h"
#include "reports/frmrepselect.h"
#include "reports/xml_export.h"
#include "support/file_content.h"
#include "support/test_databases.h"

namespace orvex::test {

inline constexpr std::string_view kWords[] = {"Chemical", "Met", "Fit", "Rim", "Deck", "Profile"};

/// Reports on reference tables, asked for as a person does.
class ReferenceReportTest : public testing::Test {
 protected:
  using Strings = std::vector<std::string>;

  store::Database& Reference() { return *session_.ReferenceDb; }
  [[nodiscard]] std::filesystem::path File() const { return session_.application_folder / "data_export.xml"; }
  [[nodiscard]] std::string Page() const { return (session_.application_folder / "data_display.htm").string(); }

  reports::Frmrepselect Open(std::string_view word) {
    session_.PrintMode = word;
    return reports::OpenFrmrepselect(session_);
  }

  /// Chooses these items of the list.
  void Choose(reports::Frmrepselect& form, const Strings& items) {
    form.lstItems.selected.clear();
    for (std::size_t row = 0; row < form.lstItems.items.size(); ++row)
      if (std::ranges::find(items, form.lstItems.items[row]) != items.end()) form.lstItems.selected.push_back(row);
    reports::ClickSelect(session_, form);
  }

  /// Presses Print, and OK in the window that opens then.
  void Print(reports::Frmrepselect& form) {
    test_.host.WhenShown("frmprintrep", [&] {
      EXPECT_TRUE(form.window.closed) << "this window stands behind the other one";
      auto output = reports::OpenFrmprintrep(session_);
      EXPECT_TRUE(output.cmdOK.enabled);
      reports::ClickOK(session_, output);
    });
    reports::ClickPrint(session_, form);
    EXPECT_TRUE(form.window.closed);
  }

  /// A report on the items with these texts.
  void PrintItems(std::string_view word, const Strings& items) {
    auto form = Open(word);
    Choose(form, items);
    Print(form);
  }

  void PrintAll(std::string_view word) {
    auto form = Open(word);
    reports::ClickSelectAll(session_, form);
    Print(form);
  }

  /// The file shows these rows of the table, and the page was opened on it.
  void ExpectShown(std::string_view word, const std::vector<std::int32_t>& numbers) {
    EXPECT_EQ(ExportFaults(File(), word, Reference(), numbers), Strings());
    EXPECT_EQ(test_.host.pages, Strings{Page()});
    test_.host.pages.clear();
  }

  void ExpectNothingShown() {
    EXPECT_TRUE(test_.host.pages.empty());
    EXPECT_FALSE(std::filesystem::exists(File()));
    ASSERT_FALSE(test_.host.pointers.empty());
    EXPECT_EQ(test_.host.pointers.back(), shell::Pointer::kDefault);
    EXPECT_EQ(test_.host.status.back(), "Ready");
  }

  TestSession test_;
  shell::Session& session_ = test_.session;
};

}  // namespace orvex::test
