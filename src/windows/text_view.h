#pragma once

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <string_view>

#include "windows/model_view.h"

namespace orvex::windows {

/// A window that only tells something has no rules, so no model elsewhere.
struct TextModel {
  shell::Button cmdOK;
  shell::WindowState window;
};

/// Paragraphs and the button "OK", which closes the window.
class TextView : public ModelView<TextModel> {
 protected:
  static constexpr double kHeadingScale = 1.4;
  static constexpr int kLettersInLine = 64;

  TextView(const ViewPlace& place, const shell::WindowText& text) : ModelView(place, text, TextModel()) {}

  QLabel* MakeHeading(std::string_view name) {
    auto* heading = MakeParagraph(name);
    auto large = heading->font();
    large.setPointSizeF(large.pointSizeF() * kHeadingScale);
    large.setBold(true);
    heading->setFont(large);
    return heading;
  }

  /// A paragraph as wide as is pleasant to read.
  QLabel* MakeText(std::string_view name) {
    auto* paragraph = MakeParagraph(name);
    paragraph->setTextInteractionFlags(Qt::TextSelectableByMouse);
    paragraph->setMinimumWidth(fontMetrics().averageCharWidth() * kLettersInLine);
    return paragraph;
  }

  /// The row of the one button.
  QHBoxLayout* MakeOkRow() {
    auto* ok = MakeButton("cmdOK", model_.cmdOK, [this] { model_.window.closed = true; });
    ok->setDefault(true);
    ok->setFocus();
    SetCloseButton(ok);
    auto* row = new QHBoxLayout;
    row->addStretch(1);
    row->addWidget(ok);
    return row;
  }
};

}  // namespace orvex::windows
