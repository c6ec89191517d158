#include "refdata/frmrimseal.h"

#include <algorithm>

#include "refdata/record_on_show.h"
#include "store/database.h"
#include "store/letter_case.h"
#include "store/text_or_null.h"

namespace orvex::refdata {
namespace {

using store::TextOrNull, store::Value;

constexpr std::string_view kPrimary = "dbcboPrimSeal", kSecondary = "cboSecSeal", kConstruction = "cboConstruct";
constexpr std::string_view kNoSecondary = "None";

/// A row that another program has made without a secondary seal counts as one with none stored.
Value Primary(const RecordEditor& form) { return TextOrNull(HeldText(form, "PRIM_SEAL")); }
Value Secondary(const RecordEditor& form) { return TextOrNull(HeldText(form, "SECND_SEAL")); }

bool IsFor(const RecordEditor& form, std::string_view construction) {
  return At(form, kConstruction).held == construction;
}

bool IsComplete(const RecordEditor& form) {
  return !HeldText(form, "PRIM_SEAL").empty() && (IsFor(form, shell::kWelded) || IsFor(form, shell::kRiveted));
}

void Finish(RecordEditor& form) {
  FillMissingNumbers(form);
  auto& secondary = At(form, kSecondary);
  if (secondary.held.empty()) Hold(secondary, kNoSecondary);
}

bool IsNameTaken(shell::Session& session, const RecordEditor& form) {
  return OtherHolds(session, form, "rimid",
                    {Primary(form), Secondary(form), IsFor(form, shell::kWelded), IsFor(form, shell::kRiveted)});
}

void FillPrimaries(shell::Session& session, RecordEditor& form) {
  At(form, kPrimary).box.items = DistinctNames(session, "rimseal", "PRIM_SEAL");
}

/// Lists the secondary seals that the primary one on show has, each once.
void FillSecondaries(shell::Session& session, RecordEditor& form) {
  auto& seals = At(form, kSecondary).box.items;
  seals.clear();
  if (Primary(form).IsNull()) return;
  auto rows = session.ReferenceDb->OpenMatching("rimseal", "prim", {Primary(form)});
  for (; !rows.AtEnd(); rows.MoveNext()) {
    auto seal = rows.TextOrEmpty("SECND_SEAL");
    const auto is_seal = [&](const std::string& known) { return store::EqualNoCase(known, seal); };
    if (!seal.empty() && std::ranges::none_of(seals, is_seal)) seals.push_back(std::move(seal));
  }
}

/// Lists the constructions for which the pair of seals on show has rows; for a record of the person's own both, unless
/// they are about to find one.
void FillConstructions(shell::Session& session, RecordEditor& form) {
  auto& constructions = At(form, kConstruction).box.items;
  constructions.assign(std::begin(shell::kConstructions), std::end(shell::kConstructions));
  if (form.user_defined && !form.narrowing) return;
  bool welded = false, riveted = false;
  auto rows = session.ReferenceDb->OpenMatching("rimseal", "primsec", {Primary(form), Secondary(form)});
  for (; !rows.AtEnd(); rows.MoveNext()) {
    welded = welded || rows.BoolOrFalse("WELDED");
    riveted = riveted || rows.BoolOrFalse("RIVETED");
  }
  std::erase_if(constructions, [&](const std::string& item) { return item == shell::kWelded ? !welded : !riveted; });
}

void FillNarrowed(shell::Session& session, RecordEditor& form) {
  FillSecondaries(session, form);
  FillConstructions(session, form);
}

/// Right after a seal was picked a construction goes on with finding; otherwise it is the record's own.
bool BelongsToRecord(const RecordEditor& form, std::string_view control) {
  return control == kConstruction && !form.narrowing;
}

store::RecordSet Find(shell::Session& session, const RecordEditor& form, std::string_view control,
                      const std::string& picked) {
  auto& reference = *session.ReferenceDb;
  if (control == kPrimary) return reference.OpenAt("rimseal", "prim", {picked});
  if (control == kSecondary) return reference.OpenAt("rimseal", "primsec", {Primary(form), TextOrNull(picked)});
  return reference.OpenAt("rimseal", "rimid",
                          {Primary(form), Secondary(form), picked == shell::kWelded, picked == shell::kRiveted});
}

std::optional<std::int32_t> FindRimSeal(shell::Session& session, RecordEditor& form, std::string_view control,
                                        const std::string& picked) {
  auto found = Find(session, form, control, picked);
  if (found.NoMatch()) return std::nullopt;
  form.narrowing = control != kConstruction;
  return found.Long("Counter");
}

/// Two fields make one choice.
void ReadConstruction(store::RecordSet& row, RecordEditor& form) {
  auto& construction = At(form, kConstruction);
  const auto stored = row.BoolOrFalse("WELDED")    ? shell::kWelded
                      : row.BoolOrFalse("RIVETED") ? shell::kRiveted
                                                   : std::string_view();
  Hold(construction, stored);
  construction.loaded = stored;
}

void WriteConstruction(store::RecordSet& row, const RecordEditor& form) {
  row.Set("WELDED", IsFor(form, shell::kWelded));
  row.Set("RIVETED", IsFor(form, shell::kRiveted));
}

constexpr EditorInfo kRimSealEditor = {
    .window = kFrmRimSealText,
    .panel = "picRim",
    .label = "frmRimSeal.",
    .save_label = "frmRimSeal.",
    .table = "rimseal",
    .user_defined_field = "USER_DEF",
    .entries = kRimSealEntries,
    .name = kPrimary,
    .incomplete =
        "Record cannot be saved. Primary seal must be filled in, and the construction must be either 'Welded' or "
        "'Riveted'.",
    .duplicate = "Duplicate rim seal.",
    .composes_name = false,
    .is_complete = IsComplete,
    .finish = Finish,
    .is_name_taken = IsNameTaken,
    .fill_lists = FillPrimaries,
    .find = FindRimSeal,
    .belongs_to_record = BelongsToRecord,
    .shown = FillNarrowed,
    .read = ReadConstruction,
    .write = WriteConstruction,
    .rules = {},
    .plot = nullptr,
};

}  // namespace

RecordEditor OpenFrmRimSeal(shell::Session& session) { return OpenEditor(session, kRimSealEditor); }

}  // namespace orvex::refdata
