#include "shell/add_cas_field.h"

#include <cstddef>

#include "shell/trap.h"
#include "store/field_table.h"

namespace orvex::shell {
namespace {

constexpr std::string_view kTable = "emission";
constexpr std::string_view kField = "CAS";
constexpr std::size_t kPosition = 5;

}  // namespace

void AddCASField(Session& session) {
  Trapped(session, "mDatabase.AddCASField", [&] {
    store::Database& client = *session.ClientDb;
    for (const auto& field : client.Fields(kTable)) {
      if (field.name == kField) return;
    }
    const auto& field = store::FindField(store::FindTable(kTable), kField);
    client.AddField(kTable, {std::string(field.name), field.type, field.width}, kPosition);
  });
}

}  // namespace orvex::shell
