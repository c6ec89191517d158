#include "emission/run_report.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

#include "emission/calc_prop.h"
#include "emission/emiss_fix.h"
#include "emission/emiss_float.h"
#include "emission/field_reading.h"
#include "emission/speciate.h"
#include "emission/validate.h"
#include "shell/periods.h"
#include "shell/status.h"
#include "shell/tank_types.h"
#include "shell/trap.h"

namespace orvex::emission {
namespace {

using shell::Session;
using std::int32_t;
using store::RecordSet;

using Months = std::array<bool, shell::kMonths.size()>;

constexpr Months kAllMonths = {true, true, true, true, true, true, true, true, true, true, true, true};

/// The tank that the run stands on. A name that no tank has leaves it at the tank before.
struct Tank {
  int32_t ID = 0;
  std::string type;
};

class Run {
 public:
  Run(Session& session, const store::Transaction& transaction)
      : session_(session),
        transaction_(transaction),
        client_(*session.ClientDb),
        tanks_(client_.OpenTable("tank")),
        total_(2 * session.TankList.size()) {
    tanks_.SetIndex("USER ID");
  }

  /// "Error" or "Report": what is to be printed afterwards.
  std::string Execute() {
    session_.ReportMonthText.clear();
    ClearErrors();
    ValidateTanks();
    if (session_.ValidationFailed) return "Error";
    CalculateTanks();
    if (session_.ValidationFailed) return "Error";
    session_.ReportFilter = Filter();
    session_.ReportMonthText = MonthText();
    return "Report";
  }

 private:
  void ClearErrors() {
    if (!client_.OpenTable("error").AtEnd()) client_.Execute("DELETE * FROM error");
  }

  void SeekTank(const std::string& user_id) {
    tanks_.Seek({user_id});
    shell::Statement([&] { tank_.ID = tanks_.Long("ID"); });
  }

  void ReadType() {
    shell::Statement([&] { tank_.type = tanks_.TextOrEmpty("TANK_TYPE"); });
  }

  void ValidateTanks() {
    for (const auto& user_id : session_.TankList) {
      SeekTank(user_id);
      ReadType();
      Validate(session_, tank_.ID);
      ReportProgress();
    }
  }

  void CalculateTanks() {
    for (const auto& user_id : session_.TankList) {
      SeekTank(user_id);
      CalcProp(session_, tank_.ID);
      ReadType();
      CalculateTank();
      calculated_.push_back(tank_.ID);
      ReportProgress();
    }
  }

  void CalculateTank() {
    auto mixtures = client_.OpenMatching("mixtures", "IDMIX", {tank_.ID});
    const auto months = Basis(mixtures);
    client_.DeleteMatching("emission", "COMPID", {tank_.ID});
    if (!months) {
      CalculatePeriod(mixtures, std::string(shell::kAnnual));
      return;
    }
    for (std::size_t i = 0; i < months->size(); ++i) {
      if ((*months)[i] && !CalculatePeriod(mixtures, std::string(shell::kMonths[i].name))) return;
    }
  }

  /// The months that the tank is computed by, or nothing for the year as one. An annual figure of several mixtures, or
  /// of one that is not stored all the year, is the sum of its months.
  std::optional<Months> Basis(RecordSet& mixtures) {
    if (session_.ReportTime == shell::kMonthly) return session_.MonthSelected;
    bool all_year = true;
    std::int64_t count = 0;
    for (; !mixtures.AtEnd(); mixtures.MoveNext(), ++count) {
      all_year = all_year && std::all_of(shell::kMonths.begin(), shell::kMonths.end(),
                                         [&](const auto& month) { return mixtures.BoolOrFalse(month.name); });
    }
    if (count > 1 || !all_year) return kAllMonths;
    return std::nullopt;
  }

  /// False when a fault of the data ended the tank.
  bool CalculatePeriod(RecordSet& mixtures, const std::string& Month) {
    for (mixtures.Requery(); !mixtures.AtEnd(); mixtures.MoveNext()) {
      const int32_t MixID = mixtures.Long("MIX ID");
      if (shell::IsFixedRoof(tank_.type)) {
        EmissFix(session_, tank_.ID, MixID, Month);
      } else {
        EmissFloat(session_, tank_.ID, MixID, Month);
      }
      if (session_.ValidationFailed) return false;
      Speciate(session_, tank_.ID, MixID, Month);
    }
    return true;
  }

  /// Condition that picks the rows of the run's tanks.
  [[nodiscard]] std::string Filter() const {
    std::string filter;
    for (const auto ID : calculated_) {
      filter += fmt::format("{}(emission.[ID] = {})", filter.empty() ? "" : " or ", ID);
    }
    return filter;
  }

  [[nodiscard]] std::string MonthText() const {
    std::string text;
    for (std::size_t i = 0; i < shell::kMonths.size(); ++i) {
      if (!session_.MonthSelected[i]) continue;
      if (!text.empty()) text += " , ";
      text += shell::kMonths[i].name;
    }
    return text;
  }

  /// Between two tanks: a run that can't be made lasting any more must not go on from tank to tank.
  void ReportProgress() {
    transaction_.RequireAlive();
    session_.host.Progress(static_cast<std::int64_t>(++done_), static_cast<std::int64_t>(total_));
  }

  Session& session_;
  const store::Transaction& transaction_;
  store::Database& client_;
  RecordSet tanks_;
  Tank tank_;
  std::vector<int32_t> calculated_;  ///< the `ID` of each tank of the list
  std::size_t done_ = 0;
  std::size_t total_;
};

}  // namespace

void RunReport(Session& session) {
  shell::Trapped(session, "mDatabase.RunReport", [&] {
    bool finished = false;
    {
      const shell::BusyScope busy(session, "Processing");
      store::Transaction client(*session.ClientDb);
      store::Transaction reference(*session.ReferenceDb, store::Transaction::Purpose::kRead);
      // What a run wrote before a failure stays; only when the person stops it, all is undone.
      shell::Trapped(session, "mDatabase.RunReport", [&] {
        session.PrintMode = Run(session, client).Execute();
        finished = true;
      });
      reference.Commit();
      client.Commit();
    }
    if (finished) session.host.ShowWindow("frmprintrep");
  });
}

}  // namespace orvex::emission
