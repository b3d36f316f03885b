#include "parish/registers.h"

#include "names.h"
#include "parish/parish.h"

namespace bench {

namespace {

constexpr int workingList = 12;

// Those that pass from father to child, found again by their number.
const QByteArrayList surnames{"Gonçalves", "Fernandes", "Pires",   "Álvares", "Ribeiro",  "de Araújo",   "da Silva",
                              "Martins",   "Rodrigues", "Lopes",   "Mendes",  "da Costa", "de Oliveira", "Vaz",
                              "Peixoto",   "Salgado",   "Machado", "Pereira", "de Sousa", "Leite",       "Ferreira",
                              "Francisco", "Antunes",   "Dias",    "Marques", "do Vale",  "de Castro",   "Novais"};

} // namespace

Registers::Registers(sqlite3* database, demo::Random& random)
    : random_(random),
      people_(database, "individuo",
              "nind, nome, tipo, sexo, famorig, alcunha, inicioobs, fimobs, datanasc, DnascFixa, localnasc, "
              "tipolocalnasc, filiacao, dataobito, dobitofixa, causa, obs"),
      couples_(database, "familia",
               "nfamilia, sfamilia, tipocasal, datacasam, dcasamfixa, localcasam, tipolocalcasam, inicioobs"),
      members_(database, "familias", "nfamilia, nind, idade, estadocivil, numcasam"),
      assistants_(database, "assistente", "tipoacto, entidade, dataref, nind, tipoassistente"),
      residences_(database, "residencia", "numero, tiporesid, dataref, datafixa, localresid, tipolocal, fonte"),
      professions_(database, "profissoes", "nind, idprofissao, dataref, codprof"),
      signatures_(database, "assinatura", "nind, idassinatura, dataref, nivelassinatura"),
      legacies_(database, "legadosprofanos", "nind, idlegprof, bensmoveis"),
      rites_(database, "rituaismorte", "nind, idlegpio, tipolegpio, quantidade"),
      passports_(database, "passaporte", "nind, nPass, dataref, localdestino, tipolocaldest")
{
}

void Registers::write(Population& population)
{
    for (const Couple& couple : population.couples())
        writeCouple(population, couple);
    for (const Person& person : population.births())
        writePerson(population, person);
}

QByteArray Registers::nameOf(const Person& person)
{
    const auto sex = person.man ? demo::Sex::male : demo::Sex::female;
    const QByteArray given = demo::givenName(random_, sex, person.birth.year()).toUtf8();
    const QByteArray surname =
        !person.man && random_.chance(30) ? demo::devotionalName(random_).toUtf8() : surnames[person.surname];
    return given + ' ' + surname;
}

Cell Registers::placeOfBirth()
{
    if (random_.chance(85)) return localityCode(random_.between(1, workingList));
    return localityCode(random_.between(1, localities));
}

void Registers::writePerson(Population& population, const Person& person)
{
    const bool placeKnown = random_.chance(90);
    people_.write({person.number, nameOf(person), QByteArray("T"), QByteArray(person.man ? "m" : "f"),
                   person.family > 0 ? Cell(person.family) : Cell(nullptr),
                   random_.chance(3)
                       ? Cell(demo::nickname(random_, person.man ? demo::Sex::male : demo::Sex::female).toUtf8())
                       : Cell(nullptr),
                   person.birth, person.death, person.birth, 1, placeKnown ? placeOfBirth() : Cell(nullptr),
                   placeKnown ? Cell(QByteArray("L")) : Cell(nullptr), person.family > 0 ? 1 : random_.between(1, 6),
                   person.death, person.death.isValid() ? Cell(1) : Cell(0),
                   person.death.isValid() && random_.chance(20)
                       ? Cell(demo::causeOfDeath(random_, int(person.birth.daysTo(person.death) / 365)).toUtf8())
                       : Cell(nullptr),
                   random_.chance(30) ? Cell("Livro " + QByteArray::number(random_.between(1, 40)) + ", folha " +
                                             QByteArray::number(random_.between(1, 200)))
                                      : Cell(nullptr)});
    for (int i = 0; i < 2; ++i)
        if (const int godparent = population.somebody(person.birth.year() - 50, person.birth.year() - 15))
            assistants_.write({QByteArray("b"), person.number, person.birth, godparent, QByteArray("p")});
    if (person.death.isValid()) writeLife(person);
}

// What is known of some of those who grew up.
void Registers::writeLife(const Person& person)
{
    if (person.birth.daysTo(person.death) < 6000) return;
    const QDate adult = person.birth.addDays(6000);
    if (person.man && random_.chance(40)) professions_.write({person.number, 1, adult, random_.between(1, 40)});
    if (random_.chance(15)) signatures_.write({person.number, 1, adult, random_.between(1, 3)});
    if (random_.chance(8)) legacies_.write({person.number, 1, QByteArray("Uma leira de terra e a casa em que vive")});
    if (random_.chance(12)) rites_.write({person.number, 1, QByteArray("missas"), random_.between(1, 60)});
    if (person.man && random_.chance(2)) passports_.write({person.number, 1, adult, QByteArray("BR"), QByteArray("P")});
}

void Registers::writeCouple(Population& population, const Couple& couple)
{
    const QByteArray place = localityCode(random_.between(1, workingList));
    couples_.write({couple.number, QByteArray("1"), 7, couple.marriage, 1, QByteArray(parishCode), QByteArray("F"),
                    couple.marriage});
    members_.write(
        {couple.number, couple.husband, random_.between(20, 40), couple.widower ? 3 : 1, couple.widower ? 2 : 1});
    members_.write({couple.number, couple.wife, random_.between(18, 35), 1, 1});
    for (int i = 0; i < 2; ++i)
        if (const int witness = population.somebody(couple.marriage.year() - 60, couple.marriage.year() - 20))
            assistants_.write({QByteArray("c"), couple.number, couple.marriage, witness, QByteArray("t")});
    if (random_.chance(50))
        residences_.write({couple.number, QByteArray("f"), couple.marriage.addDays(30), 1, place, QByteArray("L"),
                           QByteArray("Rol de confessados")});
}

} // namespace bench
