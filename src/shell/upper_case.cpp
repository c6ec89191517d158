#include "shell/upper_case.h"

#include <glib.h>

#include "store/utf8.h"

namespace orvex::shell {

std::string UpperCase(std::string_view text) {
  std::string upper;
  while (!text.empty()) {
    const auto rest = text;
    if (const auto character = store::TakeCharacter(text)) {
      store::AppendCharacter(upper, g_unichar_toupper(*character));
    } else {
      upper += rest.substr(0, rest.size() - text.size());
    }
  }
  return upper;
}

}  // namespace orvex::shell
