// The data files as the tests read them: bytes, lines and fields.
#pragma once

#include "platform/jet/connection.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

namespace datafolder {

struct Table
{
    QString file, table, code, name,
        parent; // of the place files; parent "" for a country, name "" where none is unique
};

// The place files from the top level down, each parent table before its children.
inline const QList<Table> places{
    {"paises.dat", "pais", "codpais", "nomepais", ""},
    {"zonas.dat", "zonapais", "codzona", "nomezona", "codpais"},
    {"distrito.dat", "distrito", "coddistrito", "nomedistrito", "codpais"},
    {"concelho.dat", "concelho", "codconcelho", "nomeconcelho", "coddistrito"},
    {"freguesia.dat", "paroquia", "codparoquia", "nomeparoquia", "codconcelho"},
    {"lugares.dat", "lugar", "codlugar", "nomelugar", "codparoquia"},
    {"sitio.dat", "sitio", "codsitio", "nomesitio", "codlugar"},
};

QByteArray bytes(const QString& file);

// The lines of a file, read as code page 1252 and without their line ends; empty where it can't be read so.
QStringList lines(const QString& file);

// The columns of a file by its header; values by row.
struct Content
{
    QStringList header;
    QList<QStringList> rows;

    QStringList column(const QString& name) const;
};
Content content(const QString& file);

// A BDP made from the data files, in a folder of its own.
class MadeBdp
{
public:
    MadeBdp();

    jet::Connection connection;

    // The rows of a select, their values joined by a bar; null is "null", a date is year-month-day.
    QStringList rows(const QString& select);

private:
    QTemporaryDir folder_;
};

// What the engine itself says of the file: "ok" where it is sound.
QString integrity(jet::Connection& bdp);

// Every row of every table, in the order of entry, a table's name before its rows.
QStringList dump(jet::Connection& bdp);

} // namespace datafolder
