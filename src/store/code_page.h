#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace orvex::store {

/// A text in the bytes of a code page.
struct EncodedText {
  std::string bytes;
  bool whole = true;  ///< false if `CodePage::kReplacement` stands in place of a character
};

/// A code page of one byte a character whose lower half is ASCII, such as 437, 850 and 1252.
class CodePage {
 public:
  /// What is written for a character that the code page has not.
  static constexpr char kReplacement = '?';

  /// ASCII alone.
  CodePage() = default;
  /// By the name that iconv has for it ("CP1252"). Bytes that it leaves undefined are the control characters of the
  /// same number, so that no text is lost on the way. One that iconv does not know is ASCII alone.
  explicit CodePage(const char* name);

  /// The text in UTF-8; nothing if a byte is no character of the code page.
  [[nodiscard]] std::optional<std::string> Decode(std::string_view bytes) const;

  /// A text of UTF-8 in this code page. A NUL is replaced, too: it would end the text for many readers.
  [[nodiscard]] EncodedText Encode(std::string_view text) const;

  [[nodiscard]] std::optional<char> ByteOf(char32_t character) const;

 private:
  std::array<char32_t, 128> upper_half_{};  ///< 0 where there is no character
};

}  // namespace orvex::store
