#include <fmt/format.h>

#include <set>

#include "exchange/tank_import_fixture.h"
#include "shell/periods.h"
#include "store/letter_case.h"

namespace orvex::exchange {
namespace {

using store::Value;
using test::kImportedMessage;
using test::Rows;

using Expected = std::vector<std::pair<std::string, Value>>;

/// What a row holds under these names; all its other fields must be among `others`.
void ExpectRow(store::RecordSet row, const Expected& expected, const std::set<std::string>& others = {}) {
  std::set<std::string> named = others;
  for (const auto& [field, value] : expected) {
    named.insert(field);
    EXPECT_TRUE(row.Get(field) == value) << field << " holds '" << row.TextOrEmpty(field) << "', not '"
                                         << value.TextOrEmpty() << "'";
  }
  for (int i = 0; i < row.FieldCount(); ++i) EXPECT_TRUE(named.contains(row.FieldName(i))) << row.FieldName(i);
}

class TankMappingTest : public test::TankImportTest {
 protected:
  void ImportGood() {
    Import();
    for (const auto& told : Told()) EXPECT_EQ(told, kImportedMessage);
  }

  /// A tank of this type with a text, number or mark of its own in every field.
  void AddFullTank(const std::string& type, test::TankFiles::Changes changes) {
    files_.AddTank("1", "T-1");
    files_.tanks.front() = {{"IDX_ID", "1"},
                            {"ID", "T-1"},
                            {"TANK_TYPE", type},
                            {"TCITY", "Harborton"},
                            {"TSTATE", "Kansas"},
                            {"CITY", "Sampleton"},
                            {"STATE", "Ohio"},
                            {"COMPANY", "Acme"},
                            {"DESC", "By the gate"},
                            {"ATMOS_PRS", 14.1},
                            {"DIAMETER", 20.25},
                            {"HEIGHT_S", 30.5},
                            {"HEIGHT_L", 28.5},
                            {"HEIGHT_AL", 15.5},
                            {"VOLUME", 1000.5},
                            {"VENT_P", 0.03},
                            {"VENT_V", -0.04},
                            {"TCOLOR", "Gray"},
                            {"SHADE", "Light"},
                            {"S_COND", "Dense Rust"},
                            {"PT_COND", "Poor"},
                            {"RF_COLOR", "Aluminum"},
                            {"RF_SHADE", "Diffuse"},
                            {"RF_COND", "Good"},
                            {"RF_TYPE", "Cone"},
                            {"HEIGHT_R", 1.25},
                            {"D_RADIUS", 2.25},
                            {"C_SLOPE", 0.0625},
                            {"Q_NET", 777.5},
                            {"TURNOVER", 4},
                            {"RIM_PRIM", "Mechanical Shoe"},
                            {"RIM_SEC", "Rim-mounted"},
                            {"FITTING", "Detail"},
                            {"DECK_TYPE", "Bolted"},
                            {"DECK_SEAM", 123.5},
                            {"COL_NO", 6},
                            {"COL_DIAM", 1.1},
                            {"HEATED", true},
                            {"SELF_SUP", true},
                            {"UNDER", true},
                            {"CONSTRUCT", "Riveted"}};
    for (const auto& change : changes) files_.tanks.front().push_back(change);
  }

  /// What becomes of it, but for what depends on the type.
  static Expected FullTank(const std::string& type) {
    return {{"USER ID", "T-1"},
            {"TANK_TYPE", type},
            {"CITY", "Harborton"},
            {"STATE", "Kansas"},
            {"COMPANY", "Acme"},
            {"DESC", "By the gate"},
            {"MET CTYST", "Sampleton, Ohio"},
            {"ATMOS_PRS", 14.1},
            {"DIAMETER", 20.25},
            {"HEIGHT S", 30.5},
            {"HEIGHT ML", 28.5},
            {"HEIGHT AL", 15.5},
            {"VOLUME", 1000.5},
            {"VENT_P", 0.03},
            {"VENT_V", -0.04},
            {"SHL COLSHD", "Gray/Light"},
            {"SHL_COND", "Dense Rust"},
            {"PT_COND", "Poor"},
            {"RF_COLSHD", "Aluminum/Diffuse"},
            {"RF_COND", "Good"},
            {"RF_TYPE", "Cone"},
            {"RF_HEIGHT", 1.25},
            {"D_RADIUS", 2.25},
            {"C_SLOPE", 0.0625},
            {"TURNOVER", 4.0},
            {"RIM_PRIM", "Mechanical Shoe"},
            {"RIM_SEC", "Rim-mounted"},
            {"FITTING", "Detail"},
            {"DECK_TYPE", "Bolted"},
            {"DECK_SEAM_LENGTH", 123.5},
            {"COL_NO", 6.0},
            {"COL_DIAM", 1.1},
            {"HEATED", true},
            {"SELF_SUP", true},
            {"UNDER", true}};
  }

  /// The whole row, with what the type makes of throughput and construction.
  void ExpectTank(const std::string& type, const Expected& of_type) {
    auto expected = FullTank(type);
    expected.insert(expected.end(), of_type.begin(), of_type.end());
    ExpectRow(Row("tank"), expected, {"ID"});
  }
};

// 1000.5 gal 4 times a year are 4002 gal/yr.
const Value kTurned = 4002.0;

TEST_F(TankMappingTest, AVerticalTankKeepsItsThroughputAndHasNoConstruction) {
  AddFullTank("Vertical Fixed Roof", {});
  ImportGood();
  ExpectTank("Vertical Fixed Roof Tank", {{"Q_NET", 777.5},
                                          {"DECK_CONSTRUCT", Value()},
                                          {"DECK_SEAM", Value()},
                                          {"SD", Value()},
                                          {"TANK_CONSTRUCT", Value()}});
}

TEST_F(TankMappingTest, AHorizontalTankKeepsItsThroughputAndHasNoConstruction) {
  AddFullTank("Horizontal Fixed Roof", {});
  ImportGood();
  ExpectTank("Horizontal Tank", {{"Q_NET", 777.5},
                                 {"DECK_CONSTRUCT", Value()},
                                 {"DECK_SEAM", Value()},
                                 {"SD", Value()},
                                 {"TANK_CONSTRUCT", Value()}});
}

TEST_F(TankMappingTest, AnInternalRoofHasItsDeckFromTheConstruction) {
  AddFullTank("Internal Floating Roof", {{"CONSTRUCT", "Sheet 5 ft wide"}});
  ImportGood();
  ExpectTank("Internal Floating Roof Tank", {{"Q_NET", kTurned},
                                             {"DECK_CONSTRUCT", "Sheet"},
                                             {"DECK_SEAM", "Sheet: 5 Ft Wide"},
                                             {"SD", 0.2},
                                             {"TANK_CONSTRUCT", Value()}});
}

TEST_F(TankMappingTest, ExternalRoofsHaveTheirShellFromTheConstruction) {
  for (const auto* type : {"External Floating Roof", "Domed External Floating Roof"}) {
    SCOPED_TRACE(type);
    files_ = {};
    test_.client().Execute("DELETE * FROM tank");
    test_.client().Execute("DELETE * FROM mixtures");
    AddFullTank(type, {});
    ImportGood();
    ExpectTank(type + std::string(" Tank"), {{"Q_NET", kTurned},
                                             {"DECK_CONSTRUCT", Value()},
                                             {"DECK_SEAM", Value()},
                                             {"SD", Value()},
                                             {"TANK_CONSTRUCT", "Riveted"}});
  }
}

TEST_F(TankMappingTest, ATypeThatIsNotKnownStaysOpenAndItsThroughputIsMadeOfTheTurnovers) {
  AddFullTank("Sphere", {});
  ImportGood();
  auto tank = Row("tank");
  EXPECT_TRUE(tank.IsNull("TANK_TYPE"));
  EXPECT_TRUE(tank.IsNull("TANK_CONSTRUCT"));
  EXPECT_EQ(tank.Double("Q_NET"), 4002);
}

TEST_F(TankMappingTest, BlankNumbersBecomeZeroAndOtherBlanksStayBlank) {
  for (const auto* type : {"Vertical Fixed Roof", "Horizontal Fixed Roof", "Internal Floating Roof",
                           "External Floating Roof", "Domed External Floating Roof"}) {
    SCOPED_TRACE(type);
    files_ = {};
    files_.tanks.push_back({{"IDX_ID", "1"}, {"ID", type}, {"TANK_TYPE", type}});
    files_.mixtures.push_back({{"IDX_ID", "1"}, {"NAME", "Blend"}});
    files_.fittings.push_back(
        {{"IDX_ID", "1"}, {"FIT_TYPE", "Access Hatch (24-in. Diam.)"}, {"COVR_TYPE", "Bolted Cover, Gasketed"}});
    files_.components.push_back({{"IDX_ID", "1"}, {"MIX_ID", "1"}, {"NAME", "Benzene"}});
    ImportGood();
    auto tank = test_.client().OpenAt("tank", "USER ID", {type});
    const std::set<std::string> set = {"ID", "USER ID", "TANK_TYPE", "MET CTYST"};
    for (int i = 0; i < tank.FieldCount(); ++i) {
      const auto name = tank.FieldName(i);
      if (set.contains(name)) continue;
      const std::set<std::string> blank = {"CITY",     "STATE",          "COMPANY",       "DESC",      "SHL COLSHD",
                                           "SHL_COND", "PT_COND",        "RF_COLSHD",     "RF_COND",   "RF_TYPE",
                                           "RIM_PRIM", "RIM_SEC",        "FITTING",       "DECK_TYPE", "DECK_SEAM",
                                           "SD",       "DECK_CONSTRUCT", "TANK_CONSTRUCT"};
      const std::set<std::string> flags = {"HEATED", "SELF_SUP", "UNDER"};
      const Value expected = blank.contains(name) ? Value() : flags.contains(name) ? Value(false) : Value(0.0);
      EXPECT_TRUE(tank.Get(name) == expected) << name << " is '" << tank.TextOrEmpty(name) << "'";
    }
    EXPECT_EQ(tank.Text("MET CTYST"), ", ") << "is made of what is there";
  }
  auto mixture = Row("mixtures");
  for (const auto* blank : {"CAS", "C_CATEGORY", "COMPONENT", "SPEC_OPT"}) EXPECT_TRUE(mixture.IsNull(blank)) << blank;
  for (const auto* zero :
       {"ALS_TEMP", "MLS_TEMP", "XLS_TEMP", "BULK_TEMP", "VP", "VP_MIN", "VP_MAX", "MOLWT", "VP_MOLWT", "L_DENS"}) {
    EXPECT_TRUE(mixture.Get(zero) == Value(0.0)) << zero;
  }
  for (const auto& month : shell::kMonths) {
    EXPECT_TRUE(mixture.Get(month.name) == Value(false)) << month.name;
    EXPECT_TRUE(mixture.Get(month.throughput) == Value(0.0)) << month.throughput;
  }
  auto fitting = Row("fittings");
  for (const auto* zero : {"K_FA", "K_FB", "K_M", "QUANTITY"}) EXPECT_TRUE(fitting.Get(zero) == Value(0.0)) << zero;
  auto component = Row("components");
  for (const auto* zero : {"WT_FRACT", "VP_FRACT", "WEIGHT", "ALS_TEMP", "VP"})
    EXPECT_TRUE(component.Get(zero) == Value(0.0)) << zero;
}

TEST_F(TankMappingTest, AColorWithoutAShadeKeepsItsStroke) {
  AddFullTank("Vertical Fixed Roof", {{"SHADE", Value()}, {"RF_COLOR", Value()}});
  ImportGood();
  EXPECT_EQ(Row("tank").Text("SHL COLSHD"), "Gray/");
  EXPECT_TRUE(Row("tank").IsNull("RF_COLSHD"));
}

TEST_F(TankMappingTest, AnIdIsStoredWithoutTheBlanksAroundIt) {
  AddFullTank("Vertical Fixed Roof", {{"ID", "  North tank "}});
  ImportGood();
  EXPECT_EQ(Row("tank").Text("USER ID"), "North tank");
}

struct Deck {
  const char* construct;
  const char* seams;  ///< DECK_CONSTRUCT, DECK_SEAM and SD
};

TEST_F(TankMappingTest, TheDeckIsReadOutOfTheTextOfItsConstruction) {
  for (const auto& [name, factor] : std::initializer_list<std::pair<const char*, double>>{
           {"Sheet: 6 Ft Wide", 0.17}, {"Sheet: 7 Ft Wide", 0.14}, {"Panel: 5 x 7.5 Ft", 0.33}}) {
    test::AddRow(test_.reference(), "deckseam", {{"NAME", name}, {"SD", factor}});
  }
  constexpr Deck kDecks[] = {
      {"Sheet: 5 Ft Wide", "Sheet|Sheet: 5 Ft Wide|0.2"},
      {"Continuous Sheet, 6 Ft", "Sheet|Sheet: 6 Ft Wide|0.17"},
      {"Sheet 7", "Sheet|Sheet: 7 Ft Wide|0.14"},
      {"Sheet 5, 6 or 7", "Sheet|Sheet: 5 Ft Wide|0.2"},
      {"Sheet 6 or 7", "Sheet|Sheet: 6 Ft Wide|0.17"},
      {"Sheet", "Sheet|-|-"},
      {"Panel: 5 x 7.5 Ft", "Panel|Panel: 5 x 7.5 Ft|0.33"},
      {"5 x 12", "Panel|Panel: 5 x 12 Ft|-"},  // a seam that the table does not hold
      {"Panel: 7.5 x 12", "Panel|Panel: 5 x 7.5 Ft|0.33"},
      {"sheet 5", "Panel|-|-"},
      {"", "Panel|-|-"},
  };
  int key = 0;
  Rows expected;
  for (const auto& deck : kDecks) {
    const auto number = std::to_string(++key);
    files_.AddTank(number, number,
                   {{"TANK_TYPE", "Internal Floating Roof"}, {"DECK_TYPE", "Bolted"}, {"CONSTRUCT", deck.construct}});
    expected.emplace_back(deck.seams);
  }
  ImportGood();
  EXPECT_EQ(test::QueryRows(test_.client(), "SELECT * FROM tank", {"DECK_CONSTRUCT", "DECK_SEAM", "SD"}), expected);
}

TEST_F(TankMappingTest, AWeldedDeckHasNoConstruction) {
  AddFullTank("Internal Floating Roof", {{"DECK_TYPE", "Welded"}, {"CONSTRUCT", "Sheet 5"}});
  ImportGood();
  for (const auto* field : {"DECK_CONSTRUCT", "DECK_SEAM", "SD", "TANK_CONSTRUCT"})
    EXPECT_TRUE(Row("tank").IsNull(field)) << field;
}

TEST_F(TankMappingTest, AMixtureIsCopiedFieldByField) {
  files_.AddTank("1", "T-1");
  files_.mixtures.front() = {{"IDX_ID", "1"},       {"MIX_ID", "9"},         {"NAME", "Benzene"},  {"CAS", "71-43-2"},
                             {"C_CATEGORY", "Oil"}, {"COMPONENT", "Single"}, {"SPEC_OPT", "None"}, {"ALS_TEMP", 60.5},
                             {"MLS_TEMP", 55.25},   {"XLS_TEMP", 65.75},     {"BULK_TEMP", 58.5},  {"VP", 1.1},
                             {"VP_MIN", 1.2},       {"VP_MAX", 1.3},         {"MOLWT", 78.11},     {"VP_MOLWT", 78.12},
                             {"L_DENS", 7.365}};
  Expected expected = {{"ID", 1},
                       {"MIX ID", 1},
                       {"MIX NAME", "Benzene"},
                       {"CAS", "71-43-2"},
                       {"C_CATEGORY", "Oil"},
                       {"COMPONENT", "Single"},
                       {"SPEC_OPT", "None"},
                       {"ALS_TEMP", 60.5},
                       {"MLS_TEMP", 55.25},
                       {"XLS_TEMP", 65.75},
                       {"BULK_TEMP", 58.5},
                       {"VP", 1.1},
                       {"VP_MIN", 1.2},
                       {"VP_MAX", 1.3},
                       {"MOLWT", 78.11},
                       {"VP_MOLWT", 78.12},
                       {"L_DENS", 7.365}};
  for (std::size_t i = 0; i < shell::kMonths.size(); ++i) {
    std::string flag;
    for (const char c : shell::kMonths[i].name) flag += static_cast<char>(c >= 'a' ? c - 'a' + 'A' : c);
    const std::string throughput(shell::kMonths[i].throughput);
    const bool stored = i % 3 == 0;
    const double gallons = 100.5 + static_cast<double>(i);
    files_.mixtures.front().emplace_back(flag, stored);
    files_.mixtures.front().emplace_back(throughput, gallons);
    expected.emplace_back(flag, stored);
    expected.emplace_back(throughput, gallons);
  }
  ImportGood();
  ExpectRow(Row("mixtures"), expected);
}

TEST_F(TankMappingTest, MixturesAreNumberedFromOneInTheOrderOfTheFile) {
  files_.AddTank("1", "T-1");
  files_.mixtures.clear();
  files_.AddMixture("1", "8", {{"NAME", "Toluene"}});
  files_.AddMixture("2", "1", {{"NAME", "Of another tank"}});
  files_.AddMixture("1", "3", {{"NAME", "Benzene"}});
  ImportGood();
  EXPECT_EQ(test::QueryRows(test_.client(), "SELECT * FROM mixtures", {"ID", "MIX ID", "MIX NAME"}),
            (Rows{"1|1|Toluene", "1|2|Benzene"}));
}

TEST_F(TankMappingTest, AFittingIsCopiedFieldByField) {
  files_.AddTank("1", "T-1");
  files_.AddFitting("1", {{"K_FA", 1.6}, {"K_FB", 2.7}, {"K_M", 0.5}, {"QUANTITY", 3}});
  files_.AddFitting("1");
  ImportGood();
  ExpectRow(Row("fittings"), {{"ID", 1},
                              {"FIT ID", 1},
                              {"FIT_TYPE", "Access Hatch (24-in. Diam.)"},
                              {"COVR_TYPE", "Bolted Cover, Gasketed"},
                              {"K_FA", 1.6},
                              {"K_FB", 2.7},
                              {"K_M", 0.5},
                              {"QUANTITY", 3.0}});
  EXPECT_EQ(test::QueryRows(test_.client(), "SELECT * FROM fittings", {"FIT ID"}), (Rows{"1", "2"}));
}

TEST_F(TankMappingTest, AComponentHasItsWeightsFromTheTableOfChemicals) {
  files_.AddTank("1", "T-1");
  files_.AddComponent("1", "1",
                      {{"NAME", "Toluene"},
                       {"WT_FRACT", 40.5},
                       {"VP_FRACT", 30.5},
                       {"WEIGHT", 20.5},
                       {"ALS_TEMP", 519.5},
                       {"VP", 0.3}});
  ImportGood();
  ExpectRow(Row("components"), {{"ID", 1},
                                {"MIX ID", 1},
                                {"COMP ID", 1},
                                {"NAME", "Toluene"},
                                {"CAS", "108-88-3"},
                                {"WT_FRACT", 40.5},
                                {"VP_FRACT", 30.5},
                                {"WEIGHT", 20.5},
                                {"MOLWT", 92.13},
                                {"L_DENS", 7.261},
                                {"VP_MOLWT", 92.13},
                                {"ALS_TEMP", 519.5},
                                {"VP", 0.3}});
}

TEST_F(TankMappingTest, ComponentsKeepTheirMixturesNumberAndAreCountedOverTheWholeTank) {
  files_.AddTank("1", "T-1");
  files_.mixtures.clear();
  files_.AddMixture("1", "7");
  files_.AddMixture("1", "8");
  files_.AddComponent("1", "8");
  files_.AddComponent("1", " 7", {{"NAME", "Toluene"}});
  files_.AddTank("2", "T-2");
  files_.AddComponent("2", "1");
  ImportGood();
  EXPECT_EQ(test::QueryRows(test_.client(), "SELECT * FROM mixtures", {"ID", "MIX ID"}), (Rows{"1|1", "1|2", "2|1"}));
  EXPECT_EQ(test::QueryRows(test_.client(), "SELECT * FROM components", {"ID", "MIX ID", "COMP ID", "NAME"}),
            (Rows{"1|8|1|Benzene", "1|7|2|Toluene", "2|1|1|Benzene"}));
}

TEST_F(TankMappingTest, ManyTanksEachGetWhatIsTheirs) {
  constexpr int kTanks = 300;
  for (int i = 0; i < kTanks; ++i) {
    const auto key = std::to_string(i);
    files_.AddTank(key, "T-" + key);
    for (int k = 0; k < i % 4; ++k) files_.AddFitting(key, {{"QUANTITY", i}});
  }
  // What belongs to a tank need not stand together in its file.
  std::swap(files_.fittings.front(), files_.fittings.back());
  ImportGood();
  EXPECT_EQ(Count("tank"), kTanks);
  EXPECT_EQ(Count("mixtures"), kTanks);
  for (auto tanks = Row("tank"); !tanks.AtEnd(); tanks.MoveNext()) {
    const auto name = tanks.Text("USER ID");
    const int i = std::stoi(name.substr(2));
    auto fittings = test_.client().OpenMatching("fittings", "fitid", {tanks.Long("ID")});
    EXPECT_EQ(fittings.RecordCount(), i % 4) << name;
    for (; !fittings.AtEnd(); fittings.MoveNext()) EXPECT_EQ(fittings.Double("QUANTITY"), i) << name;
  }
}

// The types of the files' fields may be others than those of ours.
TEST_F(TankMappingTest, NumbersAndFlagsInFieldsOfTextsAreTakenForWhatTheyAre) {
  AddFullTank("Vertical Fixed Roof", {});
  files_.AddFitting("1", {{"K_FA", 1.6}});
  files_.AddComponent("1", "1", {{"WT_FRACT", 40.5}});
  files_.WriteAsTexts(test_.folder.Path());
  TypePaths();
  ClickOK(test_.session, form_);
  EXPECT_EQ(Told(), Rows{kImportedMessage});
  ExpectTank("Vertical Fixed Roof Tank", {{"Q_NET", 777.5},
                                          {"DECK_CONSTRUCT", Value()},
                                          {"DECK_SEAM", Value()},
                                          {"SD", Value()},
                                          {"TANK_CONSTRUCT", Value()}});
  auto mixture = Row("mixtures");
  EXPECT_TRUE(mixture.Get("JANUARY") == Value(true));
  EXPECT_TRUE(mixture.Get("BULK_TEMP") == Value(0.0)) << "is blank there, too";
  EXPECT_EQ(Row("fittings").Double("K_FA"), 1.6);
  EXPECT_EQ(Row("components").Double("WT_FRACT"), 40.5);
}

TEST_F(TankMappingTest, AKeyOfNumbersFindsTheSameKeyOfTexts) {
  files_.AddTank("17", "12");
  files_.AddFitting("17");
  files_.AddTank("7", "13");
  files_.Write(test_.folder.Path());
  auto columns = test::TankColumns();
  for (auto& column : columns)
    if (column.name == "IDX_ID" || column.name == "ID") column = test::NumberColumn(column.name, 6, 0);
  {
    test::DbaseWriter file(File(0), columns);
    for (const auto& row : files_.tanks) file.Add(row);
  }
  TypePaths();
  ClickOK(test_.session, form_);
  EXPECT_EQ(Log(), (Rows{"17|12|Record was successfully imported.", "7|13|Record was successfully imported."}));
  EXPECT_EQ(Count("mixtures"), 2);
  EXPECT_EQ(Row("fittings").Long("ID"), test_.client().OpenAt("tank", "USER ID", {"12"}).Long("ID"));
}

TEST_F(TankMappingTest, ABlankFlagInAFieldOfTextsIsFalse) {
  files_.AddTank("1", "T-1", {{"HEATED", false}});
  files_.WriteAsTexts(test_.folder.Path());
  TypePaths();
  ClickOK(test_.session, form_);
  EXPECT_EQ(Told(), Rows{kImportedMessage});
  EXPECT_TRUE(Row("tank").Get("HEATED") == Value(false)) << "is N there";
  EXPECT_TRUE(Row("tank").Get("UNDER") == Value(false)) << "is blank there";
}

}  // namespace
}  // namespace orvex::exchange
