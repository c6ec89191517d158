// Makes the pictures of the windows that stand in the documentation, over copies of the delivered databases.
//   window_pictures REFERENCE CLIENT FOLDER [usual|large|dark]

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QListView>
#include <QPushButton>
#include <QStyleFactory>
#include <QTemporaryDir>
#include <QTest>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <iterator>
#include <string>
#include <string_view>

#include "entry/entry_commands.h"
#include "reports/report_commands.h"
#include "shell/session.h"
#include "shell/shell_commands.h"
#include "store/database.h"
#include "windows/desktop_host.h"
#include "windows/display_text.h"
#include "windows/main_window.h"
#include "windows/tank_pictures.h"
#include "windows/web_application.h"
#include "windows/window_table.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

constexpr double kLarge = 2;
constexpr int kChosenTanks = 3;
constexpr QSize kMainSize(960, 600);

/// What a person has done in a window before its picture is taken.
struct Pose {
  std::string_view window;
  void (*take)(QWidget& window);
};

void Press(QWidget& window, const char* button) { window.findChild<QPushButton*>(QLatin1String(button))->click(); }

void ChooseTanks(QWidget& window) {
  auto* tanks = window.findChild<QListView*>(QStringLiteral("lstTanks"));
  for (int row = 0; row < kChosenTanks; ++row)
    tanks->selectionModel()->setCurrentIndex(tanks->model()->index(row, 0), QItemSelectionModel::Select);
  Press(window, "cmdSelect");
}

void TickMonths(QWidget& window) {
  for (const auto* name : {"chkJAN", "chkFEB", "chkMAR"})
    window.findChild<QCheckBox*>(QLatin1String(name))->setChecked(true);
}

void ChooseMonthlyBrief(QWidget& window) {
  window.findChild<QComboBox*>(QStringLiteral("cboRepTime"))->setCurrentText(QStringLiteral("Monthly"));
  window.findChild<QComboBox*>(QStringLiteral("cboRepType"))->setCurrentText(QStringLiteral("Brief"));
  TickMonths(window);
}

constexpr Pose kPoses[] = {{"Frmtankrep", ChooseTanks}, {"Frmmonth", TickMonths}, {"Frmreptyp", ChooseMonthlyBrief}};

/// A small screen of today, on which the windows have the size that a person sees.
constexpr const char* kScreen =
    R"({"screens": [{"name": "small", "x": 0, "y": 0, "width": 1024, "height": 768, "logicalDpi": 96, "dpr": 1}]})";

/// The toolkit's platform without a screen shows the windows on the one that a file tells of.
void UseSmallScreen(const fs::path& file) {
  std::ofstream(file) << kScreen;
  setenv("QT_QPA_PLATFORM", ("offscreen:configfile=" + file.string()).c_str(), 0);
}

QPalette DarkPalette() {
  QPalette dark(QColor(53, 53, 53), QColor(42, 42, 42));
  dark.setColor(QPalette::Highlight, QColor(42, 130, 218));
  dark.setColor(QPalette::HighlightedText, Qt::white);
  return dark;
}

void SetLook(std::string_view look) {
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  if (look == "dark") QApplication::setPalette(DarkPalette());
  if (look == "large") {
    auto font = QApplication::font();
    font.setPointSizeF(font.pointSizeF() * kLarge);
    QApplication::setFont(font);
  }
}

void Save(QWidget& widget, const fs::path& file) {
  QTest::qWait(50);
  if (!widget.grab().save(QString::fromStdString(file.string()), "PNG", 0))
    throw std::runtime_error(file.string() + " cannot be written");
}

void TakePictures(const fs::path& reference, const fs::path& client, const fs::path& folder) {
  const QTemporaryDir work;
  const fs::path place = work.path().toStdString();
  windows::DesktopHost host(nullptr);
  shell::Session session(host);
  session.TankPath = "/home/user/.local/share/orvex/tankdata.mdb";
  session.ClientPath = "/home/user/.local/share/orvex/client1.mdb";
  fs::copy_file(reference, place / "tankdata.mdb");
  fs::copy_file(client, place / "client1.mdb");
  session.ReferenceDb = store::Database::Open(place / "tankdata.mdb");
  session.ClientDb = store::Database::Open(place / "client1.mdb");
  session.application_folder = place;
  session.PrintMode = "Report";
  session.commands.assign(std::begin(shell::kShellCommands), std::end(shell::kShellCommands));
  session.commands.insert(session.commands.end(), std::begin(reports::kReportCommands),
                          std::end(reports::kReportCommands));
  entry::AddTankEntry(session);
  host.Attach(session);
  host.SetPathPanel(shell::PathPanel::kTank, session.TankPath);
  host.SetPathPanel(shell::PathPanel::kClient, session.ClientPath);
  host.ShowMainWindow();
  host.Main().resize(kMainSize.expandedTo(host.Main().minimumSizeHint()));
  Save(host.Main(), folder / "MDIForm1.png");
  TakeTankPictures(session, [&](QWidget& window, const fs::path& file) { Save(window, folder / file); });
  for (const auto& entry : windows::WindowTable()) {
    if (entry.needs_tank) continue;
    const auto window = entry.make({session, &host.Main(), nullptr});
    window->Prepare();
    window->show();
    for (const auto& pose : kPoses)
      if (pose.window == entry.text.name) pose.take(*window);
    Save(*window, folder / (std::string(entry.text.name) + ".png"));
  }
  session.ended = true;
  host.CloseAll();
}

}  // namespace
}  // namespace orvex

int main(int count, char** arguments) {
  if (count < 4) {
    std::cerr << "window_pictures REFERENCE CLIENT FOLDER [usual|large|dark]\n";
    return 64;
  }
  const QTemporaryDir settings;
  orvex::UseSmallScreen(settings.filePath(QStringLiteral("screen.json")).toStdString());
  const orvex::windows::WebApplication application("window_pictures", orvex::windows::Screen::kNone);
  orvex::SetLook(count > 4 ? arguments[4] : "usual");
  try {
    std::filesystem::create_directories(arguments[3]);
    orvex::TakePictures(arguments[1], arguments[2], arguments[3]);
  } catch (const std::exception& fault) {
    std::cerr << "window_pictures: " << fault.what() << '\n';
    return 1;
  }
  return 0;
}
