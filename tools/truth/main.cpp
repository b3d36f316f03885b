// orv-truth PEOPLE SEED TARGET.orv DATADIR: makes a BDP with about so many people, and beside it TARGET.csv with what
// is true of them.
#include "platform/jet/connection.h"
#include "truth.h"

#include <QFile>
#include <QFileInfo>

#include <cstdio>

int main(int argc, char** argv)
{
    if (argc != 5) {
        std::fputs("usage: orv-truth PEOPLE SEED TARGET.orv DATADIR\n", stderr);
        return 2;
    }
    const QString target = QFile::decodeName(argv[3]);
    const QFileInfo info(target);
    const QString csv = info.path() + '/' + info.completeBaseName() + ".csv";
    try {
        truth::make(target, csv, QByteArray(argv[1]).toInt(), QByteArray(argv[2]).toUInt(), QFile::decodeName(argv[4]));
        return 0;
    } catch (const jet::Error& error) {
        std::fprintf(stderr, "%s: %s (%ld)\n", argv[3], qUtf8Printable(error.description), error.number);
        return 1;
    }
}
