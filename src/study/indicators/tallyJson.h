// The tallies of one or more parishes as a file: to be added up elsewhere, or kept beside the figures made of them.
//
// The form, in UTF-8:
//   {"formato": "orv-contagens", "versao": 1,
//    "freguesias": [{"nome": "…", "codigo": "…", "ficheiro": "…", "bytes": 1, "sha256": "…",
//                    "lido": "2024-05-01T10:00:00.000Z", "ajustes": {…}}],
//    "temas": {"idade-ao-casamento": {"homens": [[[1750, 2460, 0, 0], 3], …], …}, …}}
// A count stands under its name, with the values of its four dimensions and how many there are.
#pragma once

#include "study/indicators/subject.h"
#include "study/parish/source.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <map>
#include <span>
#include <vector>

namespace study::indicators {

// What was counted, and how.
struct Counted
{
    parish::Source source = {};
    Settings settings = {};
    QString name = {}, code = {}; // of the parish; "" where the BDP doesn't tell

    bool operator==(const Counted&) const = default;
};

struct Tallies
{
    std::vector<Counted> parishes = {};      // one at least
    std::map<QString, Tally> bySubject = {}; // by the id of the subject

    bool operator==(const Tallies&) const = default;
};

// Precondition: the subjects are among the known ones, and their counts are theirs; jet::Error otherwise.
QByteArray jsonOf(const Tallies& tallies, std::span<const Subject* const> known = subjects());
// What was written is read as an equal value. Throws jet::Error, in Portuguese, where the text isn't of that form, is
// of a later version, names a subject or a count that is unknown, or has what can't be joined.
Tallies talliesFrom(const QByteArray& json, std::span<const Subject* const> known = subjects());

// The parishes of both, and their sums. Throws jet::Error, in Portuguese, where the sum would mean nothing: settings
// that define what is counted differ (told by name), a file has been counted in both, or a subject in one alone.
Tallies joined(const Tallies& one, const Tallies& other);

// The titles of the settings that define what is counted and differ; none for counts that can be joined.
QStringList whatDiffers(const Settings& one, const Settings& other);

// The settings by which figures of these tallies are made: those of the first parish, with the years that the books of
// all cover.
Settings settingsOf(const Tallies& tallies);

} // namespace study::indicators
