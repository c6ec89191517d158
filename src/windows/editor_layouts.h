#pragma once

#include <cstdint>
#include <string_view>

/// How the entries of the reference editors are placed, where they do not just stand below each other.
namespace orvex::windows {

/// Of the entries under one heading.
enum class GroupShape : std::uint8_t {
  kColumn,  ///< below each other
  kLine,    ///< beside each other, captions above
  kMonths,  ///< a column of the window's one table, a row for each month and the year
};

struct GroupLayout {
  std::string_view heading;
  GroupShape shape;
  /// The caption of the panel is the title of this group and all behind it, and not of the whole panel.
  bool begins_panel_caption = false;
};

[[nodiscard]] GroupLayout LayoutOf(std::string_view heading);

}  // namespace orvex::windows
