#include "refdata/frmfitting.h"

#include "refdata/record_on_show.h"
#include "store/database.h"
#include "store/text_or_null.h"

namespace orvex::refdata {
namespace {

using store::TextOrNull;

constexpr std::string_view kType = "dbcboFitType", kStatus = "cboStatus";

bool IsComplete(const RecordEditor& form) { return !HeldText(form, "FIT_TYPE").empty(); }

/// A fitting without a status has none stored.
bool IsNameTaken(shell::Session& session, const RecordEditor& form) {
  return OtherHolds(session, form, "type", {HeldText(form, "FIT_TYPE"), TextOrNull(HeldText(form, "COVR_TYPE"))});
}

void FillTypes(shell::Session& session, RecordEditor& form) {
  At(form, kType).box.items = DistinctNames(session, "fitting", "FIT_TYPE");
}

/// Lists the statuses of the type on show.
void FillStatuses(shell::Session& session, RecordEditor& form) {
  auto& statuses = At(form, kStatus).box.items;
  statuses.clear();
  const auto& type = HeldText(form, "FIT_TYPE");
  if (type.empty()) return;
  for (auto rows = session.ReferenceDb->OpenMatching("fitting", "FIT_TYPE", {type}); !rows.AtEnd(); rows.MoveNext()) {
    if (auto status = rows.TextOrEmpty("COVR_TYPE"); !status.empty()) statuses.push_back(std::move(status));
  }
}

/// A type alone leads to the first of its fittings, which is the one without a status where there is one.
std::optional<std::int32_t> FindFitting(shell::Session& session, RecordEditor& form, std::string_view control,
                                        const std::string& picked) {
  auto& reference = *session.ReferenceDb;
  auto found = control == kType
                   ? reference.OpenAt("fitting", "type", {picked})
                   : reference.OpenAt("fitting", "type", {TextOrNull(HeldText(form, "FIT_TYPE")), TextOrNull(picked)});
  if (found.NoMatch()) return std::nullopt;
  return found.Long("Counter");
}

constexpr EditorInfo kFittingEditor = {
    .window = kFrmFittingText,
    .panel = "picFit",
    .label = "frmFitting.",
    .save_label = "frmFitting.",
    .table = "fitting",
    .user_defined_field = "USER_DEF",
    .entries = kFittingEntries,
    .name = kType,
    .incomplete = "Record cannot be saved. The fitting type must be filled in.",
    .duplicate = "Duplicate fitting type/status combination.",
    .composes_name = false,
    .is_complete = IsComplete,
    .finish = FillMissingNumbers,
    .is_name_taken = IsNameTaken,
    .fill_lists = FillTypes,
    .find = FindFitting,
    .belongs_to_record = nullptr,
    .shown = FillStatuses,
    .read = nullptr,
    .write = nullptr,
    .rules = {},
    .plot = nullptr,
};

}  // namespace

RecordEditor OpenFrmFitting(shell::Session& session) { return OpenEditor(session, kFittingEditor); }

}  // namespace orvex::refdata
