#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "entry/random_editing_steps.h"
#include "entry/stored_rows.h"

namespace orvex::test {

using entry::RecordCopy;

/// The rows of every tank, and of those that belong to none, by their `ID`.
using AllRows = std::map<std::int32_t, RecordCopy>;
AllRows ReadAllRows(store::Database& client);

/// A field of a row of `table` that holds the fields in their order.
const store::Value& FieldOf(const std::vector<store::Value>& row, std::string_view table, std::string_view field);

/// Whether the rows are the same; without a tank's row both are.
bool SameRows(const RecordCopy& a, const RecordCopy& b);

/// What holds for the rows of a tank at every moment, whatever was typed: numbers run from 1, a month has one mixture
/// at most, every number is finite, no text is longer than its field or has control characters. Throws `Broken`.
void RequireSound(const RecordCopy& rows);

/// No row belongs to a tank that is not there.
void RequireNoOrphans(const AllRows& rows);

/// What a tank that was opened or saved has after its changes were declined: the rows of the copy, but fittings and
/// components as they stood if the copy holds none.
RecordCopy Undone(const RecordCopy& copy, const RecordCopy& before);

}  // namespace orvex::test
