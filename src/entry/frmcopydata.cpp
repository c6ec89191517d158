#include "entry/frmcopydata.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>

#include "entry/stored_rows.h"
#include "shell/status.h"
#include "shell/trap.h"

namespace orvex::entry {
namespace {

using shell::Session;

constexpr std::string_view kLabel = "frmCopyData.";

/// A copied tank keeps its own `ID` and `USER ID`.
constexpr int kFirstCopiedField = 2;

/// Whether the text is a tank of the list, and not what is being typed to find one.
bool IsListed(const shell::ComboBox& list) {
  return !list.text.empty() && std::ranges::find(list.items, list.text) != list.items.end();
}

void EnableOK(FrmCopyData& form) {
  const bool chosen = form.optAll.chosen || form.optLiquid.chosen || form.optTank.chosen;
  form.cmdOK.enabled = chosen && IsListed(form.cboTankName);
}

void Choose(FrmCopyData& form, shell::OptionButton& option) {
  for (auto* each : {&form.optAll, &form.optLiquid, &form.optTank}) each->chosen = each == &option;
  EnableOK(form);
}

/// A text of a query, in quotes.
std::string Quoted(std::string_view text) {
  std::string quoted = "'";
  for (const char letter : text) quoted += letter == '\'' ? std::string(2, letter) : std::string(1, letter);
  return quoted + "'";
}

/// The tank of this name among those that the edited one can take over.
store::RecordSet FindSource(Session& session, const FrmTank& editor, const std::string& user_id) {
  return FindTank(*session.ClientDb, user_id, [&](store::RecordSet& tank) {
    return tank.Long("ID") != editor.ID && tank.TextOrEmpty("TANK_TYPE") == editor.tank_type;
  });
}

RecordCopy ReadSource(Session& session, const FrmTank& editor, const std::string& user_id) {
  auto tank = FindSource(session, editor, user_id);
  if (tank.AtEnd()) throw TankIsGone(user_id);
  return ReadRows(*session.ClientDb, tank.Long("ID"));
}

void CopyTank(store::Database& client, std::int32_t ID, const RecordCopy& source) {
  OverwriteTank(client, ID, source.TankCopy, kFirstCopiedField);
  if (!source.FittingCopy.empty()) ReplaceRows(client, "fittings", "fitid", ID, source.FittingCopy);
}

void CopyLiquid(store::Database& client, std::int32_t ID, const RecordCopy& source) {
  ReplaceRows(client, "mixtures", "IDMIX", ID, source.MixtureCopy);
  if (!source.ComponentCopy.empty()) ReplaceRows(client, "components", "IDMIX", ID, source.ComponentCopy);
}

void Copy(Session& session, const FrmTank& editor, const FrmCopyData& form) {
  const shell::BusyScope busy(session, "Processing");
  auto& client = *session.ClientDb;
  store::Transaction transaction(client);
  const auto source = ReadSource(session, editor, form.cboTankName.text);
  if (form.optTank.chosen || form.optAll.chosen) CopyTank(client, editor.ID, source);
  if (form.optLiquid.chosen || form.optAll.chosen) CopyLiquid(client, editor.ID, source);
  transaction.Commit();
  if (form.optTank.chosen) session.CopyDataPending = true;
}

}  // namespace

std::vector<std::string> CopySources(Session& session, const FrmTank& form) {
  std::vector<std::string> names;
  auto tanks = session.ClientDb->OpenQuery(
      fmt::format("SELECT [USER ID] FROM tank WHERE ID <> {} AND TANK_TYPE = {} AND [USER ID] IS NOT NULL "
                  "ORDER BY [USER ID], ID",
                  form.ID, Quoted(form.tank_type)));
  for (; !tanks.AtEnd(); tanks.MoveNext()) names.push_back(tanks.Get(0).AsText());
  return names;
}

FrmCopyData OpenFrmCopyData(Session& session) {
  FrmCopyData form;
  shell::Trapped(session, kLabel, [&] { form.cboTankName.items = CopySources(session, Editor(session)); });
  return form;
}

void ChangeTankName(Session& session, FrmCopyData& form, const std::string& text) {
  shell::Trapped(session, kLabel, [&] {
    form.cboTankName.text = text;
    EnableOK(form);
    ShowDetails(FindSource(session, Editor(session), text), form.details);
  });
}

void ChooseAll(Session&, FrmCopyData& form) { Choose(form, form.optAll); }
void ChooseLiquid(Session&, FrmCopyData& form) { Choose(form, form.optLiquid); }
void ChooseTank(Session&, FrmCopyData& form) { Choose(form, form.optTank); }

void ClickOK(Session& session, FrmCopyData& form) {
  shell::Trapped(session, kLabel, [&] {
    const auto& editor = Editor(session);
    Copy(session, editor, form);
    session.editRecord(session, editor.ID, editor.tank_type);
    form.window.closed = true;
  });
}

void ClickCancel(Session&, FrmCopyData& form) { form.window.closed = true; }

void ClickHelp(Session& session, FrmCopyData&) { session.host.ShowHelp(std::string(kFrmCopyDataText.topic)); }

}  // namespace orvex::entry
