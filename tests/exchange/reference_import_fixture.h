#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <initializer_list>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "exchange/previous_version_files.h"
#include "exchange/reference_import.h"
#include "support/query_rows.h"
#include "support/test_databases.h"

namespace orvex::test {

inline constexpr const char* kImported = "Record was successfully imported.";

/// One of the four imports, with a good record of its file.
struct ImportCase {
  void (*import)(shell::Session&);
  bool (*step)(shell::Session&, const std::string&);
  std::string table;
  std::string import_label, step_label;
  std::string title, file;
  std::vector<DbaseColumn> columns;
  DbaseRow row;
  std::string key;
};

inline std::vector<ImportCase> ImportCases() {
  using namespace exchange;
  return {{ImportChemical, IChemical, "chemical", "mDatabase.ImportChemical", "mDatabase.IChemical",
           "Locate chemical.dbf", "chemical.dbf", ChemicalColumns(), Chemical("Benzene"), "Benzene"},
          {ImportMet, IMet, "met", "mDatabase.ImportMet", "mDatabase.IMet", "Locate cities.dbf", "cities.dbf",
           CityColumns(), City("Denver", "Colorado"), "Denver, Colorado"},
          {ImportFit, IFit, "fitting", "mDatabase.ImportFit", "mDatabase.IFit", "Locate fit_tbl.dbf", "fit_tbl.dbf",
           FittingColumns(), Fitting("Roof Leg", "Adjustable"), "Roof Leg/Adjustable"},
          {ImportRim, IRim, "rimseal", "mDatabase.ImportRim", "mDatabase.IRim", "Locate rim_seal.dbf", "rim_seal.dbf",
           RimSealColumns(), RimSeal("Liquid-mounted", "Weather Shield"), "Liquid-mounted/Weather Shield/Welded"}};
}

inline void PrintTo(const ImportCase& import, std::ostream* out) { *out << import.table; }

/// Names the tests of a case after its table.
inline std::string CaseName(const testing::TestParamInfo<ImportCase>& info) { return info.param.table; }

/// Empty databases, and a file of the previous version to be imported into them.
class ReferenceImportTest : public testing::Test {
 protected:
  void Write(const std::vector<DbaseColumn>& columns, const std::vector<DbaseRow>& rows) const {
    WriteDbase(path_, columns, rows);
  }
  void Write(const ImportCase& import, const std::vector<DbaseRow>& rows) const { Write(import.columns, rows); }

  /// The person runs the command and chooses the file; so many rows are added.
  void Import(const ImportCase& import, int added) {
    test_.host.ChooseFile(path_.string());
    test_.host.ExpectMessage(std::to_string(added) + " records were appended to the current tank database.");
    import.import(session());
  }
  /// Writes the file first.
  void Import(const ImportCase& import, const std::vector<DbaseRow>& rows, int added) {
    Write(import, rows);
    Import(import, added);
  }

  shell::Session& session() { return test_.session; }
  store::Database& reference() { return test_.reference(); }
  Rows Query(const std::string& sql, std::initializer_list<std::string_view> fields) {
    return QueryRows(reference(), sql, fields);
  }
  Rows Log() { return Query("SELECT * FROM [import errors]", {"ID", "Error"}); }
  /// What was said about the only record that there is in the log.
  Rows Said() { return Query("SELECT * FROM [import errors]", {"Error"}); }
  std::int64_t Count(const std::string& table) { return reference().OpenTable(table).RecordCount(); }

  TestSession test_;
  std::filesystem::path path_ = test_.folder.Path() / "source.dbf";
};

/// A test of one of the imports.
class OneImportTest : public ReferenceImportTest {
 protected:
  explicit OneImportTest(std::string_view table) {
    for (auto& import : ImportCases())
      if (import.table == table) case_ = std::move(import);
  }
  void Import(const std::vector<DbaseRow>& rows, int added) { ReferenceImportTest::Import(case_, rows, added); }
  /// The only record of the file is not added, for these reasons.
  void ExpectRefused(const DbaseRow& row, const Rows& reasons) {
    const auto before = Count(case_.table);
    Import({row}, 0);
    EXPECT_EQ(Said(), reasons);
    EXPECT_EQ(Count(case_.table), before);
  }
  /// The only record of the file is added.
  void ExpectAdded(const DbaseRow& row) {
    const auto before = Count(case_.table);
    Import({row}, 1);
    EXPECT_EQ(Said(), Rows{kImported});
    EXPECT_EQ(Count(case_.table), before + 1);
  }
  /// The number in a field of the row last added.
  double Number(const std::string& field) { return LastAdded().Double(field); }
  store::RecordSet LastAdded() {
    auto rows = reference().OpenTable(case_.table);
    rows.MoveLast();
    return rows;
  }

  ImportCase case_;
};

}  // namespace orvex::test
