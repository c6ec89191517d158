#pragma once

#include <filesystem>
#include <memory>

#include "store/database.h"

namespace orvex::report_app {

/// Opens a client database and tests that it is one. `to_write`: a file that may only be read will not do. Throws
/// `Failure`.
std::unique_ptr<store::Database> OpenClient(const std::filesystem::path& path, bool to_write);

/// Opens a reference database for reading and tests that it is one; an empty path stands for the one delivered with
/// the program. Throws `Failure`.
std::unique_ptr<store::Database> OpenReference(const std::filesystem::path& path, const std::filesystem::path& program);

}  // namespace orvex::report_app
