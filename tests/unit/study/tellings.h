// A small parish, and acts that are told and concluded line by line.
#pragma once

#include "common/emptybdp.h"
#include "study/acts/plan.h"
#include "study/acts/writer.h"

#include <gtest/gtest.h>

#include <QDate>
#include <QMap>

// On which acts are told of the small parish.
inline const QDate actDay(1702, 2, 14);

// An act with what was concluded from it.
struct Telling
{
    study::Act act;
    study::Conclusions conclusions;

    static Telling of(study::ActKind kind, const QDate& day);

    // Each returns the index of the person.
    int isNew(study::Role role, const QString& name, int owner = -1);
    int known(study::Role role, qint64 nind, int owner = -1);
    int kept(study::Role role, const QString& name, int owner = -1);
    int open(study::Role role, const QString& name, int owner = -1);

    void tell(int person, const char* type, const QString& value, const QString& date = {});
    void fact(const char* type, const QString& value);
    void relate(int person, const QString& relation, int other);
    // By its id, or by the rule and the person alone ("morto-antes:1"): as it stands at this moment.
    void overrule(const QString& objection, const QString& reason = "confirmado no livro");

    study::Plan plan() const { return study::planned(cnBDP, act, conclusions); }

private:
    int add(study::Role role, const QString& name, int owner, const study::Identity& identity);
};

// The BDP in work: Santa Maria (030301) with its reference codes, the localities Outeiro and Ribeira, three
// professions.
class SmallParish : public testing::Test
{
protected:
    SmallParish();

    static void run(const QString& sql, const QVariantList& values = {});
    // Rows as the cards would have left them.
    static qint64 person(const QString& name, const QString& sex, const QMap<QString, QVariant>& columns = {});
    static qint64 family(const QList<qint64>& members, const QMap<QString, QVariant>& columns = {});
    static QVariant value(const QString& sql, const QVariantList& values = {});

    // All rows of all tables but those of the acts and of the codes, in their order.
    static QMap<QString, QStringList> cardRows();

private:
    EmptyBdp bdp_;
};

// What a plan would write to a row: "" where it writes none.
const study::RowChange* changeOf(const study::Plan& plan, const QString& table, const QVariant& firstKey);
QList<study::RowChange> changesOf(const study::Plan& plan, const QString& table);
QVariant setTo(const study::Plan& plan, const QString& table, const QVariant& firstKey, const QString& column);
QStringList objectionsOf(const study::Plan& plan); // their rules and people: "morto-antes:1"
