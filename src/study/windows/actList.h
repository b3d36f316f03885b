// The list of the acts of a BDP, as a window shows it.
#pragma once

#include "study/acts/register.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace study {

// Which acts are to be seen.
struct ActFilter
{
    std::optional<ActKind> kind = {};
    std::optional<QString> book = {};
    QString name = {}; // words that begin words of the names of the act, whatever their case and accents

    bool operator==(const ActFilter&) const = default;
};

// The words of a text, in small letters without accents.
QStringList searchWords(const QString& text);

// The lines to be seen, in their order. `words` are those of the names of each act. Where a name is sought there are no
// gaps: an act that isn't there has none.
QList<ActLine> chosenLines(const QList<ActLine>& lines, const ActFilter& filter,
                           const QHash<qint64, QStringList>& words = {});

// The books of the acts of that kind, or of all, each once, in the order of the list.
QStringList booksOf(const QList<ActLine>& lines, std::optional<ActKind> kind);

// "falta o n.º 8", "faltam os n.os 8 e 9", "faltam os n.os 8 a 11".
// Precondition: the line is a gap.
QString gapText(const ActLine& gap);

// Kind, book, folio, number, date, subjects; of a gap the kind, the book and what is missing.
QStringList cellsOf(const ActLine& line);

// "3 actos", with the numbers that are missing: "1 acto, 4 números em falta".
QString countText(const QList<ActLine>& lines);

// The act as a question names it: "Baptismos 3, fl. 12v, n.º 7, 14/02/1702: Maria".
QString titleOf(const ActLine& line);
QString titleOf(const Act& act);

} // namespace study
