// The copies of a BDP that an import is tried on, and that is kept before one.
#include "platform/time/clock.h"
#include "store/copiaDiaria.h"
#include "store/session.h"
#include "study/transcripts/import.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

namespace study {

struct Rehearsal::Private
{
    QTemporaryDir folder;
    jet::Connection copy;
};

Rehearsal::Rehearsal(const jet::Connection& bdp) : d_(std::make_unique<Private>())
{
    const QString path = d_->folder.filePath("ensaio.orv");
    bdp.copyTo(path);
    d_->copy.open(connectionString(path));
}

Rehearsal::~Rehearsal() = default;

ImportReport Rehearsal::play(const Transcript& transcript, const ImportOptions& options, const ImportProgress& progress)
{
    ImportReport report = importActs(d_->copy, transcript, options, progress);
    report.isRehearsal = true;
    return report;
}

ImportReport rehearsed(const jet::Connection& bdp, const Transcript& transcript, const ImportOptions& options,
                       const ImportProgress& progress)
{
    return Rehearsal(bdp).play(transcript, options, progress);
}

namespace {

QString copyBefore(const jet::Connection& bdp, const QString& occasion)
{
    const QFileInfo file(QFileInfo(bdp.dataSource()).canonicalFilePath());
    const QString folder = pastaDasCopias(file.filePath());
    if (!QDir().mkpath(folder))
        throw jet::Error(jet::number::pathNotFound, QString("Não é possível criar a pasta \"%1\".").arg(folder));
    const QString moment = Clock::moment().toString("yyyy-MM-dd_HH.mm.ss");
    const QString name = QString("%1/%2_antes de %3_%4").arg(folder, file.completeBaseName(), occasion, moment);
    QString path = name + ".orv";
    for (int number = 2; QFileInfo::exists(path); ++number)
        path = QString("%1_%2.orv").arg(name).arg(number);
    bdp.copyTo(path);
    return path;
}

} // namespace

QString copyBeforeImport(const jet::Connection& bdp)
{
    return copyBefore(bdp, "importar");
}

QString copyBeforeTakingBack(const jet::Connection& bdp)
{
    return copyBefore(bdp, "desfazer");
}

} // namespace study
