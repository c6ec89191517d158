#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <string>

namespace orvex::test {

/// What a program writes to its output; the test fails if it fails.
inline std::string ProgramOutput(const std::string& command) {
  std::string output;
  std::FILE* const pipe = popen(command.c_str(), "r");
  if (pipe == nullptr) {
    ADD_FAILURE() << "cannot start: " << command;
    return output;
  }
  std::array<char, 4096> part{};
  while (const auto size = std::fread(part.data(), 1, part.size(), pipe)) output.append(part.data(), size);
  EXPECT_EQ(pclose(pipe), 0) << command;
  return output;
}

}  // namespace orvex::test
