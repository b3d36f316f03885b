// Places as contexts. For this room alone.
#pragma once

#include "platform/jet/connection.h"
#include "study/exchange/idsTables.h"
#include "study/parish/snapshot.h"

#include <QHash>

#include <vector>

namespace study::exchange {

// Each place of the BDP has a number, from 1 on: those of the tables of places by level and code, whatever the rows
// name, and behind them those that rows name and no table has.
class IdsPlaces
{
public:
    explicit IdsPlaces(const jet::Connection& bdp); // throws jet::Error

    struct Place
    {
        const LevelWords* level = nullptr;
        QString name = {};
        qint64 within = 0; // 0 for nothing that is known
        bool isUsed = false;
    };
    // Asked for a place, it and all that it lies in count as used. 0 for none.
    qint64 use(const parish::Place& place);
    const Place& at(qint64 number) const { return places_[static_cast<std::size_t>(number - 1)]; }
    qint64 count() const { return static_cast<qint64>(places_.size()); }

private:
    bool add(const QString& key, const QString& name); // false where it is there

    std::vector<Place> places_ = {};
    QHash<QString, qint64> numbers_ = {}; // by letter and code
};

} // namespace study::exchange
