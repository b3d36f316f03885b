// The searches as the user makes them in the windows.
#pragma once

namespace bench {

void searchPeopleByName(const char* name);

enum class SearchedDate
{
    Marriage,
    FirstChild
};
// Both days as they are typed: "31/12/1800".
void searchPeopleByDate(SearchedDate date, const char* from, const char* to);

void searchFamiliesByHusband(const char* name);

} // namespace bench
