#pragma once

#include <initializer_list>
#include <set>
#include <string>
#include <string_view>

#include "databases/table_rows.h"

/// Rules that the tables of both databases share. Each throws error 3421, naming file, line and field, for the first
/// row that breaks it.
namespace orvex::databases {

using Fields = std::initializer_list<std::string_view>;

/// What a row is called in a set of keys: the texts of these fields without regard to case, null as an empty text.
std::string KeyOf(const TableRows& rows, std::size_t row, Fields fields);

/// The keys of all rows.
std::set<std::string> KeysOf(const TableRows& rows, Fields fields);

/// None of the fields is null or an empty text.
void RequireFilled(const TableRows& rows, Fields fields);

/// The numbers are above zero.
void RequirePositive(const TableRows& rows, Fields fields);

/// No two rows have the same texts in these fields.
void RequireUnique(const TableRows& rows, Fields fields);

/// The field holds one of these words, with regard to case.
void RequireWord(const TableRows& rows, std::string_view field, Fields words);

/// The field counts the rows from 1 without gaps, starting again wherever the fields of `within` change.
void RequireNumbered(const TableRows& rows, std::string_view field, Fields within = {});

/// The texts of these fields stand in `known` wherever the first of them is not null; `what` names what is missing.
void RequireKnown(const TableRows& rows, Fields fields, const std::set<std::string>& known, std::string_view what);

}  // namespace orvex::databases
