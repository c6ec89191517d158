#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "measurement.h"

namespace orvex::bench {

/// What a person waits for in tank entry.
enum class EntryStep : std::uint8_t {
  kOpen,     ///< the choice of a tank to the editor's window
  kSave,     ///< Save without the showing anew, with the look for another tank of the name
  kSources,  ///< Copy, until the list of tanks is shown
  kCopy,     ///< all data of another tank, until the editor shows them
};

struct EntryCase {
  std::string_view key;
  std::string_view description;
  EntryStep step;
};

std::span<const EntryCase> EntryCases();

/// Times a step of tank entry in a client database of 20,000 tanks. There is no floor: it is the waiting that counts.
Measurement Measure(const EntryCase& entry_case, const Settings& settings);

}  // namespace orvex::bench
