#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <ostream>
#include <string>
#include <string_view>

#include "emission/run_report.h"
#include "reports/brief_report.h"
#include "reports/detail_report.h"
#include "support/file_content.h"
#include "support/test_databases.h"

/// The reports of the sample tanks as they were read and found right, byte by byte. See tests/golden/README.md.
namespace orvex::reports {
namespace {

namespace fs = std::filesystem;

/// The asphalt tank, whose liquid is in no chemical table, is computed for the year or for one month at a time.
constexpr std::string_view kAsphaltTank = "VF-111";

enum class Tanks { kAll, kAllButAsphalt, kAsphalt };

struct GoldenReport {
  const char* name;
  const char* type;
  const char* time;
  Tanks tanks;
};

void PrintTo(const GoldenReport& report, std::ostream* out) { *out << report.name; }

constexpr GoldenReport kReports[] = {
    {"brief_annual", "Brief", "Annual", Tanks::kAll},
    {"brief_monthly", "Brief", "Monthly", Tanks::kAllButAsphalt},
    {"brief_january_asphalt", "Brief", "Monthly", Tanks::kAsphalt},
    {"summary_annual", "Summary", "Annual", Tanks::kAll},
    {"summary_monthly", "Summary", "Monthly", Tanks::kAllButAsphalt},
    {"summary_january_asphalt", "Summary", "Monthly", Tanks::kAsphalt},
    {"detail_annual", "Detail", "Annual", Tanks::kAll},
    {"detail_monthly", "Detail", "Monthly", Tanks::kAllButAsphalt},
    {"detail_january_asphalt", "Detail", "Monthly", Tanks::kAsphalt},
};

class GoldenReports : public testing::TestWithParam<GoldenReport> {
 protected:
  GoldenReports() {
    const auto client = folder_.Path() / "client1.mdb";
    fs::copy_file(ORVEX_SAMPLE_DATABASE, client);
    session_.ClientDb = store::Database::Open(client);
    session_.ReferenceDb = store::Database::Open(ORVEX_REFERENCE_DATABASE, store::OpenMode::kReadOnly);
    session_.application_folder = folder_.Path();
  }

  void Select(const GoldenReport& report) {
    session_.ReportType = report.type;
    session_.ReportTime = report.time;
    session_.MonthSelected.fill(report.tanks != Tanks::kAsphalt);
    session_.MonthSelected[0] = true;
    for (auto tanks = session_.ClientDb->OpenTable("tank"); !tanks.AtEnd(); tanks.MoveNext()) {
      const auto user_id = tanks.Text("USER ID");
      const bool asphalt = user_id == kAsphaltTank;
      if (report.tanks == Tanks::kAll || asphalt == (report.tanks == Tanks::kAsphalt))
        session_.TankList.push_back(user_id);
    }
  }

  /// Runs the calculation and the report; the file that it wrote.
  std::string Report() {
    emission::RunReport(session_);
    EXPECT_EQ(session_.PrintMode, "Report");
    if (session_.ReportType == "Brief") {
      BriefReport(session_);
      return test::FileContent(folder_.Path() / kBriefData);
    }
    DetailReport(session_);
    return test::FileContent(folder_.Path() / kSummaryData);
  }

  test::TemporaryFolder folder_;
  test::ScriptedHost host_;
  shell::Session session_{host_};
};

/// Where two texts part: the number of the line, and the line in both.
std::string FirstDifference(const std::string& golden, const std::string& written) {
  const auto at = static_cast<std::size_t>(std::ranges::mismatch(golden, written).in1 - golden.begin());
  const auto start = golden.rfind('\n', at) + 1;
  const auto line_of = [&](const std::string& text) {
    const auto from = std::min(start, text.size());
    return text.substr(from, text.find('\n', at) - from);
  };
  const auto number = 1 + std::count(golden.begin(), golden.begin() + static_cast<std::ptrdiff_t>(at), '\n');
  return "line " + std::to_string(number) + "\ngolden:  " + line_of(golden) + "\nwritten: " + line_of(written);
}

TEST_P(GoldenReports, AreWrittenByteByByte) {
  Select(GetParam());
  const auto written = Report();
  ASSERT_TRUE(written.ends_with("</REPORT>"));
  const auto path = fs::path(ORVEX_GOLDEN_FOLDER) / (std::string(GetParam().name) + ".xml");
  if (std::getenv("ORVEX_UPDATE_GOLDEN") != nullptr) {
    test::WriteFile(path, written);
    FAIL() << path << " was written anew: read what changed before it is committed";
  }
  const auto golden = test::FileContent(path);
  EXPECT_TRUE(written == golden) << path << ", " << FirstDifference(golden, written);
}

INSTANTIATE_TEST_SUITE_P(OfTheSampleTanks, GoldenReports, testing::ValuesIn(kReports),
                         [](const auto& instance) { return std::string(instance.param.name); });

}  // namespace
}  // namespace orvex::reports
