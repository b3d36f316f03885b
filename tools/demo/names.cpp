#include "names.h"

#include <QStringList>

namespace demo {
namespace {

// The commonest stand more than once.
const QStringList men{"João",      "João",      "João",      "Manuel",   "Manuel",   "Manuel", "António",  "António",
                      "Francisco", "Francisco", "Domingos",  "Domingos", "José",     "Pedro",  "Bento",    "Jerónimo",
                      "Gonçalo",   "Mateus",    "Simão",     "Tomé",     "Custódio", "Luís",   "Gaspar",   "Baltasar",
                      "Gregório",  "Miguel",    "Sebastião", "Paulo",    "Salvador", "Inácio", "Bernardo", "Amaro"};
const QStringList women{"Maria",     "Maria",    "Maria",    "Maria",      "Ana",       "Ana",     "Catarina",
                        "Catarina",  "Isabel",   "Isabel",   "Francisca",  "Francisca", "Antónia", "Domingas",
                        "Margarida", "Jerónima", "Marta",    "Senhorinha", "Úrsula",    "Teresa",  "Josefa",
                        "Joana",     "Luísa",    "Custódia", "Águeda",     "Bernarda",  "Inês",    "Mariana",
                        "Serafina",  "Apolónia", "Benta",    "Ângela"};
const QStringList secondMen{"José", "José", "Luís", "Joaquim", "Caetano", "António", "Bento"};
const QStringList secondWomen{"Josefa", "Teresa", "Rosa", "Luísa", "Joaquina", "Clara", "Angélica"};
const QStringList families{"Gonçalves", "Fernandes", "Pires",   "Álvares", "Ribeiro",  "de Araújo",   "da Silva",
                           "Martins",   "Rodrigues", "Lopes",   "Mendes",  "da Costa", "de Oliveira", "Vaz",
                           "Peixoto",   "Salgado",   "Machado", "Pereira", "de Sousa", "Leite",       "Ferreira",
                           "Francisco", "Antunes",   "Dias",    "Marques", "do Vale",  "de Castro",   "Novais"};
const QStringList devotions{"de Jesus",    "da Conceição", "do Espírito Santo", "da Assunção",    "do Rosário",
                            "de São José", "da Cruz",      "dos Anjos",         "da Purificação", "do Sacramento"};
const QStringList nicknamesOfMen{"o Ruivo", "o Torto", "o Galego", "o Moleiro",
                                 "o Bravo", "o Novo",  "o Surdo",  "o Brasileiro"};
const QStringList nicknamesOfWomen{"a Ruiva", "a Galega", "a Moleira", "a Nova", "a Alta", "a Tecedeira"};
const QStringList causesOfChildren{"Bexigas",    "Bexigas", "Sarampo",       "Lombrigas",
                                   "Garrotilho", "Febres",  "Tosse convulsa"};
const QStringList causesOfAdults{"Febre maligna", "Pleuriz", "Hidropisia", "Tísica", "Estupor", "Febres", "Queda"};
const QStringList causesOfTheOld{"Velhice", "Estupor", "Hidropisia", "Catarro", "Gangrena"};

} // namespace

QString givenName(Random& random, Sex sex, int year)
{
    const bool twofold = random.chance(year > 1730 ? 55 : 4);
    const QString first = random.pick(sex == Sex::female ? women : men);
    if (!twofold) return first;
    const QString second = random.pick(sex == Sex::female ? secondWomen : secondMen);
    return second == first ? first : first + ' ' + second;
}

QString familyName(Random& random)
{
    return random.pick(families);
}

QString devotionalName(Random& random)
{
    return random.pick(devotions);
}

QString nickname(Random& random, Sex sex)
{
    return random.pick(sex == Sex::female ? nicknamesOfWomen : nicknamesOfMen);
}

QString causeOfDeath(Random& random, int age)
{
    if (!random.chance(35)) return {};
    return random.pick(age < 12 ? causesOfChildren : age < 65 ? causesOfAdults : causesOfTheOld);
}

} // namespace demo
