#include <fmt/format.h>

#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "orvex-pdf/options.h"
#include "orvex-report/failure.h"
#include "orvex-report/terminal_text.h"
#include "store/run_time_error.h"
#include "windows/page_printer.h"

namespace {

using orvex::report_app::ExitStatus;

int Tell(ExitStatus status, std::string_view description) {
  std::cerr << "orvex-pdf: " << orvex::report_app::TerminalText(description) << '\n';
  return status;
}

/// A place that can't be opened, told from one that failed under way.
ExitStatus StatusOf(const orvex::store::RunTimeError& error) {
  return error.Number() == orvex::store::ErrorNumber::kDiskFailure ? orvex::report_app::kRunTimeFailure
                                                                   : orvex::report_app::kCannotOpen;
}

}  // namespace

int main(int argc, char** argv) {
  using namespace orvex;
  try {
    const auto options = pdf_app::ParseOptions(std::vector<std::string>(argv + 1, argv + argc));
    std::cout << options.text;
    if (options.text.empty()) windows::PrintPage(options.job);
    return report_app::kDone;
  } catch (const report_app::Failure& failure) {
    return Tell(failure.status, failure.description);
  } catch (const store::RunTimeError& error) {
    return Tell(StatusOf(error), error.Description());
  } catch (const windows::PageFailure& failure) {
    return Tell(report_app::kRunTimeFailure, failure.what());
  }
}
