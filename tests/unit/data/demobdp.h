// The demonstration BDP as its tests ask it.
#pragma once

#include "datafolder.h"
#include "demo.h"

#include <gtest/gtest.h>

class DemoBdp : public ::testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        bdp_ = new datafolder::MadeBdp;
        demo::write(demo::demonstration(), bdp_->connection);
    }
    static void TearDownTestSuite()
    {
        delete bdp_;
        bdp_ = nullptr;
    }

    // The first rows of a select that ought to have none.
    static void expectNone(const QString& select)
    {
        const QStringList rows = bdp_->rows(select);
        EXPECT_TRUE(rows.isEmpty()) << qUtf8Printable(select + "\n" + rows.mid(0, 5).join("\n"));
    }

    // The rows of a select that ought to have one; households told by hand have numbers of their own.
    static void expectOne(const QString& select)
    {
        const QStringList rows = bdp_->rows(select);
        EXPECT_EQ(rows.size(), 1) << qUtf8Printable(select + "\n" + rows.mid(0, 5).join("\n"));
    }

    static void expectAtLeast(int count, const QString& select)
    {
        EXPECT_GE(bdp_->rows(select).size(), count) << qUtf8Printable(select);
    }

    // Every place of the table stands in the table of its level.
    static void expectPlaces(const QString& table, const QString& code, const QString& level)
    {
        const QString stray = "select " + code + " from " + table + " where " + level + " = '%1' and " + code +
                              " not in (select %2 from %3)";
        expectNone(stray.arg("P", "codpais", "pais"));
        expectNone(stray.arg("Z", "codzona", "zonapais"));
        expectNone(stray.arg("F", "codparoquia", "paroquia"));
        expectNone(stray.arg("L", "codlugar", "lugar"));
        expectNone(stray.arg("S", "codsitio", "sitio"));
        expectNone("select " + code + " from " + table + " where " + code + " is not null and (" + level +
                   " is null or " + level + " not in ('P', 'Z', 'F', 'L', 'S'))");
    }

    // Every code of the rows is one of the category.
    static void expectCodes(const QString& table, const QString& column, const QString& category,
                            const QString& where = {})
    {
        const QStringList codes =
            bdp_->rows("select codigo from infocomplementar where categoria = '" + category + "'");
        for (const QString& used : bdp_->rows("select distinct " + column + " from " + table + where))
            EXPECT_TRUE(used == "null" || codes.contains(used)) << qUtf8Printable(table + "." + column + " " + used);
    }

    static inline datafolder::MadeBdp* bdp_ = nullptr;
};
