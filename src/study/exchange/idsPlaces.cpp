#include "study/exchange/idsPlaces.h"

#include "platform/jet/rows.h"

namespace study::exchange {

IdsPlaces::IdsPlaces(const jet::Connection& bdp)
{
    QStringList above;
    {
        jet::Rows row(bdp, jet::NativeSql(
                               "select 1, 'P' || codpais, nomepais, '' from pais "
                               "union all select 2, 'Z' || codzona, nomezona, 'P' || codpais from zonapais "
                               "union all select 3, 'D' || coddistrito, nomedistrito, 'P' || codpais from distrito "
                               "union all select 4, 'C' || codconcelho, nomeconcelho, 'D' || coddistrito from concelho "
                               "union all select 5, 'F' || codparoquia, nomeparoquia, 'C' || codconcelho from paroquia "
                               "union all select 6, 'L' || codlugar, nomelugar, 'F' || codparoquia from lugar "
                               "union all select 7, 'S' || codsitio, nomesitio, 'L' || codlugar from sitio "
                               "order by 1, 2"));
        while (row.next()) {
            if (add(row.text(1), row.text(2))) above << row.text(3);
        }
    }
    for (std::size_t i = 0; i < places_.size(); ++i)
        places_[i].within = numbers_.value(above[static_cast<qsizetype>(i)]);
    jet::Rows row(bdp, jet::NativeSql("select coalesce(substr(tipolocalnasc, 1, 1), '') || localnasc from individuo "
                                      "where localnasc <> '' "
                                      "union select coalesce(substr(tipolocalobito, 1, 1), '') || localobito "
                                      "from individuo where localobito <> '' "
                                      "union select coalesce(substr(tipolocalcasam, 1, 1), '') || localcasam "
                                      "from familia where localcasam <> '' "
                                      "union select coalesce(substr(tipolocal, 1, 1), '') || localresid "
                                      "from residencia where localresid <> '' "
                                      "union select coalesce(substr(tipolocaldest, 1, 1), '') || localdestino "
                                      "from passaporte where localdestino <> '' order by 1"));
    while (row.next()) {
        const QString key = row.text(0);
        const bool hasLetter = !key.isEmpty() && key.at(0) == levelOf(key.at(0)).letter;
        add(key, '(' + key.mid(hasLetter ? 1 : 0) + ')');
    }
}

bool IdsPlaces::add(const QString& key, const QString& name)
{
    if (key.isEmpty() || numbers_.contains(key)) return false;
    places_.push_back({&levelOf(key.at(0)), name});
    numbers_.insert(key, count());
    return true;
}

qint64 IdsPlaces::use(const parish::Place& place)
{
    if (!place.isKnown()) return 0;
    const qint64 number = numbers_.value((place.level.isNull() ? QString() : QString(place.level)) + place.code);
    for (qint64 one = number; one != 0 && !at(one).isUsed; one = at(one).within)
        places_[static_cast<std::size_t>(one - 1)].isUsed = true;
    return number;
}

} // namespace study::exchange
