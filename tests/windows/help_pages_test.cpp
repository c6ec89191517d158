#include <fmt/format.h>
#include <gmock/gmock.h>

#include <algorithm>
#include <cctype>
#include <charconv>
#include <filesystem>
#include <regex>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "emission/fitting_counts.h"
#include "emission/floating_roof.h"
#include "emission/solar.h"
#include "entry/frmcomponent.h"
#include "entry/frmcopydata.h"
#include "entry/frmeditrec.h"
#include "entry/frmrecdelete.h"
#include "entry/frmrecfit.h"
#include "entry/frmspecpro.h"
#include "entry/frmtank_text.h"
#include "exchange/frmimport.h"
#include "refdata/frmchemical.h"
#include "refdata/frmdeckseam.h"
#include "refdata/frmfitting.h"
#include "refdata/frmmet.h"
#include "refdata/frmprofile.h"
#include "refdata/frmrimseal.h"
#include "reports/export_format.h"
#include "reports/frmexformat.h"
#include "reports/frmexname.h"
#include "reports/frmexptbl.h"
#include "reports/frmmonth.h"
#include "reports/frmprintrep.h"
#include "reports/frmrepselect.h"
#include "reports/frmreptyp.h"
#include "reports/frmtankrep.h"
#include "shell/frmchange.h"
#include "shell/frmclientdata.h"
#include "shell/frmnotice.h"
#include "shell/frmoverview.h"
#include "shell/frmqmenu.h"
#include "shell/frmstart.h"
#include "shell/frmtankdata.h"
#include "shell/menu.h"
#include "shell/tank_types.h"
#include "support/file_content.h"

namespace orvex::test {
namespace {

using ::testing::HasSubstr;

/// The pages as they are put into the help file.
const std::filesystem::path kPages = ORVEX_HELP_FOLDER;
const std::filesystem::path kSources = ORVEX_SOURCES;

constexpr const shell::WindowText* kWindows[] = {
    &shell::kFrmstartText,     &shell::kFrmNoticeText,   &shell::kFrmoverviewText,   &shell::kFrmqmenuText,
    &shell::kFrmChangeText,    &shell::kFrmtankdataText, &shell::kFrmclientdataText, &reports::kFrmmonthText,
    &reports::kFrmtankrepText, &reports::kFrmreptypText, &reports::kFrmprintrepText};

/// The small windows of tank entry.
constexpr const shell::WindowText* kEntryWindows[] = {&entry::kFrmeditrecText,   &entry::kFrmrecdeleteText,
                                                      &entry::kFrmCopyDataText,  &entry::kFrmrecfitText,
                                                      &entry::kFrmcomponentText, &entry::kFrmspecproText};

/// The windows of the reference tables.
constexpr const shell::WindowText* kReferenceWindows[] = {
    &refdata::kFrmchemicalText, &refdata::kFrmMetText,     &refdata::kFrmFittingText,  &refdata::kFrmRimSealText,
    &refdata::kFrmDeckSeamText, &refdata::kFrmProfileText, &reports::kFrmrepselectText};

/// The windows of imports and exports.
constexpr const shell::WindowText* kExchangeWindows[] = {&exchange::kFrmImportText, &reports::kFrmexformatText,
                                                         &reports::kFrmexnameText, &reports::kFrmexptblText};

/// What the windows, the menus and the other pages ask for.
constexpr std::string_view kTopics[] = {"index",
                                        "first_report",
                                        "main_window",
                                        "quick_menu",
                                        "database_locations",
                                        "locate_database",
                                        "choose_tanks",
                                        "report_type",
                                        "backup",
                                        "choose_months",
                                        "print_report",
                                        "report_window",
                                        "errors",
                                        "fittings",
                                        "equations_fixed_roof",
                                        "equations",
                                        "equations_floating_roof",
                                        "speciation",
                                        "mixtures",
                                        "weather",
                                        "chemicals",
                                        "tank_fields",
                                        "reports_read",
                                        "tank_entry",
                                        "tank_identification",
                                        "tank_physical",
                                        "tank_site",
                                        "tank_liquid",
                                        "tank_months",
                                        "components",
                                        "fittings_entry",
                                        "copy_tank",
                                        "edit_tank",
                                        "delete_tanks",
                                        "reference_data",
                                        "chemicals_edit",
                                        "weather_edit",
                                        "fittings_edit",
                                        "rim_seals_edit",
                                        "deck_seams_edit",
                                        "profiles_edit",
                                        "report_selection",
                                        "import_tanks",
                                        "import_reference",
                                        "export_tables",
                                        "csv_files"};

std::string Page(std::string_view topic) { return FileContent(kPages / (std::string(topic) + ".html")); }

std::vector<std::string> PageNames() {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(kPages))
    if (entry.path().extension() == ".html") names.push_back(entry.path().stem());
  return names;
}

std::vector<std::string> AllOf(const std::string& text, const std::string& pattern) {
  const std::regex regex(pattern);
  std::vector<std::string> found;
  for (std::sregex_iterator match(text.begin(), text.end(), regex), end; match != end; ++match)
    found.push_back((*match)[1]);
  return found;
}

/// The words of a page, a single blank between them.
std::string Words(const std::string& text) {
  const auto plain =
      std::regex_replace(std::regex_replace(text, std::regex("<[^>]*>"), " "), std::regex("&quot;"), "\"");
  return std::regex_replace(plain, std::regex("\\s+"), " ");
}

std::string Trimmed(const std::string& text) { return std::regex_replace(text, std::regex("^ +| +$"), ""); }

/// The cells of each row of a page's tables.
std::vector<std::vector<std::string>> Rows(std::string_view topic) {
  std::vector<std::vector<std::string>> rows;
  for (const auto& row : AllOf(Page(topic), "<tr>([\\s\\S]*?)</tr>")) rows.push_back(AllOf(row, "<td>(.*?)</td>"));
  return rows;
}

double Number(const std::string& text) {
  double number = -1;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

TEST(HelpPages, HoldEveryTopic) {
  for (const auto topic : kTopics)
    EXPECT_TRUE(std::filesystem::exists(kPages / (std::string(topic) + ".html"))) << topic;
}

TEST(HelpPages, StandInTheContents) {
  const auto refs = AllOf(FileContent(kPages / "orvex.qhp"), "<section title=\"[^\"]+\" ref=\"([^\"#]+)\"");
  for (const auto& name : PageNames()) EXPECT_EQ(std::ranges::count(refs, name + ".html"), 1) << name;
}

TEST(HelpPages, CanBeFoundByTheirTopic) {
  const auto project = FileContent(kPages / "orvex.qhp");
  for (const auto topic : kTopics) EXPECT_THAT(project, HasSubstr(fmt::format("id=\"{0}\" ref=\"{0}.html\"", topic)));
}

TEST(HelpPages, LinkToPagesAndHeadingsThatAreThere) {
  int links = 0;
  for (const auto& name : PageNames()) {
    for (const auto& link : AllOf(Page(name), "<a href=\"([^\"]*)\"")) {
      ++links;
      const auto hash = link.find('#');
      const auto target = hash == 0 ? name + ".html" : link.substr(0, hash);
      ASSERT_TRUE(std::filesystem::is_regular_file(kPages / target)) << name << " links to " << link;
      if (hash == std::string::npos) continue;
      EXPECT_THAT(FileContent(kPages / target), HasSubstr(fmt::format("<a name=\"{}\">", link.substr(hash + 1))))
          << name << " links to " << link;
    }
  }
  EXPECT_GT(links, 50);
}

TEST(HelpPages, LeadFromTheContentsAndTheIndexToHeadingsThatAreThere) {
  for (const auto& ref : AllOf(FileContent(kPages / "orvex.qhp"), "ref=\"([^\"]*)\"")) {
    const auto hash = ref.find('#');
    const auto page = FileContent(kPages / ref.substr(0, hash));
    EXPECT_FALSE(page.empty()) << ref;
    if (hash == std::string::npos) continue;
    EXPECT_THAT(page, HasSubstr(fmt::format("<a name=\"{}\">", ref.substr(hash + 1))));
  }
}

TEST(HelpPages, ShowPicturesThatAreThereAndLeaveNoneOut) {
  std::set<std::string> shown;
  for (const auto& name : PageNames())
    for (const auto& picture : AllOf(Page(name), "<img src=\"([^\"]*)\" alt=\"[^\"]+\"")) shown.insert(picture);
  std::set<std::string> there;
  for (const auto& entry : std::filesystem::directory_iterator(kPages / "pictures"))
    there.insert("pictures/" + entry.path().filename().string());
  EXPECT_EQ(shown, there);
}

TEST(HelpPages, HaveOneTitleEachAndNoFormulaLeftOver) {
  std::set<std::string> titles;
  for (const auto& name : PageNames()) {
    const auto page = Page(name);
    const auto headings = AllOf(page, "<h1>(.*)</h1>");
    ASSERT_EQ(headings.size(), 1U) << name;
    EXPECT_TRUE(titles.insert(headings.front()).second) << name;
    EXPECT_EQ(page.find('$'), std::string::npos) << name;
    EXPECT_EQ(page.find("@M"), std::string::npos) << name;
    EXPECT_EQ(page.find(".md\""), std::string::npos) << name;
    EXPECT_EQ(page.find(".md#"), std::string::npos) << name;
    EXPECT_EQ(page.find("language-math"), std::string::npos) << name;
  }
}

TEST(HelpPages, WriteEquationsWithIndicesAndExponents) {
  EXPECT_THAT(Page("equations_fixed_roof"),
              HasSubstr("<p class=\"equation\"><i>V</i><sub>V</sub> = (π / 4) <i>D</i><sub>E</sub><sup>2</sup> "
                        "<i>H</i><sub>VO</sub></p>"));
}

/// A source file without what only a mistake in the program can say.
std::string WhatPeopleRead(const std::filesystem::path& source) {
  return std::regex_replace(FileContent(source), std::regex(R"re(std::(?:out_of_range|logic_error)\([^;]*;)re"), "");
}

/// The texts of a source file that a person reads as sentences; those that stand behind one another are one.
std::vector<std::string> Sentences(const std::filesystem::path& source) {
  std::vector<std::string> found;
  for (const auto& literals :
       AllOf(WhatPeopleRead(source), R"re(("(?:[^"\\\n]|\\.)*"(?:\s*"(?:[^"\\\n]|\\.)*")*))re")) {
    auto text = std::regex_replace(literals, std::regex(R"re(([^\\])"\s*"|^"|"$)re"), "$1");
    text = std::regex_replace(text, std::regex(R"re(\\r|\\n)re"), " ");
    text = Trimmed(std::regex_replace(text, std::regex(R"re(\\")re"), "\""));
    if (text.starts_with("SELECT ")) continue;
    if (text.find(' ') != std::string::npos && std::string_view(".!?)").find(text.back()) != std::string_view::npos)
      found.push_back(Words(text));
  }
  return found;
}

/// How many messages of a source file there are; each must be told on the page of messages.
int ExpectMessagesTold(const std::filesystem::path& source, const std::string& errors) {
  const auto sentences = Sentences(source);
  for (const auto& sentence : sentences) {
    // A name or number stands where the braces are.
    const std::regex gap("\\{[0-9]*\\}");
    for (std::sregex_token_iterator part(sentence.begin(), sentence.end(), gap, -1), end; part != end; ++part)
      EXPECT_THAT(errors, HasSubstr(Trimmed(*part))) << source;
  }
  return static_cast<int>(sentences.size());
}

TEST(HelpPages, ExplainEveryMessage) {
  const auto errors = Words(Page("errors"));
  int messages = 0;
  for (const auto* name :
       {"emission/validate.cpp", "emission/validate_tank.cpp", "emission/validate_mixtures.cpp",
        "emission/validate_throughput.cpp", "emission/emiss_fix.cpp", "emission/emiss_float.cpp", "shell/backup.cpp",
        "shell/restore.cpp", "shell/new_client.cpp", "shell/database_names.cpp", "shell/frmchange.cpp",
        "shell/start_up.cpp", "shell/database_locations.h", "reports/frmprintrep.cpp"})
    messages += ExpectMessagesTold(kSources / name, errors);
  EXPECT_GT(messages, 60);
}

TEST(HelpPages, ExplainEveryMessageOfTankEntry) {
  const auto errors = Words(Page("errors"));
  int messages = 0;
  for (const auto& source : std::filesystem::directory_iterator(kSources / "entry"))
    if (source.path().extension() == ".cpp") messages += ExpectMessagesTold(source.path(), errors);
  EXPECT_GT(messages, 30);
}

/// What an import says of a tank or row is told with the log, all else with the messages.
TEST(HelpPages, ExplainEveryMessageOfImportsAndExports) {
  std::string told;
  for (const auto* topic : {"errors", "import_tanks", "import_reference", "export_tables", "csv_files"})
    told += Words(Page(topic));
  int messages = 0;
  for (const auto& source : std::filesystem::directory_iterator(kSources / "exchange"))
    if (source.path().extension() == ".cpp") messages += ExpectMessagesTold(source.path(), told);
  for (const auto* name : {"reports/export.cpp", "reports/frmexname.cpp"})
    messages += ExpectMessagesTold(kSources / name, told);
  EXPECT_GT(messages, 40);
}

/// What a plot says is told with its window, all else with the messages.
TEST(HelpPages, ExplainEveryMessageOfTheReferenceEditors) {
  const auto errors = Words(Page("errors"));
  std::string windows;
  for (const auto* window : kReferenceWindows) windows += Words(Page(window->topic));
  int messages = 0, said_by_plots = 0;
  for (const auto& source : std::filesystem::directory_iterator(kSources / "refdata")) {
    const auto name = source.path().filename().string();
    if (name.ends_with("_plot.cpp")) {
      said_by_plots += ExpectMessagesTold(source.path(), windows);
    } else if (name.ends_with(".cpp") || name == "questions.h") {
      messages += ExpectMessagesTold(source.path(), errors);
    }
  }
  EXPECT_GT(messages, 25);
  EXPECT_GT(said_by_plots, 10);
}

/// A text as a person reads it: without the mark of its access key.
std::string Read(std::string_view caption) {
  std::string text(caption);
  std::erase(text, '&');
  return Trimmed(std::regex_replace(Trimmed(text), std::regex(":$"), ""));
}

std::string PageText(std::string_view topic) {
  auto text = Words(Page(topic));
  text = std::regex_replace(text, std::regex("&gt;"), ">");
  return std::regex_replace(text, std::regex("&lt;"), "<");
}

TEST(HelpPages, AreThereForEveryWindowAndTellEveryControlOfIt) {
  for (const auto* window : kWindows) {
    const auto text = PageText(window->topic);
    EXPECT_FALSE(text.empty()) << window->name << " asks for " << window->topic;
    if (window->topic == "index") continue;
    EXPECT_THAT(text, HasSubstr(std::string(window->title)));
    for (const auto& control : window->controls) {
      // The months are told as "January to December".
      if (control.name.starts_with("chk") && control.name != "chkJAN" && control.name != "chkDEC") continue;
      if (control.name.starts_with("fra")) continue;
      EXPECT_THAT(text, HasSubstr(Read(control.caption))) << window->name << " " << control.name;
    }
  }
}

/// The page of the help on a page of the tank editor.
std::string_view TopicOf(entry::Section section) {
  if (section == entry::Section::kIdentification) return "tank_identification";
  if (section == entry::Section::kSite) return "tank_site";
  return section < entry::Section::kSite ? "tank_physical" : "tank_liquid";
}

/// A page that tells a control has an anchor for it, which the control's key for help leads to.
void ExpectControlTold(std::string_view topic, const shell::ControlText& control) {
  std::string name(control.name);
  std::ranges::transform(name, name.begin(), [](unsigned char letter) { return std::tolower(letter); });
  EXPECT_THAT(Page(topic), HasSubstr(fmt::format("<a name=\"{}\"></a>", name))) << topic;
  EXPECT_THAT(PageText(topic), HasSubstr(Read(control.caption))) << topic << " " << name;
}

TEST(HelpPages, TellEveryControlOfTheSmallWindowsOfTankEntry) {
  for (const auto* window : kEntryWindows) {
    EXPECT_THAT(PageText(window->topic), HasSubstr(std::string(window->title)));
    for (const auto& control : window->controls) ExpectControlTold(window->topic, control);
  }
}

TEST(HelpPages, TellEveryControlOfTheWindowsOfReferenceData) {
  for (const auto* window : kReferenceWindows) {
    EXPECT_THAT(PageText(window->topic), HasSubstr(std::string(window->title)));
    for (const auto& control : window->controls) ExpectControlTold(window->topic, control);
  }
}

TEST(HelpPages, TellEveryControlOfTheWindowsOfImportsAndExports) {
  for (const auto* window : kExchangeWindows) {
    EXPECT_THAT(PageText(window->topic), HasSubstr(std::string(window->title)));
    for (const auto& control : window->controls) ExpectControlTold(window->topic, control);
  }
}

TEST(HelpPages, TellEveryFormatOfAnExport) {
  for (const auto& format : reports::ExportFormats())
    EXPECT_THAT(PageText("export_tables"), HasSubstr(std::string(format.text)));
}

TEST(HelpPages, TellTheHeadingsOverTheEntriesOfReferenceData) {
  const auto expect_told = [](std::string_view topic, std::span<const refdata::EntryInfo> infos) {
    for (const auto& info : infos) {
      EXPECT_THAT(PageText(topic), HasSubstr(Read(info.group))) << info.text.name;
      for (const auto item : info.items) EXPECT_THAT(PageText(topic), HasSubstr(std::string(item))) << info.text.name;
    }
  };
  expect_told("chemicals_edit", refdata::kChemicalEntries);
  expect_told("weather_edit", refdata::kMetEntries);
  expect_told("fittings_edit", refdata::kFittingEntries);
  expect_told("rim_seals_edit", refdata::kRimSealEntries);
  expect_told("deck_seams_edit", refdata::kDeckSeamEntries);
}

TEST(HelpPages, TellEveryEntryOfATankAndEveryItemOfItsLists) {
  for (const auto& info : entry::kEntryInfos) {
    const auto topic = TopicOf(info.section);
    ExpectControlTold(topic, info.text);
    for (auto item : info.items) {
      if (item.ends_with(entry::kDefaultMark)) item.remove_suffix(entry::kDefaultMark.size());
      EXPECT_THAT(PageText(topic), HasSubstr(Words(std::string(item)))) << info.text.name;
    }
  }
}

TEST(HelpPages, TellEveryMonthOfATank) {
  for (const auto& month : entry::kMonthTexts) {
    ExpectControlTold("tank_months", {month.chk.name, "", ""});
    ExpectControlTold("tank_months", month.txtThru);
    ExpectControlTold("tank_months", month.cboMix);
  }
}

TEST(HelpPages, TellEveryCommandOfATank) {
  const std::string_view topics[] = {"tank_entry", "tank_physical", "tank_liquid", "tank_months"};
  for (const auto& control : entry::kFrmTankCommands) {
    if (control.name == "tabPages") continue;
    std::string name(control.name);
    std::ranges::transform(name, name.begin(), [](unsigned char letter) { return std::tolower(letter); });
    const auto* const topic = std::ranges::find_if(topics, [&](std::string_view page) {
      return Page(page).find(fmt::format("<a name=\"{}\"></a>", name)) != std::string::npos;
    });
    ASSERT_NE(topic, std::end(topics)) << name;
    ExpectControlTold(*topic, control);
  }
  for (const auto caption : entry::kPageCaptions) EXPECT_THAT(PageText("tank_entry"), HasSubstr(Read(caption)));
}

void ExpectMenuTold(std::span<const shell::MenuEntry> menu, const std::string& text) {
  for (const auto& entry : menu) {
    if (entry.IsSeparator()) continue;
    EXPECT_THAT(text, HasSubstr(Read(entry.text)));
    ExpectMenuTold(entry.entries, text);
  }
}

TEST(HelpPages, TellEveryMenu) { ExpectMenuTold(shell::kMainMenu, PageText("main_window")); }

TEST(HelpPages, TellTheAbsorptanceOfEachPaintAsItIsComputed) {
  int paints = 0;
  for (const auto& row : Rows("equations")) {
    if (row.size() != 3 || row[0].find('/') == std::string::npos || Number(row[1]) < 0) continue;
    ++paints;
    EXPECT_EQ(Number(row[1]), emission::ShellSolar(row[0], "Good")) << row[0];
    EXPECT_EQ(Number(row[2]), emission::ShellSolar(row[0], "Poor")) << row[0];
  }
  EXPECT_EQ(paints, 6);
}

TEST(HelpPages, TellTheClingageAsItIsComputed) {
  int rows = 0;
  for (const auto& row : Rows("equations_floating_roof")) {
    if (row.size() != 4 || Number(row[1]) < 0) continue;
    ++rows;
    const std::string_view category = row[0] == "Crude Oils" ? shell::kCrudeOils : shell::kOrganicLiquids;
    EXPECT_EQ(Number(row[1]), emission::Clingage(category, "Light Rust"));
    EXPECT_EQ(Number(row[2]), emission::Clingage(category, "Dense Rust"));
    EXPECT_EQ(Number(row[3]), emission::Clingage(category, "Gunite Lining"));
  }
  EXPECT_EQ(rows, 2);
}

TEST(HelpPages, TellTheNumberOfColumnsAsItIsComputed) {
  int bands = 0;
  for (const auto& row : Rows("fittings")) {
    for (std::size_t i = 0; row.size() == 6 && i < row.size(); i += 2) {
      ++bands;
      const bool last = row[i].starts_with("above ");
      const double diameter = Number(row[i].substr(row[i].rfind(' ') + 1));
      EXPECT_EQ(Number(row[i + 1]), emission::Columns(last ? diameter + 1 : diameter)) << row[i];
      EXPECT_NE(Number(row[i + 1]), emission::Columns(last ? diameter : diameter + 1)) << row[i];
    }
  }
  EXPECT_EQ(bands, 15);
}

TEST(HelpPages, TellTheNumberOfRoofLegsAsItIsComputed) {
  int bands = 0;
  for (const auto& row : Rows("fittings")) {
    if (row.size() != 4 || Number(row[0]) < 0) continue;
    if (row[0].find(' ') != std::string::npos) continue;
    ++bands;
    const double diameter = Number(row[0]);
    EXPECT_EQ(Number(row[1]), emission::PontoonRoofLegs(diameter)) << row[0];
    EXPECT_EQ(Number(row[2]), emission::CenterRoofLegs(diameter)) << row[0];
    EXPECT_EQ(Number(row[3]), emission::DoubleDeckRoofLegs(diameter)) << row[0];
  }
  EXPECT_EQ(bands, 38);
}

TEST(HelpPages, TellTheNumberOfBreakersAndDrainsAsItIsComputed) {
  int bands = 0;
  for (const auto& row : Rows("fittings")) {
    if (row.size() != 4 || (row[0].find("below") == std::string::npos && row[0].find("above") == std::string::npos))
      continue;
    ++bands;
    const double diameter = row[0].starts_with("below") ? 1 : Number(row[0]);
    EXPECT_EQ(Number(row[1]), emission::Breakers(diameter, "Pontoon")) << row[0];
    EXPECT_EQ(Number(row[2]), emission::Breakers(diameter, "Double Deck")) << row[0];
    EXPECT_EQ(Number(row[3]), emission::RoofDrains(diameter, "Double Deck")) << row[0];
  }
  EXPECT_EQ(bands, 7);
}

}  // namespace
}  // namespace orvex::test
