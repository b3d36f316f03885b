#include "study/linkage/verdicts.h"

#include "platform/jet/recordset.h"
#include "platform/jet/transaction.h"
#include "store/lixo.h"
#include "study/acts/register_tables.h"
#include "study/linkage/decisions_p.h"
#include "study/linkage/keptRows.h"
#include "study/linkage/merge.h"
#include "study/linkage/types.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <array>
#include <optional>

namespace study::linkage {

namespace {

using enum Record::Kind;

// What a decision is about: the kinds of its two records.
struct About
{
    DecisionKind kind;
    Record::Kind one, other;
};
constexpr std::array abouts{
    About{DecisionKind::PeopleMerged, Person, Person},  About{DecisionKind::FamiliesJoined, Family, Family},
    About{DecisionKind::NotTheSame, Person, Person},    About{DecisionKind::NotTheSameFamily, Family, Family},
    About{DecisionKind::NotTheParents, Person, Family}, About{DecisionKind::OriginSet, Person, Family},
    About{DecisionKind::LinkRight, Person, Family},
};

const About* aboutOf(DecisionKind kind)
{
    const auto* const found = std::ranges::find(abouts, kind, &About::kind);
    return found == abouts.end() ? nullptr : found;
}

QString named(jet::Connection& bdp, const Record& record)
{
    if (!record.isPerson()) return QString("a família nº %1").arg(record.number);
    const jet::Recordset row(bdp, jet::NativeSql("select nome from individuo where nind = ?", {record.number}));
    return QString("%1 (nº %2)").arg(row.eof() ? QString() : row[0].toString().trimmed()).arg(record.number).trimmed();
}

QString key(const Record& record)
{
    return record.isGiven() ? QString::number(record.number) : QString();
}

Named namedAs(const Record& record)
{
    return {record.isPerson() ? Target::Person : Target::Family, QJsonValue(record.number)};
}

// One that was said of these two, and not of others who had their numbers then.
std::optional<qint64> standing(jet::Connection& bdp, DecisionKind kind, const Record& one, const Record& other)
{
    if (!hasDecisions(bdp)) return {};
    for (jet::Recordset row(bdp, jet::NativeSql("select id, quando from estudo_decisao where tipo = ? and fica = ? and "
                                                "ifnull(junto, '') = ? and desfeita is null order by id desc",
                                                {word(kind), key(one), key(other)}));
         !row.eof(); row.moveNext())
    {
        const QDateTime when = QDateTime::fromString(row["quando"].toString(), tables::timeFormat);
        const Deleted gone = deletedSince(bdp, when);
        if (!gone.has(namedAs(one)) && !gone.has(namedAs(other))) return qint64(row["id"].toDouble());
    }
    return {};
}

// One without rows, once.
qint64 said(jet::Connection& bdp, const Ruling& ruling, const Record& one, const Record& other)
{
    jet::Transaction transaction(bdp);
    if (const auto known = standing(bdp, ruling.kind, one, other)) return *known;
    Ruling whole = ruling;
    whole.kept = key(one);
    whole.other = key(other);
    const qint64 id = kept(bdp, whole, 0, "[]");
    transaction.commit();
    return id;
}

QString capitalized(QString text)
{
    if (!text.isEmpty()) text[0] = text[0].toUpper();
    return text;
}

// Pairs that follow their records through merges.
class Pairs
{
public:
    void add(const Record& one, const Record& other) { pairs_ << std::pair(one, other); }
    void merged(const Record& stays, const Record& gone)
    {
        for (auto& [one, other] : pairs_) {
            if (one == gone) one = stays;
            if (other == gone) other = stays;
        }
    }
    void deleted(const Record& gone)
    {
        pairs_.removeIf([&](const auto& pair) { return pair.first == gone || pair.second == gone; });
    }
    ToldApart told() const
    {
        ToldApart all;
        for (const auto& [one, other] : pairs_)
            if (one != other) all.notTheSame(one, other);
        return all;
    }

private:
    QList<std::pair<Record, Record>> pairs_;
};

// Families that have become one with those of somebody else: whose rows went, and where what hung on them is.
std::vector<std::pair<Record, Record>> familiesJoinedBy(const QString& changes)
{
    const QJsonArray all = QJsonDocument::fromJson(changes.toUtf8()).array();
    std::vector<std::pair<Record, Record>> found;
    const auto follow = [&](qint64 gone) {
        for (const QJsonValue change : all)
            for (const QLatin1String column : {QLatin1String("famorig"), QLatin1String("nfamilia"),
                                               QLatin1String("numero"), QLatin1String("entidade")})
            {
                const QJsonValue after = change["depois"][column];
                if (change["antes"][column].toInteger() != gone || !after.isDouble()) continue;
                found.emplace_back(Record{Family, after.toInteger()}, Record{Family, gone});
                return;
            }
    };
    for (const QJsonValue change : all)
        if (change["tabela"] == QLatin1String("familia") && !change["chave"].isObject())
            follow(change["antes"]["nfamilia"].toInteger());
    return found;
}

// What a card has deleted and nobody has put back, in the order of time: whose numbers they were is no longer there.
class Deletions
{
public:
    explicit Deletions(jet::Connection& bdp)
    {
        if (!lixo::temLixo(bdp)) return;
        for (jet::Recordset row(
                 bdp, jet::NativeSql("select quando, tipo, numero, familias from estudo_lixo order by quando, id"));
             !row.eof(); row.moveNext())
        {
            const QString when = row["quando"].toString();
            const bool isFamily = row["tipo"].toString() == "f";
            all_.push_back({when, {isFamily ? Family : Person, qint64(row["numero"].toDouble())}});
            for (const QString& family : row["familias"].toString().split(',', Qt::SkipEmptyParts))
                all_.push_back({when, {Family, family.toLongLong()}});
        }
    }

    // The next ones before that moment. "": all that are left.
    template <class Take>
    void takeBefore(const QString& moment, Take take)
    {
        for (; next_ < all_.size() && (moment.isEmpty() || all_[next_].first < moment); ++next_)
            take(all_[next_].second);
    }

private:
    std::vector<std::pair<QString, Record>> all_ = {};
    size_t next_ = 0;
};

} // namespace

bool canTellApart(const Link& link)
{
    return link.kind != LinkKind::Doubtful && link.one.isGiven() && link.other.isGiven();
}

qint64 tellApart(jet::Connection& bdp, const Link& link, const QString& reason)
{
    const bool ofCouple = link.one.kind != link.other.kind;
    Record one = link.one, other = link.other;
    if (ofCouple ? !one.isPerson() : other < one) std::swap(one, other);
    Ruling ruling{.title = capitalized(named(bdp, one)) + " não é " + named(bdp, other), .reason = reason};
    if (ofCouple) {
        ruling.kind = DecisionKind::NotTheParents;
        ruling.title = named(bdp, one) + " não é da família nº " + QString::number(other.number);
    } else if (!one.isPerson()) {
        ruling.kind = DecisionKind::NotTheSameFamily;
    }
    return said(bdp, ruling, one, other);
}

qint64 decideNotTheSame(jet::Connection& bdp, qint64 one, qint64 other, const QString& reason)
{
    return tellApart(bdp, {.one = {Person, one}, .other = {Person, other}}, reason);
}

qint64 confirm(jet::Connection& bdp, const Link& doubtful, const QString& reason)
{
    const QString what =
        doubtful.other.isGiven() ? " na família nº " + QString::number(doubtful.other.number) : QString(", óbito");
    return said(
        bdp,
        {.kind = DecisionKind::LinkRight, .title = "Está certo: " + named(bdp, doubtful.one) + what, .reason = reason},
        doubtful.one, doubtful.other);
}

QString whyNotOrigin(jet::Connection& bdp, parish::PersonNumber child, parish::FamilyNumber family)
{
    const qint64 nind = value(child), number = value(family);
    const jet::Recordset person(bdp, jet::NativeSql("select famorig from individuo where nind = ?", {nind}));
    if (person.eof()) return QString("O nº %1 já não existe.").arg(nind);
    if (!person[0].isNull()) return QString("O nº %1 já tem família de origem.").arg(nind);
    const jet::Recordset there(bdp, jet::NativeSql("select 1 from familia where nfamilia = ?", {number}));
    if (there.eof()) return QString("A família nº %1 já não existe.").arg(number);
    const jet::Recordset member(
        bdp, jet::NativeSql("select 1 from familias where nfamilia = ? and nind = ?", {number, nind}));
    if (!member.eof()) return QString("O nº %1 é cônjuge da família nº %2.").arg(nind).arg(number);
    return {};
}

qint64 setOrigin(jet::Connection& bdp, parish::PersonNumber child, parish::FamilyNumber family, const QString& reason)
{
    const qint64 nind = value(child), number = value(family);
    jet::Transaction transaction(bdp);
    if (const QString why = whyNotOrigin(bdp, child, family); !why.isEmpty()) throw MergeRefused{why};
    Recording recording(bdp);
    const bool follows = followsDates(recording, number);
    for (const Row& row : recording.rows("individuo", {{"nind", nind}}))
        recording.set("individuo", row.place, {{"famorig", number}});
    if (follows) settleType(recording, number);
    const qint64 id =
        recording.keep({.kind = DecisionKind::OriginSet,
                        .title = named(bdp, {Person, nind}) + " é da família nº " + QString::number(number),
                        .reason = reason,
                        .kept = QString::number(nind),
                        .other = QString::number(number)});
    transaction.commit();
    return id;
}

Verdicts verdicts(jet::Connection& bdp)
{
    Pairs apart, right;
    if (!hasDecisions(bdp)) return {};
    Deletions deletions(bdp);
    const auto drop = [&](const Record& gone) {
        apart.deleted(gone);
        right.deleted(gone);
    };
    for (jet::Recordset row(
             bdp, jet::NativeSql("select quando, tipo, fica, junto, linhas from estudo_decisao where desfeita "
                                 "is null and tipo in (?, ?, ?, ?, ?, ?) order by id",
                                 {word(DecisionKind::NotTheSame), word(DecisionKind::NotTheSameFamily),
                                  word(DecisionKind::NotTheParents), word(DecisionKind::LinkRight),
                                  word(DecisionKind::PeopleMerged), word(DecisionKind::FamiliesJoined)}));
         !row.eof(); row.moveNext())
    {
        deletions.takeBefore(row["quando"].toString(), drop);
        const QString kind = row["tipo"].toString();
        const auto* const about =
            std::ranges::find_if(abouts, [&](const About& one) { return word(one.kind) == kind; });
        const qint64 stays = row["fica"].toString().toLongLong(), gone = row["junto"].toString().toLongLong();
        const Record one{about->one, stays};
        const Record other = gone == 0 ? Record{} : Record{about->other, gone};
        if (about->kind == DecisionKind::LinkRight) {
            right.add(one, other);
        } else if (about->kind == DecisionKind::PeopleMerged || about->kind == DecisionKind::FamiliesJoined) {
            for (Pairs* const pairs : {&apart, &right}) {
                pairs->merged(one, other);
                if (!one.isPerson()) continue;
                for (const auto& [family, former] : familiesJoinedBy(row["linhas"].toString()))
                    pairs->merged(family, former);
            }
        } else {
            apart.add(one, other);
        }
    }
    deletions.takeBefore({}, drop);
    return {.apart = apart.told(), .right = right.told()};
}

QList<std::pair<qint64, qint64>> notTheSame(jet::Connection& bdp)
{
    QList<std::pair<qint64, qint64>> people;
    const Verdicts all = verdicts(bdp);
    for (const auto& [one, other] : all.apart.pairs())
        if (one.isPerson() && other.isPerson()) people << std::pair(one.number, other.number);
    return people;
}

bool isOfLinks(DecisionKind kind)
{
    return aboutOf(kind) != nullptr;
}

std::vector<Record> recordsOf(const Ruling& ruling)
{
    const About* const about = aboutOf(ruling.kind);
    std::vector<Record> found;
    if (!about) return found;
    found.push_back({about->one, ruling.kept.toLongLong()});
    if (!ruling.other.isEmpty()) found.push_back({about->other, ruling.other.toLongLong()});
    return found;
}

} // namespace study::linkage
