#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "entry/random_editing_prompts.h"
#include "entry/random_editing_rows.h"
#include "entry/tank_entry.h"
#include "support/test_databases.h"

namespace orvex::test {

/// How great the numbers are that the person types.
enum class Numbers : std::uint8_t {
  kAnyOfTanks,  ///< none that a calculation with it could carry out of the range of numbers
  kAll,         ///< a report that a number has grown too great is then no fault
};

/// A person at the program, who does in each window what the next steps come to there, answers every question, and
/// looks after each command whether what must hold still does. Throws `Broken` where it does not.
class Life : public shell::Host {
 public:
  Life();

  /// Goes through the steps from the main window on, beginning with the sample tanks; leaves every window at the end.
  /// What was done to the client database is undone afterwards.
  void GoThrough(const Steps& steps, Numbers numbers);

  /// What was done, in words.
  [[nodiscard]] std::string Story() const;

  // For the windows --------------------------------------------------------------------------------------------------
  shell::Session& TheSession() { return session_; }
  store::Database& Client() { return *session_.ClientDb; }
  /// Takes the next step; false after the last.
  bool Next();
  [[nodiscard]] const Step& Now() const { return now_; }
  [[nodiscard]] Numbers NumbersTyped() const { return numbers_; }
  void Say(const std::string& deed) { story_.push_back(deed); }
  void AnswerNext(shell::Answer answer) { next_answer_ = answer; }
  /// How many message boxes were told, not asked, since the life began.
  [[nodiscard]] std::size_t Told() const { return told_; }
  /// How many windows of reports were opened.
  [[nodiscard]] std::size_t Reports() const { return reports_; }
  /// Pointer and status are as when no command runs.
  void RequireIdle() const;
  /// One of so many, by the number of a step.
  static std::size_t OneOf(std::uint16_t number, std::size_t count) { return number % count; }

  // Host -------------------------------------------------------------------------------------------------------------
  shell::Answer ShowMessage(const std::string& text, const std::string& title, shell::Buttons buttons,
                            shell::Icon icon) override;
  std::string OpenFile(const shell::FileRequest&) override { throw Broken("a file was asked for"); }
  std::string SaveFile(const shell::FileRequest&) override { throw Broken("a file was asked for"); }
  std::string ChooseFolder(const shell::FileRequest&) override { throw Broken("a folder was asked for"); }
  void SetStatusText(const std::string& text) override { status_ = text; }
  void SetPointer(shell::Pointer pointer) override { pointer_ = pointer; }
  void Beep() override {}
  void Navigate(const std::string&) override { throw Broken("a browser was opened"); }
  void ShowHelp(const std::string&) override {}
  void ShowWindow(std::string_view name) override;
  void Progress(std::int64_t, std::int64_t) override {}

 private:
  void Begin(const Steps& steps, Numbers numbers);
  void ActAtTheDesk();
  void EditTanks();
  void DeleteTanks();
  void LookAtTheDesk();

  TemporaryFolder folder_;
  shell::Session session_{*this};
  const Steps* steps_ = nullptr;
  std::size_t at_ = 0;
  Step now_{};
  Numbers numbers_ = Numbers::kAnyOfTanks;
  std::vector<std::string> story_;
  std::optional<shell::Answer> next_answer_;
  std::size_t asked_ = 0, told_ = 0, reports_ = 0;
  std::string status_;
  shell::Pointer pointer_ = shell::Pointer::kDefault;
};

// The windows of the open editor, each left when it comes back.
void WorkInEditor(Life& life);
void WorkOnComponents(Life& life);
void WorkOnFittings(Life& life);
void ChooseProfile(Life& life);
void CopyData(Life& life);

}  // namespace orvex::test
