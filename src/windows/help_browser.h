#pragma once

#include <QTextBrowser>

class QHelpEngineCore;

namespace orvex::windows {

/// Shows the pages of a help file, and nothing that lies elsewhere.
class HelpBrowser : public QTextBrowser {
  Q_OBJECT

 public:
  /// @param engine must outlive the browser
  HelpBrowser(const QHelpEngineCore& engine, QWidget* parent);

  /// The fonts of a page follow its zoom, in percent of their own size.
  void SetZoom(int percent);

  /// Marks a match and shows it, from the one that is shown. Gives its number, counted from 1, and how many there are.
  struct Matches {
    int active = 0;
    int all = 0;
  };
  Matches Find(const QString& text, bool backward);

 protected:
  QVariant loadResource(int type, const QUrl& name) override;
  void doSetSource(const QUrl& name, QTextDocument::ResourceType type) override;

 private:
  const QHelpEngineCore& engine_;
  double own_size_;
};

}  // namespace orvex::windows
