#pragma once

#include <string>
#include <vector>

#include "entry/frmtank.h"
#include "shell/session.h"
#include "store/database.h"

namespace orvex::entry {

/// Work on the rows that the editor shows, written to the client database whole or not at all. Left without `Commit`,
/// the entries count as changed again, so that what the person entered is written the next time.
class EntryTransaction {
 public:
  EntryTransaction(shell::Session& session, FrmTank& form);
  EntryTransaction(const EntryTransaction&) = delete;
  EntryTransaction& operator=(const EntryTransaction&) = delete;
  ~EntryTransaction();

  void Commit();

 private:
  FrmTank& form_;
  std::vector<std::string> committed_;
  store::Transaction transaction_;
  bool done_ = false;
};

}  // namespace orvex::entry
