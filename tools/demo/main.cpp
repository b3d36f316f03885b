// orv-demo TARGET.orv DATADIR: makes the demonstration BDP.

#include "demo.h"

#include <QFile>

#include <cstdio>

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::fputs("usage: orv-demo TARGET.orv DATADIR\n", stderr);
        return 2;
    }
    const QString target = QFile::decodeName(argv[1]);
    try {
        demo::make(target, QFile::decodeName(argv[2]));
        return 0;
    } catch (const jet::Error& error) {
        std::fprintf(stderr, "%s: %s (%ld)\n", argv[1], qUtf8Printable(error.description), error.number);
        return 1;
    }
}
