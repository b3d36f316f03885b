// The functions and collations of the connection.
#pragma once

struct sqlite3;
struct sqlite3_context;
struct sqlite3_value;

namespace jet {

namespace functions {
inline constexpr auto comparedDate = "orv_date";         // a text that meets a date column, as the column keeps it
inline constexpr auto caseBlind = "orv_nocase";          // equality of texts, whatever the case of any letter
inline constexpr auto alphabetical = "orv_alphabetical"; // the order of a Portuguese dictionary
} // namespace functions

// The operator like: % and _ are the only wildcards; case-blind for every letter; accents count.
void likeFunction(sqlite3_context* context, int count, sqlite3_value** values);

} // namespace jet
