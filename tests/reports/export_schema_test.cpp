#include <gtest/gtest.h>

#include <string>

#include "reports/reference_report_fixture.h"
#include "reports/schema_check.h"

namespace orvex::reports {
namespace {

/// A report with one thing changed that a reader would stumble over.
struct Mutation {
  const char* word;
  const char* from;  ///< the first place in the file with this text
  const char* to;
};
constexpr Mutation kMutations[] = {
    {"Chemical", "<Type>Chemical<", "<Type>Chemicals<"},
    {"Chemical", "<Type>Chemical<", "<Type>Met<"},
    {"Chemical", "<Type>Chemical</Type>", ""},
    {"Chemical", "<DataExport>", "<DataExport version=\"1\">"},
    {"Chemical", "<DataExport>", "<DataExport>text"},
    {"Chemical", "<NAME>", "<Name/><NAME>"},
    {"Chemical", "<CAS/>", ""},
    {"Chemical", "<CAS/><CATEGORY/>", "<CATEGORY/><CAS/>"},
    {"Chemical", "<MOLWT>78.11<", "<MOLWT>78.114<"},
    {"Chemical", "<MOLWT>78.11<", "<MOLWT>78,11<"},
    {"Chemical", "<MOLWT>78.11<", "<MOLWT>\u00A0<"},
    {"Chemical", "<REC_NO>1<", "<REC_NO>0<"},
    {"Chemical", "<REC_NO>1</REC_NO>", ""},
    {"Chemical", "<Counter>1<", "<Counter>1.00<"},
    {"Met", "<USERDEF>", "<USER_DEF>"},
    {"Met", "<USERDEF>N<", "<USERDEF>0<"},
    {"Met", "<TAX_JAN>-1,234.50<", "<TAX_JAN>-1234.50<"},
    {"Fit", "<QUANTITY>0<", "<QUANTITY>0.00<"},
    {"Fit", "<Fit>Fitting Report", "<Fitting>Fitting Report"},
    {"Rim", "<WELDED>Y<", "<WELDED>Yes<"},
    {"Deck", "<SWIDTH>5.00<", "<SWIDTH unit=\"ft\">5.00<"},
    {"Profile", "<Speciation>", "<Profile>"},
    {"Profile", "<ProfileName>", "<Profile_Name>"},
    {"Profile", "<COMPONENTS><COMPONENT>", "<COMPONENT>"},
    {"Profile", "<SPECID>", "<SPEC_ID>"},
    {"Profile", "<WT_FRACT>60.00<", "<WT_FRACT>60<"},
};

class ExportSchema : public test::ReferenceReportTest {
 protected:
  ExportSchema() {
    test::AddRow(Reference(), "chemical", {{"NAME", "Benzene & <co>"}, {"MOLWT", 78.114}});
    test::AddRow(Reference(), "met", {{"CTYST", "Enid"}, {"TAX_JAN", -1234.5}});
    test::AddRow(Reference(), "fitting", {{"FIT_TYPE", "Ladder"}, {"QUANTITY", 0.0}, {"K_FA", 0.0}});
    test::AddRow(Reference(), "rimseal", {{"PRIM_SEAL", "Shoe"}, {"WELDED", true}});
    test::AddRow(Reference(), "deckseam", {{"NAME", "Sheet"}, {"SWIDTH", 5.0}});
    test::AddRow(Reference(), "profile names", {{"Profile Name", "Gasoline"}, {"TYPE", "Full"}});
    test::AddRow(Reference(), "profile components", {{"SPEC ID", 1}, {"NAME", "Benzene"}, {"WT_FRACT", 60.0}});
    test::AddRow(Reference(), "profile names", {{"Profile Name", "Own"}});
  }

  std::string Written(std::string_view word) {
    PrintAll(word);
    return test::FileContent(File());
  }
  std::string FaultsOf(const std::string& text) {
    const auto path = test_.folder.Path() / "checked.xml";
    test::WriteFile(path, text);
    return test::GrammarFaults("data_export.rng", {path});
  }
};

TEST_F(ExportSchema, TakesTheReportsOnAllTables) {
  for (const auto word : test::kWords) EXPECT_EQ(FaultsOf(Written(word)), "") << word;
  for (const auto word : test::kWords) {
    const auto text = Written(word);
    const auto record = text.find("\\r\\n\\r\\n") + 8;
    EXPECT_EQ(FaultsOf(text.substr(0, record) + "</DataExport>"), "") << word << " without records";
  }
}

TEST_F(ExportSchema, TakesTheLogOfAnImport) {
  test::AddRow(Reference(), "import errors", {{"ID", "North"}, {"Error", "Import Successful"}});
  session_.PrintMode = "Import";
  auto output = OpenFrmprintrep(session_);
  ClickOK(session_, output);
  auto text = test::FileContent(File());
  EXPECT_EQ(FaultsOf(text), "");
  EXPECT_NE(FaultsOf(text.replace(text.find("<Error>"), 7, "<error>")), "");
}

TEST_F(ExportSchema, TakesTheDeliveredTables) {
  session_.ReferenceDb = store::Database::Open(ORVEX_REFERENCE_DATABASE, store::OpenMode::kReadOnly);
  for (const auto word : test::kWords) EXPECT_EQ(FaultsOf(Written(word)), "") << word;
}

TEST_F(ExportSchema, RefusesEachMutation) {
  for (const auto& mutation : kMutations) {
    auto text = Written(mutation.word);
    const std::string from = mutation.from;
    const auto at = text.find(from);
    ASSERT_NE(at, std::string::npos) << mutation.word << ' ' << from;
    text.replace(at, from.size(), mutation.to);
    EXPECT_NE(FaultsOf(text), "") << from << " -> " << mutation.to;
  }
}

}  // namespace
}  // namespace orvex::reports
