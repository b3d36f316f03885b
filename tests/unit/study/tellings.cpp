#include "study/tellings.h"

#include "platform/jet/jsonrow.h"
#include "platform/jet/recordset.h"
#include "store/modBD.h"
#include "study/acts/ledger.h"

#include <QFile>
#include <QJsonDocument>
#include <QRegularExpression>

using namespace study;

Telling Telling::of(ActKind kind, const QDate& day)
{
    return {.act = {.kind = kind, .date = partialDate(day), .book = "1", .folio = "3v", .number = "7"},
            .conclusions = {}};
}

int Telling::add(Role role, const QString& name, int owner, const Identity& identity)
{
    act.people << ActPerson{.role = role, .of = owner, .name = {.value = name}};
    conclusions.people << identity;
    return int(act.people.size()) - 1;
}

int Telling::isNew(Role role, const QString& name, int owner)
{
    return add(role, name, owner, {.kind = Identity::Kind::New});
}

int Telling::known(Role role, qint64 nind, int owner)
{
    return add(role, "como no registo", owner, {.kind = Identity::Kind::Known, .nind = nind});
}

int Telling::kept(Role role, const QString& name, int owner)
{
    return add(role, name, owner, {.kind = Identity::Kind::Kept});
}

int Telling::open(Role role, const QString& name, int owner)
{
    return add(role, name, owner, {});
}

void Telling::tell(int person, const char* type, const QString& value, const QString& date)
{
    act.people[person].attributes << Attribute{.type = type, .told = {.value = value}, .date = date};
}

void Telling::fact(const char* type, const QString& value)
{
    act.facts << Attribute{.type = type, .told = {.value = value}};
}

void Telling::relate(int person, const QString& relation, int other)
{
    act.relations << Relation{.type = "parentesco", .told = {.value = relation}, .person = person, .other = other};
}

// Without the mark of what it says.
static QString ruleOf(const Objection& objection)
{
    static const QRegularExpression mark("/[0-9a-f]+");
    return QString(objection.id).remove(mark);
}

void Telling::overrule(const QString& objection, const QString& reason)
{
    QString id = objection;
    for (const Objection& one : plan().objections)
        if (ruleOf(one) == objection) id = one.id;
    conclusions.overruled.insert(id, reason);
}

// The codes as the program ships them; of its places and professions the few that the tests name.
SmallParish::SmallParish()
{
    CriaTabelas(cnBDP, ORV_DATA_DIR "/CriarTab.dat");
    jet::Connection::Insert code(cnBDP, "infocomplementar", {"categoria", "codigo", "descricao"});
    QFile file(ORV_DATA_DIR "/dados.dat");
    if (!file.open(QIODevice::ReadOnly)) throw std::runtime_error("dados.dat");
    file.readLine();
    while (!file.atEnd())
        code.run(QString::fromLatin1(file.readLine()).trimmed().split(';'));
    run("insert into paroquia (codparoquia, nomeparoquia) values ('030301', 'Santa Maria')");
    run("insert into infopar (cod, nome, pais) values ('030301', 'Santa Maria', 'PT')");
    run("insert into lugar (codlugar, nomelugar, codparoquia) values ('03030101', '*Outeiro', '030301')");
    run("insert into lugar (codlugar, nomelugar, codparoquia) values ('03030102', '*Ribeira', '030301')");
    run("insert into profissao (codprof, profissao) values (1, 'Abade')");
    run("insert into profissao (codprof, profissao) values (2, 'Moleiro')");
    run("insert into profissao (codprof, profissao) values (3, 'Lavrador')");
}

void SmallParish::run(const QString& sql, const QVariantList& values)
{
    cnBDP.execute(jet::NativeSql(sql, values));
}

QVariant SmallParish::value(const QString& sql, const QVariantList& values)
{
    const jet::Recordset row(cnBDP, jet::NativeSql(sql, values));
    return row.eof() ? QVariant() : row[0];
}

static void insertRow(const QString& table, const QMap<QString, QVariant>& columns)
{
    const QStringList places(columns.size(), "?");
    cnBDP.execute(jet::NativeSql("insert into " + table + " (" + QStringList(columns.keys()).join(", ") + ") values (" +
                                     places.join(", ") + ')',
                                 columns.values()));
}

qint64 SmallParish::person(const QString& name, const QString& sex, const QMap<QString, QVariant>& columns)
{
    const qint64 nind = value("select max(nind) from individuo").toLongLong() + 1;
    QMap<QString, QVariant> all{{"nind", nind}, {"nome", name},       {"sexo", sex},
                                {"tipo", "T"},  {"DnascFixa", false}, {"dobitofixa", false}};
    all.insert(columns);
    insertRow("individuo", all);
    return nind;
}

qint64 SmallParish::family(const QList<qint64>& members, const QMap<QString, QVariant>& columns)
{
    const qint64 nfamilia = value("select max(nfamilia) from familia").toLongLong() + 1;
    QMap<QString, QVariant> all{{"nfamilia", nfamilia}, {"sfamilia", "1"}, {"tipocasal", 7}, {"dcasamfixa", false}};
    all.insert(columns);
    insertRow("familia", all);
    for (const qint64 nind : members)
        insertRow("familias", {{"nfamilia", nfamilia}, {"nind", nind}});
    return nfamilia;
}

QMap<QString, QStringList> SmallParish::cardRows()
{
    QMap<QString, QStringList> all;
    for (const QString& table : cnBDP.tables()) {
        if (table.startsWith("estudo_") || table == "infocomplementar") continue;
        QStringList& rows = all[table];
        for (const QJsonObject& row :
             jet::jsonRows(cnBDP, jet::NativeSql("select * from " + table + " order by rowid")))
            rows << QString::fromUtf8(QJsonDocument(row).toJson(QJsonDocument::Compact));
    }
    return all;
}

const RowChange* changeOf(const Plan& plan, const QString& table, const QVariant& firstKey)
{
    for (const RowChange& change : plan.rows)
        if (change.table == table && sameValue(change.key.first().second, firstKey)) return &change;
    return nullptr;
}

QList<RowChange> changesOf(const Plan& plan, const QString& table)
{
    QList<RowChange> found;
    for (const RowChange& change : plan.rows)
        if (change.table == table) found << change;
    return found;
}

QVariant setTo(const Plan& plan, const QString& table, const QVariant& firstKey, const QString& column)
{
    if (const RowChange* change = changeOf(plan, table, firstKey))
        for (const auto& [name, value] : change->values)
            if (name == column) return value;
    return {};
}

QStringList objectionsOf(const Plan& plan)
{
    QStringList ids;
    for (const Objection& objection : plan.objections)
        ids << ruleOf(objection);
    return ids;
}
