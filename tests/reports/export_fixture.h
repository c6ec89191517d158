#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "reports/export_format.h"
#include "reports/frmexformat.h"
#include "reports/frmexname.h"
#include "reports/frmexptbl.h"
#include "reports/frmprintrep.h"
#include "support/file_content.h"
#include "support/query_rows.h"
#include "support/test_databases.h"

namespace orvex::test {

/// Exports as a person asks for them, into a folder of their own.
class ExportTest : public testing::Test {
 protected:
  using Strings = std::vector<std::string>;

  ExportTest() {
    session_.TankPath = test_.reference().Path();
    session_.ClientPath = test_.client().Path();
  }

  [[nodiscard]] std::string Path(const std::string& file) const { return (out_.Path() / file).string(); }

  void AddChemicals(std::initializer_list<const char*> names) {
    for (const auto* name : names) AddRow(test_.reference(), "chemical", {{"NAME", name}, {"MOLWT", 78.125}});
  }

  // What the person does in the windows, in this order.
  void PickFormat(const std::string& token) {
    test_.host.WhenShown("Frmexformat", [this, token] {
      auto form = reports::OpenFrmexformat(session_);
      for (std::size_t i = 0; i < form.lstFormats.items.size(); ++i) {
        if (form.lstFormats.items[i] == reports::FindExportFormat(token)->text)
          reports::SelectFormat(session_, form, i);
      }
      reports::ClickOK(session_, form);
      EXPECT_EQ(session_.ExportFormat, token);
      EXPECT_TRUE(form.window.closed);
    });
  }
  void NameFile(const std::string& path) {
    test_.host.WhenShown("frmexname", [this, path] {
      auto form = reports::OpenFrmexname(session_);
      reports::TypeExportFileName(session_, form, path);
      reports::ClickOK(session_, form);
    });
  }
  /// @param offered the name that stands in the window when it opens
  void NameTable(const std::string& offered, const std::string& name) {
    test_.host.WhenShown("frmexptbl", [this, offered, name] {
      auto form = reports::OpenFrmexptbl(session_);
      EXPECT_EQ(form.lblTable.text, "Export " + offered + " to:");
      EXPECT_EQ(form.txtTable.text, offered);
      EXPECT_EQ(form.lblPath.text, "in " + session_.ExportTarget);
      reports::TypeTable(session_, form, name);
      reports::ClickOK(session_, form);
    });
  }

  void ExpectSuccess(const std::string& table) {
    test_.host.ExpectMessage("Successfully Exported '" + table + "'.", "ORVEX", shell::Buttons::kOk,
                             shell::Icon::kInformation);
  }
  void ExpectLosses(const std::string& losses) {
    test_.host.ExpectMessage(losses, "ORVEX", shell::Buttons::kOk, shell::Icon::kInformation);
  }
  void ExpectOverwriteQuestion(const std::string& target, shell::Answer answer) {
    test_.host.ExpectMessage("'" + target + "' already exists - overwrite?", "ORVEX", shell::Buttons::kOkCancel,
                             shell::Icon::kQuestion, answer);
  }
  void ExpectError(int number) { test_.host.ExpectError(number, "mDatabase.Export"); }

  /// OK in the print window, with the file as the destination.
  void Export(std::string_view print_mode) {
    session_.PrintMode = print_mode;
    auto form = reports::OpenFrmprintrep(session_);
    reports::ChooseFile(session_, form);
    ASSERT_TRUE(form.cmdOK.enabled);
    reports::ClickOK(session_, form);
    EXPECT_FALSE(form.window.closed) << "the same can be put out again";
    EXPECT_TRUE(test_.host.pointers.empty() || test_.host.pointers.back() == shell::Pointer::kDefault);
    EXPECT_TRUE(test_.host.status.empty() || test_.host.status.back() == "Ready");
  }
  /// The table of chemicals to a file, in a format that has no name but that of the file.
  void ExportChemicals(const std::string& token, const std::string& path) {
    PickFormat(token);
    NameFile(path);
    Export("Chemical");
  }
  /// The same into a database or workbook.
  void ExportChemicals(const std::string& token, const std::string& path, const std::string& name) {
    PickFormat(token);
    NameFile(path);
    NameTable("chemical", name);
    Export("Chemical");
  }

  Rows NamesIn(const std::string& path, const std::string& table) {
    return QueryRows(*store::Database::Open(path), "SELECT * FROM [" + table + "]", {"NAME"});
  }

  /// The databases in use are whole, and hold as many tables as at first.
  void ExpectDatabasesWhole() {
    for (auto* database : {&test_.reference(), &test_.client()}) EXPECT_TRUE(database->IntegrityCheck());
    EXPECT_EQ(test_.reference().TableNames().size(), store::ReferenceTables().size());
    EXPECT_EQ(test_.client().TableNames().size(), store::ClientTables().size());
  }

  TestSession test_;
  shell::Session& session_ = test_.session;
  TemporaryFolder out_;
};

inline constexpr const char* kDatabaseFormat = "gnDT_JETMDB";
inline constexpr const char* kDbaseFormat = "gnDT_DBASEIV";
inline constexpr const char* kFoxProFormat = "gnDT_FOXPRO26";
inline constexpr const char* kExcelFormat = "gnDT_EXCEL50";
inline constexpr const char* kTextFormat = "gnDT_TEXTFILE";

}  // namespace orvex::test
