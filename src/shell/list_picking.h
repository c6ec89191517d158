#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "shell/controls.h"
#include "store/record_set.h"

/// What the windows share in which rows are picked out of one list into another.
namespace orvex::shell {

/// Adds the items selected in one list to another, but none that is there. They stay in the first.
void AddSelected(const ListBox& from, ListBox& to);
/// Takes the selected items out of a list.
void RemoveSelected(ListBox& list);
void RemoveAll(ListBox& list);

/// A field of a row, and the box of a window that shows it.
struct ShownField {
  std::string_view field;
  TextBox& box;
};

/// Shows a row's fields, null as an empty text; empties the boxes when the record set stands on no row.
void ShowFields(store::RecordSet& row, std::initializer_list<ShownField> shown);

}  // namespace orvex::shell
