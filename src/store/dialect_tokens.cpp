#include "store/dialect_tokens.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "store/letter_case.h"
#include "store/run_time_error.h"
#include "store/utf8.h"

namespace orvex::store {
namespace {

constexpr std::array<std::string_view, 34> kKeywords = {
    "ALL",         "AND",    "AS",    "ASC",  "BETWEEN", "BY",     "DELETE", "DESC",  "DISTINCT",
    "DISTINCTROW", "EXISTS", "FALSE", "FROM", "GROUP",   "HAVING", "IN",     "INNER", "INTO",
    "IS",          "JOIN",   "LEFT",  "LIKE", "NOT",     "NULL",   "ON",     "OR",    "ORDER",
    "RIGHT",       "SELECT", "TOP",   "TRUE", "UNION",   "WHERE",  "XOR"};

bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || static_cast<unsigned char>(c) >= 0x80;
}
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

std::string UpperCase(std::string_view text) {
  std::string upper(text);
  for (char& c : upper) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return upper;
}

class Tokenizer {
 public:
  explicit Tokenizer(std::string_view query) : query_(query) {}

  std::vector<Token> Run() {
    while (SkipBlanks()) tokens_.push_back(Next());
    while (!tokens_.empty() && tokens_.back().IsSymbol(";")) tokens_.pop_back();
    return std::move(tokens_);
  }

 private:
  bool SkipBlanks() {
    while (at_ < query_.size() &&
           (query_[at_] == ' ' || query_[at_] == '\t' || query_[at_] == '\r' || query_[at_] == '\n'))
      ++at_;
    return at_ < query_.size();
  }

  Token Next() {
    const char c = query_[at_];
    if (c == '[') return Bracketed();
    if (c == '\'' || c == '"') return TextConstant(c);
    if (IsDigit(c) || (c == '.' && at_ + 1 < query_.size() && IsDigit(query_[at_ + 1]) && !AfterName()))
      return Number();
    if (IsLetter(c)) return Word();
    return Symbol();
  }

  [[nodiscard]] bool AfterName() const { return !tokens_.empty() && tokens_.back().IsName(); }

  Token Bracketed() {
    ++at_;
    return {TokenKind::kBracketedName, UpTo(']', "a bracket is not closed")};
  }

  Token TextConstant(char quote) {
    ++at_;
    return {TokenKind::kText, UpTo(quote, "a text is not closed")};
  }

  /// What stands in front of the end, which is passed; a doubled one inside stands for one.
  std::string UpTo(char end, std::string_view fault) {
    std::string text;
    for (; at_ < query_.size(); ++at_) {
      if (query_[at_] == end) {
        ++at_;
        if (at_ >= query_.size() || query_[at_] != end) return text;
      }
      text += query_[at_];
    }
    ThrowQuerySyntax(query_, fault);
  }

  Token Number() {
    const std::size_t start = at_;
    while (at_ < query_.size() && (IsDigit(query_[at_]) || query_[at_] == '.')) ++at_;
    if (at_ < query_.size() && Folded(query_[at_]) == 'e') {
      std::size_t exponent = at_ + 1;
      if (exponent < query_.size() && (query_[exponent] == '+' || query_[exponent] == '-')) ++exponent;
      if (exponent < query_.size() && IsDigit(query_[exponent])) {
        at_ = exponent;
        while (at_ < query_.size() && IsDigit(query_[at_])) ++at_;
      }
    }
    return {TokenKind::kNumber, std::string(query_.substr(start, at_ - start))};
  }

  Token Word() {
    const std::size_t start = at_;
    while (at_ < query_.size() && (IsLetter(query_[at_]) || IsDigit(query_[at_]))) ++at_;
    const auto word = query_.substr(start, at_ - start);
    const bool field_of_table = !tokens_.empty() && (tokens_.back().IsSymbol(".") || tokens_.back().IsSymbol("!"));
    const std::string upper = UpperCase(word);
    if (!field_of_table && std::binary_search(kKeywords.begin(), kKeywords.end(), upper)) {
      return {TokenKind::kKeyword, upper};
    }
    return {TokenKind::kName, std::string(word)};
  }

  Token Symbol() {
    static constexpr std::array<std::string_view, 18> kSymbols = {"<>", "<=", ">=", "=", "<", ">", "+", "-", "*",
                                                                  "/",  "&",  "(",  ")", ",", ".", ";", "!", "^"};
    for (const auto symbol : kSymbols) {
      if (query_.substr(at_, symbol.size()) != symbol) continue;
      at_ += symbol.size();
      return {TokenKind::kSymbol, std::string(symbol)};
    }
    ThrowQuerySyntax(query_, fmt::format("the character '{}' has no meaning here", query_[at_]));
  }

  std::string_view query_;
  std::size_t at_ = 0;
  std::vector<Token> tokens_;
};

}  // namespace

std::vector<Token> Tokenize(std::string_view query) { return Tokenizer(query).Run(); }

std::string QueryExcerpt(std::string_view query) {
  constexpr int kCharacters = 400;
  std::string_view rest = query;
  for (int i = 0; i < kCharacters && !rest.empty(); ++i) static_cast<void>(TakeCharacter(rest));
  if (rest.empty()) return std::string(query);
  return std::string(query.substr(0, query.size() - rest.size())) + "...";
}

void ThrowQuerySyntax(std::string_view query, std::string_view reason) {
  throw RunTimeError(ErrorNumber::kQuerySyntax,
                     fmt::format("Syntax error in query '{}': {}.", QueryExcerpt(query), reason));
}

}  // namespace orvex::store
