#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "emission/validate.h"
#include "support/sample_tanks.h"

namespace orvex::emission {

using test::AddComponent;
using test::AddDomedTank;
using test::AddExternalTank;
using test::AddHorizontalTank;
using test::AddInternalTank;
using test::AddMixture;
using test::AddVerticalTank;
using test::ChangeMixture;
using test::ChangeTank;

using Errors = std::vector<std::string>;
using Changes = std::vector<std::pair<std::string_view, store::Value>>;
using AddTank = std::int32_t (*)(test::TestSession&, test::FieldValues);

inline const store::Value kNull{};
inline constexpr const char* kTankErrors = "Tank errors must be fixed before mixture information can be checked.";
inline constexpr const char* kTurnoverDisagrees = "The throughput, volume and turnovers must agree within 10%.";

/// A sample tank, what is broken in it and in its mixture, and the rows that the person gets.
struct BrokenTank {
  const char* name;
  AddTank add;
  Changes changes;
  Errors errors;
};

inline std::string NameOf(const ::testing::TestParamInfo<BrokenTank>& info) { return info.param.name; }

/// A session with sample tanks, and the texts that a validation adds to `error`.
class ValidateTest : public ::testing::Test {
 protected:
  /// The texts of all error rows, in the order of the file.
  Errors Rows() {
    Errors texts;
    auto rows = client.OpenTable("error");
    for (; !rows.AtEnd(); rows.MoveNext()) texts.push_back(rows.Text("error"));
    return texts;
  }

  /// The rows of this validation alone; the flag must agree with them.
  Errors Validated(std::int32_t ID) {
    client.Execute("DELETE * FROM error");
    Validate(test.session, ID);
    Errors rows = Rows();
    EXPECT_EQ(test.session.ValidationFailed, !rows.empty());
    return rows;
  }

  void ChangeFields(std::int32_t ID, const Changes& changes) {
    for (const auto& change : changes) ChangeTank(client, ID, {change});
  }
  void ChangeMixtureFields(std::int32_t ID, const Changes& changes) {
    for (const auto& change : changes) ChangeMixture(client, ID, 1, {change});
  }
  void DeleteRows(std::string_view table, std::int32_t ID) {
    client.Execute("DELETE * FROM " + std::string(table) + " WHERE ID = " + std::to_string(ID));
  }

  store::Value TankField(std::int32_t ID, std::string_view field) {
    return client.OpenMatching("tank", "ID", {ID}).Get(field);
  }
  store::Value MixtureField(std::int32_t ID, std::int32_t MixID, std::string_view field) {
    return client.OpenMatching("mixtures", "IDMIX", {ID, MixID}).Get(field);
  }

  test::TestSession test;
  store::Database& client = test.client();

 private:
  // As in a run: one stretch of work on each file. Never committed, the files go with the test.
  store::Transaction client_work_{test.client()};
  store::Transaction reference_work_{test.reference()};
};

}  // namespace orvex::emission
