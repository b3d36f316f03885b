// The steps of a session as a scenario, kept in a file as they are done: what crashed or hung can be played again.
#pragma once

#include <QFile>
#include <QStringList>

class Journal
{
public:
    Journal(const QString& path, const QString& title);

    void note(const QString& line); // a comment, or a step that is over already
    // A step that is about to be done, behind what was prepared for it.
    void begin(const QStringList& prepared, const QString& step);
    // It is over: what of the preparations it has used up, how it is to be told, and what was seen of it.
    void end(const QStringList& used, const QString& step, const QStringList& seen);

private:
    void write(const QStringList& lines);

    QFile file_;
    qint64 begun_ = 0; // where the step under way stands
};
