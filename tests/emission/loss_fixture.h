#pragma once

#include <gtest/gtest.h>

#include <cctype>
#include <cmath>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "shell/periods.h"
#include "shell/tank_types.h"
#include "support/sample_tanks.h"

namespace orvex::emission {

using test::AddComponent;
using test::AddDomedTank;
using test::AddExternalTank;
using test::AddFitting;
using test::AddHorizontalTank;
using test::AddInternalTank;
using test::AddMixture;
using test::AddRow;
using test::AddVerticalTank;
using test::ChangeMixture;
using test::ChangeTank;

inline const store::Value kNull{};

/// A name that no sample chemical has: such a mixture goes by the figures of its own row.
inline constexpr const char* kTypedName = "Solvent X";

/// Equal as far as expected figures of twelve digits can tell.
inline void ExpectClose(double actual, double expected, std::string_view what) {
  EXPECT_NEAR(actual, expected, std::abs(expected) * 1e-10) << what;
}

/// A field of a row and what it must hold: numbers closely, all else exactly.
struct ExpectedField {
  std::string_view field;
  store::Value value;
};

inline void ExpectField(store::RecordSet& row, const ExpectedField& expected) {
  const store::Value actual = row.Get(expected.field);
  if (expected.value.GetKind() == store::Value::Kind::kReal) {
    ASSERT_FALSE(actual.IsNull()) << expected.field;
    ExpectClose(actual.AsDouble(), expected.value.AsDouble(), expected.field);
  } else {
    EXPECT_EQ(actual, expected.value) << expected.field << " holds " << actual.TextOrEmpty();
  }
}

/// A field that must not be null, in a table's first row, for a period.
struct NeededField {
  std::string_view table;
  std::string_view field;
  std::string_view Month = shell::kAnnual;
};

/// A session with sample tanks, and the rows that a loss routine leaves.
class LossTest : public ::testing::Test {
 protected:
  /// The row of a whole mixture; without a current record where there is none.
  store::RecordSet Row(std::int32_t ID, std::string_view Month = shell::kAnnual, std::string_view name = "Benzene",
                       std::int32_t MixID = 1) {
    auto rows = client.OpenTable("emission");
    rows.SetIndex("COMPID");
    rows.Seek({ID, MixID, name, Month, true});
    return rows;
  }
  double Number(std::int32_t ID, std::string_view field, std::string_view Month = shell::kAnnual,
                std::string_view name = "Benzene") {
    return Row(ID, Month, name).Double(field);
  }
  std::int64_t RowCount() { return client.OpenTable("emission").RecordCount(); }

  /// Every field of a row: those expected, and null in all others.
  void ExpectWholeRow(store::RecordSet& row, const std::vector<ExpectedField>& expected) {
    std::set<std::string_view> named;
    for (const auto& field : expected) {
      named.insert(field.field);
      ExpectField(row, field);
    }
    for (const auto& field : client.Fields("emission")) {
      const bool as_expected = named.contains(field.name) || row.IsNull(field.name);
      EXPECT_TRUE(as_expected) << field.name;
    }
  }

  /// The error rows as "ID|USER ID|error", in the order of the file.
  std::vector<std::string> Errors() {
    std::vector<std::string> texts;
    for (auto rows = client.OpenTable("error"); !rows.AtEnd(); rows.MoveNext())
      texts.push_back(rows.Get("ID").AsText() + "|" + rows.Text("USER ID") + "|" + rows.Text("error"));
    return texts;
  }

  void ChangeWeather(test::FieldValues changes) {
    test::ChangeRow(test.reference(), "met", "CTYST", {test::kSampleCity}, changes);
  }

  /// Makes the first mixture one that is typed in with its own vapor pressures {psia}.
  void TypeInMixture(std::int32_t ID, double average, double minimum, double maximum) {
    ChangeMixture(client, ID, 1,
                  {{"MIX NAME", kTypedName},
                   {"COMPONENT", shell::kMultiple},
                   {"SPEC_OPT", shell::kNoSpeciation},
                   {"VP", average},
                   {"VP_MIN", minimum},
                   {"VP_MAX", maximum}});
  }

  /// Sets the field null in the first row of its table.
  void Clear(const NeededField& needed) {
    const bool of_client = needed.table == "mixtures" || needed.table == "fittings";
    auto rows = (of_client ? client : test.reference()).OpenTable(needed.table);
    rows.Edit();
    rows.Set(needed.field, kNull);
    rows.Update();
  }

  test::TestSession test;
  store::Database& client = test.client();
};

inline std::string NameOf(const ::testing::TestParamInfo<NeededField>& info) {
  std::string name;
  for (const char c : std::string(info.param.table) + "_" + std::string(info.param.field)) {
    if (std::isalnum(static_cast<unsigned char>(c)) != 0) name += c;
  }
  return name;
}

}  // namespace orvex::emission
