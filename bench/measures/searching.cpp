// The statements of the searches as the cards send them, beside the cheapest ones that find the same rows. What the
// windows add to them is measured by the list of results.
#include "measures/all.h"

#include "kit/stage.h"
#include "kit/traffic.h"
#include "measures/searchByHand.h"
#include "platform/jet/recordset.h"
#include "store/session.h"

namespace bench {

namespace {

// Of a search in one table the program reads the keys, and each row when it is shown: so does the bare side.
struct Search
{
    const char* dialect;
    const char* bare;
    void (*byHand)(); // the same search in the windows
};

class Searching : public StagedSides
{
public:
    Searching(int people, const Search& search) : StagedSides(people, Files::Shared), search_(search), found_(cnBDP)
    {
        found_.setRecordSource(QString::fromUtf8(search.dialect));
        requireTheCardsStatement();
        const int rows = bareSide().run(search.bare);
        if (found_.recordset().recordCount() != rows)
            qFatal("%d hits, and %d bare: %s", found_.recordset().recordCount(), rows, search.dialect);
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

    Search search_;
    jet::DataControl found_;
};

constexpr Search wildcard{
    "select individuo.nind as Nind, nome, datanasc, dataobito,  famorig from individuo where individuo.nome like "
    "'%Salgado%' order by nome",
    "select rowid from individuo where nome like '%Salgado%' order by nome", [] { searchPeopleByName("%Salgado%"); }};
constexpr Search common{
    "select individuo.nind as Nind, nome, datanasc, dataobito,  famorig from individuo where individuo.nome like "
    "'%Maria%' order by nome",
    "select rowid from individuo where nome like '%Maria%' order by nome", [] { searchPeopleByName("%Maria%"); }};
// The bare range holds both cases of the first letter.
constexpr Search beginning{
    "select individuo.nind as Nind, nome, datanasc, dataobito,  famorig from individuo where individuo.nome like "
    "'Catarina%' order by nome",
    "select rowid from individuo where (nome >= 'C' and nome < 'D' or nome >= 'c' and nome < 'd') and nome like "
    "'Catarina%' order by nome",
    [] { searchPeopleByName("Catarina%"); }};
constexpr Search marriage{
    "select individuo.nind as Nind, nome, datanasc, dataobito,  famorig, first(datacasam) from individuo, familias, "
    "familia where  individuo.nind =  familias.nind and familia.nfamilia = familias.nfamilia  group by "
    "individuo.nind, nome, datanasc, dataobito,  famorig having first(datacasam)  between #01/01/1800# and "
    "#12/31/1800# order by nome",
    "select individuo.nind, nome, datanasc, dataobito, famorig, datacasam from familia cross join familias on "
    "familias.nfamilia = familia.nfamilia cross join individuo on individuo.nind = familias.nind where datacasam "
    "between '1800-01-01' and '1800-12-31' and not exists (select 1 from familias as antes where antes.nind = "
    "familias.nind and antes.nfamilia < familias.nfamilia) order by nome",
    [] { searchPeopleByDate(SearchedDate::Marriage, "01/01/1800", "31/12/1800"); }};
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
    "outra.nind = familias.nind and irmao.datanasc < filho.datanasc) order by individuo.nome",
    [] { searchPeopleByDate(SearchedDate::FirstChild, "01/01/1800", "31/12/1800"); }};
constexpr Search spouse{
    "select nfamilia , tipocasal, datacasam  from familia where  nfamilia in (select nfamilia from familias where nind "
    "in (select nind from individuo where sexo = 'm' and nome like '%Salgado%')) order by datacasam",
    "select rowid from familia where nfamilia in (select familias.nfamilia from individuo cross join familias on "
    "familias.nind = individuo.nind where nome like '%Salgado%' and sexo = 'm') order by datacasam",
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
