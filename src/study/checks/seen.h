// Cases that somebody has looked at and put aside, with a reason (table estudo_visto).
//
// A case is known again by its key. It stays aside as long as its records stand as they stood then; when one of them
// is changed, it comes back.
#pragma once

#include "platform/jet/connection.h"
#include "study/checks/case.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <vector>

namespace study::checks {

struct Seen
{
    QString key;    // Case::key()
    QString rule;   // its id
    QString state;  // Case::state
    QString text;   // of the case, as it was told then
    QString reason; // why it was put aside; "" where none was told
    QString when;   // local time, "1702-02-14 09:05:00"

    bool operator==(const Seen&) const = default;
};

// All that were put aside, the last one first; nothing where there is no table. Throws jet::Error.
std::vector<Seen> seenCases(const jet::Connection& bdp);

// Puts them aside, all or none; one that is aside already gets this state and this reason. Throws jet::Error.
void putAside(jet::Connection& bdp, const std::vector<Case>& cases, const QString& reason);

// Shows the cases with these keys again, all or none. One that isn't aside is passed over. Throws jet::Error.
void takeBack(jet::Connection& bdp, const QStringList& keys);

// Which of them are aside.
class Aside
{
public:
    explicit Aside(const std::vector<Seen>& seen);
    bool operator()(const Case& one) const;

private:
    QHash<QString, QString> states_; // by the key
};

} // namespace study::checks
