#include "windows/deed_queue.h"

#include <QMetaObject>
#include <utility>

namespace orvex::windows {

void DeedQueue::Add(Deed deed) {
  waiting_.push_back(std::move(deed));
  if (!running_ && waiting_.size() == 1) QMetaObject::invokeMethod(this, &DeedQueue::Run, Qt::QueuedConnection);
}

void DeedQueue::Run() {
  // A deed that asks something handles events, among them the call of this.
  if (running_) return;
  running_ = true;
  while (!waiting_.empty()) {
    const auto deed = std::move(waiting_.front());
    waiting_.pop_front();
    deed();
  }
  running_ = false;
}

}  // namespace orvex::windows
