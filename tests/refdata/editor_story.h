#pragma once

#include <ostream>
#include <string>
#include <string_view>

#include "refdata/record_editor.h"

/// A person does anything in a reference editor; whatever it is, its table and its window stay sound.
namespace orvex::test {

/// What must hold, if it does not: the story's end.
void Require(bool holds, const std::string& rule);

/// What one editor's stories have that others' have not.
struct StoryEditor {
  const char* name;
  refdata::RecordEditor (*open)(shell::Session&);
  std::string_view table, user_defined_field;
  std::string_view left_out;  ///< condition on shipped rows that the stories do without; none if empty
  /// Field that a person names a record by; empty where the name is made of other entries.
  std::string_view named_by;
  bool lists_repeat;  ///< the first list holds each name once, though several records may share it
  bool minds_case;    ///< names that differ in case are different
  /// What no two rows share.
  std::string (*name_of)(store::RecordSet& row);
  /// Requires what a person's own row, once saved, satisfies.
  void (*require_row)(store::RecordSet& row);
  /// Requires what else the window shows; may be null.
  void (*require_entries)(shell::Session& session, const refdata::RecordEditor& form);
};

inline void PrintTo(const StoryEditor& editor, std::ostream* out) { *out << editor.name; }

/// Goes through many stories, of which each begins with the shipped rows; the current test fails with the shortest one
/// that breaks a rule.
void TellStories(const StoryEditor& editor);

}  // namespace orvex::test
