#include "store/field_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <string>

#include "store/run_time_error.h"

namespace orvex::store {
namespace {

/// A table and its fields in order, parted by bars.
struct Expected {
  std::string_view table;
  std::string_view fields;
};

const Expected kClient[] = {
    {"components", "ID|MIX ID|COMP ID|NAME|CAS|WT_FRACT|VP_FRACT|WEIGHT|MOLWT|L_DENS|VP_MOLWT|ALS_TEMP|VP"},
    {"emission",
     "ID|MIX ID|NAME|MONTH|PRIMARY|CAS|TANK_TYPE|USER ID|RF_TYPE|SHL COLSHD|SHL_COND|PT_COND|"
     "RF_COLSHD|RF_COND|CITY|STATE|COMPANY|MET CTYST|TANK_CONSTRUCT|DECK_CONSTRUCT|RIM_PRIM|"
     "RIM_SEC|FITTING|DECK_TYPE|DECK_SEAM|COL_DIAM|DESC|DIAMETER|HEIGHT_S|HEIGHT_R|HEIGHT_L|"
     "HEIGHT_AL|VOLUME|Q_NET|TURNOVER|VENT_P|VENT_V|C_SLOPE|D_RADIUS|DECK_SEAM_LENGTH|COL_NO|"
     "SELF_SUP|UNDER|HEATED|AMB_T|T_MIN|T_MAX|INSOL|P_A|S_LOSS|W_LOSS|RIM_LOSS|WD_LOSS|"
     "DECKF_LOSS|DECKS_LOSS|MOLES|L_WT_FRACT|V_WT_FRACT|L_MO_FRACT|V_MO_FRACT|MOLWT|VP_MOLWT|"
     "L_DENS|ALPHA|ALPHA_2|ALS_TEMP|MLS_TEMP|XLS_TEMP|BULK_T|A_VP|M_VP|X_VP|EFF_DIAM|VP_RANGE|"
     "T_RANGE|VT_RANGE|RF_OUT|VS_OUT|VS_VOL|V_DENS|BV_RANGE|K_E|K_S|K_N|K_P|M_KR|M_KRA|M_KRB|"
     "N_FACT|M_V|M_P|M_KC|M_C|NC|FC|M_FF|SD|KD"},
    {"fittings", "ID|FIT ID|FIT_TYPE|COVR_TYPE|K_FA|K_FB|K_M|QUANTITY"},
    {"mixtures",
     "ID|MIX ID|MIX NAME|CAS|C_CATEGORY|COMPONENT|SPEC_OPT|ALS_TEMP|MLS_TEMP|XLS_TEMP|BULK_TEMP|"
     "VP|VP_MIN|VP_MAX|MOLWT|VP_MOLWT|L_DENS|JANUARY|FEBRUARY|MARCH|APRIL|MAY|JUNE|JULY|AUGUST|"
     "SEPTEMBER|OCTOBER|NOVEMBER|DECEMBER|JAN_THRU|FEB_THRU|MAR_THRU|APR_THRU|MAY_THRU|JUN_THRU|"
     "JUL_THRU|AUG_THRU|SEP_THRU|OCT_THRU|NOV_THRU|DEC_THRU"},
    {"tank",
     "ID|USER ID|TANK_TYPE|CITY|STATE|COMPANY|DESC|MET CTYST|ATMOS_PRS|DIAMETER|HEIGHT S|"
     "HEIGHT ML|HEIGHT AL|VOLUME|VENT_P|VENT_V|SHL COLSHD|SHL_COND|PT_COND|RF_COLSHD|RF_COND|"
     "RF_TYPE|RF_HEIGHT|D_RADIUS|C_SLOPE|Q_NET|TURNOVER|RIM_PRIM|RIM_SEC|FITTING|DECK_TYPE|"
     "DECK_SEAM_LENGTH|COL_NO|COL_DIAM|HEATED|SELF_SUP|UNDER|DECK_CONSTRUCT|DECK_SEAM|SD|"
     "TANK_CONSTRUCT"},
    {"error", "ID|USER ID|error"},
};

const Expected kReference[] = {
    {"chemical",
     "Counter|NAME|CAS|CATEGORY|MOLWT|VP_MOLWT|L_DENS|VP_40|VP_50|VP_60|VP_70|VP_80|VP_90|"
     "VP_100|VP_COEF_A|VP_COEF_B|VP_COEF_C|VP_2_A|VP_2_B|REID|ASTM_SLOPE|USER_DEF"},
    {"deckseam", "Counter|NAME|CONSTRUC|SWIDTH|PWIDTH|PLENGTH|SD|KD|APICERT|USER_DEF"},
    {"fitting",
     "Counter|FIT_TYPE|COVR_TYPE|K_FA|K_FB|K_M|QUANTITY|API_CERT|TYP_IFLT|WELD_DECK|SELF_SUP|"
     "TYP_EFLT|D_ROOF|P_SEAL|USER_DEF"},
    {"met",
     "Counter|CTYST|CITY|STATE|A_TEMP_DAA|TAX_JAN|TAX_FEB|TAX_MAR|TAX_APR|TAX_MAY|TAX_JUN|"
     "TAX_JUL|TAX_AUG|TAX_SEP|TAX_OCT|TAX_NOV|TAX_DEC|TAX_ANN|TAN_JAN|TAN_FEB|TAN_MAR|TAN_APR|"
     "TAN_MAY|TAN_JUN|TAN_JUL|TAN_AUG|TAN_SEP|TAN_OCT|TAN_NOV|TAN_DEC|TAN_ANN|INSOL_JAN|"
     "INSOL_FEB|INSOL_MAR|INSOL_APR|INSOL_MAY|INSOL_JUN|INSOL_JUL|INSOL_AUG|INSOL_SEP|INSOL_OCT|"
     "INSOL_NOV|INSOL_DEC|INSOL_ANN|WIND_JAN|WIND_FEB|WIND_MAR|WIND_APR|WIND_MAY|WIND_JUN|"
     "WIND_JUL|WIND_AUG|WIND_SEP|WIND_OCT|WIND_NOV|WIND_DEC|WIND_ANN|ATMOS_PRS|USER DEF"},
    {"profile names", "SPEC ID|Profile Name|TYPE|User"},
    {"profile components", "SPEC ID|NAME|CAS|WT_FRACT|VP_FRACT|WEIGHT|MOLWT|VP_MOLWT"},
    {"rimseal",
     "Counter|PRIM_SEAL|SECND_SEAL|WELDED|RIVETED|K_RA|K_RB|N_FACTOR|EFLT|DEFT|IFLT|API_CERT|"
     "USER_DEF"},
    {"import errors", "IDX_ID|ID|Error"},
};

template <typename Range, typename Name>
std::string Joined(const Range& range, Name name) {
  std::string joined;
  for (const auto& element : range) {
    if (!joined.empty()) joined += '|';
    joined += name(element);
  }
  return joined;
}

void ExpectTables(std::span<const TableInfo> tables, std::span<const Expected> expected) {
  ASSERT_EQ(tables.size(), expected.size());
  for (std::size_t i = 0; i < tables.size(); ++i) {
    EXPECT_EQ(tables[i].name, expected[i].table);
    EXPECT_EQ(Joined(tables[i].fields, [](const FieldInfo& field) { return field.name; }), expected[i].fields)
        << tables[i].name;
  }
}

template <typename Action>
void ForEachTable(Action action) {
  for (const auto tables : {ClientTables(), ReferenceTables()}) {
    for (const TableInfo& table : tables) action(table);
  }
}

template <typename Action>
ErrorNumber NumberOf(Action action) {
  try {
    action();
  } catch (const RunTimeError& error) {
    return error.Number();
  }
  ADD_FAILURE() << "nothing was refused";
  return ErrorNumber::kInvalidProcedureCall;
}

TEST(FieldTable, ClientTablesHoldTheirFieldsInOrder) { ExpectTables(ClientTables(), kClient); }

TEST(FieldTable, AReferenceDatabaseIsKnownByAllItsTablesButTheImportLog) {
  std::string names;
  for (const auto& table : TestedReferenceTables()) names += std::string(table.name) + ";";
  EXPECT_EQ(names, "chemical;deckseam;fitting;met;profile names;profile components;rimseal;");
}

TEST(FieldTable, ReferenceTablesHoldTheirFieldsInOrder) { ExpectTables(ReferenceTables(), kReference); }

TEST(FieldTable, CasOfEmissionStandsAtPositionFive) { EXPECT_EQ(FindTable("emission").fields[5].name, "CAS"); }

TEST(FieldTable, ProfileNameAndTypeStandAtPositionsOneAndTwo) {
  const TableInfo& profiles = FindTable("profile names");
  EXPECT_EQ(profiles.fields[1].name, "Profile Name");
  EXPECT_EQ(profiles.fields[2].name, "TYPE");
}

TEST(FieldTable, IndexesOrderByTheirFields) {
  struct {
    std::string_view table, index, fields;
    bool unique;
  } const expected[] = {
      {"tank", "ID", "ID", true},
      {"tank", "USER ID", "USER ID", false},
      {"mixtures", "IDMIX", "ID|MIX ID", true},
      {"components", "IDMIX", "ID|MIX ID|COMP ID", true},
      {"fittings", "fitid", "ID|FIT ID", true},
      {"emission", "COMPID", "ID|MIX ID|NAME|MONTH|PRIMARY", false},
      {"emission", "USER ID", "USER ID", false},
      {"chemical", "chemname", "NAME", false},
      {"chemical", "zCAS", "CAS", false},
      {"chemical", "Counter", "Counter", false},
      {"met", "CTYST", "CTYST", false},
      {"met", "Counter", "Counter", false},
      {"fitting", "TYPE", "FIT_TYPE|COVR_TYPE", false},
      {"fitting", "FIT_TYPE", "FIT_TYPE", false},
      {"fitting", "Counter", "Counter", false},
      {"rimseal", "prim", "PRIM_SEAL", false},
      {"rimseal", "primsec", "PRIM_SEAL|SECND_SEAL", false},
      {"rimseal", "rimid", "PRIM_SEAL|SECND_SEAL|WELDED|RIVETED", false},
      {"rimseal", "Counter", "Counter", false},
      {"deckseam", "name", "NAME", false},
      {"deckseam", "Counter", "Counter", false},
      {"profile names", "spec id", "SPEC ID", false},
      {"profile names", "Profile Name", "Profile Name", false},
      {"profile names", "type", "TYPE", false},
      {"profile components", "Spec ID", "SPEC ID", false},
  };
  std::size_t count = 0;
  ForEachTable([&](const TableInfo& table) { count += table.indexes.size(); });
  EXPECT_EQ(count, std::size(expected));
  for (const auto& wanted : expected) {
    const TableInfo& table = FindTable(wanted.table);
    const auto found = std::ranges::find(table.indexes, wanted.index, &IndexInfo::name);
    ASSERT_NE(found, table.indexes.end()) << wanted.table << " " << wanted.index;
    EXPECT_EQ(Joined(found->fields, [](std::string_view field) { return field; }), wanted.fields) << wanted.table;
    EXPECT_EQ(found->unique, wanted.unique) << wanted.table << " " << wanted.index;
  }
}

TEST(FieldTable, EveryIndexFieldIsAFieldOfItsTable) {
  ForEachTable([](const TableInfo& table) {
    for (const IndexInfo& index : table.indexes) {
      for (const std::string_view field : index.fields) EXPECT_EQ(FindField(table, field).name, field);
    }
  });
}

TEST(FieldTable, TextsHaveAWidthAndOtherTypesNone) {
  ForEachTable([](const TableInfo& table) {
    for (const FieldInfo& field : table.fields) {
      EXPECT_EQ(field.width > 0, field.type == FieldType::kText) << table.name << "." << field.name;
      EXPECT_FALSE(field.label.empty()) << table.name << "." << field.name;
    }
  });
}

TEST(FieldTable, SettledWidthsAreKept) {
  struct {
    std::string_view table, field;
    int width;
  } const settled[] = {
      {"tank", "DESC", 255},
      {"mixtures", "MIX NAME", 50},
      {"mixtures", "CAS", 10},
      {"components", "NAME", 50},
      {"components", "CAS", 10},
      {"fittings", "FIT_TYPE", 50},
      {"fittings", "COVR_TYPE", 50},
      {"emission", "NAME", 50},
      {"emission", "CAS", 10},
      {"chemical", "NAME", 50},
      {"chemical", "CAS", 10},
      {"met", "CITY", 50},
      {"fitting", "FIT_TYPE", 50},
      {"fitting", "COVR_TYPE", 50},
      {"rimseal", "API_CERT", 50},
      {"deckseam", "APICERT", 50},
      {"profile names", "Profile Name", 50},
      {"profile components", "NAME", 50},
      {"profile components", "CAS", 10},
      {"import errors", "ID", 100},
  };
  for (const auto& wanted : settled) {
    EXPECT_EQ(FindField(FindTable(wanted.table), wanted.field).width, wanted.width) << wanted.table << wanted.field;
  }
}

TEST(FieldTable, EmissionHoldsWhateverATankHolds) {
  const TableInfo& tank = FindTable("tank");
  for (const FieldInfo& field : FindTable("emission").fields) {
    const auto source = std::ranges::find(tank.fields, field.name, &FieldInfo::name);
    if (field.type == FieldType::kText && source != tank.fields.end()) {
      EXPECT_EQ(field.width, source->width) << field.name;
    }
  }
}

TEST(FieldTable, ACityKeyHoldsTheLongestCityAndState) {
  const TableInfo& met = FindTable("met");
  EXPECT_EQ(FindField(met, "CTYST").width, FindField(met, "CITY").width + 2 + FindField(met, "STATE").width);
  EXPECT_EQ(FindField(FindTable("tank"), "MET CTYST").width, FindField(met, "CTYST").width);
}

TEST(FieldTable, StoredTemperaturesOfEmissionAreRankineAndThoseOfMixturesFahrenheit) {
  for (const std::string_view name : {"ALS_TEMP", "MLS_TEMP", "XLS_TEMP", "BULK_T"}) {
    EXPECT_EQ(FindField(FindTable("emission"), name).unit, "deg R") << name;
  }
  for (const std::string_view name : {"ALS_TEMP", "MLS_TEMP", "XLS_TEMP", "BULK_TEMP"}) {
    EXPECT_EQ(FindField(FindTable("mixtures"), name).unit, "deg F") << name;
  }
}

TEST(FieldTable, NamesAreFoundWithoutRegardToCase) {
  EXPECT_EQ(FindTable("PROFILE Names").name, "profile names");
  EXPECT_EQ(FindField(FindTable("Tank"), "Tank_Type").name, "TANK_TYPE");
}

TEST(FieldTable, UnknownNamesAreRefused) {
  EXPECT_EQ(NumberOf([] { FindTable("tanks"); }), ErrorNumber::kObjectNotFound);
  EXPECT_EQ(NumberOf([] { FindField(FindTable("tank"), "USER_ID"); }), ErrorNumber::kItemNotFound);
}

}  // namespace
}  // namespace orvex::store
