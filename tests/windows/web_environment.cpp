#include <gtest/gtest.h>

#include <memory>

#include "windows/web_application.h"

namespace orvex::test {
namespace {

/// The one application of the test program; needs no display.
class WebEnvironment : public testing::Environment {
 public:
  void SetUp() override {
    application_ = std::make_unique<windows::WebApplication>("windows_tests", windows::Screen::kNone);
  }
  void TearDown() override { application_.reset(); }

 private:
  std::unique_ptr<windows::WebApplication> application_;
};

[[maybe_unused]] const auto* const kEnvironment = testing::AddGlobalTestEnvironment(new WebEnvironment);

}  // namespace
}  // namespace orvex::test
