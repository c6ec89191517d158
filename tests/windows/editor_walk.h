#pragma once

#include <QString>
#include <string>

#include "store/database.h"
#include "windows/keyboard_walk.h"

namespace orvex::test {

/// The reference editors in the whole program, worked by the keyboard alone.
class EditorWalk : public KeyboardWalk {
 protected:
  /// From the start: an editor by the access key of its table in the menu Data.
  void OpenEditor(const QString& table_key, const QString& window) {
    ComeToMenus();
    OpenEditorAgain(table_key, window);
  }
  void OpenEditorAgain(const QString& table_key, const QString& window) {
    typist_.At("MDIForm1");
    typist_.Keys({"Alt+D", table_key, "E"});
    typist_.At(window);
  }
  /// Begins a record of one's own, and waits until its name can be typed.
  void AddRecord(const QString& window, const QString& name) {
    typist_.Keys({"Alt+A"});
    typist_.Until(window, [name](QWidget& editor) { return FocusOf(editor) == name; });
  }
  /// Stores the record that was added, and makes no other one.
  void SaveAdded() {
    typist_.Keys({"Alt+S"});
    typist_.Reply("Add Another Record?", "Alt+N");
  }
  /// Closes an editor on a record that was shipped.
  void CloseOnShipped() {
    typist_.TabTo("cmdClose");
    typist_.Keys({"Return"});
  }
  /// Closes an editor on a record of one's own with this key as the answer to its question.
  void CloseWithQuestion(const QString& answer) {
    typist_.TabTo("cmdClose");
    typist_.Keys({"Return"});
    typist_.Reply("Save Changes?", answer);
  }
  /// Deletes the record on show and closes the editor on the first one.
  void DeleteAndClose() {
    typist_.TabTo("cmdDelete");
    typist_.Keys({"Return"});
    typist_.Reply("Are you sure you want to delete this record?", "Return");
    typist_.Keys({"Esc"});
  }
  /// Ends the program and works all that was planned.
  void RunToTheEnd() {
    Exit();
    Run();
  }
  /// Number of rows that the program left.
  [[nodiscard]] int Rows(const std::string& table, const std::string& condition) const {
    const auto reference = store::Database::Open(ApplicationFolder() / "tankdata.mdb", store::OpenMode::kReadOnly);
    int count = 0;
    for (auto rows = reference->OpenQuery("SELECT * FROM [" + table + "] WHERE " + condition); !rows.AtEnd();
         rows.MoveNext())
      ++count;
    return count;
  }
};

}  // namespace orvex::test
