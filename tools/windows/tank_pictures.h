#pragma once

#include <QWidget>
#include <filesystem>
#include <functional>

#include "shell/session.h"

namespace orvex {

using SavePicture = std::function<void(QWidget& window, const std::filesystem::path& file)>;

/// The tank editor on tanks of the client database: the physical page of each type, and of the first of them the other
/// pages, too, with the forms of the liquid page.
void TakeTankPictures(shell::Session& session, const SavePicture& save);

}  // namespace orvex
