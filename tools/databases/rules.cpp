#include "databases/rules.h"

#include <fmt/core.h>
#include <fmt/ranges.h>

#include <algorithm>

#include "store/letter_case.h"

namespace orvex::databases {

std::string KeyOf(const TableRows& rows, std::size_t row, Fields fields) {
  std::string key;
  for (const std::string_view field : fields) {
    if (field != *fields.begin()) key += '\n';
    key += store::LowerCase(rows.Text(row, field));
  }
  return key;
}

std::set<std::string> KeysOf(const TableRows& rows, Fields fields) {
  std::set<std::string> keys;
  for (std::size_t row = 0; row < rows.Count(); ++row) keys.insert(KeyOf(rows, row, fields));
  return keys;
}

void RequireFilled(const TableRows& rows, Fields fields) {
  for (std::size_t row = 0; row < rows.Count(); ++row) {
    for (const std::string_view field : fields) {
      if (rows.Text(row, field).empty()) rows.Refuse(row, field, "the field must be filled.");
    }
  }
}

void RequirePositive(const TableRows& rows, Fields fields) {
  for (std::size_t row = 0; row < rows.Count(); ++row) {
    for (const std::string_view field : fields) {
      if (rows.Number(row, field) <= 0) rows.Refuse(row, field, "the number must be above zero.");
    }
  }
}

void RequireUnique(const TableRows& rows, Fields fields) {
  std::set<std::string> seen;
  for (std::size_t row = 0; row < rows.Count(); ++row) {
    if (!seen.insert(KeyOf(rows, row, fields)).second) {
      rows.Refuse(row, fmt::format("{}", fmt::join(fields, ", ")), "an earlier row has the same.");
    }
  }
}

void RequireWord(const TableRows& rows, std::string_view field, Fields words) {
  for (std::size_t row = 0; row < rows.Count(); ++row) {
    const std::string word = rows.Text(row, field);
    if (std::ranges::find(words, word) == words.end()) {
      rows.Refuse(row, field, fmt::format("'{}' is none of \"{}\".", word, fmt::join(words, "\", \"")));
    }
  }
}

void RequireNumbered(const TableRows& rows, std::string_view field, Fields within) {
  std::int32_t expected = 0;
  for (std::size_t row = 0; row < rows.Count(); ++row) {
    const bool goes_on = row > 0 && KeyOf(rows, row, within) == KeyOf(rows, row - 1, within);
    expected = goes_on ? expected + 1 : 1;
    if (rows.Long(row, field) != expected) {
      rows.Refuse(row, field,
                  fmt::format("the number must be {}, so that the rows are counted without gaps.", expected));
    }
  }
}

void RequireKnown(const TableRows& rows, Fields fields, const std::set<std::string>& known, std::string_view what) {
  for (std::size_t row = 0; row < rows.Count(); ++row) {
    if (rows.IsNull(row, *fields.begin()) || known.contains(KeyOf(rows, row, fields))) continue;
    rows.Refuse(row, fmt::format("{}", fmt::join(fields, ", ")), fmt::format("there is no such {}.", what));
  }
}

}  // namespace orvex::databases
