#pragma once

#include <unistd.h>

#include <filesystem>
#include <functional>

#include "support/child_process.h"

namespace orvex::test {

inline constexpr std::filesystem::perms kOpenFolder{0777};
inline constexpr std::filesystem::perms kClosedFolder{0555};

/// Does something in a process of its own without the rights of the system's own account, for whom nothing is
/// read-only. The folder has these permissions meanwhile. True if nothing failed.
inline bool AsOrdinaryPerson(const std::filesystem::path& folder, std::filesystem::perms permissions,
                             const std::function<void()>& work) {
  constexpr uid_t kNobody = 65534;
  std::filesystem::permissions(folder, permissions);
  ChildProcess person([&] {
    if (geteuid() == 0 && setuid(kNobody) != 0) return 1;
    work();
    return 0;
  });
  const bool good = person.Wait() == 0;
  std::filesystem::permissions(folder, std::filesystem::perms{0700});
  return good;
}

}  // namespace orvex::test
