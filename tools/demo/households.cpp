#include "households.h"

namespace demo {
namespace {

// Writes down people and families act by act; a null date is one that no register holds.
class Scribe
{
public:
    explicit Scribe(Parish& parish) : parish_(parish) {}

    Nind person(Sex sex, const QString& name, QDate birth, QDate death)
    {
        Person one;
        one.number = parish_.nextPerson();
        one.sex = sex;
        one.name = name;
        one.birthTold = told(birth);
        one.deathTold = told(death);
        one.birth = birth.isValid() ? birth : death.addYears(-60);
        one.death = death.isValid() ? death : one.birth.addYears(60);
        if (birth.isValid()) one.birthPlace = {parishCode, "F"};
        if (death.isValid()) one.deathPlace = {parishCode, "F"};
        one.seenFrom = birth;
        one.seenTo = death;
        parish_.people.append(one);
        return one.number;
    }

    Nfam family(Nind husband, Nind wife, QDate wedding)
    {
        Family one;
        one.number = parish_.nextFamily();
        one.wedding = told(wedding);
        one.seenFrom = wedding;
        if (wedding.isValid()) one.place = {parishCode, "F"};
        marry(one.husband, husband, wedding);
        marry(one.wife, wife, wedding);
        parish_.families.append(one);
        return one.number;
    }

    Nind child(Nfam origin, Sex sex, const QString& name, QDate birth, QDate death = {})
    {
        const Nind number = person(sex, name, birth, death);
        who(number).origin = origin;
        who(number).filiation = legitimate;
        return number;
    }

    Person& who(Nind number) { return parish_.person(number); }
    Family& which(Nfam number) { return parish_.family(number); }

private:
    static DataRegistada told(QDate date) { return {date, date.isValid()}; }

    void marry(Spouse& spouse, Nind number, QDate wedding)
    {
        spouse.person = number;
        if (!number) return;
        Person& one = who(number);
        spouse.civilState = one.civilState == married ? widowed : single;
        spouse.marriage = ++one.marriages;
        one.civilState = married;
        if (!one.seenFrom.isValid()) one.seenFrom = wedding;
    }

    Parish& parish_;
};

void bornBeforeTheMarriage(Scribe& scribe)
{
    const Nind father = scribe.person(Sex::male, "Tomé Vaz", {1676, 2, 11}, {1741, 6, 3});
    const Nind mother = scribe.person(Sex::female, "Senhorinha Pires", {1680, 9, 30}, {1738, 1, 17});
    const Nfam family = scribe.family(father, mother, {1704, 5, 18});
    const Nind first = scribe.child(family, Sex::male, "Baltasar Vaz", {1702, 3, 9}, {1760, 10, 2});
    scribe.child(family, Sex::female, "Águeda Pires", {1706, 2, 4});
    scribe.who(first).note("Baptizado antes do casamento dos pais, mas dado por legítimo no assento.");
}

void baptizedYearsAfterTheMothersDeath(Scribe& scribe)
{
    const Nind father = scribe.person(Sex::male, "Amaro Lopes", {1698, 4, 22}, {1757, 12, 9});
    const Nind mother = scribe.person(Sex::female, "Apolónia Dias", {1701, 7, 1}, {1731, 8, 14});
    const Nfam family = scribe.family(father, mother, {1724, 1, 31});
    scribe.child(family, Sex::female, "Benta Lopes", {1726, 5, 6}, {1802, 3, 3});
    const Nind late = scribe.child(family, Sex::male, "Inácio Lopes", {1735, 11, 20});
    scribe.who(late).note(
        "O assento dá por mãe Apolónia Dias, sepultada quatro anos antes; talvez filho de segunda mulher.");
}

void oneWomanUnderTwoNames(Scribe& scribe)
{
    const Nind father = scribe.person(Sex::male, "Custódio Novais", {1712, 3, 27}, {1780, 5, 5});
    const Nind mother = scribe.person(Sex::female, "Maria da Conceição", {1709, 12, 8}, {1784, 2, 19});
    const Nfam family = scribe.family(father, mother, {1738, 6, 2});
    scribe.who(mother).ageToldAtDeath = 60;
    scribe.which(family).wife.ageTold = 22;
    scribe.child(family, Sex::female, "Joana Novais", {1740, 4, 12});
    scribe.who(mother).note(
        "No baptismo da filha Joana chama-se Maria Gonçalves. Casa com 22 anos e morre com 60, pelos "
        "assentos; pelo baptismo teria 28 e 74.");
}

void bornAfterTheFamilyWasLastSeen(Scribe& scribe)
{
    const Nind father = scribe.person(Sex::male, "Gaspar Antunes", {1651, 8, 8}, {1688, 10, 21});
    const Nind mother = scribe.person(Sex::female, "Luísa de Castro", {1655, 1, 12}, {});
    const Nfam family = scribe.family(father, mother, {1677, 11, 4});
    scribe.which(family).seenTo = {1688, 10, 21};
    const Nind late = scribe.child(family, Sex::female, "Inês Antunes", {1691, 6, 24}, {1691, 7, 30});
    scribe.who(late).note("Dada por filha póstuma de Gaspar Antunes, morto quase três anos antes.");
}

void spouseOfUnreadSex(Scribe& scribe)
{
    const Nind husband = scribe.person(Sex::male, "Simão Peixoto", {1699, 10, 28}, {1752, 3, 15});
    const Nind other = scribe.person(Sex::unknown, "J. do Vale", {}, {1759, 9, 1});
    const Nfam family = scribe.family(husband, other, {1729, 2, 7});
    scribe.who(other).note("O nome e o sexo não se lêem no assento de casamento nem no de óbito.");
    scribe.which(family).notes = "Folha roída pela traça: só o nome do marido está inteiro.";
}

void remarriedWhileTheWifeLived(Scribe& scribe)
{
    const Nind husband = scribe.person(Sex::male, "Jerónimo Salgado", {1670, 9, 30}, {1735, 1, 6});
    const Nind first = scribe.person(Sex::female, "Marta Marques", {1674, 5, 2}, {1714, 4, 11});
    const Nind second = scribe.person(Sex::female, "Domingas Leite", {1685, 8, 4}, {1750, 12, 24});
    scribe.family(husband, first, {1695, 7, 10});
    const Nfam family = scribe.family(husband, second, {1710, 2, 16});
    scribe.which(family).notes = "O noivo é dado por viúvo, mas Marta Marques só é sepultada em 1714.";
}

void siblingsBornFiveMonthsApart(Scribe& scribe)
{
    const Nind father = scribe.person(Sex::male, "Bento Ferreira", {1741, 3, 21}, {1799, 7, 7});
    const Nind mother = scribe.person(Sex::female, "Josefa Rosa", {1746, 6, 13}, {});
    const Nfam family = scribe.family(father, mother, {1768, 9, 12});
    scribe.child(family, Sex::male, "Manuel José Ferreira", {1770, 2, 3});
    const Nind next = scribe.child(family, Sex::female, "Ana Josefa Ferreira", {1770, 7, 15});
    scribe.who(next).note("Cinco meses depois do irmão Manuel José: um dos assentos terá o ano ou os pais errados.");
}

// No contradiction: of most single parents the father is the one unknown, of these the mother.
void fatherAlone(Scribe& scribe)
{
    const Nind father = scribe.person(Sex::male, "Paulo Machado", {1722, 1, 25}, {1790, 8, 30});
    const Nfam family = scribe.family(father, {}, {});
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
