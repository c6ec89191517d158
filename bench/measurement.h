#pragma once

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace orvex::bench {

/// What one case gave. Times are those of the fastest repetition {s}.
struct Measurement {
  std::string key;          ///< "a"
  std::string description;  ///< "10,000 vertical tanks, annual"
  std::int64_t tanks = 0;   ///< 0 where the case has none
  std::int64_t rows = 0;    ///< rows of `emission` written
  double seconds = 0;
  double floor_seconds = 0;  ///< 0 where the floor was not timed
  std::int64_t peak_bytes = 0;

  [[nodiscard]] double TanksPerSecond() const { return static_cast<double>(tanks) / seconds; }
  [[nodiscard]] double RowsPerSecond() const { return static_cast<double>(rows) / seconds; }
  [[nodiscard]] double Ratio() const { return floor_seconds > 0 ? seconds / floor_seconds : 0; }
};

/// How all cases are run.
struct Settings {
  std::filesystem::path reference;  ///< the reference database
  std::filesystem::path folder;     ///< where databases are made, and removed afterwards
  int repetitions = 3;
  bool with_floor = true;
};

/// Seconds that an action takes.
template <typename Action>
double Time(Action action) {
  const auto start = std::chrono::steady_clock::now();
  action();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// Keeps the shortest time; 0 stands for none yet.
inline void KeepBest(double& best, double seconds) { best = best == 0 ? seconds : std::min(best, seconds); }

}  // namespace orvex::bench
