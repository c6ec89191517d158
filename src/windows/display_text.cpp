#include "windows/display_text.h"

namespace orvex::windows {

QString Shown(std::string_view text) {
  auto shown = ShownLines(text);
  for (auto& letter : shown)
    if (letter == QLatin1Char('\n')) letter = QLatin1Char(' ');
  return shown;
}

QString ShownLines(std::string_view text) {
  auto shown = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
  shown.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
  for (auto& letter : shown) {
    const auto breaks_line = letter == QChar::LineSeparator || letter == QChar::ParagraphSeparator;
    if (breaks_line || (letter.category() == QChar::Other_Control && letter != QLatin1Char('\n')))
      letter = QLatin1Char(' ');
  }
  return shown;
}

std::string Bytes(const QString& text) { return text.toStdString(); }

QString PlainToolTip(const QString& text) {
  return text.isEmpty() ? text : QStringLiteral("<span>%1</span>").arg(text.toHtmlEscaped());
}

QString SpokenCaption(std::string_view caption) {
  auto spoken = Shown(caption);
  spoken.remove(QLatin1Char('&')).remove(QLatin1Char('<')).remove(QLatin1Char('>'));
  spoken.remove(QStringLiteral("..."));
  if (spoken.endsWith(QLatin1Char(':'))) spoken.chop(1);
  return spoken.trimmed();
}

QChar AccessKey(const QString& caption) {
  for (qsizetype at = 0; at + 1 < caption.size(); ++at) {
    if (caption[at] != QLatin1Char('&')) continue;
    if (caption[at + 1] != QLatin1Char('&')) return caption[at + 1].toLower();
    ++at;
  }
  return {};
}

}  // namespace orvex::windows
