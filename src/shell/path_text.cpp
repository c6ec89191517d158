#include "shell/path_text.h"

#include <glib.h>

#include "store/utf8.h"

namespace orvex::shell {
namespace {

constexpr std::string_view kSeparators = "/\\";

}  // namespace

std::string_view BaseName(std::string_view path) {
  const auto separator = path.find_last_of(kSeparators);
  if (separator != std::string_view::npos) path.remove_prefix(separator + 1);
  return path.substr(0, path.find_last_of('.'));
}

std::string_view DirName(std::string_view path) {
  const auto separator = path.find_last_of(kSeparators);
  return separator == std::string_view::npos ? std::string_view() : path.substr(0, separator);
}

std::string_view StripPrefix(std::string_view text) {
  const auto point = text.find('.');
  return point == std::string_view::npos ? text : text.substr(point + 1);
}

std::string PathPanelText(std::string_view path) {
  std::string lower;
  while (!path.empty()) {
    const auto character = store::TakeCharacter(path);
    store::AppendCharacter(lower, character ? g_unichar_tolower(*character) : store::kReplacementCharacter);
  }
  return lower;
}

}  // namespace orvex::shell
