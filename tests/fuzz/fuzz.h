#pragma once

#include <string_view>

/// What hostile files are read by: each takes the bytes of a file and ends, whatever they are. A reader that does not
/// keep what it promises ends the process.
namespace orvex::fuzz {

void FuzzDbase(std::string_view bytes);
void FuzzCsv(std::string_view bytes);
void FuzzDatabase(std::string_view bytes);
void FuzzWorkbook(std::string_view bytes);

}  // namespace orvex::fuzz
