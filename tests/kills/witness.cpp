#include "witness.h"

#include "raw.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <unistd.h>

namespace {

// The header's counter of changes.
QByteArray changesOf(QFile& file)
{
    if (!file.isOpen() && !file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) return {};
    return file.seek(24) ? file.read(4) : QByteArray();
}

} // namespace

bool Witness::journalStands() const
{
    return access(QFile::encodeName(bdp_ + "-journal").constData(), F_OK) == 0;
}

void Witness::look()
{
    QFile file(bdp_);
    const QByteArray before = changesOf(file);
    if (before == seen_ || journalStands()) return;
    const QStringList names =
        Raw(bdp_, Raw::Way::Untouched).texts("select nome from individuo where nome like 'Pessoa %'");
    if (journalStands() || changesOf(file) != before) return; // a change was under way: at the next look
    seen_ = before;
    names_ += QSet<QString>(names.begin(), names.end());
}

QString Witness::damagedCopy() const
{
    const QDir folder(QFileInfo(bdp_).path() + "/copias");
    const auto copies = folder.entryList({"*.orv"}, QDir::Files);
    for (const QString& copy : copies)
        if (Raw(folder.filePath(copy), Raw::Way::Untouched).text("pragma integrity_check") != "ok") return copy;
    return {};
}

QString Witness::judge() const
{
    const QTemporaryDir apart;
    const QString copy = apart.filePath("copia.orv");
    QFile::copy(bdp_, copy);
    QFile::copy(bdp_ + "-journal", copy + "-journal");
    Raw raw(copy); // restored from its journal
    const QString whole = raw.text("pragma integrity_check");
    if (whole != "ok") return "the file is damaged: " + whole;
    if (const QString daily = damagedCopy(); !daily.isEmpty()) return "the daily copy is damaged: " + daily;
    const QStringList names = raw.texts("select nome from individuo where nome like 'Pessoa %'");
    const QSet<QString> stored(names.begin(), names.end());
    for (const QString& name : names_)
        if (!stored.contains(name)) return name + " was committed and is lost";
    if (stored.size() != names.size()) return "somebody is stored twice";
    const QString half =
        raw.text("select nome from individuo where nome like 'Pessoa %' and "
                 "(titulo is not replace(nome, 'Pessoa', 'Titulo') "
                 "or alcunha is not replace(nome, 'Pessoa', 'Alcunha') "
                 "or obs is not replace(nome, 'Pessoa', 'Obs') or sexo is not 'm' or tipo is not 'T')");
    return half.isEmpty() ? QString() : half + " is half stored";
}
