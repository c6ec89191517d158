#pragma once

#include "refdata/met_entries.h"
#include "refdata/record_editor.h"

/// The editor of the table `met`.
namespace orvex::refdata {

inline constexpr auto kFrmMetControls =
    EditorControls(kMetEntries, {"picMet", "", "The weather of the city, month by month and over the year"});
inline constexpr shell::WindowText kFrmMetText = {"frmMet", "Meteorological", "weather_edit", kFrmMetControls};

RecordEditor OpenFrmMet(shell::Session& session);

}  // namespace orvex::refdata
