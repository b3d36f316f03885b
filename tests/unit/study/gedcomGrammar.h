// The grammar of GEDCOM as its publishers have it: which structure may stand below which, how often, with what payload.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QStringList>

namespace gedcom {

struct Line
{
    int level = 0;
    QByteArray xref = {}; // with its @
    QByteArray tag = {};
    QByteArray value = {}; // as it stands
    int number = 0;        // in the file, from 1
};

// A line and what stands below it. CONT and CONC are joined to the value, in which each "@@" is one by then.
struct Structure
{
    QByteArray xref = {}, tag = {}, pointer = {};
    QString value = {};
    int line = 0;
    QList<Structure> below = {};

    const Structure* first(const char* sought) const; // null where there is none
    QList<Structure> all(const char* sought) const;
    QString text(const char* sought) const; // of the first one
};

struct File
{
    QList<Structure> records = {};
    QHash<QByteArray, qsizetype> places = {}; // of the records, by their xref
    QStringList problems = {};                // of lines, levels and lengths

    QList<Structure> all(const char* tag) const;
    const Structure* record(const QByteArray& xref) const;
};

File read(const QByteArray& bytes, bool is551);

// What is against the grammar, "linha 12: …"; also pointers that lead nowhere, and links between people and families
// that the other side hasn't.
QStringList problemsOf(const File& file, bool is551);

} // namespace gedcom
