#include "store/dbase_column.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <utility>

#include "store/code_page.h"
#include "store/letter_case.h"
#include "store/number_text.h"
#include "store/run_time_error.h"

namespace orvex::store {
namespace {

constexpr std::size_t kLongestText = 254;
constexpr std::size_t kLongestNumber = 20;

const CodePage& Encoding() {
  static const CodePage kEncoding("CP1252");
  return kEncoding;
}

bool IsNumber(FieldType type) { return type != FieldType::kText && type != FieldType::kBoolean; }

/// Characters that a finite number takes in plain notation, exactly.
struct Places {
  std::size_t whole;  ///< in front of the point, a minus among them
  std::size_t decimals;
};

Places PlacesOf(double number) {
  // The shortest text that is this number alone: d.ddde-xx
  std::array<char, 32> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number, std::chars_format::scientific);
  std::string_view text(buffer.data(), static_cast<std::size_t>(end.ptr - buffer.data()));
  const std::size_t sign = text.starts_with('-') ? 1 : 0;
  text.remove_prefix(sign);
  const std::size_t mark = text.find('e');
  std::string_view digits = text.substr(mark + 1);
  if (digits.starts_with('+')) digits.remove_prefix(1);
  int exponent = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), exponent);
  const int decimals_here = mark > 1 ? static_cast<int>(mark) - 2 : 0;
  return {sign + static_cast<std::size_t>(std::max(exponent, 0)) + 1,
          static_cast<std::size_t>(std::max(decimals_here - exponent, 0))};
}

std::string Names(const std::vector<std::string>& names) { return fmt::format("{}", fmt::join(names, ", ")); }

}  // namespace

DbaseColumn::DbaseColumn(std::string field, std::string name, FieldType type)
    : field_(std::move(field)), name_(std::move(name)), type_(type) {}

char DbaseColumn::Type() const { return type_ == FieldType::kText ? 'C' : type_ == FieldType::kBoolean ? 'L' : 'N'; }

Value DbaseColumn::Take(const Value& value) {
  if (value.IsNull()) return {};
  if (type_ == FieldType::kText) return TakeText(value);
  const Value number = AsNumber(value);
  if (type_ == FieldType::kBoolean) return Value(number.AsBool());
  return TakeNumber(number);
}

Value DbaseColumn::TakeText(const Value& value) {
  const auto [bytes, whole] = Encoding().Encode(value.AsText());
  replaced_characters_ = replaced_characters_ || !whole;
  if (bytes.size() > kLongestText)
    throw RunTimeError(ErrorNumber::kTextTooLong,
                       fmt::format("The field '{}' holds a text of {} characters; a dBASE file holds {}.", field_,
                                   bytes.size(), kLongestText));
  lost_empty_texts_ = lost_empty_texts_ || bytes.empty();
  cut_blanks_ = cut_blanks_ || bytes.ends_with(' ');
  width_ = std::max(width_, bytes.size());
  return Value(bytes);
}

/// Whole numbers stay what they are.
Value DbaseColumn::AsNumber(const Value& value) const {
  if (value.GetKind() == Value::Kind::kInteger) return value;
  if (value.GetKind() == Value::Kind::kReal && std::isfinite(value.RawReal())) return value;
  const auto number = value.GetKind() == Value::Kind::kText ? ParseNumber(value.RawText()) : std::nullopt;
  if (number) return Value(*number);
  throw RunTimeError(ErrorNumber::kDataConversion, fmt::format("The field '{}' holds what is no number.", field_));
}

Value DbaseColumn::TakeNumber(const Value& value) {
  const Places places = value.GetKind() == Value::Kind::kInteger ? Places{std::to_string(value.RawInteger()).size(), 0}
                                                                 : PlacesOf(value.RawReal());
  if (places.whole > kLongestNumber)
    throw RunTimeError(ErrorNumber::kOverflow,
                       fmt::format("The field '{}' holds the number {}; a dBASE file holds numbers of {} digits.",
                                   field_, value.RawReal(), kLongestNumber));
  width_ = std::max(width_, places.whole);
  needed_decimals_ = std::max(needed_decimals_, places.decimals);
  return value;
}

void DbaseColumn::Settle() {
  if (!IsNumber(type_) || needed_decimals_ == 0) return;
  // One character is the point. Where only that has room, there are no decimals.
  const std::size_t room = kLongestNumber - width_;
  decimals_ = std::min(needed_decimals_, room > 0 ? room - 1 : 0);
  if (decimals_ > 0) width_ += 1 + decimals_;
}

std::string DbaseColumn::NumberText(const Value& value) const {
  std::string text = value.AsText();
  const std::size_t point = std::min(text.find('.'), text.size());
  const std::size_t decimals = point < text.size() ? text.size() - point - 1 : 0;
  if (decimals > decimals_) {
    std::array<char, 64> buffer{};  // its digits in front of the point are counted
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value.AsDouble(),
                                   std::chars_format::fixed, static_cast<int>(decimals_));
    text.assign(buffer.data(), end.ptr);
  } else {
    // Zeros follow its own digits: those of its binary value are not worth more.
    if (decimals == 0 && decimals_ > 0) text += '.';
    text.append(decimals_ - decimals, '0');
  }
  // Zero, and what is rounded to it, has no sign.
  if (text.starts_with('-') && text.find_first_not_of("-0.") == std::string::npos) text.erase(0, 1);
  return text;
}

void DbaseColumn::AppendTo(std::string& record, const Value& value) const {
  if (value.IsNull()) {
    record.append(width_, ' ');
  } else if (type_ == FieldType::kBoolean) {
    record += value.AsBool() ? 'T' : 'F';
  } else if (type_ == FieldType::kText) {
    record += value.RawText();
    record.append(width_ - value.RawText().size(), ' ');
  } else {
    const std::string text = NumberText(value);
    record.append(width_ - text.size(), ' ');
    record += text;
  }
}

std::vector<std::string> DbaseLosses(std::span<const DbaseColumn> columns) {
  struct Loss {
    const char* sentence;
    bool (*happened)(const DbaseColumn& column);
    std::string (*name)(const DbaseColumn& column);
  };
  const auto field = [](const DbaseColumn& column) { return column.Field(); };
  const Loss losses[] = {
      {"Fields that have other names in the file: {}.",
       [](const DbaseColumn& column) { return !EqualNoCase(column.Field(), column.Name()); },
       [](const DbaseColumn& column) { return fmt::format("{} is {}", column.Field(), column.Name()); }},
      {"Fields whose numbers were rounded: {}.", [](const DbaseColumn& column) { return column.Rounded(); },
       [](const DbaseColumn& column) { return fmt::format("{} to {} decimals", column.Field(), column.Decimals()); }},
      {"Fields with characters that the file cannot hold, written as '?': {}.",
       [](const DbaseColumn& column) { return column.ReplacedCharacters(); }, field},
      {"Fields with blanks at the end of a text, which are lost: {}.",
       [](const DbaseColumn& column) { return column.CutBlanks(); }, field},
      {"Fields with empty texts, which are null in the file: {}.",
       [](const DbaseColumn& column) { return column.LostEmptyTexts(); }, field},
  };
  std::vector<std::string> sentences;
  for (const auto& loss : losses) {
    std::vector<std::string> names;
    for (const auto& column : columns) {
      if (loss.happened(column)) names.push_back(loss.name(column));
    }
    if (!names.empty()) sentences.push_back(fmt::format(fmt::runtime(loss.sentence), Names(names)));
  }
  return sentences;
}

}  // namespace orvex::store
