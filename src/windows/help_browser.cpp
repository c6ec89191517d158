#include "windows/help_browser.h"

#include <QHelpEngineCore>
#include <QImage>
#include <QTextCursor>
#include <QTextDocument>
#include <algorithm>
#include <cstddef>
#include <vector>

namespace orvex::windows {
namespace {

const QString kScheme = QStringLiteral("qthelp");
/// Of the style of the pages, and a little more.
constexpr int kPageMargin = 20;

}  // namespace

HelpBrowser::HelpBrowser(const QHelpEngineCore& engine, QWidget* parent)
    : QTextBrowser(parent), engine_(engine), own_size_(font().pointSizeF()) {
  setObjectName(QStringLiteral("help_page"));
  setAccessibleName(tr("Help page"));
  setOpenExternalLinks(false);
}

void HelpBrowser::SetZoom(int percent) {
  auto zoomed = font();
  zoomed.setPointSizeF(own_size_ * percent / 100);
  setFont(zoomed);
}

HelpBrowser::Matches HelpBrowser::Find(const QString& text, bool backward) {
  std::vector<QTextCursor> found;
  for (auto match = document()->find(text, 0); !match.isNull(); match = document()->find(text, match))
    found.push_back(match);
  auto here = textCursor();
  if (found.empty()) {
    here.setPosition(here.selectionStart());
    setTextCursor(here);
    return {};
  }
  // Typed on, a text is found again where it begins; asked for once more, the next one is found. Past the last match
  // comes the first one.
  const bool again = here.selectedText().compare(text, Qt::CaseInsensitive) == 0;
  const int from = here.selectionStart() + (again && !backward ? 1 : 0);
  const auto next =
      std::ranges::find_if(found, [from](const QTextCursor& match) { return match.selectionStart() >= from; });
  const auto count = static_cast<int>(found.size());
  const auto passed = static_cast<int>(next - found.begin());
  const int chosen = (backward ? passed - 1 + count : passed) % count;
  setTextCursor(found[static_cast<std::size_t>(chosen)]);
  return {.active = chosen + 1, .all = count};
}

QVariant HelpBrowser::loadResource(int type, const QUrl& name) {
  const auto url = source().resolved(name);
  if (url.scheme() != kScheme) return QByteArray();
  const auto content = engine_.fileData(url);
  if (type != QTextDocument::ImageResource) return content;
  // A picture is shown whole where the page is narrow.
  const auto picture = QImage::fromData(content);
  const int width = viewport()->width() - 2 * kPageMargin;
  return picture.width() > width && width > 0 ? picture.scaledToWidth(width, Qt::SmoothTransformation) : picture;
}

void HelpBrowser::doSetSource(const QUrl& name, QTextDocument::ResourceType type) {
  if (source().resolved(name).scheme() == kScheme) QTextBrowser::doSetSource(name, type);
}

}  // namespace orvex::windows
