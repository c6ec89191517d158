#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "store/field_table.h"
#include "store/value.h"

namespace orvex::store {

/// A field of a dBASE file that is being written: takes all its values first, since its width is that of the widest.
///
/// A text of up to 254 characters is a C, a Boolean an L, any number an N of up to 20 characters without exponent, with
/// the decimals that its values need and the places in front of the point leave. Null is blank.
class DbaseColumn {
 public:
  DbaseColumn(std::string field, std::string name, FieldType type);

  /// The value as `AppendTo` wants it. Errors, which name the field: 3163 a text that is too long, 6 a number that is,
  /// 3421 a value that is not of the field's type.
  Value Take(const Value& value);
  /// To be called behind the last value; width and decimals stand from then on.
  void Settle();

  [[nodiscard]] const std::string& Field() const { return field_; }
  [[nodiscard]] const std::string& Name() const { return name_; }
  [[nodiscard]] char Type() const;
  [[nodiscard]] std::size_t Width() const { return width_; }
  [[nodiscard]] std::size_t Decimals() const { return decimals_; }
  void AppendTo(std::string& record, const Value& value) const;

  // What was lost.
  [[nodiscard]] bool Rounded() const { return needed_decimals_ > decimals_; }
  [[nodiscard]] bool ReplacedCharacters() const { return replaced_characters_; }
  [[nodiscard]] bool CutBlanks() const { return cut_blanks_; }
  [[nodiscard]] bool LostEmptyTexts() const { return lost_empty_texts_; }

 private:
  [[nodiscard]] Value TakeText(const Value& value);
  [[nodiscard]] Value TakeNumber(const Value& value);
  [[nodiscard]] Value AsNumber(const Value& value) const;
  [[nodiscard]] std::string NumberText(const Value& value) const;

  std::string field_;  ///< in the table it comes from
  std::string name_;   ///< in the file
  FieldType type_;
  std::size_t width_ = 1;
  std::size_t decimals_ = 0;
  std::size_t needed_decimals_ = 0;
  bool replaced_characters_ = false;
  bool cut_blanks_ = false;
  bool lost_empty_texts_ = false;
};

/// What the file does not hold as the table did: a sentence each, with the fields it is about.
std::vector<std::string> DbaseLosses(std::span<const DbaseColumn> columns);

}  // namespace orvex::store
