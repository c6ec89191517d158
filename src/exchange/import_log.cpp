#include "exchange/import_log.h"

#include <fmt/format.h>

#include <algorithm>
#include <limits>

#include "store/letter_case.h"
#include "store/text_or_null.h"
#include "store/utf8.h"

namespace orvex::exchange {
namespace {

/// Of a name in the log, whatever the table could hold.
constexpr std::size_t kNameWidth = 100;

/// Greatest number of characters in a field of the log.
std::size_t Width(store::Database& reference, std::string_view field) {
  for (const auto& stored : reference.Fields(kImportLog)) {
    if (store::EqualNoCase(stored.name, field) && stored.width > 0) return static_cast<std::size_t>(stored.width);
  }
  return std::numeric_limits<std::size_t>::max();
}

}  // namespace

std::string FirstCharacters(std::string_view text, std::size_t count) {
  auto rest = text;
  for (; count > 0 && !rest.empty(); --count) static_cast<void>(store::TakeCharacter(rest));
  return std::string(text.substr(0, text.size() - rest.size()));
}

ImportLog::ImportLog(store::Database& reference)
    : reference_(reference),
      rows_(reference.OpenTable(kImportLog)),
      key_width_(Width(reference, "IDX_ID")),
      name_width_(std::min(kNameWidth, Width(reference, "ID"))),
      error_width_(Width(reference, "Error")) {}

void ImportLog::Clear() { reference_.Execute(fmt::format("DELETE * FROM [{}]", kImportLog)); }

void ImportLog::Add(std::string_view key, std::string_view name, std::string_view error) {
  rows_.AddNew();
  rows_.Set("IDX_ID", store::TextOrNull(FirstCharacters(key, key_width_)));
  rows_.Set("ID", store::TextOrNull(FirstCharacters(name, name_width_)));
  rows_.Set("Error", FirstCharacters(error, error_width_));
  rows_.Update();
}

void OfferImportLog(shell::Session& session) {
  session.PrintMode = "Import";
  session.host.ShowWindow("frmprintrep");
}

}  // namespace orvex::exchange
