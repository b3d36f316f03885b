// The way back of an import.
#include "study/exchange/gedcomIn.h"

#include "platform/jet/rows.h"
#include "platform/jet/transaction.h"
#include "platform/time/clock.h"
#include "study/exchange/gedcomInMarks.h"
#include "study/exchange/gedcomInTable.h"
#include "study/indicators/settingsJson.h"
#include "study/linkage/references.h"

#include <algorithm>

namespace study::exchange {

namespace {

constexpr qsizetype mostReasons = 6;

// The keys that the last import has made, as a select within a statement; ?1 is the import.
constexpr auto madePeople =
    "(select cast(chave as integer) from estudo_importado where importacao = ?1 and tipo = 'i')";
constexpr auto madeFamilies =
    "(select cast(chave as integer) from estudo_importado where importacao = ?1 and tipo = 'f')";

bool hasImports(jet::Connection& bdp)
{
    return tables::exist(bdp, {importTable(), importedTable()});
}

// Whether a row belongs to a record of the import.
QString ownRows(const QString& table)
{
    QStringList conditions;
    for (const OwnedTable& one : ownedTables()) {
        if (table != QLatin1String(one.table)) continue;
        const QString keys = QLatin1String(one.kind) == QLatin1String(imported::person) ? madePeople : madeFamilies;
        const QString within = *one.condition ? QString(" and ") + one.condition : QString();
        conditions << QString("(%1 in %2%3)").arg(one.owner, keys, within);
    }
    return conditions.isEmpty() ? QString("0") : conditions.join(" or ");
}

class Return
{
public:
    explicit Return(jet::Connection& bdp) : bdp_(bdp), last_(lastImport(bdp)) {}

    QStringList obstacles()
    {
        if (!last_) return {"Não há nenhuma importação para desfazer."};
        findChanges(imported::person, "A ficha do indivíduo nº %1");
        findChanges(imported::family, "A ficha da família nº %1");
        findUses();
        findDecisions();
        if (reasons_.size() <= mostReasons) return reasons_;
        const qsizetype more = reasons_.size() - mostReasons;
        return reasons_.mid(0, mostReasons) << QString("E mais %1.").arg(more);
    }

    void run(const GoesOn& goesOn)
    {
        forgetBaptisms();
        double done = 0;
        const auto& tables = ownedTables();
        for (const OwnedTable& table : tables) {
            const QString kind = table.kind;
            if (kind == imported::person || kind == imported::family) remove(table);
            if (goesOn && !goesOn(done++ / static_cast<double>(tables.size()))) throw Interrupted{};
        }
        removeUnused(imported::site);
        removeUnused(imported::locality);
        removeUnused(imported::parish);
        removeUnused(imported::profession);
        bdp_.execute(jet::NativeSql("delete from estudo_importado where importacao = ?", {last_->id}));
        bdp_.execute(jet::NativeSql("update estudo_importacao set desfeita = ? where id = ?",
                                    {Clock::moment().toString(tables::timeFormat), last_->id}));
    }

private:
    QHash<QString, QByteArray> kept(const QString& kind) const
    {
        QHash<QString, QByteArray> marks;
        jet::Rows row(bdp_,
                      jet::NativeSql("select chave, marca from estudo_importado where importacao = ? and tipo = ?",
                                     {last_->id, kind}));
        while (row.next())
            marks.insert(row.text(0), row.bytes(1).toByteArray());
        return marks;
    }

    void findChanges(const char* kind, const QString& title)
    {
        const QHash<QString, QByteArray> then = kept(kind), now = marksOf(bdp_, kind, then);
        QList<qint64> gone, changed;
        for (auto one = then.cbegin(); one != then.cend(); ++one)
            if (!now.contains(one.key()))
                gone << one.key().toLongLong();
            else if (now.value(one.key()) != *one)
                changed << one.key().toLongLong();
        std::ranges::sort(gone);
        std::ranges::sort(changed);
        for (const qint64 number : std::as_const(gone))
            reasons_ << title.arg(number) + " já não existe.";
        for (const qint64 number : std::as_const(changed))
            reasons_ << title.arg(number) + " foi alterada depois.";
    }

    // By rows of others.
    void findUses()
    {
        QStringList there;
        for (const QString& table : bdp_.tables())
            there << table.toLower();
        for (const linkage::Reference& link : linkage::references()) {
            const bool isPerson = link.target == linkage::Target::Person;
            if ((!isPerson && link.target != linkage::Target::Family) || !there.contains(link.table)) continue;
            const QString word = *link.with ? QString(" and %1 = '%2'").arg(link.with, link.word) : QString();
            jet::Rows row(bdp_, jet::NativeSql(QString("select distinct %1 from %2 where %1 in %3%4 and not (%5) "
                                                       "order by %1")
                                                   .arg(link.column, link.table, isPerson ? madePeople : madeFamilies,
                                                        word, ownRows(link.table)),
                                               {last_->id}));
            while (row.next())
                addOnce(QString(isPerson ? "O indivíduo nº %1, que veio com a importação, já tem outros dados na BDP."
                                         : "A família nº %1, que veio com a importação, já tem outros dados na BDP.")
                            .arg(row.number(0)));
        }
    }

    void addOnce(const QString& reason)
    {
        if (!reasons_.contains(reason)) reasons_ << reason;
    }

    // Their numbers may be somebody else's then.
    void findDecisions()
    {
        if (!linkage::hasDecisions(bdp_)) return;
        jet::Rows row(bdp_,
                      jet::NativeSql("select titulo from estudo_decisao where desfeita is null and exists (select 1 "
                                     "from estudo_importado where importacao = ?1 and ("
                                     "(estudo_decisao.tipo in ('pessoas', 'diferentes') and tipo = 'i' "
                                     "and chave in (fica, junto)) or "
                                     "(estudo_decisao.tipo in ('familias', 'familias diferentes') and tipo = 'f' "
                                     "and chave in (fica, junto)) or "
                                     "(estudo_decisao.tipo in ('outros pais', 'pais', 'certa') and "
                                     "((tipo = 'i' and chave = fica) or (tipo = 'f' and chave = junto))))) order by id",
                                     {last_->id}));
        while (row.next())
            addOnce(QString("Há uma decisão sobre quem é quem: %1.").arg(row.text(0)));
    }

    void remove(const OwnedTable& table)
    {
        const QString keys = QLatin1String(table.kind) == QLatin1String(imported::person) ? madePeople : madeFamilies;
        const QString within = *table.condition ? QString(" and ") + table.condition : QString();
        bdp_.execute(jet::NativeSql(
            QString("delete from %1 where %2 in %3%4").arg(table.table, table.owner, keys, within), {last_->id}));
    }

    bool isNamed(linkage::Target target, const QString& key, const QString& level) const
    {
        QStringList there;
        for (const QString& table : bdp_.tables())
            there << table.toLower();
        return std::ranges::any_of(linkage::references(), [&](const linkage::Reference& link) {
            if (link.target != target || !there.contains(link.table)) return false;
            const QString ofLevel = level.isEmpty() ? QString() : QString(" and %1 = ?").arg(link.with);
            QVariantList values{key};
            if (!level.isEmpty()) values << level;
            jet::Rows row(
                bdp_,
                jet::NativeSql(QString("select 1 from %1 where %2 = ?%3 limit 1").arg(link.table, link.column, ofLevel),
                               values));
            return row.next();
        });
    }

    // What somebody has altered is theirs by now, and what others use stays.
    void removeUnused(const char* kind)
    {
        const bool isProfession = QLatin1String(kind) == QLatin1String(imported::profession);
        const QHash<QString, QByteArray> then = kept(kind), now = marksOf(bdp_, kind, then);
        const auto table = std::ranges::find_if(
            ownedTables(), [&](const OwnedTable& one) { return QLatin1String(one.kind) == QLatin1String(kind); });
        for (auto one = then.cbegin(); one != then.cend(); ++one) {
            if (now.value(one.key()) != *one) continue;
            const auto target = isProfession ? linkage::Target::Profession : linkage::Target::Place;
            if (isNamed(target, one.key(), isProfession ? QString() : QString(kind)) || holdsPlaces(kind, one.key()))
                continue;
            bdp_.execute(
                jet::NativeSql(QString("delete from %1 where %2 = ?").arg(table->table, table->owner), {one.key()}));
        }
    }

    bool holdsPlaces(const QString& kind, const QString& code) const
    {
        const char* const places = kind == imported::locality ? "select 1 from sitio where codlugar = ? limit 1"
                                                              : "select 1 from lugar where codparoquia = ? limit 1";
        if (kind != imported::locality && kind != imported::parish) return false;
        jet::Rows row(bdp_, jet::NativeSql(places, {code}));
        return row.next();
    }

    void forgetBaptisms()
    {
        indicators::Settings settings = indicators::keptSettings(bdp_);
        const QHash<QString, QByteArray> people = kept(imported::person);
        const auto gone = std::erase_if(settings.baptisms, [&](const auto& one) {
            return people.contains(QString::number(parish::value(one.first)));
        });
        if (gone > 0) indicators::keepSettings(bdp_, settings);
    }

    jet::Connection& bdp_;
    std::optional<GedcomImported> last_;
    QStringList reasons_ = {};
};

} // namespace

std::optional<GedcomImported> lastImport(jet::Connection& bdp)
{
    if (!hasImports(bdp)) return {};
    jet::Rows row(bdp, jet::NativeSql("select id, quando, ficheiro, pessoas, familias from estudo_importacao where "
                                      "desfeita is null order by id desc limit 1"));
    if (!row.next()) return {};
    return GedcomImported{row.number(0), QDateTime::fromString(row.text(1), tables::timeFormat), row.text(2),
                          row.number(3), row.number(4)};
}

QStringList whyImportStays(jet::Connection& bdp)
{
    return Return(bdp).obstacles();
}

QStringList takeBackImport(jet::Connection& bdp, const GoesOn& goesOn)
{
    jet::Transaction transaction(bdp);
    Return way(bdp);
    QStringList why = way.obstacles();
    if (!why.isEmpty()) return why;
    way.run(goesOn);
    transaction.commit();
    return {};
}

} // namespace study::exchange
