#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "shell/session.h"

namespace orvex::report_app {

enum class Kind : std::uint8_t { kBrief, kSummary, kDetail };

/// A kind of report: what it is called and which files it is.
struct ReportKind {
  Kind kind;
  std::string_view option;   ///< the value of `--kind`
  std::string_view type;     ///< `ReportType`
  std::string_view data;     ///< the file that is written
  std::string_view display;  ///< the page that shows it
  void (*write)(shell::Session&);
};

std::span<const ReportKind> ReportKinds();

const ReportKind& FindKind(Kind kind);

}  // namespace orvex::report_app
