#include "entry/seal_rules.h"

#include <fmt/format.h>

#include "store/database.h"

namespace orvex::entry {
namespace {

using shell::Session;

std::string Quoted(std::string_view text) {
  std::string quoted = "'";
  for (const char c : text) quoted.append(c == '\'' ? 2 : 1, c);
  return quoted + "'";
}

/// Condition on the seals that suit the tank. None does while an external tank's construction is not known.
std::string SuitableSeals(FrmTank& form) {
  if (PhysicalSection(form) == Section::kInternal) return "IFLT = True";
  const auto construction = StoredText(Physical(form, "TANK_CONSTRUCT"));
  if (construction == "Welded") return "EFLT = True AND WELDED = True";
  if (construction == "Riveted") return "EFLT = True AND RIVETED = True";
  return "False";
}

/// The text stays: it is what the list is positioned on.
void Fill(Session& session, Entry& entry, const std::string& query) {
  entry.box.items.clear();
  for (auto seals = session.ReferenceDb->OpenQuery(query); !seals.AtEnd(); seals.MoveNext())
    entry.box.items.push_back(seals.Get(0).TextOrEmpty());
}

void Clear(Entry& seal) { seal.box.text.clear(); }

}  // namespace

void OpenPrimarySeals(Session& session, FrmTank& form, Entry& primary) {
  Fill(session, primary,
       fmt::format("SELECT PRIM_SEAL FROM rimseal WHERE {} GROUP BY PRIM_SEAL ORDER BY Min(Counter)",
                   SuitableSeals(form)));
}

void OpenSecondarySeals(Session& session, FrmTank& form, Entry& secondary) {
  Fill(session, secondary,
       fmt::format("SELECT SECND_SEAL FROM rimseal WHERE {} AND PRIM_SEAL = {}", SuitableSeals(form),
                   Quoted(StoredText(Physical(form, "RIM_PRIM")))));
}

void ChoosePrimarySeal(Session&, FrmTank& form, Entry& primary) {
  if (IsChanged(primary)) Clear(Physical(form, "RIM_SEC"));
}

void ChooseConstruction(Session&, FrmTank& form, Entry& construction) {
  if (!IsChanged(construction)) return;
  Clear(Physical(form, "RIM_PRIM"));
  Clear(Physical(form, "RIM_SEC"));
}

}  // namespace orvex::entry
