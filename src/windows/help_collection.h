#pragma once

#include <QHelpEngine>
#include <QString>
#include <QTemporaryDir>
#include <QUrl>
#include <filesystem>
#include <memory>

namespace orvex::windows {

/// A help file, opened for reading. What the help library keeps beside it (lists and search index) is made anew in a
/// temporary folder and goes with it, so it is never older than the file.
class HelpCollection {
 public:
  explicit HelpCollection(const std::filesystem::path& help_file);

  /// A sentence on why the file cannot be shown; empty if it can.
  [[nodiscard]] const QString& Fault() const { return fault_; }
  [[nodiscard]] QHelpEngine& Engine() { return *engine_; }

  /// The page of a topic; invalid if there is none. Behind a "#" may stand the anchor of a control: its name in lower
  /// case.
  [[nodiscard]] QUrl Page(const QString& topic) const;

 private:
  QTemporaryDir folder_;
  std::unique_ptr<QHelpEngine> engine_;
  QString name_space_;
  QString fault_;
};

}  // namespace orvex::windows
