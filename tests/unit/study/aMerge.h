// A BDP in which records become one.
#pragma once

#include "study/merged.h"
#include "study/people.h"

#include "study/linkage/decisions.h"
#include "study/linkage/merge.h"

#include <functional>

class AMerge : public People
{
protected:
    QString one(const char* select, const QVariantList& values = {})
    {
        const jet::Recordset row(bdp, jet::NativeSql(select, values));
        return row.eof() ? QString("none") : row[0].toString();
    }
    QString told(const study::linkage::MergePlan& plan) const
    {
        return (plan.sentences + plan.doubles + plan.refusals).join("\n");
    }
    QString refused(const std::function<void()>& merge) const
    {
        try {
            merge();
        } catch (const study::linkage::MergeRefused& refusal) {
            return refusal.text;
        }
        return "merged";
    }
    // Takes it back, and expects the BDP to be what it was.
    void expectWayBack(qint64 id)
    {
        EXPECT_EQ(study::linkage::takeBack(bdp, id), "");
        const auto now = merged::contents(bdp);
        for (const QString& table : now.keys())
            EXPECT_EQ(now[table], before_[table]) << qUtf8Printable(table);
    }
    void note() { before_ = merged::contents(bdp); }

    QMap<QString, QByteArray> before_;
};
