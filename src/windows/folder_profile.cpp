#include "windows/folder_profile.h"

#include <QDir>
#include <QFileInfo>
#include <QWebEngineSettings>

namespace orvex::windows {

FolderGuard::FolderGuard(const QString& folder) : below_(QDir::cleanPath(QFileInfo(folder).absoluteFilePath())) {
  if (!below_.endsWith(QLatin1Char('/'))) below_ += QLatin1Char('/');
}

bool FolderGuard::Allows(const QUrl& url) const {
  // Cleaning resolves "..", also where a page wrote it in percent signs.
  return url.isLocalFile() && QDir::cleanPath(url.toLocalFile()).startsWith(below_);
}

void FolderGuard::interceptRequest(QWebEngineUrlRequestInfo& info) {
  if (!Allows(info.requestUrl())) info.block(true);
}

FolderProfile::FolderProfile(const QString& folder) : guard_(folder) {
  setUrlRequestInterceptor(&guard_);
  auto* rules = settings();
  rules->setAttribute(QWebEngineSettings::LocalContentCanAccessRemoteUrls, false);
  rules->setAttribute(QWebEngineSettings::DnsPrefetchEnabled, false);
  rules->setAttribute(QWebEngineSettings::PluginsEnabled, false);
  rules->setAttribute(QWebEngineSettings::JavascriptCanOpenWindows, false);
  // So a page can put something on the clipboard while the person presses a key or a button in it, and never read it.
  rules->setAttribute(QWebEngineSettings::JavascriptCanAccessClipboard, false);
  rules->setAttribute(QWebEngineSettings::JavascriptCanPaste, false);
  rules->setAttribute(QWebEngineSettings::FocusOnNavigationEnabled, true);
}

}  // namespace orvex::windows
