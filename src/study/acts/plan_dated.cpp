// Places, residences and professions.
#include "study/acts/work.h"

#include "common/marca.h"
#include "common/niveis.h"
#include "common/numeros.h"
#include "platform/jet/recordset.h"

#include <QRegularExpression>

#include <algorithm>
#include <utility>

namespace study {

namespace {

// A place that is made with the act; of several people who live there the first makes it.
PlacePair newPlace(Work& work, const PlaceChoice& choice)
{
    const QString name = semMarca(choice.name).remove(QChar(0)).simplified();
    const QString parish = choice.parish.isEmpty() ? work.ledger.ownParish() : choice.parish;
    if (const auto made = work.newPlaces.constFind({parish, plainWords(name)}); made != work.newPlaces.constEnd())
        return {.code = *made, .level = 'L', .name = name};
    if (choice.level != 'L' || name.isEmpty() || eNumero(name) || name.size() >= 255 ||
        !placeName(work.bdp, parish, 'F')) {
        work.object("lugar-impossivel", -1,
                    QString("O lugar «%1» não se pode criar: falta-lhe um nome ou a freguesia.").arg(name.left(60)),
                    true);
        return {};
    }
    QString code = localityNamed(work.bdp, name, parish);
    if (code.isEmpty()) {
        code = work.nextPlace(parish);
        PlannedRow& row = work.ledger.add("lugar", {{"codlugar", code}});
        row.set("nomelugar", comMarca(name));
        row.set("codparoquia", parish);
        row.set("prioridade", double(int(Prioridade::NaLista)));
        work.say(QString("Novo lugar %1, em %2.").arg(name, placeName(work.bdp, parish, 'F').value_or(parish)));
    }
    work.newPlaces.insert({parish, plainWords(name)}, code);
    return {.code = code, .level = 'L', .name = name};
}

// The date of an attribute that has one of its own ("17020214" too), else that of the act.
std::pair<std::optional<QDate>, bool> dateOf(const Work& work, const Attribute& told)
{
    static const QRegularExpression digits(R"(^\s*(\d{4})(\d{2})(\d{2})\s*$)");
    PartialDate own = readPartialDate(told.date);
    if (const auto match = digits.match(told.date); match.hasMatch())
        own = {.year = match.captured(1).toInt(), .month = match.captured(2).toInt(), .day = match.captured(3).toInt()};
    if (const auto day = own.standing()) return {day, own.isComplete()};
    return {work.day, work.exact};
}

struct Dwelling
{
    QString code;
    QString level;
    QDate since;
};

// The last one that is known on a day or before it, planned ones included.
std::optional<Dwelling> lastDwelling(Work& work, qint64 nind, const QDate& day)
{
    if (const auto told = work.residences.constFind({nind, day}); told != work.residences.constEnd())
        return Dwelling{.code = told->code, .level = told->level, .since = day};
    const PlannedRow* person = work.ledger.person(nind);
    if (!person || person->isNew()) return {};
    const jet::Recordset row(work.bdp,
                             jet::NativeSql("select localresid, tipolocal, dataref from residencia where numero = ? "
                                            "and tiporesid = 'i' and dataref <= ? order by dataref desc limit 1",
                                            {nind, day}));
    if (row.eof()) return {};
    return Dwelling{.code = row[0].toString(), .level = row[1].toString(), .since = row[2].toDate()};
}

void planResidence(Work& work, int person, const Attribute& told)
{
    const PlacePair place = placeTold(work, told.told.value);
    const auto [day, exact] = dateOf(work, told);
    const qint64 nind = work.number(person);
    if (place.isEmpty() || !day) return;
    work.takeThis(&told);
    if (const auto last = lastDwelling(work, nind, *day)) {
        if (last->code == place.code && last->level.compare(place.level, Qt::CaseInsensitive) == 0) return;
        if (last->since == *day) {
            work.leaveOut(
                QString("Residência de %1 em %2: nesse dia já tem outra.").arg(work.label(person), place.name));
            return;
        }
    }
    PlannedRow& row =
        work.ledger.add("residencia", {{"numero", double(nind)}, {"tiporesid", "i"}, {"dataref", QVariant(*day)}});
    row.set("datafixa", exact);
    row.set("localresid", place.code);
    row.set("tipolocal", QString(place.level));
    row.set("fonte", work.source);
    work.residences.insert({nind, *day}, place);
    work.say(QString("Residência de %1 em %2.").arg(work.label(person), place.name));
}

int newProfession(Work& work, const QString& text)
{
    const QString name = semMarca(text).remove(QChar(0)).simplified();
    if (const auto made = work.newProfessions.constFind(plainWords(name)); made != work.newProfessions.constEnd())
        return *made;
    if (name.isEmpty() || name.size() >= 255) return 0;
    auto code = professionNamed(work.bdp, name);
    if (!code) {
        code = nextProfession(work.bdp) + work.professionsMade++;
        PlannedRow& row = work.ledger.add("profissao", {{"codprof", double(*code)}});
        row.set("obs", QString("")); // as its editor leaves it
        row.set("profissao", comMarca(name.at(0).toUpper() + name.mid(1)));
        work.say(QString("Nova profissão %1.").arg(name));
    }
    work.newProfessions.insert(plainWords(name), *code);
    return *code;
}

// Whether it is one of those that are known since the last day on which any was told.
bool hasProfession(Work& work, qint64 nind, int code, const QDate& day)
{
    if (work.professions.contains({nind, code})) return true;
    const PlannedRow* person = work.ledger.person(nind);
    if (!person || person->isNew()) return false;
    return !work.ledger
                .value(jet::NativeSql("select codprof from profissoes where nind = ? and codprof = ? and dataref = "
                                      "(select max(dataref) from profissoes where nind = ? and dataref <= ?)",
                                      {nind, code, nind, day}))
                .isNull();
}

void planProfession(Work& work, int person, const Attribute& told)
{
    const auto concluded = work.conclusions.professions.constFind(told.told.value);
    const auto [day, exact] = dateOf(work, told);
    if (concluded == work.conclusions.professions.constEnd() || !day) return;
    const int code = *concluded == 0 ? newProfession(work, told.told.value) : *concluded;
    const qint64 nind = work.number(person);
    if (code == 0) return;
    if (*concluded != 0 && !professionName(work.bdp, code))
        return work.object("profissao-desconhecida", person, QString("A profissão nº %1 não existe na BDP.").arg(code),
                           true);
    work.takeThis(&told);
    if (hasProfession(work, nind, code, *day)) return;
    const auto stored = qint64(
        work.ledger.value(jet::NativeSql("select max(idprofissao) from profissoes where nind = ?", {nind})).toDouble());
    const auto before = work.professions.values();
    const auto more = std::ranges::count_if(before, [=](const auto& other) { return other.first == nind; });
    PlannedRow& row =
        work.ledger.add("profissoes", {{"nind", double(nind)}, {"idprofissao", double(stored + 1 + more)}});
    row.set("dataref", *day);
    row.set("datafixa", exact);
    row.set("codprof", double(code));
    row.set("fonte", work.source);
    work.professions.insert({nind, code});
    work.say(QString("Profissão de %1: %2.").arg(work.label(person), told.told.value.trimmed()));
}

} // namespace

PlacePair placeTold(Work& work, const QString& text)
{
    const auto concluded = work.conclusions.places.constFind(text);
    if (concluded == work.conclusions.places.constEnd()) return {};
    if (concluded->code.isEmpty()) return newPlace(work, *concluded);
    if (const auto name = placeName(work.bdp, concluded->code, concluded->level))
        return {.code = concluded->code, .level = concluded->level.toUpper(), .name = *name};
    work.object("lugar-desconhecido", -1,
                QString("O lugar «%1» (%2 %3) não existe na BDP.")
                    .arg(text.left(60), QString(concluded->level), concluded->code.left(20)),
                true);
    return {};
}

PlacePair ownParish(Work& work)
{
    const QString code = work.ledger.ownParish();
    if (code.isEmpty()) return {};
    return {.code = code, .level = 'F', .name = placeName(work.bdp, code, 'F').value_or(code)};
}

PlacePair placeOrParish(Work& work, const QString& text)
{
    static const QStringList ownChurch{"",       "na",     "nesta",  "desta",     "esta",      "a",        "da",
                                       "igreja", "egreja", "matriz", "paroquial", "freguesia", "paroquia", "mesma"};
    if (const PlacePair place = placeTold(work, text); !place.isEmpty()) return place;
    const QStringList words = plainWords(text).split(' ');
    const bool own = std::ranges::all_of(words, [](const QString& word) { return ownChurch.contains(word); });
    return own ? ownParish(work) : PlacePair{};
}

bool fillPlace(Work& work, PlannedRow& row, const QString& codeColumn, const QString& levelColumn,
               const PlacePair& place, const QString& what)
{
    if (place.isEmpty()) return false;
    return work.fill(row, {{codeColumn, place.code}, {levelColumn, QString(place.level)}}, what);
}

void planDatedRows(Work& work)
{
    for (int person = 0; person < work.count(); ++person) {
        if (work.number(person) == 0) continue;
        for (const Attribute& told : work.act.people[person].attributes) {
            if (told.type.compare(QLatin1String(attribute::residence), Qt::CaseInsensitive) == 0)
                planResidence(work, person, told);
            if (told.type.compare(QLatin1String(attribute::profession), Qt::CaseInsensitive) == 0)
                planProfession(work, person, told);
        }
    }
}

} // namespace study
