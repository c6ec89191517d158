#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orvex::report_app {

/// The items of a text like `A,B,"C, north"`: separated by commas, blanks around them taken off, and quoted where they
/// hold commas, quotes (doubled) or blanks at their ends. Empty items count only when quoted. Throws `Failure` on a
/// quote without its end or with something behind it.
std::vector<std::string> SplitList(std::string_view text);

}  // namespace orvex::report_app
