#include "study/linkage/moving.h"

#include "common/datas.h"
#include "common/numeros.h"
#include "study/linkage/merge_p.h"

#include <QDate>

#include <algorithm>

namespace study::linkage {

namespace {

// What names a row for the cards, where that isn't a column that counts.
QStringList cardKey(const QString& table)
{
    if (table == "familias") return {"nfamilia", "nind"};
    if (table == "residencia") return {"numero", "tiporesid", "dataref"};
    if (table == "assistente") return {"tipoacto", "entidade", "dataref", "nind"};
    if (table == "passaporte") return {"nind", "npass"};
    return {};
}

struct Counted
{
    const char* table;
    const char* column;
    const char* one;
    const char* several;
};

// clang-format off
constexpr Counted titles[]{
    {"familias", "nind", "família em que é cônjuge", "famílias em que é cônjuge"},
    {"familias", "nfamilia", "cônjuge", "cônjuges"},
    {"assistente", "nind", "acto a que assistiu", "actos a que assistiu"},
    {"assistente", "entidade", "interveniente", "intervenientes"},
    {"residencia", "numero", "residência", "residências"},
    {"residencia", "localresid", "residência", "residências"},
    {"profissoes", "nind", "profissão", "profissões"},
    {"profissoes", "codprof", "profissão de indivíduos", "profissões de indivíduos"},
    {"assinatura", "nind", "assinatura", "assinaturas"},
    {"legadosprofanos", "nind", "legado", "legados"},
    {"legadosprofanos", "nindherd", "herança", "heranças"},
    {"legadosprofanos", "parentesco", "legado", "legados"},
    {"rituaismorte", "nind", "sufrágio", "sufrágios"},
    {"rituaismorte", "tipo", "sufrágio", "sufrágios"},
    {"passaporte", "nind", "passaporte", "passaportes"},
    {"passaporte", "localdestino", "passaporte", "passaportes"},
    {"individuo", "famorig", "filho", "filhos"},
    {"individuo", "testamenteiro", "testamento de que é testamenteiro", "testamentos de que é testamenteiro"},
    {"individuo", "primpadrebapt", "baptismo em que é padre", "baptismos em que é padre"},
    {"individuo", "segpadrebapt", "baptismo em que é segundo padre", "baptismos em que é segundo padre"},
    {"individuo", "primpadreobito", "óbito em que é padre", "óbitos em que é padre"},
    {"familia", "primpadrecasam", "casamento em que é padre", "casamentos em que é padre"},
    {"familia", "segpadrecasam", "casamento em que é segundo padre", "casamentos em que é segundo padre"},
    {"individuo", "localnasc", "nascimento", "nascimentos"},
    {"individuo", "localobito", "óbito", "óbitos"},
    {"familia", "localcasam", "casamento", "casamentos"},
    {"estudo_pessoa", "nind", "pessoa dos actos", "pessoas dos actos"},
    {"estudo_familia", "nfamilia", "família dos actos", "famílias dos actos"},
};
// clang-format on

QString counted(const Reference& reference, int rows)
{
    const auto* const title = std::ranges::find_if(titles, [&](const Counted& one) {
        return QLatin1String(one.table) == QLatin1String(reference.table) &&
               QLatin1String(one.column) == QLatin1String(reference.column);
    });
    const QString verb = rows == 1 ? " passa para " : " passam para ";
    if (title != std::end(titles))
        return QString::number(rows) + " " + QString::fromUtf8(rows == 1 ? title->one : title->several) + verb;
    const bool ofActs = QLatin1String(reference.table).startsWith(QLatin1String("estudo_"));
    return QString::number(rows) + (rows == 1 ? " linha" : " linhas") + (ofActs ? " dos actos" : " das fichas") + verb;
}

QString dateIn(const QJsonObject& row)
{
    const QDate date = QDate::fromString(row["dataref"].toString(), Qt::ISODate);
    return date.isValid() ? " de " + textoDaData(date) : QString();
}

QString numberIn(const QJsonValue& value)
{
    return textoDoNumero(value.toVariant());
}

} // namespace

QJsonValue asIn(const QJsonValue& before, const QJsonValue& value)
{
    if (before.isDouble() == value.isDouble()) return value;
    return before.isDouble() ? QJsonValue(value.toVariant().toDouble()) : QJsonValue(numberIn(value));
}

void Moving::moveAll(const Named& from, const QJsonValue& to)
{
    counts_.clear();
    for (const Reference& reference : references()) {
        const QList<Row> rows = rowsNaming(recording, reference, from);
        if (rows.isEmpty()) continue;
        counts_ << Count{&reference, int(rows.size())};
        const bool meetsOwn = *reference.number || cardKey(reference.table).contains(reference.column);
        own_ = meetsOwn ? recording.rows(reference.table, {{reference.column, to}}) : QList<Row>();
        for (const Row& row : rows)
            move(reference, row, to);
    }
}

void Moving::move(const Reference& reference, const Row& row, const QJsonValue& to)
{
    const QString table = reference.table, column = reference.column, number = reference.number;
    QJsonObject columns{{column, asIn(row.values[column], to)}};
    if (!number.isEmpty() && isDouble(reference, row)) return;
    if (!number.isEmpty() && reference.target == Target::Person) {
        double last = 0;
        for (const Row& one : recording.rows(table, columns))
            last = std::max(last, one.values[number].toDouble());
        columns.insert(number, last + 1);
    }
    if (const QStringList key = cardKey(table); key.contains(column)) {
        QJsonObject then;
        for (const QString& part : key)
            then.insert(part, part == column ? columns[column] : row.values[part]);
        for (const Row& there : recording.rows(table, then))
            if (own_.removeIf([&](const Row& own) { return own.place == there.place; }) > 0)
                return absorb(reference, there, row, then);
    }
    recording.set(table, row.place, columns);
    if (table == "assistente") tellOfTwice(row, columns);
}

// A witness of both acts stays twice in the one where they have two dates.
void Moving::tellOfTwice(const Row& row, const QJsonObject& columns)
{
    QJsonObject act;
    for (const char* part : {"tipoacto", "entidade", "nind"})
        act.insert(part, columns.contains(part) ? columns[part] : row.values[part]);
    for (const Row& there : recording.rows("assistente", act))
        if (there.place != row.place)
            twice << "O nº " + numberIn(act["nind"]) + " fica duas vezes no acto: uma linha" + dateIn(there.values) +
                         " e outra" + dateIn(row.values) + ".";
}

// The row goes where the other one has all that it tells. Each row of the other one stands for one: who has two that
// are the same keeps both.
bool Moving::isDouble(const Reference& reference, const Row& row)
{
    const QString column = reference.column, number = reference.number;
    const auto same = std::ranges::find_if(own_, [&](const Row& one) {
        QJsonObject there = one.values;
        there.insert(column, row.values[column]);
        there.insert(number, row.values[number]);
        return there == row.values;
    });
    if (same == own_.end()) return false;
    own_.erase(same);
    recording.remove(reference.table, row.place);
    doubles << counted(reference, 1).section(' ', 1, 1) + dateIn(row.values) +
                   ": está igual nas duas fichas, fica uma.";
    return true;
}

namespace {

Side turned(Side side)
{
    return side == Side::Kept ? Side::Other : Side::Kept;
}

// By which the choices name a row: without what the merge itself alters, as it is the same whichever of the two stays.
QString nameOf(const Reference& reference, const QJsonObject& key)
{
    QStringList parts{reference.table, reference.column};
    for (auto part = key.begin(); part != key.end(); ++part)
        if (part.key() != QLatin1String(reference.column)) parts << part.value().toVariant().toString();
    return parts.join('.') + '.';
}

QString rowTitle(const QString& table, const QJsonObject& key)
{
    if (table == "familias") return "nº " + numberIn(key["nind"]) + " como cônjuge";
    if (table == "assistente") return "nº " + numberIn(key["nind"]) + " no acto" + dateIn(key);
    if (table == "passaporte") return "passaporte nº " + numberIn(key["npass"]);
    return "residência" + dateIn(key);
}

QString originOf(const Reference& reference, const QJsonObject& row)
{
    const QString number = numberIn(row[QLatin1String(reference.column)]);
    return reference.target == Target::Family ? "Da família nº " + number + ", junta" : "Do nº " + number + ", junto";
}

} // namespace

// As joined() tells it, of the one that was entered first; the differences are told of the one that stays.
Joined Moving::joinedRows(const Reference& reference, const Row& first, const Row& second, const QJsonObject& key)
{
    const bool isTurned = first.values[QLatin1String(reference.column)] != key[QLatin1String(reference.column)];
    const QString name = nameOf(reference, key), title = rowTitle(reference.table, key);
    Sides own = sidesBelow(sides, name);
    for (auto& choice : own)
        if (isTurned) choice.second = turned(choice.second);
    Joined row = joined(bdp, reference.table, first.values, second.values, own);
    for (Difference one : prefixed(row.differences, name)) {
        if (isTurned) {
            std::swap(one.kept, one.other);
            one.proposed = turned(one.proposed);
        }
        one.title.prepend(title + ": ");
        differences << one;
    }
    refusals += whyNotRead(row);
    if (const QString text = getsWhatItLacked(title, row); !text.isEmpty()) completed << text;
    return row;
}

// The one that was entered first keeps its values, whichever of the two records stays, unless another is chosen.
void Moving::absorb(const Reference& reference, const Row& kept, const Row& other, const QJsonObject& key)
{
    const QString table = reference.table;
    const Row& first = kept.place < other.place ? kept : other;
    const Row& second = kept.place < other.place ? other : kept;
    Joined row = joinedRows(reference, first, second, key);
    const QStringList lost = row.keptLost + row.otherLost;
    recording.remove(table, second.place);
    for (auto part = key.begin(); part != key.end(); ++part)
        row.set.insert(part.key(), part.value());
    const bool isUnion = table == "familias";
    if (isUnion) {
        ofUnion[key["nfamilia"].toInteger()] += lost;
    } else {
        const Origins origins{.kept = originOf(reference, first.values), .other = originOf(reference, second.values)};
        const QString notes = notesOf(first.values, second.values, row, origins);
        if (const QString why = whyNoNotes(first.values, second.values, notes); !why.isEmpty()) refusals << why;
        if (notes != first.values["obs"].toString()) row.set.insert("obs", notes);
    }
    recording.set(table, first.place, row.set);
    const QString what =
        isUnion ? "O nº " + numberIn(key["nind"]) + " como cônjuge da família nº " + numberIn(key["nfamilia"])
        : table == "assistente" ? "O nº " + numberIn(key["nind"]) + " no acto" + dateIn(key)
        : table == "passaporte" ? "O passaporte nº " + numberIn(key["npass"])
                                : "Residência" + dateIn(key);
    doubles << what + ": está nos dois, fica uma linha" +
                   (lost.isEmpty() ? QString(".") : ", e as notas dizem: " + lost.join("; ") + ".");
}

void Moving::followDay(const QString& letter, const Act& kept, const Act& other, const QJsonValue& day)
{
    int rows = 0;
    for (const Act& act : {kept, other})
        for (const Row& row : recording.rows("assistente", {{"entidade", act.entity}})) {
            if (act.day == day || row.values["dataref"] != act.day) continue;
            if (row.values["tipoacto"].toString().compare(letter, Qt::CaseInsensitive) != 0) continue;
            recording.set("assistente", row.place, {{"dataref", day}});
            ++rows;
        }
    if (rows == 0) return;
    completed << QString(rows == 1 ? "%1 interveniente passa a ter a data do acto que fica,%2."
                                   : "%1 intervenientes passam a ter a data do acto que fica,%2.")
                     .arg(QString::number(rows), dateIn({{"dataref", day}}).mid(3));
}

QStringList Moving::told(const QString& to)
{
    QStringList sentences;
    for (const Count& count : std::as_const(counts_))
        sentences << counted(*count.reference, count.rows) + to + ".";
    return sentences;
}

QString Moving::person(qint64 nind) const
{
    const QList<Row> rows = recording.rows("individuo", {{"nind", nind}});
    const QString name = rows.isEmpty() ? QString() : rows.first().values["nome"].toString().trimmed();
    return QString("%1 (nº %2)").arg(name).arg(nind).trimmed();
}

QString Moving::couple(qint64 family) const
{
    QStringList names;
    for (const Row& row : recording.rows("familias", {{"nfamilia", family}}))
        for (const Row& one : recording.rows("individuo", {{"nind", row.values["nind"]}}))
            names << one.values["nome"].toString().trimmed();
    QString date;
    for (const Row& row : recording.rows("familia", {{"nfamilia", family}}))
        if (const QDate day = QDate::fromString(row.values["datacasam"].toString(), Qt::ISODate); day.isValid())
            date = ", " + textoDaData(day);
    return QString("família nº %1 (").arg(family) + names.join(" e ") + date + ")";
}

} // namespace study::linkage
