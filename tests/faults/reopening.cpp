#include "reopening.h"

#include "failure.h"
#include "workload.h"

#include "platform/jet/disk.h"
#include "store/copiaDiaria.h"
#include "store/modBD.h"
#include "store/session.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>

#include <algorithm>

namespace {

constexpr int laterWorkEvery = 4; // of the disks: it takes longer than all the rest

// Whether it is a BDP that a step of the workload shows or makes under a name of the user's. Others, as those of the
// daily copies, have only to be whole.
bool isNamed(const Promise& promise, const QString& name)
{
    return promise.before.contains(name) || promise.after.contains(name);
}

QString texts(const QList<Box>& boxes)
{
    QStringList all;
    for (const Box& box : boxes)
        all << quoted(box.text);
    return all.join(", ");
}

} // namespace

Reopening::Reopening(const Recording& recording, const QString& folder)
    : recording_(recording), stage_(makeStage(folder, "cut")),
      watcher_(stage_, [](const QString& reason) { qFatal("%s", qPrintable(reason)); })
{
}

void Reopening::make(const DiskImage& image)
{
    QDir(stage_.dir()).removeRecursively();
    QDir().mkpath(stage_.dir());
    image.write(stage_.dir());
    ++disks_;
}

QString Reopening::opened(const QString& path)
{
    stage_.state.boxes.clear();
    const bool open = AbreBDP(path);
    if (open && stage_.state.boxes.isEmpty()) return {};
    return (open ? "opens with " : "doesn't open: ") + texts(stage_.state.boxes);
}

// What was under way when the power went is nobody's any more once a BDP is opened there.
QString Reopening::leftoverBeside(const QString& path)
{
    for (const QString& name : QFileInfo(path).dir().entryList(QDir::Files | QDir::Hidden))
        if (jet::isTemporaryName(name)) return "leaves " + name + " beside it";
    return {};
}

// Something more is written and read again, with what was there still there.
QString Reopening::problemOfLaterWork(const QString& path)
{
    try {
        cnBDP.beginTrans(); // what makes no difference is written nowhere
        cnBDP.execute("insert into infopar (cod, nome) values ('0', 'outra')");
        cnBDP.execute("delete from infopar where cod = '0'");
        cnBDP.commitTrans();
        cnBDP.close();
        return QFileInfo::exists(path + "-journal") ? QString("its journal stays") : QString();
    } catch (const jet::Error& error) {
        return "takes no confirm any more: " + error.description;
    }
}

QString Reopening::problemOf(const QString& name, const Promise& promise)
{
    const QString path = stage_.dir() + '/' + name;
    const bool missing = !QFileInfo::exists(path);
    const bool mayBeMissing = !promise.before.contains(name) || !promise.after.contains(name);
    if (missing) return mayBeMissing ? QString() : name + " is gone";
    const bool dailyCopy = name.startsWith("copias/"); // of an older BDP: the opening would bring it up to date
    QString problem = dailyCopy ? QString() : opened(path);
    if (problem.isEmpty() && !dailyCopy) problem = leftoverBeside(path);
    if (problem.isEmpty() && !dailyCopy && disks_ % laterWorkEvery == 0) problem = problemOfLaterWork(path);
    cnBDP.close();
    esperaCopiaDiaria();
    if (!problem.isEmpty()) return name + ' ' + problem;
    try {
        const Content content = contentOf(path);
        if (promise.after.contains(name) && content == promise.after[name]) return {};
        if (promise.before.contains(name) && content == promise.before[name]) return {};
        QString reason = name + " is neither as before nor as after:";
        if (promise.before.contains(name)) reason += " before: " + difference(content, promise.before[name]);
        if (promise.after.contains(name)) reason += "; after: " + difference(content, promise.after[name]);
        return reason;
    } catch (const Unreadable& unreadable) {
        return name + " can't be read: " + unreadable.reason;
    }
}

QString Reopening::problemOfCopy(const QString& name) const
{
    try {
        const Content content = contentOf(stage_.dir() + '/' + name);
        for (const Snapshot& state : recording_.states)
            if (std::any_of(state.begin(), state.end(), [&](const Content& known) { return known == content; }))
                return {};
        return name + " is a copy of nothing that ever was";
    } catch (const Unreadable& unreadable) {
        return name + " is a copy that can't be read: " + unreadable.reason;
    }
}

QStringList Reopening::problems(const DiskImage& image, const Promise& promise)
{
    make(image);
    QStringList problems;
    QStringList names = promise.before.keys() + promise.after.keys();
    names.removeDuplicates();
    names.sort(); // the daily copies first: what is written here makes new ones
    for (const QString& name : names)
        problems << problemOf(name, promise);
    for (auto file = image.files.begin(); file != image.files.end(); ++file)
        if (file.key().endsWith(".orv") && !isNamed(promise, file.key())) problems << problemOfCopy(file.key());
    problems.removeAll(QString());
    return problems;
}
