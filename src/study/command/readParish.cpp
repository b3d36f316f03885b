#include "study/command/readParish.h"

#include "platform/jet/rows.h"
#include "study/command/bdp.h"
#include "study/indicators/settingsJson.h"

#include <QDir>
#include <QFileInfo>

#include <optional>

namespace study {

namespace {

using parish::Snapshot;

constexpr int attempts = 5; // at a BDP that somebody writes to meanwhile

// Another one, once another connection has written.
qint64 stateOf(const jet::Connection& bdp)
{
    jet::Rows row(bdp, jet::NativeSql("select data_version from pragma_data_version"));
    row.next();
    return row.number(0);
}

// Nothing where somebody has written meanwhile: mark and rows could be of two states.
std::optional<ReadParish> readOnce(const QString& path, const Snapshot::GoesOn& goesOn)
{
    jet::Connection bdp;
    openBdpToRead(bdp, path);
    const qint64 state = stateOf(bdp);
    const parish::Source source = parish::sourceOf(QFileInfo(path).absoluteFilePath());
    if (!source.isKnown())
        throw jet::Error(jet::number::permissionDenied, QString("O ficheiro \"%1\" não pode ser lido.").arg(path));
    if (!goesOn(0)) throw Snapshot::Interrupted{};
    ReadParish read{.parish = Snapshot::read(bdp, goesOn), .settings = indicators::keptSettings(bdp), .source = source};
    if (stateOf(bdp) != state) return {};
    return read;
}

} // namespace

ReadParish readParish(const QString& path, const Snapshot::GoesOn& goesOn)
{
    for (int i = 0; i < attempts; ++i)
        if (std::optional<ReadParish> read = readOnce(path, goesOn)) return std::move(*read);
    throw jet::Error(jet::number::engineFailure,
                     QString("A BDP \"%1\" está sempre a ser alterada por outro programa.").arg(path));
}

void makeFolder(const QString& path)
{
    if (!QFileInfo::exists(path) && !QDir().mkdir(path))
        throw jet::Error(jet::number::pathNotFound, QString("A pasta \"%1\" não pode ser criada.").arg(path));
}

} // namespace study
