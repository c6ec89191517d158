#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include "orvex-report/run.h"
#include "support/file_content.h"
#include "support/test_databases.h"

namespace orvex::test {

/// Two databases in a folder of their own, and the batch program called on them, with stand-ins of the display files
/// that it is delivered with.
class ReportProgram : public testing::Test {
 protected:
  ReportProgram() {
    std::filesystem::create_directories(test_.folder.Path() / "bin");
    std::filesystem::create_directories(Delivered());
    for (const auto* name : {"briefdisplay.htm", "summarydisplay.htm", "display.js"})
      WriteFile(Delivered() / name, std::string("orvex ") + name);
  }

  [[nodiscard]] std::string Client() const { return (test_.folder.Path() / "client1.mdb").string(); }
  [[nodiscard]] std::string Reference() const { return (test_.folder.Path() / "tankdata.mdb").string(); }
  [[nodiscard]] std::filesystem::path Delivered() const { return test_.folder.Path() / "share" / "orvex" / "display"; }
  [[nodiscard]] std::filesystem::path Output() const { return test_.folder.Path() / "out"; }

  /// Runs the program as if it were installed in the folder's bin/.
  int Run(const std::vector<std::string>& arguments) {
    return report_app::Run(arguments, {.out = out_,
                                       .err = err_,
                                       .program = test_.folder.Path() / "bin" / "orvex-report",
                                       .err_is_terminal = terminal_,
                                       .stop_requested = stop_requested_,
                                       .pdf_limit = pdf_limit_});
  }

  /// Puts a shell script in the place of the printing program.
  void SetPrinter(const std::string& script) const {
    const auto path = test_.folder.Path() / "bin" / "orvex-pdf";
    WriteFile(path, "#!/bin/sh\n" + script);
    std::filesystem::permissions(path, std::filesystem::perms::owner_all);
  }

  /// Runs it on the two databases, with the report in `Output` unless the arguments say otherwise.
  int RunOn(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"--client", Client(), "--reference", Reference()});
    if (std::ranges::none_of(arguments, [](const auto& argument) { return argument.starts_with("--out"); }))
      arguments.insert(arguments.end(), {"--out", Output().string()});
    return Run(arguments);
  }

  /// The text stands on the error stream.
  [[nodiscard]] bool Told(const std::string& text) const { return err_.str().find(text) != std::string::npos; }

  TestSession test_;
  std::ostringstream out_, err_;
  bool terminal_ = false;
  std::function<bool()> stop_requested_;
  std::chrono::milliseconds pdf_limit_ = std::chrono::minutes(1);
};

}  // namespace orvex::test
