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

    // What is wrong with the file: damage, somebody taken down who is not there, half a person, which shows as all
    // texts of a person bear the same mark; empty where nothing is. A copy is looked at, with its journal: the file
    // itself waits for the program's next start as the kill has left it.
    QString judge() const;

private:
    QString damagedCopy() const; // the name of one; empty where all are whole

    QString bdp_;
    QByteArray seen_; // the counter of changes at the last look
    QSet<QString> names_;
};
