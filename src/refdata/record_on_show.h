#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <string_view>
#include <vector>

#include "refdata/record_editor.h"

/// Which record an editor shows, and what it does with it on the way to another.
namespace orvex::refdata {

/// Reads the record into the entries and shows it; error 3021 if it is not there any more.
/// @param narrowing whether it was found by a part of its name
void ShowRecord(shell::Session& session, RecordEditor& form, std::int32_t Counter, bool narrowing = false);
/// Shows the first record of the table; without one, empty entries.
void ShowFirst(shell::Session& session, RecordEditor& form);

/// The record on show was deleted: the lists are filled anew, and the first record is shown.
void LeaveRecord(shell::Session& session, RecordEditor& form);

/// Saves the record on show. False if it was refused, which the person has been told then.
bool SaveRecord(shell::Session& session, RecordEditor& form);
/// Saves it if the person made it and has changed it, without asking for another one then.
bool SaveChanges(shell::Session& session, RecordEditor& form);
/// Appends an empty record of the person's own and shows it.
void AddRecord(shell::Session& session, RecordEditor& form);

/// Whether any of the rows, other than the one on show, is as asked for.
bool AnyOther(const RecordEditor& form, store::RecordSet rows, const std::function<bool(store::RecordSet&)>& is_meant);
/// Whether a row of the table other than the one on show holds these values in the fields of an index.
bool OtherHolds(shell::Session& session, const RecordEditor& form, std::string_view index,
                std::initializer_list<store::Value> values);

/// The texts of a field in their order, without empty ones.
std::vector<std::string> Names(shell::Session& session, std::string_view table, std::string_view field);
/// The same, each text once, without regard to case.
std::vector<std::string> DistinctNames(shell::Session& session, std::string_view table, std::string_view field);
/// The number, in the field `key`, of the row in which the field holds exactly this text; if there is none, of the
/// first that holds it without regard to case. The index is on that field.
std::optional<std::int32_t> FindByName(shell::Session& session, std::string_view table, std::string_view index,
                                       std::string_view field, const std::string& name,
                                       std::string_view key = "Counter");

}  // namespace orvex::refdata
