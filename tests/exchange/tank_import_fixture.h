#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "exchange/frmimport.h"
#include "exchange/tank_files.h"
#include "support/query_rows.h"
#include "support/sample_tanks.h"
#include "support/test_databases.h"

namespace orvex::test {

inline constexpr const char* kSetUpMessage =
    "Please make sure the paths you have specified lead to the right file structure!";
inline constexpr const char* kCorruptedMessage =
    "This record is corrupted and cannot be imported.  You may want to delete and reenter this record in ORVEX 3.1.";
inline constexpr const char* kImportedMessage = "Record was successfully imported.";

/// The window of the import over two databases, of which the reference one holds what the sample tanks need.
class TankImportTest : public testing::Test {
 protected:
  TankImportTest() {
    AddSampleReference(test_.reference());
    AddRow(test_.reference(), "fitting",
           {{"FIT_TYPE", "Access Hatch (24-in. Diam.)"}, {"COVR_TYPE", "Bolted Cover, Gasketed"}});
  }

  [[nodiscard]] std::filesystem::path File(std::size_t file) const {
    return test_.folder.Path() / exchange::kImportFiles[file].file;
  }

  /// The paths of the four files of tanks, typed.
  void TypePaths() {
    for (std::size_t i = 0; i < 4; ++i) exchange::TypePath(test_.session, form_, i, File(i).string());
  }

  /// Writes the files, and imports them in a window of its own.
  void Import() {
    files_.Write(test_.folder.Path());
    form_ = exchange::OpenFrmImport(test_.session);
    TypePaths();
    exchange::ClickOK(test_.session, form_);
  }

  Rows Log() { return QueryRows(test_.reference(), "SELECT * FROM [import errors]", {"IDX_ID", "ID", "Error"}); }
  /// What the log says of each record.
  Rows Told() { return QueryRows(test_.reference(), "SELECT * FROM [import errors]", {"Error"}); }

  std::int64_t Count(const char* table) { return test_.client().OpenTable(table).RecordCount(); }
  /// The first row of a table of the client database.
  store::RecordSet Row(const char* table) { return test_.client().OpenTable(table); }

  TestSession test_;
  TankFiles files_;
  exchange::FrmImport form_ = exchange::OpenFrmImport(test_.session);
};

}  // namespace orvex::test
