#include "windows/web_application.h"

#include <unistd.h>

#include <QDir>
#include <QLoggingCategory>
#include <clocale>
#include <cstdlib>
#include <sstream>
#include <string_view>
#include <utility>

namespace orvex::windows {
namespace {

/// Switches of the web engine that hold everywhere.
constexpr std::string_view kSwitches[] = {
    "--log-level=3",                                              // what ends the process, nothing less
    "--host-resolver-rules=MAP * ~NOTFOUND",                      // no page has business in the network
    "--force-webrtc-ip-handling-policy=disable_non_proxied_udp",  // nor by way of a call
    "--disable-background-networking",
};

/// What the web engine and the toolkit say of a process without graphics hardware. It has none on purpose.
constexpr std::string_view kExpectedWithoutGraphics = "No suitable graphics backend found";

QtMessageHandler other_messages = nullptr;

void PassUnexpected(QtMsgType type, const QMessageLogContext& context, const QString& message) {
  if (message.trimmed() == QLatin1String(kExpectedWithoutGraphics.data(), kExpectedWithoutGraphics.size())) return;
  other_messages(type, context, message);
}

void SetUnlessGiven(const char* variable, const char* value) { setenv(variable, value, 0); }

}  // namespace

WebApplication::Surroundings::Surroundings(std::string name, Screen screen) : arguments{std::move(name)} {
  arguments.emplace_back("--webEngineArgs");
  // A person's own switches would replace all of ours if they stayed in the environment.
  if (const char* given = std::getenv("QTWEBENGINE_CHROMIUM_FLAGS")) {
    std::istringstream words(given);
    for (std::string word; words >> word;) arguments.push_back(word);
    unsetenv("QTWEBENGINE_CHROMIUM_FLAGS");
  }
  arguments.insert(arguments.end(), std::begin(kSwitches), std::end(kSwitches));
  if (geteuid() == 0) arguments.emplace_back("--no-sandbox");
  // Pages of settings that the engine starts with.
  QLoggingCategory::setFilterRules(QStringLiteral("qt.webenginecontext=false"));
  if (screen == Screen::kNone) {
    arguments.emplace_back("--disable-gpu");
    SetUnlessGiven("QT_QPA_PLATFORM", "offscreen");
    SetUnlessGiven("QT_QUICK_BACKEND", "software");
    if (std::getenv("XDG_RUNTIME_DIR") == nullptr) {
      run_time_folder = std::make_unique<QTemporaryDir>(QDir::tempPath() + QStringLiteral("/orvex-XXXXXX"));
      if (run_time_folder->isValid()) setenv("XDG_RUNTIME_DIR", run_time_folder->path().toLocal8Bit().constData(), 1);
    }
    other_messages = qInstallMessageHandler(PassUnexpected);
  }
  for (auto& argument : arguments) pointers.push_back(argument.data());
  pointers.push_back(nullptr);
  count = static_cast<int>(arguments.size());
}

WebApplication::WebApplication(std::string name, Screen screen)
    : surroundings_(std::move(name), screen), application_(surroundings_.count, surroundings_.pointers.data()) {
  // The toolkit has put the process under the person's locale.
  std::setlocale(LC_NUMERIC, "C");
}

}  // namespace orvex::windows
