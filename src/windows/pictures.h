#pragma once

#include <QIcon>
#include <QPalette>
#include <QPixmap>
#include <QSize>
#include <QString>

/// The program's own drawings. Their lines are drawn in the colour of the text around them, so that they show on light
/// and dark grounds.
namespace orvex::windows {

/// A drawing at a size in the pixels of a screen of that ratio.
QPixmap Picture(const QString& name, QSize size, double pixel_ratio, const QPalette& palette);

/// A drawing at the sizes that buttons use.
QIcon PictureIcon(const QString& name, const QPalette& palette);

/// Of the program's windows.
QIcon ProgramIcon();

}  // namespace orvex::windows
