#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

/// Client databases to time a run on.
namespace orvex::bench {

enum class TankKind : std::uint8_t {
  kVertical,    ///< vertical fixed roof, one chemical
  kExternal,    ///< external floating roof, one chemical, 12 lines of fittings
  kSpeciation,  ///< vertical fixed roof, full speciation of 8 components
};

inline constexpr int kFittingLines = 12;
inline constexpr int kComponents = 8;

/// Writes a new client database with distinct tanks of one kind, all of which pass validation; gives their `USER ID`s.
/// Sizes, paints, cities, chemicals, fittings and seals go through those of the reference database, so that no two
/// neighbours share one. The properties of mixtures and components are stored, but out of date by a percent: a run
/// has to check them all and to write them all anew.
std::vector<std::string> MakeInventory(const std::filesystem::path& client, const std::filesystem::path& reference,
                                       TankKind kind, int tanks);

}  // namespace orvex::bench
