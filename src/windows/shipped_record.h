#pragma once

#include <QPalette>

namespace orvex::windows {

/// For the panel of a reference editor, which is disabled on shipped records: these cannot be changed, but are there to
/// be read, so their texts keep more of their colour than other disabled ones.
QPalette ReadablePalette(QPalette palette);

}  // namespace orvex::windows
