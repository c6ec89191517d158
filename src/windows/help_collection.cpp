#include "windows/help_collection.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QHelpEngineCore>

namespace orvex::windows {
namespace {

constexpr const char* kContext = "HelpCollection";
const QString kVirtualFolder = QStringLiteral("help");

QString Translated(const char* text) { return QCoreApplication::translate(kContext, text); }

/// Opens the file alone; a sentence when that fails.
QString Register(const QString& collection, const QString& file, const QString& name_space) {
  if (!QFileInfo(file).isFile()) return Translated("The help file '%1' is not there.").arg(file);
  if (name_space.isEmpty()) return Translated("'%1' is not a help file, or is damaged.").arg(file);
  QHelpEngineCore core(collection);
  core.setReadOnly(false);
  if (core.setupData() && core.registerDocumentation(file)) return {};
  return Translated("The help file '%1' cannot be opened: %2").arg(file, core.error());
}

}  // namespace

HelpCollection::HelpCollection(const std::filesystem::path& help_file)
    : folder_(QDir::tempPath() + QStringLiteral("/orvex-help-XXXXXX")) {
  const auto file = QString::fromStdString(help_file.string());
  const auto collection = folder_.filePath(QStringLiteral("orvex.qhc"));
  if (folder_.isValid()) {
    name_space_ = QHelpEngineCore::namespaceName(file);
    fault_ = Register(collection, file, name_space_);
  } else {
    fault_ = Translated("The help cannot be shown: %1").arg(folder_.errorString());
  }
  engine_ = std::make_unique<QHelpEngine>(collection);
  engine_->setReadOnly(false);
  engine_->setUsesFilterEngine(true);
}

QUrl HelpCollection::Page(const QString& topic) const {
  QUrl url;
  url.setScheme(QStringLiteral("qthelp"));
  url.setHost(name_space_);
  url.setPath(QStringLiteral("/%1/%2.html").arg(kVirtualFolder, topic.section(QLatin1Char('#'), 0, 0)));
  // The library's own look-up answers for pages that are not there too.
  if (engine_->fileData(url).isEmpty()) return {};
  if (topic.contains(QLatin1Char('#'))) url.setFragment(topic.section(QLatin1Char('#'), 1));
  return url;
}

}  // namespace orvex::windows
