#pragma once

#include <string>

#include "shell/host.h"

namespace orvex::test {

/// A message box as it was shown.
struct Prompt {
  std::string text, title;
  shell::Buttons buttons;
  shell::Icon icon;
};

/// Why this is none of the message boxes that tank entry has; empty if it is one. What a question proposes must be a
/// number that can be entered.
std::string WhatIsWrongWith(const Prompt& prompt);

/// Whether the box tells of a failure of the program.
bool IsFailureReport(const Prompt& prompt);
/// One that what a person may enter leads to: shares or weights that are zero, a height below zero.
bool IsToldReport(const Prompt& prompt);
/// That a number has grown too great, or half of it too small to be told from 0.
bool IsRangeReport(const Prompt& prompt);

}  // namespace orvex::test
