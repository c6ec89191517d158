#include "exchange/import_source.h"

#include <fmt/format.h>

#include "exchange/import_value.h"
#include "store/run_time_error.h"

namespace orvex::exchange {

double ImportSource::Number(std::string_view field) const {
  if (const auto number = NumberIn(table_.Get(field))) return *number;
  Refuse(field, "a number");
}

bool ImportSource::Flag(std::string_view field) const {
  if (const auto flag = FlagIn(table_.Get(field))) return *flag;
  Refuse(field, "yes or no");
}

void ImportSource::Refuse(std::string_view field, std::string_view expected) const {
  throw store::RunTimeError(store::ErrorNumber::kDataConversion,
                            fmt::format("The field {} in record {} of {} holds \"{}\" instead of {}.", field,
                                        Position(), file_, Text(field), expected));
}

}  // namespace orvex::exchange
