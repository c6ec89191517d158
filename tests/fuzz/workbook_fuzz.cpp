#include "fuzz/fuzz.h"
#include "fuzz/scratch_file.h"
#include "store/biff_workbook.h"
#include "store/ole_file.h"
#include "store/run_time_error.h"

namespace orvex::fuzz {
namespace {

/// A workbook that is taken takes a sheet, too, and what is written of it reads back the same.
void TryStream(std::string_view stream) {
  try {
    auto workbook = store::BiffWorkbook::Parse(stream, "t.xls");
    store::BiffSheet sheet;
    sheet.AddNumber(0, 0, 1);
    workbook.PutSheet("fuzz", sheet);
    const auto written = workbook.Stream();
    auto again = store::BiffWorkbook::Parse(written, "t.xls");
    Require(again.HasSheet("fuzz") && again.Stream() == written);
  } catch (const store::RunTimeError& error) {
    Require(error.Number() == store::ErrorNumber::kWrongFormat);
  }
}

}  // namespace

void FuzzWorkbook(std::string_view bytes) {
  TryStream(bytes);
  const auto file = store::ReadOleFile(bytes);
  if (!file) return;
  for (const auto& stream : file->streams) TryStream(stream.content);
  const auto again = store::ReadOleFile(store::WriteOleFile(*file));
  Require(again && again->streams.size() == file->streams.size());
}

}  // namespace orvex::fuzz
