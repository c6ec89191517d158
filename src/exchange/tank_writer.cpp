#include "exchange/tank_writer.h"

#include <fmt/format.h>

#include <string>
#include <string_view>

#include "exchange/import_value.h"
#include "shell/trap.h"
#include "store/blanks.h"
#include "store/run_time_error.h"

namespace orvex::exchange {
namespace {

using shell::Statement;
using store::DbaseTable;
using store::RecordSet;

[[noreturn]] void Refuse(std::string_view field) {
  throw store::RunTimeError(store::ErrorNumber::kDataConversion,
                            fmt::format("nothing that belongs into the field {}", field));
}

double Number(const DbaseTable& from, std::string_view field) {
  if (const auto number = NumberIn(from.Get(field))) return *number;
  Refuse(field);
}

bool Flag(const DbaseTable& from, std::string_view field) {
  if (const auto flag = FlagIn(from.Get(field))) return *flag;
  Refuse(field);
}

void CopyField(const DbaseTable& from, RecordSet& to, const FieldCopy& field) {
  switch (field.blank) {
    case Blank::kStays:
      if (!from.IsNull(field.source)) to.Set(field.target, from.Get(field.source));
      return;
    case Blank::kIsZero:
      to.Set(field.target, Number(from, field.source));
      return;
    case Blank::kIsFalse:
      to.Set(field.target, Flag(from, field.source));
      return;
  }
}

void CopyFields(const DbaseTable& from, RecordSet& to, std::span<const FieldCopy> fields) {
  for (const auto& field : fields) Statement([&] { CopyField(from, to, field); });
}

void JoinFields(const DbaseTable& from, RecordSet& to, std::span<const JoinedFields> fields) {
  for (const auto& field : fields) {
    Statement([&] {
      const auto first = from.TextOrEmpty(field.first);
      if (field.needs_first && first.empty()) return;
      to.Set(field.target, fmt::format("{}{}{}", first, field.separator, from.TextOrEmpty(field.second)));
    });
  }
}

/// {gal/yr}
double Throughput(const DbaseTable& tank, const ImportedType* type) {
  if (type != nullptr && type->has_throughput) return Number(tank, "Q_NET");
  return Number(tank, "VOLUME") * Number(tank, "TURNOVER");
}

bool Holds(std::string_view text, std::string_view part) { return text.find(part) != std::string_view::npos; }

/// Null if the text names none.
const ImportedSeam* FindSeam(std::string_view construction, std::string_view construct) {
  for (const auto& seam : kImportedSeams) {
    if (seam.construct == construct && Holds(construction, seam.mark)) return &seam;
  }
  return nullptr;
}

}  // namespace

TankWriter::TankWriter(store::Database& client, ReferenceLookups& reference)
    : client_(client),
      reference_(reference),
      tanks_(client.OpenTable("tank")),
      mixtures_(client.OpenTable("mixtures")),
      fittings_(client.OpenTable("fittings")),
      components_(client.OpenTable("components")) {
  tanks_.SetIndex("USER ID");
}

void TankWriter::Write(TankSources& sources, const TankName& name) {
  ID_.reset();
  ID_ = WriteTank(sources.tanks, name);
  std::int32_t number = 0;
  sources.mixtures.ForEach(name.IDX_ID, [&](const DbaseTable& row) { WriteMixture(row, ++number); });
  number = 0;
  sources.fittings.ForEach(name.IDX_ID, [&](const DbaseTable& row) { WriteFitting(row, ++number); });
  number = 0;
  // Components are counted over the whole tank, not mixture by mixture.
  sources.components.ForEach(name.IDX_ID, [&](const DbaseTable& row) { WriteComponent(row, ++number); });
}

std::int32_t TankWriter::WriteTank(const DbaseTable& tank, const TankName& name) {
  const auto* const type = FindImportedType(tank.TextOrEmpty("TANK_TYPE"));
  tanks_.AddNew();
  // As it is looked for, so that the next import finds it.
  tanks_.Set("USER ID", name.ID);
  if (type != nullptr) tanks_.Set("TANK_TYPE", type->target);
  CopyFields(tank, tanks_, kTankFields);
  JoinFields(tank, tanks_, kJoinedTankFields);
  Statement([&] { tanks_.Set("Q_NET", Throughput(tank, type)); });
  if (type != nullptr && type->construct == Construct::kDeck) SetDeck(tank);
  if (type != nullptr && type->construct == Construct::kShell) {
    Statement([&] { tanks_.Set("TANK_CONSTRUCT", tank.Get("CONSTRUCT")); });
  }
  tanks_.Update();
  tanks_.Move(tanks_.LastModified());
  return tanks_.Long("ID");
}

void TankWriter::SetDeck(const DbaseTable& tank) {
  if (tank.TextOrEmpty("DECK_TYPE") != kBolted) return;
  const auto construction = tank.TextOrEmpty("CONSTRUCT");
  const auto construct = Holds(construction, shell::kSheet) ? shell::kSheet : shell::kPanel;
  tanks_.Set("DECK_CONSTRUCT", construct);
  const auto* const seam = FindSeam(construction, construct);
  if (seam == nullptr) return;
  tanks_.Set("DECK_SEAM", seam->name);
  if (reference_.FindDeckSeam(seam->name)) tanks_.Set("SD", reference_.deck_seams.Get("SD"));
}

void TankWriter::WriteMixture(const DbaseTable& mixture, std::int32_t number) {
  mixtures_.AddNew();
  mixtures_.Set("ID", *ID_);
  mixtures_.Set("MIX ID", number);
  CopyFields(mixture, mixtures_, kMixtureFields);
  mixtures_.Update();
}

void TankWriter::WriteFitting(const DbaseTable& fitting, std::int32_t number) {
  fittings_.AddNew();
  fittings_.Set("ID", *ID_);
  fittings_.Set("FIT ID", number);
  fittings_.Set("FIT_TYPE", FittingType(fitting.TextOrEmpty("FIT_TYPE")));
  CopyFields(fitting, fittings_, kFittingFields);
  fittings_.Update();
}

void TankWriter::WriteComponent(const DbaseTable& component, std::int32_t number) {
  const bool known = reference_.FindChemical(component.TextOrEmpty("NAME"));
  components_.AddNew();
  components_.Set("ID", *ID_);
  components_.Set("MIX ID", store::Value(store::WithoutBlanks(component.TextOrEmpty("MIX_ID"))).AsLong());
  components_.Set("COMP ID", number);
  CopyFields(component, components_, kComponentFields);
  for (const auto field : kChemicalFields) {
    if (known) components_.Set(field, reference_.chemicals.Get(field));
  }
  components_.Update();
}

void TankWriter::Undo() {
  for (auto* const rows : {&tanks_, &mixtures_, &fittings_, &components_}) rows->CancelUpdate();
  if (!ID_) return;
  client_.DeleteMatching("tank", "ID", {*ID_});
  client_.DeleteMatching("mixtures", "IDMIX", {*ID_});
  client_.DeleteMatching("fittings", "fitid", {*ID_});
  client_.DeleteMatching("components", "IDMIX", {*ID_});
  ID_.reset();
}

}  // namespace orvex::exchange
