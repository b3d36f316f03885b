// The numbers of the marriages of two people who become one.
#pragma once

#include "study/linkage/moving.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

namespace study::linkage {

// Precondition: the moving outlives it, and nothing was moved when it is made.
class Marriages
{
public:
    Marriages(Moving& moving, qint64 kept, qint64 other);

    // Once all is moved: numbers that the merge alone has made the same are counted on by the dates, where these tell
    // the order; no number gets lower, and what was there goes to the notes of the family. Sentences of it.
    QStringList ordered();

private:
    struct Marriage
    {
        QString date;
        Row row;
        qint64 number = 0; // 0: not told
    };
    QList<Marriage> all() const;
    bool isNewClash(const Marriage& one, const Marriage& other) const;
    void renumber(const Marriage& marriage, qint64 number);

    struct Spouse
    {
        qint64 nind = 0, number = 0;
    };
    Moving& moving_;
    qint64 kept_;
    QHash<qint64, Spouse> spouses_; // as each was before, by the place in familias
};

// "Do nº 15, junto".
QString originOfPerson(qint64 nind);

} // namespace study::linkage
