#include "emission/emission_row.h"

#include "emission/field_reading.h"

namespace orvex::emission {
store::RecordSet OpenEmissionRow(shell::Session& session, std::int32_t ID, std::int32_t MixID, std::string_view name,
                                 std::string_view Month, bool primary) {
  auto row = session.ClientDb->OpenAt("emission", "COMPID", {ID, MixID, name, Month, primary});
  if (row.NoMatch()) {
    row.AddNew();
  } else {
    row.Edit();
  }
  row.Set("ID", ID);
  row.Set("MIX ID", MixID);
  row.Set("NAME", name);
  row.Set("MONTH", Month);
  row.Set("PRIMARY", primary);
  return row;
}

void CopyTexts(store::RecordSet& from, store::RecordSet& row, FieldNames fields) {
  for (const auto field : fields) row.Set(field, ReadTextOrEmpty(from, field));
}

void CopyNumbers(store::RecordSet& from, store::RecordSet& row, FieldNames fields) {
  for (const auto field : fields) row.Set(field, ReadNumberOrZero(from, field));
}

void CopyFlags(store::RecordSet& from, store::RecordSet& row, FieldNames fields) {
  for (const auto field : fields) row.Set(field, ReadFlagOrFalse(from, field));
}

void SetZero(store::RecordSet& row, FieldNames fields) {
  for (const auto field : fields) row.Set(field, 0.0);
}

void SetCas(store::RecordSet& row, std::string_view text) {
  if (text.empty()) return;
  while (text.starts_with(' ')) text.remove_prefix(1);
  while (text.ends_with(' ')) text.remove_suffix(1);
  row.Set("CAS", text);
}

}  // namespace orvex::emission
