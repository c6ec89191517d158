#include "entry/tank_entry.h"

#include <stdexcept>

namespace orvex::entry {

FrmTank& Editor(shell::Session& session) {
  if (session.tank_entry == nullptr || session.tank_entry->frmTank == nullptr)
    throw std::logic_error("No tank is open for editing.");
  return *session.tank_entry->frmTank;
}

}  // namespace orvex::entry
