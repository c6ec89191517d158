#include "exchange/import_value.h"

#include <algorithm>
#include <string_view>

#include "store/letter_case.h"
#include "store/number_text.h"

namespace orvex::exchange {
namespace {

struct FlagWord {
  std::string_view word;
  bool flag;
};
constexpr FlagWord kFlagWords[] = {{"T", true},  {"Y", true},  {"True", true},   {"Yes", true},
                                   {"F", false}, {"N", false}, {"False", false}, {"No", false}};

/// Numbers in fields of texts often stand at their end.
std::optional<double> ParseAligned(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  return store::ParseNumber(text);
}

}  // namespace

std::optional<double> NumberIn(const store::Value& value) {
  if (value.GetKind() != store::Value::Kind::kText) return value.DoubleOrZero();
  return ParseAligned(value.RawText());
}

std::optional<bool> FlagIn(const store::Value& value) {
  if (value.GetKind() != store::Value::Kind::kText) return value.BoolOrFalse();
  for (const auto& [word, flag] : kFlagWords) {
    if (store::EqualNoCase(value.RawText(), word)) return flag;
  }
  if (const auto number = ParseAligned(value.RawText())) return *number != 0;
  return std::nullopt;
}

}  // namespace orvex::exchange
