#include "orvex-report/list_text.h"

#include <fmt/format.h>

#include <algorithm>

#include "orvex-report/failure.h"
#include "orvex-report/terminal_text.h"

namespace orvex::report_app {
namespace {

void SkipBlanks(std::string_view& rest) { rest.remove_prefix(std::min(rest.find_first_not_of(' '), rest.size())); }

/// Takes a quoted item from behind its opening quote to its closing one; false if there is none.
bool TakeQuoted(std::string_view& rest, std::string& item) {
  while (true) {
    const auto quote = rest.find('"');
    if (quote == std::string_view::npos) return false;
    item += rest.substr(0, quote);
    rest.remove_prefix(quote + 1);
    if (!rest.starts_with('"')) return true;
    item += '"';
    rest.remove_prefix(1);
  }
}

std::string TakePlain(std::string_view& rest) {
  const auto item = rest.substr(0, rest.find(','));
  rest.remove_prefix(item.size());
  const auto last = item.find_last_not_of(' ');
  return std::string(item.substr(0, last == std::string_view::npos ? 0 : last + 1));
}

}  // namespace

std::vector<std::string> SplitList(std::string_view text) {
  std::vector<std::string> items;
  std::string_view rest = text;
  while (!rest.empty()) {
    SkipBlanks(rest);
    if (rest.starts_with('"')) {
      rest.remove_prefix(1);
      std::string item;
      const bool closed = TakeQuoted(rest, item);
      SkipBlanks(rest);
      if (!closed || !(rest.empty() || rest.starts_with(',')))
        throw Failure{kWrongUse, fmt::format("the quotes of '{}' do not match", TerminalText(text))};
      items.push_back(std::move(item));
    } else if (auto item = TakePlain(rest); !item.empty()) {
      items.push_back(std::move(item));
    }
    if (!rest.empty()) rest.remove_prefix(1);
  }
  return items;
}

}  // namespace orvex::report_app
