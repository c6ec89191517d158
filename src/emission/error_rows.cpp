#include "emission/error_rows.h"

namespace orvex::emission {

void AddErrorRow(shell::Session& session, std::int32_t ID, std::string_view user_id, std::string_view text) {
  auto errors = session.ClientDb->OpenTable("error");
  errors.AddNew();
  errors.Set("ID", ID);
  errors.Set("USER ID", user_id);
  errors.Set("error", text);
  errors.Update();
}

}  // namespace orvex::emission
