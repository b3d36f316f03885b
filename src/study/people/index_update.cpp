// How the index follows the people of the BDP.
#include "platform/jet/transaction.h"
#include "study/names/fold.h"
#include "study/people/index_p.h"

#include <algorithm>
#include <utility>

namespace study {

namespace {

// Grows when what stands in the tables gets another meaning.
constexpr auto meaning = "2:";

QString versionOfToday()
{
    return meaning + QString::fromLatin1(NameTable::shared().version());
}

std::vector<qint64> entriesOf(const PersonRow& person)
{
    std::vector<qint64> entries;
    if (person.row <= 0 || person.row > greatestRow) return entries;
    for (const WordCode code : indexCodes(codedName(person.name)))
        entries.push_back(entryOf(code, decadeOf(person.birth), person.row));
    return entries;
}

// Writes what has become of single people. Precondition: a transaction is open.
class Writer
{
public:
    explicit Writer(jet::Connection& bdp)
        : addEntry_(bdp, jet::NativeSql("insert or ignore into estudo_nome (id) values (?)")),
          dropEntry_(bdp, jet::NativeSql("delete from estudo_nome where id = ?")),
          addSpelling_(bdp, jet::NativeSql("insert into estudo_nome_palavra (palavra, chave) select ?1, ?2 where not "
                                           "exists (select 1 from estudo_nome_palavra where palavra = ?1 and chave = "
                                           "?2)")),
          drop_(bdp, jet::NativeSql("delete from estudo_nome_individuo where registo = ?")),
          add_(bdp, jet::NativeSql("insert into estudo_nome_individuo (registo, nind, nome, sexo, datanasc, dataobito, "
                                   "famorig) select rowid, nind, nome, sexo, datanasc, dataobito, famorig from "
                                   "individuo where rowid = ?"))
    {
    }

    // None: there is none, or there was none.
    void replace(const std::optional<PersonRow>& old, const std::optional<PersonRow>& today)
    {
        const std::vector<qint64> before = old ? entriesOf(*old) : std::vector<qint64>();
        const std::vector<qint64> now = today ? entriesOf(*today) : std::vector<qint64>();
        for (const qint64 entry : before)
            if (!std::ranges::binary_search(now, entry)) dropEntry_.run({entry});
        for (const qint64 entry : now)
            if (!std::ranges::binary_search(before, entry)) addEntry_.run({entry});
        if (today && (!old || old->name != today->name))
            for (const auto& [word, key] : spellingsOf(today->name))
                addSpelling_.run({word, key});
        if (old) drop_.run({old->row});
        if (today) add_.run({today->row});
    }

private:
    jet::Repeated addEntry_, dropEntry_, addSpelling_, drop_, add_;
};

std::optional<PersonRow> personOf(jet::Connection& bdp, const jet::NativeSql& select)
{
    jet::Rows found(bdp, select);
    if (!found.next()) return {};
    return personIn(found);
}

} // namespace

int decadeOf(int year)
{
    static constexpr int years = 10;
    static constexpr int first = 100; // the decade of the year 1000
    return std::clamp(year / years - first + 1, 1, greatestDecade);
}

int decadeOf(QDate birth)
{
    return birth.isValid() ? decadeOf(birth.year()) : noDecade;
}

QString plainWord(const QString& word)
{
    return fold::plain(word).remove(u' ');
}

QList<Spelling> spellingsOf(const QString& name)
{
    QList<Spelling> spellings;
    const NameParts parts = partsOf(name);
    if (parts.unknown) return spellings;
    for (const NameParts::Word& word : parts.words)
        for (qsizetype i = 0; i < word.fitting && !word.particle && !word.key.isEmpty(); ++i) {
            const Reading& reading = word.readings[i];
            for (const QString& written : {plainWord(word.written), plainWord(reading.standard)})
                if (const Spelling spelling{written, nameKey(reading.klass)}; !spellings.contains(spelling))
                    spellings << spelling;
        }
    return spellings;
}

// Returns whether any of them differed.
bool NameIndex::Private::takeUp(const Rowids& rows)
{
    struct Change
    {
        std::optional<PersonRow> old, today;
    };
    std::vector<Change> changes;
    for (const qint64 row : rows) {
        Change change{
            personOf(bdp, jet::NativeSql("select registo, nind, nome, sexo, datanasc, dataobito, famorig from "
                                         "estudo_nome_individuo where registo = ?",
                                         {row})),
            personOf(bdp, jet::NativeSql("select rowid, nind, nome, sexo, datanasc, dataobito, famorig from "
                                         "individuo where rowid = ?",
                                         {row}))};
        if (change.old != change.today) changes.push_back(std::move(change));
    }
    if (changes.empty()) return false;
    Writer writer(bdp);
    for (const Change& change : changes)
        writer.replace(change.old, change.today);
    return true;
}

// All rows are compared, in the order in which they stand in the file.
NameIndex::Private::Rowids NameIndex::Private::rowsThatDiffer()
{
    const jet::OneLook look(bdp);
    std::vector<qint64> rows;
    jet::Rows altered(bdp,
                      jet::NativeSql("select i.rowid from individuo i left join estudo_nome_individuo n on n.registo "
                                     "= i.rowid where n.registo is null or n.nind is not i.nind or n.nome is not "
                                     "i.nome or n.sexo is not i.sexo or n.datanasc is not i.datanasc or n.dataobito "
                                     "is not i.dataobito or n.famorig is not i.famorig"));
    while (altered.next())
        rows.push_back(altered.number(0));
    jet::Rows gone(bdp,
                   jet::NativeSql("select registo from estudo_nome_individuo where registo not in (select rowid from "
                                  "individuo)"));
    while (gone.next())
        rows.push_back(gone.number(0));
    return rows;
}

qint64 NameIndex::Private::indexed() const
{
    jet::Rows count(bdp, jet::NativeSql("select count(*) from estudo_nome_individuo"));
    return count.next() ? count.number(0) : 0;
}

// Looks at all that the file holds. Returns whether the tables have to be made anew.
bool NameIndex::Private::catchUp(bool alone)
{
    counts.clear();
    people = -1;
    if (alone && isMarked()) return false;
    const std::vector<qint64> rows = rowsThatDiffer();
    static constexpr qint64 few = 1000; // and of more, a quarter at most
    if (qint64(rows.size()) > few + indexed() / 4) return true;
    takeUp(rows);
    return false;
}

// From the first look at the file to the commit nobody else writes: the first row that is read locks it, so what the
// mark tells is what was compared.
void NameIndex::Private::bringUpToDate(std::optional<Rowids> touchedBefore, Pace pace)
{
    const bool alone = bdp.transactionLevel() == 0;
    jet::Transaction transaction(bdp);
    const bool made = makeTables();
    const QString isNow = version();
    if (making && making->mine != isNow) making.reset();
    auto touched = follower.touched();
    const bool known = touchedBefore && touched;
    if (known) touchedBefore->insert(touchedBefore->end(), touched->front().begin(), touched->front().end());
    if (making && known)
        making->altered.insert(making->altered.end(), touchedBefore->begin(), touchedBefore->end());
    else if (made || isNow != versionOfToday() || (!known && catchUp(alone)))
        beginMaking();
    if (making) {
        goOnMaking(alone, pace);
    } else {
        const bool wrote = known && takeUp(*touchedBefore);
        if (alone && !isMarked()) mark(wrote);
    }
    transaction.commit();
    if (making && making->isWhole) making.reset();
}

// What a session has written and not yet committed isn't counted by the file, and may be rolled back.
bool NameIndex::Private::isMarked()
{
    jet::Rows state(bdp, jet::NativeSql("select marca from estudo_nome_estado"));
    return state.next() && !state.isNull(0) && state.number(0) == jet::changesOfFile(bdp);
}

QString NameIndex::Private::version()
{
    jet::Rows state(bdp, jet::NativeSql("select versao from estudo_nome_estado"));
    return state.next() ? state.text(0) : QString();
}

void NameIndex::Private::writeState(bool whole)
{
    const QVariant changes = whole ? QVariant(jet::changesOfFile(bdp) + 1) : QVariant();
    bdp.execute(jet::NativeSql("delete from estudo_nome_estado"));
    bdp.execute(
        jet::NativeSql("insert into estudo_nome_estado (versao, marca) values (?, ?)", {versionOfToday(), changes}));
}

// So that the next session needn't compare all rows again. Where nothing else was written, a file that can't be written
// is no reason to answer nothing.
void NameIndex::Private::mark(bool isNeeded)
{
    try {
        bdp.execute(jet::NativeSql("update estudo_nome_estado set marca = ?", {jet::changesOfFile(bdp) + 1}));
    } catch (const jet::Error&) {
        if (isNeeded) throw;
    }
}

} // namespace study
