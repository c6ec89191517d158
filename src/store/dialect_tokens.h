#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace orvex::store {

enum class TokenKind : std::uint8_t {
  kKeyword,  ///< `text` in upper case
  kName,     ///< a field, table or function name; brackets taken off
  kBracketedName,
  kText,  ///< a text constant, quotes taken off
  kNumber,
  kSymbol,
};

struct Token {
  TokenKind kind;
  std::string text;

  [[nodiscard]] bool IsKeyword(std::string_view word) const { return kind == TokenKind::kKeyword && text == word; }
  [[nodiscard]] bool IsSymbol(std::string_view symbol) const { return kind == TokenKind::kSymbol && text == symbol; }
  [[nodiscard]] bool IsName() const { return kind == TokenKind::kName || kind == TokenKind::kBracketedName; }
};

/// Cuts a query into its tokens; a closing semicolon is dropped. Error 3075 for a text or bracket that does not end and
/// for characters that the dialect does not know.
std::vector<Token> Tokenize(std::string_view query);

/// A query as errors quote it: what is too long to be read is cut, with dots behind it.
std::string QueryExcerpt(std::string_view query);

/// The error for a query that can't be understood.
[[noreturn]] void ThrowQuerySyntax(std::string_view query, std::string_view reason);

}  // namespace orvex::store
