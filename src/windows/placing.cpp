#include "windows/placing.h"

#include <QFontMetrics>

namespace orvex::windows {
namespace {

void Append(QBoxLayout& row, std::initializer_list<QPushButton*> buttons) {
  for (auto* button : buttons) row.addWidget(button);
}

void PlaceList(QGridLayout& grid, const CaptionedList& list, int column) {
  grid.addWidget(list.caption, 0, column);
  grid.addWidget(list.list, 1, column);
  grid.setColumnStretch(column, 1);
}

}  // namespace

QHBoxLayout* PlaceFoot(std::initializer_list<QPushButton*> left, std::initializer_list<QPushButton*> right) {
  auto* foot = new QHBoxLayout;
  Append(*foot, left);
  foot->addStretch(1);
  Append(*foot, right);
  return foot;
}

QGridLayout* PlaceListPair(const CaptionedList& from, std::initializer_list<QPushButton*> put,
                           std::initializer_list<QPushButton*> take, const CaptionedList& into) {
  auto* between = new QVBoxLayout;
  between->addStretch(1);
  Append(*between, put);
  between->addSpacing(from.caption->fontMetrics().lineSpacing() / 2);
  Append(*between, take);
  between->addStretch(1);
  auto* grid = new QGridLayout;
  PlaceList(*grid, from, 0);
  grid->addLayout(between, 1, 1);
  PlaceList(*grid, into, 2);
  grid->setRowStretch(1, 1);
  return grid;
}

}  // namespace orvex::windows
