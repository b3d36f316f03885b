#include "study/exchange/ids_p.h"

#include "study/exchange/privacy.h"
#include "study/observation/presence.h"
#include "study/parish/locality.h"

namespace study::exchange {

namespace {

// Shares of the work: the parish is read, people are observed, and the rest is written.
constexpr double shareOfReading = 0.25, shareOfObserving = 0.05;
constexpr qint64 million = 1'000'000;
constexpr int passesOverFamilies = 3;

// What of a person's own proves a day, and tells of nobody else.
bool isOwn(observation::Proof proof)
{
    using enum observation::Proof;
    switch (proof) {
    case None:
    case Birth:
    case Residence:
    case Profession:
    case Signature:
    case Assistance:
    case Passport:
    case Death:
    case Researcher:
        return true;
    case Marriage:
    case ChildBorn:
    case ChildBuried:
    case Parents:
    case Spouse:
    case Sibling:
        return false;
    }
    return false;
}

} // namespace

IdsWriter::IdsWriter(const jet::Connection& bdp, const QString& folder, const IdsOptions& options, const GoesOn& goesOn)
    : bdp_(bdp), options_(options), goesOn_(goesOn), files_(folder), places_(bdp)
{
    jet::Rows count(bdp, jet::NativeSql("select count(*), (select count(*) from familia) from individuo"));
    for (const ToldWords& words : allTold()) {
        typesTold_.push_back(options.upperCase ? QByteArray(words.type).toUpper() : QByteArray(words.type));
        meanings_.push_back(&values_[{words.table, words.type}]);
    }
    if (count.next()) all_ = qMax<qint64>(1, count.number(0) + passesOverFamilies * count.number(1));
}

void IdsWriter::ask(double share) const
{
    if (goesOn_ && !goesOn_(qMin(1.0, share))) throw Interrupted{};
}

void IdsWriter::next()
{
    static constexpr qint64 recordsBetweenQuestions = 1024;
    if (done_++ % recordsBetweenQuestions != 0) return;
    static constexpr double before = shareOfReading + shareOfObserving;
    ask(before + (1 - before) * static_cast<double>(done_) / static_cast<double>(all_));
}

void IdsWriter::readParish()
{
    const auto share = [this](double from, double part) -> GoesOn {
        if (!goesOn_) return {};
        return [this, from, part](double done) { return goesOn_(from + part * done); };
    };
    const parish::Snapshot parish = parish::Snapshot::read(bdp_, share(0, shareOfReading));
    home_ = parish.home();
    catalogue_ = parish.catalogue();
    const auto unions = observation::unionsOf(parish, options_.study.unions);
    types_.reserve(unions.size());
    for (const observation::Union& one : unions)
        types_.push_back(static_cast<quint8>(one.computedType));
    const auto presences = presencesOf(parish, unions, share(shareOfReading, shareOfObserving));
    observed_.reserve(presences.size());
    const auto people = parish.people();
    for (std::size_t i = 0; i < presences.size(); ++i) {
        Observed one{.legitimacy = indicators::legitimacyOf(people[i], options_.study)};
        if (const observation::Presence& seen = presences[i]; seen.isObserved()) {
            one.from = seen.from.day;
            one.until = seen.until.day;
            one.fromBy = seen.from.by;
            one.untilBy = seen.until.by;
        }
        observed_.push_back(limited(one));
    }
}

// Behind the limit of privacy the acts of others may be of people who are alive: the time ends there.
IdsWriter::Observed IdsWriter::limited(Observed one) const
{
    if (options_.limitYears <= 0 || !one.until.isKnown()) return one;
    const QDate limit = options_.today.addYears(-options_.limitYears);
    const auto tellsOfOthers = [&](const parish::Date& day, observation::Proof by) {
        return !isOwn(by) && day.middle() > limit;
    };
    if (tellsOfOthers(one.from, one.fromBy) || (tellsOfOthers(one.until, one.untilBy) && one.from.middle() > limit)) {
        one.from = one.until = {};
    } else if (tellsOfOthers(one.until, one.untilBy)) {
        one.until = parish::dateOf(limit, true);
        one.untilBy = observation::Proof::None;
    }
    return one;
}

void IdsWriter::findWithheld()
{
    if (options_.limitYears > 0) withheld_ = peopleWhoMayBeAlive(bdp_, options_.today.addYears(-options_.limitYears));
    counts_.withheldPeople = withheld_.size();
    if (withheld_.isEmpty()) return;
    jet::Rows row(bdp_, jet::NativeSql("select m.nfamilia, m.nind from familias m join familia f on f.nfamilia = "
                                       "m.nfamilia"));
    while (row.next())
        if (withheld_.contains(row.number(1))) closed_.insert(row.number(0));
    counts_.withheldFamilies = closed_.size();
}

void IdsWriter::begin(IdsTable table)
{
    file_ = std::make_unique<IdsFile>(files_, table, database_);
}

void IdsWriter::finish()
{
    resources_.push_back(file_->finish());
    counts_.tables.push_back({QString::fromStdString(resources_.back()["title"].get<std::string>()), file_->rows()});
    file_.reset();
}

IdsCounts IdsWriter::write()
{
    readParish();
    findWithheld();
    database_ = "ORV" + (home_.code.isEmpty() ? QByteArray() : '_' + home_.code.toUtf8());
    if (options_.version.isValid()) database_ += '_' + options_.version.toString("yyyyMMdd").toLatin1();
    writePeople();
    writeRelations();
    writeRolesInContexts();
    writeContexts();
    begin(IdsTable::ContextContext);
    writePlacesInPlaces();
    finish();
    writeMetadata();
    files_.add(report::packageFile, report::bytesOf(package()));
    ask(1);
    files_.place();
    return std::move(counts_);
}

report::PackageJson IdsWriter::package() const
{
    const QString name = home_.name.isEmpty() ? "IDS da BDP" : "IDS da BDP – " + home_.name;
    report::PackageJson json =
        report::packageOf("ids-" + (home_.code.isEmpty() ? home_.name : home_.code), name, options_.program, {});
    if (options_.source.isKnown()) json["sources"] = report::PackageJson::array({report::sourceOf(options_.source)});
    json["resources"] = resources_;
    return json;
}

QByteArrayView IdsWriter::typeOf(const ToldWords& words) const
{
    return typesTold_[static_cast<std::size_t>(words.told)];
}

// Above all places.
qint64 IdsWriter::contextOfFamily(qint64 number) const
{
    return (places_.count() / million + 1) * million + number;
}

// By its description; by the code itself where it has none.
IdsCoded IdsWriter::codedBy(const QString& category, parish::Code code)
{
    if (!code) return {};
    const std::pair<QString, int> key(category, *code);
    if (const auto known = coded_.constFind(key); known != coded_.constEnd()) return *known;
    const QString told = catalogue_.description(category, code).simplified();
    const QString which = QString("%1 %2").arg(category).arg(*code);
    return *coded_.insert(key, {told.isEmpty() ? QString("(%1)").arg(*code) : told, which});
}

// The row of an assistant has a copy of the date of the act, which doesn't tell whether it is exact.
parish::Date IdsWriter::actDate(QDate told, const parish::Date& card)
{
    return !told.isValid() || told == card.date() ? card : parish::dateOf(told, true);
}

QString IdsWriter::sourceOf(Register which, const parish::Date& date, const parish::Place& place,
                            const QString& page) const
{
    const bool isOfTheBooks = date.isKnown() && parish::isLocal(place, home_);
    if (!isOfTheBooks && page.isEmpty()) return {};
    const QString title = wordsOf(which).title;
    return page.isEmpty() ? title : title + ", " + page;
}

IdsCounts exportIds(const jet::Connection& bdp, const QString& folder, const IdsOptions& options, const GoesOn& goesOn)
{
    const jet::OneLook look(bdp);
    return IdsWriter(bdp, folder, options, goesOn).write();
}

} // namespace study::exchange
