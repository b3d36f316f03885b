// Dates, names, places and numbers of a BDP as values of GEDCOM.
#pragma once

#include "study/exchange/gedcom.h"
#include "study/names/names.h"
#include "study/parish/snapshot.h"

#include <QByteArray>
#include <QString>

#include <array>

namespace study::exchange {

// "14 FEB 1702", "ABT 14 FEB 1702", "ABT 1702"; "" for none. As the register has it: no calendar is told.
QByteArray gedcomDate(const parish::Date& date);
// "FROM 1 JAN 1700 TO 2 FEB 1750", or one half of it; "" where both are invalid.
QByteArray gedcomPeriod(QDate from, QDate until);
QByteArray gedcomAge(parish::Code years); // "46y"; "" for none, and for what is no age

// A name with its surname between slashes. The surname begins at the first particle, or at the first word that is no
// given name in the table; where no word is sure to be of the surname, all stay given: "Maria Rosa //".
// What the name has no slash for of its own becomes U+2215.
struct GedcomName
{
    QString payload = {};  // "Padre João /da Costa/, o Moço"; "" where there is no name
    QString given = {};    // with all that follows it, where there is no surname: "Domingos Exposto"
    QString particle = {}; // "da"
    QString surname = {};  // "Costa"
    QStringList titles = {};

    bool operator==(const GedcomName&) const = default;
};
GedcomName gedcomName(const QString& name, const NameTable& table = NameTable::shared());

// The same for the same record of the same parish, whenever it is asked and whatever its cards tell by then: a
// name-based UUID (version 5) of the code of the parish (of its name, where it has none) and the number.
QByteArray uidOf(const parish::Home& home, const char* kind, qint64 number);

// A reference to a picture that tells nothing of the machine: below the folder of the BDP its path from there,
// otherwise its name alone. With slashes.
QString relativePath(const QString& path, const QString& bdpFolder);

// All places of a BDP: letter and code, name, and letter and code of what it lies in, "" of a country.
inline constexpr auto placesSelect =
    "select 'P' || codpais, nomepais, '' from pais "
    "union all select 'Z' || codzona, nomezona, 'P' || codpais from zonapais "
    "union all select 'D' || coddistrito, nomedistrito, 'P' || codpais from distrito "
    "union all select 'C' || codconcelho, nomeconcelho, 'D' || coddistrito from concelho "
    "union all select 'F' || codparoquia, nomeparoquia, 'C' || codconcelho from paroquia "
    "union all select 'L' || codlugar, nomelugar, 'F' || codparoquia from lugar "
    "union all select 'S' || codsitio, nomesitio, 'L' || codlugar from sitio";

// The tables of places, each with what it lies in.
class PlaceNames
{
public:
    explicit PlaceNames(const jet::Connection& bdp); // throws jet::Error

    // "Sítio, Lugar, Freguesia, Concelho, Distrito, País": a level that isn't told is empty, and a comma within a name
    // a semicolon. A place that isn't in its table has its code in brackets.
    QString hierarchy(const parish::Place& place) const;

private:
    struct Named
    {
        QString name = {};
        QString within = {}; // letter and code
    };
    QHash<QString, Named> places_ = {}; // by letter and code
};

} // namespace study::exchange
