#include "exchange/reference_import.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "exchange/dbase_dialog.h"
#include "exchange/import_log.h"
#include "exchange/import_source.h"
#include "exchange/reference_kinds.h"
#include "shell/editing.h"
#include "shell/status.h"
#include "shell/trap.h"
#include "store/letter_case.h"
#include "store/utf8.h"

namespace orvex::exchange {
namespace {

/// The texts that tell the rows of a table apart. Reading them once comes to the same as walking through the table for
/// each row of the source: nobody else writes meanwhile.
class Namesakes {
 public:
  Namesakes(store::Database& reference, const ReferenceKind& kind) : kind_(kind) {
    for (auto rows = reference.OpenTable(kind.table); !rows.AtEnd(); rows.MoveNext())
      Add([&](const SameText& same) { return rows.TextOrEmpty(same.field); });
  }

  [[nodiscard]] bool Has(const ImportSource& row) const {
    return known_.contains(Joined([&](const SameText& same) { return same.text(row); }));
  }

  /// The record being added.
  void AddCurrent(store::RecordSet& added) {
    Add([&](const SameText& same) { return added.TextOrEmpty(same.field); });
  }

 private:
  template <typename Text>
  void Add(Text&& text) {
    // A row without the first of the texts is nobody's namesake.
    if (!text(kind_.same.front()).empty()) known_.insert(Joined(text));
  }

  /// With their lengths, so that different texts never join to the same one.
  template <typename Text>
  [[nodiscard]] std::string Joined(Text&& text) const {
    std::string joined;
    for (const auto& same : kind_.same) {
      std::string part = text(same);
      if (part.empty()) part = same.blank;
      joined += fmt::format("{}:{}", part.size(), part);
    }
    return joined;
  }

  const ReferenceKind& kind_;
  std::unordered_set<std::string, store::NameHash, store::NameEqual> known_;
};

class ReferenceImport {
 public:
  ReferenceImport(store::Database& reference, const ReferenceKind& kind, ImportSource& source)
      : kind_(kind),
        source_(source),
        log_(reference),
        target_(reference.OpenTable(kind.table)),
        namesakes_(reference, kind) {
    for (const auto name : kind.copied) fields_.push_back({StoredFieldOf(reference, name), nullptr});
    for (const auto& made : kind.made) fields_.push_back({StoredFieldOf(reference, made.field), made.text});
  }

  /// True if the current row of the source was added.
  bool ImportRow() {
    bool faultless = true;
    const auto key = kind_.key(source_);
    const auto fail = [&](std::string_view failure) {
      log_.Add(key, key, failure);
      faultless = false;
    };
    if (namesakes_.Has(source_)) fail(kind_.duplicate);
    for (const auto& check : kind_.checks)
      if (!check.passes(source_)) fail(check.failure);
    for (const auto& field : fields_)
      if (IsTooLong(field))
        fail(fmt::format("{} must have no more than {} characters.", field.stored.name, field.stored.width));
    if (!faultless) return false;
    AddRow();
    log_.Add(key, key, kImported);
    return true;
  }

 private:
  /// A field of the table that is filled.
  struct Field {
    store::StoredField stored;
    std::string (*made)(const ImportSource& row);  ///< null for one that is copied
  };

  [[nodiscard]] store::StoredField StoredFieldOf(store::Database& reference, std::string_view name) const {
    const auto fields = reference.Fields(kind_.table);
    const auto found =
        std::ranges::find_if(fields, [&](const auto& field) { return store::EqualNoCase(field.name, name); });
    if (found != fields.end()) return *found;
    throw store::RunTimeError(store::ErrorNumber::kItemNotFound,
                              fmt::format("The field '{}' was not found in the table '{}' of {}.", name, kind_.table,
                                          reference.Path().string()));
  }

  [[nodiscard]] std::string Text(const Field& field) const {
    return field.made != nullptr ? field.made(source_) : source_.Text(field.stored.name);
  }

  [[nodiscard]] bool IsTooLong(const Field& field) const {
    return field.stored.type == store::FieldType::kText && field.stored.width > 0 &&
           store::CharacterCount(Text(field)) > static_cast<std::size_t>(field.stored.width);
  }

  void AddRow() {
    target_.AddNew();
    for (const auto& field : fields_) {
      // What is blank in the source stays as a new record has it.
      if (field.made == nullptr && source_.IsNull(field.stored.name)) continue;
      SetField(field);
    }
    target_.Set(kind_.user_defined, true);
    namesakes_.AddCurrent(target_);
    target_.Update();
  }

  void SetField(const Field& field) {
    const auto& name = field.stored.name;
    switch (field.stored.type) {
      case store::FieldType::kText:
        target_.Set(name, Text(field));
        return;
      case store::FieldType::kBoolean:
        target_.Set(name, source_.Flag(name));
        return;
      default:
        target_.Set(name, source_.Number(name));
        return;
    }
  }

  const ReferenceKind& kind_;
  ImportSource& source_;
  ImportLog log_;
  store::RecordSet target_;
  Namesakes namesakes_;
  std::vector<Field> fields_;
};

/// Number of rows added. The caller has the transaction.
std::int64_t ImportRows(shell::Session& session, const ReferenceKind& kind, const std::string& path,
                        const store::Transaction& transaction) {
  ImportSource source(path);
  ReferenceImport import(*session.ReferenceDb, kind, source);
  std::int64_t added = 0;
  for (; !source.AtEnd(); source.MoveNext()) {
    if (import.ImportRow()) ++added;
    transaction.RequireAlive();
    session.host.Progress(source.Position(), source.RecordCount());
  }
  return added;
}

/// Number of rows added; nothing if another program edits the database.
std::optional<std::int64_t> ImportFile(shell::Session& session, const ReferenceKind& kind) {
  const shell::BusyScope busy(session, "Processing");
  const auto editing = shell::BeginEditing(session, shell::DatabaseKind::kTank);
  if (!editing) return std::nullopt;
  const auto path = AskForDbaseFile(session.host, kind.file);
  store::Transaction transaction(*session.ReferenceDb);
  // In the transaction, so that the old log stays when the person cancels or the file is no good.
  ImportLog(*session.ReferenceDb).Clear();
  const auto added = ImportRows(session, kind, path, transaction);
  transaction.Commit();
  return added;
}

void Import(shell::Session& session, const ReferenceKind& kind) {
  shell::Trapped(session, kind.import_label, [&] {
    const auto added = ImportFile(session, kind);
    if (!added) return;
    shell::Tell(session.host, fmt::format("{} records were appended to the current tank database.", *added));
    OfferImportLog(session);
  });
}

bool ImportAsStep(shell::Session& session, const ReferenceKind& kind, const std::string& path) {
  return shell::Trapped(session, kind.step_label, false, [&] {
    store::Transaction transaction(*session.ReferenceDb);
    ImportRows(session, kind, path, transaction);
    transaction.Commit();
    return true;
  });
}

}  // namespace

void ImportChemical(shell::Session& session) { Import(session, ChemicalKind()); }
void ImportMet(shell::Session& session) { Import(session, CityKind()); }
void ImportFit(shell::Session& session) { Import(session, FittingKind()); }
void ImportRim(shell::Session& session) { Import(session, RimSealKind()); }

bool IChemical(shell::Session& session, const std::string& path) { return ImportAsStep(session, ChemicalKind(), path); }
bool IMet(shell::Session& session, const std::string& path) { return ImportAsStep(session, CityKind(), path); }
bool IFit(shell::Session& session, const std::string& path) { return ImportAsStep(session, FittingKind(), path); }
bool IRim(shell::Session& session, const std::string& path) { return ImportAsStep(session, RimSealKind(), path); }

}  // namespace orvex::exchange
