#include "store/dataFile.h"

#include "fuzz/targets.h"

#include "platform/jet/connection.h"

#include <QTemporaryDir>

namespace {

struct Place
{
    QTemporaryDir folder;
    jet::Connection bdp;

    Place()
    {
        const QString path = folder.filePath("dados.orv");
        jet::createDatabase(path);
        bdp.open(path);
        bdp.execute("create table tabela (a varchar not null, b varchar(255), c long, d date, e bit)");
        bdp.beginTrans(); // never written to the disk
    }
};

} // namespace

void Fuzz::dataFile(const QByteArray& bytes)
{
    static Place place;
    const QString path = place.folder.filePath("dados.dat");
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly)) return;
    file.write(bytes);
    file.close();

    DataFile data(path);
    jet::Connection::Insert insert(place.bdp, "tabela", {"a", "b", "c", "d", "e"});
    qsizetype taken = 0;
    while (!data.atEnd()) {
        try {
            const QByteArray line = data.readUtf8Line();
            require(!line.contains('\n') && QString::fromUtf8(line).toUtf8() == line, "no line of text");
            insert.run(line.split(';'));
        } catch (const jet::Error& error) {
            require(data.located(error).description.contains(path), "an error that doesn't name its file");
        }
        require(++taken <= bytes.size(), "a file without an end");
    }
    place.bdp.rollbackTrans();
    place.bdp.beginTrans();
}
