#include "parish/acts.h"

#include "names.h"
#include "parish/population.h"

#include <QMap>

#include <algorithm>
#include <map>

namespace bench {

namespace {

using study::Act;
using study::ActKind;
using study::ActPerson;
using study::Attribute;
using study::Role;
using study::Told;

const QStringList surnames{"gonçalves", "fernandes", "pires",   "alvares", "ribeiro",  "de araujo",   "da silva",
                           "martins",   "rodrigues", "lopes",   "mendes",  "da costa", "de oliveira", "vaz",
                           "peixoto",   "salgado",   "machado", "pereira", "de sousa", "leite",       "ferreira",
                           "francisco", "antunes",   "dias",    "marques", "do vale",  "de castro",   "novais"};
const QStringList places{"outeiro", "fonte de cima", "ribeira",        "monte",    "cruz",       "eira velha",
                         "souto",   "paço",          "vinha do conde", "carvalho", "lugar novo", "pouca pena"};
const QStringList trades{"lavrador", "moleiro", "ferreiro", "alfaiate", "jornaleiro", "sapateiro", "pedreiro"};
const QStringList oddNotes{"corre à margem: \"sem efeito\"",    "o assento diz 1/2 alqueire; pagou 50% = 3 tostões",
                           "duas linhas\nriscadas #2",          "nasceu a 3 de Maio, d'aquela data em diante exposta",
                           "veja-se \"\"\"o outro livro\"\"\"", " com blancos à volta "};

class Parish
{
public:
    explicit Parish(std::uint32_t seed) : random_(seed) {}

    void take(const Population& population)
    {
        for (const Couple& couple : population.couples())
            marry(couple);
        for (const Person& person : population.births())
            bear(person);
    }

    std::multimap<QDate, Act> acts; // by their dates

private:
    struct Known
    {
        QString name;
        bool man = false;
        int father = 0;
        int mother = 0;
    };

    QString nameOf(const Person& person)
    {
        const auto sex = person.man ? demo::Sex::male : demo::Sex::female;
        QString name = demo::givenName(random_, sex, person.birth.year()).toLower();
        if (person.man || random_.chance(60)) name += ' ' + surnames[person.surname % surnames.size()];
        return name;
    }

    // As the register has it: mostly plain, now and then in its own spelling, doubted or with a note.
    Told told(const QString& name)
    {
        Told told{.value = name};
        if (random_.chance(8)) told.source = QString(name).replace("ç", "ss").toUpper();
        if (random_.chance(3)) told.comment = "letra apagada/difícil";
        if (random_.chance(3)) told.doubtful = true;
        return told;
    }

    study::PartialDate dateOf(const QDate& day)
    {
        study::PartialDate date = study::partialDate(day);
        if (random_.chance(2)) date.day = 0;
        if (random_.chance(1)) date.about = true;
        if (random_.chance(1)) date.text = "dia de São João; ou a véspera";
        return date;
    }

    int add(Act& act, Role role, int of, const QString& name, bool man)
    {
        act.people << ActPerson{.role = role, .of = of, .name = told(name)};
        if (random_.chance(50)) act.people.last().toldSex = man ? study::Sex::Male : study::Sex::Female;
        return static_cast<int>(act.people.size()) - 1;
    }

    void tell(Act& act, int person, const char* type, const QString& value)
    {
        act.people[person].attributes << Attribute{type, {.value = value}};
    }

    void addParents(Act& act, int child, const Known& known)
    {
        if (known.father == 0 || known.mother == 0) return;
        const int father = add(act, Role::Father, child, people_[known.father].name, true);
        tell(act, father, study::attribute::residence, places[known.father % places.size()]);
        if (random_.chance(20)) tell(act, father, study::attribute::profession, random_.pick(trades));
        add(act, Role::Mother, child, people_[known.mother].name, false);
    }

    void addOthers(Act& act, Role man, Role woman)
    {
        const bool isBaptism = act.kind == ActKind::Baptism;
        const int first = add(act, man, -1, somebody(true), true);
        if (isBaptism && random_.chance(30)) tell(act, first, study::attribute::civilState, "solteiro");
        if (isBaptism && random_.chance(10)) add(act, Role::Father, first, somebody(true), true);
        const int second = add(act, woman, -1, somebody(!isBaptism), !isBaptism);
        if (isBaptism && random_.chance(15)) add(act, Role::Spouse, second, somebody(true), true);
        add(act, Role::Celebrant, -1, "padre " + random_.pick(priests_), true);
        if (random_.chance(2)) act.notes = random_.pick(oddNotes);
    }

    QString somebody(bool man)
    {
        const auto sex = man ? demo::Sex::male : demo::Sex::female;
        return demo::givenName(random_, sex, firstYear).toLower() + ' ' + random_.pick(surnames);
    }

    Act begun(ActKind kind, const QDate& day)
    {
        Act act{.kind = kind, .date = dateOf(day), .place = {.value = "igreja matriz"}};
        if (random_.chance(5))
            act.folio = QString("%1%2").arg(random_.between(1, 200)).arg(random_.chance(50) ? "v" : "");
        return act;
    }

    void bear(const Person& person)
    {
        Known known{.name = nameOf(person), .man = person.man};
        if (const auto couple = couples_.find(person.family); couple != couples_.end())
            known = {known.name, known.man, couple->second.husband, couple->second.wife};
        people_[person.number] = known;
        Act act = begun(ActKind::Baptism, person.birth);
        const int child = add(act, Role::Child, -1, known.name.section(' ', 0, 0), known.man);
        act.people[child].toldSex = known.man ? study::Sex::Male : study::Sex::Female;
        addParents(act, child, known);
        addOthers(act, Role::Godfather, Role::Godmother);
        acts.emplace(person.birth, act);
        if (person.death.isValid()) bury(person, known);
    }

    void marry(const Couple& couple)
    {
        couples_[couple.number] = couple;
        Act act = begun(ActKind::Marriage, couple.marriage);
        const int groom = add(act, Role::Groom, -1, people_[couple.husband].name, true);
        addParents(act, groom, people_[couple.husband]);
        if (couple.widower) add(act, Role::EarlierSpouse, groom, somebody(false), false);
        const int bride = add(act, Role::Bride, -1, people_[couple.wife].name, false);
        addParents(act, bride, people_[couple.wife]);
        addOthers(act, Role::Witness, Role::Witness);
        acts.emplace(couple.marriage, act);
    }

    void bury(const Person& person, const Known& known)
    {
        Act act = begun(ActKind::Burial, person.death);
        const auto years = static_cast<int>(person.birth.daysTo(person.death) / 365);
        act.facts << Attribute{study::attribute::sacraments, {.value = years < 7 ? "não" : "todos"}};
        if (years > 20 && random_.chance(30))
            act.facts << Attribute{study::attribute::offices, {.value = "3 de 9 lições"}}
                      << Attribute{study::attribute::will, {.value = random_.chance(30) ? "s" : "n"}};
        const int dead = add(act, Role::Deceased, -1, known.name, known.man);
        tell(act, dead, study::attribute::age, years == 0 ? QString("11 dias") : QString::number(years));
        if (years < 20) addParents(act, dead, known);
        add(act, Role::Celebrant, -1, "padre " + random_.pick(priests_), true);
        acts.emplace(person.death, act);
    }

    demo::Random random_;
    const QStringList priests_{"antonio dias", "joão ribeiro", "manuel de sousa", "domingos luis", "francisco leite"};
    std::map<int, Known> people_;
    std::map<int, Couple> couples_;
};

QString bookOf(const Act& act, int year)
{
    static constexpr int yearsOfABook = 50;
    const QString kind = act.kind == ActKind::Baptism ? "b" : act.kind == ActKind::Marriage ? "c" : "o";
    return kind + QString::number(year / yearsOfABook * yearsOfABook);
}

// The ids that a transcriber gives.
void number(Act& act, int number)
{
    act.number = QString::number(number);
    act.id = act.book + '.' + act.number;
    for (int person = 0; person < act.people.size(); ++person)
        act.people[person].id = QString("%1-per%2").arg(act.id).arg(person + 1);
}

} // namespace

QList<Act> parishActs(int count, std::uint32_t seed)
{
    demo::Random random(seed);
    Population population(count, random);
    Parish parish(seed + 1);
    while (population.nextYear())
        parish.take(population);
    QList<Act> acts;
    acts.reserve(count);
    QMap<QString, int> last; // number of each book
    for (auto& [day, act] : parish.acts) {
        if (acts.size() == count) break;
        act.book = bookOf(act, day.year());
        number(act, ++last[act.book]);
        acts << act;
    }
    return acts;
}

} // namespace bench
