// What the user of the command has asked for.
#pragma once

#include "study/checks/case.h"
#include "study/exchange/gedcom.h"
#include "study/transcripts/import.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace study {

struct Order
{
    enum class Work
    {
        Help,
        ImportKleio,
        ImportTable,
        ExportKleio,
        Check,
        Count,
        Join,
        Report,
        Tables,
        Smam,
        Network,
        Settings,
        Baptisms,
        ExportGedcom,
        ExportTables,
        ImportTables,
        ImportGedcom
    };
    enum class Format
    {
        Text,
        Csv,
        Json
    };
    Work work = Work::Help;
    QStringList files;
    QString bdp;
    QString output;  // the page of a report, the file of an export, or the folder of tables or of a network
    QString columns; // the file of an assignment; "": the one kept for these headers, or the proposed one
    bool rehearse = false;
    ImportOptions options;
    Format format = Format::Text;                              // of what a check has found
    checks::Severity least = checks::Severity::Information;    // what is less grave isn't told
    bool withSeen = false;                                     // those that were put aside are told, too
    QString settings = {};                                     // the file of those to be kept; "": they are told
    QString list = {};                                         // of births and baptisms; "": that of the BDP
    std::optional<QString> birthWords = {}, baptismWords = {}; // nothing: those of the BDP
    bool spreadsheet = false;                                  // tables for the spreadsheets of Portugal
    bool emptyOrphans = false;                                 // keys that lead nowhere aren't kept beside the tables
    bool keep = false;                                         // words and list, in the BDP
    exchange::GedcomVersion version = exchange::GedcomVersion::V551;
    int limitYears = 110;                         // below which who may be alive stays out
    bool takeBack = false;                        // the last import of GEDCOM
    bool noPlaces = false, noProfessions = false; // that the BDP hasn't: none is made

    bool operator==(const Order&) const = default;
};

// Reads the arguments, without the name of the command. Returns "", or why they can't be understood, in Portuguese.
QString readArguments(const QStringList& arguments, Order& order);

QString helpText();

} // namespace study
