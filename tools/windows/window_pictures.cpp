// Makes the pictures of the windows that stand in the documentation, over copies of the delivered databases, and of a
// report on them.
//   window_pictures REFERENCE CLIENT FOLDER [usual|large|dark]

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QCompleter>
#include <QLineEdit>
#include <QListView>
#include <QMainWindow>
#include <QPushButton>
#include <QStyleFactory>
#include <QTemporaryDir>
#include <QTest>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <string>
#include <string_view>
#include <utility>

#include "reports/reference_report.h"
#include "reports/source_kind.h"
#include "reports/xml_export.h"
#include "shell/session.h"
#include "store/database.h"
#include "windows/desktop_host.h"
#include "windows/display_text.h"
#include "windows/main_window.h"
#include "windows/program_commands.h"
#include "windows/tank_pictures.h"
#include "windows/web_application.h"
#include "windows/window_table.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

constexpr double kLarge = 2;
constexpr int kChosenTanks = 3;
/// What is done runs behind the event that told of it.
constexpr int kMomentMs = 50;
constexpr int kReportMs = 60'000;
constexpr int kFrameMs = 2000;  // till the browser has drawn what it has read
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

/// Types over what stands in an entry.
void Enter(QWidget& window, const char* entry, const char* text) {
  auto* widget = window.findChild<QWidget*>(QLatin1String(entry));
  auto* box = qobject_cast<QComboBox*>(widget);
  auto* line = box == nullptr ? qobject_cast<QLineEdit*>(widget) : box->lineEdit();
  line->setFocus();
  line->selectAll();
  QTest::keyClicks(line, QLatin1String(text));
  if (box != nullptr && box->completer() != nullptr) box->completer()->popup()->hide();
}

void Choose(QWidget& window, const char* list, const char* item) {
  auto* box = window.findChild<QComboBox*>(QLatin1String(list));
  box->setCurrentText(QLatin1String(item));
  Q_EMIT box->activated(box->currentIndex());
  QTest::qWait(kMomentMs);
}

void AddRecord(QWidget& window) {
  Press(window, "cmdAddNew");
  QTest::qWait(kMomentMs);
}

/// A chemical of a person's own, whose two options part where it is warm.
void FillInTwoOptions(QWidget& window) {
  AddRecord(window);
  constexpr std::pair<const char*, const char*> kEntries[] = {{"dbcboChemName", "Lakeside Solvent 7"},
                                                              {"dbcboCAS", "990-07-7"},
                                                              {"txtMOLWT", "118.18"},
                                                              {"txtVP_MOLWT", "118.18"},
                                                              {"txtL_DENS", "6.93"},
                                                              {"txtVP_40", "0.155"},
                                                              {"txtVP_50", "0.22"},
                                                              {"txtVP_60", "0.31"},
                                                              {"txtVP_70", "0.43"},
                                                              {"txtVP_80", "0.55"},
                                                              {"txtVP_90", "0.68"},
                                                              {"txtVP_100", "0.82"},
                                                              {"txtVP_COEF_A", "7.38661"},
                                                              {"txtVP_COEF_B", "1462.611"},
                                                              {"txtVP_COEF_C", "220.988"}};
  for (const auto& [entry, text] : kEntries) Enter(window, entry, text);
  Choose(window, "cboCategory", "Organic Liquids");
}

/// A deck of panels, of a person's own.
void FillInPanels(QWidget& window) {
  AddRecord(window);
  Choose(window, "cboConstruct", "Panel");
  constexpr std::pair<const char*, const char*> kEntries[] = {
      {"txtPLENGTH", "5"}, {"txtPWIDTH", "10"}, {"txtKD", "0.14"}, {"txtAPICERT", "L-7"}};
  for (const auto& [entry, text] : kEntries) Enter(window, entry, text);
}

void ChooseCities(QWidget& window) {
  auto* cities = window.findChild<QListView*>(QStringLiteral("lstItems"));
  for (const int row : {0, 3, 8})
    cities->selectionModel()->setCurrentIndex(cities->model()->index(row, 0), QItemSelectionModel::Select);
  Press(window, "cmdSelect");
}

void NameOldFiles(QWidget& window) {
  constexpr std::pair<const char*, const char*> kEntries[] = {{"txtTankPath", "/home/user/orvex31/tank.dbf"},
                                                              {"txtMixturePath", "/home/user/orvex31/mixture.dbf"},
                                                              {"txtFittingsPath", "/home/user/orvex31/fittings.dbf"},
                                                              {"txtStoragePath", "/home/user/orvex31/storage.dbf"},
                                                              {"txtChemical", "/home/user/orvex31/chemical.dbf"}};
  for (const auto& [entry, text] : kEntries) Enter(window, entry, text);
}

void NameExport(QWidget& window) { Enter(window, "txtExportFileName", "/home/user/inventory/cities.xls"); }

constexpr Pose kPoses[] = {{"Frmtankrep", ChooseTanks},       {"Frmmonth", TickMonths},
                           {"Frmreptyp", ChooseMonthlyBrief}, {"frmchemical", FillInTwoOptions},
                           {"frmDeckSeam", FillInPanels},     {"frmrepselect", ChooseCities},
                           {"frmImport", NameOldFiles},       {"frmexname", NameExport}};

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
  QTest::qWait(kMomentMs);
  if (!widget.grab().save(QString::fromStdString(file.string()), "PNG", 0))
    throw std::runtime_error(file.string() + " cannot be written");
}

/// The report on all profiles in its window.
void TakeReport(shell::Session& session, const fs::path& file) {
  fs::copy(ORVEX_DISPLAY_FOLDER, session.application_folder);
  const auto& report = *reports::FindReferenceReport("Profile");
  reports::XML_Export(session, report, report.table, reports::kOpenTable);
  for (auto* widget : QApplication::topLevelWidgets()) {
    // Its menus are among these, too, and hold the same actions.
    auto* window = qobject_cast<QMainWindow*>(widget);
    const auto* save_pdf = window == nullptr ? nullptr : window->findChild<QAction*>(QStringLiteral("save_pdf"));
    if (save_pdf == nullptr) continue;
    window->resize(kMainSize);
    if (!QTest::qWaitFor([&] { return save_pdf->isEnabled(); }, kReportMs))
      throw std::runtime_error("the report is not shown");
    QTest::qWait(kFrameMs);
    Save(*window, file);
    delete window;
    return;
  }
  throw std::runtime_error("the report has no window");
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
  session.PrintMode = "Met";
  session.ExportTable = "met";
  session.ExportTarget = "/home/user/inventory/cities.xls";
  windows::AddCommands(session);
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
  TakeReport(session, folder / "report_window.png");
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
