#pragma once

#include <QBoxLayout>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <initializer_list>

#include "windows/text_list.h"

/// Arrangements that several windows share.
namespace orvex::windows {

/// A row of buttons at the foot of a window.
QHBoxLayout* PlaceFoot(std::initializer_list<QPushButton*> left, std::initializer_list<QPushButton*> right);

/// A list under its caption.
struct CaptionedList {
  QLabel* caption;
  TextList* list;
};

/// Two lists side by side; between them the buttons that put into the right one, and below those that take out of it.
QGridLayout* PlaceListPair(const CaptionedList& from, std::initializer_list<QPushButton*> put,
                           std::initializer_list<QPushButton*> take, const CaptionedList& into);

}  // namespace orvex::windows
