#pragma once

#include <QGridLayout>
#include <string>
#include <string_view>
#include <vector>

#include "entry/frmtank.h"
#include "entry/frmtank_text.h"
#include "windows/model_dialog.h"

class QHBoxLayout;
class QStackedWidget;
class QTabBar;

namespace orvex::windows {

/// The tank editor. Its model outlives the window, since the windows that it opens work on it, too.
class FrmTankView : public ModelDialog {
 public:
  FrmTankView(const ViewPlace& place, entry::FrmTank& form);

 protected:
  [[nodiscard]] std::string HelpTopic() const override;
  void showEvent(QShowEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  using Command = void (*)(shell::Session&, entry::FrmTank&);
  using MonthCommand = void (*)(shell::Session&, entry::FrmTank&, std::size_t month);
  using EntryCommand = void (*)(shell::Session&, entry::FrmTank&, std::string_view control);

  /// Entries under one heading, as the person meets them.
  struct Group {
    std::string_view heading;
    std::vector<entry::Entry*> entries;
  };

  [[nodiscard]] Action Do(Command command);
  [[nodiscard]] Action Do(MonthCommand command, std::size_t month);
  [[nodiscard]] Action Do(EntryCommand command, const entry::Entry& entry);
  QPushButton* MakeCommand(std::string_view name, const shell::Button& record, Command command);

  void MakePages();
  void ChoosePage(int page);
  void GoToFirstEntry();
  QHBoxLayout* MakeFoot();

  // frmtank_entries.cpp
  [[nodiscard]] std::vector<Group> GroupsOf(entry::Section section);
  QWidget* MakeEntry(entry::Entry& entry);
  QWidget* MakeLineOf(entry::Entry& entry);
  QWidget* MakeChoiceOf(entry::Entry& entry);
  /// The entry with the reason of its refusal below it.
  QWidget* MakePlace(entry::Entry& entry);
  void DrawRefusal(QWidget* field, QLabel* reason, const entry::Entry& entry);
  QGroupBox* MakeGroup(const Group& group);
  /// The section's groups in two columns, or in one where they are few.
  QHBoxLayout* MakeSection(entry::Section section);
  /// The box in which an entry stands.
  [[nodiscard]] QGroupBox* GroupBoxOf(std::string_view control) const;

  QWidget* MakeIdentificationPage();
  QWidget* MakePhysicalPage();
  QWidget* MakeSitePage();

  // frmtank_liquid.cpp
  QWidget* MakeLiquidPage();
  QHBoxLayout* MakeMixtureRow();
  QWidget* MakeForm(entry::Section section);
  /// The commands of the form that is shown, and that of all forms.
  QHBoxLayout* MakeMixtureFoot();

  // frmtank_monthly.cpp
  QWidget* MakeMonthlyPage();
  void PlaceMonth(QGridLayout& grid, std::size_t month);
  QHBoxLayout* MakeTotals();

  entry::FrmTank& form_;
  QTabBar* tabs_;
  QStackedWidget* pages_;
};

}  // namespace orvex::windows
