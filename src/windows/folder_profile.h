#pragma once

#include <QString>
#include <QUrl>
#include <QWebEngineProfile>
#include <QWebEngineUrlRequestInterceptor>

namespace orvex::windows {

/// Lets a page have the files of one folder and what lies below it, and nothing else: no network, no other file.
class FolderGuard : public QWebEngineUrlRequestInterceptor {
  Q_OBJECT

 public:
  explicit FolderGuard(const QString& folder);

  [[nodiscard]] bool Allows(const QUrl& url) const;
  void interceptRequest(QWebEngineUrlRequestInfo& info) override;

 private:
  QString below_;  ///< the folder with a slash at its end
};

/// A profile that keeps nothing on the disk, for one page of a folder. It must outlive the page.
class FolderProfile : public QWebEngineProfile {
  Q_OBJECT

 public:
  explicit FolderProfile(const QString& folder);

  [[nodiscard]] const FolderGuard& Guard() const { return guard_; }

 private:
  FolderGuard guard_;
};

}  // namespace orvex::windows
