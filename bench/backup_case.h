#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "measurement.h"

namespace orvex::bench {

enum class BackupStep : std::uint8_t { kBackup, kRestore, kCompact };

struct BackupCase {
  std::string_view key;
  std::string_view description;
  BackupStep step;
};

std::span<const BackupCase> BackupCases();

/// Times a command on a client database of 20,000 tanks with 12 lines of fittings each. The floor is a copy of the file
/// that the command writes, byte by byte and flushed to the disk.
Measurement Measure(const BackupCase& backup_case, const Settings& settings);

}  // namespace orvex::bench
