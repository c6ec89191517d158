#include "store/dbase_names.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <set>

#include "store/run_time_error.h"
#include "store/utf8.h"

namespace orvex::store {
namespace {

constexpr std::size_t kLongestFieldName = 10;
constexpr std::size_t kLongestFileName = 8;

bool IsLetter(char c) { return c >= 'A' && c <= 'Z'; }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

char Legal(char32_t c) {
  if (c >= 'a' && c <= 'z') return static_cast<char>(c - 'a' + 'A');
  const bool legal = c < 0x80 && (IsLetter(static_cast<char>(c)) || IsDigit(static_cast<char>(c)));
  return legal ? static_cast<char>(c) : '_';
}

std::string LegalName(std::string_view name) {
  std::string legal;
  while (!name.empty()) legal += Legal(TakeCharacter(name).value_or('_'));
  if (legal.empty() || !IsLetter(legal.front())) legal.insert(0, 1, 'F');
  return legal.substr(0, kLongestFieldName);
}

}  // namespace

std::vector<std::string> DbaseFieldNames(const std::vector<std::string>& names) {
  std::vector<std::string> result;
  std::set<std::string> taken;
  for (const auto& name : names) {
    const std::string legal = LegalName(name);
    std::string unique = legal;
    for (int number = 2; !taken.insert(unique).second; ++number) {
      const std::string ending = std::to_string(number);
      unique = legal.substr(0, kLongestFieldName - ending.size()) + ending;
    }
    result.push_back(unique);
  }
  return result;
}

void CheckDbaseFileName(const std::filesystem::path& path) {
  const std::string name = path.stem().string();
  if (CharacterCount(name) <= kLongestFileName && name.find('.') == std::string::npos) return;
  throw RunTimeError(ErrorNumber::kInvalidName,
                     fmt::format("'{}' is not a valid name: a dBASE file has a name of at most {} characters.", name,
                                 kLongestFileName));
}

}  // namespace orvex::store
