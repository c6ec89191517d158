#include "refdata/weather_plot.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <rapidcheck/gtest.h>

#include "refdata/plot_fixture.h"
#include "shell/periods.h"
#include "store/field_table.h"

namespace orvex::refdata {
namespace {

using test::HeldTexts;
using test::Picture;
using ::testing::HasSubstr;

constexpr std::string_view kPrefixes[] = {"TAX_", "TAN_", "INSOL_", "WIND_"};

/// Entries of the 52 numbers of a city, by the fields of its table.
const std::vector<EntryInfo>& Infos() {
  static const auto kInfos = [] {
    std::vector<EntryInfo> all;
    for (const auto& field : store::FindTable("met").fields)
      for (const auto prefix : kPrefixes)
        if (field.name.starts_with(prefix)) all.push_back({{field.name, "", ""}, EntryKind::kNumber, field.name, ""});
    return all;
  }();
  return kInfos;
}

RecordEditor City(const HeldTexts& texts) { return test::RecordOf(Infos(), texts); }

HeldTexts EachMonth(std::string_view prefix, const std::string& text) {
  HeldTexts texts;
  for (const auto& month : shell::kMonths) texts.emplace_back(fmt::format("{}{}", prefix, month.suffix), text);
  return texts;
}

HeldTexts Ordinary() {
  auto texts = EachMonth("TAX_", "80");
  for (const auto& [prefix, text] : {std::pair("TAN_", "20"), std::pair("INSOL_", "1500"), std::pair("WIND_", "8")})
    for (auto& month : EachMonth(prefix, text)) texts.push_back(std::move(month));
  return texts;
}

TEST(WeatherPlot, HasAllFieldsOfACity) { EXPECT_EQ(Infos().size(), 52U); }

// 20 to 80 F: an axis from 0 to 80 in steps of 20 (a fourth of 80). The panel lies between y = 48 and 176, so that 80 F
// is at its upper edge and 20 F at 176 - 128 / 4 = 144.
TEST(WeatherPlot, PlacesTemperaturesByTheAxis) {
  const Picture picture(WeatherPlot(City(Ordinary())));
  const auto curves = picture.Parts("curve");
  ASSERT_EQ(curves.size(), 4U);
  EXPECT_THAT(curves[0].attribute("d").value(), HasSubstr(" 48.00 L"));
  EXPECT_THAT(curves[1].attribute("d").value(), HasSubstr(" 144.00 L"));
  EXPECT_EQ(picture.Parts("band").size(), 11U);
  EXPECT_EQ(picture.Parts("frame").size(), 3U);
  EXPECT_TRUE(picture.Parts("shade").empty());
  EXPECT_TRUE(picture.Parts("level").empty());
}

TEST(WeatherPlot, DrawsTheYearAsADashedLine) {
  auto texts = Ordinary();
  texts.emplace_back("TAX_ANN", "60");
  texts.emplace_back("WIND_ANN", "0");
  const Picture picture(WeatherPlot(City(texts)));
  const auto levels = picture.Parts("level");
  ASSERT_EQ(levels.size(), 2U);
  EXPECT_EQ(Picture::Number(levels[0], "y1"), 80);  // 176 - 128 x 60 / 80
  EXPECT_STRNE(levels[0].attribute("stroke-dasharray").value(), "");
}

TEST(WeatherPlot, MarksAMonthWhoseMinimumIsAboveItsMaximum) {
  auto texts = Ordinary();
  texts.emplace_back("TAN_MAR", "81");
  const auto form = City(texts);
  const Picture picture(WeatherPlot(form));
  EXPECT_EQ(WeatherSummary(form), "The minimum is above the maximum in March.");
  EXPECT_THAT(picture.Words(), HasSubstr("The minimum is above the maximum in March."));
  const auto shades = picture.Parts("shade");
  ASSERT_EQ(shades.size(), 1U);
  // The third of twelve equal columns.
  const auto frame = picture.Parts("frame").front();
  const double column = Picture::Number(frame, "width") / 12;
  EXPECT_NEAR(Picture::Number(shades.front(), "x"), Picture::Number(frame, "x") + 2 * column, 0.011);
  EXPECT_NEAR(Picture::Number(shades.front(), "width"), column, 0.011);
}

TEST(WeatherPlot, CountsManySuchMonths) {
  auto texts = Ordinary();
  for (const auto* field : {"TAN_JAN", "TAN_MAY", "TAN_DEC"}) texts.emplace_back(field, "90");
  EXPECT_EQ(WeatherSummary(City(texts)), "In 3 months the minimum is above the maximum.");
}

TEST(WeatherPlot, TakesEqualTemperaturesForGood) {
  auto texts = Ordinary();
  texts.emplace_back("TAN_MAR", "80");
  EXPECT_EQ(WeatherSummary(City(texts)), "Dashed: the annual values.");
}

TEST(WeatherPlot, LeavesOutWhatIsNotGiven) {
  auto texts = Ordinary();
  texts.emplace_back("TAX_JUN", "");
  const Picture picture(WeatherPlot(City(texts)));
  EXPECT_EQ(picture.Parts("curve").size(), 5U);  // that of the maximum has two pieces
  EXPECT_EQ(picture.Parts("band").size(), 9U);   // none beside June
}

TEST(WeatherPlot, OfANewRecordSaysThatNothingIsFilled) {
  const Picture picture(WeatherPlot(City({})));
  EXPECT_THAT(picture.Words(), HasSubstr("No weather is filled in yet."));
  EXPECT_TRUE(picture.Parts("curve").empty());
}

RC_GTEST_PROP(AnyWeatherPlot, IsAWholePictureOnThePaper, ()) {
  HeldTexts texts;
  for (const auto& info : Infos()) texts.emplace_back(info.field, *rc::gen::elementOf(test::HostileNumbers()));
  const auto form = City(texts);
  Picture(WeatherPlot(form)).ExpectAllOnThePaper();
  RC_ASSERT(!WeatherSummary(form).empty());
}

}  // namespace
}  // namespace orvex::refdata
