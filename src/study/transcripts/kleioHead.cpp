#include "study/transcripts/kleioHead.h"

#include <QRegularExpression>

#include <algorithm>

namespace study::kleio {

std::optional<ActKind> kindOf(const QString& group)
{
    static const QStringList baptisms{"b", "bap", "baptismo", "batismo"};
    static const QStringList marriages{"c", "cas", "casamento"};
    static const QStringList burials{"o", "obito"};
    if (baptisms.contains(group)) return ActKind::Baptism;
    if (marriages.contains(group)) return ActKind::Marriage;
    if (burials.contains(group)) return ActKind::Burial;
    return {};
}

void addNote(QString& notes, const QString& line)
{
    if (line.isEmpty()) return;
    notes += notes.isEmpty() ? line : '\n' + line;
}

void addElement(QString& notes, const Element& element)
{
    const bool isText = std::all_of(element.values.begin(), element.values.end(), [](const Value& value) {
        return value.told.source.isEmpty() && value.told.comment.isEmpty();
    });
    addNote(notes, element.name == "obs" && isText ? element.joined() : element.written());
}

static std::optional<int> monthNamed(const QString& name)
{
    static const QStringList months{"jan", "fev", "mar", "abr", "mai", "jun", "jul", "ago", "set", "out", "nov", "dez"};
    const qsizetype month = months.indexOf(folded(name).left(3));
    return month < 0 ? std::nullopt : std::optional(static_cast<int>(month) + 1);
}

PartialDate readDate(const QString& written)
{
    static const QRegularExpression midnight(R"([T ]\s*0?0:00(:00(\.0+)?)?\s*$)"); // as spreadsheets save a day
    const QString text = QString(written).remove(midnight);
    static const QRegularExpression together(R"(^\s*(\d{4})(\d{2})(\d{2})\s*$)");
    static const QRegularExpression yearFirst(R"(^\s*(\d{4})-(\d{1,2})-(\d{1,2})\s*$)");
    static const QRegularExpression inWords(
        R"(^\s*(\d{1,2})[\s\-/.]+(?:de\s+)?(\p{L}{3,})[\s\-/.]+(?:de\s+)?(\d{3,4})\s*$)");
    for (const QRegularExpression* form : {&together, &yearFirst})
        if (const auto match = form->match(text); match.hasMatch())
            return {.year = match.captured(1).toInt(),
                    .month = match.captured(2).toInt(),
                    .day = match.captured(3).toInt()};
    if (const auto match = inWords.match(text); match.hasMatch())
        if (const std::optional<int> month = monthNamed(match.captured(2)))
            return {.year = match.captured(3).toInt(), .month = *month, .day = match.captured(1).toInt()};
    return readPartialDate(text);
}

namespace {

// A number, or nothing where none is told: "14", "-1", "?", "".
std::optional<int> number(const Element& element)
{
    if (element.values.isEmpty()) return 0;
    bool isRead = false;
    const int read = element.first().value.toInt(&isRead);
    return isRead && element.values.size() == 1 ? std::optional(read) : std::nullopt;
}

bool isPlain(const Element& element)
{
    if (element.values.isEmpty()) return true;
    const Told told = element.first();
    return !told.doubtful && told.source.isEmpty() && told.comment.isEmpty() && !element.values.first().quoted;
}

// Day, month and year as three elements. What isn't plainly a number leaves its words as the text of the date.
PartialDate dateOf(const Element& day, const Element& month, const Element& year)
{
    const std::optional<int> named = month.values.isEmpty() ? std::nullopt : monthNamed(month.first().value);
    const std::optional<int> ofMonth = number(month);
    PartialDate date{.year = number(year).value_or(0),
                     .month = ofMonth ? *ofMonth : named.value_or(0),
                     .day = number(day).value_or(0)};
    const bool understood = number(day) && (ofMonth || named) && number(year);
    if (!understood || !isPlain(day) || !isPlain(month) || !isPlain(year))
        date.text = day.written() + '/' + month.written() + '/' + year.written();
    return date;
}

std::optional<QString> folioIn(const QString& text)
{
    static const QRegularExpression form(R"(^\s*(?:f[oó]l(?:ha|io)?s?|fls?|f)(?:\s*\.\s*|\s+|(?=\d))(\S.*)$)",
                                         QRegularExpression::CaseInsensitiveOption |
                                             QRegularExpression::DotMatchesEverythingOption);
    const auto match = form.match(text);
    return match.hasMatch() ? std::optional(match.captured(1).trimmed()) : std::nullopt;
}

bool isPriest(const QString& text)
{
    static const QRegularExpression titles(
        R"(^(?:o\s+)?(padre|pe|p\.?e|p(?=\.)|re?v?\.?do\b\.?|rev\.?|reverendo|vigario|vig\.?|cura|frei|fr\.?|prior|reitor|abade|coadjutor|capelao|encomendado|)"
        R"(licenciado|doutor|dr\.?|conego|arcipreste|arcediago|bispo|arcebispo|paroco|presbitero|sacerdote)\b)");
    return titles.match(folded(text)).hasMatch();
}

// The first word of the name of a place in which acts are held.
bool isChurch(const QString& text)
{
    static const QRegularExpression words(
        R"(^(?:na?\s+)?(igreja|egreja|matriz|capela|capella|ermida|hermida|se|oratorio|casas?|convento|mosteiro|)"
        R"(hospital|misericordia|recolhimento|colegiada|basilica|santuario|paroquia|paroquial|freguesia)\b)");
    return words.match(folded(text.trimmed())).hasMatch();
}

bool isNumber(const QString& text)
{
    static const QRegularExpression form(R"(^[\d\s.,/\-]+$)");
    return form.match(text).hasMatch();
}

class HeadReader
{
public:
    explicit HeadReader(const Group& group) : group_(group) { head_.act.kind = *kindOf(group.name); }

    Head read()
    {
        QList<Element> places = group_.placed();
        if (!places.isEmpty()) takeId(places.takeFirst());
        takeDate(places);
        for (const Element& element : group_.elements)
            if (!element.name.isEmpty()) takeNamed(element);
        takeByLook(places);
        return head_;
    }

private:
    void takeId(const Element& element) { takeText(head_.act.id, element); }

    // What the field has no place for, a second value or a note, is kept.
    void takeText(QString& field, const Element& element)
    {
        const Told told = element.first();
        if (!field.isEmpty() || element.values.size() > 1 || told != Told{.value = told.value})
            addNote(head_.act.notes, element.written());
        if (field.isEmpty()) field = told.value;
    }

    void takeDate(QList<Element>& places)
    {
        if (looksLikeDate(places)) {
            head_.act.date = dateOf(places[0], places[1], places[2]);
            places.remove(0, 3);
            return;
        }
        if (places.isEmpty()) return;
        const QString text = places.first().joined();
        const PartialDate date = readDate(text);
        if ((date.year == 0 && !date.text.isEmpty()) || isLoneDay(text)) return;
        head_.act.date = date;
        if (!isPlain(places.first())) addNote(head_.act.notes, places.first().written());
        places.removeFirst();
    }

    // A number that is too short for a year dates nothing alone.
    static bool isLoneDay(const QString& text)
    {
        static const QRegularExpression form(R"(^\s*\d{1,2}\s*$)");
        return form.match(text).hasMatch();
    }

    // Two of day, month and year are told by numbers; a year that stands alone, with a folio behind it, is none of
    // them.
    static bool looksLikeDate(const QList<Element>& places)
    {
        static constexpr int longestDay = 3; // "-12"
        if (places.size() < 3 || folioIn(places[2].first().value)) return false;
        if (number(places[0]) && places[0].first().value.size() > longestDay) return false;
        const bool monthIsTold = number(places[1]) || monthNamed(places[1].first().value);
        return int(number(places[0]).has_value()) + int(monthIsTold) + int(number(places[2]).has_value()) >= 2;
    }

    void takeNamed(const Element& element)
    {
        Act& act = head_.act;
        const QString& name = element.name;
        if (name == "id")
            takeText(act.id, element);
        else if (QStringList{"folio", "fol", "fl", "folha"}.contains(name))
            takeText(act.folio, element);
        else if (name == "numero" || name == "num")
            takeText(act.number, element);
        else if (name == "livro")
            takeText(act.book, element);
        else if (name == "local")
            takePlace(element);
        else if (name == "celebrante")
            takeCelebrants(element);
        else if (!takeNamedDate(element))
            addElement(act.notes, element);
    }

    bool takeNamedDate(const Element& element)
    {
        PartialDate& date = head_.act.date;
        const QString& name = element.name;
        const std::optional<int> told = number(element);
        if (name == "texto_data")
            date.text = element.joined();
        else if (name == "cerca" && folded(element.joined()) == "sim")
            date.about = true;
        else if (name == "dia" && told)
            date.day = *told;
        else if (name == "mes" && told)
            date.month = *told;
        else if (name == "ano" && told)
            date.year = *told;
        else if (name == "data" && (date.isEmpty() || date == readDate(element.joined())))
            date = readDate(element.joined());
        else
            return false;
        if (!isPlain(element) && name != "texto_data") addNote(head_.act.notes, element.written());
        return true;
    }

    void takePlace(const Element& element)
    {
        if (element.values.isEmpty()) return;
        if (head_.act.place.isEmpty() && element.values.size() == 1)
            head_.act.place = element.first();
        else
            addNote(head_.act.notes, element.written());
    }

    void takeCelebrants(const Element& element)
    {
        for (const Value& value : element.values)
            head_.celebrants << value.told;
    }

    // Folio, place and priest come in no fixed order: first what says itself what it is.
    void takeByLook(const QList<Element>& places)
    {
        QList<Element> open;
        for (const Element& element : places)
            if (!element.values.isEmpty() && !takeSure(element)) open << element;
        for (const Element& element : open) {
            if (head_.act.place.isEmpty() && element.values.size() == 1)
                head_.act.place = element.first();
            else if (head_.celebrants.isEmpty())
                takeCelebrants(element);
            else
                addNote(head_.act.notes, element.written());
        }
    }

    bool takeSure(const Element& element)
    {
        const QString text = element.first().value;
        if (const std::optional<QString> folio = folioIn(text))
            takeFolio(element, *folio);
        else if (isNumber(text))
            takeNumber(element);
        else if (isPriest(text))
            takeCelebrants(element);
        else if (isChurch(text) && head_.act.place.isEmpty() && element.values.size() == 1)
            head_.act.place = element.first();
        else
            return false;
        return true;
    }

    void takeFolio(const Element& element, const QString& folio)
    {
        if (!head_.act.folio.isEmpty() || !isPlain(element) || element.values.size() > 1)
            addNote(head_.act.notes, element.written());
        if (head_.act.folio.isEmpty()) head_.act.folio = folio;
    }

    void takeNumber(const Element& element)
    {
        addNote(head_.act.notes, element.written());
        head_.warnings << QString("\"%1\" não é data, fólio, lugar nem padre; fica nas notas do acto.")
                              .arg(element.joined().left(40));
    }

    const Group& group_;
    Head head_;
};

} // namespace

Head readHead(const Group& group)
{
    return HeadReader(group).read();
}

} // namespace study::kleio
