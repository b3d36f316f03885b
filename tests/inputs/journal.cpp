#include "journal.h"

#include "failure.h"

Journal::Journal(const QString& path, const QString& title) : file_(path)
{
    if (!file_.open(QIODevice::WriteOnly | QIODevice::Truncate)) fail(path + " can't be written");
    write({"include \"" INPUTS_SETTINGS "\"", {}, "scenario " + quoted(title)});
}

void Journal::note(const QString& line)
{
    write({line});
}

void Journal::begin(const QStringList& prepared, const QString& step)
{
    begun_ = file_.pos();
    write(prepared + QStringList{step});
}

void Journal::end(const QStringList& used, const QString& step, const QStringList& seen)
{
    file_.seek(begun_);
    write(used + QStringList{step} + seen);
    file_.resize(file_.pos());
    file_.flush();
}

void Journal::write(const QStringList& lines)
{
    for (const QString& line : lines)
        file_.write(line.toUtf8() + '\n');
    file_.flush();
}
