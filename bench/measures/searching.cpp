// The statements of the searches as the cards send them, beside the cheapest ones that find the same rows. What the
// windows add to them is measured by the list of results.
#include "measures/all.h"

#include "kit/stage.h"
#include "kit/traffic.h"
#include "measures/searchByHand.h"
#include "platform/jet/alphabet.h"
#include "platform/jet/recordset.h"
#include "store/session.h"

#include <QDate>

#include <sqlite3.h>

#include <string_view>

namespace bench {

namespace {

// Of a search in one table the program reads the keys, and each row when it is shown: so does the bare side.
struct Search
{
    const char* dialect;
    const char* bare;
    const char* shown; // the columns of the program, of the keys that the bare side reads; "" where it reads them all
    void (*byHand)();  // the same search in the windows
};

constexpr auto shownOfPeople = "nind, nome, datanasc, dataobito, famorig from k cross join individuo on "
                               "individuo.rowid = chave";

// The order of the result is part of the work: the bare side puts names into it by the very comparison of the program.
int compareNames(void*, int aBytes, const void* a, int bBytes, const void* b)
{
    return jet::compareAlphabetically(std::string_view(static_cast<const char*>(a), static_cast<std::size_t>(aBytes)),
                                      std::string_view(static_cast<const char*>(b), static_cast<std::size_t>(bBytes)));
}

QByteArray textOf(const QVariant& value)
{
    if (value.typeId() == QMetaType::QDate) return value.toDate().toString(Qt::ISODate).toLatin1();
    if (value.typeId() == QMetaType::Double) return QByteArray::number(value.toDouble(), 'g', 15);
    return value.toString().toUtf8();
}

// As Bare::text().
QByteArray textOf(jet::Recordset& rows)
{
    QByteArray text;
    for (; !rows.eof(); rows.moveNext())
        for (int field = 0; field < rows.fieldCount(); ++field)
            text += textOf(rows[field]);
    return text;
}

class Searching : public StagedSides
{
public:
    Searching(int people, const Search& search) : StagedSides(people, Files::Shared), search_(search), found_(cnBDP)
    {
        found_.setRecordSource(QString::fromUtf8(search.dialect));
        requireTheCardsStatement();
        sqlite3_create_collation(bareHandle(), "dictionary", SQLITE_UTF8, nullptr, compareNames);
        requireTheSameRows();
    }

    void ours(int) override { found_.refresh(); }
    void bare(int) override { bareSide().run(search_.bare); }

private:
    // What is measured is what the card sends.
    void requireTheCardsStatement()
    {
        answerBoxes(true); // where nobody is found
        const QStringList sent = statementsOf(ourHandle(), search_.byHand);
        answerBoxes(false);
        for (const QString& statement : statementsOf(ourHandle(), [this] { found_.refresh(); }))
            if (!sent.contains(statement)) qFatal("not what the card sends: %s", qPrintable(statement));
    }

    // All that is shown, in the same order.
    void requireTheSameRows()
    {
        if (*search_.shown)
            shownByBare_ = QByteArray("with k(chave) as (") + search_.bare + " limit -1) select " + search_.shown;
        jet::Recordset rows(cnBDP, QString::fromUtf8(search_.dialect));
        if (textOf(rows) != bareSide().text(*search_.shown ? shownByBare_.constData() : search_.bare))
            qFatal("the bare side finds other rows: %s", search_.dialect);
    }

    Search search_;
    QByteArray shownByBare_;
    jet::DataControl found_;
};

constexpr Search wildcard{
    "select individuo.nind as Nind, nome, datanasc, dataobito,  famorig from individuo where individuo.nome like "
    "'%Salgado%' order by nome",
    "select rowid from individuo where nome like '%Salgado%' order by nome collate dictionary", shownOfPeople,
    [] { searchPeopleByName("%Salgado%"); }};
constexpr Search common{
    "select individuo.nind as Nind, nome, datanasc, dataobito,  famorig from individuo where individuo.nome like "
    "'%Maria%' order by nome",
    "select rowid from individuo where nome like '%Maria%' order by nome collate dictionary", shownOfPeople,
    [] { searchPeopleByName("%Maria%"); }};
constexpr Search beginning{
    "select individuo.nind as Nind, nome, datanasc, dataobito,  famorig from individuo where individuo.nome like "
    "'Catarina%' order by nome",
    "select rowid from individuo where nome >= 'Catarina' and nome < 'Catarinb' and nome like 'Catarina%' order by "
    "nome collate dictionary",
    shownOfPeople, [] { searchPeopleByName("Catarina%"); }};
constexpr Search marriage{
    "select individuo.nind as Nind, nome, datanasc, dataobito,  famorig, first(datacasam) from individuo, familias, "
    "familia where  individuo.nind =  familias.nind and familia.nfamilia = familias.nfamilia  group by "
    "individuo.nind, nome, datanasc, dataobito,  famorig having first(datacasam)  between #01/01/1800# and "
    "#12/31/1800# order by nome",
    "select individuo.nind, nome, datanasc, dataobito, famorig, datacasam from familia cross join familias on "
    "familias.nfamilia = familia.nfamilia cross join individuo on individuo.nind = familias.nind where datacasam "
    "between '1800-01-01' and '1800-12-31' and not exists (select 1 from familias as antes where antes.nind = "
    "familias.nind and antes.nfamilia < familias.nfamilia) order by nome collate dictionary, individuo.nind",
    "", [] { searchPeopleByDate(SearchedDate::Marriage, "01/01/1800", "31/12/1800"); }};
constexpr Search firstChild{
    "select individuo.nind as Nind, individuo.nome as nome,  individuo.datanasc as DataNasc,individuo.dataobito as "
    "DataObito, individuo.famorig as Famorig, min(filho.datanasc) from individuo, individuo as filho, familias where "
    "individuo.nind = familias.nind and  filho.famorig = familias.nfamilia  group by individuo.nind, individuo.nome, "
    "individuo.datanasc, individuo.dataobito,  individuo.famorig having min(filho.datanasc)  between #01/01/1800# and "
    "#12/31/1800# order by individuo.nome",
    "select distinct individuo.nind, individuo.nome, individuo.datanasc, individuo.dataobito, individuo.famorig, "
    "filho.datanasc from individuo as filho cross join familias on familias.nfamilia = filho.famorig cross join "
    "individuo on individuo.nind = familias.nind where filho.datanasc between '1800-01-01' and '1800-12-31' and not "
    "exists (select 1 from familias as outra join individuo as irmao on irmao.famorig = outra.nfamilia where "
    "outra.nind = familias.nind and irmao.datanasc < filho.datanasc) order by individuo.nome collate dictionary, "
    "individuo.nind",
    "", [] { searchPeopleByDate(SearchedDate::FirstChild, "01/01/1800", "31/12/1800"); }};
constexpr Search spouse{
    "select nfamilia , tipocasal, datacasam  from familia where  nfamilia in (select nfamilia from familias where nind "
    "in (select nind from individuo where sexo = 'm' and nome like '%Salgado%')) order by datacasam",
    "select rowid from familia where nfamilia in (select familias.nfamilia from individuo cross join familias on "
    "familias.nind = individuo.nind where nome like '%Salgado%' and sexo = 'm') order by datacasam",
    "nfamilia, tipocasal, datacasam from k cross join familia on familia.rowid = chave",
    [] { searchFamiliesByHusband("%Salgado%"); }};

Measure search(const char* name, const char* event, const Search& search, Goal goal)
{
    return {name, event, std::move(goal), [&search](int people) { return std::make_unique<Searching>(people, search); },
            15};
}

} // namespace

std::vector<Measure> searching()
{
    return {search("search-wildcard", "search of a name with a leading wildcard", wildcard, {1.5, false}),
            search("search-common", "search of a name that many have", common, {1.5, false}),
            search("search-beginning", "search of a name by its beginning", beginning,
                   {1.5, false, {{100'000, 4}, {1'000'000, 40}}}),
            search("search-marriage", "search of people by their marriage", marriage, {2, false}),
            search("search-first-child", "search of people by the birth of their first child", firstChild, {2, false}),
            search("search-spouse", "search of families by a spouse's name", spouse, {2, false})};
}

} // namespace bench
