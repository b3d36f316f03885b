// The tables of the index.
#include "platform/jet/transaction.h"
#include "study/people/index_p.h"

namespace study {

namespace {

struct IndexTable
{
    const char* name;
    QStringList columns;
    jet::NativeSql question;
    void (*create)(jet::Connection& bdp);
};

const QList<IndexTable>& tables()
{
    static const QList<IndexTable> all{
        {"estudo_nome",
         {"id"},
         jet::NativeSql("select name from pragma_table_info('estudo_nome')"),
         [](jet::Connection& bdp) {
             bdp.execute(jet::NativeSql("create table estudo_nome (id integer primary key)"));
         }},
        {"estudo_nome_individuo",
         {"registo", "nind", "nome", "sexo", "datanasc", "dataobito", "famorig"},
         jet::NativeSql("select name from pragma_table_info('estudo_nome_individuo')"),
         [](jet::Connection& bdp) {
             bdp.execute(
                 jet::NativeSql("create table estudo_nome_individuo (registo integer primary key, nind numeric, "
                                "nome text, sexo text, datanasc text, dataobito text, famorig numeric)"));
         }},
        {"estudo_nome_palavra",
         {"palavra", "chave"},
         jet::NativeSql("select name from pragma_table_info('estudo_nome_palavra')"),
         [](jet::Connection& bdp) {
             bdp.execute(
                 jet::NativeSql("create table estudo_nome_palavra (palavra text not null, chave text not null)"));
             bdp.execute(
                 jet::NativeSql("create index estudo_nome_palavra_palavra on estudo_nome_palavra (palavra, chave)"));
         }},
        {"estudo_nome_estado",
         {"versao", "marca"},
         jet::NativeSql("select name from pragma_table_info('estudo_nome_estado')"),
         [](jet::Connection& bdp) {
             bdp.execute(jet::NativeSql("create table estudo_nome_estado (versao text, marca integer)"));
         }},
    };
    return all;
}

// Whether the BDP has it.
bool isThere(jet::Connection& bdp, const IndexTable& table)
{
    QStringList columns;
    for (jet::Rows column(bdp, table.question); column.next();)
        columns << column.text(0).toLower();
    if (columns.isEmpty()) return false;
    if (columns == table.columns && bdp.tables().contains(table.name, Qt::CaseInsensitive)) return true;
    throw jet::Error{
        jet::number::invalidStatement,
        QString("A tabela \"%1\" desta BDP não é a do índice de nomes: foi feita por outro programa. Nada foi "
                "alterado.")
            .arg(table.name)};
}

} // namespace

bool NameIndex::Private::makeTables()
{
    QList<const IndexTable*> missing;
    for (const IndexTable& table : tables())
        if (!isThere(bdp, table)) missing << &table;
    if (missing.isEmpty()) return false;
    jet::Transaction transaction(bdp);
    for (const IndexTable* table : missing)
        table->create(bdp);
    transaction.commit();
    return true;
}

} // namespace study
