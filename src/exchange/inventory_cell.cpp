#include "exchange/inventory_cell.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "exchange/inventory_faults.h"
#include "store/blanks.h"
#include "store/letter_case.h"
#include "store/number_text.h"
#include "store/utf8.h"

namespace orvex::exchange {
namespace {

struct BooleanWord {
  std::string_view word;
  bool value;
};
constexpr BooleanWord kBooleanWords[] = {{"Yes", true},    {"No", false}, {"TRUE", true},
                                         {"FALSE", false}, {"-1", true},  {"0", false}};

ReadCell ReadBoolean(std::string_view cell) {
  for (const auto& [word, value] : kBooleanWords)
    if (store::EqualNoCase(word, store::WithoutBlanks(cell))) return {value};
  return {{}, fmt::format("{} is neither Yes nor No.", Shown(cell))};
}

ReadCell ReadDouble(std::string_view cell) {
  if (const auto number = store::ParseNumber(store::WithoutBlanks(cell))) return {*number};
  const bool comma = cell.find(',') != std::string_view::npos;
  return {{},
          fmt::format("{} is not a number{}.", Shown(cell),
                      comma ? ": decimals stand behind a point, and nothing parts thousands" : "")};
}

/// The number of a tank, mixture, component or fitting.
ReadCell ReadLong(std::string_view cell) {
  const auto number = store::ParseNumber(store::WithoutBlanks(cell));
  if (number && *number == std::trunc(*number) && *number >= 1 && *number <= kGreatestNumber)
    return {static_cast<std::int32_t>(*number)};
  return {{}, fmt::format("{} is not a whole number from 1 to {}.", Shown(cell), kGreatestNumber)};
}

std::string ListOf(std::span<const std::string_view> words) {
  std::string list;
  for (const auto word : words) list += fmt::format("{}{}", list.empty() ? "" : ", ", word);
  return list;
}

ReadCell ReadText(const InventoryFile& file, const store::FieldInfo& field, std::string_view cell) {
  const auto choices = std::ranges::find(file.choices, field.name, &FieldChoices::field);
  if (choices != file.choices.end() && !cell.empty()) {
    const auto word =
        std::ranges::find_if(choices->words, [&](std::string_view item) { return store::EqualNoCase(item, cell); });
    if (word != choices->words.end()) return {*word};
    return {{}, fmt::format("{} is none of: {}.", Shown(cell), ListOf(choices->words))};
  }
  if (const auto count = store::CharacterCount(cell); count > static_cast<std::size_t>(field.width))
    return {{}, fmt::format("the text has {} characters, the field holds {}.", count, field.width)};
  return {cell};
}

}  // namespace

ReadCell ReadInventoryCell(const InventoryFile& file, const store::FieldInfo& field, std::string_view cell) {
  switch (field.type) {
    case store::FieldType::kBoolean:
      return ReadBoolean(cell);
    case store::FieldType::kDouble:
      return ReadDouble(cell);
    case store::FieldType::kLong:
    case store::FieldType::kCounter:
      return ReadLong(cell);
    case store::FieldType::kText:
      break;
  }
  return ReadText(file, field, cell);
}

}  // namespace orvex::exchange
