#include "exchange/dbase_dialog.h"

#include <fmt/format.h>

namespace orvex::exchange {

std::string AskForDbaseFile(shell::Host& host, std::string_view file) {
  shell::FileRequest request;
  request.title = fmt::format("Locate {}", file);
  request.file_name = file;
  request.folder = R"(C:\orvex31)";
  request.filter = "dBASE (*.dbf) |*.dbf|";
  return host.OpenFile(request);
}

}  // namespace orvex::exchange
