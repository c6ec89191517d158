#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "exchange/inventory_files.h"

namespace orvex::exchange {

/// A text out of a file as a message shows it: in quotes, on one line, and cut where it is long.
std::string Shown(std::string_view text);

/// What is wrong with the files of a folder. All faults are counted, and the first ones kept.
class Faults {
 public:
  static constexpr std::size_t kMostKept = 1000;

  /// Told as "tanks.csv, line 3, HEATED: " and the reason; without the column for a whole line.
  void Add(const InventoryFile& file, std::size_t line, std::string_view column, std::string_view reason);
  /// A file that cannot be read further, with the description that tells so.
  void AddUnread(const InventoryFile& file, std::string description);

  [[nodiscard]] bool Any() const { return count_ > 0; }

  /// Error 3421 if there are any, with a line for each in the order of files and lines, and one for those not kept.
  void ThrowIfAny();

 private:
  struct Fault {
    std::size_t file, line;
    std::string text;
  };
  void Keep(Fault fault);

  std::size_t count_ = 0;
  std::vector<Fault> kept_;
};

}  // namespace orvex::exchange
