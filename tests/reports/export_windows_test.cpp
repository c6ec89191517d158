#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "reports/export_format.h"
#include "reports/frmexformat.h"
#include "reports/frmexname.h"
#include "reports/frmexptbl.h"
#include "support/test_databases.h"

namespace orvex::reports {
namespace {

using Strings = std::vector<std::string>;

class ExportWindows : public testing::Test {
 protected:
  Frmexformat OpenFor(const char* print_mode) {
    session_.PrintMode = print_mode;
    return OpenFrmexformat(session_);
  }

  test::TestSession test_;
  shell::Session& session_ = test_.session;
};

TEST(ExportFormats, AreTheFiveThatWereAlwaysOffered) {
  struct Row {
    const char *token, *text, *connect, *filter, *extension;
    bool is_folder;
  };
  const Row rows[] = {
      {"gnDT_JETMDB", "Access 2.0 (*.mdb)", "", "Access (*.mdb) |*.mdb|", "*.mdb", false},
      {"gnDT_DBASEIV", "dBASE IV (*.dbf)", "dBase IV", "DBaseIV (*.dbf) |*.dbf|", "*.dbf", true},
      {"gnDT_FOXPRO26", "FoxPro 2.6 (*.dbf)", "FoxPro 2.6", "FoxPro (*.dbf) |*.dbf|", "*.dbf", true},
      {"gnDT_EXCEL50", "Excel 5.0 (*.xls)", "Excel 5.0", "Excel (*.xls) |*.xls|", "*.xls", false},
      {"gnDT_TEXTFILE", "Text (*.txt)", "Text", "Text (*.txt) |*.txt|", "*.txt", true},
  };
  ASSERT_EQ(ExportFormats().size(), std::size(rows));
  for (std::size_t i = 0; i < std::size(rows); ++i) {
    const auto& format = ExportFormats()[i];
    EXPECT_EQ(format.token, rows[i].token);
    EXPECT_EQ(format.text, rows[i].text);
    EXPECT_EQ(format.connect, rows[i].connect);
    EXPECT_EQ(format.filter, rows[i].filter);
    EXPECT_EQ(format.extension, rows[i].extension);
    EXPECT_EQ(format.is_folder, rows[i].is_folder);
    EXPECT_EQ(FindExportFormat(rows[i].token), &format);
  }
  EXPECT_EQ(FindExportFormat("gnNONE"), nullptr);
}

TEST_F(ExportWindows, ListTheFormatsWithTheFirstOneSelected) {
  for (const auto* print_mode : {"Report", "Chemical", "Met", "Fit", "Rim", "Deck", "Profile", "Import"}) {
    const auto form = OpenFor(print_mode);
    EXPECT_EQ(form.lstFormats.items, (Strings{"Access 2.0 (*.mdb)", "dBASE IV (*.dbf)", "FoxPro 2.6 (*.dbf)",
                                              "Excel 5.0 (*.xls)", "Text (*.txt)"}));
    EXPECT_EQ(form.lstFormats.selected, std::vector<std::size_t>{0});
    EXPECT_TRUE(form.cmdOK.enabled);
  }
}

TEST_F(ExportWindows, OfferTwoFormatsForFaults) {
  auto form = OpenFor("Error");
  EXPECT_EQ(form.lstFormats.items, (Strings{"Access 2.0 (*.mdb)", "Text (*.txt)"}));
  EXPECT_EQ(form.lstFormats.selected, std::vector<std::size_t>{0});
  SelectFormat(session_, form, 1);
  ClickOK(session_, form);
  EXPECT_EQ(session_.ExportFormat, "gnDT_TEXTFILE") << "the second one listed is not the second one of all";
}

TEST_F(ExportWindows, EachFormatSetsItsToken) {
  const Strings tokens = {"gnDT_JETMDB", "gnDT_DBASEIV", "gnDT_FOXPRO26", "gnDT_EXCEL50", "gnDT_TEXTFILE"};
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    auto form = OpenFor("Chemical");
    SelectFormat(session_, form, i);
    EXPECT_EQ(form.lstFormats.selected, std::vector<std::size_t>{i});
    ClickOK(session_, form);
    EXPECT_EQ(session_.ExportFormat, tokens[i]);
    EXPECT_TRUE(form.window.closed);
  }
  auto form = OpenFor("Chemical");
  SelectFormat(session_, form, 5);
  EXPECT_EQ(form.lstFormats.selected, std::vector<std::size_t>{0}) << "there is no sixth";
}

TEST_F(ExportWindows, CancelChoosesNoFormat) {
  session_.ExportFormat = "gnDT_EXCEL50";
  auto form = OpenFor("Chemical");
  SelectFormat(session_, form, 2);
  ClickCancel(session_, form);
  EXPECT_EQ(session_.ExportFormat, "gnNONE");
  EXPECT_TRUE(form.window.closed);
}

TEST_F(ExportWindows, BrowseAsksForAFileOfTheFormat) {
  for (const auto& format : ExportFormats()) {
    session_.ExportFormat = format.token;
    auto form = OpenFrmexname(session_);
    EXPECT_EQ(form.txtExportFileName.text, "");
    TypeExportFileName(session_, form, "/somewhere/else");
    test_.host.ChooseFile("/chosen/file");
    ClickBrowse(session_, form);
    EXPECT_EQ(form.txtExportFileName.text, "/chosen/file");
    EXPECT_FALSE(form.window.closed);
    const auto& request = test_.host.file_requests.back();
    EXPECT_EQ(request.title, "Export To:");
    EXPECT_EQ(request.folder, "/somewhere");
    EXPECT_EQ(request.file_name, format.extension);
    EXPECT_EQ(request.default_extension, format.extension);
    EXPECT_EQ(request.filter, format.filter);
  }
}

TEST_F(ExportWindows, ACancelledDialogLeavesWhatWasTyped) {
  session_.ExportFormat = "gnDT_TEXTFILE";
  auto form = OpenFrmexname(session_);
  TypeExportFileName(session_, form, "typed");
  test_.host.ChooseFile("");
  ClickBrowse(session_, form);
  EXPECT_EQ(form.txtExportFileName.text, "typed");
  EXPECT_TRUE(test_.host.messages.empty());
}

TEST_F(ExportWindows, OKNeedsAPath) {
  session_.ExportTarget = "of the last export";
  auto form = OpenFrmexname(session_);
  test_.host.ExpectMessage("Please specify a path!", "ORVEX", shell::Buttons::kOk, shell::Icon::kNone);
  ClickOK(session_, form);
  EXPECT_FALSE(form.window.closed);
  EXPECT_EQ(form.window.focus, "txtExportFileName");
  TypeExportFileName(session_, form, "/folder/file.txt");
  ClickOK(session_, form);
  EXPECT_TRUE(form.window.closed);
  EXPECT_EQ(session_.ExportTarget, "/folder/file.txt");
}

TEST_F(ExportWindows, CloseNamesNoFile) {
  session_.ExportTarget = "of the last export";
  auto form = OpenFrmexname(session_);
  TypeExportFileName(session_, form, "typed");
  ClickClose(session_, form);
  EXPECT_TRUE(form.window.closed);
  EXPECT_EQ(session_.ExportTarget, "");
}

TEST_F(ExportWindows, TheTableIsOfferedUnderItsOwnName) {
  session_.ExportTable = "chemical";
  session_.ExportTarget = "/folder/book.xls";
  auto form = OpenFrmexptbl(session_);
  EXPECT_EQ(form.lblTable.text, "Export chemical to:");
  EXPECT_EQ(form.lblPath.text, "in /folder/book.xls");
  EXPECT_EQ(form.txtTable.text, "chemical");
  TypeTable(session_, form, "liquids");
  EXPECT_EQ(session_.ExportTable, "chemical");
  ClickOK(session_, form);
  EXPECT_EQ(session_.ExportTable, "liquids");
  EXPECT_TRUE(form.window.closed);

  auto again = OpenFrmexptbl(session_);
  ClickCancel(session_, again);
  EXPECT_EQ(session_.ExportTable, "");
  EXPECT_TRUE(again.window.closed);
}

TEST_F(ExportWindows, HelpIsOnExportingTables) {
  auto format = OpenFor("Chemical");
  auto name = OpenFrmexname(session_);
  auto table = OpenFrmexptbl(session_);
  ClickHelp(session_, format);
  ClickHelp(session_, name);
  ClickHelp(session_, table);
  EXPECT_EQ(test_.host.help, (Strings{"export_tables", "export_tables", "export_tables"}));
  EXPECT_FALSE(format.window.closed || name.window.closed || table.window.closed);
}

}  // namespace
}  // namespace orvex::reports
