#include "fuzz/engine.h"

#include "platform/jet/dialect.h"
#include "store/dataFile.h"

#include <QtGlobal>

namespace {

void run(sqlite3* db, const QString& statement)
{
    if (sqlite3_exec(db, statement.toUtf8().constData(), nullptr, nullptr, nullptr) != SQLITE_OK)
        qFatal("%s: %s", qPrintable(statement), sqlite3_errmsg(db));
}

sqlite3* made()
{
    sqlite3* db = nullptr;
    sqlite3_open(":memory:", &db);
    jet::installFunctions(db);
    for (DataFile tables(ORV_DATA_DIR "/CriarTab.dat"); !tables.atEnd();)
        if (const QString statement = tables.readLine(); !statement.trimmed().isEmpty())
            run(db, jet::translate(statement, db));
    run(db, "insert into individuo (nind, nome, sexo, datanasc) values (1, 'José', 'm', '1700-01-10'), "
            "(2, 'Maria', 'f', null)");
    run(db, "insert into familia (nfamilia, sfamilia) values (1, '1')");
    run(db, "insert into familias (nfamilia, nind) values (1, 1), (1, 2)");
    sqlite3_progress_handler(
        db, 20000, [](void*) { return 1; }, nullptr);
    return db;
}

} // namespace

sqlite3* Fuzz::engine()
{
    static sqlite3* const db = made();
    return db;
}
