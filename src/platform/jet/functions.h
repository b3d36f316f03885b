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
inline constexpr auto collect = "orv_collect";           // see installCollector()
} // namespace functions

class KeyList;

// The operator like: % and _ are the only wildcards; case-blind for every letter; accents count.
void likeFunction(sqlite3_context* context, int count, sqlite3_value** values);

// Adds an aggregate of a key and a number, which appends each row to `*list`, where there is one: so a long list is
// read in one step of its statement. It gives null, and can't be used in a schema. Precondition: `list` stays where it
// is as long as the handle is open.
void installCollector(sqlite3* database, KeyList** list);

} // namespace jet
