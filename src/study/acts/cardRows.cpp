#include "study/acts/cardRows.h"

#include "platform/jet/error.h"

#include <QHash>

#include <algorithm>

namespace study::cards {

namespace {

bool areColumns(const RowChange::Columns& columns, const QStringList& known)
{
    return std::ranges::all_of(columns, [&](const auto& column) { return known.contains(column.first); });
}

const Table& required(const RowChange& change)
{
    if (isKnown(change)) return *table(change.table);
    throw jet::Error{jet::number::invalidStatement,
                     "Uma linha da tabela \"" + change.table.left(40) + "\" não é das que um acto escreve."};
}

// "nind = ? and nfamilia = ?"
QString equalTo(const QStringList& columns)
{
    return columns.join(" = ? and ") + " = ?";
}

QString insertText(const Table& into)
{
    const QStringList columns = into.key + into.columns;
    const QStringList places(columns.size(), "?");
    return QString("insert into %1 (%2) values (%3)").arg(into.name, columns.join(", "), places.join(", "));
}

// Made whole at once: several threads may ask.
QHash<QString, QString> insertTexts()
{
    QHash<QString, QString> texts;
    for (const Table& into : tables())
        texts.insert(into.name, insertText(into));
    return texts;
}

} // namespace

const QList<Table>& tables()
{
    static const QList<Table> all{
        {"lugar", {"codlugar"}, {"nomelugar", "codparoquia", "prioridade"}},
        {"profissao", {"codprof"}, {"profissao", "obs"}},
        {"individuo", {"nind"}, {"nome",
                                 "tipo",
                                 "sexo",
                                 "famorig",
                                 "titulo",
                                 "alcunha",
                                 "inicioobs",
                                 "fimobs",
                                 "datanasc",
                                 "DnascFixa",
                                 "localnasc",
                                 "tipolocalnasc",
                                 "filiacao",
                                 "idadepai",
                                 "idademae",
                                 "estadocivilpai",
                                 "estadocivilmae",
                                 "dataobito",
                                 "dobitofixa",
                                 "localobito",
                                 "tipolocalobito",
                                 "causa",
                                 "idadeobito",
                                 "estadoobito",
                                 "menor",
                                 "sacramentos",
                                 "classparoquial",
                                 "testam",
                                 "obs",
                                 "primpadrebapt",
                                 "segpadrebapt",
                                 "funcprimpbapt",
                                 "funcsegpbapt",
                                 "primpadreobito",
                                 "funcprimpobito",
                                 "mortalha",
                                 "igreja",
                                 "enterro"}},
        {"familia",
         {"nfamilia"},
         {"sfamilia", "tipocasal", "datacasam", "dcasamfixa", "localcasam", "tipolocalcasam", "inicioobs", "obs",
          "primpadrecasam", "segpadrecasam", "funcprimpcasam", "funcsegpcasam"}},
        {"familias", {"nfamilia", "nind"}, {"idade", "estadocivil", "numcasam"}},
        {"assistente",
         {"tipoacto", "entidade", "dataref", "nind"},
         {"tipoassistente", "estadocivil", "falecidopai", "falecidomae", "parentbapt", "parentnoivo", "parentnoiva",
          "obs"}},
        {"residencia", {"numero", "tiporesid", "dataref"}, {"datafixa", "localresid", "tipolocal", "fonte"}},
        {"profissoes", {"nind", "idprofissao"}, {"dataref", "datafixa", "codprof", "fonte"}},
        {"legadosprofanos", {"nind", "idlegprof"}, {"nindherd", "parentesco", "obs"}},
        {"rituaismorte", {"nind", "idlegpio"}, {"tipolegpio", "tipo", "quantidade", "tipoMoeda", "obs"}},
    };
    return all;
}

const Table* table(const QString& name)
{
    const auto found =
        std::ranges::find_if(tables(), [&](const Table& one) { return name == QLatin1String(one.name); });
    return found == tables().end() ? nullptr : &*found;
}

bool isKnown(const RowChange& change)
{
    const Table* known = table(change.table);
    return known && change.key.size() == known->key.size() && areColumns(change.key, known->key) &&
           areColumns(change.values, known->columns) && areColumns(change.before, known->columns);
}

jet::NativeSql insertion(const RowChange& change)
{
    static const QHash<QString, QString> texts = insertTexts();
    const Table& into = required(change);
    QVariantList values;
    values.reserve(into.key.size() + into.columns.size());
    for (const QString& column : into.key)
        values << valueIn(change.key, column);
    for (const QString& column : into.columns)
        values << valueIn(change.values, column);
    const QString text = texts.value(change.table);
    return jet::NativeSql(text, values);
}

jet::NativeSql alteration(const RowChange& change)
{
    const Table& of = required(change);
    QStringList columns;
    QVariantList values;
    for (const auto& [column, value] : change.values) {
        columns << column + " = ?";
        values << value;
    }
    for (const QString& column : of.key)
        values << valueIn(change.key, column);
    return jet::NativeSql(QString("update %1 set %2 where %3").arg(of.name, columns.join(", "), equalTo(of.key)),
                          values);
}

jet::NativeSql deletion(const RowChange& change, qint64 rowid)
{
    return jet::NativeSql(QString("delete from %1 where rowid = ?").arg(required(change).name), {rowid});
}

jet::NativeSql rowsOf(const RowChange& change)
{
    const Table& of = required(change);
    QVariantList values;
    values.reserve(of.key.size());
    for (const QString& column : of.key)
        values << valueIn(change.key, column);
    return jet::NativeSql(QString("select rowid, * from %1 where %2").arg(of.name, equalTo(of.key)), values);
}

} // namespace study::cards
