#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "entry/frmtank.h"
#include "shell/session.h"
#include "store/value.h"

namespace orvex::entry {

using Rows = std::vector<std::vector<store::Value>>;

/// The stored rows of a tank as of its opening or its last save, every field in the order of its table.
struct RecordCopy {
  std::int32_t ID = 0;  ///< the tank's number; 0 for no copy
  Rows TankCopy;        ///< one row
  Rows MixtureCopy;     ///< by `MIX ID`
  Rows FittingCopy;     ///< by `FIT ID`; empty when there are none
  Rows ComponentCopy;   ///< by `MIX ID`, `COMP ID`; empty when there are none
};

/// What lives beside the windows of tank entry, from start to exit.
struct TankEntry {
  std::unique_ptr<FrmTank> frmTank;  ///< null while the editor is closed
  RecordCopy copy;
};

/// The open editor. Windows that only it opens ask for it; without one, a mistake in the program, `std::logic_error`.
FrmTank& Editor(shell::Session& session);

}  // namespace orvex::entry
