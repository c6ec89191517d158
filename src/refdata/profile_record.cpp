#include "refdata/profile_record.h"

#include <algorithm>
#include <string_view>

#include "refdata/profile_types.h"
#include "store/database.h"
#include "store/text_or_null.h"

namespace orvex::refdata {
namespace {

using store::RecordSet;
using store::TextOrNull;

constexpr std::string_view kNames = "profile names", kComponents = "profile components", kKey = "spec id";

struct TextField {
  std::string_view name;
  std::string ProfileComponent::*text;
};
constexpr TextField kTexts[] = {{"NAME", &ProfileComponent::NAME}, {"CAS", &ProfileComponent::CAS}};

struct NumberField {
  std::string_view name;
  std::optional<double> ProfileComponent::*number;
};
constexpr NumberField kNumbers[] = {
    {"WT_FRACT", &ProfileComponent::WT_FRACT}, {"VP_FRACT", &ProfileComponent::VP_FRACT},
    {"WEIGHT", &ProfileComponent::WEIGHT},     {"MOLWT", &ProfileComponent::MOLWT},
    {"VP_MOLWT", &ProfileComponent::VP_MOLWT},
};

ProfileComponent ReadComponent(RecordSet& row) {
  ProfileComponent component;
  for (const auto& [name, text] : kTexts) component.*text = row.TextOrEmpty(name);
  for (const auto& [name, number] : kNumbers) component.*number = NumberOrNull(row.Get(name));
  return component;
}

void AddComponent(RecordSet& rows, std::int32_t spec_id, const ProfileComponent& component) {
  rows.AddNew();
  rows.Set(kKey, spec_id);
  for (const auto& [name, text] : kTexts) rows.Set(name, TextOrNull(component.*text));
  for (const auto& [name, number] : kNumbers) {
    if (component.*number) rows.Set(name, *(component.*number));
  }
  rows.Update();
}

/// A full profile whose components hold weights and no percents was entered in relative weights.
bool IsRelative(const ProfileRecord& profile) {
  const auto is_zero = [&](std::optional<double> ProfileComponent::*share) {
    return std::ranges::all_of(profile.components, [&](const auto& one) { return (one.*share).value_or(0) == 0; });
  };
  return profile.Type == kFullType && is_zero(&ProfileComponent::WT_FRACT) && !is_zero(&ProfileComponent::WEIGHT);
}

/// The profile's row, with what it holds itself; its key.
std::int32_t WriteName(store::Database& reference, std::int32_t spec_id, const ProfileRecord& profile) {
  auto row = reference.OpenAt(kNames, kKey, {spec_id});
  if (spec_id == 0 || row.NoMatch()) {
    row.AddNew();
    row.Set("User", true);
  } else {
    row.Edit();
  }
  row.Set("Profile Name", TextOrNull(profile.Name));
  row.Set("TYPE", TextOrNull(profile.Type));
  row.Update();
  row.Move(row.LastModified());
  return row.Long(kKey);
}

}  // namespace

std::optional<double> NumberOrNull(const store::Value& value) {
  return value.IsNull() ? std::nullopt : std::optional(value.AsDouble());
}

ProfileRecord ReadProfile(shell::Session& session, std::int32_t spec_id) {
  auto& reference = *session.ReferenceDb;
  auto row = reference.OpenAt(kNames, kKey, {spec_id});
  ProfileRecord profile;
  profile.Name = row.TextOrEmpty("Profile Name");
  profile.Type = row.TextOrEmpty("TYPE");
  profile.components.clear();
  for (auto rows = reference.OpenMatching(kComponents, kKey, {spec_id}); !rows.AtEnd(); rows.MoveNext())
    profile.components.push_back(ReadComponent(rows));
  if (profile.components.empty()) profile.components.emplace_back();
  profile.relative = IsRelative(profile);
  return profile;
}

std::int32_t WriteProfile(shell::Session& session, std::int32_t spec_id, const ProfileRecord& profile) {
  auto& reference = *session.ReferenceDb;
  store::Transaction transaction(reference);
  const auto key = WriteName(reference, spec_id, profile);
  // The rows have no key by which one could be told from another.
  reference.DeleteMatching(kComponents, kKey, {key});
  auto rows = reference.OpenTable(kComponents);
  for (const auto& component : profile.components) AddComponent(rows, key, component);
  transaction.Commit();
  return key;
}

void DeleteProfile(shell::Session& session, std::int32_t spec_id) {
  auto& reference = *session.ReferenceDb;
  store::Transaction transaction(reference);
  reference.DeleteMatching(kComponents, kKey, {spec_id});
  reference.DeleteMatching(kNames, kKey, {spec_id});
  transaction.Commit();
}

}  // namespace orvex::refdata
