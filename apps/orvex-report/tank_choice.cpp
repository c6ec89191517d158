#include "orvex-report/tank_choice.h"

#include <fmt/format.h>

#include <fstream>
#include <ostream>
#include <unordered_set>

#include "orvex-report/failure.h"
#include "orvex-report/list_text.h"
#include "orvex-report/terminal_text.h"

namespace orvex::report_app {
namespace {

constexpr std::string_view kAll = "all";
constexpr std::string_view kByteOrderMark = "\uFEFF";

/// Adds tanks as often as they are asked for, once each.
class Choice {
 public:
  explicit Choice(store::Database& client) : by_user_id_(client.OpenTable("tank")) { by_user_id_.SetIndex("USER ID"); }

  /// The tank that a `USER ID` leads to, or nullptr.
  const ChosenTank* Find(const std::string& user_id) {
    by_user_id_.Seek({user_id});
    if (by_user_id_.NoMatch()) return nullptr;
    found_ = {by_user_id_.LongOrZero("ID"), by_user_id_.TextOrEmpty("USER ID"), by_user_id_.TextOrEmpty("TANK_TYPE")};
    return &found_;
  }

  void Add(const ChosenTank& tank) {
    if (ids_.insert(tank.id).second) tanks_.push_back(tank);
  }

  std::vector<ChosenTank> Take() { return std::move(tanks_); }

 private:
  store::RecordSet by_user_id_;
  ChosenTank found_{};
  std::unordered_set<std::int32_t> ids_;
  std::vector<ChosenTank> tanks_;
};

void AddAll(store::Database& client, Choice& choice, std::ostream& warnings) {
  for (auto tanks = client.OpenTable("tank"); !tanks.AtEnd(); tanks.MoveNext()) {
    if (tanks.IsNull("USER ID")) continue;
    const auto user_id = tanks.TextOrEmpty("USER ID");
    const auto* reached = choice.Find(user_id);
    if (reached != nullptr && reached->id == tanks.LongOrZero("ID")) {
      choice.Add(*reached);
    } else {
      warnings << fmt::format("orvex-report: warning: tank '{}' is passed over: an earlier tank has the same USER ID\n",
                              TerminalText(user_id));
    }
  }
}

std::vector<std::string> ReadLines(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::vector<std::string> lines;
  std::string line;
  while (std::getline(file, line)) {
    if (lines.empty() && line.starts_with(kByteOrderMark)) line.erase(0, kByteOrderMark.size());
    if (line.ends_with('\r')) line.pop_back();
    lines.push_back(line);
  }
  if (!file.eof()) throw Failure{kCannotOpen, fmt::format("cannot read the list of tanks '{}'", TerminalText(path))};
  std::erase(lines, "");
  return lines;
}

}  // namespace

std::vector<ChosenTank> ChooseTanks(store::Database& client, const std::vector<std::string>& requests,
                                    std::ostream& warnings) {
  Choice choice(client);
  if (requests.empty()) AddAll(client, choice, warnings);
  for (const auto& request : requests) {
    if (request == kAll) {
      AddAll(client, choice, warnings);
      continue;
    }
    const auto user_ids = request.starts_with('@') ? ReadLines(request.substr(1)) : SplitList(request);
    for (const auto& user_id : user_ids) {
      const auto* tank = choice.Find(user_id);
      if (tank == nullptr)
        throw Failure{kWrongUse, fmt::format("--tanks: there is no tank '{}' in '{}'", TerminalText(user_id),
                                             TerminalText(client.Path().string()))};
      choice.Add(*tank);
    }
  }
  auto tanks = choice.Take();
  if (tanks.empty()) {
    const auto path = TerminalText(client.Path().string());
    throw Failure{kWrongUse, requests.empty() ? fmt::format("there is no tank in '{}'", path)
                                              : std::string("--tanks: no tank is named")};
  }
  return tanks;
}

}  // namespace orvex::report_app
