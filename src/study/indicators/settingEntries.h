// Each setting of a study with its key: as JSON and back. For this room alone.
#pragma once

#include "study/indicators/settings.h"

#include <nlohmann/json.hpp>

#include <optional>
#include <vector>

namespace study::indicators {

// What hangs on a setting.
enum class Defines : quint8
{
    Counting, // what is counted: tallies of other settings are of other things
    Parish,   // what there is to be counted in one parish: its books, its neighbours, its codes
    Showing   // the figures that are made of the counts
};

struct Entry
{
    const char* key;   // "periodo"; of the table estudo_ajuste and of the files of tallies
    const char* title; // "período dos acontecimentos"
    Defines defines;
    QString (*words)(const Settings& settings); // the value, for a reader: "1700–1850"
    nlohmann::json (*told)(const Settings& settings);
    // False, and the settings as they were, where the value isn't one that can be meant.
    bool (*take)(Settings& settings, const nlohmann::json& value);
};

const std::vector<Entry>& settingEntries();

// All settings as one object, and back. What isn't there is as standard, what is unknown is passed over. Throws
// jet::Error, in Portuguese, where it is no object, or a value can't be meant.
nlohmann::json toldOf(const Settings& settings);
Settings settingsTold(const nlohmann::json& told);

// A whole number within these limits; nothing where the value is none.
std::optional<qint64> wholeOf(const nlohmann::json& value, qint64 least, qint64 most);

} // namespace study::indicators
