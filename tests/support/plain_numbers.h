#pragma once

#include <clocale>
#include <string>

namespace orvex::test {

/// While it lives, libraries that follow the locale read and write numbers with a decimal point.
class PlainNumbers {
 public:
  PlainNumbers() : old_(std::setlocale(LC_NUMERIC, nullptr)) { std::setlocale(LC_NUMERIC, "C"); }
  PlainNumbers(const PlainNumbers&) = delete;
  PlainNumbers& operator=(const PlainNumbers&) = delete;
  ~PlainNumbers() { std::setlocale(LC_NUMERIC, old_.c_str()); }

 private:
  std::string old_;
};

}  // namespace orvex::test
