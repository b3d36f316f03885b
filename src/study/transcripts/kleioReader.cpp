#include "study/transcripts/kleioReader.h"

#include "study/transcripts/kleioHead.h"

#include <QRegularExpression>

#include <algorithm>
#include <limits>

namespace study::kleio {

namespace {

constexpr int nobodyStandsDeeper = std::numeric_limits<int>::max(); // nothing hangs on who is told in the head

// An act of another kind has an id or not, but always a date: three numbers, one text, or at least a year.
bool opensAnAct(const Group& group)
{
    static const QRegularExpression date(
        R"(^(1[4-9]\d\d|\d{1,2}[-.]\d{1,2}[-.]\d{4}|\d{4}[-.]\d{1,2}[-.]\d{1,2}|\d{8})$)");
    const auto isDate = [](const Element& element) {
        if (element.name.isEmpty()) return date.match(element.joined().trimmed()).hasMatch();
        return element.name == "data" || element.name == "ano";
    };
    return std::any_of(group.elements.begin(), group.elements.end(), isDate);
}

QString asText(const Group& group)
{
    return group.name + '$' + group.body.trimmed();
}

bool isAttribute(const QString& group)
{
    return group == "ls" || group == "atr" || group == "attr";
}

} // namespace

void Reader::warn(int line, const QString& text)
{
    read_.problems << Problem{line, text};
}

void Reader::fail(int line, const QString& text)
{
    read_.problems << Problem{line, text, Problem::Severity::Error};
}

void Reader::take(const Group& group)
{
    settleOpenUnknown(group);
    if (takeFile(group)) return;
    if (standsOutside_ && group.indent > outsideIndent_) return takeUnknown(group);
    standsOutside_ = false;
    const bool hangs = isAttribute(group.name) || isFact(group.name) || group.name == "rel";
    const std::optional<Place> place = actIsOpen_ ? placeOf(group.name, group.indent, current(), standing_)
                                                  : placeOf(group.name, group.indent, {}, {});
    if (!hangs && !place) return takeUnknown(group);
    if (!actIsOpen_) return fail(group.line, QString("O grupo \"%1$\" não pertence a nenhum acto.").arg(group.name));
    if (place)
        takePerson(group, *place);
    else if (isAttribute(group.name))
        takeAttribute(group);
    else if (group.name == "rel")
        takeRelation(group);
    else
        takeFact(group);
}

bool Reader::takeFile(const Group& group)
{
    if (group.name == "kleio")
        hasHeader_ = true;
    else if (group.name == "fonte")
        takeSource(group);
    else if (kindOf(group.name))
        beginAct(group);
    else
        return false;
    standsOutside_ = false;
    return true;
}

void Reader::takeSource(const Group& group)
{
    endAct();
    Source source{.line = group.line};
    QString* const fields[]{&source.id, &source.date, &source.kind, &source.archive};
    const QStringList names{"id", "data", "tipo", "localizacao"};
    int place = 0;
    for (const Element& element : group.elements) {
        const qsizetype at = element.name.isEmpty() ? place++ : names.indexOf(element.name);
        if (at >= 0 && at < names.size() && fields[at]->isEmpty())
            *fields[at] = element.joined();
        else
            addElement(source.notes, element);
    }
    if (const Element* year = group.named("ano"); year && source.date.isEmpty()) source.date = year->joined();
    read_.sources << source;
}

void Reader::beginAct(const Group& group)
{
    endAct();
    if (read_.sources.isEmpty() && read_.acts.isEmpty())
        warn(group.line, "Há actos antes de qualquer grupo \"fonte$\"; ficam sem livro.");
    Head head = readHead(group);
    for (const QString& text : head.warnings)
        warn(group.line, text);
    if (!read_.sources.isEmpty() && head.act.book.isEmpty()) head.act.book = read_.sources.last().id;
    for (const Told& name : head.celebrants) {
        head.act.people << ActPerson{.role = Role::Celebrant, .name = name};
        standing_ << Standing{"celebrante", nobodyStandsDeeper};
    }
    headCelebrants_ = static_cast<int>(head.act.people.size());
    read_.acts << TranscribedAct{head.act, group.line, static_cast<int>(read_.sources.size()) - 1};
    actIndent_ = group.indent;
    actIsOpen_ = true;
}

void Reader::endAct()
{
    if (actIsOpen_) {
        endRelations(current());
        checkAct(read_.acts.last());
    }
    actIsOpen_ = false;
    standing_.clear();
    lastPerson_ = -1;
}

// Who is meant by the id of a relation is known when all people of the act are.
void Reader::endRelations(Act& act)
{
    const auto count = static_cast<int>(act.people.size());
    for (const int at : byId_) {
        Relation& relation = act.relations[at];
        for (int person = 0; person < count && relation.other < 0; ++person)
            if (act.people[person].id == relation.otherId) relation.other = person;
        if (relation.other < 0)
            later_ << LaterCheck{linesOfThem_[at], relation.otherId,
                                 QString("A relação leva ao id \"%1\", que ninguém tem.").arg(relation.otherId)};
    }
    for (int at = 0; at < act.relations.size(); ++at) {
        Relation& relation = act.relations[at];
        if (relation.person < count && relation.other < count) continue;
        warn(linesOfThem_[at], "A relação leva a uma pessoa que o acto não tem.");
        if (relation.person >= count) relation.person = -1;
        if (relation.other >= count) relation.other = -1;
    }
    byId_.clear();
    linesOfThem_.clear();
}

void Reader::checkAct(const TranscribedAct& one)
{
    const Act& act = one.act;
    if (act.date.isEmpty())
        warn(one.line, "O acto não tem data.");
    else if (!act.date.isPossible())
        warn(one.line, QString("A data %1 não existe.").arg(shown(act.date)));
    if (!act.id.isEmpty() && ids_.contains(act.id))
        warn(one.line, QString("O id \"%1\" aparece duas vezes.").arg(act.id));
    ids_ << act.id;
    for (const Role role : {Role::Child, Role::Deceased, Role::Groom, Role::Bride})
        if (peopleWith(act, role).size() > 1) warn(one.line, "O acto tem duas pessoas com o mesmo papel principal.");
    if (subjects(act).isEmpty()) warn(one.line, "O acto não diz de quem é.");
    for (int person = 0; person < act.people.size(); ++person)
        checkRelatives(one, person);
}

// Parents and spouses who can't all be those of one person.
void Reader::checkRelatives(const TranscribedAct& one, int person)
{
    const Act& act = one.act;
    const QString whose = nameOf(act.people[person]).isEmpty() ? roleTitle(act, person) : nameOf(act.people[person]);
    for (const Role role : {Role::Father, Role::Mother})
        if (peopleWith(act, role, person).size() > 1)
            warn(one.line, QString(role == Role::Father ? "Há dois pais de %1." : "Há duas mães de %1.").arg(whose));
    QSet<int> ordinals;
    for (const int spouse : peopleWith(act, Role::Spouse, person) + peopleWith(act, Role::EarlierSpouse, person)) {
        const int ordinal = act.people[spouse].ordinal;
        if (ordinals.contains(ordinal)) warn(one.line, QString("Há dois cônjuges de %1 no mesmo lugar.").arg(whose));
        ordinals << ordinal;
        const Sex sex = sexOf(act, spouse);
        if (sex != Sex::Unknown && sex == sexOf(act, person))
            warn(one.line, QString("%1 e o seu cônjuge são do mesmo sexo.").arg(whose));
    }
}

// What isn't known stays as text: with the act it stands in, or with the book where it is an act of another kind.
void Reader::takeUnknown(const Group& group)
{
    ++read_.unknownParts[group.name];
    if (standsOutside_) return noteInTheBook(group);
    if (actIsOpen_ && group.indent > actIndent_) return addNote(notesHere(), asText(group));
    if (actIsOpen_ && !opensAnAct(group)) {
        openUnknown_ = group;
        return;
    }
    standOutside(group);
}

// A group without a date, as deep as its act, is another act where a child or a deceased follows at once whom this one
// has no place for; else it is part of the act.
void Reader::settleOpenUnknown(const Group& next)
{
    if (!openUnknown_) return;
    const Group group = *openUnknown_;
    openUnknown_.reset();
    const bool hasSubject = current().kind == ActKind::Marriage || !subjects(current()).isEmpty();
    if (next.name == "n" && hasSubject)
        standOutside(group);
    else
        addNote(notesHere(), asText(group));
}

// All up to the next act is of that group, whatever its indentation; without an act before, what is deeper.
void Reader::standOutside(const Group& group)
{
    standsOutside_ = true;
    outsideIndent_ = actIsOpen_ || opensAnAct(group) ? -1 : group.indent;
    endAct();
    noteInTheBook(group);
}

void Reader::noteInTheBook(const Group& group)
{
    warn(group.line, QString("O grupo \"%1$\" não é de um acto conhecido; fica nas notas do livro.").arg(group.name));
    if (read_.sources.isEmpty()) read_.sources << Source{.line = group.line};
    addNote(read_.sources.last().notes, asText(group));
}

void Reader::end()
{
    settleOpenUnknown({});
    endAct();
    for (const LaterCheck& check : later_)
        if (!ids_.contains(check.id)) warn(check.line, check.text);
    if (read_.acts.isEmpty()) fail(0, "O ficheiro não tem nenhum acto em notação Kleio.");
    if (!hasHeader_ && !read_.acts.isEmpty()) warn(0, "Falta a linha \"kleio$\" no princípio do ficheiro.");
}

} // namespace study::kleio
