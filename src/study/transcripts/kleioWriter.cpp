#include "study/transcripts/kleio.h"
#include "study/transcripts/kleioRoles.h"
#include "study/transcripts/kleioText.h"

#include <QRegularExpression>
#include <QSet>

#include <algorithm>
#include <utility>

namespace study {

namespace {

using kleio::Place;
using kleio::Standing;
using kleio::written;

constexpr int indentOfSources = 3;
constexpr int indentOfActs = 6;
constexpr int indentOfPeople = 9;
constexpr int deeper = 3;

// One line of a file.
class Line
{
public:
    Line(int indent, const QString& group) : text_(QString(indent, ' ') + group + '$') {}

    // By its place; those that aren't filled are left out at the end.
    void add(const QString& value)
    {
        ++waiting_;
        if (value.isEmpty()) return;
        text_ += QString(waiting_ - (isFirst_ ? 1 : 0), '/') + value;
        waiting_ = 0;
        isFirst_ = false;
    }
    void addText(const QString& text) { add(text.isEmpty() ? QString() : written(text)); }

    void name(const QString& name, const QString& value)
    {
        text_ += (isFirst_ ? QString() : QString('/')) + name + '=' + value;
        isFirst_ = false;
        waiting_ = 0;
    }
    void nameText(const QString& name, const QString& text)
    {
        if (!text.isEmpty()) this->name(name, written(text));
    }

    QString ended() const { return text_ + '\n'; }

private:
    QString text_;
    int waiting_ = 0; // elements by place that are not written yet
    bool isFirst_ = true;
};

QString groupOf(ActKind kind)
{
    switch (kind) {
    case ActKind::Baptism:
        return "bap";
    case ActKind::Marriage:
        return "cas";
    case ActKind::Burial:
        break;
    }
    return "obito";
}

QString letterOf(Sex sex)
{
    return sex == Sex::Male ? "m" : sex == Sex::Female ? "f" : "d";
}

// Between quotes, also where the signs would need none: so it is read as it stands.
QString verbatim(const QString& text)
{
    const QString plain = written(text);
    return plain == text ? '"' + text + '"' : plain;
}

// Day, month and year as three elements; a number that nobody would take for a day is named.
void addDate(Line& line, const PartialDate& date)
{
    static constexpr int beyondDays = 100;
    const bool isUsual = date.day >= 0 && date.day < beyondDays;
    if (isUsual)
        for (const int number : {date.day, date.month, date.year})
            line.add(QString::number(number));
    else
        for (const auto& [name, number] : {std::pair{"dia", date.day}, {"mes", date.month}, {"ano", date.year}})
            line.name(name, QString::number(number));
}

QString headOf(const Act& act)
{
    static const QRegularExpression simple("^[0-9]+[rv]?$");
    Line line(indentOfActs, groupOf(act.kind));
    line.addText(act.id);
    addDate(line, act.date);
    if (simple.match(act.folio).hasMatch())
        line.add("fol." + act.folio);
    else
        line.nameText("folio", act.folio);
    line.nameText("numero", act.number);
    if (!act.place.isEmpty()) line.name("local", written(act.place));
    if (act.date.about) line.name("cerca", "sim");
    line.nameText("texto_data", act.date.text);
    line.nameText("obs", act.notes);
    return line.ended();
}

void addAttribute(QString& text, const Attribute& attribute, int indent)
{
    Line line(indent, "ls");
    const bool isRead = kleio::typeOf(attribute.type) == attribute.type;
    line.add(isRead && !attribute.type.isEmpty() ? written(attribute.type) : QString());
    line.add(written(attribute.told));
    line.addText(attribute.date);
    if (!isRead) line.name("tipo", verbatim(attribute.type));
    text += line.ended();
}

void addFact(QString& text, const Attribute& fact)
{
    if (!kleio::isFact(fact.type)) return addAttribute(text, fact, indentOfPeople);
    Line line(indentOfPeople, fact.type);
    line.add(written(fact.told));
    line.nameText("data", fact.date);
    text += line.ended();
}

// Writes the people and relations of one act, and follows what a reader makes of the groups.
class People
{
public:
    // `ids` are those of all people that are written.
    People(const Act& act, const QSet<QString>& ids) : act_(act), ids_(ids)
    {
        relationsFollow_ = relationsFollowPeople();
    }

    QString text()
    {
        if (relationsFollow_) addRelations(-1, indentOfPeople);
        for (int person = 0; person < act_.people.size(); ++person)
            addPerson(person);
        if (!relationsFollow_)
            for (const Relation& relation : act_.relations)
                addRelation(relation, indentOfPeople, true);
        return text_;
    }

private:
    // Whether the relations stand in the order of the people, so that each can stand below its person.
    bool relationsFollowPeople() const
    {
        return std::is_sorted(act_.relations.begin(), act_.relations.end(),
                              [](const Relation& a, const Relation& b) { return a.person < b.person; });
    }

    void addPerson(int person)
    {
        const ActPerson& one = act_.people[person];
        const bool hangs = one.of >= 0 && one.of < standing_.size();
        const int indent = hangs ? standing_[one.of].indent + deeper : indentOfPeople;
        const std::optional<Place> place = placeInFile(person, indent);
        const QString group = place ? kleio::groupFor(act_, person, standing_) : QString("referido");
        Line line(indent, group);
        line.add(written(one.name));
        if (one.toldSex) line.add(letterOf(*one.toldSex));
        line.nameText("id", one.id);
        if (!place) addOwnPlace(line, one);
        if (!one.toldSex && place && tellsAnotherSex(person, *place)) line.name("sexo", "\"\"");
        line.nameText("nome_padrao", one.standardName);
        addSameAs(line, one.sameAs);
        line.nameText("obs", one.notes);
        text_ += line.ended();
        standing_ << Standing{kleio::canonical(group), indent};
        for (const Attribute& attribute : one.attributes)
            addAttribute(text_, attribute, indent + deeper);
        if (relationsFollow_) addRelations(person, indent + deeper);
    }

    // Nothing where no group's name leads to the place of that person in the act.
    std::optional<Place> placeInFile(int person, int indent) const
    {
        const ActPerson& one = act_.people[person];
        const QString group = kleio::groupFor(act_, person, standing_);
        const auto place = group.isEmpty() ? std::nullopt : kleio::placeOf(group, indent, act_, standing_);
        const bool isThere =
            place && place->found && place->role == one.role && place->of == one.of && place->ordinal == one.ordinal;
        return isThere ? place : std::nullopt;
    }

    bool tellsAnotherSex(int person, const Place& place) const
    {
        return place.sex != Sex::Unknown && sexOf(act_, person) != place.sex;
    }

    static void addOwnPlace(Line& line, const ActPerson& one)
    {
        line.name("papel", kleio::wordOf(one.role));
        if (one.of >= 0) line.name("de", QString::number(one.of + 1));
        if (one.ordinal != 0) line.name("ordem", QString::number(one.ordinal));
    }

    // One who stands in another file has an element of another name.
    void addSameAs(Line& line, const QStringList& same) const
    {
        for (qsizetype first = 0; first < same.size();) {
            const bool isHere = ids_.contains(same[first]);
            QStringList values;
            for (; first < same.size() && ids_.contains(same[first]) == isHere; ++first)
                values << written(same[first]);
            line.name(isHere ? "mesmo_que" : "xmesmo_que", values.join(';'));
        }
    }

    void addRelations(int person, int indent)
    {
        for (const Relation& relation : act_.relations)
            if (relation.person == person) addRelation(relation, indent, false);
    }

    void addRelation(const Relation& relation, int indent, bool namesPerson)
    {
        Line line(indent, "rel");
        line.addText(relation.type);
        line.add(written(relation.told));
        line.addText(relation.otherName);
        line.addText(relation.otherId);
        if (namesPerson) line.name("de", QString::number(relation.person + 1));
        if (relation.other != byId(relation.otherId)) line.name("com", QString::number(relation.other + 1));
        text_ += line.ended();
    }

    // Whom a reader finds by an id.
    int byId(const QString& id) const
    {
        for (int person = 0; person < act_.people.size() && !id.isEmpty(); ++person)
            if (act_.people[person].id == id) return person;
        return -1;
    }

    const Act& act_;
    const QSet<QString>& ids_;
    QString text_;
    QList<Standing> standing_;
    bool relationsFollow_ = true;
};

} // namespace

static QString sourceOf(const Source& source)
{
    Line line(indentOfSources, "fonte");
    for (const QString& text : {source.id, source.date, source.kind, source.archive})
        line.addText(text);
    line.nameText("obs", source.notes);
    return line.ended();
}

// The lines that open a book, or one that says no more than its id.
static QString openingOf(const QString& book, const QList<Source>& sources)
{
    QString lines;
    for (const Source& source : sources)
        if (source.id == book) lines += sourceOf(source);
    return lines.isEmpty() ? sourceOf({.id = book}) : lines;
}

static QSet<QString> idsOf(const QList<Act>& acts)
{
    QSet<QString> ids;
    for (const Act& act : acts)
        for (const ActPerson& person : act.people)
            if (!person.id.isEmpty()) ids << person.id;
    return ids;
}

QByteArray toKleio(const QList<Act>& acts, const QList<Source>& sources)
{
    const QSet<QString> ids = idsOf(acts);
    QSet<QString> books;
    QByteArray file = "kleio$gacto2.str/translations=1\n";
    const QString* book = nullptr;
    for (const Act& act : acts) {
        if (!book || *book != act.book)
            file += (books.contains(act.book) ? sourceOf({.id = act.book}) : openingOf(act.book, sources)).toUtf8();
        book = &act.book;
        books << act.book;
        QString text = headOf(act);
        for (const Attribute& fact : act.facts)
            addFact(text, fact);
        text += People(act, ids).text();
        file += text.toUtf8();
    }
    for (const Source& source : sources)
        if (!books.contains(source.id)) file += sourceOf(source).toUtf8();
    return file;
}

} // namespace study
