#include "study/people/index.h"

#include "platform/jet/follower.h"
#include "platform/jet/rows.h"
#include "platform/jet/transaction.h"
#include "study/names/weights.h"
#include "study/people/index_p.h"

#include <algorithm>
#include <iterator>

namespace study {

NameIndex::NameIndex(jet::Connection& bdp) : d_(std::make_unique<Private>(bdp)) {}

NameIndex::~NameIndex() = default;

bool NameIndex::Private::follow(Pace pace)
{
    try {
        auto touched = follower.touched();
        std::optional<Rowids> rows;
        if (touched) {
            rows.emplace();
            std::ranges::set_union((*touched)[0], (*touched)[1], std::back_inserter(*rows));
            if (rows->empty() && !making) return true;
        }
        bringUpToDate(std::move(rows), pace);
    } catch (...) {
        startOver();
        throw;
    }
    return !making;
}

void NameIndex::Private::startOver()
{
    making.reset();
    follower.forget();
}

void NameIndex::update()
{
    d_->follow(Private::Pace::Whole);
}

bool NameIndex::prepare()
{
    if (d_->bdp.transactionLevel() > 0) return !d_->making;
    return d_->follow(Private::Pace::Piece);
}

void NameIndex::rebuild()
{
    d_->startOver();
    d_->makeTables();
    d_->bdp.execute(jet::NativeSql("delete from estudo_nome_estado"));
    update();
}

bool NameIndex::Private::rowsBetween(qint64 first, qint64 last, int limit, std::vector<qint64>& rows) const
{
    jet::Rows entries(
        bdp, jet::NativeSql("select id from estudo_nome where id between ? and ? limit ?", {first, last, limit + 1}));
    for (int count = 0; entries.next(); ++count) {
        if (count == limit) return false;
        rows.push_back(rowOf(entries.number(0)));
    }
    return true;
}

bool NameIndex::born(WordCode code, BirthYears years, int limit, std::vector<qint64>& rows)
{
    return d_->rowsBetween(entryOf(code, decadeOf(years.from), 0), entryOf(code, decadeOf(years.to), greatestRow),
                           limit, rows);
}

bool NameIndex::withoutBirth(WordCode code, int limit, std::vector<qint64>& rows)
{
    return d_->rowsBetween(entryOf(code, noDecade, 0), entryOf(code, noDecade, greatestRow), limit, rows);
}

qint64 NameIndex::countOf(WordCode code)
{
    const auto known = d_->counts.constFind(code);
    if (known != d_->counts.cend()) return *known;
    jet::Rows count(d_->bdp, jet::NativeSql("select count(*) from estudo_nome where id between ? and ?",
                                            {entryOf(code, 0, 0), entryOf(code, greatestDecade, greatestRow)}));
    count.next();
    return d_->counts.insert(code, count.number(0)).value();
}

qint64 NameIndex::people()
{
    if (d_->people < 0) {
        jet::Rows last(d_->bdp, jet::NativeSql("select max(registo) from estudo_nome_individuo"));
        d_->people = last.next() ? last.number(0) : 0;
    }
    return d_->people;
}

PersonRow personIn(const jet::Rows& columns)
{
    const QString sex = columns.text(3).toLower();
    return {.row = columns.number(0),
            .nind = columns.number(1),
            .name = columns.text(2),
            .sex = sex == "m"   ? Sex::Male
                   : sex == "f" ? Sex::Female
                                : Sex::Unknown,
            .birth = columns.date(4),
            .death = columns.date(5),
            .family = columns.number(6)};
}

std::optional<PersonRow> NameIndex::person(qint64 row)
{
    jet::Rows found(d_->bdp, jet::NativeSql("select registo, nind, nome, sexo, datanasc, dataobito, famorig from "
                                            "estudo_nome_individuo where registo = ?",
                                            {row}));
    if (!found.next()) return {};
    return personIn(found);
}

std::vector<WordCode> NameIndex::wordsFrom(const QString& beginning, int limit)
{
    const QString plain = plainWord(beginning);
    if (plain.isEmpty()) return {};
    jet::Rows words(d_->bdp, jet::NativeSql("select distinct chave from estudo_nome_palavra where palavra >= ? and "
                                            "palavra < ? limit ?",
                                            {plain, plain + QChar(0xFFFF), limit}));
    std::vector<WordCode> codes;
    while (words.next())
        codes.push_back(codeOf(words.text(0)));
    return codes;
}

bool NameIndex::hasWord(const QString& word)
{
    return jet::Rows(d_->bdp,
                     jet::NativeSql("select 1 from estudo_nome_palavra where palavra = ? limit 1", {plainWord(word)}))
        .next();
}

std::vector<WordCode> NameIndex::wordsLike(const QString& word, int limit)
{
    const QString plain = plainWord(word);
    if (plain.isEmpty()) return {};
    const QString initial = plain.left(1);
    jet::Rows words(d_->bdp,
                    jet::NativeSql("select palavra, chave from estudo_nome_palavra where palavra >= ? and palavra < ?",
                                   {initial, initial + QChar(0xFFFF)}));
    std::vector<std::pair<double, WordCode>> alike;
    while (words.next())
        if (const double degree = likeness(plain, words.text(0)); degree >= spelling::likeEnough)
            alike.emplace_back(-degree, codeOf(words.text(1)));
    std::ranges::sort(alike);
    std::vector<WordCode> codes;
    for (const auto& [degree, code] : alike)
        if (int(codes.size()) < limit && !std::ranges::count(codes, code)) codes.push_back(code);
    return codes;
}

} // namespace study
