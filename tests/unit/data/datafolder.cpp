#include "datafolder.h"

#include "platform/desktop/codepage.h"
#include "platform/desktop/desktop.h"
#include "platform/jet/recordset.h"
#include "store/modBD.h"

#include <QFile>

#include <sqlite3.h>

namespace datafolder {
namespace {

QString shown(const QVariant& value)
{
    if (value.isNull()) return "null";
    if (value.typeId() == QMetaType::QDate) return value.toDate().toString(Qt::ISODate);
    return value.toString();
}

QStringList read(jet::Connection& bdp, const QString& select)
{
    QStringList all;
    for (jet::Recordset rows(bdp, select); !rows.eof(); rows.moveNext()) {
        QStringList values;
        for (int column = 0; column < rows.fieldCount(); ++column)
            values << shown(rows[column]);
        all << values.join('|');
    }
    return all;
}

} // namespace

QByteArray bytes(const QString& file)
{
    QFile source(QStringLiteral(ORV_DATA_DIR "/") + file);
    return source.open(QIODevice::ReadOnly) ? source.readAll() : QByteArray();
}

QStringList lines(const QString& file)
{
    const auto text = fromCodePage(bytes(file));
    if (!text || !text->endsWith("\r\n")) return {};
    return text->chopped(2).split("\r\n");
}

Content content(const QString& file)
{
    Content content;
    for (const QString& line : lines(file))
        content.rows << line.split(';');
    if (!content.rows.isEmpty()) content.header = content.rows.takeFirst();
    return content;
}

QStringList Content::column(const QString& name) const
{
    const auto position = header.indexOf(name);
    QStringList values;
    for (const QStringList& row : rows)
        values << row.value(position);
    return values;
}

MadeBdp::MadeBdp()
{
    const QString path = folder_.filePath("made.orv");
    Desktop::setProgramFolder(ORV_DATA_DIR);
    jet::createDatabase(path);
    connection.open("Data Source=" + path);
    CriaTabelas(connection, ORV_DATA_DIR "/CriarTab.dat");
    CarregaDadosIniciais(connection);
    Desktop::setProgramFolder({}); // its own again
}

QStringList MadeBdp::rows(const QString& select)
{
    return read(connection, select);
}

QString integrity(jet::Connection& bdp)
{
    QString answer;
    const auto append = [](void* target, int, char** values, char**) {
        *static_cast<QString*>(target) += QString::fromUtf8(values[0]);
        return 0;
    };
    sqlite3_exec(bdp.handle(), "pragma integrity_check", append, &answer, nullptr);
    return answer;
}

QStringList dump(jet::Connection& bdp)
{
    QStringList all;
    for (const QString& table : bdp.tables()) {
        all << "-- " + table;
        all << read(bdp, "select * from " + table);
    }
    return all;
}

} // namespace datafolder
