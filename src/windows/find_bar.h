#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;

namespace orvex::windows {

/// The strip at the foot of a report window in which a person looks for a text.
class FindBar : public QWidget {
  Q_OBJECT

 public:
  explicit FindBar(QWidget* parent);

  /// Shows the strip with its text marked, ready to be written over.
  void Start();
  void Next();
  void Previous();
  /// Tells which match is shown, counted from 1, and how many there are.
  void ShowCount(int active, int matches);

 Q_SIGNALS:
  /// Look for the text, which may be empty, from the match that is shown.
  void Wanted(const QString& text, bool backward);
  void Closed();

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Search(bool backward);
  void Close();

  QLineEdit* text_;
  QLabel* count_;
};

}  // namespace orvex::windows
