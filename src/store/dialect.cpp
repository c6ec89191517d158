#include "store/dialect.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>
#include <span>

#include "store/connection.h"
#include "store/dialect_tokens.h"
#include "store/letter_case.h"

namespace orvex::store {
namespace {

constexpr std::array<std::string_view, 6> kFunctions = {"avg", "count", "cvdate", "max", "min", "sum"};

class Translator {
 public:
  explicit Translator(std::string_view query) : query_(query), tokens_(Tokenize(query)) {}

  Translation Run() {
    if (AtKeyword("DELETE")) {
      TranslateDelete();
    } else if (AtKeyword("SELECT")) {
      TranslateSelect();
    } else {
      Fail("it must begin with SELECT or DELETE");
    }
    return std::move(result_);
  }

 private:
  // Reading ----------------------------------------------------------------------------------------------------------
  [[nodiscard]] bool AtEnd() const { return at_ >= tokens_.size(); }
  [[nodiscard]] const Token& Current() const {
    if (AtEnd()) Fail("it ends too early");
    return tokens_[at_];
  }
  [[nodiscard]] bool AtKeyword(std::string_view word) const { return !AtEnd() && tokens_[at_].IsKeyword(word); }
  [[nodiscard]] bool AtSymbol(std::string_view symbol) const { return !AtEnd() && tokens_[at_].IsSymbol(symbol); }
  [[nodiscard]] bool AtAnyKeyword(std::initializer_list<std::string_view> words) const {
    return std::any_of(words.begin(), words.end(), [&](auto word) { return AtKeyword(word); });
  }
  bool TakeKeyword(std::string_view word) {
    if (!AtKeyword(word)) return false;
    ++at_;
    return true;
  }
  void RequireKeyword(std::string_view word) {
    if (!TakeKeyword(word)) Fail(fmt::format("{} is missing", word));
  }
  std::string TakeName() {
    if (!Current().IsName()) Fail(fmt::format("a name is missing before '{}'", Current().text));
    return tokens_[at_++].text;
  }
  [[noreturn]] void Fail(std::string_view reason) const { ThrowQuerySyntax(query_, reason); }

  // Statements -------------------------------------------------------------------------------------------------------
  void TranslateDelete() {
    RequireKeyword("DELETE");
    if (!AtKeyword("FROM")) {
      if (Current().IsName()) {
        ++at_;
        if (!AtSymbol(".")) Fail("'.' is missing");
        ++at_;
      }
      if (!AtSymbol("*")) Fail("'*' is missing");
      ++at_;
    }
    RequireKeyword("FROM");
    result_.kind = QueryKind::kDelete;
    result_.table = TakeName();
    result_.sql = "DELETE FROM " + Quoted(result_.table);
    if (TakeKeyword("WHERE")) result_.sql += " WHERE" + Expression({});
    if (!AtEnd()) Fail(fmt::format("'{}' is not expected", Current().text));
  }

  void TranslateSelect() {
    RequireKeyword("SELECT");
    TakeKeyword("DISTINCTROW");
    const bool distinct = TakeKeyword("DISTINCT");
    const std::size_t list_start = at_;
    const std::string list = Expression({"INTO", "FROM"});
    const std::size_t list_end = at_;
    const bool into = TakeKeyword("INTO");
    if (into) TakeTarget();
    RequireKeyword("FROM");
    const std::size_t from_start = at_;
    const std::string from = Expression({"WHERE", "GROUP", "ORDER"});
    const bool one_table = at_ == from_start + 1 && tokens_[from_start].IsName();
    // Rows that the order leaves equal come in the order of the file; of joined tables the first one counts.
    const bool joined =
        tokens_[from_start].IsName() && from_start + 1 < tokens_.size() && tokens_[from_start + 1].IsKeyword("INNER");
    std::string tail;
    if (TakeKeyword("WHERE")) tail += " WHERE" + Expression({"GROUP", "ORDER"});
    std::string groups;
    if (TakeKeyword("GROUP")) {
      RequireKeyword("BY");
      groups = Fields({"HAVING", "ORDER"});
      tail += " GROUP BY" + groups;
      if (TakeKeyword("HAVING")) tail += " HAVING" + Expression({"ORDER"});
    }
    std::string order;
    if (TakeKeyword("ORDER")) {
      RequireKeyword("BY");
      order = Fields({});
    } else if (!groups.empty()) {
      order = groups;
    }
    if (!AtEnd()) Fail(fmt::format("'{}' is not expected", Current().text));

    const bool whole_rows = one_table && groups.empty() && !distinct && !into &&
                            IsAllFields(list_start, list_end, tokens_[from_start].text);
    if (whole_rows) {
      result_.kind = QueryKind::kWholeRows;
      result_.table = tokens_[from_start].text;
    } else {
      result_.kind = into ? QueryKind::kSelectInto : QueryKind::kRows;
    }
    if ((one_table || joined) && groups.empty() && !distinct) {
      order += (order.empty() ? " " : ", ") + Quoted(tokens_[from_start].text) + ".rowid";
    }
    result_.sql = "SELECT" + std::string(distinct ? " DISTINCT" : "") + (whole_rows ? " rowid" : list) + " FROM" +
                  from + tail + (order.empty() ? "" : " ORDER BY" + order);
  }

  /// Whether the tokens are `*` or `table.*`.
  [[nodiscard]] bool IsAllFields(std::size_t start, std::size_t end, std::string_view table) const {
    if (end == start + 1) return tokens_[start].IsSymbol("*");
    return end == start + 3 && tokens_[start].IsName() && EqualNoCase(tokens_[start].text, table) &&
           tokens_[start + 1].IsSymbol(".") && tokens_[start + 2].IsSymbol("*");
  }

  void TakeTarget() {
    const bool connect =
        at_ + 2 < tokens_.size() && tokens_[at_].kind == TokenKind::kBracketedName && tokens_[at_ + 1].IsSymbol(".");
    if (connect) {
      result_.target_connect = TakeName();
      ++at_;
    }
    result_.target_table = TakeName();
  }

  // Expressions ------------------------------------------------------------------------------------------------------
  /// Translates up to one of the keywords, outside parentheses, or to the end. Begins with a blank.
  std::string Expression(std::initializer_list<std::string_view> stops) {
    std::vector<std::string> alternatives;
    std::string sql;
    bool list = false;
    while (!AtEnd() && !AtAnyKeyword(stops) && !AtSymbol(")")) {
      if (TakeKeyword("OR")) {
        alternatives.push_back(std::move(sql));
        sql.clear();
        continue;
      }
      list = list || AtSymbol(",");
      std::string operand = Operand();
      if (AtSymbol("&")) {
        operand = "join_texts(" + operand;
        while (AtSymbol("&")) {
          ++at_;
          operand += "," + Operand();
        }
        operand += ")";
      }
      sql += ' ';
      sql += operand;
    }
    if (sql.empty()) Fail("an expression is missing");
    if (alternatives.empty()) return sql;
    if (list) Fail("OR is not expected in a list");
    alternatives.push_back(std::move(sql));
    return Alternatives(alternatives);
  }

  /// The same for what rows are ordered or grouped by. A constant there would leave them as they are; in other dialects
  /// a number means a column of the list.
  std::string Fields(std::initializer_list<std::string_view> stops) {
    const std::size_t start = at_;
    std::string sql = Expression(stops);
    const auto ends_term = [&](std::size_t i) {
      return i == at_ || tokens_[i].IsSymbol(",") || tokens_[i].IsKeyword("ASC") || tokens_[i].IsKeyword("DESC");
    };
    int depth = 0;
    for (std::size_t i = start; i < at_; ++i) {
      depth += tokens_[i].IsSymbol("(") ? 1 : tokens_[i].IsSymbol(")") ? -1 : 0;
      const bool constant = tokens_[i].kind == TokenKind::kNumber || tokens_[i].kind == TokenKind::kText;
      const bool begins_term = i == start || tokens_[i - 1].IsSymbol(",");
      if (depth == 0 && constant && begins_term && ends_term(i + 1)) {
        Fail(fmt::format("rows are ordered and grouped by fields, not by '{}'", tokens_[i].text));
      }
    }
    return sql;
  }

  static std::string Alternatives(std::span<const std::string> parts) {
    const std::string choice = Choice(parts);
    return choice.empty() ? NestedAlternatives(parts) : choice;
  }

  /// `a OR b OR c ...` in nested halves: a choice of thousands of names stays within SQLite's depth of expressions.
  static std::string NestedAlternatives(std::span<const std::string> parts) {
    if (parts.size() == 1) return parts.front();
    const std::size_t half = parts.size() / 2;
    return " (" + NestedAlternatives(parts.first(half)) + " OR" + NestedAlternatives(parts.subspan(half)) + ")";
  }

  /// `field IN (...)` where each part compares the same field with a constant, otherwise nothing: SQLite looks for a
  /// way to each alternative, in time that grows with the square of their number.
  static std::string Choice(std::span<const std::string> parts) {
    std::string_view field;
    std::string constants;
    for (const auto& part : parts) {
      const auto comparison = ComparisonIn(part);
      if (!comparison || (!field.empty() && comparison->field != field)) return {};
      field = comparison->field;
      if (!constants.empty()) constants += ',';
      constants += comparison->constant;
    }
    return fmt::format(" {} IN ({})", field, constants);
  }

  struct Comparison {
    std::string_view field, constant;
  };

  /// What is compared by ` (("table"."field" = ?1))`; nothing if the text says something else.
  static std::optional<Comparison> ComparisonIn(std::string_view sql) {
    while (sql.starts_with(' ')) sql.remove_prefix(1);
    while (sql.starts_with('(') && sql.ends_with(')')) {
      sql = sql.substr(1, sql.size() - 2);
      while (sql.starts_with(' ')) sql.remove_prefix(1);
    }
    constexpr std::string_view kEquals = " = ";
    const auto field = sql.substr(0, sql.rfind('"') + 1);
    auto rest = sql.substr(field.size());
    if (!IsFieldName(field) || !rest.starts_with(kEquals)) return std::nullopt;
    rest.remove_prefix(kEquals.size());
    const bool constant = rest.starts_with('?') && rest.find_first_not_of("0123456789", 1) == std::string_view::npos;
    return constant ? std::optional(Comparison{field, rest}) : std::nullopt;
  }

  /// Whether the text is `"field"` or `"table"."field"`; names with quotation marks in them are none.
  static bool IsFieldName(std::string_view sql) {
    constexpr std::string_view kPoint = R"(".")";
    if (!sql.starts_with('"')) return false;
    auto end = sql.find('"', 1);
    if (sql.substr(std::min(end, sql.size())).starts_with(kPoint)) end = sql.find('"', end + kPoint.size());
    return end != std::string_view::npos && end + 1 == sql.size();
  }

  /// A constant, a name with its table, a function call, something in parentheses, or a keyword or operator.
  std::string Operand() {
    const Token& token = Current();
    if (token.IsSymbol("(")) return Parenthesized();
    if (token.IsName()) return Name();
    ++at_;
    switch (token.kind) {
      case TokenKind::kText:
        return Parameter(Value(token.text));
      case TokenKind::kNumber:
        return Parameter(NumberOf(token.text));
      case TokenKind::kKeyword:
        if (token.text == "TRUE") return "(-1)";
        if (token.text == "FALSE") return "(0)";
        if (token.text == "SELECT" || token.text == "INTO" || token.text == "DELETE")
          Fail(token.text + " is not expected");
        return token.text;
      default:
        if (token.text == "!" || token.text == "^" || token.text == ";" || token.text == "&") {
          Fail(fmt::format("'{}' is not expected", token.text));
        }
        return token.text;
    }
  }

  std::string Parenthesized() {
    ++at_;
    if (++nesting_ > kMaxNesting) Fail("the parentheses are nested too deeply");
    std::string inner = AtSymbol(")") ? "" : Expression({});
    --nesting_;
    if (!AtSymbol(")")) Fail("a parenthesis is not closed");
    ++at_;
    return "(" + inner + ")";
  }

  std::string Name() {
    const Token& token = tokens_[at_++];
    if (token.kind == TokenKind::kName && AtSymbol("(")) {
      const std::string function = LowerCase(token.text);
      if (std::find(kFunctions.begin(), kFunctions.end(), function) == kFunctions.end()) {
        Fail(fmt::format("the function {} is not known", token.text));
      }
      return function + Parenthesized();
    }
    std::string sql = Quoted(token.text);
    while (AtSymbol(".") || AtSymbol("!")) {
      ++at_;
      sql += '.';
      if (AtSymbol("*")) {
        ++at_;
        return sql + '*';
      }
      sql += Quoted(TakeName());
    }
    return sql;
  }

  std::string Parameter(Value value) {
    result_.parameters.push_back(std::move(value));
    return fmt::format("?{}", result_.parameters.size());
  }

  [[nodiscard]] Value NumberOf(const std::string& text) const {
    const auto* const end = text.data() + text.size();
    std::int64_t whole = 0;
    if (const auto parsed = std::from_chars(text.data(), end, whole); parsed.ec == std::errc() && parsed.ptr == end) {
      return Value(whole);
    }
    double real = 0;
    const auto parsed = std::from_chars(text.data(), end, real);
    if (parsed.ec != std::errc() || parsed.ptr != end || !std::isfinite(real)) Fail(text + " is not a number");
    return Value(real);
  }

  static constexpr int kMaxNesting = 200;

  std::string_view query_;
  std::vector<Token> tokens_;
  std::size_t at_ = 0;
  int nesting_ = 0;
  Translation result_;
};

}  // namespace

Translation TranslateSql(std::string_view query) { return Translator(query).Run(); }

}  // namespace orvex::store
