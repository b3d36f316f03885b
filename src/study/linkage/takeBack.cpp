// Taking a decision back.
#include "platform/jet/jsonrow.h"
#include "platform/jet/recordset.h"
#include "platform/jet/transaction.h"
#include "platform/time/clock.h"
#include "study/acts/register_tables.h"
#include "study/linkage/decisions_p.h"
#include "study/linkage/keptRows.h"

#include <QHash>

#include <algorithm>
#include <optional>
#include <set>

namespace study::linkage {

namespace {

// Another decision, that may have to do with the same rows.
struct OtherDecision
{
    QString title;
    bool stands = false;
    QList<Kept> changes;
};

QList<QJsonObject> keysOf(const Kept& step, const QStringList& columns)
{
    if (!step.key) return {only(step.before, columns)};
    return {*step.key, only(step.restored(*step.key), columns)};
}

class Return
{
public:
    Return(jet::Connection& bdp, qint64 id) : bdp_(bdp), presence_(bdp), id_(id)
    {
        if (!hasDecisions(bdp)) return;
        const jet::Recordset row(
            bdp, jet::NativeSql("select quando, desfeita, linhas from estudo_decisao where id = ?", {id}));
        if (row.eof()) return;
        found_ = true;
        undone_ = !row["desfeita"].isNull();
        when_ = QDateTime::fromString(row["quando"].toString(), tables::timeFormat);
        if (const auto changes = readChanges(row["linhas"].toString())) {
            changes_ = *changes;
            readable_ = std::ranges::all_of(changes_, [&](const Kept& step) { return areColumns(bdp, step); });
        }
    }

    QString obstacle()
    {
        if (!found_) return "Esta decisão já não está na BDP.";
        if (undone_) return "Esta decisão já foi desfeita.";
        if (!readable_) return "O que ficou guardado desta decisão não se consegue ler.";
        readLater();
        deleted_ = deletedSince(bdp_, when_);
        findRows();
        findTakenKeys();
        findLostLinks();
        return told();
    }

    // Precondition: there is no obstacle, and nothing was written since.
    void run()
    {
        for (qsizetype i = 0; i < changes_.size(); ++i)
            if (changes_[i].key) jet::updateJsonRow(bdp_, changes_[i].table, rows_[i]->place, changes_[i].before);
        for (const Kept& step : changes_)
            if (!step.key) jet::insertJsonRow(bdp_, step.table, atItsPlace(step));
        bdp_.execute(jet::NativeSql("update estudo_decisao set desfeita = ? where id = ?",
                                    {Clock::moment().toString(tables::timeFormat), id_}));
    }

private:
    QList<OtherDecision> read(const jet::NativeSql& select) const
    {
        QList<OtherDecision> all;
        for (jet::Recordset row(bdp_, select); !row.eof(); row.moveNext())
            all << OtherDecision{.title = row["titulo"].toString(),
                                 .stands = row["desfeita"].isNull(),
                                 .changes = readChanges(row["linhas"].toString()).value_or(QList<Kept>())};
        return all;
    }

    void readLater()
    {
        later_ = read(jet::NativeSql("select titulo, desfeita, linhas from estudo_decisao where id > ? and desfeita is "
                                     "null and alteradas > 0 order by id desc",
                                     {id_}));
        for (const OtherDecision& later : std::as_const(later_))
            for (const Kept& change : later.changes)
                if (const auto named = change.key ? std::nullopt : namedBy(change.table, change.before))
                    takenLater_.emplace_back(*named, later.title);
    }

    // Finds each row, where it was left or by its key, and looks whether it is as it was left.
    void findRows()
    {
        rows_.clear();
        for (const Kept& step : changes_) {
            rows_ << std::optional<Row>();
            if (!step.key) continue;
            const QList<Row> rows = storedRows(bdp_, step.table, *step.key);
            if (rows.isEmpty()) {
                blame(step, {},
                      stands(step) ? titleOf(step.table, *step.key).wasAltered()
                                   : titleOf(step.table, *step.key).text + " já não existe.");
                continue;
            }
            const auto own = std::ranges::find(rows, step.place, &Row::place);
            const Row& row = own == rows.end() ? rows.first() : *own;
            rows_.last() = row;
            lookAt(step, row);
        }
    }

    void lookAt(const Kept& step, const Row& row)
    {
        QStringList altered;
        for (auto column = step.after.begin(); column != step.after.end(); ++column)
            if (row.values[column.key()] != column.value()) altered << column.key();
        const QJsonObject left = step.left.value_or(QJsonObject());
        for (auto column = left.begin(); column != left.end(); ++column)
            if (row.values[column.key()] != column.value() && !altered.contains(column.key()) &&
                !isExplained(step, column.key(), row.values[column.key()]))
                altered << column.key();
        const auto named = namedBy(step.table, row.values);
        if (altered.isEmpty() && !(named && deleted_.has(*named))) return;
        blame(step, altered, titleOf(step.table, row.values).wasAltered());
    }

    // Whether a column that this decision hasn't set is what another one has made of it: that one has its own way back.
    bool isExplained(const Kept& step, const QString& column, const QJsonValue& now)
    {
        if (!others_)
            others_ = read(jet::NativeSql("select titulo, desfeita, linhas from estudo_decisao where id <> ?", {id_}));
        return std::ranges::any_of(*others_, [&](const OtherDecision& other) {
            return std::ranges::any_of(other.changes, [&](const Kept& change) {
                const QJsonObject& made = other.stands ? change.after : change.before;
                return change.key && isSameRow(step, change) && made.contains(column) && made[column] == now;
            });
        });
    }

    bool isSameRow(const Kept& one, const Kept& other) const
    {
        if (one.table != other.table) return false;
        const QStringList columns = keysOfTable(one.table);
        if (columns.isEmpty()) return one.place == other.place;
        const QList<QJsonObject> keys = keysOf(one, columns), others = keysOf(other, columns);
        return std::ranges::any_of(keys, [&](const QJsonObject& key) { return others.contains(key); });
    }

    QStringList keysOfTable(const QString& table) const
    {
        const auto known = keys_.constFind(table);
        return known == keys_.cend() ? *keys_.insert(table, keyColumns(bdp_, table, {})) : *known;
    }

    // The later decisions that stand and have altered those columns of the row, or its key, or taken it away; where
    // there is none, somebody else has.
    void blame(const Kept& step, const QStringList& altered, const QString& trouble)
    {
        const auto isGuilty = [&](const Kept& change) {
            if (!isSameRow(step, change)) return false;
            return altered.isEmpty() || !change.key ||
                   std::ranges::any_of(altered, [&](const QString& column) { return change.after.contains(column); });
        };
        const auto later = std::ranges::find_if(
            later_, [&](const OtherDecision& other) { return std::ranges::any_of(other.changes, isGuilty); });
        if (later == later_.end())
            add(troubles_, trouble);
        else
            add(first_, later->title);
    }

    static void add(QStringList& texts, const QString& text)
    {
        if (!texts.contains(text)) texts << text;
    }

    bool stands(const Kept& step) const
    {
        const jet::NativeSql there(QString("select 1 from %1 where rowid = ?").arg(step.table), {step.place});
        return !jet::jsonRows(bdp_, there).isEmpty();
    }

    void findTakenKeys()
    {
        std::set<std::pair<QString, qint64>> own;
        for (qsizetype i = 0; i < changes_.size(); ++i)
            if (rows_[i]) own.emplace(changes_[i].table, rows_[i]->place);
        for (const Kept& step : changes_) {
            const QJsonObject then = step.restored(step.key.value_or(QJsonObject()));
            const QStringList columns = keyColumns(bdp_, step.table, then);
            if (columns.size() == then.size() && !step.key) continue; // a table without a key
            for (const Row& row : storedRows(bdp_, step.table, only(then, columns)))
                if (!own.contains({step.table, row.place})) add(troubles_, taken(step.table, then));
        }
    }

    static QString taken(const QString& table, const QJsonObject& row)
    {
        const QString number = row[table == "familia" ? "nfamilia" : "nind"].toVariant().toString();
        if (table == "individuo") return "O número " + number + " já é de outro indivíduo.";
        if (table == "familia") return "O número " + number + " já é de outra família.";
        return titleOf(table, row).text + " já existe outra vez.";
    }

    // What the rows would lead to again has to be there, and the same.
    void findLostLinks()
    {
        std::vector<Named> returning;
        for (const Kept& step : changes_)
            if (const auto named = step.key ? std::nullopt : namedBy(step.table, step.before))
                returning.push_back(*named);
        for (qsizetype i = 0; i < changes_.size(); ++i) {
            const Kept& step = changes_[i];
            if (step.key && !rows_[i]) continue;
            const QJsonObject then = step.restored(rows_[i] ? rows_[i]->values : QJsonObject());
            for (const ColumnLink& link : linksIn(step.table, then, step.before.keys())) {
                const auto isLed = [&](const Named& one) { return isOne(one, link.named); };
                if (std::ranges::none_of(returning, isLed)) lookAt(step, link);
            }
        }
    }

    void lookAt(const Kept& step, const ColumnLink& link)
    {
        const auto later =
            std::ranges::find_if(takenLater_, [&](const auto& one) { return isOne(one.first, link.named); });
        if (later != takenLater_.end()) return add(first_, later->second);
        if (!step.loose || step.loose->contains(link.column)) return;
        if (deleted_.has(link.named) || !presence_.has(link.named))
            add(troubles_, titleOf(link.named) + ", a que uma linha voltaria a ligar-se, já não está na BDP.");
    }

    QString told() const
    {
        static constexpr qsizetype most = 5;
        QStringList texts;
        if (first_.size() == 1)
            texts << "Tem de ser desfeita primeiro a decisão que veio depois: " + first_.first() + ".";
        else if (!first_.isEmpty())
            texts << "Têm de ser desfeitas primeiro as decisões que vieram depois: " + first_.mid(0, most).join("; ") +
                         (first_.size() > most ? "; …" : ".");
        texts += troubles_.mid(0, most);
        if (troubles_.size() > most) texts << QString("E mais %1.").arg(troubles_.size() - most);
        return texts.join(' ');
    }

    // Rows without an order are shown in that of the tables: the row goes where it was, unless another is there.
    QJsonObject atItsPlace(const Kept& step) const
    {
        QJsonObject row = step.before;
        const jet::NativeSql there(QString("select 1 from %1 where rowid = ?").arg(step.table), {step.place});
        if (jet::jsonRows(bdp_, there).isEmpty()) row.insert("rowid", step.place);
        return row;
    }

    jet::Connection& bdp_;
    Presence presence_;
    qint64 id_;
    bool found_ = false, undone_ = false, readable_ = false;
    QDateTime when_;
    QList<Kept> changes_;
    QList<std::optional<Row>> rows_;                    // of each change, as it is by now; none for a row that has gone
    QList<OtherDecision> later_;                        // those that stand, the latest first
    std::vector<std::pair<Named, QString>> takenLater_; // the records that those have taken, with their titles
    std::optional<QList<OtherDecision>> others_;        // all, where they were needed
    Deleted deleted_;
    QStringList first_, troubles_; // decisions that have to be taken back before, and what else stands in the way
    mutable QHash<QString, QStringList> keys_; // columns, by the table
};

} // namespace

QString whyNotTakenBack(jet::Connection& bdp, qint64 id)
{
    return Return(bdp, id).obstacle();
}

QString takeBack(jet::Connection& bdp, qint64 id)
{
    jet::Transaction transaction(bdp);
    Return way(bdp, id);
    if (const QString why = way.obstacle(); !why.isEmpty()) return why;
    way.run();
    transaction.commit();
    return {};
}

} // namespace study::linkage
