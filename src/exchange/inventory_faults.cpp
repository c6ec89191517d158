#include "exchange/inventory_faults.h"

#include <fmt/format.h>

#include <algorithm>
#include <tuple>

#include "exchange/inventory_csv.h"
#include "store/run_time_error.h"
#include "store/utf8.h"

namespace orvex::exchange {
namespace {

constexpr std::size_t kMostShown = 60;  ///< characters

std::size_t PlaceOf(const InventoryFile& file) {
  const auto files = InventoryFiles();
  return static_cast<std::size_t>(std::ranges::find(files, &file) - files.begin());
}

}  // namespace

std::string Shown(std::string_view text) {
  std::string shown = "'";
  for (std::size_t count = 0; !text.empty(); ++count) {
    if (count == kMostShown) return shown + "...'";
    const auto before = text;
    const auto character = store::TakeCharacter(text);
    if (character && *character < ' ') {
      shown += ' ';
    } else {
      shown += before.substr(0, before.size() - text.size());
    }
  }
  return shown + "'";
}

void Faults::Keep(Fault fault) {
  ++count_;
  if (kept_.size() < kMostKept) kept_.push_back(std::move(fault));
}

void Faults::Add(const InventoryFile& file, std::size_t line, std::string_view column, std::string_view reason) {
  const auto place = column.empty() ? fmt::format("{}, line {}", file.name, line)
                                    : fmt::format("{}, line {}, {}", file.name, line, column);
  Keep({PlaceOf(file), line, fmt::format("{}: {}", place, reason)});
}

void Faults::AddUnread(const InventoryFile& file, std::string description) {
  Keep({PlaceOf(file), 0, std::move(description)});
}

void Faults::ThrowIfAny() {
  if (!Any()) return;
  std::ranges::stable_sort(kept_, {}, [](const Fault& fault) { return std::tie(fault.file, fault.line); });
  std::string description;
  for (const auto& fault : kept_) description += (description.empty() ? "" : "\r\n") + fault.text;
  if (const auto more = count_ - kept_.size(); more > 0) description += fmt::format("\r\nand {} more faults.", more);
  throw store::RunTimeError(store::ErrorNumber::kDataConversion, description);
}

std::vector<std::string_view> FaultLines(std::string_view description) {
  constexpr std::string_view kLineEnd = "\r\n";
  std::vector<std::string_view> lines;
  while (true) {
    const auto end = description.find(kLineEnd);
    lines.push_back(description.substr(0, end));
    if (end == std::string_view::npos) return lines;
    description.remove_prefix(end + kLineEnd.size());
  }
}

}  // namespace orvex::exchange
