// Somebody who reads the file from outside while people are entered, and what is found in it after a kill.
#pragma once

#include <QSet>
#include <QString>

class Witness
{
public:
    explicit Witness(QString bdp) : bdp_(std::move(bdp)) {}

    // Takes down who is committed: in the file, with no journal that could take it back. Locks nothing.
    void look();
    bool journalStands() const;

    int acknowledged() const { return int(names_.size()); }

    // The texts of a person who is typed all bear the same mark, so that half a person shows.
    // Opens the file as the next start would. What is wrong with it: damage, somebody taken down who is not there, half
    // a person; empty where nothing is.
    QString judge() const;

private:
    QString damagedCopy() const; // the name of one; empty where all are whole

    QString bdp_;
    QByteArray seen_; // the counter of changes at the last look
    QSet<QString> names_;
};
