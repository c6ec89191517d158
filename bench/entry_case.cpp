#include "entry_case.h"

#include <stdexcept>
#include <string>

#include "entry/copy_command.h"
#include "entry/entry_commands.h"
#include "entry/frmcopydata.h"
#include "entry/frmeditrec.h"
#include "entry/tank_entry.h"
#include "entry/tank_lifecycle.h"
#include "inventory.h"
#include "memory.h"
#include "silent_host.h"

namespace orvex::bench {
namespace {

constexpr int kTanks = 20'000;
constexpr std::size_t kEdited = 12'344, kSource = 17'654;  ///< rows of the list of tanks

constexpr EntryCase kCases[] = {
    {"k1", "Edit one tank of 20,000: to its window", EntryStep::kOpen},
    {"k2", "Save one tank of 20,000", EntryStep::kSave},
    {"k3", "Copy: list the tanks of the type out of 20,000", EntryStep::kSources},
    {"k4", "Copy all data of one tank of 20,000", EntryStep::kCopy},
};

void Require(bool done, const char* failure) {
  if (!done) throw std::runtime_error(failure);
}

/// The person in front of the editor: does one step as soon as its window is shown, and leaves.
class EntryHost : public SilentHost {
 public:
  EntryHost(shell::Session*& session, EntryStep step) : session_(session), step_(step) {}

  void ShowWindow(std::string_view name) override {
    if (name == entry::kFrmCopyDataText.name) {
      window_ = entry::OpenFrmCopyData(*session_);
      return;
    }
    shown_ = std::chrono::steady_clock::now();
    Work(entry::Editor(*session_));
  }

  /// When the editor's window was shown.
  [[nodiscard]] std::chrono::steady_clock::time_point Shown() const { return shown_; }
  /// What the step in the window took {s}.
  [[nodiscard]] double Worked() const { return worked_; }

 private:
  void Work(entry::FrmTank& form) {
    switch (step_) {
      case EntryStep::kOpen:
        return;
      case EntryStep::kSave:
        worked_ = Time([&] { Require(entry::SaveTank(*session_, form), "The tank was not saved."); });
        return;
      case EntryStep::kSources:
        worked_ = Time([&] { entry::ClickCopy(*session_, form); });
        Require(window_.cboTankName.items.size() == kTanks - 1, "Not all tanks are listed.");
        return;
      case EntryStep::kCopy:
        entry::ClickCopy(*session_, form);
        entry::ChangeTankName(*session_, window_, window_.cboTankName.items.at(kSource));
        entry::ChooseAll(*session_, window_);
        worked_ = Time([&] { entry::ClickOK(*session_, window_); });
        Require(window_.window.closed, "Nothing was copied.");
        return;
    }
  }

  shell::Session*& session_;
  EntryStep step_;
  std::chrono::steady_clock::time_point shown_;
  double worked_ = 0;
  entry::FrmCopyData window_;
};

/// Edits a tank, and takes the step; gives its time {s}.
double EditTank(const std::filesystem::path& client, const Settings& settings, EntryStep step) {
  shell::Session* current = nullptr;
  EntryHost host(current, step);
  shell::Session session(host);
  current = &session;
  session.ClientDb = store::Database::Open(client);
  session.ReferenceDb = store::Database::Open(settings.reference, store::OpenMode::kReadOnly);
  entry::AddTankEntry(session);
  auto choice = entry::OpenFrmeditrec(session);
  entry::PickTank(session, choice, kEdited);
  const auto start = std::chrono::steady_clock::now();
  entry::ClickEdit(session, choice);
  if (step != EntryStep::kOpen) return host.Worked();
  Require(host.Shown() > start, "The tank was not opened.");
  return std::chrono::duration<double>(host.Shown() - start).count();
}

}  // namespace

std::span<const EntryCase> EntryCases() { return kCases; }

Measurement Measure(const EntryCase& entry_case, const Settings& settings) {
  std::filesystem::create_directories(settings.folder);
  const auto client = settings.folder / "bench_entry.mdb";
  std::filesystem::remove(client);
  MakeInventory(client, settings.reference, TankKind::kExternal, kTanks);
  Measurement measured{
      .key = std::string(entry_case.key), .description = std::string(entry_case.description), .tanks = kTanks};
  for (int i = 0; i < settings.repetitions; ++i) {
    if (i == 0) ResetPeakMemory();
    KeepBest(measured.seconds, EditTank(client, settings, entry_case.step));
    if (i == 0) measured.peak_bytes = PeakMemory();
  }
  std::filesystem::remove(client);
  return measured;
}

}  // namespace orvex::bench
