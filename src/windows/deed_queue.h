#pragma once

#include <QObject>
#include <deque>
#include <functional>

namespace orvex::windows {

/// What a person did, in order: each deed runs outside of the event that told of it, so that it may ask something and
/// move the focus, and none runs inside of another.
class DeedQueue : public QObject {
  Q_OBJECT

 public:
  /// Throws nothing.
  using Deed = std::function<void()>;

  void Add(Deed deed);
  /// Forgets what has not begun yet.
  void Drop() { waiting_.clear(); }
  [[nodiscard]] bool IsRunning() const { return running_; }

 private:
  void Run();

  std::deque<Deed> waiting_;
  bool running_ = false;
};

}  // namespace orvex::windows
