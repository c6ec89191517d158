#pragma once

#include <QString>
#include <string>
#include <string_view>

/// Between the texts of the models, bytes that are UTF-8 as a rule, and those of the toolkit.
namespace orvex::windows {

/// For one line of a widget: what a person's file can hold of control characters shows as blanks.
QString Shown(std::string_view text);

/// Of several lines, for message boxes.
QString ShownLines(std::string_view text);

std::string Bytes(const QString& text);

/// A tool tip that is never taken for rich text, whatever it holds.
QString PlainToolTip(const QString& text);

/// A caption as it is read aloud: without the mark of its access key, arrows and what ends a label.
QString SpokenCaption(std::string_view caption);

/// The letter behind a caption's ampersand, in lower case; a null character without one.
QChar AccessKey(const QString& caption);

}  // namespace orvex::windows
