#include "refdata_case.h"

#include <fmt/format.h>

#include <stdexcept>
#include <string>

#include "memory.h"
#include "refdata/frmchemical.h"
#include "refdata/frmmet.h"
#include "silent_host.h"
#include "store/database.h"

namespace orvex::bench {
namespace {

constexpr int kRows = 5'000;
constexpr int kSought = 3'456;

constexpr RefdataCase kCases[] = {
    {"l1", "Open the chemicals, 5,000 of one's own", RefdataTable::kChemicals, RefdataStep::kOpen},
    {"l2", "Find one of them by its name", RefdataTable::kChemicals, RefdataStep::kFind},
    {"l3", "Save one of them under another name", RefdataTable::kChemicals, RefdataStep::kSave},
    {"l4", "Add one to them", RefdataTable::kChemicals, RefdataStep::kAdd},
    {"l5", "Open the cities, 5,000 of one's own", RefdataTable::kCities, RefdataStep::kOpen},
    {"l6", "Find one of them by its name", RefdataTable::kCities, RefdataStep::kFind},
    {"l7", "Save one of them under another name", RefdataTable::kCities, RefdataStep::kSave},
    {"l8", "Add one to them", RefdataTable::kCities, RefdataStep::kAdd},
};

/// How a table is filled, and its editor used.
struct Editor {
  std::string_view table;
  std::string_view user_defined;
  refdata::RecordEditor (*open)(shell::Session&);
  std::string_view finder;    ///< list that finds records
  std::string_view renaming;  ///< entry of which the name is made
  void (*name)(store::RecordSet& row, int number);
  std::string (*listed)(int number);
};

std::string ChemicalName(int number) { return fmt::format("Process stream {:05}", number); }
std::string CityName(int number) { return fmt::format("Terminal {:05}", number); }
std::string CityKey(int number) { return CityName(number) + ", Ohio"; }

void NameChemical(store::RecordSet& row, int number) {
  row.Set("NAME", ChemicalName(number));
  row.Set("CAS", fmt::format("{:05}-1", number));
  row.Set("CATEGORY", "Organic Liquids");
}

void NameCity(store::RecordSet& row, int number) {
  row.Set("CTYST", CityKey(number));
  row.Set("CITY", CityName(number));
  row.Set("STATE", "Ohio");
}

const Editor& EditorOf(RefdataTable table) {
  static constexpr Editor kChemicals = {
      "chemical", "USER_DEF", refdata::OpenFrmchemical, "dbcboChemName", "dbcboChemName", NameChemical, ChemicalName};
  static constexpr Editor kCities = {"met",    "USER DEF", refdata::OpenFrmMet, "dbcboMetCTYST", "txtCITY",
                                     NameCity, CityKey};
  return table == RefdataTable::kChemicals ? kChemicals : kCities;
}

void AddRows(store::Database& reference, const Editor& editor) {
  store::Transaction transaction(reference);
  auto rows = reference.OpenTable(editor.table);
  const auto fields = reference.Fields(editor.table);
  for (int number = 1; number <= kRows; ++number) {
    rows.AddNew();
    for (const auto& field : fields)
      if (field.type == store::FieldType::kDouble) rows.Set(field.name, 12.5 + number);
    editor.name(rows, number);
    rows.Set(editor.user_defined, true);
    rows.Update();
  }
  transaction.Commit();
}

void Require(bool done, const char* failure) {
  if (!done) throw std::runtime_error(failure);
}

void Find(shell::Session& session, refdata::RecordEditor& form, const Editor& editor) {
  refdata::At(form, editor.finder).box.text = editor.listed(kSought);
  refdata::PickRecord(session, form, editor.finder);
}

/// Takes the step in a session of its own; gives its time {s}.
double Take(const std::filesystem::path& reference, const Editor& editor, RefdataStep step) {
  SilentHost host;
  shell::Session session(host);
  session.ReferenceDb = store::Database::Open(reference);
  refdata::RecordEditor form;
  const double opened = Time([&] { form = editor.open(session); });
  Require(refdata::At(form, editor.finder).box.items.size() > kRows, "Not all rows are listed.");
  if (step == RefdataStep::kOpen) return opened;
  if (step == RefdataStep::kAdd) {
    const double added = Time([&] { refdata::ClickAddNew(session, form); });
    Require(form.just_added, "Nothing was added.");
    return added;
  }
  const double found = Time([&] { Find(session, form, editor); });
  Require(form.user_defined, "Nothing was found.");
  if (step == RefdataStep::kFind) return found;
  auto& name = refdata::At(form, editor.renaming);
  name.box.text += "a";
  refdata::TypeText(session, form, editor.renaming);
  const double saved = Time([&] { refdata::ClickSave(session, form); });
  Require(!refdata::IsChanged(name), "The record was not saved.");
  return saved;
}

}  // namespace

std::span<const RefdataCase> RefdataCases() { return kCases; }

Measurement Measure(const RefdataCase& refdata_case, const Settings& settings) {
  std::filesystem::create_directories(settings.folder);
  const auto reference = settings.folder / "bench_refdata.mdb";
  const auto& editor = EditorOf(refdata_case.table);
  Measurement measured{.key = std::string(refdata_case.key), .description = std::string(refdata_case.description)};
  for (int i = 0; i < settings.repetitions; ++i) {
    std::filesystem::copy_file(settings.reference, reference, std::filesystem::copy_options::overwrite_existing);
    std::filesystem::permissions(reference, std::filesystem::perms::owner_write, std::filesystem::perm_options::add);
    AddRows(*store::Database::Open(reference), editor);
    if (i == 0) ResetPeakMemory();
    KeepBest(measured.seconds, Take(reference, editor, refdata_case.step));
    if (i == 0) measured.peak_bytes = PeakMemory();
  }
  std::filesystem::remove(reference);
  return measured;
}

}  // namespace orvex::bench
