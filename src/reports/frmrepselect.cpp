#include "reports/frmrepselect.h"

#include <string>
#include <vector>

#include "reports/frmprintrep.h"
#include "reports/source_kind.h"
#include "shell/list_picking.h"
#include "shell/status.h"
#include "shell/trap.h"

namespace orvex::reports {
namespace {

constexpr std::string_view kLabel = "frmRepSelect.";

void EnablePrint(Frmrepselect& form) { form.cmdPrint.enabled = !form.lstSelectItems.items.empty(); }

std::vector<std::string> Items(store::Database& reference, const ReferenceReport& report) {
  std::vector<std::string> items;
  // One view of the file: a long table is read many times faster than row by row.
  store::Transaction view(reference, store::Transaction::Purpose::kRead);
  for (auto row = reference.OpenTable(report.table); !row.AtEnd(); row.MoveNext()) {
    if (auto item = report.item(row)) items.push_back(std::move(*item));
  }
  view.Commit();
  return items;
}

void ChooseTable(shell::Session& session, const ReferenceReport& report) {
  session.ReportSource = report.table;
  session.ReportSourceKind = kOpenTable;
  session.ReportCondition.clear();
  session.ReportFilter.clear();
}

void ChooseRows(shell::Session& session, const ReferenceReport& report, const std::vector<std::string>& items) {
  std::string condition, filter;
  for (const auto& item : items) {
    const char* const separator = condition.empty() ? "" : " OR ";
    const auto clause = report.clause(item);
    condition += separator + clause.condition;
    filter += separator + clause.filter;
  }
  session.ReportSource = std::string(report.query_head) + condition;
  session.ReportSourceKind = kOpenDynaset;
  session.ReportCondition = condition;
  session.ReportFilter = filter;
}

}  // namespace

Frmrepselect OpenFrmrepselect(shell::Session& session) {
  Frmrepselect form;
  form.report = FindReferenceReport(session.PrintMode);
  if (form.report == nullptr) return form;
  form.lblTable.text = form.report->title;
  form.lblField.text = form.report->heading;
  form.lblFieldChosen.text = form.report->chosen_heading;
  shell::Trapped(session, kLabel, [&] { form.lstItems.items = Items(*session.ReferenceDb, *form.report); });
  return form;
}

void ClickSelect(shell::Session&, Frmrepselect& form) {
  shell::AddSelected(form.lstItems, form.lstSelectItems);
  EnablePrint(form);
}

void ClickSelectAll(shell::Session&, Frmrepselect& form) {
  shell::RemoveAll(form.lstSelectItems);
  form.lstSelectItems.items = form.lstItems.items;
  EnablePrint(form);
}

void ClickRemove(shell::Session&, Frmrepselect& form) {
  shell::RemoveSelected(form.lstSelectItems);
  EnablePrint(form);
}

void ClickRemoveAll(shell::Session&, Frmrepselect& form) {
  shell::RemoveAll(form.lstSelectItems);
  EnablePrint(form);
}

void ClickPrint(shell::Session& session, Frmrepselect& form) {
  if (!form.cmdPrint.enabled) return;
  shell::Trapped(session, kLabel, [&] {
    if (form.lstSelectItems.items.size() == form.lstItems.items.size()) {
      ChooseTable(session, *form.report);
    } else {
      ChooseRows(session, *form.report, form.lstSelectItems.items);
    }
    shell::SetStatus(session.host, "", false);
    // The other window stands in the place of this one: it opens when this one is gone.
    form.window.closed = true;
    session.host.ShowWindow(kFrmprintrepText.name);
  });
}

void ClickClose(shell::Session&, Frmrepselect& form) { form.window.closed = true; }

void ClickHelp(shell::Session& session, Frmrepselect&) { session.host.ShowHelp(std::string(kFrmrepselectText.topic)); }

}  // namespace orvex::reports
