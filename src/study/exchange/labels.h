// What codes, places and professions mean, as a BDP has it: the texts beside their columns. For this room alone.
#pragma once

#include "platform/jet/connection.h"
#include "study/exchange/tableList.h"

#include <QByteArray>
#include <QHash>

namespace study::exchange {

class Labels
{
public:
    explicit Labels(const jet::Connection& bdp); // throws jet::Error

    // `other` is the text of the column that tells the category or the level; "" where nothing is told of the code.
    QByteArray of(const TableColumn& column, const QByteArray& code, const QByteArray& other) const;
    // The column that `other` is of; "" for none.
    static QString otherColumn(const TableColumn& column);

private:
    QHash<QByteArray, QByteArray> texts_; // by what stands before the code, and the code
};

} // namespace study::exchange
