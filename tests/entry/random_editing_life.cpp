#include "entry/random_editing_life.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <unordered_set>

#include "entry/entry_commands.h"
#include "entry/frmeditrec.h"
#include "entry/frmrecdelete.h"
#include "entry/tank_lifecycle.h"
#include "shell/tank_types.h"
#include "store/letter_case.h"

namespace orvex::test {
namespace {

using shell::Answer;
using shell::Buttons;

/// One by one, since the names of the commands are no part of what is done.
constexpr std::array kTypes = {shell::kVerticalFixedRoof, shell::kHorizontal, shell::kInternalFloatingRoof,
                               shell::kExternalFloatingRoof, shell::kDomedExternalFloatingRoof};

std::string Printable(const std::string& text) {
  std::string printed;
  for (const char letter : text) {
    const auto byte = static_cast<unsigned char>(letter);
    if (byte < 0x20 || byte == 0x7F) {
      printed += fmt::format("\\x{:02X}", byte);
    } else {
      printed += letter;
    }
  }
  constexpr std::size_t kShown = 300;
  return printed.size() > kShown ? printed.substr(0, kShown) + "..." : printed;
}

const char* NameOf(Answer answer) {
  static constexpr const char* kNames[] = {"OK", "Cancel", "Yes", "No"};
  return kNames[static_cast<std::size_t>(answer)];
}

}  // namespace

Life::Life() {
  const auto reference = folder_.Path() / "tankdata.mdb", client = folder_.Path() / "client1.mdb";
  std::filesystem::copy_file(ORVEX_REFERENCE_DATABASE, reference);
  std::filesystem::copy_file(ORVEX_SAMPLE_DATABASE, client);
  session_.TankPath = reference.string();
  session_.ClientPath = client.string();
  session_.ReferenceDb = store::Database::Open(reference, store::OpenMode::kReadOnly);
  session_.ClientDb = store::Database::Open(client);
  entry::AddTankEntry(session_);
}

void Life::Begin(const Steps& steps, Numbers numbers) {
  *session_.tank_entry = {};
  session_.CopyDataPending = false;
  session_.busy_status.clear();
  steps_ = &steps;
  numbers_ = numbers;
  at_ = asked_ = told_ = reports_ = 0;
  now_ = {};
  story_.clear();
  next_answer_.reset();
  status_.clear();
  pointer_ = shell::Pointer::kDefault;
}

void Life::GoThrough(const Steps& steps, Numbers numbers) {
  const store::Transaction undone(Client());
  Begin(steps, numbers);
  while (Next()) {
    ActAtTheDesk();
    LookAtTheDesk();
  }
}

std::string Life::Story() const {
  std::string story;
  for (const auto& deed : story_) story += "  " + Printable(deed) + "\n";
  return story;
}

bool Life::Next() {
  if (at_ == steps_->size()) return false;
  now_ = (*steps_)[at_++];
  asked_ = 0;
  return true;
}

void Life::RequireIdle() const {
  Require(pointer_ == shell::Pointer::kDefault, "the pointer is still busy");
  Require(status_.empty() || status_ == "Ready", "the status is still " + status_);
}

Answer Life::ShowMessage(const std::string& text, const std::string& title, Buttons buttons, shell::Icon icon) {
  const Prompt prompt{text, title, buttons, icon};
  const auto said = fmt::format("  [{}] {}", title, text);
  if (IsFailureReport(prompt)) {
    Say(said);
    Require(IsToldReport(prompt) || (numbers_ == Numbers::kAll && IsRangeReport(prompt)), "failure report: " + text);
    return Answer::kOk;
  }
  const auto wrong = WhatIsWrongWith(prompt);
  Require(wrong.empty(), wrong + ": " + said);
  if (buttons == Buttons::kOk) {
    Say(said);
    ++told_;
    return Answer::kOk;
  }
  const bool agreed = ((now_.how >> (asked_++ % 13)) & 1) != 0;
  auto answer = agreed ? Answer::kYes : Answer::kNo;
  if (buttons == Buttons::kOkCancel) answer = agreed ? Answer::kOk : Answer::kCancel;
  answer = next_answer_.value_or(answer);
  next_answer_.reset();
  Say(said + " - " + NameOf(answer));
  return answer;
}

void Life::ShowWindow(std::string_view name) {
  RequireIdle();
  if (name == "frmTank") return WorkInEditor(*this);
  if (name == "frmeditrec") return EditTanks();
  if (name == "frmrecdelete") return DeleteTanks();
  if (name == "frmrecfit") return WorkOnFittings(*this);
  if (name == "Frmcomponent") return WorkOnComponents(*this);
  if (name == "Frmspecpro") return ChooseProfile(*this);
  if (name == "FrmCopyData") return CopyData(*this);
  Require(name == "Frmreptyp", "an unknown window was opened: " + std::string(name));
  ++reports_;
}

void Life::ActAtTheDesk() {
  constexpr std::uint16_t kDeeds = 10;
  switch (now_.what % kDeeds) {
    case 9:
      Say("delete tanks");
      return entry::DeleteTanks(session_);
    case 6:
    case 7:
    case 8:
      Say("edit a tank");
      return entry::EditTank(session_);
    default: {
      const auto type = kTypes[OneOf(now_.which, kTypes.size())];
      Say(fmt::format("new {}", type));
      entry::NewTank(session_, type);
    }
  }
}

void Life::EditTanks() {
  auto form = entry::OpenFrmeditrec(session_);
  if (form.lstTanks.items.empty()) return entry::ClickClose(session_, form);
  const auto row = OneOf(now_.which, form.lstTanks.items.size());
  entry::PickTank(session_, form, row);
  Say("open " + form.lstTanks.items[row]);
  entry::ClickEdit(session_, form);
  Require(form.window.closed, "the list of tanks stays open");
}

void Life::DeleteTanks() {
  auto form = entry::OpenFrmrecdelete(session_);
  if (form.lstTanks.items.empty()) return entry::ClickClose(session_, form);
  auto expected = ReadAllRows(Client());
  const auto row = OneOf(now_.which, form.lstTanks.items.size());
  entry::PickTank(session_, form, row);
  Say("delete " + form.lstTanks.items[row]);
  const auto ID = Client().OpenAt("tank", "USER ID", {form.lstTanks.items[row]}).Long("ID");
  form.lstTanks.selected = {row};
  entry::ClickSelect(session_, form);
  const bool sure = now_.how % 2 == 1;
  AnswerNext(sure ? Answer::kYes : Answer::kNo);
  entry::ClickDelete(session_, form);
  if (sure) expected.erase(ID);
  const auto found = ReadAllRows(Client());
  Require(std::ranges::equal(
              expected, found,
              [](const auto& a, const auto& b) { return a.first == b.first && SameRows(a.second, b.second); }),
          "other rows than those of the tank were deleted");
  Require(!sure || Client().OpenAt("emission", "COMPID", {ID}).NoMatch(), "losses of a deleted tank are still there");
  entry::ClickClose(session_, form);
}

void Life::LookAtTheDesk() {
  RequireIdle();
  Require(session_.tank_entry->frmTank == nullptr, "the editor is still there");
  for (const auto& editing : session_.editing) Require(editing.expired(), "other programs are still held off");
  Require(Client().Mark() == 0, "a tank is still marked as never saved");
  const auto all = ReadAllRows(Client());
  RequireNoOrphans(all);
  std::unordered_set<std::string, store::NameHash, store::NameEqual> names;
  for (const auto& [ID, rows] : all) {
    RequireSound(rows);
    const auto name = FieldOf(rows.TankCopy.front(), "tank", "USER ID").TextOrEmpty();
    Require(!name.empty(), fmt::format("tank {} has no identification", ID));
    Require(names.insert(name).second, "two tanks are called " + name);
  }
}

}  // namespace orvex::test
