#include "fuzz/fuzz.h"
#include "fuzz/scratch_file.h"
#include "store/dbase_file.h"
#include "store/run_time_error.h"
#include "store/utf8.h"

namespace orvex::fuzz {
namespace {

bool IsUtf8(std::string_view text) {
  while (!text.empty()) {
    if (!store::TakeCharacter(text)) return false;
  }
  return true;
}

void ReadRecord(const store::DbaseTable& table) {
  for (const auto& field : table.Fields()) {
    try {
      const store::Value value = table.Get(field.name);
      Require(value.IsNull() == table.IsNull(field.name));
      Require(IsUtf8(value.TextOrEmpty()));
    } catch (const store::RunTimeError& error) {
      Require(IsUtf8(error.Description()));
    }
  }
}

}  // namespace

void FuzzDbase(std::string_view bytes) {
  static ScratchFile file("t.dbf");
  try {
    store::DbaseTable table(file.Fill(bytes));
    std::size_t records = 0;
    for (; !table.AtEnd(); table.MoveNext(), ++records) ReadRecord(table);
    // A record has at least the mark of deletion and a field of one byte.
    Require(records * 2 <= bytes.size());
    table.MoveFirst();
    Require(table.AtEnd() == (records == 0));
    if (records > 0) table.MoveTo(table.Position());
  } catch (const store::RunTimeError& error) {
    Require(error.Number() == store::ErrorNumber::kWrongFormat);
    Require(IsUtf8(error.Description()));
  }
}

}  // namespace orvex::fuzz
