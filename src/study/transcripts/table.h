// Tables of acts: one row an act, a spreadsheet saved as CSV.
#pragma once

#include "platform/jet/connection.h"
#include "study/transcripts/transcript.h"

#include <QByteArray>
#include <QChar>
#include <QJsonObject>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace study {

// The cells of a file, as they stand there. The first line that isn't blank holds the headers; lines of one cell above
// one of several are titles, and left out with a warning.
struct CellTable
{
    QStringList headers;
    QList<QStringList> rows; // each as long as the headers
    QList<int> lines;        // on which each row begins
    QChar separator = ';';   // ; , or a tab
    QString encoding;
    QList<Problem> problems;

    bool operator==(const CellTable&) const = default;
};

// Quotes as RFC 4180 has them, also over lines; the separator is the one that parts the first lines best.
// A short row is filled up with blanks, and a long one whose surplus cells are empty is cut; an error: a surplus cell
// with text, a quote that never closes, bytes that are no text, no header, no row.
CellTable readSheet(const QByteArray& bytes);

// What a column may hold: "data", "livro", "pai.nome", "madrinha.residencia".
struct TableField
{
    QString id;
    QString title; // "Data", "Pai: nome", as a list shows it

    bool operator==(const TableField&) const = default;
};
const QList<TableField>& tableFields(); // in the order of a list to choose from; ids are stable

// Which column holds what.
struct Assignment
{
    std::optional<ActKind> kind = {}; // of every row where no column tells it
    QString book = {};                // of every row where no column tells it
    QStringList columns;              // one for each header: the id of a field; "" for a column that isn't taken

    bool operator==(const Assignment&) const = default;
};

// By the words of the headers, whatever their case and accents. A header that says nothing is proposed as a note; none
// but notes and further values of the same person's field is proposed twice.
Assignment proposed(const QStringList& headers);

// "" where acts can be made with it, or what is missing, in Portuguese: a kind, a date, the name of whom the act is
// about, as many columns as headers.
QString whyNotAssigned(const QStringList& headers, const Assignment& assignment);

// The acts. A row that is blank is passed over; a cell that isn't understood (a kind that is none) is an error with its
// line, a date that no calendar has only a warning.
// Precondition: whyNotAssigned() is "".
Transcript actsOf(const CellTable& sheet, const Assignment& assignment);

// The assignment as a file for the shell, by the names of the headers: {"especie": "baptismo", "livro": "3",
// "colunas": {"Data": "data", "Pai": "pai.nome"}}. The second throws jet::Error for an unknown field or kind; a header
// that the file doesn't name isn't taken.
QJsonObject toJson(const QStringList& headers, const Assignment& assignment);
Assignment assignmentFromJson(const QJsonObject& json, const QStringList& headers);

// The assignment kept in the BDP for files with the same headers, in whatever order (table estudo_colunas, made when
// first needed). The first is a transaction of its own. Throw jet::Error.
void keepAssignment(jet::Connection& bdp, const QStringList& headers, const Assignment& assignment);
std::optional<Assignment> keptAssignment(jet::Connection& bdp, const QStringList& headers);

} // namespace study
