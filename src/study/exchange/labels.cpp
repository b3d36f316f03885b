#include "study/exchange/labels.h"

#include "platform/jet/rows.h"

namespace study::exchange {

namespace {

constexpr auto professions = "#";

// Categories, levels and words are matched whatever their case.
QByteArray keyOf(const QByteArray& before, const QByteArray& code)
{
    return before.toLower() + '\0' + code;
}

} // namespace

Labels::Labels(const jet::Connection& bdp)
{
    jet::Rows row(bdp, jet::NativeSql("select categoria, codigo, descricao from infocomplementar "
                                      "union all select '#', codprof, profissao from profissao "
                                      "union all select 'P', codpais, nomepais from pais "
                                      "union all select 'Z', codzona, nomezona from zonapais "
                                      "union all select 'D', coddistrito, nomedistrito from distrito "
                                      "union all select 'C', codconcelho, nomeconcelho from concelho "
                                      "union all select 'F', codparoquia, nomeparoquia from paroquia "
                                      "union all select 'L', codlugar, nomelugar from lugar "
                                      "union all select 'S', codsitio, nomesitio from sitio"));
    while (row.next())
        texts_.insert(keyOf(row.text(0).toUtf8(), row.text(1).toUtf8()), row.text(2).remove(QChar(0)).toUtf8());
}

QByteArray Labels::of(const TableColumn& column, const QByteArray& code, const QByteArray& other) const
{
    if (code.isEmpty()) return {};
    if (column.isProfession) return texts_.value(keyOf(professions, code));
    if (!column.placeLetter.isEmpty()) return texts_.value(keyOf(other, code));
    if (!column.category.isEmpty()) return texts_.value(keyOf(column.category.toUtf8(), code));
    for (const auto& each : column.categories)
        if (QString::fromUtf8(other).trimmed().compare(each.first, Qt::CaseInsensitive) == 0)
            return texts_.value(keyOf(each.second.toUtf8(), code));
    return {};
}

QString Labels::otherColumn(const TableColumn& column)
{
    return column.placeLetter.isEmpty() ? column.categoryBy : column.placeLetter;
}

} // namespace study::exchange
