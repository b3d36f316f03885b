// What can be wrong with a file, by chance.
#pragma once

#include "dice.h"
#include "site.h"

struct Mutation
{
    const char* name;
    void (*make)(Site& site, Dice& dice);
};

const QList<Mutation>& byteMutations();     // what a bad disk does
const QList<Mutation>& valueMutations();    // values that no window would have stored
const QList<Mutation>& relationMutations(); // rows that hang together as none can
const QList<Mutation>& schemaMutations();   // tables that are none of ours
const QList<Mutation>& companyMutations();  // journals and logs beside the file
const QList<Mutation>& kindMutations();     // no file of ours, or none at all

// A value as a statement has it, such as no window stores.
QString strangeValue(Dice& dice);

// Journals as somebody made them up: one that names a super-journal, and one with a page of some other file.
QByteArray journalThatNames(const QString& superJournal);
QByteArray journalOfAnother();

// Spoils the file by one to three of all mutations. Returns their names.
QString mutate(Site& site, Dice& dice);
