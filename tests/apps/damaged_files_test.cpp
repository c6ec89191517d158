#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <string>

#include "apps/report_program.h"
#include "orvex-report/failure.h"
#include "support/file_content.h"
#include "support/sample_tanks.h"

namespace orvex::report_app {
namespace {

using test::FileContent;
using test::WriteFile;

/// Changes bytes as a faulty disk or a careless program would. The numbers that come from one seed are the same on
/// every machine.
class Damage {
 public:
  explicit Damage(unsigned seed) : random_(seed) {}

  [[nodiscard]] std::string To(std::string file) {
    switch (Below(5)) {
      case 0:
        for (auto count = 1 + Below(8); count > 0; --count) file[Below(file.size())] = Byte();
        break;
      case 1:
        file[Below(file.size())] ^= static_cast<char>(1U << Below(8));
        break;
      case 2:
        file.resize(Below(file.size()));
        break;
      case 3: {
        const auto start = Below(file.size());
        const auto count = std::min(1 + Below(5000), file.size() - start);
        std::fill_n(file.begin() + static_cast<std::ptrdiff_t>(start), count, Below(2) == 0 ? '\0' : Byte());
        break;
      }
      default: {
        const auto count = std::min<std::size_t>(kPage, file.size() / 2);
        const auto from = static_cast<std::ptrdiff_t>(Below(file.size() - count));
        const auto to = static_cast<std::ptrdiff_t>(Below(file.size() - count));
        std::copy_n(std::string(file).begin() + from, count, file.begin() + to);
      }
    }
    return file;
  }

 private:
  static constexpr std::size_t kPage = 4096;

  std::size_t Below(std::size_t bound) { return random_() % bound; }
  char Byte() { return static_cast<char>(Below(256)); }

  std::mt19937 random_;
};

class DamagedFileTest : public test::ReportProgram {
 protected:
  DamagedFileTest() {
    test::AddVerticalTank(test_);
    test::AddHorizontalTank(test_);
    test::AddInternalTank(test_);
    test::AddExternalTank(test_);
    test::AddDomedTank(test_);
    test_.session.ClientDb.reset();
    test_.session.ReferenceDb.reset();
    // Rows of a former run, so that every table holds something to damage.
    EXPECT_EQ(RunOn({"--annual"}), kDone) << err_.str();
  }

  /// Runs the report on 250 damaged copies of one of the two files; how often it ended in which way.
  std::map<int, int> EndsOfRuns(const std::string& damaged, unsigned seed) {
    const auto client = FileContent(Client());
    const auto reference = FileContent(Reference());
    const auto& whole = damaged == Client() ? client : reference;
    std::map<int, int> ends;
    Damage damage(seed);
    for (int i = 0; i < 250; ++i) {
      WriteFile(Client(), client);
      WriteFile(Reference(), reference);
      WriteFile(damaged, damage.To(whole));
      err_.str("");
      const int end = RunOn({"--annual", "--quiet"});
      ++ends[end];
      EXPECT_TRUE(end == kDone || !err_.str().empty()) << "copy " << i << " ended with " << end << " without a word";
    }
    return ends;
  }
};

/// A run on a damaged file is done, stopped by faults of the data, refused or told as a failure, and nothing else.
void ExpectNoOtherEnd(std::map<int, int> ends) {
  EXPECT_GT(ends[kCannotOpen], 0);
  for (const auto& [end, count] : ends) {
    EXPECT_TRUE(end == kDone || end == kDataFaults || end == kWrongUse || end == kCannotOpen || end == kRunTimeFailure)
        << end << ", " << count << " times";
  }
}

TEST_F(DamagedFileTest, AClientDatabaseIsRefusedOrRunWithoutACrash) { ExpectNoOtherEnd(EndsOfRuns(Client(), 1)); }

TEST_F(DamagedFileTest, AReferenceDatabaseIsRefusedOrRunWithoutACrash) { ExpectNoOtherEnd(EndsOfRuns(Reference(), 2)); }

}  // namespace
}  // namespace orvex::report_app
