#include "store/biff_globals.h"

#include <cstdint>
#include <initializer_list>
#include <string_view>

#include "store/biff_records.h"
#include "store/little_endian.h"

namespace orvex::store {
namespace {

std::string Words(std::initializer_list<std::uint16_t> words) {
  std::string bytes;
  for (const auto word : words) Append16(bytes, word);
  return bytes;
}

/// Number 4 is skipped by all programs, so that these four are 0 to 3.
constexpr int kFonts = 4;

std::string Font() {
  constexpr std::string_view kName = "Arial";
  constexpr std::uint16_t kHeight = 200;  // twentieths of a point
  constexpr std::uint16_t kPlain = 0, kAutomatic = 0x7FFF, kNormalWeight = 400;
  std::string content = Words({kHeight, kPlain, kAutomatic, kNormalWeight, 0, 0, 0});
  content += static_cast<char>(kName.size());
  return content.append(kName);
}

/// The look of cells: font 0, format 0 ("General"), bottom, automatic colours, no lines. `owner` says what it is for
/// and `taken` what it does not take from the look in front of it.
std::string CellFormat(std::uint16_t owner, std::uint16_t taken) {
  constexpr std::uint16_t kBottom = 0x0020, kAutomaticColours = 0x20C0;
  return Words({0, 0, owner, static_cast<std::uint16_t>(kBottom | taken), kAutomaticColours, 0, 0, 0});
}

}  // namespace

std::string NewBiffGlobals() {
  constexpr std::uint16_t kOfStyle = 0xFFF5, kOfCells = 0x0001, kAllButNumbers = 0xF400;
  std::string globals;
  AppendBegin(globals, biff::kGlobals);
  AppendRecord(globals, biff::kCodePage, Words({biff::kCodePage1252}));
  // Place and size of the window, scroll bars and tabs shown; the first sheet is active and chosen.
  AppendRecord(globals, biff::kWindow1, Words({0, 0, 0x25BC, 0x1572, 0x0038, 0, 0, 1, 0x0258}));
  AppendRecord(globals, biff::kDateMode, Words({0}));
  for (int i = 0; i < kFonts; ++i) AppendRecord(globals, biff::kFont, Font());
  AppendRecord(globals, biff::kCellFormat, CellFormat(kOfStyle, 0));
  for (int i = 1; i < biff::kDefaultFormat; ++i)
    AppendRecord(globals, biff::kCellFormat, CellFormat(kOfStyle, kAllButNumbers));
  AppendRecord(globals, biff::kCellFormat, CellFormat(kOfCells, 0));
  AppendRecord(globals, biff::kStyle, Words({0x8000, 0xFF00}));  // look 0 is the built-in style "Normal"
  return globals;
}

}  // namespace orvex::store
