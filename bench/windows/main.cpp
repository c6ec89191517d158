// Times what a person waits for in the windows: the start of the program and the list of tanks.
//   orvex-window-bench REFERENCE FOLDER

#include <fmt/format.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QListView>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <utility>

#include "inventory.h"
#include "shell/session.h"
#include "shell/start_up.h"
#include "windows/desktop_host.h"
#include "windows/program_commands.h"
#include "windows/web_application.h"

namespace orvex::bench {
namespace {

namespace fs = std::filesystem;

constexpr int kTanks = 5'000;
constexpr int kRepetitions = 5;

void Press(QWidget& window, const char* button) { window.findChild<QPushButton*>(QLatin1String(button))->click(); }

/// Ends the program: an exception may not leave an event.
[[noreturn]] void GiveUp(const std::string& why) {
  fmt::print(stderr, "orvex-window-bench: {}\n", why);
  std::exit(EXIT_FAILURE);
}

/// A list that shows fewer tanks would be drawn sooner.
void CheckTanks(const QWidget& window, const char* list) {
  const auto listed = window.findChild<QListView*>(QLatin1String(list))->model()->rowCount();
  if (listed != kTanks) GiveUp(fmt::format("{} tanks of {} are listed.", listed, kTanks));
}

/// Does one thing in each window as soon as it is on top.
class Visitor : public QObject {
 public:
  using Deed = std::function<void(QWidget& window)>;

  explicit Visitor(std::map<QString, Deed> deeds) : deeds_(std::move(deeds)) {
    connect(&timer_, &QTimer::timeout, this, [this] { Look(); });
    timer_.start(0);
  }

 private:
  void Look() {
    auto* window = QApplication::activeModalWidget();
    if (window == nullptr || window == last_) return;
    const auto deed = deeds_.find(window->objectName());
    if (deed == deeds_.end()) GiveUp("unexpected window " + window->objectName().toStdString());
    last_ = window;
    deed->second(*window);
  }

  std::map<QString, Deed> deeds_;
  QTimer timer_;
  QWidget* last_ = nullptr;
};

/// Milliseconds until a window is drawn, after which it is closed.
struct Times {
  qint64 quick_menu = 0;
  qint64 choose_tanks = 0;
};

Times Measure(const fs::path& folder) {
  windows::DesktopHost host(nullptr);
  shell::Session session(host);
  session.application_folder = folder;
  windows::AddCommands(session);
  host.Attach(session);
  Times times;
  QElapsedTimer clock;
  const Visitor visitor(
      {{QStringLiteral("frmstart"), [](QWidget& window) { QTest::mouseClick(&window, Qt::LeftButton); }},
       {QStringLiteral("frmNotice"), [](QWidget& window) { Press(window, "cmdOK"); }},
       {QStringLiteral("frmqmenu"),
        [&](QWidget& window) {
          window.grab();
          times.quick_menu = clock.elapsed();
          CheckTanks(window, "dblstTanks");
          Press(window, "cmdCancel");
        }},
       {QStringLiteral("Frmtankrep"), [&](QWidget& window) {
          window.grab();
          times.choose_tanks = clock.elapsed();
          CheckTanks(window, "lstTanks");
          Press(window, "cmdClose");
        }}});
  clock.start();
  shell::StartUp(session);
  clock.start();
  host.ShowWindow("Frmtankrep");
  session.ended = true;
  host.CloseAll();
  return times;
}

void MeasureAll(const fs::path& reference, const fs::path& folder) {
  fs::create_directories(folder);
  const auto client = folder / "client1.mdb";
  fs::remove(client);
  fs::copy_file(reference, folder / "tankdata.mdb", fs::copy_options::overwrite_existing);
  MakeInventory(client, reference, TankKind::kVertical, kTanks);
  auto best = Measure(folder);
  for (int i = 1; i < kRepetitions; ++i) {
    const auto times = Measure(folder);
    best = {std::min(best.quick_menu, times.quick_menu), std::min(best.choose_tanks, times.choose_tanks)};
  }
  fmt::print("{:<54} {:>6} ms\n", "Start to quick menu, splash and notice clicked away", best.quick_menu);
  fmt::print("{:<54} {:>6} ms\n", fmt::format("Choose tanks out of {}: open and draw the window", kTanks),
             best.choose_tanks);
  fs::remove(client);
  fs::remove(folder / "tankdata.mdb");
}

}  // namespace
}  // namespace orvex::bench

int main(int count, char** arguments) {
  if (count != 3) {
    std::fputs("orvex-window-bench REFERENCE FOLDER\n", stderr);
    return 64;
  }
  const orvex::windows::WebApplication application("orvex-window-bench", orvex::windows::Screen::kNone);
  try {
    orvex::bench::MeasureAll(arguments[1], arguments[2]);
    return 0;
  } catch (const orvex::store::RunTimeError& error) {
    fmt::print(stderr, "orvex-window-bench: {}\n", error.Description());
  } catch (const std::exception& error) {
    fmt::print(stderr, "orvex-window-bench: {}\n", error.what());
  }
  return 1;
}
