#include <fmt/format.h>
#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <thread>

#include "exchange/inventory_folder.h"
#include "support/child_process.h"
#include "support/expect_error.h"
#include "support/file_size_limit.h"
#include "support/query_rows.h"
#include "support/unprivileged.h"

/// Tanks that a person has written in a spreadsheet.
namespace orvex::exchange {
namespace {

using store::Value;
using test::QueryRows;
using test::Rows;

class InventoryImport : public test::InventoryFolder {
 protected:
  Rows Tanks() { return QueryRows(test_.client(), "SELECT * FROM tank", {"ID", "USER ID"}); }
  Rows Mixtures() { return QueryRows(test_.client(), "SELECT * FROM mixtures", {"ID", "MIX ID", "MIX NAME"}); }

  /// Files of many horizontal tanks with two mixtures each.
  void WriteMany(int tanks) const {
    std::string rows = "USER ID,TANK_TYPE,DIAMETER,MET CTYST\n", mixtures = "USER ID,MIX NAME,COMPONENT,VP\n";
    for (int i = 1; i <= tanks; ++i) {
      rows += fmt::format("T-{},Horizontal Tank,{}.5,\"Sampleton, Ohio\"\n", i, i);
      mixtures += fmt::format("T-{0},Benzene,Single,1\nT-{0},Toluene,Single,2\n", i);
    }
    Write("tanks.csv", rows);
    Write("mixtures.csv", mixtures);
  }
};

// Numbers of tanks ----------------------------------------------------------------------------------------------------

TEST_F(InventoryImport, ATankKeepsItsNumberWhereItIsFree) {
  Write("tanks.csv", "ID,USER ID,TANK_TYPE\n7,T-1,Horizontal Tank\n3,T-2,Horizontal Tank\n");
  Write("mixtures.csv", "ID,MIX NAME\n3,of T-2\n7,of T-1\n");
  Import();
  EXPECT_EQ(Tanks(), (Rows{"3|T-2", "7|T-1"}));
  EXPECT_EQ(Mixtures(), (Rows{"3|1|of T-2", "7|1|of T-1"}));
}

TEST_F(InventoryImport, ATankWhoseNumberIsTakenGetsTheNextOneAndItsRowsFollow) {
  test::AddHorizontalTank(test_, {{"USER ID", "old"}});
  Write("tanks.csv", "ID,USER ID,TANK_TYPE\n1,T-1,Horizontal Tank\n2,T-2,Horizontal Tank\n,T-3,Horizontal Tank\n");
  Write("mixtures.csv", "ID,USER ID,MIX NAME\n1,,of T-1\n2,T-2,of T-2\n,T-3,of T-3\n");
  Write("components.csv", "USER ID,ID,NAME\nT-1,1,Benzene\n");
  Write("fittings.csv", "ID,QUANTITY\n1,5\n");
  Import();
  EXPECT_EQ(Tanks(), (Rows{"1|old", "2|T-2", "3|T-1", "4|T-3"}));
  EXPECT_EQ(Mixtures(), (Rows{"1|1|Benzene", "3|1|of T-1", "2|1|of T-2", "4|1|of T-3"}));
  EXPECT_EQ(Stored("components", "ID"), Value(3));
  EXPECT_EQ(Stored("fittings", "ID"), Value(3));
}

TEST_F(InventoryImport, ANumberUnderWhichADeletedTankLeftRowsIsTaken) {
  test::AddMixture(test_.client(), 5, 1);
  Write("tanks.csv", "ID,USER ID,TANK_TYPE\n5,T-1,Horizontal Tank\n");
  Import();
  EXPECT_EQ(Tanks(), (Rows{"1|T-1"}));
  test::AddRow(test_.client(), "emission", {{"ID", 9}});
  Write("tanks.csv", "ID,USER ID,TANK_TYPE\n9,T-2,Horizontal Tank\n");
  Write("mixtures.csv", "ID,MIX NAME\n9,x\n");
  Import();
  EXPECT_EQ(Tanks(), (Rows{"1|T-1", "2|T-2"}));
}

TEST_F(InventoryImport, ASecondImportOfAnExportIsRefusedAndOneUnderNewNamesIsNot) {
  test::AddHorizontalTank(test_, {{"USER ID", "A"}});
  ExportInventory(test_.client(), Folder());
  EXPECT_EQ(Refusal(), "tanks.csv, line 2, USER ID: the client database holds a tank 'A' already.");
  for (const auto* file : {"tanks.csv", "mixtures.csv"}) {
    auto content = Content(file);
    const auto at = content.find(file == std::string_view("tanks.csv") ? ",A," : "A,1,1,");
    content.insert(at + 1, file == std::string_view("tanks.csv") ? "B" : "");
    if (file == std::string_view("mixtures.csv")) content.insert(at, "B");
    Write(file, content);
  }
  Import();
  EXPECT_EQ(Tanks(), (Rows{"1|A", "2|BA"}));
}

// What may be left out ------------------------------------------------------------------------------------------------

TEST_F(InventoryImport, FieldsWithoutAColumnAreAsInANewRecord) {
  Import();
  EXPECT_TRUE(Stored("tank", "DIAMETER").IsNull());
  EXPECT_TRUE(Stored("tank", "CITY").IsNull());
  EXPECT_EQ(Stored("tank", "HEATED"), Value(false));
}

TEST_F(InventoryImport, RowsWithoutNumbersAreNumberedInTheirOrderBehindThoseThatHaveOne) {
  Write("mixtures.csv", "USER ID,MIX ID,MIX NAME\nT-1,,b\nT-1,3,a\nT-1,,c\n");
  Write("fittings.csv", "USER ID,QUANTITY\nT-1,5\nT-1,6\n");
  Write("components.csv", "USER ID,MIX ID,COMP ID,NAME\nT-1,3,,Benzene\nT-1,4,,Benzene\nT-1,3,,Toluene\n");
  Import();
  EXPECT_EQ(Mixtures(), (Rows{"1|4|b", "1|3|a", "1|5|c"}));
  EXPECT_EQ(QueryRows(test_.client(), "SELECT * FROM fittings", {"FIT ID", "QUANTITY"}), (Rows{"1|5", "2|6"}));
  EXPECT_EQ(QueryRows(test_.client(), "SELECT * FROM components", {"MIX ID", "COMP ID", "NAME"}),
            (Rows{"3|1|Benzene", "4|1|Benzene", "3|2|Toluene"}));
}

TEST_F(InventoryImport, AComponentNeedNotNameTheOnlyMixtureOfItsTank) {
  Write("mixtures.csv", "USER ID,MIX ID,MIX NAME\nT-1,2,b\n");
  Write("components.csv", "USER ID,NAME\nT-1,Benzene\n");
  Import();
  EXPECT_EQ(Stored("components", "MIX ID"), Value(2));
}

// How spreadsheet programs write --------------------------------------------------------------------------------------

TEST_F(InventoryImport, ColumnsStandInAnyOrderAndCase) {
  Write("tanks.csv", "Diameter,tank_type,User Id\n12.5,Horizontal Tank,T-1\n");
  Import();
  EXPECT_EQ(Stored("tank", "DIAMETER"), Value(12.5));
  EXPECT_EQ(Stored("tank", "USER ID"), Value("T-1"));
}

TEST_F(InventoryImport, ByteOrderMarksAndBothLineEndsAreRead) {
  Write("tanks.csv", "\xEF\xBB\xBFUSER ID,TANK_TYPE\r\nT-1,Horizontal Tank\r\n");
  Write("mixtures.csv", "\xEF\xBB\xBFUSER ID,MIX NAME\nT-1,Benzene");
  EXPECT_EQ(Import().Text(), "1 tank, 1 mixture, 0 components and 0 fittings");
}

TEST_F(InventoryImport, RowsOfEmptyCellsArePassedOver) {
  Write("tanks.csv", "USER ID,TANK_TYPE,DIAMETER\n,,\nT-1,Horizontal Tank,3\n,,\n,,\n");
  EXPECT_EQ(Import().tanks, 1);
}

TEST_F(InventoryImport, SwitchesAreWrittenInAnyOfTheirWays) {
  for (const auto* yes : {"Yes", "YES", "TRUE", "True", "-1", " yes "}) {
    Write("tanks.csv", fmt::format("USER ID,TANK_TYPE,HEATED\nT-1,Horizontal Tank,{}\n", yes));
    Import();
    EXPECT_EQ(Stored("tank", "HEATED"), Value(true)) << yes;
    for (const auto* table : {"tank", "mixtures"}) test_.client().Execute(fmt::format("DELETE * FROM {}", table));
  }
  for (const auto* no : {"No", "false", "0"}) {
    Write("tanks.csv", fmt::format("USER ID,TANK_TYPE,HEATED\nT-1,Horizontal Tank,{}\n", no));
    Import();
    EXPECT_EQ(Stored("tank", "HEATED"), Value(false)) << no;
    for (const auto* table : {"tank", "mixtures"}) test_.client().Execute(fmt::format("DELETE * FROM {}", table));
  }
}

TEST_F(InventoryImport, NumbersAreReadWithBlanksAroundThemAndInScientificNotation) {
  Write("tanks.csv", "USER ID,ID,TANK_TYPE,DIAMETER,VOLUME\nT-1,4.0,Horizontal Tank, 12.5 ,1.05E+07\n");
  Import();
  EXPECT_EQ(Stored("tank", "ID"), Value(4));
  EXPECT_EQ(Stored("tank", "DIAMETER"), Value(12.5));
  EXPECT_EQ(Stored("tank", "VOLUME"), Value(10500000.0));
}

TEST_F(InventoryImport, WordsOfListsAreStoredAsTheListHasThem) {
  Write("tanks.csv", "USER ID,TANK_TYPE,SHL COLSHD\nT-1,horizontal tank,GRAY/LIGHT\n");
  Import();
  EXPECT_EQ(Stored("tank", "TANK_TYPE"), Value("Horizontal Tank"));
  EXPECT_EQ(Stored("tank", "SHL COLSHD"), Value("Gray/Light"));
}

TEST_F(InventoryImport, AnEmptyCellIsNullAndQuotesAloneAreAnEmptyText) {
  Write("tanks.csv", "USER ID,TANK_TYPE,CITY,STATE\nT-1,Horizontal Tank,,\"\"\n");
  Import();
  EXPECT_TRUE(Stored("tank", "CITY").IsNull());
  EXPECT_EQ(Stored("tank", "STATE"), Value(""));
}

TEST_F(InventoryImport, AnotherReaderUnderstandsTheFiles) {
  const std::string desc = "Two\r\nlines, \"quoted\" \u00D6l";
  test::AddHorizontalTank(test_, {{"DESC", desc}, {"VOLUME", 0.1}});
  ExportInventory(test_.client(), Folder());
  const auto script = test_.folder.Path() / "read.py";
  test::WriteFile(script,
                  "import csv, sys\n"
                  "with open(sys.argv[1], newline='', encoding='utf-8') as file:\n"
                  "    rows = list(csv.DictReader(file, strict=True))\n"
                  "assert len(rows) == 1, rows\n"
                  "assert rows[0]['DESC'] == 'Two\\r\\nlines, \"quoted\" \\u00D6l', rows\n"
                  "assert float(rows[0]['VOLUME']) == 0.1, rows\n"
                  "assert rows[0]['HEATED'] == 'No', rows\n"
                  "row = {name: cell for name, cell in rows[0].items() if cell != ''}\n"
                  "row.update({'USER ID': 'from elsewhere', 'VOLUME': 0.2})\n"
                  "with open(sys.argv[1], 'w', newline='', encoding='utf-8-sig') as file:\n"
                  "    writer = csv.DictWriter(file, row, lineterminator='\\n', quoting=csv.QUOTE_ALL)\n"
                  "    writer.writeheader()\n"
                  "    writer.writerow(row)\n");
  const auto command = fmt::format("/usr/bin/python3 '{}' '{}'", script.string(), (Folder() / "tanks.csv").string());
  ASSERT_EQ(std::system(command.c_str()), 0);
  Write("mixtures.csv", "USER ID,MIX NAME\nfrom elsewhere,Benzene\n");
  Import();
  auto tank = test_.client().OpenAt("tank", "USER ID", {"from elsewhere"});
  EXPECT_EQ(tank.Get("DESC"), Value(desc));
  EXPECT_EQ(tank.Get("VOLUME"), Value(0.2));
  EXPECT_EQ(tank.Get("DIAMETER"), Value(10.0));
}

// Whole or not at all -------------------------------------------------------------------------------------------------

TEST_F(InventoryImport, ThatIsStoppedLeavesNothing) {
  WriteMany(200);
  std::vector<std::pair<std::int64_t, std::int64_t>> told;
  struct Stopped {};
  EXPECT_THROW(ImportInventory(test_.client(), test_.reference(), Folder(),
                               [&](std::int64_t done, std::int64_t total) {
                                 told.emplace_back(done, total);
                                 if (done == 300) throw Stopped{};
                               }),
               Stopped);
  EXPECT_EQ(told, (std::vector<std::pair<std::int64_t, std::int64_t>>{{100, 600}, {200, 600}, {300, 600}}));
  EXPECT_TRUE(Tanks().empty());
  EXPECT_EQ(Import().tanks, 200);
}

TEST_F(InventoryImport, ThatIsKilledLeavesAllOrNothing) {
  WriteMany(1000);
  const auto whole = std::chrono::steady_clock::now();
  Import();
  const auto length = std::chrono::steady_clock::now() - whole;
  test_.session.ClientDb.reset();
  const auto path = test_.folder.Path() / "killed.mdb";
  constexpr int kKills = 25;
  int killed = 0;
  for (int i = 0; i < kKills; ++i) {
    std::filesystem::remove(path);
    store::Database::Create(path, store::ClientTables());
    test::ChildProcess importing([&] {
      const auto client = store::Database::Open(path);
      const auto reference = store::Database::Open(test_.reference().Path());
      ImportInventory(*client, *reference, Folder());
      return 0;
    });
    std::this_thread::sleep_for(length * i / kKills);
    if (importing.Kill()) ++killed;
    const auto client = store::Database::Open(path);
    EXPECT_TRUE(client->IntegrityCheck());
    const auto tanks = client->OpenTable("tank").RecordCount();
    EXPECT_TRUE(tanks == 0 || tanks == 1000) << tanks;
    EXPECT_EQ(client->OpenTable("mixtures").RecordCount(), 2 * tanks);
  }
  RecordProperty("killed", killed);
  EXPECT_GT(killed, 0);  // how many depends on what else the computer does
}

TEST_F(InventoryImport, OnAFullDiskLeavesTheDatabaseAsItWas) {
  test::AddHorizontalTank(test_, {{"USER ID", "old"}});
  WriteMany(2000);
  {
    const test::FileSizeLimit full_disk(200'000);
    EXPECT_RUN_TIME_ERROR(Import(), store::ErrorNumber::kDiskFailure);
  }
  EXPECT_EQ(Tanks(), (Rows{"1|old"}));
  EXPECT_TRUE(test_.client().IntegrityCheck());
}

TEST_F(InventoryImport, IntoADatabaseThatMayOnlyBeReadIsRefused) {
  const auto path = test_.client().Path();
  test_.session.ClientDb.reset();
  test_.session.ClientDb = store::Database::Open(path, store::OpenMode::kReadOnly);
  EXPECT_RUN_TIME_ERROR(Import(), store::ErrorNumber::kReadOnly);
}

TEST_F(InventoryImport, IntoADatabaseInWhichAnotherProgramWritesIsRefused) {
  const auto other = store::Database::Open(test_.client().Path());
  const store::Transaction writing(*other);
  EXPECT_RUN_TIME_ERROR(Import(), store::ErrorNumber::kFileLocked);
}

TEST_F(InventoryImport, AFileThatMayNotBeReadIsNamed) {
  std::filesystem::permissions(Folder() / "tanks.csv", std::filesystem::perms::none);
  std::filesystem::permissions(test_.folder.Path(), std::filesystem::perms::all);
  const test::Unprivileged person;
  EXPECT_RUN_TIME_ERROR(Import(), store::ErrorNumber::kDiskFailure);
}

// The export's files --------------------------------------------------------------------------------------------------

TEST_F(InventoryImport, AnExportThatFailsLeavesTheOldFiles) {
  for (int i = 0; i < 300; ++i) test::AddHorizontalTank(test_);
  const auto tanks = Content("tanks.csv"), mixtures = Content("mixtures.csv");
  {
    // The tanks have room, the wider rows of the mixtures have not.
    const test::FileSizeLimit full_disk(60'000);
    EXPECT_RUN_TIME_ERROR(ExportInventory(test_.client(), Folder()), store::ErrorNumber::kDiskFailure);
  }
  EXPECT_EQ(Content("tanks.csv"), tanks);
  EXPECT_EQ(Content("mixtures.csv"), mixtures);
  EXPECT_EQ(test::EntryCount(Folder()), 4);
}

TEST_F(InventoryImport, AnExportMakesItsFolderOrTellsThatItCannot) {
  const auto deep = test_.folder.Path() / "a" / "b";
  ExportInventory(test_.client(), deep);
  EXPECT_EQ(test::EntryCount(deep), 4);
  EXPECT_RUN_TIME_ERROR(ExportInventory(test_.client(), Folder() / "tanks.csv"), store::ErrorNumber::kInvalidPath);
  EXPECT_RUN_TIME_ERROR(ExportInventory(test_.client(), "/proc/orvex"), store::ErrorNumber::kInvalidPath);
}

// Speed ---------------------------------------------------------------------------------------------------------------

TEST_F(InventoryImport, OfFiveThousandTanksTakesSeconds) {
  WriteMany(5000);
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(Import().mixtures, 10000);
  const auto imported = std::chrono::steady_clock::now();
  EXPECT_EQ(ExportInventory(test_.client(), Folder()).tanks, 5000);
  const auto exported = std::chrono::steady_clock::now();
  const auto milliseconds = [](auto time) {
    return static_cast<int>(std::chrono::duration_cast<std::chrono::milliseconds>(time).count());
  };
  RecordProperty("import_ms", milliseconds(imported - start));
  RecordProperty("export_ms", milliseconds(exported - imported));
  // Some hundred milliseconds each; the bound holds for a busy machine under the sanitizers.
  EXPECT_LT(milliseconds(exported - start), 60'000);
}

}  // namespace
}  // namespace orvex::exchange
