// What several rules ask of the parish as a whole, counted once a check.
#pragma once

#include "platform/time/clock.h"
#include "study/parish/snapshot.h"

#include <QDate>
#include <QHash>
#include <QString>
#include <QStringList>

#include <unordered_set>
#include <vector>

namespace study::checks {

struct Facts
{
    explicit Facts(const parish::Snapshot& parish);

    // Of all baptisms, marriages and burials that have an exact date; invalid where there are none.
    QDate firstAct = {}, lastAct = {};

    // Of those who bear a first name, in small letters without accents: how many are of each sex.
    struct Bearers
    {
        int men = 0, women = 0;
    };
    QHash<QString, Bearers> bearers = {};

    QDate today = Clock::moment().date();

    // The first and the last day of the books: of those acts that have four others within ten years behind or before
    // them. A date that is off stands alone, and shifts no book. Invalid where there are none.
    QDate booksBegin = {}, booksEnd = {};

    // Whom the records of others name: priests, executors, heirs; and those whom a stored act names.
    std::unordered_set<const parish::Person*> mentioned = {};

    // As it is spelled today. Precondition: a person of the parish.
    const QString& standardName(const parish::Person& person) const;

    // The words of a name, each as its class (Álvares and Alves are one): the given names, and the surnames behind
    // them. A word that nobody knows is a given name where it stands beside one.
    struct Names
    {
        QStringList given = {}, surnames = {};
    };
    Names names(const parish::Person& person) const; // its lists share what they hold

private:
    void findBooks(std::vector<qint32> days);
    void gatherMentioned();

    const parish::Snapshot& parish_;
    mutable std::vector<QString> standardNames_ = {}; // made at the first question
    mutable QHash<QString, Names> names_ = {};        // by the whole name
};

// The first word of a name, in small letters without accents; "" for none.
QString firstNameKey(const parish::Person& person);

} // namespace study::checks
