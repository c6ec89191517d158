#pragma once

struct sqlite3;

namespace orvex::store {

/// Teaches a connection the functions that the SQL dialect needs:
/// - `like`: the dialect's wildcards, `*` any text, `?` one character, `#` one digit, `[a-z]` and `[!a-z]` one
/// character
///   of a list, without regard to case;
/// - `join_texts`: what `&` does, null counting as an empty text;
/// - `cvdate`: a text such as "March 01, 1999" as a day number; error 13 for anything else.
void RegisterSqlFunctions(sqlite3* handle);

}  // namespace orvex::store
