#include "orvex-report/tank_table.h"

#include <fmt/format.h>

#include <algorithm>
#include <ostream>
#include <string>
#include <unordered_map>

#include "orvex-report/terminal_text.h"
#include "reports/losses.h"
#include "shell/number_format.h"
#include "shell/tank_types.h"
#include "store/utf8.h"

namespace orvex::report_app {
namespace {

using Row = std::vector<std::string>;

struct LossColumn {
  const char* title;
  double reports::Losses::*loss;
  bool fixed_roof;  ///< the kind of roof that has this loss
};

constexpr LossColumn kLossColumns[] = {
    {"Standing", &reports::Losses::standing, true},          {"Working", &reports::Losses::working, true},
    {"Rim seal", &reports::Losses::rim_seal, false},         {"Withdrawal", &reports::Losses::withdrawal, false},
    {"Deck fitting", &reports::Losses::deck_fitting, false}, {"Deck seam", &reports::Losses::deck_seam, false},
};

struct TypeCode {
  std::string_view tank_type;
  const char* code;
};

constexpr TypeCode kTypeCodes[] = {{shell::kVerticalFixedRoof, "VFRT"},
                                   {shell::kHorizontal, "HFRT"},
                                   {shell::kInternalFloatingRoof, "IFRT"},
                                   {shell::kExternalFloatingRoof, "EFRT"},
                                   {shell::kDomedExternalFloatingRoof, "DEFRT"}};

std::string Code(const std::string& tank_type) {
  for (const auto& [name, code] : kTypeCodes)
    if (name == tank_type) return code;
  return TerminalText(tank_type);
}

std::string Padded(const std::string& text, std::size_t width, bool right) {
  const auto count = store::CharacterCount(text);
  const std::string blanks(width > count ? width - count : 0, ' ');
  return right ? blanks + text : text + blanks;
}

/// Prints rows in columns; the first `texts` columns are flush left, the others, numbers, flush right.
void PrintColumns(const std::vector<Row>& rows, std::size_t texts, std::ostream& out) {
  std::vector<std::size_t> widths(rows.front().size());
  for (const auto& row : rows)
    for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], store::CharacterCount(row[i]));
  for (const auto& row : rows) {
    std::string line;
    for (std::size_t i = 0; i < row.size(); ++i) {
      if (i > 0) line += "  ";
      line += Padded(row[i], widths[i], i >= texts);
    }
    line.erase(line.find_last_not_of(' ') + 1);
    out << line << '\n';
  }
}

/// Adds up the losses {lb} of a tank's rows: more than one where its city or company was changed between runs.
std::unordered_map<std::int32_t, reports::Losses> LossesById(store::Database& client) {
  std::unordered_map<std::int32_t, reports::Losses> losses;
  for (const auto& tank : reports::LossesByTank(client))
    for (const auto& column : kLossColumns) losses[tank.id].*column.loss += tank.losses.*column.loss;
  return losses;
}

}  // namespace

void PrintTankList(const std::vector<ChosenTank>& tanks, std::ostream& out) {
  std::vector<Row> rows = {{"USER ID", "Type"}};
  for (const auto& tank : tanks) rows.push_back({TerminalText(tank.user_id), TerminalText(tank.tank_type)});
  PrintColumns(rows, 2, out);
}

void PrintLossTable(store::Database& client, const std::vector<ChosenTank>& tanks, std::string_view period,
                    std::ostream& out) {
  auto losses = LossesById(client);
  Row head = {"USER ID", "Type", "Total lb"};
  for (const auto& column : kLossColumns) head.emplace_back(column.title);
  std::vector<Row> rows = {head};
  reports::Losses sums;
  double total = 0;
  for (const auto& tank : tanks) {
    const auto& tank_losses = losses[tank.id];
    const bool fixed_roof = shell::IsFixedRoof(tank.tank_type);
    const double tank_total = reports::RollUpLoss(tank.tank_type, tank_losses);
    total += tank_total;
    Row row = {TerminalText(tank.user_id), Code(tank.tank_type), shell::FormatTwoDecimals(tank_total)};
    for (const auto& column : kLossColumns) {
      const bool applies = column.fixed_roof == fixed_roof;
      if (applies) sums.*column.loss += tank_losses.*column.loss;
      row.push_back(applies ? shell::FormatTwoDecimals(tank_losses.*column.loss) : "-");
    }
    rows.push_back(std::move(row));
  }
  Row last = {"Total", "", shell::FormatTwoDecimals(total)};
  for (const auto& column : kLossColumns) last.push_back(shell::FormatTwoDecimals(sums.*column.loss));
  rows.push_back(std::move(last));
  out << fmt::format("Losses in pounds: {}\n\n", period);
  PrintColumns(rows, 2, out);
}

}  // namespace orvex::report_app
