// The index of the names: tables estudo_nome, estudo_nome_individuo, estudo_nome_palavra, estudo_nome_estado of the BDP
// (docs/bdp.md).
#pragma once

#include "platform/jet/connection.h"
#include "study/acts/act.h"
#include "study/people/keys.h"

#include <QDate>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>
#include <vector>

namespace study {

// A row of the people of the BDP, as far as who they are is told by it alone.
struct PersonRow
{
    qint64 row = 0; // its rowid in `individuo`
    qint64 nind = 0;
    QString name = {};
    Sex sex = Sex::Unknown;
    QDate birth = {}, death = {};
    qint64 family = 0; // of origin; 0: none

    bool operator==(const PersonRow&) const = default;
};

struct BirthYears
{
    int from = 0;
    int to = 9999;
};

// Finds the rows of people by the words of their names.
//
// It follows `individuo`: update() looks at the rows that this connection has touched since, and compares all rows by
// one scan where another program, or an earlier session, may have written. Only rows that differ are written, and a
// mark that saves the next session that scan.
// One thread; the connection outlives it. All throw jet::Error.
class NameIndex
{
public:
    explicit NameIndex(jet::Connection& bdp);
    ~NameIndex();
    NameIndex(const NameIndex&) = delete;
    NameIndex& operator=(const NameIndex&) = delete;

    // Makes the tables where there are none, and brings them up to date, in a transaction of its own or as part of the
    // one that is open; where nothing has changed, nothing is written. Throws where tables of these names are others.
    void update();
    void rebuild(); // the same, whatever the tables hold

    // Where the tables have to be made, which takes seconds at a million people, does some tens of milliseconds of it
    // in a transaction of its own; else what update() does. Returns whether update() has no more of that to do. Within
    // a transaction it does nothing. Whoever gives up meanwhile leaves tables that the next one makes anew.
    bool prepare();
    int prepared() const; // percent

    // Preconditions of the following: update() was called behind the last change of the BDP.

    // Adds to `rows` the people under that code of whom a birth in these years is known, by decade and rowid, or those
    // of whom none is known, by rowid; at most `limit`. Returns false where there are more.
    bool born(WordCode code, BirthYears years, int limit, std::vector<qint64>& rows);
    bool withoutBirth(WordCode code, int limit, std::vector<qint64>& rows);
    // How many there are under it, and about how many people in all, by their greatest rowid; as they were when it was
    // first asked for since the index was compared as a whole, as only the order of size counts.
    qint64 countOf(WordCode code);
    qint64 people();

    std::optional<PersonRow> person(qint64 row);

    // The classes of the words of the BDP that begin so, in the order of the words; without a limit of their own.
    std::vector<WordCode> wordsFrom(const QString& beginning, int limit);
    // Whether some word of the BDP is written so.
    bool hasWord(const QString& word);
    // The words that resemble it (likeness() of spelling::likeEnough at least), and begin with the same letter.
    std::vector<WordCode> wordsLike(const QString& word, int limit);

private:
    struct Private;
    std::unique_ptr<Private> d_;
};

} // namespace study
