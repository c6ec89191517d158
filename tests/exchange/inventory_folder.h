#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "exchange/inventory_csv.h"
#include "store/field_table.h"
#include "store/run_time_error.h"
#include "support/file_content.h"
#include "support/sample_tanks.h"
#include "support/test_databases.h"

namespace orvex::test {

using TableRows = std::vector<std::vector<store::Value>>;

inline constexpr std::string_view kInventoryTables[] = {"tank", "mixtures", "components", "fittings"};

/// The rows of the four tables of an inventory, in the order of the file.
inline std::vector<TableRows> InventoryTables(store::Database& client) {
  std::vector<TableRows> tables;
  for (const auto table : kInventoryTables) tables.push_back(client.OpenTable(table).GetRows(10'000'000));
  return tables;
}

/// Adds each fitting type and status of the client database to the reference database.
inline void AddFittingsInUse(TestSession& test) {
  auto fittings = test.client().OpenQuery("SELECT FIT_TYPE, COVR_TYPE FROM fittings GROUP BY FIT_TYPE, COVR_TYPE");
  for (; !fittings.AtEnd(); fittings.MoveNext())
    AddRow(test.reference(), "fitting", {{"FIT_TYPE", fittings.Get(0)}, {"COVR_TYPE", fittings.Get(1)}});
}

/// Two databases with the sample reference rows, and a folder of CSV files beside them.
class InventoryFolder : public testing::Test {
 protected:
  InventoryFolder() {
    AddSampleReference(test_.reference());
    std::filesystem::create_directory(Folder());
    // One tank that all can be taken from.
    Write("tanks.csv", "USER ID,TANK_TYPE\r\nT-1,Horizontal Tank\r\n");
    Write("mixtures.csv", "USER ID,MIX NAME,COMPONENT\r\nT-1,Benzene,Single\r\n");
    Write("components.csv", "USER ID,MIX ID,NAME\r\n");
    Write("fittings.csv", "USER ID,FIT_TYPE\r\n");
  }

  [[nodiscard]] std::filesystem::path Folder() const { return test_.folder.Path() / "csv"; }
  void Write(const char* file, std::string_view content) const { WriteFile(Folder() / file, content); }
  [[nodiscard]] std::string Content(const char* file) const { return FileContent(Folder() / file); }

  exchange::InventoryCounts Import() { return exchange::ImportInventory(test_.client(), test_.reference(), Folder()); }

  /// What the import is refused with, nothing being written then; empty if it is not.
  std::string Refusal() {
    const auto before = InventoryTables(test_.client());
    std::string description;
    try {
      Import();
    } catch (const store::RunTimeError& error) {
      EXPECT_EQ(error.Number(), store::ErrorNumber::kDataConversion);
      description = error.Description();
    }
    EXPECT_TRUE(description.empty() || InventoryTables(test_.client()) == before);
    return description;
  }

  [[nodiscard]] store::Value Stored(std::string_view table, std::string_view field) {
    return test_.client().OpenTable(table).Get(field);
  }

  TestSession test_;
};

}  // namespace orvex::test
