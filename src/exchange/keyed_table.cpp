#include "exchange/keyed_table.h"

#include <fmt/format.h>

#include <algorithm>

#include "store/run_time_error.h"

namespace orvex::exchange {
namespace {

constexpr unsigned kNumberBits = 32;  // the head of a file has no more for its number of records

/// As the upper half of a place.
std::uint64_t HashOf(std::string_view key) {
  const std::uint64_t hash = std::hash<std::string_view>()(key);
  return (hash ^ (hash >> kNumberBits)) << kNumberBits;
}

constexpr std::uint64_t kNumberMask = (std::uint64_t{1} << kNumberBits) - 1;

}  // namespace

void RequireFields(const store::DbaseTable& table, const std::filesystem::path& path,
                   std::span<const std::string_view> fields) {
  for (const auto field : fields) {
    if (!table.HasField(field)) {
      throw store::RunTimeError(store::ErrorNumber::kItemNotFound,
                                fmt::format("'{}' has no field '{}'.", path.string(), field));
    }
  }
}

KeyedTable::KeyedTable(const std::filesystem::path& path, std::string_view key, std::function<void()> tick)
    : table_(path), key_(key), tick_(std::move(tick)) {}

void KeyedTable::Index() {
  places_.clear();
  for (table_.MoveFirst(); !table_.AtEnd(); table_.MoveNext()) {
    tick_();
    const auto key = table_.TextOrEmpty(key_);
    if (!key.empty()) places_.push_back(HashOf(key) | static_cast<std::uint64_t>(table_.Position()));
  }
  std::ranges::sort(places_);
}

std::size_t KeyedTable::FirstPlace(const std::string& key) const {
  if (key.empty()) return places_.size();
  return static_cast<std::size_t>(std::ranges::lower_bound(places_, HashOf(key)) - places_.begin());
}

bool KeyedTable::MoveToPlace(std::size_t place, const std::string& key) {
  if (place >= places_.size() || (places_[place] & ~kNumberMask) != HashOf(key)) return false;
  tick_();
  table_.MoveTo(static_cast<std::int64_t>(places_[place] & kNumberMask));
  return true;
}

}  // namespace orvex::exchange
