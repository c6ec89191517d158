#pragma once

#include <string>
#include <string_view>

/// Helpers on the texts of paths. Both separators are understood, since paths of files made elsewhere hold the other
/// one.
namespace orvex::shell {

/// The text behind the last separator and in front of the last point of that rest: "fit" of "/data/fit.dbf".
std::string_view BaseName(std::string_view path);

/// The text in front of the last separator; empty without one.
std::string_view DirName(std::string_view path);

/// The text behind the first point, or the whole text without one.
std::string_view StripPrefix(std::string_view text);

/// A path as the status line shows it: in lower case, and with a mark for each byte that is no character.
std::string PathPanelText(std::string_view path);

}  // namespace orvex::shell
