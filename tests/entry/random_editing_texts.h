#pragma once

#include <string>
#include <vector>

#include "entry/random_editing_life.h"

/// What a person types, or pastes.
namespace orvex::test {

inline const std::vector<std::string>& OrdinaryNumbers() {
  static const std::vector<std::string> kNumbers = {"0",  "1",     "5",       "20", "48",   "100",  "12.5",   "1,234.5",
                                                    "65", "60000", "250,000", "-1", "0.5",  "3",    "0.0625", "1000",
                                                    "7",  "1e3",   "66",      "4",  "0.75", "-0.5", "300"};
  return kNumbers;
}

inline const std::vector<std::string>& HostileNumbers() {
  static const std::vector<std::string> kNumbers = {"",      " ",       "nan",    "inf",
                                                    "-inf",  "1e999",   "-1e999", std::string(400, '9'),
                                                    "1,5",   "1.234,5", "12,34",  "1\x01",
                                                    "12 ft", "0x10",    "-0",     "--3",
                                                    "+3",    "1e",      "\t5",    "'; DROP TABLE tank; --"};
  return kNumbers;
}

/// Numbers that can be entered, and that calculations cannot all bear.
inline const std::vector<std::string>& ExtremeNumbers() {
  static const std::vector<std::string> kNumbers = {"1e308",  "-1e308", "9e307",  "1e300",  "1e155", "1e100",
                                                    "5e-324", "1e-300", "1e-100", "-1e200", "1e20",  "1e-9"};
  return kNumbers;
}

inline const std::vector<std::string>& OrdinaryTexts() {
  static const std::vector<std::string> kTexts = {"Slop", "Tank A", "Benzene",         "Ohio",
                                                  "T 2",  "tank a", "Gasoline (RVP 7)"};
  return kTexts;
}

inline const std::vector<std::string>& HostileTexts() {
  static const std::vector<std::string> kTexts = {
      "",          " ",    std::string(300, 'x'), std::string(256, 'y'),    "\t", "a\nb", "O'Brien", "6\" pipe",
      "50% *?[a]", "\x7F", "Öl für Köln",         "'; DROP TABLE tank; --", "-1", "Yes",  "(D)",     "<b>&amp;</b>"};
  return kTexts;
}

inline std::string NumberOf(const Life& life, std::uint16_t how) {
  const auto from = how % 10;
  const auto& texts = from < 7 || (from == 9 && life.NumbersTyped() != Numbers::kAll) ? OrdinaryNumbers()
                      : from < 9                                                      ? HostileNumbers()
                                                                                      : ExtremeNumbers();
  return texts[Life::OneOf(static_cast<std::uint16_t>(how / 10), texts.size())];
}

inline std::string TextOf(std::uint16_t how) {
  const auto& texts = how % 10 < 8 ? OrdinaryTexts() : HostileTexts();
  return texts[Life::OneOf(static_cast<std::uint16_t>(how / 10), texts.size())];
}

}  // namespace orvex::test
