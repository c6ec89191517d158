#pragma once

#include <array>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "entry/random_editing_life.h"

namespace orvex::test {

/// A person in the tank editor. Focus and events go as in the window: what has the focus is left before anything else
/// is done, and a refusal brings the person back, with what was to be done left undone.
class EditorVisit {
 public:
  EditorVisit(Life& life, entry::FrmTank& form);

  /// Does what the steps say until the editor is closed, or there are no more: then leaves without saving.
  void Work();

 private:
  using Entry = entry::Entry;
  using Command = void (*)(shell::Session&, entry::FrmTank&);
  struct Deed {
    int weight;
    void (EditorVisit::*act)();
  };
  static const std::vector<Deed>& Deeds();

  void Act();
  void Leave();

  // Focus ------------------------------------------------------------------------------------------------------------
  bool LeaveEntered();
  bool TurnBack();
  bool Enter(std::string_view control);
  bool TurnTo(entry::Page page);
  bool ComeTo(const Entry& entry);
  bool Click(const shell::Button& button, std::string_view name, Command command);
  void FollowFocus();
  std::vector<Entry*> Enterable();
  [[nodiscard]] bool CanBeEntered(std::string_view control);

  // Deeds ------------------------------------------------------------------------------------------------------------
  bool MendRefused();
  void TypeAnywhere();
  void Type(Entry& entry, const std::string& text);
  void ChooseAnywhere();
  void Choose(Entry& entry, std::size_t item);
  void Activate();
  void ChangePage();
  void NameTank();
  void MakeMixture();
  void Tick();
  void TypeThroughput();
  void ChooseMixture();
  void Distribute();
  void FillNames();
  void Calculate();
  void AddMixture();
  void NextMixture();
  void PreviousMixture();
  void DeleteMixture();
  void Fittings();
  void Components();
  void Profiles();
  void Copy();
  void Save();
  void RunReport();
  void Abandon();
  void Close();
  void CloseWith(shell::Answer answer);

  // What must hold ---------------------------------------------------------------------------------------------------
  void Look();
  void LookAtEntries(const RecordCopy& rows);
  void LookAtMonths();
  void LookAtMixtures(const RecordCopy& rows);
  /// What stands on the screen before a save, and whether the rows hold it afterwards.
  struct Screen {
    std::vector<std::pair<const entry::EntryInfo*, std::string>> entries;
    entry::MonthEntries months;
  };
  Screen Seen();
  void RequireSaved(const Screen& screen);
  void RequireMonthsSaved(const Screen& screen, const RecordCopy& rows);
  void RequireUndone(const RecordCopy& copy, const RecordCopy& before);

  RecordCopy Rows() { return entry::ReadRows(life_.Client(), form_.ID); }
  const RecordCopy& TheCopy() { return session_.tank_entry->copy; }
  std::string TextOfEntry(std::string_view control) { return entry::At(form_, control).box.text; }

  Life& life_;
  shell::Session& session_;
  entry::FrmTank& form_;
  std::string entered_;  ///< control that has the focus; empty where that is none with rules
  bool saved_ = false;   ///< the tank was opened, or has been saved
};

}  // namespace orvex::test
