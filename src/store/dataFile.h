// The text files of the program's folder that a BDP is made from.
#pragma once

#include "platform/jet/error.h"

#include <QByteArray>
#include <QString>

// A file in code page 1252, read in one go and taken line by line; lines end with CR LF or LF, the last one perhaps
// with the file.
class DataFile
{
public:
    // The file of that name in the program's folder. Throws Error 53 if there is none, 70 if it can't be read.
    static DataFile inProgramFolder(const QString& name);
    // The same, by its full path. Throws Error 57 if the disk fails.
    explicit DataFile(const QString& path);

    bool atEnd() const { return at_ >= bytes_.size(); }
    // Without its line ending. Throws Error 13 for a line that isn't in the code page.
    // Precondition: not atEnd(); Error 62 otherwise.
    QString readLine() { return QString::fromUtf8(readUtf8Line()); }
    QByteArray readUtf8Line();

    // The error, with the file and the line read last added to its text.
    jet::Error located(const jet::Error& error) const;

private:
    QString path_;
    QByteArray bytes_;
    qsizetype at_ = 0;
    int line_ = 0;
};
