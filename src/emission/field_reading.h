#pragma once

#include <string>
#include <string_view>

#include "shell/trap.h"
#include "store/record_set.h"

/// Reading a field as one statement of a routine: without a current record the variable keeps what it was first given,
/// 0, false or an empty text. The plain forms fail on a null field (error 94), the `Or...` forms read null as the same.
namespace orvex::emission {

inline double ReadNumber(store::RecordSet& set, std::string_view field) {
  double value = 0;
  shell::Statement([&] { value = set.Double(field); });
  return value;
}

inline double ReadNumberOrZero(store::RecordSet& set, std::string_view field) {
  double value = 0;
  shell::Statement([&] { value = set.DoubleOrZero(field); });
  return value;
}

inline std::string ReadText(store::RecordSet& set, std::string_view field) {
  std::string value;
  shell::Statement([&] { value = set.Text(field); });
  return value;
}

inline std::string ReadTextOrEmpty(store::RecordSet& set, std::string_view field) {
  std::string value;
  shell::Statement([&] { value = set.TextOrEmpty(field); });
  return value;
}

inline bool ReadFlag(store::RecordSet& set, std::string_view field) {
  bool value = false;
  shell::Statement([&] { value = set.Bool(field); });
  return value;
}

inline bool ReadFlagOrFalse(store::RecordSet& set, std::string_view field) {
  bool value = false;
  shell::Statement([&] { value = set.BoolOrFalse(field); });
  return value;
}

}  // namespace orvex::emission
