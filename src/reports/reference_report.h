#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "store/record_set.h"

/// The reports on the reference tables: what they are called, and how their rows are offered and chosen.
namespace orvex::reports {

/// What picks the rows behind one item of the list.
struct Clause {
  std::string condition;  ///< of a query
  std::string filter;     ///< the same with its fields in braces
};

struct ReferenceReport {
  std::string_view print_mode;      ///< `PrintMode`
  std::string_view title;           ///< of the report
  std::string_view heading;         ///< over the rows that can be chosen
  std::string_view chosen_heading;  ///< over those that are
  std::string_view table;           ///< the source of a report on the whole table
  std::string_view query_head;      ///< of a report on some rows; the condition stands behind it
  const char* record;               ///< the element that a row is written to
  /// What stands for a row in the list; nothing when the row is not offered.
  std::optional<std::string> (*item)(store::RecordSet& row);
  Clause (*clause)(std::string_view item);
};

std::span<const ReferenceReport> ReferenceReports();

/// The report on the log of an import, all of whose rows are shown: it has no item and no clause.
extern const ReferenceReport kImportReport;

/// The report of a `PrintMode` whose rows are chosen; null if it is none on a reference table.
const ReferenceReport* FindReferenceReport(std::string_view print_mode);

}  // namespace orvex::reports
