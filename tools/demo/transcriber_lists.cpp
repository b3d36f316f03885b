#include "transcriber.h"

#include <algorithm>

namespace demo {
namespace {

// Codes of prof.dat; the commonest stand more than once.
const QList<int> tradesOfMen{401, 401, 401, 401, 401, 384, 384, 384, 156, 156,  // lavrador, jornaleiro, caseiro
                             479, 604, 28,  141, 317, 518, 645, 640, 34,  635}; // moleiro, sapateiro ... taberneiro
const QList<int> tradesOfWomen{643, 643, 319, 319, 505, 212, 220, 220, 513};    // tecedeira, fiandeira ... parteira
const QList<int> tradesOfNobles{135, 485, 562}; // capitão de ordenanças ... proprietário
constexpr int servant = 471;                    // moço de lavoura
constexpr int parishPriestTrade = 512, priestTrade = 507;
constexpr int workingFrom = 16;

const QList<Local> overseas{{"1528", "Z"}, {"1528", "Z"}, {"1528", "Z"}, {"1514", "Z"},
                            {"1514", "Z"}, {"1522", "Z"}, {"1526", "Z"}, {"15", "P"}}; // Rio de Janeiro ... Brasil
const QStringList faces{"Rosto comprido", "Rosto redondo", "Rosto bexigoso", "Rosto moreno"};
const QStringList eyes{"olhos castanhos", "olhos pretos", "olhos azuis", "olhos pardos"};
const QStringList hair{"cabelo preto", "cabelo castanho", "cabelo louro", "cabelo ruivo", "cabelo crespo"};
const QStringList marks{"", "", "", "sinal na face esquerda", "cicatriz na testa", "falta de um dente"};

bool isInside(const Local& place)
{
    return place.nivel == "L" || place.nivel == "S";
}

} // namespace

// The acts that may tell what somebody was.
QList<Sighting> Transcriber::sightingsOf(const Person& person) const
{
    QList<Sighting> sightings;
    for (const Nfam marriage : marriages_.value(person.number)) {
        const Family& family = which(marriage);
        if (family.marriedBy.person) sightings << Sighting{family.wedding, "Assento de casamento"};
        for (const Person* child : parish_.childrenOf(marriage))
            if (child->baptizedBy.person && isAround(person, child->birth))
                sightings << Sighting{child->birthTold, "Baptismo de um filho"};
    }
    if (person.buriedBy.person) sightings << Sighting{person.deathTold, "Assento de óbito"};
    std::ranges::stable_sort(sightings, {}, &Sighting::day);
    sightings.removeIf(
        [&](const Sighting& sighting) { return completedYears(person.birth, sighting.day()) < workingFrom; });
    return sightings;
}

// Where the children were born: a family that moved shows it at the next baptism.
void Transcriber::addHomes(const Family& family)
{
    QDate last;
    for (const Person* child : parish_.childrenOf(family.number)) {
        if (!child->baptizedBy.person || !isInside(child->birthPlace) || child->birth == last) continue;
        if (family.seenTo.isValid() && child->birth > family.seenTo) continue; // posthumous
        if (last.isValid() && !random_.chance(20)) continue;
        parish_.records.residences << Residence{.family = family.number,
                                                .sighting = {child->birthTold, "Baptismo de um filho"},
                                                .place = child->birthPlace,
                                                .notes = last.isValid() ? "Mudaram de casa." : ""};
        last = child->birth;
    }
}

// A newcomer still lives at home on the wedding day; a grown person dies where the burial says.
void Transcriber::addHomes(const Person& person)
{
    const QList<Nfam> marriages = marriages_.value(person.number);
    if (!marriages.isEmpty() && neighbours().contains(person.birthPlace.codigo)) {
        const Family& first = which(marriages.first()); // a later marriage finds her or him in the parish
        if (first.marriedBy.person)
            parish_.records.residences << Residence{.person = person.number,
                                                    .sighting = {first.wedding, "Assento de casamento"},
                                                    .place = person.birthPlace,
                                                    .notes = "Antes de casar."};
    }
    if (person.buriedBy.person && completedYears(person.birth, person.death) >= workingFrom &&
        isInside(person.deathPlace) && random_.chance(60))
        parish_.records.residences << Residence{
            .person = person.number, .sighting = {person.deathTold, "Assento de óbito"}, .place = person.deathPlace};
}

int Transcriber::trade(const Person& person)
{
    if (person.civilState == cleric) return priestTrade;
    if (person.title == "Dom") return random_.pick(tradesOfNobles);
    return random_.pick(person.sex == Sex::female ? tradesOfWomen : tradesOfMen);
}

void Transcriber::addProfessions(const Person& person)
{
    if (person.civilState == cleric && !person.origin) { // the register is the parish priest's own
        const Sighting first{{person.seenFrom, true}, "Primeiro assento que escreve"};
        parish_.records.professions << Profession{person.number, first, parishPriestTrade};
        sign(person.number, first, "Pároco");
        return;
    }
    if (person.sex == Sex::unknown || person.title == "Dona") return;
    const int own = trade(person);
    const bool servedFirst = own != priestTrade && person.title.isEmpty() && random_.chance(15);
    bool first = true;
    for (const Sighting& sighting : sightingsOf(person)) {
        if (!random_.chance(person.sex == Sex::female ? 12 : 35)) continue;
        const bool serves = first && servedFirst && civilStateOn(person, sighting.day()) == single;
        parish_.records.professions << Profession{person.number, sighting, serves ? servant : own};
        first = false;
    }
}

// Whoever signs with a cross is told of less often.
void Transcriber::sign(Nind number, const Sighting& sighting, const QString& function)
{
    const int level = literacy_.value(number);
    if (level == 1 && !random_.chance(25)) return;
    const Person& signer = who(number);
    parish_.records.signatures << Signature{
        .person = number,
        .sighting = sighting,
        .age = signer.birthTold.exacta() ? completedYears(signer.birth, sighting.day()) : 0,
        .level = level,
        .text = level == 1 ? "Sinal de cruz" : signer.name,
        .function = function};
}

// Some let the first passport lapse and take another.
void Transcriber::addPassports(Person& emigrant)
{
    emigrant.height = random_.between(150, 178);
    emigrant.stature = emigrant.height < 160 ? "Baixa" : emigrant.height < 169 ? "Média" : "Alta";
    QStringList features{random_.pick(faces), random_.pick(eyes), random_.pick(hair), random_.pick(marks)};
    features.removeAll("");
    emigrant.features = features.join(", ") + '.';

    const Local destination = random_.pick(overseas);
    const int number = random_.between(1, 400);
    if (random_.chance(20))
        parish_.records.passports << Passport{
            emigrant.number, number, emigrant.left.addDays(-random_.between(200, 500)), destination, "Não embarcou."};
    parish_.records.passports << Passport{emigrant.number, number + random_.between(20, 90),
                                          emigrant.left.addDays(-random_.between(5, 60)), destination,
                                          random_.chance(40) ? "Vai para casa de um tio." : ""};
}

} // namespace demo
