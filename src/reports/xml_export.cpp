#include "reports/xml_export.h"

#include <fmt/format.h>

#include <algorithm>
#include <vector>

#include "reports/source_kind.h"
#include "reports/xml_document.h"
#include "shell/number_format.h"
#include "shell/status.h"
#include "shell/trap.h"
#include "shell/xml_text.h"
#include "store/letter_case.h"

namespace orvex::reports {
namespace {

constexpr std::string_view kRoutine = "XML_Export.";
constexpr const char* kComponentTable = "profile components";
/// Stands twice behind the type: these four characters, and no line end.
constexpr std::string_view kRootText = R"(\r\n)";

// How the values of a field are written; none of them is null.
using Format = std::string (*)(const store::Value& value);

std::string AsItStands(const store::Value& value) { return value.AsText(); }
std::string TwoDecimals(const store::Value& value) { return shell::FormatTwoDecimals(value.AsDouble()); }
std::string TwoDecimalsOrEmpty(const store::Value& value) { return value.AsDouble() == 0 ? "" : TwoDecimals(value); }
std::string Whole(const store::Value& value) { return shell::FormatWhole(value.AsDouble()); }
std::string YesOrNo(const store::Value& value) { return value.AsBool() ? "Y" : "N"; }

Format TableFormat(const store::StoredField& field) {
  if (field.type == store::FieldType::kBoolean) return YesOrNo;
  if (field.type != store::FieldType::kDouble) return AsItStands;
  return store::EqualNoCase(field.name, "QUANTITY") ? Whole : TwoDecimalsOrEmpty;
}

/// A share of nothing is a figure, too.
Format ComponentFormat(const store::StoredField& field) {
  return field.type == store::FieldType::kDouble ? TwoDecimals : AsItStands;
}

/// A field of a table, and the element that it is written to.
struct Column {
  std::string element;
  Format format;
};

std::vector<Column> Columns(store::Database& database, std::string_view table,
                            Format (*format)(const store::StoredField&)) {
  std::vector<Column> columns;
  for (const auto& field : database.Fields(table)) {
    std::string name = field.name;
    std::erase(name, ' ');
    columns.push_back({shell::XmlName(name), format(field)});
  }
  return columns;
}

void AddChild(pugi::xml_node parent, const char* name, std::string_view text) {
  AddText(parent.append_child(name), text);
}

/// A child for each field of the current record, whose columns these are.
void AddFields(pugi::xml_node parent, store::RecordSet& row, const std::vector<Column>& columns) {
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const auto value = row.Get(static_cast<int>(i));
    AddChild(parent, columns[i].element.c_str(), value.IsNull() ? "" : columns[i].format(value));
  }
}

void AddProfile(pugi::xml_node record, store::Database& database, store::RecordSet& row,
                const std::vector<Column>& columns) {
  AddChild(record, "ProfileName", row.Get(1).TextOrEmpty());
  AddChild(record, "TYPE", row.Get(2).TextOrEmpty());
  auto components = record.append_child("COMPONENTS");
  const auto query = fmt::format("Select * from [{}] where [spec id] = {}", kComponentTable, row.Get(0).AsLong());
  for (auto component = database.OpenQuery(query); !component.AtEnd(); component.MoveNext()) {
    AddFields(components.append_child("COMPONENT"), component, columns);
  }
}

void AddContent(store::Database& database, const ReferenceReport& report, store::RecordSet& row, pugi::xml_node root) {
  AddChild(root, "Type", report.print_mode);
  AddText(root, kRootText);
  AddText(root, kRootText);
  const bool profiles = report.print_mode == "Profile";
  const auto columns =
      profiles ? Columns(database, kComponentTable, ComponentFormat) : Columns(database, report.table, TableFormat);
  for (int number = 1; !row.AtEnd(); row.MoveNext(), ++number) {
    auto record = root.append_child(report.record);
    AddText(record, report.title);
    if (profiles) {
      AddProfile(record, database, row, columns);
    } else {
      AddFields(record, row, columns);
    }
    AddChild(record, "REC_NO", fmt::to_string(number));
  }
}

}  // namespace

void XML_Export(shell::Session& session, const ReferenceReport& report, std::string_view query, std::string_view kind) {
  shell::Trapped(session, kRoutine, [&] {
    const shell::BusyScope busy(session, "Processing report");
    auto& database = *session.ReferenceDb;
    XmlDocument document("DataExport");
    {
      // One view of the file, so that components belong to their profiles; and it is read many times faster so.
      store::Transaction view(database, store::Transaction::Purpose::kRead);
      auto rows = kind == kOpenTable ? database.OpenTable(query) : database.OpenQuery(query);
      AddContent(database, report, rows, document.Root());
      view.Commit();
    }
    document.Save(session.application_folder / kExportData);
    shell::Statement<store::ErrorNumber::kOperationNotSupported>(
        [&] { session.host.Navigate((session.application_folder / kExportDisplay).string()); });
  });
}

}  // namespace orvex::reports
