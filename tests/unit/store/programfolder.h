// A program's folder, and a place for a BDP, of a test's own.
#pragma once

#include "jet/testbdp.h"
#include "platform/desktop/desktop.h"
#include "platform/jet/recordset.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

class ProgramFolder : public testing::Test
{
protected:
    ProgramFolder() { Desktop::setProgramFolder(folder.path()); }
    ~ProgramFolder() override { Desktop::setProgramFolder({}); }

    QString path(const QString& name) const { return folder.filePath(name); }

    void write(const QString& name, const QByteArray& bytes) const
    {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    // Opens a new, empty BDP.
    void create(jet::Connection& bdp, const QString& name = "nova.orv") const
    {
        jet::createDatabase(path(name));
        bdp.open(path(name));
    }

    // The first value of the first row.
    static QVariant value(jet::Connection& bdp, const QString& select)
    {
        const jet::Recordset rows(bdp, select);
        return rows.eof() ? QVariant() : rows[0];
    }

    QTemporaryDir folder;
};

using jet::test::errorOf;
