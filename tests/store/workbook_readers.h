#pragma once

#include <filesystem>
#include <string>
#include <variant>
#include <vector>

namespace orvex::test {

/// A cell as FreeXL sees it: nothing, a whole number (a logical value is 0 or 1), a number or a text.
using FreexlCell = std::variant<std::monostate, int, double, std::string>;

struct FreexlSheet {
  std::string name;
  std::vector<std::vector<FreexlCell>> rows;
};

/// All sheets of a workbook, read with FreeXL; fails the test if it is none of Excel 5.0 in code page 1252.
std::vector<FreexlSheet> ReadWithFreexl(const std::filesystem::path& path);

/// What tests/store/read_workbook.py prints of it.
std::string ReadWithXlrd(const std::filesystem::path& path);

}  // namespace orvex::test
