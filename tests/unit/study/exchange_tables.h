// A folder with a BDP, the tables that are made of it, and the BDP that is made of those.
#pragma once

#include "platform/jet/connection.h"
#include "study/exchange/tables.h"

#include <gtest/gtest.h>

#include <QJsonObject>
#include <QMap>
#include <QStringList>
#include <QTemporaryDir>

#include <random>

class ExchangedTables : public testing::Test
{
protected:
    // An empty BDP, "a.orv", with the reference data of the program.
    ExchangedTables();
    ~ExchangedTables() override;

    void run(const char* statement, const QVariantList& values = {});
    // What no statement of the engine's may hold: a blob, half a number in a column of whole ones.
    void runRaw(const char* statements) const;

    using Options = study::exchange::TablesOptions;
    study::exchange::TablesWritten write(const Options& options = {});
    study::exchange::TablesRead read(bool rehearse = false);
    // Writes and reads them, and compares every row of every table, its place, and the schema.
    void expectTheSameBdp(const Options& options = {});

    QString tables() const { return folder.filePath("tabelas"); }
    QString made() const { return folder.filePath("b.orv"); }
    QByteArray file(const QString& name) const; // of the tables
    void put(const QString& name, const QByteArray& bytes) const;
    QJsonObject package() const;
    QJsonObject resource(const QString& name) const;

    QTemporaryDir folder;
    jet::Connection bdp;
};

namespace exchanged {

// Every value with its kind and its place, and the statements of the schema; nothing of the index of the names.
QStringList everything(const QString& bdp);

// Every letter of code page 1252, and some that it doesn't have.
QString letters();

// A name, or a note, as somebody may have typed or pasted it.
QString anyText(std::mt19937& random);

// The cells of a file by RFC 4180, the headings first. Two quotes with nothing between them are "\"\"", nothing is "".
QList<QStringList> cells(const QByteArray& csv, char separator = ',');

// What isn't as datapackage.json tells it, of all files of the folder: types, formats, required and unique cells,
// words, keys, foreign keys, bytes and hashes, names and paths; and what of it is against the published rules
// (packageRules.h). [] for nothing.
QStringList faultsOf(const QString& folder);
// The same of the tables of a report, which have no keys and one language.
QStringList faultsOfAny(const QString& folder);

} // namespace exchanged
