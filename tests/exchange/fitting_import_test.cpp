#include "exchange/reference_import_fixture.h"

namespace orvex::exchange {
namespace {

using test::AddRow;
using test::Fitting;
using test::Rows;
using test::With;

class FittingImport : public test::OneImportTest {
 protected:
  FittingImport() : OneImportTest("fitting") {}
};

TEST_F(FittingImport, CopiesItsSixFieldsAndNoMore) {
  Import({Fitting("Roof Leg", "Adjustable")}, 1);
  EXPECT_EQ(Query("SELECT * FROM fitting", {"FIT_TYPE", "COVR_TYPE", "K_FA", "K_FB", "K_M", "QUANTITY", "USER_DEF"}),
            Rows{"Roof Leg|Adjustable|1.6|0.25|1.5|3|-1"});
  EXPECT_EQ(
      Query("SELECT * FROM fitting", {"API_CERT", "TYP_IFLT", "WELD_DECK", "SELF_SUP", "TYP_EFLT", "D_ROOF", "P_SEAL"}),
      Rows{"-|0|0|0|0|0|0"});
}

TEST_F(FittingImport, LeavesWhatIsBlankNull) {
  Import({{{"FIT_TYPE", "Roof Leg"}}}, 1);
  EXPECT_EQ(Query("SELECT * FROM fitting", {"COVR_TYPE", "K_FA", "K_FB", "K_M", "QUANTITY"}), Rows{"-|-|-|-|-"});
}

TEST_F(FittingImport, TellsOfATypeAndCoverThatAreThere) {
  AddRow(reference(), "fitting", {{"FIT_TYPE", "roof leg"}, {"COVR_TYPE", "ADJUSTABLE"}});
  ExpectRefused(Fitting("Roof Leg", "Adjustable"), {"Duplicate fitting."});
  EXPECT_EQ(Log(), Rows{"Roof Leg/Adjustable|Duplicate fitting."});
}

TEST_F(FittingImport, TellsOfATypeWithoutCoverThatIsThereByItsTypeAlone) {
  AddRow(reference(), "fitting", {{"FIT_TYPE", "Roof Leg"}});
  ExpectRefused(Fitting("Roof Leg", {}), {"Duplicate fitting."});
  EXPECT_EQ(Log(), Rows{"Roof Leg|Duplicate fitting."});
}

TEST_F(FittingImport, TakesAnEmptyCoverForABlankOne) {
  AddRow(reference(), "fitting", {{"FIT_TYPE", "Roof Leg"}, {"COVR_TYPE", ""}});
  ExpectRefused(Fitting("Roof Leg", {}), {"Duplicate fitting."});
}

TEST_F(FittingImport, AddsATypeThatIsThereWithAnotherCoverOrNone) {
  AddRow(reference(), "fitting", {{"FIT_TYPE", "Roof Leg"}, {"COVR_TYPE", "Fixed"}});
  ExpectAdded(Fitting("Roof Leg", {}));
  ExpectAdded(Fitting("Roof Leg", "Adjustable"));
}

TEST_F(FittingImport, KeepsTypeAndCoverApart) {
  AddRow(reference(), "fitting", {{"FIT_TYPE", "Roof"}, {"COVR_TYPE", "Leg/Fixed"}});
  ExpectAdded(Fitting("Roof/Leg", "Fixed"));
}

TEST_F(FittingImport, OfTwoOfOneKeyInTheFileAddsTheFirst) {
  Import({Fitting("Roof Leg", "Fixed"), Fitting("Vent", {}), Fitting("Roof Leg", "Fixed"), Fitting("Vent", {})}, 2);
  EXPECT_EQ(Said(), (Rows{test::kImported, test::kImported, "Duplicate fitting.", "Duplicate fitting."}));
}

TEST_F(FittingImport, NeedsAType) {
  ExpectRefused(With(Fitting("", "Fixed"), {{"FIT_TYPE", {}}}), {"Fitting type must be specified."});
}

TEST_F(FittingImport, OneWithoutATypeIsNoDuplicateOfAnother) {
  AddRow(reference(), "fitting", {{"COVR_TYPE", "Fixed"}});
  ExpectRefused(With(Fitting("", "Fixed"), {{"FIT_TYPE", {}}}), {"Fitting type must be specified."});
}

TEST_F(FittingImport, CutsTheNameInTheLog) {
  // 50 characters, a slash and 50 characters: the log shows 49 of the cover's.
  const std::string type(50, 't'), cover(50, 'c');
  Import({Fitting(type, cover)}, 1);
  EXPECT_EQ(Query("SELECT * FROM [import errors]", {"IDX_ID", "ID"}),
            Rows{type + "/" + cover + "|" + type + "/" + cover.substr(1)});
}

TEST_F(FittingImport, TellsWhichTextIsTooLong) {
  ExpectRefused(Fitting(std::string(51, 't'), std::string(51, 'c')),
                {"FIT_TYPE must have no more than 50 characters.", "COVR_TYPE must have no more than 50 characters."});
}

}  // namespace
}  // namespace orvex::exchange
