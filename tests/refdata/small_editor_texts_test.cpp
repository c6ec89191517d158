#include "refdata/captions.h"
#include "refdata/small_editors.h"

namespace orvex::refdata {
namespace {

using Captions = std::vector<std::pair<std::string_view, std::string>>;

void ExpectCaptions(const shell::WindowText& window, const Captions& captions) {
  for (const auto& [control, caption] : captions) EXPECT_EQ(test::Caption(window, control), caption) << control;
}

TEST(SmallEditorTexts, OfTheFittings) {
  EXPECT_EQ(kFrmFittingText.title, "Fitting Factor");
  EXPECT_EQ(kFrmFittingText.topic, "fittings_edit");
  ExpectCaptions(kFrmFittingText, {{"dbcboFitType", "Fitting Type:"},
                                   {"cboStatus", "Status:"},
                                   {"txtAPI_CERT", "API Certification Number:"},
                                   {"txtK_FA", "K-fa (lb-mole/yr):"},
                                   {"txtK_FB", "K-fb (lb-mole/(mph)^M-yr):"},
                                   {"txtK_M", "M (dimensionless):"},
                                   {"txtQUANTITY", "Default Quantity:"}});
}

TEST(SmallEditorTexts, OfTheRimSeals) {
  EXPECT_EQ(kFrmRimSealText.title, "Rim Seal");
  EXPECT_EQ(kFrmRimSealText.topic, "rim_seals_edit");
  EXPECT_EQ(kApplicability, "Applicability of Factors: ");
  ExpectCaptions(kFrmRimSealText, {{"dbcboPrimSeal", "Primary Seal:"},
                                   {"cboSecSeal", "Secondary Seal:"},
                                   {"cboConstruct", "Applicable Tank Construction:"},
                                   {"txtAPI_CERT", "API Certification Number:"},
                                   {"txtK_RA", "K-ra (lb-mole/(mph)^N-ft-yr):"},
                                   {"txtK_RB", "K-rb (lb-mole/(mph)^N-ft-yr):"},
                                   {"txtN_FACTOR", "N (dimensionless):"},
                                   {"cboEFRT", "External Floating Roof Tanks:"},
                                   {"cboDEFRT", "Domed External Floating Roof Tanks:"},
                                   {"cboIFRT", "Internal Floating Roof Tanks:"}});
}

TEST(SmallEditorTexts, OfTheDeckSeams) {
  EXPECT_EQ(kFrmDeckSeamText.title, "Deck Seam");
  EXPECT_EQ(kFrmDeckSeamText.topic, "deck_seams_edit");
  ExpectCaptions(kFrmDeckSeamText, {{"dbcboName", "Name:"},
                                    {"cboConstruct", "Construction:"},
                                    {"txtPLENGTH", "Panel Length (ft): "},
                                    {"txtPWIDTH", "Panel Width (ft):"},
                                    {"txtSWIDTH", "Sheet Width (ft):"},
                                    {"txtKD", "KD (lb-mole/ft-yr):"},
                                    {"txtSD", "Default SD (ft/ft^2): "},
                                    {"txtAPICERT", "API Certification Number:"}});
}

TEST(SmallEditorTexts, OfTheCommands) {
  for (const auto* window : {&kFrmFittingText, &kFrmRimSealText, &kFrmDeckSeamText})
    ExpectCaptions(*window, {{"cmdAddNew", "Add New"},
                             {"cmdSave", "Save"},
                             {"cmdDelete", "Delete"},
                             {"cmdClose", "Close"},
                             {"cmdHelp", "Help"}});
}

}  // namespace
}  // namespace orvex::refdata
