#pragma once

#include <QApplication>
#include <QTemporaryDir>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace orvex::windows {

enum class Screen : std::uint8_t {
  kPersons,  ///< the display that the process was started on
  kNone,     ///< no display and no graphics hardware are needed
};

/// The one QApplication of a process that shows or prints pages. Made before anything else of Qt.
///
/// As root the web engine's sandbox is off, since it refuses to start there; only then. Host names are not looked up.
/// Numbers go on being written with a decimal point, whatever the person's locale.
class WebApplication {
 public:
  WebApplication(std::string name, Screen screen);

 private:
  /// Set up before the application, and kept as long as it lives.
  struct Surroundings {
    Surroundings(std::string name, Screen screen);

    std::vector<std::string> arguments;
    std::vector<char*> pointers;
    int count = 0;
    std::unique_ptr<QTemporaryDir> run_time_folder;
  };

  Surroundings surroundings_;
  QApplication application_;
};

}  // namespace orvex::windows
