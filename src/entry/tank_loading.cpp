#include "entry/tank_loading.h"

#include <cstdint>
#include <utility>

#include "emission/calc_prop.h"
#include "entry/bound_record.h"
#include "entry/entry_lists.h"
#include "entry/mixture_page.h"
#include "entry/month_page.h"
#include "entry/physical_rules.h"
#include "entry/record_copy.h"
#include "entry/site.h"
#include "entry/tank_entry.h"
#include "entry/tank_lifecycle.h"
#include "entry/unsaved_tank.h"
#include "entry/update_tank.h"
#include "shell/editing.h"
#include "shell/status.h"
#include "shell/tank_types.h"
#include "shell/trap.h"

namespace orvex::entry {
namespace {

using shell::Session;
using shell::Statement;

bool HasDefault(const Entry& entry) {
  const auto items = entry.info->items;
  return !items.empty() && items.front().ends_with(kDefaultMark);
}

/// A list that holds nothing known goes to its default, which the next commit stores.
void ChooseDefaults(FrmTank& form) {
  for (auto& entry : EntriesOf(form, PhysicalSection(form)))
    if (HasDefault(entry) && entry.box.text.empty()) entry.box.text = entry.info->items.front();
}

void LoadLiquid(Session& session, FrmTank& form) {
  form.MixID = 1;
  ShowMixture(session, form);
  form.cmdNextMix.enabled = form.mixtures > 1;
  Statement([&] { LoadMonths(session, form); });
  ShowMonthTotal(form);
  form.cmdAdd.enabled = true;
}

bool IsThere(Session& session, std::int32_t ID) { return !session.ClientDb->OpenAt("tank", "ID", {ID}).NoMatch(); }

/// Mixtures and months as they are stored, or as they stand on the screen.
enum class Liquid : std::uint8_t { kStored, kShown };

void ShowRows(Session& session, FrmTank& form, Liquid liquid) {
  ShowTank(session, form);
  ChooseDefaults(form);
  ShowPhysicalPage(session, form);
  FillSpeciationOptions(form);
  ShowSite(session, form);
  if (liquid == Liquid::kStored) LoadLiquid(session, form);
}

/// Closes the editor on every way out.
class OpenedEditor {
 public:
  OpenedEditor(TankEntry& tank_entry, std::string_view tank_type) : tank_entry_(tank_entry) {
    tank_entry_.frmTank = std::make_unique<FrmTank>(MakeFrmTank(tank_type));
  }
  OpenedEditor(const OpenedEditor&) = delete;
  OpenedEditor& operator=(const OpenedEditor&) = delete;
  ~OpenedEditor() { tank_entry_.frmTank.reset(); }
  FrmTank& Form() { return *tank_entry_.frmTank; }

 private:
  TankEntry& tank_entry_;
};

}  // namespace

void ShowPhysicalPage(Session& session, FrmTank& form) {
  if (shell::IsFixedRoof(form.tank_type)) {
    ShowFixedRoofEntries(session, form);
  } else {
    ShowFloatingRoofEntries(session, form);
  }
}

bool LoadTank(Session& session, FrmTank& form) {
  const shell::BusyScope busy(session, "Finding data");
  // Whatever happens to this tank, the next one is loaded whole.
  const auto liquid = std::exchange(session.CopyDataPending, false) ? Liquid::kShown : Liquid::kStored;
  emission::CalcProp(session, form.ID);
  if (!form.visible) GetRecordCopy(session, form.ID);
  if (!IsThere(session, form.ID)) {
    shell::Tell(session.host, "The tank is no longer in the client database.", shell::Icon::kExclamation);
    return false;
  }
  ShowRows(session, form, liquid);
  GoTo(form, Page::kIdentification, "txtUserID");
  // Until its first save a tank can be abandoned, whatever is loaded anew.
  form.cmdAbandon.enabled = IsUnsaved(*session.ClientDb, form.ID);
  FormatLarge(form);
  form.txtThruSpec.text = Physical(form, "Q_NET").box.text;
  if (At(form, "dbcboCity").box.text.empty()) ClearSite(form);
  return true;
}

void OpenEditor(Session& session, std::string_view tank_type, const std::function<bool(FrmTank&)>& load) {
  OpenedEditor editor(*session.tank_entry, tank_type);
  if (!load(editor.Form())) return;
  editor.Form().visible = true;
  session.host.ShowWindow("frmTank");
}

void editRecord(Session& session, std::int32_t ID, const std::string& tank_type) {
  shell::Trapped(session, "mDatabase.editRecord", [&] {
    if (session.tank_entry->frmTank) {
      (void)LoadTank(session, Editor(session));
      return;
    }
    const auto editing = shell::BeginEditing(session, shell::DatabaseKind::kClient);
    if (!editing) return;
    OpenEditor(session, tank_type, [&](FrmTank& form) {
      form.ID = ID;
      return LoadTank(session, form);
    });
  });
}

}  // namespace orvex::entry
