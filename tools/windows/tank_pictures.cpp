#include "windows/tank_pictures.h"

#include <QApplication>
#include <QMessageBox>
#include <QTabBar>
#include <QTest>
#include <QTimer>
#include <stdexcept>
#include <string>
#include <string_view>

#include "entry/frmtank.h"
#include "shell/tank_types.h"
#include "windows/model_dialog.h"
#include "windows/window_table.h"

namespace orvex {
namespace {

/// A page of the editor on the first tank of a type.
struct TankPicture {
  std::string_view tank_type;
  entry::Page page;
  const char* name;
  std::string_view component = {};  ///< `COMPONENT` and
  std::string_view option = {};     ///< `SPEC_OPT` of the mixture that is shown, instead of its own
  std::string_view window = {};     ///< that the editor opens, instead of the page
};

constexpr TankPicture kTankPictures[] = {
    {shell::kVerticalFixedRoof, entry::Page::kIdentification, "frmTank_identification"},
    {shell::kVerticalFixedRoof, entry::Page::kPhysical, "frmTank_vertical"},
    {shell::kHorizontal, entry::Page::kPhysical, "frmTank_horizontal"},
    {shell::kInternalFloatingRoof, entry::Page::kPhysical, "frmTank_internal"},
    {shell::kExternalFloatingRoof, entry::Page::kPhysical, "frmTank_external"},
    {shell::kDomedExternalFloatingRoof, entry::Page::kPhysical, "frmTank_domed"},
    {shell::kVerticalFixedRoof, entry::Page::kSite, "frmTank_site"},
    {shell::kVerticalFixedRoof, entry::Page::kLiquid, "frmTank_single", "Single", ""},
    {shell::kVerticalFixedRoof, entry::Page::kLiquid, "frmTank_partial", "Multiple", "Partial Speciation"},
    {shell::kVerticalFixedRoof, entry::Page::kLiquid, "frmTank_full", "Multiple", "Full Speciation"},
    {shell::kInternalFloatingRoof, entry::Page::kLiquid, "frmTank_floating_full", "Multiple", "Full Speciation"},
    {shell::kVerticalFixedRoof, entry::Page::kMonthly, "frmTank_monthly"},
    {shell::kInternalFloatingRoof, entry::Page::kPhysical, "frmrecfit", "", "", "frmrecfit"},
    {shell::kVerticalFixedRoof, entry::Page::kPhysical, "FrmCopyData", "", "", "FrmCopyData"},
    {shell::kVerticalFixedRoof, entry::Page::kLiquid, "Frmspecpro", "Multiple", "Full Speciation", "Frmspecpro"},
    // Makes an empty component.
    {shell::kVerticalFixedRoof, entry::Page::kLiquid, "Frmcomponent", "Multiple", "Full Speciation", "Frmcomponent"},
};

std::int32_t FirstOf(shell::Session& session, std::string_view tank_type) {
  auto tanks = session.ClientDb->OpenTable("tank");
  for (; !tanks.AtEnd(); tanks.MoveNext())
    if (tanks.TextOrEmpty("TANK_TYPE") == tank_type) return tanks.Long("ID");
  throw std::runtime_error("no tank is a " + std::string(tank_type));
}

void SetMixture(shell::Session& session, std::int32_t ID, const TankPicture& picture) {
  if (picture.component.empty()) return;
  auto mixture = session.ClientDb->OpenAt("mixtures", "IDMIX", {ID, 1});
  mixture.Edit();
  mixture.Set("COMPONENT", picture.component);
  mixture.Set("SPEC_OPT", picture.option);
  mixture.Update();
}

void SaveSmallWindow(shell::Session& session, QWidget* editor, const TankPicture& picture, const SavePicture& save) {
  const auto window = windows::FindWindow(picture.window).make({session, editor, nullptr});
  window->Prepare();
  window->show();
  save(*window, std::string(picture.name) + ".png");
}

void TakePicture(shell::Session& session, const TankPicture& picture, const SavePicture& save) {
  const auto ID = FirstOf(session, picture.tank_type);
  SetMixture(session, ID, picture);
  QTimer::singleShot(0, QCoreApplication::instance(), [&] {
    auto* window = QApplication::activeModalWidget();
    if (auto* message = qobject_cast<QMessageBox*>(window))
      qFatal("The editor does not open: %s", qUtf8Printable(message->text()));
    window->findChild<QTabBar*>(QStringLiteral("tabPages"))->setCurrentIndex(static_cast<int>(picture.page));
    if (picture.window.empty()) {
      save(*window, std::string(picture.name) + ".png");
    } else {
      SaveSmallWindow(session, window, picture, save);
    }
    dynamic_cast<windows::ModelDialog&>(*window).Unload();
  });
  session.editRecord(session, ID, std::string(picture.tank_type));
}

}  // namespace

void TakeTankPictures(shell::Session& session, const SavePicture& save) {
  for (const auto& picture : kTankPictures) TakePicture(session, picture, save);
}

}  // namespace orvex
