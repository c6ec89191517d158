#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

#include "shell/host.h"

namespace orvex::bench {

/// A host that does nothing. A benchmark that fails measures nothing, so a message ends it.
class SilentHost : public shell::Host {
 public:
  shell::Answer ShowMessage(const std::string& text, const std::string&, shell::Buttons, shell::Icon) override {
    throw std::runtime_error(text);
  }
  std::string OpenFile(const shell::FileRequest&) override { return {}; }
  std::string SaveFile(const shell::FileRequest&) override { return {}; }
  std::string ChooseFolder(const shell::FileRequest&) override { return {}; }
  void SetStatusText(const std::string&) override {}
  void SetPointer(shell::Pointer) override {}
  void Beep() override {}
  void Navigate(const std::string&) override {}
  void ShowHelp(const std::string&) override {}
  void ShowWindow(std::string_view) override {}
  void Progress(std::int64_t, std::int64_t) override {}
};

}  // namespace orvex::bench
