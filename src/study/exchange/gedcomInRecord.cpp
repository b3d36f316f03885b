// What people and families have in common: dates, places, notes, and who stands beside them.
#include "study/exchange/gedcomIn_p.h"

#include <QRegularExpression>

#include <algorithm>

namespace study::exchange {

namespace {

constexpr qsizetype longestText = 255; // letters of a column

// Tables and columns beside this are as wide as their texts.
bool isMemo(const QString& column)
{
    static const QStringList memos{"obs", "cfisicas", "estatura", "bensmoveis", "bensraiz"};
    return memos.contains(column);
}

constexpr int smallestYear = 100; // that a date column takes

QString phraseOf(const GedcomNode& association)
{
    const GedcomNode* const role = association.child("ROLE");
    const QString ofRole = role ? role->text("PHRASE") : QString();
    return ofRole.isEmpty() ? association.text("PHRASE") : ofRole;
}

} // namespace

AgeTold ageTold(const QString& value)
{
    static const QRegularExpression form(R"(^\s*(?:(\d{1,3})\s*y)?\s*(.*)$)",
                                         QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression number(R"(^\s*\d{1,3}\s*$)");
    if (number.match(value).hasMatch()) return {value.trimmed().toInt(), true};
    const auto match = form.match(value);
    if (!match.hasMatch() || match.captured(1).isEmpty()) return {{}, value.trimmed().isEmpty()};
    return {match.captured(1).toInt(), match.captured(2).trimmed().isEmpty()};
}

void RecordIn::note(const QString& path, const QString& value)
{
    ++target_.report.toNotes[record_.tag + '.' + path];
    notes_ << (value.isEmpty() ? path : path + ": " + value);
}

void RecordIn::problem(const GedcomNode& at, const QString& text)
{
    target_.report.problems.push_back({at.line, text});
}

parish::Date RecordIn::takeDate(const GedcomNode& event, const QString& path)
{
    const GedcomNode* const node = reading_.take(event, "DATE");
    if (!node) return {};
    const GedcomNode* const phrase = node->child("PHRASE");
    if (phrase) reading_.take(*phrase);
    GedcomDateRead told = readGedcomDate(node->value, phrase ? phrase->value : QString());
    if (told.date.isKnown() && told.date.year() < smallestYear)
        told = {.date = {}, .rest = node->value, .problem = "A BDP não tem datas antes do ano 100."};
    if (!told.rest.isEmpty()) note(path + ".DATE", told.rest);
    if (!told.problem.isEmpty()) problem(*node, told.problem);
    return told.date;
}

bool RecordIn::takeObservation(const GedcomNode& fact, RowValues& into)
{
    const GedcomNode* const date = fact.child("DATE");
    if (!date || into.contains("inicioobs") || into.contains("fimobs")) return false;
    const GedcomPeriodRead period = readGedcomPeriod(date->value);
    if (!period.rest.isEmpty() || !(period.from.isValid() || period.until.isValid())) return false;
    if (period.from.isValid()) into.insert("inicioobs", period.from);
    if (period.until.isValid()) into.insert("fimobs", period.until);
    reading_.take(*date);
    return true;
}

parish::Place RecordIn::takePlace(const GedcomNode& event, const QString& path, const QString& whole)
{
    const GedcomNode* node = reading_.take(event, "PLAC");
    if (!node && event.tag == "RESI" && event.child("ADDR")) node = reading_.take(event, "ADDR");
    if (!node || node->value.simplified().isEmpty()) return {};
    const QString code = takePlaceCode(*node);
    const QString form = reading_.takeText(*node, "FORM");
    const QString text = whole.isEmpty() ? node->value : whole;
    const GedcomPlaces::Found found =
        target_.places.lookUp(text, form.isEmpty() ? target_.index.head.form : form, code);
    if (!found.isWhole) note(path + "." + node->tag, text);
    return found.place;
}

// In 5.5.1 it stands in a note that all events in the place share.
QString RecordIn::takePlaceCode(const GedcomNode& place)
{
    QString code;
    for (const GedcomNode& one : place.children) {
        const bool isNote = one.tag == "NOTE" || one.tag == "SNOTE";
        const QString told = isNote && one.isPointer ? target_.index.notes.value(one.value) : one.value;
        if (isNote && told.startsWith(QString::fromUtf8(placeCodeWords)) && !told.contains('\n')) {
            if (one.isPointer) target_.notesRead << one.value;
            code = told.mid(QString::fromUtf8(placeCodeWords).size()).simplified();
        } else if (one.tag == "EXID" && one.text("TYPE") == QLatin1String(placeCodeType))
            code = one.value;
        else
            continue;
        reading_.takeWhole(one);
    }
    return code;
}

parish::Code RecordIn::takeAge(const GedcomNode& event, const QString& path)
{
    const GedcomNode* const node = reading_.take(event, "AGE");
    if (!node) return {};
    const AgeTold told = ageTold(node->value);
    if (!told.isWhole) note(path + ".AGE", node->value);
    return told.years;
}

QString RecordIn::takePicture(const GedcomNode& event)
{
    const auto pictureIn = [this](const GedcomNode& above) -> QString {
        const GedcomNode* const object = above.child("OBJE");
        if (!object || reading_.isTaken(*object)) return {};
        if (object->isPointer) {
            if (!target_.index.objects.contains(object->value)) return {};
            reading_.take(*object);
            return target_.index.objects.value(object->value);
        }
        const GedcomNode* const file = object->child("FILE");
        if (!file) return {};
        reading_.take(*object);
        reading_.take(*file);
        if (const GedcomNode* const form = file->child("FORM")) reading_.take(*form);
        return file->value;
    };
    if (const QString own = pictureIn(event); !own.isEmpty()) return own;
    for (const GedcomNode& one : event.children)
        if (one.tag == "SOUR")
            if (const QString found = pictureIn(one); !found.isEmpty()) return found;
    return {};
}

QString RecordIn::takeSource(const GedcomNode& event)
{
    QStringList all;
    while (const GedcomNode* const source = reading_.take(event, "SOUR")) {
        const QString page = reading_.takeText(*source, "PAGE");
        const bool isRegister = target_.index.isOurs() && source->isPointer && !source->isVoid();
        QString title = isRegister && page.isEmpty() ? QString() : reading_.shownValue(*source);
        if (source->isPointer && !source->isVoid() && !target_.index.sources.contains(source->value)) {
            ++target_.report.lostLinks;
            problem(*source, QString("A fonte @%1@ não está no ficheiro.").arg(source->value));
        }
        QStringList parts{title, page};
        parts.removeAll(QString());
        if (!parts.isEmpty()) all << parts.join(", ");
    }
    return all.join("; ");
}

QString RecordIn::putLabels(const QString& text, const std::vector<LabelColumn>& labels, RowValues& into,
                            const QString& path, bool areContinued)
{
    static const QRegularExpression number(R"(^\s*(\d{1,9})(?:\s*cm)?\s*$)");
    Labelled told = labelled(text, labels, areContinued);
    for (const LabelColumn& one : labels) {
        const QString label = QString::fromUtf8(one.label);
        const auto value = told.values.constFind(label);
        if (value == told.values.constEnd()) continue;
        const auto match = number.match(*value);
        if (one.kind == LabelKind::Text)
            putText(into, one.column, *value, path + '.' + label);
        else if (one.kind == LabelKind::Number && match.hasMatch())
            into.insert(one.column, match.captured(1).toInt());
        else if (one.kind == LabelKind::Number || !putCode(into, one.column, one.category, *value))
            note(path, label + ": " + *value);
    }
    return told.rest.join('\n');
}

void RecordIn::putDate(RowValues& into, const char* column, const char* flag, const parish::Date& date)
{
    into.insert(flag, date.isExact());
    if (date.isKnown()) into.insert(column, date.date());
}

void RecordIn::putPlace(RowValues& into, const char* column, const char* level, const parish::Place& place)
{
    if (!place.isKnown()) return;
    into.insert(column, place.code);
    into.insert(level, QString(place.level));
}

// Other programs take a nought for the end of the text.
void RecordIn::putText(RowValues& into, const char* column, const QString& text, const QString& path)
{
    QString shown = text;
    if (const qsizetype noughts = shown.count(QChar(0)); noughts > 0) {
        target_.report.lostLetters += noughts;
        shown.remove(QChar(0));
    }
    if (shown.isEmpty()) return;
    if (!isMemo(column)) {
        shown = shown.trimmed().replace('\n', ' ');
        if (shown.size() > longestText) {
            ++target_.report.shortened;
            note(path, shown);
            shown.truncate(shown[longestText - 1].isHighSurrogate() ? longestText - 1 : longestText);
        }
    }
    if (!shown.isEmpty()) into.insert(column, shown);
}

bool RecordIn::putCode(RowValues& into, const QString& column, const char* category, const QString& description)
{
    // An export puts a code that nothing is told of in brackets.
    static const QRegularExpression bare(R"(^\((\w{1,9})\)$)");
    auto code = target_.words.code(category, description);
    if (const auto match = bare.match(description); !code && target_.index.isOurs() && match.hasMatch())
        code = match.captured(1);
    bool isNumber = false;
    const int number = code ? code->toInt(&isNumber) : 0;
    if (!code || (!isNumber && column != "sfamilia")) return false;
    into.insert(column, column == "sfamilia" ? QVariant(*code) : QVariant(number));
    return true;
}

qint64 RecordIn::personOf(const GedcomNode& association)
{
    if (!association.isPointer || association.isVoid()) return 0;
    if (const GedcomPersonSeen* const person = target_.index.personNamed(association.value)) return person->number;
    ++target_.report.lostLinks;
    problem(association, QString("A pessoa @%1@ não está no ficheiro.").arg(association.value));
    return 0;
}

std::optional<RecordIn::AssociationTold> RecordIn::takeAssociation(const GedcomNode& node, const GedcomNode* above)
{
    const GedcomNode* roleNode = node.child("ROLE");
    if (!roleNode) roleNode = node.child("RELA");
    if (!roleNode) return {};
    AssociationTold told{.above = above, .phrase = phraseOf(node)};
    const QString notes = node.text("NOTE");
    const PhraseOfAct act = phraseOfAct(notes.section('\n', 0, 0));
    if (act.act != ActTold::None) told.phrase = act.phrase;
    const auto role = roleTold(roleNode->value, told.phrase);
    if (!role) return {};
    told.who = personOf(node);
    if (told.who == 0) return {};
    if (own_.contains(told.who) && !target_.index.isOurs()) {
        problem(node, "Ninguém assiste ao seu próprio acto: ficou nas notas.");
        return {};
    }
    told.role = *role;
    told.act = act.act;
    reading_.take(node);
    reading_.take(*roleNode);
    if (const GedcomNode* const phrase = roleNode->child("PHRASE")) reading_.take(*phrase);
    told.notes = reading_.takeNotes(node);
    if (act.act != ActTold::None) told.notes = told.notes.section('\n', 1);
    // What neither the role nor the columns tell.
    const bool isWord = told.phrase.isEmpty() || roleTold(told.phrase, {}).has_value();
    if (!isWord && told.role.role != Role::Clergy)
        told.notes = told.notes.isEmpty() ? told.phrase : told.phrase + '\n' + told.notes;
    return told;
}

void RecordIn::addAssistant(const ActAt& act, const AssociationTold& association, const QString& path)
{
    const QString as = association.role.isGodparent ? "p" : "t";
    const QString once = QString("%1 %2 %3").arg(QString(QChar(act.kind)), QString::number(association.who), as);
    // Programs tell the same at the event and with the person.
    if (assistants_.value(once, association.above) != association.above) return;
    assistants_.insert(once, association.above);
    RowValues row{{"tipoacto", QString(QChar(act.kind))},
                  {"entidade", act.entity},
                  {"nind", association.who},
                  {"tipoassistente", as},
                  {"falecidopai", false},
                  {"falecidomae", false}};
    if (act.date.isKnown()) row.insert("dataref", act.date.date());
    QStringList rest = putLabels(association.notes, labelsOfAssistant(), row, path).split('\n');
    if (rest.first() == QLatin1String("Pai falecido")) {
        row.insert("falecidopai", true);
        rest.removeFirst();
    }
    if (!rest.isEmpty() && rest.first() == QString::fromUtf8("Mãe falecida")) {
        row.insert("falecidomae", true);
        rest.removeFirst();
    }
    if (const QString notes = rest.join('\n'); !notes.isEmpty()) putText(row, "obs", notes, path);
    target_.rows.add("assistente", row);
}

bool RecordIn::putPriest(RowValues& into, const std::vector<PriestColumns>& columns, const AssociationTold& association,
                         const QString& path)
{
    if (!association.notes.isEmpty()) note(path + ".ASSO.NOTE", association.notes);
    for (const auto& [priest, function] : columns) {
        if (into.value(priest).toLongLong() == association.who) return true;
        if (into.contains(priest)) continue;
        into.insert(priest, association.who);
        const bool isUntold = association.phrase.isEmpty() || association.phrase == QLatin1String("Celebrante");
        if (!isUntold && !putCode(into, function, "FunPa", association.phrase) && !roleTold(association.phrase, {}))
            note(path + ".ASSO.ROLE", association.phrase);
        return true;
    }
    note(path + ".ASSO", QString("pessoa %1 (%2)").arg(association.who).arg(association.phrase));
    return false;
}

// The day is part of the key: one without it, or with that of another, has no place in the table.
void RecordIn::addResidences(const char* kind, qint64 number)
{
    QSet<QDate> days;
    for (const GedcomNode& event : record_.children) {
        if (event.tag != "RESI" || reading_.isTaken(event)) continue;
        reading_.take(event);
        const EventNotes told551 = takeEventNotes(event);
        const parish::Date date = takeDate(event, event.tag);
        const parish::Place place = takePlace(event, event.tag, told551.place);
        const QString source = takeSource(event), notes = told551.text;
        const bool hasNoPlace = !date.isKnown() || days.contains(date.date());
        if (hasNoPlace) {
            const QString where = event.child("PLAC") ? event.text("PLAC") : event.text("ADDR");
            QStringList told{event.value, parish::shown(date), where, source, notes};
            told.removeAll(QString());
            note(event.tag, told.join(", "));
            continue;
        }
        days.insert(date.date());
        RowValues row{{"numero", number}, {"tiporesid", QString(kind)}};
        putDate(row, "dataref", "datafixa", date);
        putPlace(row, "localresid", "tipolocal", place);
        putText(row, "fonte", source, "RESI.SOUR");
        QStringList memo{event.value, notes};
        memo.removeAll(QString());
        putText(row, "obs", memo.join('\n'), "RESI.NOTE");
        target_.rows.add("residencia", row);
    }
}

void RecordIn::takeAssociationsOf(const GedcomNode& event, const std::function<bool(RoleTold, ActTold)>& fits,
                                  const std::function<void(const AssociationTold&)>& take)
{
    const auto standsAbove = [&](const GedcomNode& one) {
        return &event != &record_ && std::ranges::any_of(record_.children, [&](const GedcomNode& other) {
            return other.tag == "ASSO" && other.value == one.value;
        });
    };
    for (const GedcomNode& one : event.children) {
        if ((one.tag != "ASSO" && one.tag != "_ASSO") || reading_.isTaken(one)) continue;
        if (one.tag == "_ASSO" && standsAbove(one)) {
            reading_.takeWhole(one);
            continue;
        }
        const auto role = roleTold(one.text("ROLE") + one.text("RELA"), phraseOf(one));
        if (!role || !fits(*role, phraseOfAct(one.text("NOTE").section('\n', 0, 0)).act)) continue;
        if (const auto told = takeAssociation(one, &event)) take(*told);
    }
}

RecordIn::EventNotes RecordIn::takeEventNotes(const GedcomNode& event)
{
    EventNotes told{.text = reading_.takeNotes(event)};
    if (!target_.index.isOurs() || !target_.index.head.version.startsWith("5.5")) return told;
    const std::pair<const char*, QString*> added[] = {{"Ficheiro: ", &told.file},
                                                      {"Causa: ", &told.cause},
                                                      {"Lugar: ", &told.place},
                                                      {"Texto completo: ", &told.whole}};
    for (const auto& [label, value] : added) {
        const QString last = told.text.section('\n', -1);
        if (!last.startsWith(QLatin1String(label))) continue;
        *value = last.mid(static_cast<qsizetype>(qstrlen(label)));
        told.text.chop(last.size() == told.text.size() ? last.size() : last.size() + 1);
    }
    return told;
}

void RecordIn::tellLeft(const GedcomNode& below, const QString& above)
{
    if (&below != &record_ && !reading_.isTaken(below)) note(above, reading_.shownValue(below));
    reading_.tellLeft(below, above, [&](const GedcomNode& node, const QString& path, const QString& value) {
        const bool isOwn = target_.index.isOurs() && (node.tag == "UID" || node.tag == "_UID");
        if (isTechnical(node.tag)) {
            if (!isOwn) ++target_.report.left[record_.tag + '.' + path];
            return;
        }
        note(path, value);
    });
}

void RecordIn::finish(RowValues& into, const QString& own)
{
    tellLeft(record_, {});
    QStringList all = notes_;
    if (!own.isEmpty()) all.prepend(own);
    putText(into, "obs", all.join('\n'), "NOTE");
}

} // namespace study::exchange
