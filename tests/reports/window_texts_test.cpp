#include <gtest/gtest.h>

#include <cctype>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "reports/frmexformat.h"
#include "reports/frmexname.h"
#include "reports/frmexptbl.h"
#include "reports/frmmonth.h"
#include "reports/frmprintrep.h"
#include "reports/frmrepselect.h"
#include "reports/frmreptyp.h"
#include "reports/frmtankrep.h"

namespace orvex::reports {
namespace {

using Captions = std::vector<std::pair<std::string, std::string>>;

constexpr const shell::WindowText* kWindows[] = {&kFrmtankrepText,  &kFrmmonthText,     &kFrmreptypText,
                                                 &kFrmprintrepText, &kFrmrepselectText, &kFrmexformatText,
                                                 &kFrmexnameText,   &kFrmexptblText};

Captions CaptionsOf(const shell::WindowText& window) {
  Captions captions;
  for (const auto& control : window.controls) captions.emplace_back(control.name, control.caption);
  return captions;
}

/// The letter behind the ampersand, as a capital; 0 without one.
int AccessKey(std::string_view caption) {
  const auto at = caption.find('&');
  return at == std::string_view::npos ? 0 : std::toupper(static_cast<unsigned char>(caption.at(at + 1)));
}

TEST(WindowTexts, HaveTheirTitlesAndTopics) {
  const std::vector<std::vector<std::string_view>> expected = {
      {"Frmtankrep", "Choose Tank(s) For Report", "choose_tanks"},
      {"Frmmonth", "Choose Months", "choose_months"},
      {"Frmreptyp", "Report Type", "report_type"},
      {"frmprintrep", "Print Report", "print_report"},
      {"frmrepselect", "Report Selection", "report_selection"},
      {"Frmexformat", "Export Format", "export_tables"},
      {"frmexname", "Export File Name", "export_tables"},
      {"frmexptbl", "Export Table", "export_tables"},
  };
  std::vector<std::vector<std::string_view>> found;
  for (const auto* window : kWindows) found.push_back({window->name, window->title, window->topic});
  EXPECT_EQ(found, expected);
}

TEST(WindowTexts, OfTheTanks) {
  EXPECT_EQ(CaptionsOf(kFrmtankrepText), (Captions{{"lstTanks", "&Tanks:"},
                                                   {"cmdSelect", "&Select>"},
                                                   {"cmdSelectAll", "Select &All>>"},
                                                   {"cmdRemove", "<&Remove"},
                                                   {"cmdRemoveAll", "<<Remove A&ll"},
                                                   {"lstChosenTanks", "Chosen Tan&ks:"},
                                                   {"txtID", "ID:"},
                                                   {"txtCity", "City:"},
                                                   {"txtState", "State:"},
                                                   {"txtCompany", "Company:"},
                                                   {"txtTankType", "Tank Type:"},
                                                   {"cmdRunReport", "&Run Report"},
                                                   {"cmdClose", "&Close"},
                                                   {"cmdHelp", "&Help"}}));
}

/// The window's captions without its twelve months', each of which must be the month's name.
Captions BesidesTheMonths(const shell::WindowText& window) {
  auto captions = CaptionsOf(window);
  EXPECT_GT(captions.size(), shell::kMonths.size());
  for (const auto& month : shell::kMonths) {
    auto [name, caption] = captions.front();
    captions.erase(captions.begin());
    EXPECT_EQ(name, "chk" + std::string(month.suffix));
    EXPECT_NE(AccessKey(caption), 0) << name;
    EXPECT_EQ(caption.erase(caption.find('&'), 1), month.name);
  }
  return captions;
}

TEST(WindowTexts, OfTheMonths) {
  EXPECT_EQ(
      BesidesTheMonths(kFrmmonthText),
      (Captions{{"cmdAll", "&All"}, {"cmdRunReport", "&Run Report"}, {"cmdClose", "Close"}, {"cmdHelp", "&Help"}}));
}

TEST(WindowTexts, OfTheReportType) {
  EXPECT_EQ(BesidesTheMonths(kFrmreptypText), (Captions{{"cboRepTime", "Report &Time:"},
                                                        {"cboRepType", "R&eport Type:"},
                                                        {"fraMonths", "Months"},
                                                        {"cmdAll", "&All"},
                                                        {"cmdOK", "O&K"},
                                                        {"cmdCancel", "&Close"}}));
}

TEST(WindowTexts, OfThePrintedReport) {
  EXPECT_EQ(CaptionsOf(kFrmprintrepText), (Captions{{"optWindow", " &Window/Printer"},
                                                    {"optFile", " &File"},
                                                    {"cmdOK", "&OK"},
                                                    {"cmdPrintSetup", "&Printer Setup"},
                                                    {"cmdClose", "&Close"},
                                                    {"cmdHelp", "&Help"}}));
}

TEST(WindowTexts, OfTheReportSelection) {
  EXPECT_EQ(CaptionsOf(kFrmrepselectText), (Captions{{"lblTable", ""},
                                                     {"lblField", ""},
                                                     {"lstItems", ""},
                                                     {"cmdSelect", "&Select"},
                                                     {"cmdSelectAll", "Select &All"},
                                                     {"cmdRemove", "&Remove"},
                                                     {"cmdRemoveAll", "Remove A&ll"},
                                                     {"lblFieldChosen", ""},
                                                     {"lstSelectItems", ""},
                                                     {"cmdPrint", "&Print"},
                                                     {"cmdClose", "Close"},
                                                     {"cmdHelp", "&Help"}}));
}

TEST(WindowTexts, OfTheExport) {
  EXPECT_EQ(CaptionsOf(kFrmexformatText),
            (Captions{{"lstFormats", "&Format:"}, {"cmdOK", "&OK"}, {"cmdCancel", "Cancel"}, {"cmdHelp", "&Help"}}));
  EXPECT_EQ(CaptionsOf(kFrmexnameText), (Captions{{"txtExportFileName", "&Export to:"},
                                                  {"cmdBrowse", "&Browse..."},
                                                  {"cmdOK", "&OK"},
                                                  {"cmdClose", "&Close"},
                                                  {"cmdHelp", "&Help"}}));
  EXPECT_EQ(CaptionsOf(kFrmexptblText), (Captions{{"lblTable", ""},
                                                  {"txtTable", "Ta&ble:"},
                                                  {"lblPath", ""},
                                                  {"cmdOK", "&OK"},
                                                  {"cmdCancel", "Cancel"},
                                                  {"cmdHelp", "&Help"}}));
}

TEST(WindowTexts, NameEveryControlOnceAndSayWhatItIsFor) {
  for (const auto* window : kWindows) {
    std::set<std::string_view> names;
    for (const auto& control : window->controls) {
      EXPECT_TRUE(names.insert(control.name).second) << control.name;
      EXPECT_GT(control.tip.size(), 3U) << control.name;
    }
  }
}

TEST(WindowTexts, ShareNoAccessKeyButTheTwoOfTheTanks) {
  std::vector<std::string> shared;
  for (const auto* window : kWindows) {
    std::map<int, std::string_view> keys;
    for (const auto& control : window->controls) {
      const int key = AccessKey(control.caption);
      if (key == 0) continue;
      const auto [other, is_new] = keys.try_emplace(key, control.name);
      if (!is_new) shared.push_back(std::string(other->second) + " " + std::string(control.name));
    }
  }
  EXPECT_EQ(shared, std::vector<std::string>{"cmdRemove cmdRunReport"}) << "both captions are as people know them";
}

}  // namespace
}  // namespace orvex::reports
