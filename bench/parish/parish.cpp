#include "parish/parish.h"

#include "parish/population.h"
#include "parish/registers.h"
#include "platform/desktop/desktop.h"
#include "random.h"
#include "store/modBD.h"

#include <sqlite3.h>

namespace bench {

namespace {

void run(sqlite3* database, const QByteArray& statements)
{
    char* error = nullptr;
    if (sqlite3_exec(database, statements.constData(), nullptr, nullptr, &error) != SQLITE_OK)
        qFatal("%s: %s", error, statements.constData());
}

void writeParish(sqlite3* database)
{
    run(database, QByteArray("insert or ignore into paroquia (codparoquia, nomeparoquia, codconcelho) values ('") +
                      parishCode + "', 'São Mamede', '0301')");
    run(database, QByteArray("update paroquia set prioridade = 2 where codparoquia = '") + parishCode + "'");
    run(database,
        QByteArray("insert into infopar (cod, nome, Pais) values ('") + parishCode + "', 'São Mamede', 'PT')");
    run(database, "insert or ignore into infocomplementar (categoria, codigo, descricao) values ('TipIn', 'T', 'Por "
                  "definir'), ('TipFa', '7', 'Outras'), ('SitFa', '1', 'Legítima')");
    const char* words[]{"Outeiro", "Fonte", "Ribeira", "Monte", "Cruz", "Eira", "Souto", "Carvalho", "Paço", "Vinha"};
    Writer places(database, "lugar", "codlugar, nomelugar, codparoquia, prioridade");
    for (int i = 1; i <= localities; ++i)
        places.write({localityCode(i),
                      QByteArray(words[i % 10]) + " de " + words[i / 10 % 10] + ' ' + QByteArray::number(i),
                      QByteArray(parishCode), i <= 12 ? 1 : 0});
}

} // namespace

QByteArray localityCode(int locality)
{
    return parishCode + QByteArray::number(1000 + locality).mid(1);
}

void makeParish(const QString& path, int people, std::uint32_t seed)
{
    Desktop::setProgramFolder(ORV_DATA_DIR);
    EscreveBDP(path);
    sqlite3* database = nullptr;
    if (sqlite3_open(path.toUtf8().constData(), &database) != SQLITE_OK) qFatal("%s", sqlite3_errmsg(database));
    run(database, "pragma journal_mode = off; pragma synchronous = off; pragma cache_size = -500000; begin");
    run(database, QByteArray("delete from lugar where codparoquia = '") + parishCode + "'; delete from infopar");
    writeParish(database);
    {
        demo::Random random(seed);
        Population population(people, random);
        Registers registers(database, random);
        while (population.nextYear())
            registers.write(population);
    }
    run(database, "commit");
    sqlite3_close(database);
}

} // namespace bench
