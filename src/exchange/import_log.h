#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "shell/session.h"
#include "store/database.h"

/// What became of each record of the last import: the table `import errors` of the reference database.
namespace orvex::exchange {

inline constexpr std::string_view kImportLog = "import errors";
inline constexpr std::string_view kImported = "Record was successfully imported.";

/// The first characters of a text, which need not be its first bytes.
[[nodiscard]] std::string FirstCharacters(std::string_view text, std::size_t count);

class ImportLog {
 public:
  /// Error 3011 in a database that has no such table.
  explicit ImportLog(store::Database& reference);

  /// Forgets the imports before.
  void Clear();
  /// A row: the key of the record in its file, its name for the person, and what is said about it. All are cut to
  /// what the table holds; an empty key or name is null.
  void Add(std::string_view key, std::string_view name, std::string_view error);

 private:
  store::Database& reference_;
  store::RecordSet rows_;
  std::size_t key_width_, name_width_, error_width_;
};

/// Opens `frmprintrep` on the log.
void OfferImportLog(shell::Session& session);

}  // namespace orvex::exchange
