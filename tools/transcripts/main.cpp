// Writes the registers of an invented parish as transcriptions: orv-transcripts COUNT SEED kleio|clumsy|table FILE.
#include "parish/acts.h"
#include "study/transcripts/kleio.h"

#include <QFile>

#include <cstdio>

static QByteArray contentOf(const QList<study::Act>& acts, const QString& form, std::uint32_t seed)
{
    if (form == "table") return bench::actTable(acts, study::ActKind::Baptism);
    const QByteArray kleio = study::toKleio(acts);
    return form == "clumsy" ? bench::clumsyKleio(kleio, seed) : kleio;
}

int main(int argc, char** argv)
{
    if (argc != 5) {
        std::fprintf(stderr, "usage: orv-transcripts COUNT SEED kleio|clumsy|table FILE\n");
        return 2;
    }
    const std::uint32_t seed = QByteArray(argv[2]).toUInt();
    const QByteArray content = contentOf(bench::parishActs(QByteArray(argv[1]).toInt(), seed), argv[3], seed);
    QFile file(QFile::decodeName(argv[4]));
    if (file.open(QIODevice::WriteOnly) && file.write(content) == content.size()) return 0;
    std::fprintf(stderr, "%s\n", qPrintable(file.errorString()));
    return 1;
}
