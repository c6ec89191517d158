#include "entry/unsaved_tank.h"

#include <fmt/format.h>

#include <string>

#include "entry/tank_names.h"
#include "entry/tank_rows.h"
#include "shell/editing.h"
#include "shell/trap.h"
#include "store/field_table.h"
#include "store/utf8.h"

namespace orvex::entry {
namespace {

using shell::Session;
using store::Database;
using store::RecordSet;

constexpr std::int32_t kNone = 0;

std::size_t NameWidth() {
  return static_cast<std::size_t>(store::FindField(store::FindTable("tank"), "USER ID").width);
}

/// The identification under which the tank is kept: its own, if it has one, made different from all others.
std::string KeptName(Database& client, std::int32_t ID, const std::string& stored) {
  const auto unsaved = fmt::format("Unsaved tank {}", ID);
  auto name = stored.empty() ? unsaved : stored;
  while (HasOtherTank(client, name, ID)) {
    name += '1';
    if (store::CharacterCount(name) > NameWidth()) name = unsaved;
  }
  return name;
}

std::string Question(const std::string& type, const std::string& stored, const std::string& kept) {
  const auto name = stored.empty() ? std::string("It has no identification yet.")
                                   : fmt::format("Its identification is \"{}\".", stored);
  const auto renamed = kept == stored ? std::string() : fmt::format(" It will be kept as \"{}\".", kept);
  return fmt::format(
      "A tank was being created when the program was ended, and has never been saved: {}. {}{}\r\n\r\n"
      "Do you want to keep it? If you answer No, it will be removed.",
      type.empty() ? "of no known type" : type, name, renamed);
}

void Keep(Database& client, RecordSet& tank, const std::string& name) {
  store::Transaction transaction(client);
  tank.Edit();
  tank.Set("USER ID", name);
  tank.Update();
  client.SetMark(kNone);
  transaction.Commit();
}

void Remove(Database& client, std::int32_t ID) {
  store::Transaction transaction(client);
  DeleteEditedRows(client, ID);
  // It may have been computed since.
  client.DeleteMatching("emission", "COMPID", {ID});
  client.SetMark(kNone);
  transaction.Commit();
}

void Offer(Session& session, std::int32_t ID) {
  auto& client = *session.ClientDb;
  auto tank = client.OpenAt("tank", "ID", {ID});
  if (tank.NoMatch()) {
    client.SetMark(kNone);
    return;
  }
  const auto stored = tank.TextOrEmpty("USER ID");
  const auto kept = KeptName(client, ID, stored);
  const auto answer = session.host.ShowMessage(Question(tank.TextOrEmpty("TANK_TYPE"), stored, kept), "Unsaved Tank",
                                               shell::Buttons::kYesNo, shell::Icon::kQuestion);
  if (answer == shell::Answer::kYes) {
    Keep(client, tank, kept);
  } else {
    Remove(client, ID);
  }
}

}  // namespace

void MarkUnsaved(Database& client, std::int32_t ID) { client.SetMark(ID); }

bool IsUnsaved(Database& client, std::int32_t ID) { return client.Mark() == ID; }

void UnmarkSaved(Database& client, std::int32_t ID) {
  if (IsUnsaved(client, ID)) client.SetMark(kNone);
}

void OfferUnsavedTank(Session& session) {
  shell::Trapped(session, "mDatabase.OfferUnsavedTank", [&] {
    auto& client = *session.ClientDb;
    if (client.ReadOnly() || client.Mark() == kNone) return;
    const auto editing = shell::TryEditing(session, shell::DatabaseKind::kClient);
    // A tank that another program has open now, or has finished meanwhile.
    if (!editing || client.Mark() == kNone) return;
    Offer(session, client.Mark());
  });
}

}  // namespace orvex::entry
