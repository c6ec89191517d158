#include "entry/tank_drawing.h"

#include <fmt/format.h>
#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <pugixml.hpp>
#include <random>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "entry/frmtank.h"
#include "shell/tank_types.h"
#include "store/number_text.h"

namespace orvex::test {
namespace {

using entry::FrmTank;
using entry::TankDrawing;
using ::testing::HasSubstr;
using ::testing::Not;
using Texts = std::map<std::string, std::string>;

constexpr std::string_view kTypes[] = {shell::kVerticalFixedRoof, shell::kHorizontal, shell::kInternalFloatingRoof,
                                       shell::kExternalFloatingRoof, shell::kDomedExternalFloatingRoof};

/// A form whose physical entries show these texts, by their fields.
FrmTank Form(std::string_view tank_type, const Texts& texts) {
  auto form = entry::MakeFrmTank(tank_type);
  for (const auto& [field, text] : texts) entry::Physical(form, field).box.text = text;
  return form;
}

pugi::xml_document Read(const std::string& svg) {
  pugi::xml_document document;
  const auto result = document.load_string(svg.c_str());
  EXPECT_TRUE(result) << result.description() << "\n" << svg;
  return document;
}

std::string TextOf(const pugi::xml_node& node) {
  if (node.type() == pugi::node_pcdata) return node.value();
  std::string text;
  for (const auto& child : node.children()) text += TextOf(child);
  return text;
}

std::vector<std::string> Words(const FrmTank& form) {
  std::vector<std::string> words;
  const auto document = Read(TankDrawing(form));
  for (const auto& text : document.child("svg").children("text")) words.push_back(TextOf(text));
  return words;
}

std::ptrdiff_t Parts(const FrmTank& form, std::string_view name) {
  const auto document = Read(TankDrawing(form));
  return std::ranges::count_if(document.child("svg").children(),
                               [&](const pugi::xml_node& node) { return node.attribute("class").value() == name; });
}

pugi::xml_node Part(const pugi::xml_document& document, const char* name) {
  return document.child("svg").find_child_by_attribute("class", name);
}

double NumberOf(const pugi::xml_node& node, const char* attribute) {
  return store::ParseNumber(node.attribute(attribute).value()).value_or(-1);
}

/// Height above the lower edge of the paper of the line of a level.
double LevelHeight(const FrmTank& form, const char* name) {
  const auto document = Read(TankDrawing(form));
  return entry::kDrawingHeight - NumberOf(Part(document, name), "y1");
}

/// Height by width of the drawn outline of the shell of a vertical tank.
double DrawnSlenderness(const FrmTank& form) {
  const auto document = Read(TankDrawing(form));
  // "Mleft top Lleft bottom Lright bottom ..."
  const std::string commands = Part(document, "shell").attribute("d").value();
  std::vector<double> numbers;
  std::istringstream words(commands);
  for (std::string word; words >> word;) {
    const auto digits = word.find_first_of("0123456789");
    if (digits != std::string::npos) numbers.push_back(store::ParseNumber(word.substr(digits)).value_or(-1));
  }
  return (numbers[3] - numbers[1]) / (numbers[4] - numbers[0]);
}

TEST(TankDrawing, ShowsEveryDimensionOfAVerticalTankWithItsNumber) {
  const auto words = Words(Form(shell::kVerticalFixedRoof, {{"DIAMETER", "30"},
                                                            {"HEIGHT S", "25.5"},
                                                            {"HEIGHT ML", "24"},
                                                            {"HEIGHT AL", "12"},
                                                            {"RF_TYPE", "Cone"},
                                                            {"RF_HEIGHT", "2"},
                                                            {"C_SLOPE", "0.0625"},
                                                            {"VENT_V", "-0.03"},
                                                            {"VENT_P", "0.03"},
                                                            {"VOLUME", "121,567.25"}}));
  for (const auto* dimension : {"D = 30 ft", "HS = 25.5 ft", "HLX = 24 ft", "HL = 12 ft", "HR = 2 ft",
                                "SR = 0.0625 ft/ft", "PBV = -0.03 psig", "PBP = 0.03 psig", "V = 121,567 gal"})
    EXPECT_THAT(words, ::testing::Contains(dimension));
}

TEST(TankDrawing, ShowsTheRadiusOfADomeInPlaceOfASlope) {
  const auto words =
      Words(Form(shell::kVerticalFixedRoof, {{"RF_TYPE", "Dome"}, {"D_RADIUS", "42"}, {"C_SLOPE", "0.0625"}}));
  EXPECT_THAT(words, ::testing::Contains("RR = 42 ft"));
  EXPECT_THAT(words, Not(::testing::Contains(HasSubstr("0.0625"))));
}

TEST(TankDrawing, ShowsEveryDimensionOfAHorizontalTankWithItsNumber) {
  const auto words =
      Words(Form(shell::kHorizontal,
                 {{"DIAMETER", "10"}, {"HEIGHT S", "32"}, {"VENT_V", "-0.5"}, {"VENT_P", "0"}, {"VOLUME", "18,000"}}));
  for (const auto* dimension : {"D = 10 ft", "L = 32 ft", "PBV = -0.5 psig", "PBP = 0 psig", "V = 18000 gal"})
    EXPECT_THAT(words, ::testing::Contains(dimension));
}

TEST(TankDrawing, ShowsEveryDimensionOfAnInternalFloatingRoofTankWithItsNumber) {
  const auto words = Words(Form(shell::kInternalFloatingRoof, {{"DIAMETER", "120"},
                                                               {"VOLUME", "4000000"},
                                                               {"COL_NO", "7"},
                                                               {"DECK_TYPE", "Bolted"},
                                                               {"DECK_SEAM_LENGTH", "2261.95"},
                                                               {"SD", "0.2"}}));
  for (const auto* dimension : {"D = 120 ft", "NC = 7", "V = 4,000,000 gal", "LSEAM = 2261.95 ft", "SD = 0.2 ft/sq ft"})
    EXPECT_THAT(words, ::testing::Contains(dimension));
}

TEST(TankDrawing, ShowsTheDiameterAndTheSealsOfAnExternalFloatingRoofTank) {
  for (const auto type : {shell::kExternalFloatingRoof, shell::kDomedExternalFloatingRoof}) {
    const auto words =
        Words(Form(type, {{"DIAMETER", "150"}, {"RIM_PRIM", "Mechanical shoe"}, {"RIM_SEC", "Shoe & <rim>"}}));
    for (const auto* text : {"D = 150 ft", "primary seal", "Mechanical shoe", "secondary seal", "Shoe & <rim>"})
      EXPECT_THAT(words, ::testing::Contains(text));
  }
}

TEST(TankDrawing, NamesADimensionThatIsNotGivenByItsSymbolAlone) {
  for (const auto* text : {"", "0", "-5", "ten", "1,5", "nan", "1e999"}) {
    const auto words = Words(Form(shell::kVerticalFixedRoof, {{"DIAMETER", text}, {"HEIGHT S", text}}));
    for (const auto* symbol : {"D", "HS", "HLX", "HL", "HR", "V"})
      EXPECT_THAT(words, ::testing::Contains(symbol)) << text;
  }
}

TEST(TankDrawing, NamesAQuantityAtTheTankByItsSymbol) {
  const auto words = Words(Form(shell::kVerticalFixedRoof, {{"DIAMETER", "30"}, {"HEIGHT S", "25.5"}}));
  for (const auto* symbol : {"D", "HS", "HLX", "HL", "HR", "SR", "PBV", "PBP"})
    EXPECT_THAT(words, ::testing::Contains(symbol));
}

TEST(TankDrawing, IsLegibleWhereAUnitIsAPixel) {
  for (const auto type : kTypes) {
    const auto document = Read(TankDrawing(Form(type, {})));
    EXPECT_GE(NumberOf(document.child("svg"), "font-size"), 13);
    for (const auto& index : document.select_nodes("//tspan[@font-size]"))
      EXPECT_GE(NumberOf(index.node(), "font-size"), 10);
  }
}

TEST(TankDrawing, ListsItsLinesWithRoomBetweenThem) {
  const Texts sealed = {{"RIM_PRIM", "Mechanical Shoe"}, {"RIM_SEC", "Rim-mounted"}};
  auto bolted = sealed;
  bolted.insert({"DECK_TYPE", "Bolted"});
  for (const auto& form :
       {Form(shell::kVerticalFixedRoof, {{"HEATED", "Yes"}}), Form(shell::kHorizontal, {{"HEATED", "Yes"}}),
        Form(shell::kInternalFloatingRoof, bolted), Form(shell::kExternalFloatingRoof, sealed),
        Form(shell::kDomedExternalFloatingRoof, sealed)}) {
    const auto document = Read(TankDrawing(form));
    std::set<double> lines;
    for (const auto& text : document.child("svg").children("text"))
      if (const double foot = NumberOf(text, "y"); foot > 300) lines.insert(foot);
    ASSERT_GE(lines.size(), 4U) << form.tank_type;
    for (auto line = lines.begin(); std::next(line) != lines.end(); ++line) EXPECT_GE(*std::next(line) - *line, 16);
    EXPECT_LE(*lines.rbegin(), entry::kDrawingHeight - 4) << form.tank_type;
  }
}

TEST(TankDrawing, FollowsTheProportionsThatAreTyped) {
  // 20 ft by 40 ft: half as high as wide.
  EXPECT_NEAR(DrawnSlenderness(Form(shell::kVerticalFixedRoof, {{"DIAMETER", "40"}, {"HEIGHT S", "20"}})), 0.5, 0.01);
  EXPECT_NEAR(DrawnSlenderness(Form(shell::kVerticalFixedRoof, {{"DIAMETER", "20"}, {"HEIGHT S", "24"}})), 1.2, 0.01);
}

TEST(TankDrawing, StaysReadableWhereATankIsFlatOrSlender) {
  EXPECT_NEAR(DrawnSlenderness(Form(shell::kVerticalFixedRoof, {{"DIAMETER", "400"}, {"HEIGHT S", "5"}})), 0.32, 0.01);
  EXPECT_NEAR(DrawnSlenderness(Form(shell::kVerticalFixedRoof, {{"DIAMETER", "1"}, {"HEIGHT S", "65"}})), 2, 0.01);
}

TEST(TankDrawing, DrawsAFloatingRoofTankAsHighAsItsVolumeSays) {
  // A liquid height of 1,000,000 * 0.13368 / (3.14159 * 50^2) = 17.02 ft, and a tenth more, is a shell of 18.72 ft on
  // 100 ft, flatter than is drawn; 4,000,000 gal are 74.9 ft.
  EXPECT_NEAR(DrawnSlenderness(Form(shell::kExternalFloatingRoof, {{"DIAMETER", "100"}, {"VOLUME", "1000000"}})), 0.45,
              0.01);
  EXPECT_NEAR(DrawnSlenderness(Form(shell::kExternalFloatingRoof, {{"DIAMETER", "100"}, {"VOLUME", "4000000"}})), 0.749,
              0.01);
}

TEST(TankDrawing, DrawsTheLevelsAtTheirHeights) {
  // The liquid stands 12 of 24 ft high: half as high as the shell.
  const auto half = Form(shell::kVerticalFixedRoof,
                         {{"DIAMETER", "24"}, {"HEIGHT S", "24"}, {"HEIGHT ML", "24"}, {"HEIGHT AL", "12"}});
  const auto floor = LevelHeight(half, "average-level") * 2 - LevelHeight(half, "maximum-level");
  // The floor is a little above the ground's line, 260 below the upper edge.
  EXPECT_NEAR(floor, entry::kDrawingHeight - 260, 5);
}

TEST(TankDrawing, NeverDrawsTheAverageLevelAboveTheMaximum) {
  const std::array<std::string, 10> heights = {"", "0", "-1", "1e300", "1e-300", "5", "20", "24", "65", "x"};
  for (const auto& shell_height : heights)
    for (const auto& maximum : heights)
      for (const auto& average : heights) {
        const auto form = Form(shell::kVerticalFixedRoof,
                               {{"HEIGHT S", shell_height}, {"HEIGHT ML", maximum}, {"HEIGHT AL", average}});
        EXPECT_LE(LevelHeight(form, "average-level"), LevelHeight(form, "maximum-level"))
            << shell_height << " " << maximum << " " << average;
      }
}

TEST(TankDrawing, DiffersForEachTypeAndKindOfRoof) {
  const std::vector<FrmTank> forms = {
      Form(shell::kVerticalFixedRoof, {{"RF_TYPE", "Cone"}}),
      Form(shell::kVerticalFixedRoof, {{"RF_TYPE", "Dome"}}),
      Form(shell::kVerticalFixedRoof, {{"RF_TYPE", "Dome"}, {"HEATED", "Yes"}}),
      Form(shell::kHorizontal, {{"UNDER", "No"}}),
      Form(shell::kHorizontal, {{"UNDER", "Yes"}}),
      Form(shell::kInternalFloatingRoof, {{"SELF_SUP", "Yes"}, {"DECK_TYPE", "Bolted"}}),
      Form(shell::kInternalFloatingRoof, {{"SELF_SUP", "Yes"}, {"DECK_TYPE", "Welded"}}),
      Form(shell::kInternalFloatingRoof, {{"SELF_SUP", "No"}, {"DECK_TYPE", "Bolted"}}),
      Form(shell::kInternalFloatingRoof, {{"SELF_SUP", "No"}, {"DECK_TYPE", "Bolted"}, {"DECK_CONSTRUCT", "Panel"}}),
      Form(shell::kExternalFloatingRoof, {{"RF_TYPE", "Pontoon"}}),
      Form(shell::kExternalFloatingRoof, {{"RF_TYPE", "Double Deck"}}),
      Form(shell::kDomedExternalFloatingRoof, {{"RF_TYPE", "Pontoon"}}),
      Form(shell::kDomedExternalFloatingRoof, {{"RF_TYPE", "Double Deck"}}),
  };
  std::set<std::string> drawings;
  for (const auto& form : forms) drawings.insert(TankDrawing(form));
  EXPECT_EQ(drawings.size(), forms.size());
}

TEST(TankDrawing, MarksAHeatedTank) {
  for (const auto type : {shell::kVerticalFixedRoof, shell::kHorizontal}) {
    EXPECT_EQ(Parts(Form(type, {{"HEATED", "Yes"}}), "heating"), 1);
    EXPECT_EQ(Parts(Form(type, {{"HEATED", "No"}}), "heating"), 0);
  }
}

TEST(TankDrawing, PutsAnUndergroundTankIntoTheGround) {
  EXPECT_EQ(Parts(Form(shell::kHorizontal, {{"UNDER", "Yes"}}), "soil"), 1);
  EXPECT_EQ(Parts(Form(shell::kHorizontal, {{"UNDER", "Yes"}}), "saddle"), 0);
  EXPECT_EQ(Parts(Form(shell::kHorizontal, {{"UNDER", "No"}}), "saddle"), 2);
}

TEST(TankDrawing, DrawsAsManyColumnsAsCanBeToldApart) {
  const std::pair<const char*, int> drawn[] = {{"1", 1}, {"6", 6}, {"7", 7}, {"81", 7}, {"1e300", 7}, {"0", 1}};
  for (const auto& [number, columns] : drawn)
    EXPECT_EQ(Parts(Form(shell::kInternalFloatingRoof, {{"COL_NO", number}}), "column"), columns) << number;
  EXPECT_EQ(Parts(Form(shell::kInternalFloatingRoof, {{"COL_NO", "7"}, {"SELF_SUP", "Yes"}}), "column"), 0);
}

TEST(TankDrawing, DrawsASecondarySealOnlyWhereThereIsOne) {
  for (const auto type : {shell::kInternalFloatingRoof, shell::kExternalFloatingRoof}) {
    EXPECT_EQ(Parts(Form(type, {{"RIM_SEC", "Rim-mounted"}}), "secondary-seal"), 2);
    EXPECT_EQ(Parts(Form(type, {{"RIM_SEC", "None"}}), "secondary-seal"), 0);
    EXPECT_EQ(Parts(Form(type, {}), "secondary-seal"), 0);
    EXPECT_EQ(Parts(Form(type, {}), "primary-seal"), 2);
  }
}

TEST(TankDrawing, PaintsTheShellInItsColor) {
  std::set<std::string> fills;
  auto none = entry::MakeFrmTank(shell::kVerticalFixedRoof);
  const auto& colors = entry::Physical(none, "SHL COLSHD").info->items;
  for (const auto color : colors) {
    const auto document = Read(TankDrawing(Form(shell::kVerticalFixedRoof, {{"SHL COLSHD", std::string(color)}})));
    fills.insert(Part(document, "shell").attribute("fill").value());
  }
  EXPECT_EQ(fills.size(), colors.size());
}

void ExpectWithinThePaper(const pugi::xml_node& node, const std::string& svg) {
  for (const std::string name : {"x", "x1", "x2", "width", "y", "y1", "y2", "height"}) {
    if (!node.attribute(name.c_str())) continue;
    const double number = NumberOf(node, name.c_str());
    const int edge = name.front() == 'x' || name == "width" ? entry::kDrawingWidth : entry::kDrawingHeight;
    ASSERT_TRUE(number >= 0 && number <= edge) << name << " of " << svg;
  }
  const std::string commands = node.attribute("d").value();
  ASSERT_EQ(commands.find_first_not_of("MLQZ 0123456789.-"), std::string::npos) << commands;
}

TEST(TankDrawing, IsWellFormedAndWithinItsPaperWhateverIsTyped) {
  const std::vector<std::string> hostile = {"",
                                            "0",
                                            "-0",
                                            "1e300",
                                            "-1e300",
                                            "1e-300",
                                            "4.9e-324",
                                            "nan",
                                            "inf",
                                            "30",
                                            "5",
                                            "400",
                                            "0.01",
                                            "1,000",
                                            "1,5",
                                            "abc",
                                            "<svg>",
                                            "&amp;",
                                            "\"'>",
                                            "]]>",
                                            "--",
                                            "65",
                                            "Yes",
                                            "No",
                                            "Cone",
                                            "Dome",
                                            "Pontoon",
                                            "Double Deck",
                                            "Bolted",
                                            "Welded",
                                            "Panel",
                                            "None",
                                            "\x01\x02\x1B",
                                            "\xFF\xFE",
                                            "\xEF\xBF\xBE",
                                            "\xED\xA0\x80",
                                            std::string("a\0b", 3),
                                            std::string(400, '9'),
                                            "Vapor-mounted, with a name that is much too long for the paper",
                                            "Gray/Medium",
                                            "White/White (D)",
                                            "油槽"};
  std::mt19937 random(5);
  const auto any = [&](std::size_t count) { return random() % count; };
  for (int i = 0; i < 5000; ++i) {
    auto form = entry::MakeFrmTank(kTypes[any(std::size(kTypes))]);
    for (auto& entry : entry::EntriesOf(form, entry::PhysicalSection(form))) {
      auto& text = entry.box.text;
      text = hostile[any(hostile.size())];
      if (any(4) == 0) text = fmt::format("{:.3f}", std::pow(10.0, static_cast<double>(any(8)) - 3));
      if (any(8) == 0)
        for (auto& byte : text) byte = static_cast<char>(any(256));
      if (!entry.info->items.empty() && any(2) == 0) text = entry.info->items[any(entry.info->items.size())];
    }
    const auto svg = TankDrawing(form);
    const auto document = Read(svg);
    ASSERT_STREQ(document.first_child().name(), "svg");
    for (const auto& node : document.child("svg").children()) ExpectWithinThePaper(node, svg);
  }
}

}  // namespace
}  // namespace orvex::test
