#pragma once

#include "entry/entry_field.h"
#include "entry/entry_lists.h"
#include "shell/choices.h"

/// Makers of the rows of the tables of entries.
namespace orvex::entry::makers {

using Words = std::string_view;

constexpr EntryInfo Text(Section section, Words group, Words field, Words control, Words caption, Words tip) {
  return {section, group, {control, caption, tip}, EntryKind::kText, field};
}

constexpr EntryInfo Number(Section section, Words group, Words field, Words control, Words caption, Words tip,
                           Roofs roofs = Roofs::kAll) {
  return {section, group, {control, caption, tip}, EntryKind::kNumber, field, {}, roofs};
}

constexpr EntryInfo YesNo(Section section, Words group, Words field, Words control, Words caption, Words tip) {
  return {section, group, {control, caption, tip}, EntryKind::kYesNo, field, shell::kYesOrNo};
}

/// Without items the list is filled from a table.
constexpr EntryInfo Choice(Section section, Words group, Words field, Words control, Words caption, Words tip,
                           std::span<const Words> items = {}) {
  return {section, group, {control, caption, tip}, EntryKind::kChoice, field, items};
}

constexpr EntryInfo TypedChoice(Section section, Words group, Words field, Words control, Words caption, Words tip,
                                std::span<const Words> items = {}) {
  return {section, group, {control, caption, tip}, EntryKind::kTypedChoice, field, items};
}

constexpr EntryInfo Shown(Section section, Words group, Words field, Words control, Words caption, Words tip) {
  return {section, group, {control, caption, tip}, EntryKind::kShown, field};
}

}  // namespace orvex::entry::makers
