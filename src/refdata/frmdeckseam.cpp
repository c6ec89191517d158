#include "refdata/frmdeckseam.h"

#include "refdata/deck_seam_sizes.h"
#include "refdata/record_on_show.h"
#include "shell/upper_case.h"
#include "store/database.h"

namespace orvex::refdata {
namespace {

constexpr std::string_view kName = "dbcboName", kConstruction = "cboConstruct";
constexpr std::string_view kPanelLength = "txtPLENGTH", kPanelWidth = "txtPWIDTH", kSheetWidth = "txtSWIDTH",
                           kFactor = "txtSD", kCertificate = "txtAPICERT";

constexpr std::string_view kPanelSizes[] = {"PLENGTH", "PWIDTH"};
constexpr std::string_view kSheetSizes[] = {"SWIDTH"};

/// The sizes that a seam of the construction on show has; none while it is of no construction.
std::span<const std::string_view> Sizes(const RecordEditor& form) {
  const auto& construction = HeldText(form, "CONSTRUC");
  if (construction == shell::kPanel) return kPanelSizes;
  if (construction == shell::kSheet) return kSheetSizes;
  return {};
}

bool IsComplete(const RecordEditor& form) { return !Sizes(form).empty() && AreFilled(form, Sizes(form)); }

void Compose(RecordEditor& form) {
  const auto& construction = HeldText(form, "CONSTRUC");
  const auto& certificate = HeldText(form, "APICERT");
  auto& name = At(form, kName);
  if (construction == shell::kPanel) {
    Hold(name, PanelSeamName(HeldNumber(form, "PLENGTH"), HeldNumber(form, "PWIDTH"), certificate));
  } else if (construction == shell::kSheet) {
    Hold(name, SheetSeamName(HeldNumber(form, "SWIDTH"), certificate));
  }
}

/// Fills in the seam's length per area as it follows from the sizes, if they are known.
void FillFactor(RecordEditor& form) {
  if (!IsComplete(form)) return;
  const double factor = HeldText(form, "CONSTRUC") == shell::kPanel
                            ? PanelSeamFactor(HeldText(form, "PLENGTH"), HeldText(form, "PWIDTH"))
                            : SheetSeamFactor(HeldNumber(form, "SWIDTH"));
  HoldNumber(At(form, kFactor), factor);
}

/// A factor that was typed is shown with two decimals, too, once it is left.
void ShowFactor(RecordEditor& form) {
  auto& factor = At(form, kFactor);
  Hold(factor, std::string(factor.held));
}

void Finish(RecordEditor& form) {
  FillMissingNumbers(form);
  Compose(form);
  if (HeldNumber(form, "SD") == 0) FillFactor(form);
}

/// Names that differ in case only are the same, whatever their letters.
bool IsNameTaken(shell::Session& session, const RecordEditor& form) {
  const auto name = shell::UpperCase(HeldText(form, "NAME"));
  return AnyOther(form, session.ReferenceDb->OpenQuery("SELECT Counter, NAME FROM deckseam WHERE NAME IS NOT NULL"),
                  [&](store::RecordSet& row) { return shell::UpperCase(row.Text("NAME")) == name; });
}

void FillNames(shell::Session& session, RecordEditor& form) {
  At(form, kName).box.items = Names(session, "deckseam", "NAME");
}

std::optional<std::int32_t> FindDeckSeam(shell::Session& session, RecordEditor&, std::string_view,
                                         const std::string& picked) {
  return FindByName(session, "deckseam", "name", "NAME", picked);
}

void ShowSizes(shell::Session&, RecordEditor& form) {
  const auto& construction = HeldText(form, "CONSTRUC");
  for (const auto field : kPanelSizes) Of(form, field).box.visible = construction == shell::kPanel;
  for (const auto field : kSheetSizes) Of(form, field).box.visible = construction == shell::kSheet;
}

constexpr Rule kRules[] = {
    {kConstruction, Moment::kChanged, Compose}, {kPanelLength, Moment::kChanged, Compose},
    {kPanelWidth, Moment::kChanged, Compose},   {kSheetWidth, Moment::kChanged, Compose},
    {kCertificate, Moment::kChanged, Compose},  {kPanelLength, Moment::kLeft, FillFactor},
    {kPanelWidth, Moment::kLeft, FillFactor},   {kSheetWidth, Moment::kLeft, FillFactor},
    {kFactor, Moment::kLeft, ShowFactor},
};

constexpr EditorInfo kDeckSeamEditor = {
    .window = kFrmDeckSeamText,
    .panel = "picDeck",
    .label = "frmDeckSeam.",
    .save_label = "frmDeckSeam.SaveDeckSeam",
    .table = "deckseam",
    .user_defined_field = "USER_DEF",
    .entries = kDeckSeamEntries,
    .name = kName,
    .incomplete =
        "Record cannot be saved. Construction must be either 'Sheet' or 'Panel', and the applicable lengths and widths "
        "must be specified.",
    .duplicate = "Duplicate deck seam.",
    .composes_name = true,
    .is_complete = IsComplete,
    .finish = Finish,
    .is_name_taken = IsNameTaken,
    .fill_lists = FillNames,
    .find = FindDeckSeam,
    .belongs_to_record = nullptr,
    .shown = ShowSizes,
    .read = nullptr,
    .write = nullptr,
    .rules = kRules,
    .plot = nullptr,
};

}  // namespace

RecordEditor OpenFrmDeckSeam(shell::Session& session) { return OpenEditor(session, kDeckSeamEditor); }

}  // namespace orvex::refdata
