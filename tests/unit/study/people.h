// A BDP with the people of a test, and acts that tell of some of them.
#pragma once

#include "platform/desktop/desktop.h"
#include "platform/jet/connection.h"
#include "platform/jet/recordset.h"
#include "store/modBD.h"
#include "study/people/finder.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

class People : public testing::Test
{
protected:
    // Nothing of a test has to outlive a power cut.
    People()
    {
        Desktop::setProgramFolder(ORV_DATA_DIR);
        jet::createDatabase(path());
        bdp.open(path());
        CriaTabelas(bdp, ORV_DATA_DIR "/CriarTab.dat");
        pragma("pragma synchronous = off");
    }
    ~People() override { Desktop::setProgramFolder({}); }

    QString path() const { return folder.filePath("a.orv"); }

    // A date is year-month-day, or nothing.
    struct Who
    {
        const char* name;
        char sex = 'm';
        const char* birth = "";
        const char* death = "";
        qint64 family = 0;
    };
    qint64 person(const Who& who)
    {
        const auto dated = [](const char* date) { return *date ? QVariant(QString(date)) : QVariant(); };
        run("insert into individuo (nind, nome, sexo, datanasc, DnascFixa, dataobito, dobitofixa, famorig) values (?, "
            "?, "
            "?, ?, 1, ?, 1, ?)",
            {++lastPerson, QString::fromUtf8(who.name), QString(QChar(who.sex)), dated(who.birth), dated(who.death),
             who.family > 0 ? QVariant(who.family) : QVariant()});
        return lastPerson;
    }
    qint64 couple(qint64 husband, qint64 wife, const char* marriage = "")
    {
        run("insert into familia (nfamilia, datacasam) values (?, ?)",
            {++lastFamily, *marriage ? QVariant(QString(marriage)) : QVariant()});
        for (const qint64 member : {husband, wife})
            run("insert into familias (nfamilia, nind) values (?, ?)", {lastFamily, member});
        return lastFamily;
    }
    int run(const char* statement, const QVariantList& values = {})
    {
        return bdp.execute(jet::NativeSql(statement, values));
    }

    void pragma(const char* statement) const;

    // Another program writes.
    void elsewhere(const char* statements) const;

    QTemporaryDir folder;
    jet::Connection bdp;
    qint64 lastPerson = 0;
    qint64 lastFamily = 0;
};
