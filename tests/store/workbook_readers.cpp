#include "store/workbook_readers.h"

#include <freexl.h>
#include <gtest/gtest.h>

#include "support/program_output.h"

namespace orvex::test {
namespace {

unsigned Info(const void* book, unsigned short what) {
  unsigned value = 0;
  EXPECT_EQ(freexl_get_info(book, what, &value), FREEXL_OK);
  return value;
}

FreexlCell CellOf(const void* book, unsigned row, unsigned short column) {
  FreeXL_CellValue cell{};
  EXPECT_EQ(freexl_get_cell_value(book, row, column, &cell), FREEXL_OK);
  switch (cell.type) {
    case FREEXL_CELL_INT:
      return cell.value.int_value;
    case FREEXL_CELL_DOUBLE:
      return cell.value.double_value;
    case FREEXL_CELL_TEXT:
      return std::string(cell.value.text_value);
    default:
      EXPECT_EQ(cell.type, FREEXL_CELL_NULL);
      return {};
  }
}

}  // namespace

std::vector<FreexlSheet> ReadWithFreexl(const std::filesystem::path& path) {
  std::vector<FreexlSheet> sheets;
  const void* book = nullptr;
  const int result = freexl_open(path.c_str(), &book);
  EXPECT_EQ(result, FREEXL_OK) << path;
  if (result != FREEXL_OK) return sheets;
  EXPECT_EQ(Info(book, FREEXL_BIFF_VERSION), unsigned{FREEXL_BIFF_VER_5});
  EXPECT_EQ(Info(book, FREEXL_BIFF_CODEPAGE), unsigned{FREEXL_BIFF_CP1252});
  sheets.resize(Info(book, FREEXL_BIFF_SHEET_COUNT));
  for (std::size_t i = 0; i < sheets.size(); ++i) {
    const char* name = nullptr;
    EXPECT_EQ(freexl_get_worksheet_name(book, static_cast<unsigned short>(i), &name), FREEXL_OK);
    sheets[i].name = name;
    EXPECT_EQ(freexl_select_active_worksheet(book, static_cast<unsigned short>(i)), FREEXL_OK);
    unsigned rows = 0;
    unsigned short columns = 0;
    EXPECT_EQ(freexl_worksheet_dimensions(book, &rows, &columns), FREEXL_OK);
    for (unsigned row = 0; row < rows; ++row) {
      auto& cells = sheets[i].rows.emplace_back();
      for (unsigned short column = 0; column < columns; ++column) cells.push_back(CellOf(book, row, column));
    }
  }
  freexl_close(book);
  return sheets;
}

std::string ReadWithXlrd(const std::filesystem::path& path) {
  return ProgramOutput("/usr/bin/python3 -B '" ORVEX_WORKBOOK_READER "' '" + path.string() + "'");
}

}  // namespace orvex::test
