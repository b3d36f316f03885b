// Godparents, witnesses and priests.
#include "study/acts/work.h"

#include <utility>

namespace study {

namespace {

bool isParentDead(const Work& work, int person, Role role)
{
    const int parent = work.parent(person, role);
    return parent >= 0 && deadBefore(work.act, parent);
}

QString asUsed(Work& work, const Relation& relation)
{
    work.takenRelations << &relation;
    return relation.told.value;
}

// A relation that the other is told to be, as the assistant is it: who has a sister is her brother.
QString turned(const QString& relation, Sex sex)
{
    const QString word = plainWords(relation).section(' ', 0, 0);
    if (sex == Sex::Unknown) return {};
    if (word == "irmao" || word == "irma") return sex == Sex::Female ? "irma" : "irmao";
    return sex == Sex::Female ? "prima" : "primo";
}

// What the assistant is to one of those whom the act is about: told of them, or of a parent of theirs. Brothers are so
// to each other.
QVariant kinshipWith(Work& work, int assistant, int subject)
{
    static const QStringList mutualRelations{"irmao", "irma", "primo", "prima"};
    const Sex sex = sexOf(work.act, assistant);
    for (const Relation& relation : work.act.relations) {
        const bool mutualOne = mutualRelations.contains(plainWords(relation.told.value).section(' ', 0, 0));
        int other = -1;
        if (relation.person == assistant) other = relation.other;
        if (relation.other == assistant && mutualOne) other = relation.person;
        if (other < 0 || other >= work.count() || relation.type.compare("parentesco", Qt::CaseInsensitive) != 0)
            continue;
        std::optional<QString> meant;
        if (other == subject)
            meant =
                kinshipTold(relation.person == assistant ? relation.told.value : turned(relation.told.value, sex), sex);
        else if (work.owner(other) == subject)
            meant = kinshipThrough(work.act.people[other].role, relation.told.value, sex);
        const auto code = meant ? work.catalogue.codeOf("Paren", *meant) : std::nullopt;
        if (!code) continue;
        asUsed(work, relation);
        return double(*code);
    }
    return {};
}

// "por procuração a António Dias"
QString proxies(Work& work, int assistant)
{
    QStringList names;
    for (const int proxy : peopleWith(work.act, Role::Proxy, assistant))
        names << (work.number(proxy) != 0 ? work.nameIn(work.number(proxy))
                                          : shownName(nameOf(work.act.people[proxy])));
    return names.isEmpty() ? QString() : "por procuração a " + names.join(" e ");
}

// An act that stands on the cards already: its assistants aren't written a second time.
bool isThere(Work& work, const QString& kind, qint64 entity, qint64 nind)
{
    return !work.ledger
                .value(jet::NativeSql("select nind from assistente where tipoacto = ? and entidade = ? and nind = ?",
                                      {kind, entity, nind}))
                .isNull();
}

void planAssistant(Work& work, const QString& kind, qint64 entity, int person, const QString& as)
{
    PlannedRow& row = work.ledger.add("assistente", {{"tipoacto", kind},
                                                     {"entidade", double(entity)},
                                                     {"dataref", QVariant(*work.day)},
                                                     {"nind", double(work.number(person))}});
    row.set("tipoassistente", as);
    row.set("estadocivil", work.code(person, attribute::civilState, "EstCi"));
    row.set("falecidopai", isParentDead(work, person, Role::Father));
    row.set("falecidomae", isParentDead(work, person, Role::Mother));
    if (kind == "b") {
        row.set("parentbapt", kinshipWith(work, person, personWith(work.act, Role::Child)));
    } else {
        row.set("parentnoivo", kinshipWith(work, person, personWith(work.act, Role::Groom)));
        row.set("parentnoiva", kinshipWith(work, person, personWith(work.act, Role::Bride)));
    }
    QStringList notes{proxies(work, person), work.act.people[person].notes.trimmed()};
    notes.removeAll(QString());
    work.fillText(row, "obs", notes.join("; "), "notas de " + work.label(person));
}

} // namespace

void planAssistants(Work& work, const QString& kind, qint64 entity)
{
    if (!work.day || entity == 0) return;
    for (int person = 0; person < work.count(); ++person) {
        const ActPerson& one = work.act.people[person];
        if (work.number(person) == 0 || !isAssistant(one.role)) continue;
        if (isThere(work, kind, entity, work.number(person))) {
            work.say(QString("%1 já está na ficha como assistente deste acto.").arg(work.label(person)));
            continue;
        }
        planAssistant(work, kind, entity, person, one.role == Role::Witness ? "t" : "p");
    }
}

void planPriests(Work& work, PlannedRow& row, const QList<PriestColumns>& columns)
{
    qsizetype place = 0; // one who is kept in the act alone has his place, too: the second doesn't become the first
    for (int person = 0; person < work.count(); ++person) {
        if (work.act.people[person].role != Role::Celebrant) continue;
        if (work.number(person) == 0) {
            ++place;
            continue;
        }
        if (place >= columns.size()) {
            work.leaveOut(QString("Celebrante %1: a ficha não tem lugar para mais um.").arg(work.label(person)));
            continue;
        }
        const auto& [priest, function] = columns[place++];
        const QVariant office = work.code(person, attribute::office, "FunPa");
        RowChange::Columns told{{priest, double(work.number(person))}};
        if (!office.isNull()) told << std::pair(QString(function), office);
        if (work.fill(row, told, "celebrante") || office.isNull()) continue;
        if (!sameValue(row.now(priest), told.first().second) || !sameValue(row.now(function), office))
            work.untake(firstTold(work.act.people[person].attributes, attribute::office));
    }
}

} // namespace study
