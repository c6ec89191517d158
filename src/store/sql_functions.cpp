#include "store/sql_functions.h"

#include <sqlite3.h>

#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <optional>
#include <string>
#include <string_view>

#include "store/letter_case.h"
#include "store/value.h"
#include "store/wildcards.h"

namespace orvex::store {
namespace {

/// A number as the rest of the program writes it: 5, not 5.0.
std::string TextOf(sqlite3_value* value) {
  if (sqlite3_value_type(value) == SQLITE_FLOAT && std::isfinite(sqlite3_value_double(value))) {
    return Value(sqlite3_value_double(value)).AsText();
  }
  const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
  if (text == nullptr) return {};
  return {text, static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

bool IsNull(sqlite3_value* value) { return sqlite3_value_type(value) == SQLITE_NULL; }

/// `X LIKE Y` calls like(Y, X).
void Like(sqlite3_context* context, int, sqlite3_value** arguments) {
  if (IsNull(arguments[0]) || IsNull(arguments[1])) return sqlite3_result_null(context);
  const bool matches = MatchesWildcards(TextOf(arguments[1]), TextOf(arguments[0]), CaseRule::kIgnore);
  sqlite3_result_int(context, matches ? -1 : 0);
}

void JoinTexts(sqlite3_context* context, int count, sqlite3_value** arguments) {
  std::string joined;
  for (int i = 0; i < count; ++i) joined += TextOf(arguments[i]);
  sqlite3_result_text(context, joined.data(), static_cast<int>(joined.size()), SQLITE_TRANSIENT);
}

constexpr std::array<std::string_view, 12> kMonthNames = {"January",   "February", "March",    "April",
                                                          "May",       "June",     "July",     "August",
                                                          "September", "October",  "November", "December"};

/// Day number of "<month> <day>, <year>".
std::optional<int> DayNumber(std::string_view text) {
  const auto space = text.find(' ');
  const auto comma = text.find(", ");
  if (space == std::string_view::npos || comma == std::string_view::npos || comma < space) return std::nullopt;
  unsigned month = 0;
  for (unsigned i = 0; i < kMonthNames.size(); ++i) {
    if (EqualNoCase(text.substr(0, space), kMonthNames[i])) month = i + 1;
  }
  const auto number = [](std::string_view digits) -> std::optional<int> {
    int value = 0;
    const auto parsed = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (parsed.ec != std::errc() || parsed.ptr != digits.data() + digits.size()) return std::nullopt;
    return value;
  };
  const auto day = number(text.substr(space + 1, comma - space - 1));
  const auto year = number(text.substr(comma + 2));
  if (month == 0 || !day || !year || *day < 1 || *year < 100 || *year > 9999) return std::nullopt;
  const std::chrono::year_month_day date{std::chrono::year(*year), std::chrono::month(month),
                                         std::chrono::day(static_cast<unsigned>(*day))};
  if (!date.ok()) return std::nullopt;
  return static_cast<int>(std::chrono::sys_days(date).time_since_epoch().count());
}

void CvDate(sqlite3_context* context, int, sqlite3_value** arguments) {
  if (IsNull(arguments[0])) return sqlite3_result_null(context);
  if (const auto day = DayNumber(TextOf(arguments[0]))) return sqlite3_result_int(context, *day);
  sqlite3_result_error(context, ("Type mismatch: \"" + TextOf(arguments[0]) + "\" is not a date.").c_str(), -1);
  sqlite3_result_error_code(context, SQLITE_MISMATCH);
}

}  // namespace

void RegisterSqlFunctions(sqlite3* handle) {
  constexpr int kFlags = SQLITE_UTF8 | SQLITE_DETERMINISTIC;
  sqlite3_create_function(handle, "like", 2, kFlags, nullptr, Like, nullptr, nullptr);
  sqlite3_create_function(handle, "join_texts", -1, kFlags, nullptr, JoinTexts, nullptr, nullptr);
  sqlite3_create_function(handle, "cvdate", 1, kFlags, nullptr, CvDate, nullptr, nullptr);
}

}  // namespace orvex::store
