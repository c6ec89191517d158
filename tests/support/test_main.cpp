#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <locale>
#include <stdexcept>
#include <string>

namespace {

/// Puts the whole process, the C library and the iostreams alike, under the named locale.
/// @return what is wrong with the locale, empty when it stands and writes a decimal comma
std::string EnterCommaLocale(const std::string& name) {
  if (std::setlocale(LC_ALL, name.c_str()) == nullptr) return "the C library does not know the locale";
  const std::string decimal_point = std::localeconv()->decimal_point;
  if (decimal_point != ",") return "its decimal sign is \"" + decimal_point + "\", not a comma";
  try {
    std::locale::global(std::locale(name));
  } catch (const std::runtime_error& error) {
    return std::string("the C++ library refuses the locale: ") + error.what();
  }
  if (std::use_facet<std::numpunct<char>>(std::locale()).decimal_point() != ',') return "iostreams keep the point";
  return {};
}

}  // namespace

/// Runs the tests under the "C" locale, or under the one with a decimal comma that ORVEX_TEST_LOCALE names.
int main(int argument_count, char** arguments) {
  testing::InitGoogleTest(&argument_count, arguments);
  const char* comma_locale = std::getenv("ORVEX_TEST_LOCALE");
  if (comma_locale == nullptr || *comma_locale == '\0') {
    std::setlocale(LC_ALL, "C");
    std::locale::global(std::locale::classic());
    return RUN_ALL_TESTS();
  }
  if (const std::string fault = EnterCommaLocale(comma_locale); !fault.empty()) {
    std::fprintf(stderr, "ORVEX_TEST_LOCALE=%s: %s\n", comma_locale, fault.c_str());
    return 2;
  }
  return RUN_ALL_TESTS();
}
