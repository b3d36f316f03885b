// How the index is made, in pieces.
#include "study/people/index_p.h"

#include <QUuid>

#include <algorithm>
#include <limits>

namespace study {

namespace {

// A piece is some tens of milliseconds of work, a step some milliseconds of it.
constexpr qint64 peopleOfAStep = 4000;
constexpr size_t entriesOfAStep = 20000;
constexpr int stepsOfAPiece = 5;

} // namespace

// Until they are whole, the tables are of a version that nobody else knows, so that whoever finds half of them makes
// them anew.
void NameIndex::Private::beginMaking()
{
    counts.clear();
    people = -1;
    making = Making{};
    making->lastRow = std::numeric_limits<qint64>::min();
    jet::Rows last(bdp, jet::NativeSql("select max(rowid) from individuo"));
    making->greatestRow = last.next() ? last.number(0) : 0;
    bdp.execute(jet::NativeSql("delete from estudo_nome_estado"));
    bdp.execute(jet::NativeSql("delete from estudo_nome"));
    bdp.execute(jet::NativeSql("delete from estudo_nome_individuo"));
    bdp.execute(jet::NativeSql("delete from estudo_nome_palavra"));
    making->mine = QUuid::createUuid().toString();
    bdp.execute(jet::NativeSql("insert into estudo_nome_estado (versao) values (?)", {making->mine}));
}

// What it writes itself is no news behind the piece; but a transaction of somebody else may take it back.
void NameIndex::Private::goOnMaking(bool alone, Pace pace)
{
    for (int step = 0; !making->isWhole && (pace == Pace::Whole || step < stepsOfAPiece); ++step)
        if (!making->isCopied)
            copySome();
        else if (making->written < making->entries.size())
            enterSome();
        else
            finishMaking(alone);
    follower.touched();
    if (making->isWhole && !alone) follower.forget();
}

void NameIndex::Private::copySome()
{
    bdp.execute(
        jet::NativeSql("insert into estudo_nome_individuo (registo, nind, nome, sexo, datanasc, dataobito, famorig) "
                       "select rowid, nind, nome, sexo, datanasc, dataobito, famorig from individuo where rowid > ? "
                       "order by rowid limit ?",
                       {making->lastRow, peopleOfAStep}));
    qint64 copied = 0;
    for (jet::Rows rows(bdp, jet::NativeSql("select registo, nind, nome, sexo, datanasc, dataobito, famorig from "
                                            "estudo_nome_individuo where registo > ? order by registo",
                                            {making->lastRow}));
         rows.next(); ++copied)
    {
        const PersonRow person = personIn(rows);
        making->lastRow = person.row;
        if (person.row <= 0 || person.row > greatestRow) continue;
        auto codes = making->codesOf.constFind(person.name);
        if (codes == making->codesOf.cend())
            codes = making->codesOf.insert(person.name, indexCodes(codedName(person.name)));
        for (const WordCode code : *codes)
            making->entries.push_back(entryOf(code, decadeOf(person.birth), person.row));
    }
    if (copied == peopleOfAStep) return;
    making->isCopied = true;
    std::ranges::sort(making->entries);
}

// In their order, which a table takes fastest.
void NameIndex::Private::enterSome()
{
    jet::Repeated add(bdp, jet::NativeSql("insert into estudo_nome (id) values (?)"));
    const size_t end = std::min(making->entries.size(), making->written + entriesOfAStep);
    for (; making->written < end; ++making->written)
        add.run({making->entries[making->written]});
}

void NameIndex::Private::finishMaking(bool alone)
{
    QSet<Spelling> spellings;
    for (auto name = making->codesOf.keyBegin(); name != making->codesOf.keyEnd(); ++name)
        for (const Spelling& spelling : spellingsOf(*name))
            spellings.insert(spelling);
    QList<Spelling> inOrder(spellings.cbegin(), spellings.cend());
    std::ranges::sort(inOrder);
    {
        jet::Repeated add(bdp, jet::NativeSql("insert into estudo_nome_palavra (palavra, chave) values (?, ?)"));
        for (const auto& [word, key] : inOrder)
            add.run({word, key});
    }
    std::ranges::sort(making->altered);
    making->altered.erase(std::unique(making->altered.begin(), making->altered.end()), making->altered.end());
    takeUp(making->altered);
    writeState(alone);
    making->isWhole = true;
}

int NameIndex::prepared() const
{
    static constexpr int half = 50, whole = 100;
    if (!d_->making) return whole;
    const NameIndex::Private::Making& making = *d_->making;
    if (making.isCopied)
        return half + int(half * qint64(making.written) / qint64(std::max<size_t>(1, making.entries.size())));
    return int(half * std::clamp<qint64>(making.lastRow, 0, making.greatestRow) /
               std::max<qint64>(1, making.greatestRow));
}

} // namespace study
