#include "entry/site.h"

#include "entry/entry_events.h"
#include "entry/update_tank.h"
#include "store/database.h"

namespace orvex::entry {
namespace {

using shell::Session;

constexpr std::string_view kCity = "dbcboCity", kPressure = "ATMOS_PRS", kNoNumber = "0";

/// Sought where no city is chosen.
constexpr std::string_view kNoCity = "no";

bool IsWeather(const Entry& entry) { return entry.info->kind == EntryKind::kShown; }

store::RecordSet WeatherOf(Session& session, const std::string& city) {
  return session.ReferenceDb->OpenAt("met", "CTYST", {city.empty() ? std::string(kNoCity) : city});
}

void FillCities(Session& session, FrmTank& form) {
  auto& items = At(form, kCity).box.items;
  items.clear();
  auto cities = session.ReferenceDb->OpenQuery("SELECT CTYST FROM met WHERE CTYST IS NOT NULL ORDER BY CTYST");
  for (; !cities.AtEnd(); cities.MoveNext()) items.push_back(cities.Get(0).AsText());
}

void ShowWeather(FrmTank& form, store::RecordSet& weather) {
  for (auto& entry : EntriesOf(form, Section::kSite)) {
    if (!IsWeather(entry)) continue;
    if (weather.NoMatch()) {
      entry.box.text = kNoNumber;
    } else {
      ShowNumber(entry, weather.DoubleOrZero(entry.info->field));
    }
  }
}

void ShowPressure(FrmTank& form, store::RecordSet& weather) {
  for (auto& entry : EntriesOf(form, Section::kSite))
    if (entry.info->field == kPressure) ShowNumber(entry, weather.NoMatch() ? 0 : weather.DoubleOrZero(kPressure));
}

/// The tank takes the pressure of its city, and is stored.
void TakeCity(Session& session, FrmTank& form, Entry& city) {
  auto weather = WeatherOf(session, city.box.text);
  ShowWeather(form, weather);
  ShowPressure(form, weather);
  UpdateTank(session, form);
}

/// A city may be typed instead of chosen.
void TakeTypedCity(Session& session, FrmTank& form, Entry& city) {
  if (IsChanged(city) && Refusal(city).empty()) TakeCity(session, form, city);
}

constexpr EntryRule kRules[] = {
    {kCity, Moment::kChoosing, TakeCity},
    {kCity, Moment::kLeft, TakeTypedCity},
};

}  // namespace

std::span<const EntryRule> SiteRules() { return kRules; }

void ShowSite(Session& session, FrmTank& form) {
  FillCities(session, form);
  auto weather = WeatherOf(session, At(form, kCity).box.text);
  ShowWeather(form, weather);
}

void ClearSite(FrmTank& form) {
  for (auto& entry : EntriesOf(form, Section::kSite))
    entry.box.text = entry.info->text.name == kCity ? std::string_view() : kNoNumber;
}

}  // namespace orvex::entry
