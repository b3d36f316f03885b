// Codes and professions of the BDP by their words.
#pragma once

#include "study/exchange/gedcomInRows.h"

#include <QHash>
#include <QString>

#include <optional>

namespace study::exchange {

class GedcomWords
{
public:
    GedcomWords(jet::Connection& bdp, GedcomRows& rows, bool makesNew);

    // The code of that description, whatever its case and its mark; nothing for none.
    std::optional<QString> code(const QString& category, const QString& description) const;
    // The profession of that name, which is made where there is none; nothing where it may not be, or has no name.
    std::optional<qint64> profession(const QString& name);

private:
    GedcomRows& rows_;
    bool makesNew_;
    QHash<QString, QString> codes_ = {};      // by category and plain words
    QHash<QString, qint64> professions_ = {}; // by plain words
    qint64 lastProfession_ = 0;
};

} // namespace study::exchange
