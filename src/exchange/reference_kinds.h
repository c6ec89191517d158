#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "exchange/import_source.h"

/// What the imports of the four reference tables differ in.
namespace orvex::exchange {

/// A row must pass it to be added.
struct ImportCheck {
  bool (*passes)(const ImportSource& row);
  std::string_view failure;  ///< for the log
};

/// A text field that is not copied from the source's field of the same name.
struct MadeText {
  std::string_view field;
  std::string (*text)(const ImportSource& row);
};

/// A text field that tells rows apart.
struct SameText {
  std::string_view field;
  std::string (*text)(const ImportSource& row);
  std::string_view blank = {};  ///< what a blank one equals, in the source and in the table
};

struct ReferenceKind {
  std::string_view table;         ///< gets the rows
  std::string_view import_label;  ///< in error reports of the command
  std::string_view step_label;    ///< in those of the same as a step of the import of tanks
  std::string_view file;          ///< its usual name, for the dialog
  /// What tells the row from others, for the log.
  std::string (*key)(const ImportSource& row);
  /// A row is in the table already when these fields have the same texts there. An empty text equals a null, but in
  /// the first of them nothing.
  std::vector<SameText> same;
  std::string_view duplicate;  ///< for the log
  std::vector<ImportCheck> checks;
  std::vector<std::string_view> copied;
  std::vector<MadeText> made;
  std::string_view user_defined;
};

const ReferenceKind& ChemicalKind();
const ReferenceKind& CityKind();
const ReferenceKind& FittingKind();
const ReferenceKind& RimSealKind();

}  // namespace orvex::exchange
