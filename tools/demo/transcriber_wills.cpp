#include "kinship.h"
#include "transcriber.h"

#include <array>

namespace demo {
namespace {

constexpr int mostHeirs = 5;
constexpr int executorFrom = 25;

const QStringList movables{"Uma caixa de castanho e um cobertor",
                           "Duas vacas e o carro",
                           "Metade dos móveis da casa",
                           "O tear com seus pertences",
                           "Um lençol de linho e uma toalha",
                           "Os alqueires de pão que se acharem na casa",
                           "Uma saia de serafina e um gibão",
                           "Dez mil réis em dinheiro",
                           "Um cordão de ouro"};
const QStringList lands{"A leira da %1", "O campo da %1", "A devesa da %1", "A casa em que vive, na %1",
                        "O souto da %1"};
const QStringList landsIn{"Ribeira", "Fonte", "Eira", "Ponte", "Lameira", "Azenha"};

struct Purpose
{
    int type; // TipMi or TipEs
    QString destination;
};
const QList<Purpose> masses{{1, "Pela sua alma"},   {1, "Pela sua alma"},          {3, "Pela sua alma"},
                            {9, "Pela sua alma"},   {12, "Por alma de seus pais"}, {14, "Pelas almas do Purgatório"},
                            {16, "A Santo António"}};
const QList<Purpose> alms{{1, "Pobres da freguesia"},         {1, "Pobres da freguesia"},
                          {6, "Misericórdia de Guimarães"},   {7, "Confraria do Santíssimo Sacramento"},
                          {8, "Confraria das Almas"},         {13, "Redenção dos cativos"},
                          {14, "Lugares Santos de Jerusalém"}};
const QList<int> numbersOfMasses{3, 5, 10, 10, 20, 25, 30, 50, 100};
const QList<int> numbersOfPriests{6, 9, 10, 12, 15};
constexpr std::array offices{1, 2, 3}; // TipOf: on the day of the burial, a week and a month later

// What a priest is given for one mass, in réis.
int priceOfMass(int year)
{
    return year < 1690 ? 60 : year < 1750 ? 100 : 120;
}

} // namespace

// Husband or wife and the children; nephews and nieces, brothers and sisters where there is none of those.
QList<Nind> Transcriber::heirsOf(const Person& testator) const
{
    QList<Nind> near, far;
    if (const Nind spouse = spouseOn(testator.number, testator.death)) near << spouse;
    for (const Person& other : parish_.people) {
        if (!isAround(other, testator.death)) continue;
        const int code = kinship(parish_, other, testator);
        if (code == kin::son || code == kin::son + 1)
            near << other.number;
        else if (code >= kin::brother && code <= kin::nephew + 1)
            far << other.number;
    }
    return (near.isEmpty() ? far : near).mid(0, mostHeirs);
}

void Transcriber::openWill(Person& testator)
{
    const QList<Nind> heirs = heirsOf(testator);
    testator.executor = testator.buriedBy.person;
    for (const Nind heir : heirs)
        if (completedYears(who(heir).birth, testator.death) >= executorFrom) {
            testator.executor = heir;
            break;
        }
    sign(testator.number, {{testator.death, false}, "Testamento"}, "Testador");
    for (const Nind heir : heirs)
        bequeath(testator, heir);
    if (heirs.isEmpty())
        parish_.records.legacies << Legacy{.testator = testator.number,
                                           .movables = "Tudo o que se achar na casa",
                                           .notes = "Institui herdeira a sua alma."};
}

void Transcriber::bequeath(const Person& testator, Nind number)
{
    Legacy legacy{.testator = testator.number, .heir = number};
    const Person& heir = who(number);
    const bool spouse = number == spouseOn(testator.number, testator.death);
    legacy.kinship = spouse ? kin::husband + (heir.sex == Sex::female ? 1 : 0) : kinship(parish_, heir, testator);
    const bool land = random_.chance(60);
    if (land) legacy.lands = random_.pick(lands).arg(random_.pick(landsIn));
    if (!land || random_.chance(50)) legacy.movables = random_.pick(movables);
    if (spouse)
        legacy.notes = "Em sua vida.";
    else if (random_.chance(15))
        legacy.notes = "Além da sua legítima.";
    parish_.records.legacies << legacy;
}

void Transcriber::addSuffrages(const Person& dead)
{
    addMasses(dead);
    if (random_.chance(60)) addOffice(dead);
    if (random_.chance(40)) addAlms(dead);
}

void Transcriber::addMasses(const Person& dead)
{
    const Purpose& purpose = random_.pick(masses);
    const int quantity = random_.pick(numbersOfMasses);
    const int price = priceOfMass(dead.death.year());
    parish_.records.suffrages << Suffrage{.person = dead.number,
                                          .kind = "missa",
                                          .type = purpose.type,
                                          .quantity = quantity,
                                          .unitValue = price,
                                          .total = quantity * price,
                                          .destination = purpose.destination};
}

void Transcriber::addOffice(const Person& dead)
{
    const int priests = random_.pick(numbersOfPriests);
    const int price = priests * priceOfMass(dead.death.year());
    for (const int type : offices) {
        parish_.records.suffrages << Suffrage{.person = dead.number,
                                              .kind = "oficio",
                                              .type = type,
                                              .quantity = 1,
                                              .unitValue = price,
                                              .total = price,
                                              .priests = priests,
                                              .destination = "Pela sua alma"};
        if (!random_.chance(40)) return;
    }
}

void Transcriber::addAlms(const Person& dead)
{
    const Purpose& purpose = random_.pick(alms);
    parish_.records.suffrages << Suffrage{.person = dead.number,
                                          .kind = "esmola",
                                          .type = purpose.type,
                                          .total = random_.between(1, 20) * 500,
                                          .destination = purpose.destination};
}

} // namespace demo
