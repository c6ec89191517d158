#pragma once

#include <filesystem>
#include <string>
#include <vector>

/// Whether report files have the form that their readers rely on, told without the code that writes them.
namespace orvex::test {

/// The files that the grammar `schema` (a name in the folder of the delivered schemas) refuses, and why, as xmllint
/// says it; empty when it takes them all. Throws std::runtime_error when xmllint can't do its work.
std::string GrammarFaults(const std::string& schema, const std::vector<std::filesystem::path>& reports);

/// What a report breaks of the rules that a grammar cannot say, one line each: line ends and order of attributes, order
/// of months, agreement of its parts, sums. Each line begins with the name of the file.
std::vector<std::string> RuleFaults(const std::filesystem::path& report);

}  // namespace orvex::test
