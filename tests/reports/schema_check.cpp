#include "reports/schema_check.h"

#include <sys/wait.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <pugixml.hpp>
#include <stdexcept>

#include "reports/figures_check.h"
#include "reports/layout_check.h"
#include "reports/report_faults.h"

namespace orvex::test {
namespace {

constexpr std::size_t kFilesPerCall = 400;
// Exit statuses of xmllint that tell of a file and not of xmllint: not well-formed, and not valid.
constexpr int kRefusals[] = {1, 3, 4};

std::string Quoted(const std::filesystem::path& path) { return " '" + path.string() + "'"; }

/// What a program writes to both its outputs, and its exit status.
std::pair<std::string, int> OutputOf(const std::string& command) {
  FILE* pipe = popen((command + " 2>&1").c_str(), "r");
  if (pipe == nullptr) throw std::runtime_error("cannot start: " + command);
  std::string output;
  std::array<char, 4096> part{};
  while (const auto size = std::fread(part.data(), 1, part.size(), pipe)) output.append(part.data(), size);
  const int status = pclose(pipe);
  return {output, WIFEXITED(status) ? WEXITSTATUS(status) : -1};
}

/// The lines that do not say that a file is valid.
std::string Complaints(const std::string& output) {
  std::string complaints;
  for (std::size_t start = 0; start < output.size();) {
    const auto end = std::min(output.find('\n', start), output.size() - 1) + 1;
    const auto line = output.substr(start, end - start);
    if (!line.ends_with(" validates\n")) complaints += line;
    start = end;
  }
  return complaints;
}

}  // namespace

std::string GrammarFaults(const std::string& schema, const std::vector<std::filesystem::path>& reports) {
  const std::string xmllint =
      "xmllint --noout --nonet --relaxng" + Quoted(std::filesystem::path(ORVEX_SCHEMA_FOLDER) / schema);
  std::string faults;
  for (std::size_t first = 0; first < reports.size(); first += kFilesPerCall) {
    std::string command = xmllint;
    for (std::size_t i = first; i < std::min(first + kFilesPerCall, reports.size()); ++i) command += Quoted(reports[i]);
    const auto [output, status] = OutputOf(command);
    if (status != 0 && std::find(std::begin(kRefusals), std::end(kRefusals), status) == std::end(kRefusals))
      throw std::runtime_error("xmllint (package libxml2-utils) failed: " + output.substr(0, 2000));
    const auto complaints = Complaints(output);
    if (status != 0 && complaints.empty()) throw std::runtime_error("xmllint refused a file without a word");
    faults += complaints;
  }
  return faults;
}

std::vector<std::string> RuleFaults(const std::filesystem::path& report) {
  pugi::xml_document document;
  Faults faults;
  const auto parsed = document.load_file(report.c_str(), kWholeFile, pugi::encoding_utf8);
  faults.Expect(parsed.status == pugi::status_ok, parsed.description());
  CheckLayout(document, faults);
  CheckFigures(document.child("REPORT"), faults);
  auto lines = faults.All();
  for (auto& line : lines) line = report.filename().string() + ": " + line;
  return lines;
}

}  // namespace orvex::test
