// How the parish becomes rows of the BDP.
#pragma once

#include "parish.h"

#include "platform/jet/recordset.h"

namespace demo {

// What isn't known stays null.
inline void put(jet::Recordset& row, const QString& field, const QString& value)
{
    if (!value.isEmpty()) row.set(field, value);
}

inline void put(jet::Recordset& row, const QString& field, int value)
{
    if (value != 0) row.set(field, value);
}

inline void put(jet::Recordset& row, const QString& field, QDate value)
{
    if (value.isValid()) row.set(field, value);
}

template <class Tag>
void put(jet::Recordset& row, const QString& field, Numero<Tag> value)
{
    if (value) row.set(field, value.paraColuna());
}

inline void put(jet::Recordset& row, const QString& date, const QString& flag, const DataRegistada& told)
{
    put(row, date, told.data);
    row.set(flag, told.exacta());
}

inline void put(jet::Recordset& row, const QString& code, const QString& level, const Local& place)
{
    put(row, code, place.codigo);
    put(row, level, place.nivel);
}

inline void put(jet::Recordset& row, const QString& number, const QString& function, const Officiant& priest)
{
    put(row, number, priest.person);
    put(row, function, priest.function);
}

// The records, whatever their order; the running numbers of a person's rows follow it.
void writeRecords(const Records& records, jet::Connection& bdp);

} // namespace demo
