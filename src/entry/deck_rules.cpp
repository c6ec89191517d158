#include "entry/deck_rules.h"

#include <fmt/format.h>

#include <algorithm>

#include "entry/tank_entry.h"
#include "entry/tank_geometry.h"
#include "entry/update_tank.h"
#include "shell/entry_number.h"
#include "shell/number_format.h"
#include "shell/status.h"
#include "store/database.h"
#include "store/letter_case.h"

namespace orvex::entry {
namespace {

using shell::Session;

double SeamLengthOf(FrmTank& form) {
  return SeamLength(Number(Physical(form, "SD")), Number(Physical(form, "DIAMETER")));
}

void Propose(Session& session, Entry& length, const std::string& value, std::string_view question) {
  if (shell::Accepted(session.host, fmt::format(fmt::runtime(question), value), "Deck Seam Length"))
    length.box.text = value;
}

constexpr std::string_view kSuggestedValue = "The suggested value is {}. Use This Value?";
constexpr std::string_view kSuggestedLength = "The suggested deck seam length is {}(ft). Use This Value?";

/// The deck seam as of the tank's last opening or saving; empty for a tank that has never been saved.
std::string DeckSeamOfCopy(Session& session, const FrmTank& form) {
  const auto& copy = session.tank_entry->copy;
  if (copy.ID != form.ID || copy.TankCopy.empty()) return {};
  const auto fields = session.ClientDb->Fields("tank");
  const auto seam =
      std::ranges::find_if(fields, [](const auto& field) { return store::EqualNoCase(field.name, "DECK_SEAM"); });
  return copy.TankCopy.front().at(static_cast<std::size_t>(seam - fields.begin())).TextOrEmpty();
}

}  // namespace

void ShowDeckEntries(FrmTank& form) {
  const bool seams = StoredText(Physical(form, "DECK_TYPE")) != "Welded";
  for (const auto* field : {"DECK_CONSTRUCT", "DECK_SEAM", "DECK_SEAM_LENGTH"})
    Physical(form, field).box.visible = seams;
}

void FillDeckSeams(Session& session, FrmTank& form) {
  auto& items = Physical(form, "DECK_SEAM").box.items;
  items.clear();
  const auto construction = StoredText(Physical(form, "DECK_CONSTRUCT"));
  if (construction.empty()) return;
  auto seams =
      session.ReferenceDb->OpenQuery(fmt::format("SELECT NAME FROM deckseam WHERE NAME Like '*{}*'", construction));
  for (; !seams.AtEnd(); seams.MoveNext()) items.push_back(seams.Text("NAME"));
}

void ChooseDeckConstruction(Session& session, FrmTank& form, Entry& construction) {
  if (IsChanged(construction)) Physical(form, "DECK_SEAM").box.text.clear();
  FillDeckSeams(session, form);
  UpdateTank(session, form);
}

void ChooseDeckSeam(Session& session, FrmTank& form, Entry& seam) {
  auto& factor = Physical(form, "SD");
  auto known = session.ReferenceDb->OpenAt("deckseam", "name", {seam.box.text});
  if (known.NoMatch()) {
    factor.box.text = "0";
    return;
  }
  factor.box.text = shell::PlainDecimal(known.DoubleOrZero("SD"));
  if (IsChanged(seam))
    Propose(session, Physical(form, "DECK_SEAM_LENGTH"), shell::FormatTwoDecimals(SeamLengthOf(form)), kSuggestedValue);
  UpdateTank(session, form);
}

void EnterDeckSeamLength(Session& session, FrmTank& form, Entry& length) {
  if (Number(length) != 0 || Number(Physical(form, "SD")) == 0) return;
  // The row holds the seam already: it was written when it was chosen.
  if (StoredText(Physical(form, "DECK_SEAM")) == DeckSeamOfCopy(session, form)) return;
  Propose(session, length, shell::FormatTwoToSixDecimals(SeamLengthOf(form)), kSuggestedValue);
}

void ProposeDeckSeamLength(Session& session, FrmTank& form) {
  auto& length = Physical(form, "DECK_SEAM_LENGTH");
  if (Number(length) == 0 || Number(Physical(form, "SD")) == 0) return;
  const auto value = shell::FormatTwoToSixDecimals(SeamLengthOf(form));
  if (shell::EntryNumber(value) != Number(length)) Propose(session, length, value, kSuggestedLength);
}

}  // namespace orvex::entry
