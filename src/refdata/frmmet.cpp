#include "refdata/frmmet.h"

#include <algorithm>

#include "refdata/record_on_show.h"
#include "refdata/weather_plot.h"
#include "store/database.h"

namespace orvex::refdata {
namespace {

constexpr std::string_view kKey = "dbcboMetCTYST", kCity = "txtCITY", kState = "dbcboState";

/// The year's own column is left to the person: nothing adds it up, and it may be blank.
bool IsOfTheYear(const EntryInfo& info) { return info.field.ends_with("_ANN"); }

/// A number of exactly 0 counts as not filled in, so a calm month or one of 0 F cannot be saved.
bool IsComplete(const RecordEditor& form) {
  return !HeldText(form, "CITY").empty() && !HeldText(form, "STATE").empty() &&
         std::ranges::none_of(form.entries, [](const Entry& entry) {
           return IsNumber(*entry.info) && !IsOfTheYear(*entry.info) && Number(entry) == 0;
         });
}

/// The key under which tanks find their weather follows the city and the state at once.
void MakeKey(RecordEditor& form) { Hold(At(form, kKey), HeldText(form, "CITY") + ", " + HeldText(form, "STATE")); }

bool IsNameTaken(shell::Session& session, const RecordEditor& form) {
  return OtherHolds(session, form, "CTYST", {HeldText(form, "CTYST")});
}

void FillLists(shell::Session& session, RecordEditor& form) {
  At(form, kKey).box.items = Names(session, "met", "CTYST");
  At(form, kState).box.items = DistinctNames(session, "met", "STATE");
}

std::optional<std::int32_t> FindCity(shell::Session& session, RecordEditor&, std::string_view,
                                     const std::string& picked) {
  return FindByName(session, "met", "CTYST", "CTYST", picked);
}

constexpr Rule kRules[] = {
    {kCity, Moment::kChanged, MakeKey},
    {kState, Moment::kChanged, MakeKey},
};

constexpr EditorInfo kMetEditor = {
    .window = kFrmMetText,
    .panel = "picMet",
    .label = "frmMet.",
    .save_label = "frmMet.",
    .table = "met",
    .user_defined_field = "USER DEF",
    .entries = kMetEntries,
    .name = kKey,
    .incomplete =
        "Record cannot be saved. All fields must be filled in. Delete this record if you do not wish to save it.",
    .duplicate = "Duplicate City/State combination.",
    .is_complete = IsComplete,
    .finish = nullptr,
    .is_name_taken = IsNameTaken,
    .fill_lists = FillLists,
    .find = FindCity,
    .shown = nullptr,
    .read = nullptr,
    .write = nullptr,
    .rules = kRules,
    .plot = WeatherPlot,
    .plot_in_words = WeatherSummary,
};

}  // namespace

RecordEditor OpenFrmMet(shell::Session& session) { return OpenEditor(session, kMetEditor); }

}  // namespace orvex::refdata
