// Files of transcriptions as a window deals with them: what they hold, and what it tells of an import.
#pragma once

#include "study/transcripts/import.h"
#include "study/transcripts/table.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace study {

// Whether a file is a table of acts, by the ending of its name; any other is read as Kleio.
bool isTable(const QString& path);

// The first values of a column that aren't blank, each once: "12, 14, 15".
QString previewOf(const CellTable& sheet, qsizetype column);

// The title of a field; "" for none and for an id that no field has.
QString titleOfField(const QString& id);

// "linha 12: …", those that make the file useless first, at most `most`; then how many more there are.
QStringList problemLines(const QList<Problem>& problems, qsizetype most);

// What came of one file.
struct FileOutcome
{
    QString path;
    QList<Problem> problems = {};
    std::optional<ImportReport> report = {}; // none where nothing was tried, as the file is damaged
    QString failure = {};                    // why it couldn't be read, or was given up

    bool operator==(const FileOutcome&) const = default;
};

enum class Occasion
{
    Rehearsal,
    Import
};

// The report on all files, in Portuguese; `copy` is the path of the copy of the BDP that was made before, if any.
QString reportOn(const QList<FileOutcome>& outcomes, Occasion occasion, const QString& copy = {});

// The first words of it, for the line of state: "Ensaio: 12 actos seriam gravados, 3 não; 1 já lá
// estava."
QString summaryOf(const QList<FileOutcome>& outcomes, Occasion occasion);

} // namespace study
