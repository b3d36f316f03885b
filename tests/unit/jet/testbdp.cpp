#include "jet/testbdp.h"

#include <QDate>

namespace jet::test {

QString written(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::UnknownType:
        return QStringLiteral("-");
    case QMetaType::QDate:
        return value.toDate().toString(QStringLiteral("dd/MM/yyyy"));
    case QMetaType::Bool:
        return value.toBool() ? QStringLiteral("sim") : QStringLiteral("não");
    default:
        return value.toString();
    }
}

QString TestBdp::rows(Recordset& set) const
{
    QStringList rows;
    for (; !set.eof(); set.moveNext()) {
        QStringList fields;
        for (int i = 0; i < set.fieldCount(); ++i)
            fields << written(set[i]);
        rows << fields.join(u'|');
    }
    return rows.join(u' ');
}

} // namespace jet::test

void PrintTo(const QString& text, std::ostream* out)
{
    *out << text.toStdString();
}
