#include "entry/entry_transaction.h"

namespace orvex::entry {

EntryTransaction::EntryTransaction(shell::Session& session, FrmTank& form)
    : form_(form), transaction_(*session.ClientDb) {
  for (const auto& entry : form.entries) committed_.push_back(entry.committed);
}

EntryTransaction::~EntryTransaction() {
  if (done_) return;
  for (std::size_t i = 0; i < committed_.size(); ++i) form_.entries[i].committed.swap(committed_[i]);
}

void EntryTransaction::Commit() {
  transaction_.Commit();
  done_ = true;
}

}  // namespace orvex::entry
