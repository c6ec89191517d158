#include <cstdint>
#include <iterator>
#include <set>
#include <string>
#include <string_view>

#include "emission/speciate_fixture.h"

namespace orvex::emission {
namespace {

enum class Source : std::uint8_t { kKey, kPrimary, kZero, kComponent };

struct RowField {
  std::string_view field;
  Source source;
};

// Where each field of a component's row comes from.
constexpr RowField kRow[] = {
    {"ID", Source::kKey},
    {"MIX ID", Source::kKey},
    {"MONTH", Source::kKey},
    {"PRIMARY", Source::kComponent},
    {"NAME", Source::kComponent},
    {"CAS", Source::kComponent},
    {"TANK_TYPE", Source::kPrimary},
    {"USER ID", Source::kPrimary},
    {"CITY", Source::kPrimary},
    {"STATE", Source::kPrimary},
    {"COMPANY", Source::kPrimary},
    {"DESC", Source::kPrimary},
    {"MET CTYST", Source::kPrimary},
    {"AMB_T", Source::kPrimary},
    {"T_MIN", Source::kPrimary},
    {"T_MAX", Source::kPrimary},
    {"INSOL", Source::kPrimary},
    {"P_A", Source::kPrimary},
    {"S_LOSS", Source::kComponent},
    {"W_LOSS", Source::kComponent},
    {"RIM_LOSS", Source::kComponent},
    {"WD_LOSS", Source::kComponent},
    {"DECKF_LOSS", Source::kComponent},
    {"DECKS_LOSS", Source::kComponent},
    {"MOLES", Source::kComponent},
    {"L_WT_FRACT", Source::kComponent},
    {"V_WT_FRACT", Source::kComponent},
    {"L_MO_FRACT", Source::kComponent},
    {"V_MO_FRACT", Source::kComponent},
    {"MOLWT", Source::kComponent},
    {"VP_MOLWT", Source::kComponent},
    {"L_DENS", Source::kPrimary},
    {"ALPHA", Source::kPrimary},
    {"ALPHA_2", Source::kPrimary},
    {"ALS_TEMP", Source::kPrimary},
    {"MLS_TEMP", Source::kPrimary},
    {"XLS_TEMP", Source::kPrimary},
    {"BULK_T", Source::kPrimary},
    {"A_VP", Source::kComponent},
    {"M_VP", Source::kComponent},
    {"X_VP", Source::kComponent},
    {"DIAMETER", Source::kPrimary},
    {"EFF_DIAM", Source::kPrimary},
    {"HEIGHT_S", Source::kPrimary},
    {"HEIGHT_R", Source::kPrimary},
    {"HEIGHT_L", Source::kPrimary},
    {"HEIGHT_AL", Source::kPrimary},
    {"VOLUME", Source::kPrimary},
    {"Q_NET", Source::kPrimary},
    {"TURNOVER", Source::kPrimary},
    {"SHL COLSHD", Source::kPrimary},
    {"SHL_COND", Source::kPrimary},
    {"PT_COND", Source::kPrimary},
    {"RF_COLSHD", Source::kPrimary},
    {"RF_COND", Source::kPrimary},
    {"RF_TYPE", Source::kPrimary},
    {"VP_RANGE", Source::kZero},
    {"RF_OUT", Source::kZero},
    {"VS_OUT", Source::kZero},
    {"VS_VOL", Source::kZero},
    {"V_DENS", Source::kZero},
    {"BV_RANGE", Source::kZero},
    {"K_E", Source::kZero},
    {"K_S", Source::kZero},
    {"K_N", Source::kZero},
    {"K_P", Source::kZero},
    {"T_RANGE", Source::kPrimary},
    {"VT_RANGE", Source::kPrimary},
    {"M_KR", Source::kPrimary},
    {"M_P", Source::kZero},
    {"M_KC", Source::kZero},
    {"M_C", Source::kZero},
    {"NC", Source::kZero},
    {"FC", Source::kZero},
    {"M_FF", Source::kZero},
    {"SD", Source::kZero},
    {"KD", Source::kZero},
    {"N_FACT", Source::kZero},
    {"M_KRA", Source::kZero},
    {"M_KRB", Source::kZero},
    {"M_V", Source::kZero},
    {"VENT_P", Source::kPrimary},
    {"VENT_V", Source::kPrimary},
    {"C_SLOPE", Source::kPrimary},
    {"D_RADIUS", Source::kPrimary},
    {"TANK_CONSTRUCT", Source::kPrimary},
    {"RIM_PRIM", Source::kPrimary},
    {"RIM_SEC", Source::kPrimary},
    {"FITTING", Source::kPrimary},
    {"DECK_TYPE", Source::kPrimary},
    {"DECK_CONSTRUCT", Source::kPrimary},
    {"DECK_SEAM", Source::kPrimary},
    {"DECK_SEAM_LENGTH", Source::kPrimary},
    {"COL_NO", Source::kPrimary},
    {"COL_DIAM", Source::kPrimary},
    {"SELF_SUP", Source::kPrimary},
    {"UNDER", Source::kPrimary},
    {"HEATED", Source::kPrimary},
};

class SpeciateRowTest : public SpeciateTest {
 protected:
  /// Gives every field of the mixture's own row a value of its own, numbers far from 0; the key stays.
  void FillPrimary() {
    auto row = client.OpenMatching("emission", "COMPID", {ID, 1});
    row.Edit();
    double number = 500;
    for (const auto& field : client.Fields("emission")) {
      if (field.name == "ID" || field.name == "MIX ID" || field.name == "NAME" || field.name == "MONTH" ||
          field.name == "PRIMARY")
        continue;
      number += 0.5;
      if (field.type == store::FieldType::kText) {
        row.Set(field.name, field.name.substr(0, 10));
      } else if (field.type == store::FieldType::kBoolean) {
        row.Set(field.name, true);
      } else {
        row.Set(field.name, number);
      }
    }
    row.Update();
  }
  store::Value Primary(std::string_view field) { return client.OpenMatching("emission", "COMPID", {ID, 1}).Get(field); }
  void ExpectSource(std::string_view name, std::string_view field, Source source) {
    const auto value = Field(name, field);
    EXPECT_FALSE(value.IsNull()) << field;
    switch (source) {
      case Source::kKey:
      case Source::kPrimary:
        EXPECT_EQ(value, Primary(field)) << field;
        break;
      case Source::kZero:
        EXPECT_EQ(value, 0.0) << field;
        break;
      case Source::kComponent:
        EXPECT_NE(value, Primary(field)) << field;
        break;
    }
  }
};

TEST_F(SpeciateRowTest, TheTableOfThisTestNamesEveryFieldOnce) {
  std::set<std::string> named;
  for (const auto& row : kRow) EXPECT_TRUE(named.emplace(row.field).second) << row.field;
  std::set<std::string> stored;
  for (const auto& field : client.Fields("emission")) stored.insert(field.name);
  EXPECT_EQ(named, stored);
}

TEST_F(SpeciateRowTest, EachFieldIsTheComponentsOwnOrTheMixturesOrZero) {
  AddPrimary();
  FillPrimary();
  AddLight(1, {{"WT_FRACT", 40.0}});
  AddHeavy(2, {{"WT_FRACT", 60.0}});
  Split();
  for (const auto& [field, source] : kRow) ExpectSource("Light", field, source);
}

TEST_F(SpeciateRowTest, TheRemaindersRowIsFilledLikewise) {
  SetSpeciation(shell::kPartialSpeciation);
  AddPrimary();
  FillPrimary();
  AddLight(1, {{"WT_FRACT", 40.0}});
  Split();
  for (const auto& [field, source] : kRow) ExpectSource(kRemainder, field, source);
}

TEST_F(SpeciateRowTest, WhatTheMixturesRowLacksIsZeroOrEmpty) {
  AddPrimary({{"MOLWT", 50.0}, {"VP_MOLWT", 50.0}, {"A_VP", 3.0}});
  AddLight(1, {{"WT_FRACT", 40.0}});
  Split();
  for (const auto& [field, source] : kRow) {
    if (source == Source::kPrimary && Primary(field).IsNull()) {
      const auto value = Field("Light", field);
      EXPECT_TRUE(value == 0.0 || value == "") << field;
    }
  }
  EXPECT_EQ(Field("Light", "COMPANY"), "");
  EXPECT_EQ(Field("Light", "VENT_P"), 0.0);
}

TEST_F(SpeciateRowTest, ARowThatIsThereKeepsItsCasWhenTheComponentHasNone) {
  AddPrimary({{"MOLWT", 50.0}, {"VP_MOLWT", 50.0}, {"A_VP", 3.0}});
  AddLight(1, {{"WT_FRACT", 40.0}});
  Split();
  ChangeComponent(1, {{"CAS", ""}});
  Split();
  EXPECT_EQ(Field("Light", "CAS"), "111-11-1");
}

}  // namespace
}  // namespace orvex::emission
