#include "truth.h"

#include "platform/desktop/desktop.h"
#include "platform/jet/connection.h"
#include "researcher.h"
#include "store/modBD.h"

#include <QFile>

#include <algorithm>

namespace truth {

namespace {

constexpr int fewestInhabitants = 40;
constexpr double recordsOfAnInhabitant = 16; // over all the years, as they come out

QString iso(QDate day)
{
    return day.isValid() ? day.toString(Qt::ISODate) : QString();
}

QString line(const QStringList& fields)
{
    return fields.join(';') + '\n';
}

} // namespace

Parish parish(int people, std::uint32_t seed, const QString& dataFolder, const Rates& rates)
{
    const int inhabitants = std::max(fewestInhabitants, static_cast<int>(people / recordsOfAnInhabitant));
    Parish one{.world = lived(inhabitants, rates, seed), .bdp = {}};
    const Spellings spellings(dataFolder + "/nomes.csv");
    one.bdp = Researcher(one.world, rates, seed + 2).enter(acts(one.world, rates, spellings, seed + 1));
    return one;
}

QByteArray key(const Parish& parish)
{
    QString text = "registo;numero;verdade;nascimento;obito;origem;nome\n";
    const auto number = [](int value) { return value == 0 ? QString() : QString::number(value); };
    for (const Card& card : parish.bdp.people) {
        if (card.number == 0) continue;
        const Person& person = parish.world.person(card.who);
        text += line({"pessoa", number(card.number), number(card.who), iso(person.birth), iso(person.death),
                      number(person.origin), person.name.full()});
    }
    for (const FamilyCard& family : parish.bdp.families) {
        if (family.number == 0) continue;
        const Couple& couple = parish.world.couple(family.which);
        text += line({"familia", number(family.number), number(family.which), number(couple.husband),
                      number(couple.wife), "", ""});
    }
    for (const WrongLink& wrong : parish.bdp.wrong)
        text += line({"errada", number(wrong.person), number(wrong.truly), wrong.what, number(wrong.family), "", ""});
    return text.toUtf8();
}

void make(const QString& bdp, const QString& csv, int people, std::uint32_t seed, const QString& dataFolder)
{
    Desktop::setProgramFolder(dataFolder);
    const Parish one = parish(people, seed, dataFolder);
    QFile file(csv);
    if (!file.open(QIODevice::WriteOnly)) throw jet::Error(75, file.errorString());
    file.write(key(one));
    jet::createDatabase(bdp);
    jet::Connection connection;
    connection.open(bdp);
    CriaTabelas(connection, dataFolder + "/CriarTab.dat");
    CarregaDadosIniciais(connection);
    write(one.bdp, one.world, connection);
}

} // namespace truth
