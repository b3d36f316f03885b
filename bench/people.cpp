#include "people.h"

#include "shell/beginSession.h"
#include "store/modBD.h"
#include "store/session.h"

#include <QFile>
#include <QTemporaryDir>

#include <sqlite3.h>

#include <cstdio>
#include <cstdlib>

namespace {

// Around the guard of the program, which admits no such statement.
void run(sqlite3* bare, const QByteArray& statement)
{
    char* error = nullptr;
    if (sqlite3_exec(bare, statement, nullptr, nullptr, &error) == SQLITE_OK) return;
    std::fprintf(stderr, "%s: %s\n", error, statement.constData());
    std::abort(); // a measure of nothing
}

QByteArray count(const char* name, int last)
{
    return QByteArray("with recursive ") + name + "(i) as (select 1 union all select i + 1 from " + name +
           " where i < " + QByteArray::number(last) + ") ";
}

// The i-th of a list of words, round and round.
QByteArray pick(const QByteArray& index, const QByteArrayList& words)
{
    QByteArray sql = "case (" + index + ") % " + QByteArray::number(words.size());
    for (int i = 0; i < words.size(); ++i)
        sql += " when " + QByteArray::number(i) + " then '" + words[i] + "'";
    return sql + " end";
}

void fill(sqlite3* bare, int people, int searched)
{
    const QByteArray given = pick("i * 7", {"Maria", "António", "Ângela", "João", "Úrsula", "Manuel", "Ana", "Tomé"});
    const QByteArray family =
        pick("i / 8", {"da Silva", "de São José", "Gonçalves", "Álvares", "da Conceição", "Pires", "de Sousa"});
    const QByteArray every = QByteArray::number(searched > 0 ? people / searched : 1000);
    run(bare, "begin");
    run(bare, "insert into infocomplementar (categoria, codigo, descricao) values ('TipIn', 'T', 'Por definir'), "
              "('Filia', '1', 'Legítima'), ('SitFa', '1', 'Legítima'), ('TipFa', '7', 'Outras'), "
              "('EstCi', '1', 'Solteiro')");
    run(bare, count("n", people) +
                  "insert into individuo (nind, nome, tipo, sexo, famorig, datanasc, DnascFixa, filiacao, obs) "
                  "select i, " +
                  given + " || case when i % " + every + " = 0 then ' da Assunção ' else ' ' end || " + family +
                  " || ' ' || (i * 7919 % 10007), 'T', case i % 2 when 1 then 'm' else 'f' end, nullif(i / 4, 0), "
                  "date('1650-01-01', '+' || (i * 7919 % 50000) || ' days'), 1, 1, 'Sem notas' from n");
    run(bare,
        count("n", people / 4) +
            "insert into familia (nfamilia, sfamilia, tipocasal, datacasam, dcasamfixa, inicioobs) select i, '1', 7, "
            "date('1670-01-01', '+' || (i * 7919 % 47000) || ' days'), 1, '1670-01-01' from n");
    for (const char* spouse : {"2 * nfamilia - 1", "2 * nfamilia"})
        run(bare, QByteArray("insert into familias (nfamilia, nind, idade, estadocivil, numcasam) select nfamilia, ") +
                      spouse + ", 25, 1, 1 from familia");
    run(bare, "commit");
}

void make(const QString& path, int people, int searched)
{
    jet::createDatabase(path, [](const QString& file) {
        jet::Connection bdp;
        bdp.open(file);
        CriaTabelas(bdp, ORV_DATA_DIR "/CriarTab.dat");
    });
    sqlite3* bare = nullptr;
    sqlite3_open(path.toUtf8(), &bare);
    fill(bare, people, searched);
    sqlite3_close(bare);
}

} // namespace

People::People(int people, int searched)
{
    static const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("%1-%2.orv").arg(people).arg(searched));
    if (!QFile::exists(path)) make(path, people, searched);
    cnBDP.open("Data Source=" + path);
    StrLigacao = "Data Source=" + path;
    sqlite3_open(path.toUtf8(), &bare_);
}

People::~People()
{
    sqlite3_close(bare_);
    cnBDP.close();
    beginSession();
}
