#include "study/acts/ledger.h"

#include "common/valores.h"
#include "platform/jet/recordset.h"

#include <algorithm>

namespace study {

namespace {

bool isNumber(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Double:
        return true;
    default:
        return false;
    }
}

PlannedRow::Values valuesOf(const jet::Recordset& row)
{
    PlannedRow::Values values;
    for (int column = 0; column < row.fieldCount(); ++column)
        if (const QVariant value = row[column]; !value.isNull()) values.insert(row.fieldName(column), value);
    return values;
}

RowChange::Columns keyOfMember(qint64 family, qint64 nind)
{
    return {{"nfamilia", double(family)}, {"nind", double(nind)}};
}

// Tables that others refer to come first.
int orderOf(const QString& table)
{
    static const QStringList order{"lugar",      "profissao",  "individuo",  "familia",         "familias",
                                   "assistente", "residencia", "profissoes", "legadosprofanos", "rituaismorte"};
    return int(order.indexOf(table));
}

// All columns that an act may set, or has to know.
constexpr auto personById =
    "select nome, tipo, sexo, famorig, titulo, alcunha, inicioobs, fimobs, datanasc, DnascFixa, localnasc, "
    "tipolocalnasc, filiacao, idadepai, idademae, estadocivilpai, estadocivilmae, dataobito, dobitofixa, localobito, "
    "tipolocalobito, causa, idadeobito, estadoobito, menor, sacramentos, classparoquial, testam, escrit, obs, "
    "primpadrebapt, segpadrebapt, funcprimpbapt, funcsegpbapt, primpadreobito, funcprimpobito, mortalha, igreja, "
    "enterro from individuo where nind = ?";

constexpr auto familyById = "select sfamilia, tipocasal, datacasam, dcasamfixa, localcasam, tipolocalcasam, inicioobs, "
                            "fimobs, obs, primpadrecasam, segpadrecasam, funcprimpcasam, funcsegpcasam from familia "
                            "where nfamilia = ?";

} // namespace

bool sameValue(const QVariant& one, const QVariant& other)
{
    if (one.isNull() || other.isNull()) return one.isNull() && other.isNull();
    if (isNumber(one) && isNumber(other)) return one.toDouble() == other.toDouble();
    return one == other;
}

QVariant PlannedRow::now(const QString& column) const
{
    const auto found =
        std::ranges::find_if(set_, [&](const auto& changed) { return changed.first.compare(column) == 0; });
    return found == set_.end() ? stored(column) : found->second;
}

void PlannedRow::set(const QString& column, const QVariant& value)
{
    set_.removeIf([&](const auto& changed) { return changed.first == column; });
    if (!value.isNull() && !sameValue(value, stored(column))) set_ << std::pair(column, value);
}

RowChange PlannedRow::change() const
{
    RowChange change{.table = table_, .key = key_, .values = set_};
    if (!isNew_)
        for (const auto& [column, value] : set_)
            change.before << std::pair(column, stored(column));
    return change;
}

QVariant Ledger::value(const jet::NativeSql& select) const
{
    const jet::Recordset row(bdp_, select);
    return row.eof() ? QVariant() : row[0];
}

PlannedRow* Ledger::person(qint64 nind)
{
    if (people_.contains(nind)) return &people_.at(nind);
    const jet::Recordset row(bdp_, jet::NativeSql(personById, {nind}));
    if (row.eof()) return nullptr;
    return &people_.try_emplace(nind, "individuo", RowChange::Columns{{"nind", double(nind)}}, valuesOf(row))
                .first->second;
}

PlannedRow* Ledger::family(qint64 nfamilia)
{
    if (families_.contains(nfamilia)) return &families_.at(nfamilia);
    const jet::Recordset row(bdp_, jet::NativeSql(familyById, {nfamilia}));
    if (row.eof()) return nullptr;
    return &families_
                .try_emplace(nfamilia, "familia", RowChange::Columns{{"nfamilia", double(nfamilia)}}, valuesOf(row))
                .first->second;
}

// The highest number of those who have become one with somebody, by a decision that may be taken back: they come back
// with it.
qint64 Ledger::highestMerged(const char* kind) const
{
    const jet::NativeSql columns(
        "select count(*) from pragma_table_info('estudo_decisao') where name in ('tipo', 'junto', 'desfeita')");
    static constexpr int all = 3;
    if (value(columns).toInt() != all) return 0; // none, or another program's
    return qint64(value(jet::NativeSql("select max(cast(junto as integer)) from estudo_decisao where tipo = ? and "
                                       "desfeita is null",
                                       {QString(kind)}))
                      .toDouble());
}

qint64 Ledger::newPerson()
{
    const auto behind = [](const QVariant& last) { return qint64(Nind::daColuna(last).seguinte().valor()); };
    if (lastPerson_ == 0)
        lastPerson_ =
            std::max(behind(value(jet::NativeSql("select max(nind) from individuo"))), highestMerged("pessoas") + 1);
    else
        ++lastPerson_;
    people_.try_emplace(lastPerson_, "individuo", RowChange::Columns{{"nind", double(lastPerson_)}});
    return lastPerson_;
}

// As the card numbers: behind the last row of the file, which isn't always the highest. But where that number is taken,
// the card's insert fails, and here the highest counts.
qint64 Ledger::newFamily()
{
    const auto behind = [this](const jet::NativeSql& last) {
        return qint64(Nfam::daColuna(value(last)).seguinte().valor());
    };
    lastFamily_ = lastFamily_ == 0
                      ? std::max(behind(jet::NativeSql("select nfamilia from familia order by rowid desc limit 1")),
                                 highestMerged("familias") + 1)
                      : lastFamily_ + 1;
    if (family(lastFamily_))
        lastFamily_ = std::max(lastFamily_ + 1, behind(jet::NativeSql("select max(nfamilia) from familia")));
    families_.try_emplace(lastFamily_, "familia", RowChange::Columns{{"nfamilia", double(lastFamily_)}});
    members_.try_emplace(lastFamily_);
    return lastFamily_;
}

PlannedRow& Ledger::add(const QString& table, const RowChange::Columns& key)
{
    return others_.emplace_back(table, key);
}

Ledger::Members& Ledger::membersOf(qint64 family)
{
    if (members_.contains(family)) return members_.at(family);
    Members& rows = members_[family];
    for (jet::Recordset row(bdp_, jet::NativeSql("select nind, idade, estadocivil, numcasam from familias where "
                                                 "nfamilia = ? order by rowid",
                                                 {family}));
         !row.eof(); row.moveNext())
    {
        const auto nind = qint64(row["nind"].toDouble());
        rows.emplace_back(nind, PlannedRow("familias", keyOfMember(family, nind), valuesOf(row)));
    }
    return rows;
}

QList<qint64> Ledger::members(qint64 family)
{
    QList<qint64> found;
    for (const auto& [nind, row] : membersOf(family))
        found << nind;
    return found;
}

QList<qint64> Ledger::storedMembers(qint64 family)
{
    QList<qint64> found;
    for (const auto& [nind, row] : membersOf(family))
        if (!row.isNew()) found << nind;
    return found;
}

PlannedRow* Ledger::member(qint64 family, qint64 nind)
{
    Members& rows = membersOf(family);
    const auto found = std::ranges::find_if(rows, [=](const auto& member) { return member.first == nind; });
    return found == rows.end() ? nullptr : &found->second;
}

PlannedRow& Ledger::addMember(qint64 family, qint64 nind)
{
    familiesOf(nind); // read before the new one counts
    familiesOf_[nind] << family;
    return membersOf(family).emplace_back(nind, PlannedRow("familias", keyOfMember(family, nind))).second;
}

QList<qint64> Ledger::familiesOf(qint64 nind)
{
    if (const auto known = familiesOf_.constFind(nind); known != familiesOf_.constEnd()) return *known;
    QList<qint64> found;
    if (const PlannedRow* one = person(nind); one && !one->isNew())
        for (jet::Recordset row(
                 bdp_, jet::NativeSql("select nfamilia from familias where nind = ? order by nfamilia", {nind}));
             !row.eof(); row.moveNext())
            found << qint64(row[0].toDouble());
    familiesOf_.insert(nind, found);
    return found;
}

Ledger::Children Ledger::storedChildren(qint64 family)
{
    if (const auto known = children_.constFind(family); known != children_.constEnd()) return *known;
    Children count;
    if (const PlannedRow* row = this->family(family); row && !row->isNew()) {
        const jet::Recordset numbers(
            bdp_, jet::NativeSql("select count(nind), count(datanasc) from individuo where famorig = ?", {family}));
        count = {.all = numbers[0].toInt(), .dated = numbers[1].toInt()};
    }
    children_.insert(family, count);
    return count;
}

Ledger::Children Ledger::children(qint64 family)
{
    Children total = storedChildren(family);
    const auto count = [&](const QVariant& famorig, const QVariant& birth, int by) {
        if (famorig.isNull() || qint64(famorig.toDouble()) != family) return;
        total.all += by;
        if (!birth.isNull()) total.dated += by;
    };
    for (const auto& [nind, row] : people_) {
        count(row.stored("famorig"), row.stored("datanasc"), -1);
        count(row.now("famorig"), row.now("datanasc"), 1);
    }
    return total;
}

QString Ledger::ownParish()
{
    if (!ownParish_) ownParish_ = value(jet::NativeSql("select cod from infopar limit 1")).toString();
    return *ownParish_;
}

QList<RowChange> Ledger::changes() const
{
    QList<RowChange> written;
    const auto take = [&](const PlannedRow& row) {
        if (row.isWritten()) written << row.change();
    };
    for (const auto& [nind, row] : people_)
        take(row);
    for (const auto& [nfamilia, row] : families_)
        take(row);
    for (const auto& [nfamilia, rows] : members_)
        for (const auto& [nind, row] : rows)
            take(row);
    for (const PlannedRow& row : others_)
        take(row);
    std::ranges::stable_sort(
        written, [](const auto& one, const auto& other) { return orderOf(one.table) < orderOf(other.table); });
    return written;
}

} // namespace study
