#pragma once

#include <QAbstractListModel>
#include <QWidget>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "shell/controls.h"

class QKeyEvent;
class QLineEdit;
class QListView;

namespace orvex::windows {

/// The items of a list, or those that hold a text. Rows are made as they come into sight, so that tens of thousands
/// are no burden.
class TextListModel : public QAbstractListModel {
  Q_OBJECT

 public:
  using QAbstractListModel::QAbstractListModel;

  /// Shows these items; does nothing when they are shown already. Returns whether they were others.
  bool SetItems(const std::vector<std::string>& items);
  /// Shows only the items that hold the text, in any letter case.
  void SetFilter(const QString& text);

  [[nodiscard]] std::size_t ItemOf(int row) const { return shown_[static_cast<std::size_t>(row)]; }
  /// Row of an item; -1 when the filter hides it.
  [[nodiscard]] int RowOf(std::size_t item) const;

  [[nodiscard]] int rowCount(const QModelIndex& parent) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

 private:
  void Filter();

  std::vector<std::string> items_;
  std::vector<std::size_t> shown_;  ///< positions in items_, in increasing order
  QString filter_;
};

/// A list of texts, with a line above it that finds inside them where there may be many. Letters typed in the list go
/// to that line. What the line hides is not selected.
class TextList : public QWidget {
  Q_OBJECT

 public:
  enum class Choice : std::uint8_t { kOne, kAny };
  enum class Find : std::uint8_t { kNo, kYes };

  /// @param name of the list itself, which stands inside this widget
  TextList(const QString& name, Choice choice, Find find, QWidget* parent);

  [[nodiscard]] QListView* View() const { return view_; }
  [[nodiscard]] QLineEdit* FindLine() const { return find_; }

  /// Shows items and selection of a record, without a signal.
  void Draw(const shell::ListBox& record);
  [[nodiscard]] std::vector<std::size_t> Selected() const;

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 Q_SIGNALS:
  void SelectionChanged();
  /// The person came to an item, by key or mouse.
  void Picked(std::size_t item);
  void DoubleClicked(std::size_t item);

 private:
  void Select(const std::vector<std::size_t>& items);
  /// In a list that is come to, a row is the current one, though not selected: an arrow key takes it before it goes on,
  /// else the first row could not be had, and the only one never. Whether it did.
  bool SelectsCurrent(const QKeyEvent& key);
  [[nodiscard]] QSize SizeOf(int letters, int rows) const;

  TextListModel* model_;
  QListView* view_;
  QLineEdit* find_ = nullptr;
  bool drawing_ = false;
};

}  // namespace orvex::windows
