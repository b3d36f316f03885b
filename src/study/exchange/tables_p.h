// What the export and the import of tables share.
#pragma once

#include "platform/jet/rows.h"
#include "study/exchange/tableList.h"
#include "study/exchange/tables.h"

#include <QByteArray>
#include <QVariant>

#include <optional>

namespace study::exchange {

inline const QString placeColumn = QStringLiteral("rowid"); // the place of a row in its table
inline const QString problemTable = QStringLiteral("problemas");

// The columns of problemas.csv.
namespace problem {
inline const QString table = QStringLiteral("tabela"), place = QStringLiteral("lugar"),
                     column = QStringLiteral("coluna"), value = QStringLiteral("valor"), form = QStringLiteral("forma"),
                     reason = QStringLiteral("problema");
inline const QString json = QStringLiteral("json"); // the form of a value that no cell has a word for (jet/jsonrow.h)
} // namespace problem

enum class State : quint8
{
    Null,
    Sound,
    Odd // the column shouldn't hold it
};

// The value as the standard dialect writes it.
struct CellText
{
    State state = State::Null;
    QByteArray text = {};
};
CellText cellOf(const jet::Rows& row, int column, Kind kind);

// As the dialect has it: a sound cell for a spreadsheet. Its reverse takes both, whatever was asked for.
QByteArray forSpreadsheet(const QByteArray& text, Kind kind);
QByteArray fromSpreadsheet(const QByteArray& text, Kind kind);

// The value of a cell of the standard dialect; nothing where it is none of that kind.
std::optional<QVariant> valueOf(const QByteArray& text, Kind kind);

} // namespace study::exchange
