#include "study/transcripts/kleioHead.h"
#include "study/transcripts/kleioReader.h"

#include <QHash>

#include <algorithm>

namespace study::kleio {

QString typeOf(const QString& written)
{
    namespace at = attribute;
    static const QSet<QString> known{
        at::residence, at::birthplace,  at::profession,   at::civilState, at::title,     at::nickname,  at::office,
        at::age,       at::roughAge,    at::dead,         at::otherName,  at::foundling, at::filiation, at::minor,
        at::poor,      at::parishClass, at::illegitimate, at::offices,    at::masses,    at::alms,      at::will,
        at::cause,     at::sacraments,  at::shroud,       at::church,     at::grave,     at::deathPlace};
    static const QHash<QString, QString> feminine{
        {"morta", at::dead}, {"ilegitima", at::illegitimate}, {"enjeitada", at::foundling}};
    const QString plain = folded(written);
    return known.contains(plain) ? plain : feminine.value(plain, written);
}

bool isFact(const QString& group)
{
    static const QSet<QString> facts{attribute::grave,   attribute::deathPlace, attribute::sacraments,
                                     attribute::offices, attribute::will,       attribute::cause};
    return facts.contains(group);
}

namespace {

// The text of an element that holds nothing else; else all that stands there.
QString textIn(const Element& element)
{
    const Told told = element.first();
    const bool isPlain = element.values.size() <= 1 && told == Told{.value = told.value};
    return isPlain ? told.value : Element{{}, element.values}.written();
}

void addComment(QString& comment, const Element& element)
{
    const QString text = element.name == "obs" ? element.joined() : element.written();
    if (!text.isEmpty()) comment += comment.isEmpty() ? text : "; " + text;
}

QList<Told> allTold(const Element& values)
{
    if (values.values.isEmpty()) return {Told{}};
    QList<Told> told;
    told.reserve(values.values.size());
    for (const Value& value : values.values)
        told << value.told;
    return told;
}

} // namespace

QString& Reader::notesHere()
{
    return lastPerson_ < 0 ? current().notes : current().people[lastPerson_].notes;
}

void Reader::takeAttribute(const Group& group)
{
    Attribute model;
    Element values;
    int place = 0;
    for (const Element& element : group.elements) {
        const int at = element.name.isEmpty() ? place++ : -1;
        const bool isVerbatim = element.name == "tipo" && !element.values.isEmpty() && element.values.first().quoted;
        if (isVerbatim)
            model.type = textIn(element);
        else if (at == 0 || element.name == "tipo")
            model.type = model.type.isEmpty() ? typeOf(textIn(element)) : model.type;
        else if (at == 1 || element.name == "valor")
            values.values << element.values;
        else if (at == 2 || element.name == "data")
            model.date = textIn(element);
        else
            addComment(model.told.comment, element);
    }
    addAttributes(group, model, values, lastPerson_ < 0 ? current().facts : current().people[lastPerson_].attributes);
}

void Reader::takeFact(const Group& group)
{
    Attribute model{.type = group.name, .told = {}};
    Element values;
    int place = 0;
    for (const Element& element : group.elements) {
        const int at = element.name.isEmpty() ? place++ : -1;
        if (at == 0 || element.name == "valor")
            values.values << element.values;
        else if (element.name == "data")
            model.date = textIn(element);
        else
            addComment(model.told.comment, element);
    }
    addAttributes(group, model, values, current().facts);
}

// One for each value; what else the group says is the transcriber's comment on the first.
void Reader::addAttributes(const Group& group, const Attribute& model, const Element& values,
                           QList<Attribute>& attributes)
{
    QString comment = model.told.comment;
    for (Told told : allTold(values)) {
        if (!comment.isEmpty()) told.comment += told.comment.isEmpty() ? comment : "; " + comment;
        comment.clear();
        const auto differs = [&](const Attribute& other) { return other.type == model.type && other.told != told; };
        if (std::any_of(attributes.begin(), attributes.end(), differs))
            warn(group.line, QString("\"%1\" aparece duas vezes com valores diferentes.").arg(model.type));
        attributes << Attribute{model.type, told, model.date};
    }
}

void Reader::takeRelation(const Group& group)
{
    Relation model{.type = {}, .told = {}, .person = lastPerson_};
    Element values;
    bool isById = true;
    int place = 0;
    for (const Element& element : group.elements) {
        const int at = element.name.isEmpty() ? place++ : -1;
        if (at == 0 || element.name == "tipo")
            model.type = textIn(element);
        else if (at == 1 || element.name == "valor")
            values.values << element.values;
        else if (at == 2 || element.name == "nome")
            model.otherName = textIn(element);
        else if (at == 3 || element.name == "id")
            model.otherId = textIn(element);
        else if (element.name == "de")
            model.person = qMax(-1, element.joined().toInt() - 1);
        else if (element.name == "com") {
            model.other = qMax(-1, element.joined().toInt() - 1);
            isById = false;
        } else
            addComment(model.told.comment, element);
    }
    QString comment = model.told.comment;
    for (Told told : allTold(values)) {
        if (!comment.isEmpty()) told.comment += told.comment.isEmpty() ? comment : "; " + comment;
        comment.clear();
        model.told = told;
        if (isById && !model.otherId.isEmpty()) byId_ << static_cast<int>(current().relations.size());
        linesOfThem_ << group.line;
        current().relations << model;
    }
}

} // namespace study::kleio
