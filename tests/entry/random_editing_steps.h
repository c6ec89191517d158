#pragma once

#include <rapidcheck.h>

#include <cstddef>
#include <cstdint>
#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

namespace orvex::test {

/// One thing that a person does. Where the person is decides what it comes to, so that any steps in any order are a
/// story, and a shorter story is one, too.
struct Step {
  std::uint16_t what;   ///< of what can be done there
  std::uint16_t which;  ///< entry, item or tank
  std::uint16_t how;    ///< text, and the answers to what is then asked
};

inline std::ostream& operator<<(std::ostream& out, const Step& step) {
  return out << step.what << '/' << step.which << '/' << step.how;
}

using Steps = std::vector<Step>;

/// About as many steps as the case has grown to.
inline rc::Gen<Steps> AnySteps() {
  const auto number = [] { return rc::gen::resize(rc::kNominalSize, rc::gen::inRange<std::uint16_t>(0, 10'000)); };
  const auto step = rc::gen::build<Step>(rc::gen::set(&Step::what, number()), rc::gen::set(&Step::which, number()),
                                         rc::gen::set(&Step::how, number()));
  return rc::gen::scale(2, rc::gen::container<Steps>(step));
}

/// What must never be was found.
struct Broken : std::runtime_error {
  using std::runtime_error::runtime_error;
};

inline void Require(bool holds, const std::string& what) {
  if (!holds) throw Broken(what);
}

}  // namespace orvex::test
