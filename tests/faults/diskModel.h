// What a power cut leaves of a disk. README.md tells the models in full.
#pragma once

#include "recording.h"

#include <QRandomGenerator>

enum class Model
{
    AllKept,         // all that was done has reached the disk
    UnsyncedDropped, // contents are those of each file's last sync; all names have reached the disk
    TornSectors,     // of what was written since, each sector by itself is there, half there or not there
    NamesLost,       // names are those of each folder's last sync; all contents have reached the disk
    NamesPartly,     // of the names changed since, some are: the first of them, or any; a rename half done
    AllDropped,      // UnsyncedDropped and NamesLost
    TornAndPartly    // TornSectors and NamesPartly
};

inline constexpr Model models[]{Model::AllKept,     Model::UnsyncedDropped, Model::TornSectors,  Model::NamesLost,
                                Model::NamesPartly, Model::AllDropped,      Model::TornAndPartly};

bool isDrawn(Model model); // by a seed: another one leaves another disk
QString told(Model model);

// Files and folders by their paths.
struct DiskImage
{
    QMap<QString, QByteArray> files;
    QStringList folders;

    QByteArray digest() const;
    void write(const QString& folder) const; // which is empty
};

class DiskModel
{
public:
    explicit DiskModel(const Recording& recording);

    void apply(const Operation& operation);
    DiskImage cut(Model model, quint32 seed) const;

private:
    struct File
    {
        QByteArray synced;
        QByteArray current;
        QList<Operation> pending; // since the last sync
    };
    using Names = QMap<QString, int>; // -1: a folder

    static void applyData(QByteArray& bytes, const Operation& operation);
    static void applyTorn(QByteArray& bytes, const Operation& operation, QRandomGenerator& draw);
    void applyName(Names& names, const Operation& operation) const;
    Names namesAfter(Model model, QRandomGenerator& draw) const;
    QByteArray contents(const File& file, Model model, QRandomGenerator& draw) const;

    QList<File> files_;
    Names synced_;
    Names current_;
    QList<Operation> pending_; // changes of names since the last sync of their folder
};
