// What stands in no table: codes and places. Each is told once, with how many records have it.
#include "study/checks/told.h"
#include "study/checks/words.h"

#include <QMap>
#include <QRegularExpression>

namespace study::checks {

using parish::Code;
using parish::Family;
using parish::Person;
using parish::Place;

namespace {

// Where a code or a place is used.
struct Uses
{
    qint64 times = 0;
    std::vector<const Person*> people = {}; // the first few
    std::vector<const Family*> families = {};
    parish::Date when = {};
};
using UsesOf = QMap<QString, Uses>;

constexpr size_t mostKept = 12;

void use(Uses& uses, const Person* person, const Family* family)
{
    ++uses.times;
    if (uses.people.size() < mostKept) addOnce(uses.people, person);
    if (uses.families.size() < mostKept) addOnce(uses.families, family);
}

QString timesOf(const Uses& uses)
{
    return howMany(uses.times, "vez", "vezes");
}

// Codes of no table, by category and code.
class Unknown
{
public:
    explicit Unknown(const parish::Catalogue& catalogue) : catalogue_(catalogue) {}

    void ask(const char* category, const QString& code, const Person* person, const Family* family)
    {
        if (code.trimmed().isEmpty() || catalogue_.codes.value(category).contains(code)) return;
        use(uses_[QString(category) + ' ' + code], person, family);
    }
    void ask(const char* category, Code code, const Person* person, const Family* family)
    {
        if (code) ask(category, QString::number(*code), person, family);
    }
    void askProfession(Code code, const Person* person)
    {
        if (code && !catalogue_.professions.contains(*code))
            use(uses_["prof " + QString::number(*code)], person, nullptr);
    }

    const UsesOf& found() const { return uses_; }

private:
    const parish::Catalogue& catalogue_;
    UsesOf uses_;
};

void askCodes(const Person& person, Unknown& unknown)
{
    unknown.ask("TipIn", person.type, &person, nullptr);
    unknown.ask("Filia", person.filiation, &person, nullptr);
    for (const Code state : {person.fatherState, person.motherState, person.stateAtDeath})
        unknown.ask("EstCi", state, &person, nullptr);
    unknown.ask("Sacra", person.sacraments, &person, nullptr);
    unknown.ask("ClaPa", person.parishClass, &person, nullptr);
    for (const Code function :
         {person.baptismPriests[0].function, person.baptismPriests[1].function, person.burialPriest.function})
        unknown.ask("FunPa", function, &person, nullptr);
    for (const parish::Bequest& row : person.bequests)
        unknown.ask("Paren", row.kinship, &person, nullptr);
    for (const parish::Profession& row : person.professions)
        unknown.askProfession(row.code, &person);
}

void askCodes(const Family& family, Unknown& unknown)
{
    unknown.ask("SitFa", family.situation, nullptr, &family);
    unknown.ask("TipFa", family.type, nullptr, &family);
    for (const parish::Priest& priest : family.priests)
        unknown.ask("FunPa", priest.function, nullptr, &family);
    for (const parish::Membership& row : family.members)
        unknown.ask("EstCi", row.state, row.member.person, &family);
}

void askCodes(const parish::Assistance& row, Unknown& unknown)
{
    unknown.ask("EstCi", row.state, row.child, row.family);
    for (const Code kin : {row.kinToChild, row.kinToGroom, row.kinToBride})
        unknown.ask("Paren", kin, row.child, row.family);
}

// The names of the categories as the table of categories has them.
QString subjectOf(const QString& category)
{
    static const QMap<QString, QString> subjects{{"ClaPa", "classe paroquial"},  {"EstCi", "estado civil"},
                                                 {"Filia", "filiação"},          {"FunPa", "função do padre"},
                                                 {"Paren", "parentesco"},        {"Sacra", "sacramentos"},
                                                 {"TipFa", "tipo de família"},   {"SitFa", "situação da família"},
                                                 {"TipIn", "tipo de indivíduo"}, {"prof", "profissão"}};
    return subjects.value(category, category);
}

void useUnknownCodes(const parish::Snapshot& parish, Check& check)
{
    Unknown unknown(parish.catalogue());
    for (const Person& person : parish.people())
        askCodes(person, unknown);
    for (const Family& family : parish.families())
        askCodes(family, unknown);
    for (const parish::Assistance& row : parish.assistances())
        askCodes(row, unknown);
    for (auto at = unknown.found().cbegin(); at != unknown.found().cend(); ++at)
        check.report({.text = QString("O código %1 de %2 não consta da tabela e é usado %3.")
                                  .arg(at.key().section(' ', 1), subjectOf(at.key().section(' ', 0, 0)), timesOf(*at)),
                      .people = at->people,
                      .families = at->families,
                      .when = {},
                      .about = at.key()});
}

// "Vila-Nova -L- 03030101" was cut at its first hyphen: what is behind it became the letter and the code.
bool isCutAtAHyphen(const Place& place)
{
    static const QRegularExpression parts("(^| )-|-( |$)");
    return place.code.contains(parts);
}

// As the tables of places make them: of a country two letters or figures, and so on down; a site as long as it needs.
bool hasTheFormOfItsLetter(const Place& place)
{
    static const QMap<QChar, QRegularExpression> forms{
        {'P', QRegularExpression("^\\w{2}$")},       {'Z', QRegularExpression("^\\w{2}\\w+$")},
        {'D', QRegularExpression("^\\w{2}$")},       {'C', QRegularExpression("^\\w{4}$")},
        {'F', QRegularExpression("^\\w{6}$")},       {'L', QRegularExpression("^\\w{6}\\w{2,}$")},
        {'S', QRegularExpression("^\\w{8}\\w{2,}$")}};
    const auto form = forms.constFind(place.level.toUpper());
    return form != forms.cend() && form->match(place.code).hasMatch();
}

bool isSpoilt(const Place& place)
{
    return isCutAtAHyphen(place) || place.code.contains(' ') ||
           (!place.level.isNull() && !hasTheFormOfItsLetter(place));
}

// Where in no table: by letter and code.
class Nowhere
{
public:
    explicit Nowhere(const parish::Catalogue& catalogue) : catalogue_(catalogue) {}

    void ask(const Place& place, const Person* person, const Family* family)
    {
        const Place upper{place.code, place.level.toUpper()}; // as the cards read it
        if (!place.isKnown() || catalogue_.has(upper)) return;
        const QString key = QString(place.level.isNull() ? '?' : place.level) + place.code;
        use(uses_[key], person, family);
        places_.insert(key, place);
    }
    const UsesOf& found() const { return uses_; }
    Place place(const QString& key) const { return places_.value(key); }

private:
    const parish::Catalogue& catalogue_;
    UsesOf uses_;
    QMap<QString, Place> places_;
};

Nowhere placesOfNoTable(const parish::Snapshot& parish)
{
    Nowhere nowhere(parish.catalogue());
    for (const Person& person : parish.people()) {
        nowhere.ask(person.birthPlace, &person, nullptr);
        nowhere.ask(person.deathPlace, &person, nullptr);
        for (const parish::Residence& row : person.residences)
            nowhere.ask(row.place, &person, nullptr);
        for (const parish::Passport& row : person.passports)
            nowhere.ask(row.destination, &person, nullptr);
    }
    for (const Family& family : parish.families()) {
        nowhere.ask(family.place, nullptr, &family);
        for (const parish::Residence& row : family.residences)
            nowhere.ask(row.place, nullptr, &family);
    }
    return nowhere;
}

void report(const QString& text, const QString& key, const Uses& uses, Check& check)
{
    check.report({.text = text, .people = uses.people, .families = uses.families, .when = {}, .about = key});
}

void lieInNoTable(const parish::Snapshot& parish, Check& check)
{
    const Nowhere nowhere = placesOfNoTable(parish);
    for (auto at = nowhere.found().cbegin(); at != nowhere.found().cend(); ++at) {
        const Place place = nowhere.place(at.key());
        if (isSpoilt(place)) continue;
        const QString text =
            place.level.isNull()
                ? QString("O local de código %1 não tem letra e é usado %2.").arg(place.code, timesOf(*at))
                : QString("O local %1 de letra %2 não consta da sua tabela e é usado "
                          "%3.")
                      .arg(place.code, QString(place.level), timesOf(*at));
        report(text, at.key(), *at, check);
    }
}

void areSpoiltByAHyphen(const parish::Snapshot& parish, Check& check)
{
    const Nowhere nowhere = placesOfNoTable(parish);
    static const QRegularExpression tail("-([PZDCFLS])- (\\w+)$");
    for (auto at = nowhere.found().cbegin(); at != nowhere.found().cend(); ++at) {
        const Place place = nowhere.place(at.key());
        if (!isSpoilt(place)) continue;
        const auto match = tail.match(place.code);
        const QString meant = match.hasMatch()
                                  ? QString(" Deve ser %1 de letra %2%3.")
                                        .arg(match.captured(2), match.captured(1),
                                             [&](const QString& name) {
                                                 return name.isEmpty() ? QString() : " (" + name + ')';
                                             }(parish.catalogue().name({match.captured(2), match.captured(1).front()})))
                                  : QString();
        report(
            QString("O código «%1» de letra %2 não tem a forma da sua letra e é usado %3%4")
                .arg(place.code, place.level.isNull() ? QString("nenhuma") : QString(place.level), timesOf(*at),
                     isCutAtAHyphen(place) ? ": o nome de um local com hífen foi cortado nele." + meant : QString(".")),
            at.key(), *at, check);
    }
}

// Whether one lies in the other: a wider place says nothing against the parish.
bool isOfTheParish(const Place& place, const parish::Home& home)
{
    return place.code.startsWith(home.code) || home.code.startsWith(place.code) || place.level.toUpper() == 'P';
}

template <class Record>
void askPlace(const Place& place, const char* act, const Record& whose, const Check::Found& found, Check& check)
{
    const parish::Catalogue& catalogue = check.parish().catalogue();
    const parish::Home& home = check.parish().home();
    if (!place.isKnown() || isOfTheParish(place, home) || !catalogue.has(place)) return;
    Check::Found elsewhere = found;
    elsewhere.text = QString("O %1 %2 tem padre, assistentes ou imagem do registo, mas foi em %3, e não em %4.")
                         .arg(act, of(whose), catalogue.name(place), home.name);
    elsewhere.about = QString::fromUtf8(act);
    check.report(elsewhere);
}

void areHeldElsewhere(const parish::Snapshot& parish, Check& check)
{
    if (parish.home().code.isEmpty()) return;
    const auto isThere = [](const parish::Priest& priest) { return priest.who.isGiven(); };
    for (const Person& person : parish.people()) {
        if (std::ranges::any_of(person.baptismPriests, isThere) || !person.godparents.empty() ||
            !person.baptismFile.isEmpty())
            askPlace(person.birthPlace, "baptismo", person,
                     {.text = {}, .people = {&person}, .families = {}, .when = person.birth}, check);
        if (person.burialPriest.who.isGiven() || !person.burialFile.isEmpty())
            askPlace(person.deathPlace, "enterro", person,
                     {.text = {}, .people = {&person}, .families = {}, .when = person.death}, check);
    }
    for (const Family& family : parish.families())
        if (std::ranges::any_of(family.priests, isThere) || !family.witnesses.empty() || !family.file.isEmpty())
            askPlace(family.place, "casamento", family,
                     {.text = {}, .people = {}, .families = {&family}, .when = family.marriage}, check);
}

} // namespace

std::vector<Rule> codeRules()
{
    return {
        {"K-01",
         Severity::Impossible,
         "Código que não consta da tabela",
         useUnknownCodes,
         {},
         "O código foi apagado da tabela depois de usado, ou veio de outra BDP."},
        {"K-02",
         Severity::Impossible,
         "Local que não consta da tabela",
         lieInNoTable,
         {},
         "O local foi apagado da tabela, ou veio de outra BDP."},
        {"K-03",
         Severity::Unlikely,
         "Código de local estragado",
         areSpoiltByAHyphen,
         {},
         "As fichas cortam o texto da lista no primeiro hífen, que pode ser do nome do local."},
        {"K-04",
         Severity::Information,
         "Acto de outra freguesia",
         areHeldElsewhere,
         {},
         "A ficha tem um só local de nascimento ou baptismo: pode ter nascido fora e sido baptizado cá."},
    };
}

} // namespace study::checks
