// Events and attributes, with what stands below them.
#include "study/exchange/gedcom_p.h"
#include "study/parish/locality.h"

#include <QFileInfo>
#include <QUrl>

#include <utility>

namespace study::exchange {

namespace {

constexpr auto wholeText = "Texto completo";

bool isMemo(const QByteArray& tag)
{
    return tag == "DSCR";
}

QString suffixOf(const QString& path)
{
    return QFileInfo(path).suffix().toLower();
}

} // namespace

void addTold(QStringList& all, const QString& what, const QString& value)
{
    if (const QString told = value.trimmed(); !told.isEmpty()) all << what + ": " + told;
}

Link linkAt(const jet::Rows& row, int column)
{
    return {row.number(column), !row.isNull(column + 1)};
}

QByteArray personXref(qint64 number)
{
    return 'I' + QByteArray::number(number).replace('-', '_');
}

QByteArray familyXref(qint64 number)
{
    return 'F' + QByteArray::number(number).replace('-', '_');
}

// Readers of 5.5.1 take a fact for an attribute, which has neither day nor age nor picture; an event has them all.
QByteArray GedcomWriter::tagOf(const Event& event) const
{
    const bool isAttribute =
        event.date.isEmpty() && event.age.isEmpty() && !event.place.isKnown() && event.picture.path.isEmpty();
    return lines_.is551() && event.tag == "FACT" && !isAttribute ? QByteArray("EVEN") : event.tag;
}

void GedcomWriter::write(const Event& event)
{
    QStringList notes = event.notes;
    const QByteArray written = tagOf(event);
    const char* const tag = written.constData();
    if (isMemo(event.tag))
        lines_.memo(1, tag, event.text);
    else if (!event.text.isEmpty()) {
        if (!lines_.text(1, tag, event.text)) {
            addTold(notes, wholeText, event.text);
            ++counts_.shortened;
        }
    } else if (event.date.isEmpty() && !event.place.isKnown() && canSayYes(event.tag, lines_.is551()))
        lines_.word(1, tag, "Y");
    else
        lines_.bare(1, tag);
    if (!event.type.isEmpty()) lines_.text(2, "TYPE", event.type);
    if (!event.date.isEmpty()) lines_.word(2, "DATE", event.date);
    if (const QString whole = writePlace(event.place); !whole.isEmpty()) addTold(notes, "Lugar", whole);
    if (!event.cause.isEmpty() && !lines_.text(2, "CAUS", event.cause)) {
        addTold(notes, "Causa", event.cause);
        ++counts_.shortened;
    }
    if (!event.age.isEmpty()) lines_.word(2, "AGE", event.age);
    for (const auto& [spouse, age] : {std::pair("HUSB", event.husbandAge), std::pair("WIFE", event.wifeAge)}) {
        if (age.isEmpty()) continue;
        lines_.bare(2, spouse);
        lines_.word(3, "AGE", age);
    }
    for (const Association& association : event.associations) {
        if (!canBeLinked(association.who)) continue;
        const bool isOfEvents = !lines_.is551() || options_.associationsTwice;
        if (lines_.is551() || options_.associationsTwice) kept_.emplace_back(association, event.act);
        if (isOfEvents) writeAssociation(2, association);
    }
    if (const QString told = noteOfPicture(event.picture); !told.isEmpty()) notes << told;
    writeNotes(2, notes);
    writeSource(event);
}

bool GedcomWriter::canBeLinked(const Link& link)
{
    if (!link.isThere) ++counts_.lostLinks;
    return link.isThere && !withheld_.contains(link.number);
}

// In 5.5.1 the note below a place is of the place itself: one record for each place has its code, and what the place
// has no room for stands at the event.
QString GedcomWriter::writePlace(const parish::Place& place)
{
    if (!place.isKnown()) return {};
    const QString whole = places_.hierarchy(place);
    const bool fits = lines_.text(2, "PLAC", whole);
    const QString code = place.level + place.code;
    if (lines_.is551()) {
        const auto known = placeNotes_.constFind(code);
        const qsizetype number = known == placeNotes_.constEnd() ? placeNotes_.size() + 1 : *known;
        if (known == placeNotes_.constEnd()) placeNotes_.insert(code, number);
        lines_.pointer(3, "NOTE", 'N' + QByteArray::number(number));
    } else {
        lines_.text(3, "EXID", code);
        lines_.text(4, "TYPE", placeCodeType);
    }
    if (!fits) ++counts_.shortened;
    return fits ? QString() : whole;
}

void GedcomWriter::writePlaceNotes()
{
    QStringList codes(placeNotes_.size());
    for (auto one = placeNotes_.constBegin(); one != placeNotes_.constEnd(); ++one)
        codes[*one - 1] = one.key();
    for (qsizetype i = 0; i < codes.size(); ++i) {
        const QByteArray record = "@N" + QByteArray::number(i + 1) + "@ NOTE";
        lines_.memo(0, record.constData(), placeCodeWords + codes[i].simplified());
    }
}

void GedcomWriter::writeAssociation(int level, const Association& association)
{
    const RoleWords& words = wordsOf(association.role);
    const QByteArray who = personXref(association.who.number);
    if (lines_.is551()) {
        lines_.pointer(level, level == 1 ? "ASSO" : "_ASSO", who);
        lines_.word(level + 1, "RELA", words.rela551);
    } else {
        lines_.pointer(level, "ASSO", who);
        lines_.word(level + 1, "ROLE", words.role70);
        if (!association.phrase.isEmpty()) lines_.text(level + 2, "PHRASE", association.phrase);
    }
    writeNotes(level + 1, association.notes);
}

void GedcomWriter::writeKeptAssociations()
{
    for (auto& [association, act] : kept_) {
        association.notes.prepend((association.phrase + ' ' + act).trimmed());
        writeAssociation(1, association);
    }
    kept_.clear();
}

void GedcomWriter::writeNotes(int level, const QStringList& notes)
{
    if (!notes.isEmpty()) lines_.memo(level, "NOTE", notes.join('\n'));
}

void GedcomWriter::writeSource(const Event& event)
{
    if (event.citation) {
        lines_.pointer(2, "SOUR", wordsOf(event.citation->which).xref);
        if (!event.citation->page.isEmpty()) lines_.text(3, "PAGE", event.citation->page);
    }
    writePicture(event.citation ? 3 : 2, event.picture);
    if (event.source.isEmpty()) return;
    if (lines_.is551()) return lines_.memo(2, "SOUR", event.source);
    lines_.pointer(2, "SOUR", "VOID");
    lines_.text(3, "PAGE", event.source);
}

QString GedcomWriter::noteOfPicture(const Picture& picture) const
{
    if (!lines_.is551() || picture.path.isEmpty()) return {};
    const PictureType* const type = pictureTypeOf(suffixOf(picture.path));
    const bool hasPlace = type && type->form551 && picture.path.size() <= longestValue551("FILE");
    return hasPlace ? QString() : "Ficheiro: " + picture.path;
}

void GedcomWriter::writePicture(int level, const Picture& picture)
{
    if (picture.path.isEmpty()) return;
    if (!lines_.is551()) {
        lines_.pointer(level, "OBJE", picture.xref);
        pictures_.push_back(picture);
    } else if (noteOfPicture(picture).isEmpty()) {
        lines_.bare(level, "OBJE");
        lines_.text(level + 1, "FILE", picture.path);
        lines_.word(level + 2, "FORM", pictureTypeOf(suffixOf(picture.path))->form551);
    }
}

// In 7.0 pictures are records, and references to files are those of the web.
void GedcomWriter::writePictureRecords()
{
    for (const Picture& picture : pictures_) {
        const PictureType* const type = pictureTypeOf(suffixOf(picture.path));
        lines_.record(picture.xref, "OBJE");
        lines_.word(1, "FILE", QUrl::toPercentEncoding(picture.path, "/"));
        lines_.word(2, "FORM", type ? type->media70 : "application/octet-stream");
    }
    pictures_.clear();
}

void GedcomWriter::writeNumbers(const char* kind, qint64 number)
{
    lines_.word(1, "REFN", QByteArray::number(number));
    lines_.text(2, "TYPE", QString("ORV %1").arg(kind));
    lines_.word(1, lines_.is551() ? "_UID" : "UID", uidOf(home_, kind, number));
}

QString GedcomWriter::meaningOf(const QString& category, const QString& code) const
{
    const QString told = catalogue_.description(category, code), own = code.simplified();
    return told.isEmpty() && !own.isEmpty() && own != "0" ? '(' + own + ')' : told;
}

QString GedcomWriter::meaningOf(const QString& category, parish::Code code) const
{
    return code ? meaningOf(category, QString::number(*code)) : QString();
}

void GedcomWriter::writeFact(const char* type, const QString& text, const QByteArray& date)
{
    if (!text.isEmpty()) write({.tag = "FACT", .text = text, .type = type, .date = date});
}

// 5.5.1 has facts of people alone.
void GedcomWriter::writeFamilyFact(const char* type, const QString& text, const QByteArray& date)
{
    if (!text.isEmpty()) write({.tag = lines_.is551() ? "EVEN" : "FACT", .text = text, .type = type, .date = date});
}

std::optional<Citation> GedcomWriter::citationOf(Register which, const parish::Date& date, const parish::Place& place,
                                                 const QString& page) const
{
    const bool isOfTheBooks = date.isKnown() && parish::isLocal(place, home_);
    if (!isOfTheBooks && page.isEmpty()) return {};
    return Citation{which, page};
}

Association GedcomWriter::priest(const Link& who, parish::Code function) const
{
    const QString told = meaningOf("FunPa", function);
    return {.who = who, .role = Role::Clergy, .phrase = told.isEmpty() ? "Celebrante" : told};
}

} // namespace study::exchange
