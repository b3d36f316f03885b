#include "study/acts/register_tables.h"

#include "platform/jet/jsonrow.h"

#include <QJsonObject>
#include <QMap>

#include <algorithm>
#include <array>
#include <utility>

namespace study::tables {

namespace {

Table act()
{
    return {
        "estudo_acto",
        {"id",           "quando", "tipo",       "ano",         "mes",
         "dia",          "cerca",  "data_texto", "data",        "livro",
         "folio",        "numero", "lugar",      "lugar_fonte", "lugar_comentario",
         "lugar_duvida", "local",  "nivel",      "observacoes", "id_transcricao"},
        {"create table estudo_acto (id integer primary key, quando varchar not null, tipo varchar not null, ano "
         "integer not null, mes integer not null, dia integer not null, cerca integer not null, data_texto varchar, "
         "data date, livro varchar not null, folio varchar, numero varchar not null, lugar varchar, lugar_fonte "
         "varchar, lugar_comentario varchar, lugar_duvida integer not null, local varchar, nivel varchar, "
         "observacoes text, id_transcricao varchar)",
         "create index estudo_acto_numero on estudo_acto (tipo, livro, numero)",
         "create index estudo_acto_data on estudo_acto (ano, mes, dia)"}};
}

Table person()
{
    return {"estudo_pessoa",
            {"acto", "ordem", "papel", "de", "ordinal", "nome", "nome_fonte", "nome_comentario", "nome_duvida",
             "nome_actual", "sexo", "observacoes", "id_transcricao", "identidade", "nind", "razao", "nind_eliminado",
             "eliminacao"},
            {"create table estudo_pessoa (acto integer not null, ordem integer not null, papel varchar not null, de "
             "integer, ordinal integer not null, nome varchar, nome_fonte varchar, nome_comentario varchar, "
             "nome_duvida integer not null, nome_actual varchar, sexo varchar, observacoes text, id_transcricao "
             "varchar, identidade varchar not null, nind double, razao varchar, nind_eliminado double, eliminacao "
             "integer, primary key (acto, ordem))",
             "create index estudo_pessoa_nind on estudo_pessoa (nind)",
             "create index estudo_pessoa_eliminacao on estudo_pessoa (eliminacao) where eliminacao is not null"}};
}

Table sameAs()
{
    return {"estudo_mesmo",
            {"acto", "pessoa", "ordem", "registo"},
            {"create table estudo_mesmo (acto integer not null, pessoa integer not null, ordem integer not null, "
             "registo varchar, primary key (acto, pessoa, ordem))"}};
}

Table attribute()
{
    return {"estudo_atributo",
            {"acto", "ordem", "pessoa", "tipo", "valor", "fonte", "comentario", "duvida", "data", "local", "nivel",
             "codprof"},
            {"create table estudo_atributo (acto integer not null, ordem integer not null, pessoa integer, tipo "
             "varchar, valor text, fonte text, comentario text, duvida integer not null, data varchar, local varchar, "
             "nivel varchar, codprof integer, primary key (acto, ordem))",
             "create index estudo_atributo_tipo on estudo_atributo (tipo)"}};
}

Table relation()
{
    return {"estudo_relacao",
            {"acto", "ordem", "tipo", "valor", "fonte", "comentario", "duvida", "pessoa", "outra", "outra_nome",
             "outra_id"},
            {"create table estudo_relacao (acto integer not null, ordem integer not null, tipo varchar, valor text, "
             "fonte text, comentario text, duvida integer not null, pessoa integer, outra integer, outra_nome varchar, "
             "outra_id varchar, primary key (acto, ordem))"}};
}

Table family()
{
    return {"estudo_familia",
            {"acto", "ordem", "nfamilia", "nfamilia_eliminada", "eliminacao"},
            {"create table estudo_familia (acto integer not null, ordem integer not null, nfamilia double, "
             "nfamilia_eliminada double, eliminacao integer, primary key (acto, ordem))",
             "create index estudo_familia_nfamilia on estudo_familia (nfamilia)",
             "create index estudo_familia_eliminacao on estudo_familia (eliminacao) where eliminacao is not null"}};
}

Table meaning()
{
    return {
        "estudo_sentido",
        {"acto", "tipo", "texto", "codigo", "nivel", "nome", "paroquia", "codprof"},
        {"create table estudo_sentido (acto integer not null, tipo varchar not null, texto varchar not null, codigo "
         "varchar, nivel varchar, nome varchar, paroquia varchar, codprof integer, primary key (acto, tipo, "
         "texto))"}};
}

Table overruled()
{
    return {"estudo_ressalva",
            {"acto", "objeccao", "razao", "quando"},
            {"create table estudo_ressalva (acto integer not null, objeccao varchar not null, razao varchar, quando "
             "varchar not null, primary key (acto, objeccao))"}};
}

Table written()
{
    return {
        "estudo_escrita",
        {"acto", "ordem", "tabela", "nind", "nfamilia", "chave", "valores", "antes"},
        {"create table estudo_escrita (acto integer not null, ordem integer not null, tabela varchar not null, nind "
         "double, nfamilia double, chave text not null, valores text not null, antes text, primary key (acto, "
         "ordem))",
         "create index estudo_escrita_nind on estudo_escrita (nind)",
         "create index estudo_escrita_nfamilia on estudo_escrita (nfamilia)"}};
}

// As the schema keeps the statement that makes it: with the first words in capitals.
QString kept(const Table& table)
{
    const QString words = "CREATE TABLE ";
    return words + table.statements.first().mid(words.size());
}

// Whether all are there as they were made. It is asked for each act of an import, and answered in a hundredth of the
// time that a look at each takes.
bool asMade(jet::Connection& bdp, const QList<Table>& wanted)
{
    QString select = "select count(*) as quantas from sqlite_master where 1 = 0";
    QVariantList values;
    values.reserve(2 * wanted.size());
    for (const Table& table : wanted) {
        select += " or (name = ? and sql = ?)";
        values << QString(table.name) << kept(table);
    }
    return jet::jsonRows(bdp, jet::NativeSql(select, values)).first()["quantas"].toInteger() == wanted.size();
}

// What the schema has under names that begin as ours do.
QMap<QString, QJsonObject> entries(jet::Connection& bdp)
{
    QMap<QString, QJsonObject> all;
    for (const QJsonObject& entry :
         jet::jsonRows(bdp, jet::NativeSql("select lower(name) as nome, type from sqlite_master where "
                                           "lower(substr(name, 1, 7)) = 'estudo_' and type <> 'index'")))
        all.insert(entry["nome"].toString(), entry);
    return all;
}

bool hasColumns(jet::Connection& bdp, const Table& table)
{
    QStringList columns;
    for (const QJsonObject& column : jet::jsonRows(
             bdp, jet::NativeSql("select lower(name) as nome from pragma_table_info(?)", {QString(table.name)})))
        columns << column["nome"].toString();
    return std::ranges::all_of(table.columns, [&](const QString& each) { return columns.contains(each); });
}

// Whether the table is there, by what the schema has under its name.
bool has(jet::Connection& bdp, const Table& table, const QJsonObject& entry)
{
    if (entry.isEmpty()) return false;
    if (entry["type"].toString() == "table" && hasColumns(bdp, table)) return true;
    throw jet::Error{jet::number::invalidStatement,
                     QString("A tabela \"%1\" desta BDP não é a dos actos transcritos: foi feita por outro programa. "
                             "Nada foi alterado.")
                         .arg(table.name)};
}

template <class Value, size_t count>
using Words = std::array<std::pair<Value, const char*>, count>;

constexpr Words<ActKind, 3> kinds{
    {{ActKind::Baptism, "baptismo"}, {ActKind::Marriage, "casamento"}, {ActKind::Burial, "obito"}}};

constexpr Words<Role, 14> roles{{{Role::Mentioned, "referido"},
                                 {Role::Child, "baptizado"},
                                 {Role::Groom, "noivo"},
                                 {Role::Bride, "noiva"},
                                 {Role::Deceased, "defunto"},
                                 {Role::Father, "pai"},
                                 {Role::Mother, "mae"},
                                 {Role::Spouse, "conjuge"},
                                 {Role::EarlierSpouse, "conjuge anterior"},
                                 {Role::Proxy, "procurador"},
                                 {Role::Godfather, "padrinho"},
                                 {Role::Godmother, "madrinha"},
                                 {Role::Witness, "testemunha"},
                                 {Role::Celebrant, "celebrante"}}};

constexpr Words<Identity::Kind, 4> identities{{{Identity::Kind::Open, "aberta"},
                                               {Identity::Kind::New, "nova"},
                                               {Identity::Kind::Known, "conhecida"},
                                               {Identity::Kind::Kept, "so no acto"}}};

constexpr Words<Sex, 3> sexes{{{Sex::Unknown, "?"}, {Sex::Male, "m"}, {Sex::Female, "f"}}};

template <class Value, size_t count>
QString wordIn(const Words<Value, count>& words, Value value)
{
    return QString(std::ranges::find(words, value, &std::pair<Value, const char*>::first)->second);
}

template <class Value, size_t count>
Value valueIn(const Words<Value, count>& words, const QString& text)
{
    const auto same = std::ranges::find_if(words, [&](const auto& each) { return text == QLatin1String(each.second); });
    return (same == words.end() ? words.begin() : same)->first;
}

} // namespace

const QList<Table>& ofActs()
{
    static const QList<Table> all{act(),    person(),  sameAs(),    attribute(), relation(),
                                  family(), meaning(), overruled(), written()};
    return all;
}

const Table& ofDraft()
{
    static const Table draft{
        "estudo_rascunho",
        {"id", "quando", "acto", "conclusoes"},
        {"create table estudo_rascunho (id integer primary key, quando varchar not null, acto text "
         "not null, conclusoes text not null)"}};
    return draft;
}

bool exist(jet::Connection& bdp, const QList<Table>& wanted)
{
    if (asMade(bdp, wanted)) return true;
    const QMap<QString, QJsonObject> there = entries(bdp);
    const auto missing =
        std::ranges::count_if(wanted, [&](const Table& table) { return !has(bdp, table, there.value(table.name)); });
    return missing == 0;
}

void make(jet::Connection& bdp, const QList<Table>& wanted)
{
    if (asMade(bdp, wanted)) return;
    const QMap<QString, QJsonObject> there = entries(bdp);
    QList<const Table*> missing;
    for (const Table& table : wanted)
        if (!has(bdp, table, there.value(table.name))) missing << &table;
    for (const Table* table : missing)
        for (const QString& statement : table->statements)
            bdp.execute(jet::NativeSql(statement));
}

QString word(ActKind kind)
{
    return wordIn(kinds, kind);
}

ActKind kindOf(const QString& word)
{
    return valueIn(kinds, word);
}

QString word(Role role)
{
    return wordIn(roles, role);
}

Role roleOf(const QString& word)
{
    return valueIn(roles, word);
}

QString word(Identity::Kind kind)
{
    return wordIn(identities, kind);
}

Identity::Kind identityOf(const QString& word)
{
    return valueIn(identities, word);
}

QString word(Sex sex)
{
    return wordIn(sexes, sex);
}

std::optional<Sex> sexTold(const QString& word)
{
    if (word.isEmpty()) return {};
    return valueIn(sexes, word);
}

} // namespace study::tables
