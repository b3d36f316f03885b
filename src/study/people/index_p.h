// What the parts of the index share.
#pragma once

#include "platform/jet/follower.h"
#include "platform/jet/rows.h"
#include "study/people/index.h"

#include <QHash>
#include <QPair>
#include <QSet>

#include <optional>
#include <utility>
#include <vector>

namespace study {

// An entry of estudo_nome is one number: the code of a word or of two, the decade of birth, the rowid of the person.
inline constexpr int bitsOfARow = 31;
inline constexpr int bitsOfADecade = 8;
inline constexpr qint64 greatestRow = (qint64(1) << bitsOfARow) - 1; // nobody beyond it is found by name
inline constexpr int noDecade = 0;                                   // of no date of birth
inline constexpr int greatestDecade = (1 << bitsOfADecade) - 1;

constexpr qint64 entryOf(WordCode code, int decade, qint64 row)
{
    return ((qint64(code) << bitsOfADecade | decade) << bitsOfARow) | row;
}

constexpr qint64 rowOf(qint64 entry)
{
    return entry & greatestRow;
}

int decadeOf(int year); // 1 and more
int decadeOf(QDate birth);

QString plainWord(const QString& word); // as estudo_nome_palavra has it

// A word as it may be typed, and the class under which it is found.
using Spelling = std::pair<QString, QString>;
QList<Spelling> spellingsOf(const QString& name);

// registo, nind, nome, sexo, datanasc, dataobito, famorig
PersonRow personIn(const jet::Rows& columns);

struct NameIndex::Private
{
    explicit Private(jet::Connection& connection)
        : bdp(connection), follower(connection, {"individuo", "estudo_nome_individuo"})
    {
    }

    jet::Connection& bdp;
    jet::Follower follower; // also of what it has written itself: that may be rolled back
    QHash<WordCode, qint64> counts;
    qint64 people = -1;

    using Rowids = std::vector<qint64>; // of `individuo`

    // The tables on their way: first the people, and what they are found by; then the entries.
    struct Making
    {
        QString mine = {};  // stands for the version until they are whole: nobody else has begun them anew
        qint64 lastRow = 0; // that was copied
        qint64 greatestRow = 0;
        bool isCopied = false;
        std::vector<qint64> entries = {};
        size_t written = 0; // of the entries
        QHash<QString, std::vector<WordCode>> codesOf = {};
        Rowids altered = {}; // that others have written between two pieces
        bool isWhole = false;
    };
    std::optional<Making> making; // none: the tables are whole, or nobody knows

    enum class Pace
    {
        Piece,
        Whole
    };
    // `touched`: the rows that were touched since the last time; none: any may have been.
    void bringUpToDate(std::optional<Rowids> touched, Pace pace);

    bool follow(Pace pace); // returns whether the tables are whole
    void startOver();

    bool rowsBetween(qint64 first, qint64 last, int limit, std::vector<qint64>& rows) const; // of entries
    qint64 indexed() const;                                                                  // how many people
    void beginMaking(); // precondition: the tables are there, and a transaction is open

    // Makes those that are missing, and returns whether any was. Throws where one of these names is another one.
    bool makeTables();

private:
    bool takeUp(const Rowids& rows);
    bool catchUp(bool alone);
    QString version(); // "" for none
    bool isMarked();   // the file was compared as it stands
    Rowids rowsThatDiffer();
    void writeState(bool whole); // whole: all that the file holds is in the index
    void mark(bool isNeeded);
    void goOnMaking(bool alone, Pace pace);
    void copySome();
    void enterSome();
    void finishMaking(bool alone);
};

} // namespace study
