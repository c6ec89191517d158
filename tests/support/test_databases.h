#pragma once

#include <filesystem>
#include <initializer_list>
#include <string_view>
#include <utility>

#include "shell/session.h"
#include "store/database.h"
#include "support/scripted_host.h"

namespace orvex::test {

/// A folder of its own for one test, removed with everything in it at the end.
class TemporaryFolder {
 public:
  TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder();
  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

using FieldValues = std::initializer_list<std::pair<std::string_view, store::Value>>;

/// Adds a row with these fields; the others stay as AddNew leaves them.
void AddRow(store::Database& database, std::string_view table, FieldValues fields);

/// Sets fields of the first row of a table whose index begins with `key`.
void ChangeRow(store::Database& database, std::string_view table, std::string_view index,
               std::initializer_list<store::Value> key, FieldValues fields);

/// A session over two new, empty databases and a scripted host.
struct TestSession {
  TestSession();
  TemporaryFolder folder;
  ScriptedHost host;
  shell::Session session{host};
  store::Database& client() { return *session.ClientDb; }
  store::Database& reference() { return *session.ReferenceDb; }
};

}  // namespace orvex::test
