// The acts of the BDP: the tables estudo_acto, estudo_pessoa, estudo_atributo, estudo_relacao and those beside them
// (docs/bdp.md).
#pragma once

#include "platform/jet/connection.h"
#include "study/acts/act.h"
#include "study/acts/conclusions.h"
#include "study/acts/plan.h"

#include <QDateTime>
#include <QHash>
#include <QJsonObject>
#include <QList>
#include <QStringList>

#include <optional>

namespace study {

// Whether the BDP has the tables. Throws jet::Error where one of that name is another one.
bool hasActs(jet::Connection& bdp);

struct ActRecord
{
    qint64 id = 0;
    QDateTime stored; // local time, to the second
    Act act;
    Conclusions conclusions;
    QList<RowChange> written;
    QList<qint64> people;   // nind of each; 0: none, or one that was deleted, where the identity is New or Known
    QList<qint64> families; // 0: one that was deleted

    bool operator==(const ActRecord&) const = default;
};

// Adds the act, what was concluded and what was written, and makes the tables where there are none. Returns its number,
// above those of all acts that are there. Throws jet::Error, also where a table of one of the names is another one.
// Precondition: in the transaction of the writer, behind the rows of the plan; one identity for each person, with a
// nind where it is Known alone; a person of an act hangs on one before it.
qint64 addAct(jet::Connection& bdp, const Act& act, const Conclusions& conclusions, const Plan& plan);
std::optional<ActRecord> readAct(jet::Connection& bdp, qint64 id);
void removeAct(jet::Connection& bdp, qint64 id);

// One act of the list: by kind, book, number (as numbers where they are), date. A gap is a line of its own.
struct ActLine
{
    qint64 id = 0; // 0: a gap
    ActKind kind = ActKind::Baptism;
    QString book = {}, folio = {}, number = {};
    PartialDate date = {};
    QString subjects = {}; // "Maria"; "José Dias e Ana Lopes"
    int missing = 0; // of a gap: how many numbers are missing before the next act; number is then the first of them

    bool operator==(const ActLine&) const = default;
};
QList<ActLine> listActs(jet::Connection& bdp);

// The names of all people of each act, as they are written and as they are spelled today, for a search.
QHash<qint64, QStringList> namesByAct(jet::Connection& bdp);

std::optional<ActRecord> lastAct(jet::Connection& bdp); // the one stored last
// The act of that number, whatever its noughts ("7", "07"); or one of that day, of the same names, where either has no
// number: in the same book, and on the same folio and of the same id if both tell it.
std::optional<qint64> actWith(jet::Connection& bdp, ActKind kind, const QString& book, const QString& number);
std::optional<qint64> actLike(jet::Connection& bdp, const Act& act);

// The last act in which a person stands, for the finder: its kind, date and role. Acts in order of date.
struct Appearance
{
    qint64 act = 0;
    ActKind kind = ActKind::Baptism;
    PartialDate date;
    Role role = Role::Mentioned;

    bool operator==(const Appearance&) const = default;
};
QList<Appearance> appearances(jet::Connection& bdp, qint64 nind);

// The act in work. One draft a BDP; it goes when the act is stored or given up.
struct ActDraft
{
    QDateTime saved;
    Act act;
    Conclusions conclusions;

    bool operator==(const ActDraft&) const = default;
};
void saveDraft(jet::Connection& bdp, const Act& act, const Conclusions& conclusions); // a transaction of its own
std::optional<ActDraft> savedDraft(jet::Connection& bdp);
void dropDraft(jet::Connection& bdp);

QJsonObject toJson(const Act& act);
Act actFromJson(const QJsonObject& json);
QJsonObject toJson(const Conclusions& conclusions);
Conclusions conclusionsFromJson(const QJsonObject& json);

} // namespace study
