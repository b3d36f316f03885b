// Where one hostile file is made: a folder with a good BDP in it to be spoilt, and files of somebody beside it that
// nothing may touch.
#pragma once

#include "raw.h"

class Site
{
public:
    explicit Site(const QString& folder) : folder_(folder) {}

    QString folder() const { return folder_; }
    QString bdp() const { return folder_ + "/bdp.orv"; }
    QString bystander() const { return folder_ + "/tese.txt"; } // an innocent file
    QString beside(const char* suffix) const { return bdp() + QLatin1String(suffix); }

    // Puts the good BDP and the bystander there.
    void furnish(const QString& goodBdp);

    QByteArray bytes() const { return bytesOf(bdp()); }
    void setBytes(const QByteArray& bytes) const { setBytesOf(bdp(), bytes); }
    static QByteArray bytesOf(const QString& path);
    static void setBytesOf(const QString& path, const QByteArray& bytes);

    // A file with rows that were being changed when its program was killed, with the journal or the log of that.
    void breakOff(const char* journalMode);
    // What stands beside the file belongs to it: the engine restores it from there.
    bool belongs = false;

private:
    QString folder_;
};

// What a text of a hostile file would say if the program let it speak.
inline constexpr auto voiceOfTheFile = "VOZ DO FICHEIRO";
