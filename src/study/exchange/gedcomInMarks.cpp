#include "study/exchange/gedcomInMarks.h"

#include "platform/jet/rows.h"
#include "study/exchange/gedcomInTable.h"
#include "study/exchange/tableList.h"

#include <QCryptographicHash>

namespace study::exchange {

namespace {

void add(QByteArray& bytes, const jet::Rows& row, int column)
{
    switch (row.kind(column)) {
    case jet::Rows::Kind::Null:
        bytes += 'n';
        return;
    case jet::Rows::Kind::Whole:
        bytes += 'i' + QByteArray::number(row.number(column));
        return;
    case jet::Rows::Kind::Real:
        bytes += 'r' + QByteArray::number(row.real(column), 'g', 17);
        return;
    case jet::Rows::Kind::Text:
    case jet::Rows::Kind::Blob:
        bytes += 't' + QByteArray::number(row.bytes(column).size()) + ':';
        bytes += row.bytes(column);
        return;
    }
}

QString whereOf(const OwnedTable& table)
{
    if (!*table.condition) return {};
    return QString(" where %1").arg(table.condition);
}

QByteArray marked(const QByteArray& before, const QByteArray& row)
{
    static constexpr qsizetype length = 12;
    QCryptographicHash hash(QCryptographicHash::Sha1);
    hash.addData(before);
    hash.addData(row);
    return hash.result().toBase64().left(length);
}

} // namespace

const tables::Table& importTable()
{
    static const tables::Table table{
        "estudo_importacao",
        {"id", "quando", "ficheiro", "pessoas", "familias", "desfeita"},
        {"create table estudo_importacao (id integer primary key, quando varchar not null, ficheiro varchar not null, "
         "pessoas integer not null, familias integer not null, desfeita varchar)"}};
    return table;
}

const tables::Table& importedTable()
{
    static const tables::Table table{
        "estudo_importado",
        {"importacao", "tipo", "chave", "marca"},
        {"create table estudo_importado (importacao integer not null, tipo varchar not null, chave varchar not null, "
         "marca varchar not null, primary key (importacao, tipo, chave))"}};
    return table;
}

const std::vector<OwnedTable>& ownedTables()
{
    using namespace imported;
    static const std::vector<OwnedTable> all{
        {"individuo", "nind", person, ""},
        {"assistente", "entidade", person, "tipoacto = 'b'"},
        {"residencia", "numero", person, "tiporesid = 'i'"},
        {"profissoes", "nind", person, ""},
        {"assinatura", "nind", person, ""},
        {"legadosprofanos", "nind", person, ""},
        {"rituaismorte", "nind", person, ""},
        {"passaporte", "nind", person, ""},
        {"familia", "nfamilia", family, ""},
        {"familias", "nfamilia", family, ""},
        {"assistente", "entidade", family, "tipoacto = 'c'"},
        {"residencia", "numero", family, "tiporesid = 'f'"},
        {"paroquia", "codparoquia", parish, ""},
        {"lugar", "codlugar", locality, ""},
        {"sitio", "codsitio", site, ""},
        {"profissao", "codprof", profession, ""},
    };
    return all;
}

QHash<QString, QByteArray> marksOf(const jet::Connection& bdp, const QString& kind,
                                   const QHash<QString, QByteArray>& of)
{
    QHash<QString, QByteArray> marks;
    for (const OwnedTable& table : ownedTables()) {
        if (kind != QLatin1String(table.kind) || of.isEmpty()) continue;
        QStringList columns{table.owner};
        for (const TableColumn& column : tableOf(table.table)->columns)
            columns << column.name;
        const QString where = whereOf(table);
        jet::Rows row(
            bdp,
            jet::NativeSql(QString("select %1 from %2%3 order by rowid").arg(columns.join(", "), table.table, where)));
        while (row.next()) {
            const QString owner = row.text(0);
            if (!of.contains(owner)) continue;
            QByteArray bytes = table.table;
            for (int column = 1; column < columns.size(); ++column)
                add(bytes, row, column);
            QByteArray& mark = marks[owner];
            mark = marked(mark, bytes);
        }
    }
    return marks;
}

} // namespace study::exchange
