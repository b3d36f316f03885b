#include "households.h"

namespace demo {
namespace {

// Writes down people and families act by act; a null date is one that no register holds.
class Scribe
{
public:
    explicit Scribe(Parish& parish) : parish_(parish) {}

    int person(Sex sex, const QString& name, QDate birth, QDate death)
    {
        Person person;
        person.number = static_cast<int>(parish_.people.size()) + 1;
        person.sex = sex;
        person.name = name;
        person.birthKnown = person.birthExact = birth.isValid();
        person.deathKnown = person.deathExact = death.isValid();
        person.birth = person.birthKnown ? birth : death.addYears(-60);
        person.death = person.deathKnown ? death : person.birth.addYears(60);
        if (person.birthKnown) person.birthPlace = {parishCode, "F"};
        if (person.deathKnown) person.deathPlace = {parishCode, "F"};
        person.seenFrom = birth;
        person.seenTo = death;
        parish_.people.append(person);
        return person.number;
    }

    int family(int husband, int wife, QDate wedding)
    {
        Family family;
        family.number = static_cast<int>(parish_.families.size()) + 1;
        family.wedding = wedding;
        family.seenFrom = wedding;
        if (wedding.isValid()) family.place = {parishCode, "F"};
        marry(family.husband, husband, wedding);
        marry(family.wife, wife, wedding);
        parish_.families.append(family);
        return family.number;
    }

    int child(int family, Sex sex, const QString& name, QDate birth, QDate death = {})
    {
        const int number = person(sex, name, birth, death);
        parish_.person(number).origin = family;
        parish_.person(number).filiation = legitimate;
        return number;
    }

    Person& who(int person) { return parish_.person(person); }
    Family& which(int family) { return parish_.family(family); }

private:
    void marry(Spouse& spouse, int number, QDate wedding)
    {
        spouse.person = number;
        if (number == 0) return;
        Person& person = parish_.person(number);
        spouse.civilState = person.civilState == married ? widowed : single;
        spouse.marriage = ++person.marriages;
        person.civilState = married;
        if (!person.seenFrom.isValid()) person.seenFrom = wedding;
    }

    Parish& parish_;
};

void bornBeforeTheMarriage(Scribe& scribe)
{
    const int father = scribe.person(Sex::male, "Tomé Vaz", {1676, 2, 11}, {1741, 6, 3});
    const int mother = scribe.person(Sex::female, "Senhorinha Pires", {1680, 9, 30}, {1738, 1, 17});
    const int family = scribe.family(father, mother, {1704, 5, 18});
    const int first = scribe.child(family, Sex::male, "Baltasar Vaz", {1702, 3, 9}, {1760, 10, 2});
    scribe.child(family, Sex::female, "Águeda Pires", {1706, 2, 4});
    scribe.who(first).note("Baptizado antes do casamento dos pais, mas dado por legítimo no assento.");
}

void baptizedYearsAfterTheMothersDeath(Scribe& scribe)
{
    const int father = scribe.person(Sex::male, "Amaro Lopes", {1698, 4, 22}, {1757, 12, 9});
    const int mother = scribe.person(Sex::female, "Apolónia Dias", {1701, 7, 1}, {1731, 8, 14});
    const int family = scribe.family(father, mother, {1724, 1, 31});
    scribe.child(family, Sex::female, "Benta Lopes", {1726, 5, 6}, {1802, 3, 3});
    const int late = scribe.child(family, Sex::male, "Inácio Lopes", {1735, 11, 20});
    scribe.who(late).note(
        "O assento dá por mãe Apolónia Dias, sepultada quatro anos antes; talvez filho de segunda mulher.");
}

void oneWomanUnderTwoNames(Scribe& scribe)
{
    const int father = scribe.person(Sex::male, "Custódio Novais", {1712, 3, 27}, {1780, 5, 5});
    const int mother = scribe.person(Sex::female, "Maria da Conceição", {1709, 12, 8}, {1784, 2, 19});
    const int family = scribe.family(father, mother, {1738, 6, 2});
    scribe.who(mother).ageToldAtDeath = 60;
    scribe.which(family).wife.ageTold = 22;
    scribe.child(family, Sex::female, "Joana Novais", {1740, 4, 12});
    scribe.who(mother).note(
        "No baptismo da filha Joana chama-se Maria Gonçalves. Casa com 22 anos e morre com 60, pelos "
        "assentos; pelo baptismo teria 28 e 74.");
}

void bornAfterTheFamilyWasLastSeen(Scribe& scribe)
{
    const int father = scribe.person(Sex::male, "Gaspar Antunes", {1651, 8, 8}, {1688, 10, 21});
    const int mother = scribe.person(Sex::female, "Luísa de Castro", {1655, 1, 12}, {});
    const int family = scribe.family(father, mother, {1677, 11, 4});
    scribe.which(family).seenTo = {1688, 10, 21};
    const int late = scribe.child(family, Sex::female, "Inês Antunes", {1691, 6, 24}, {1691, 7, 30});
    scribe.who(late).note("Dada por filha póstuma de Gaspar Antunes, morto quase três anos antes.");
}

void spouseOfUnreadSex(Scribe& scribe)
{
    const int husband = scribe.person(Sex::male, "Simão Peixoto", {1699, 10, 28}, {1752, 3, 15});
    const int other = scribe.person(Sex::unknown, "J. do Vale", {}, {1759, 9, 1});
    const int family = scribe.family(husband, other, {1729, 2, 7});
    scribe.who(other).note("O nome e o sexo não se lêem no assento de casamento nem no de óbito.");
    scribe.which(family).notes = "Folha roída pela traça: só o nome do marido está inteiro.";
}

void remarriedWhileTheWifeLived(Scribe& scribe)
{
    const int husband = scribe.person(Sex::male, "Jerónimo Salgado", {1670, 9, 30}, {1735, 1, 6});
    const int first = scribe.person(Sex::female, "Marta Marques", {1674, 5, 2}, {1714, 4, 11});
    const int second = scribe.person(Sex::female, "Domingas Leite", {1685, 8, 4}, {1750, 12, 24});
    scribe.family(husband, first, {1695, 7, 10});
    const int family = scribe.family(husband, second, {1710, 2, 16});
    scribe.which(family).notes = "O noivo é dado por viúvo, mas Marta Marques só é sepultada em 1714.";
}

void siblingsBornFiveMonthsApart(Scribe& scribe)
{
    const int father = scribe.person(Sex::male, "Bento Ferreira", {1741, 3, 21}, {1799, 7, 7});
    const int mother = scribe.person(Sex::female, "Josefa Rosa", {1746, 6, 13}, {});
    const int family = scribe.family(father, mother, {1768, 9, 12});
    scribe.child(family, Sex::male, "Manuel José Ferreira", {1770, 2, 3});
    const int next = scribe.child(family, Sex::female, "Ana Josefa Ferreira", {1770, 7, 15});
    scribe.who(next).note("Cinco meses depois do irmão Manuel José: um dos assentos terá o ano ou os pais errados.");
}

// No contradiction: of most single parents the father is the one unknown, of these the mother.
void fatherAlone(Scribe& scribe)
{
    const int father = scribe.person(Sex::male, "Paulo Machado", {1722, 1, 25}, {1790, 8, 30});
    const int family = scribe.family(father, 0, {});
    scribe.child(family, Sex::female, "Mariana Machado", {1755, 5, 1});
    scribe.which(family).notes = "O assento de baptismo da filha deixa em branco o nome da mãe.";
}

} // namespace

void addHouseholds(Parish& parish)
{
    Scribe scribe(parish);
    bornBeforeTheMarriage(scribe);
    baptizedYearsAfterTheMothersDeath(scribe);
    oneWomanUnderTwoNames(scribe);
    bornAfterTheFamilyWasLastSeen(scribe);
    spouseOfUnreadSex(scribe);
    remarriedWhileTheWifeLived(scribe);
    siblingsBornFiveMonthsApart(scribe);
    fatherAlone(scribe);
}

} // namespace demo
