#include "study/exchange/ownedRows.h"

namespace study::exchange {

void OwnedRows::forward()
{
    taken_ = false;
    over_ = !rows_.next();
    if (!over_) owner_ = rows_.real(0);
}

bool OwnedRows::next(qint64 owner)
{
    if (taken_) forward();
    while (!over_ && owner_ < static_cast<double>(owner))
        forward();
    taken_ = !over_ && owner_ == static_cast<double>(owner);
    return taken_;
}

parish::Code codeAt(const jet::Rows& row, int column)
{
    return row.isNull(column) ? parish::Code() : static_cast<int>(row.number(column));
}

parish::Date dateAt(const jet::Rows& row, int column)
{
    return parish::dateOf(row.date(column), row.number(column + 1) != 0);
}

parish::Date exactDateAt(const jet::Rows& row, int column)
{
    return parish::dateOf(row.date(column), true);
}

parish::Place placeAt(const jet::Rows& row, int column)
{
    const QString level = row.text(column + 1);
    return {row.text(column), level.isEmpty() ? QChar() : level.at(0)};
}

} // namespace study::exchange
