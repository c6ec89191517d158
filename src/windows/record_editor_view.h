#pragma once

#include <QGridLayout>
#include <string>
#include <string_view>
#include <vector>

#include "refdata/record_editor.h"
#include "windows/editor_layouts.h"
#include "windows/model_view.h"

class QGroupBox;
class QHBoxLayout;

namespace orvex::windows {

/// The window of a reference editor: above, the lists that find records; below, in a panel, the rest of the record
/// under its headings, and beside it its plot.
class RecordEditorView : public ModelView<refdata::RecordEditor> {
 public:
  RecordEditorView(const ViewPlace& place, refdata::RecordEditor&& model);

 protected:
  [[nodiscard]] std::string HelpTopic() const override { return TopicAtFocus(); }
  void keyPressEvent(QKeyEvent* event) override;

 private:
  using EntryCommand = void (*)(shell::Session&, refdata::RecordEditor&, std::string_view control);

  /// Entries under one heading, as the person meets them.
  struct Group {
    std::string_view heading;
    std::vector<refdata::Entry*> entries;
  };

  [[nodiscard]] Action DoAt(EntryCommand command, const refdata::Entry& entry);
  [[nodiscard]] std::vector<Group> Groups();

  QGridLayout* MakeFinders();
  QGroupBox* MakePanel();
  QWidget* MakePlot();
  QHBoxLayout* MakeFoot();

  QWidget* MakeEntry(refdata::Entry& entry, int letters);
  QWidget* MakeLineOf(refdata::Entry& entry, int letters);
  QWidget* MakeChoiceOf(refdata::Entry& entry, int letters);
  /// The caption comes and goes with its entry.
  QLabel* MakeCaptionOf(const refdata::Entry& entry, QWidget* field);

  QGridLayout* FillBox(QGroupBox* box, const Group& group);
  void PlaceBelow(QGridLayout& grid, refdata::Entry& entry);
  void PlaceBeside(QGridLayout& grid, refdata::Entry& entry);
  /// Adds a column of months; the first one brings the names of the rows.
  void PlaceMonths(QGridLayout& grid, const Group& group);
};

}  // namespace orvex::windows
