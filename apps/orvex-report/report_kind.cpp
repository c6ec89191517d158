#include "orvex-report/report_kind.h"

#include <algorithm>

#include "reports/brief_report.h"
#include "reports/detail_report.h"

namespace orvex::report_app {
namespace {

constexpr ReportKind kKinds[] = {
    {Kind::kBrief, "brief", "Brief", reports::kBriefData, reports::kBriefDisplay, reports::BriefReport},
    {Kind::kSummary, "summary", "Summary", reports::kSummaryData, reports::kSummaryDisplay, reports::DetailReport},
    {Kind::kDetail, "detail", "Detail", reports::kSummaryData, reports::kSummaryDisplay, reports::DetailReport},
};

}  // namespace

std::span<const ReportKind> ReportKinds() { return kKinds; }

const ReportKind& FindKind(Kind kind) { return *std::ranges::find(kKinds, kind, &ReportKind::kind); }

}  // namespace orvex::report_app
