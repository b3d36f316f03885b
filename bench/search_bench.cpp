// The searches of the cards, beside the same statements on a bare connection: with its own operator like, and with its
// own order of texts, which knows no accents.
#include "beside.h"
#include "people.h"

#include "platform/jet/recordset.h"
#include "store/session.h"

#include <algorithm>

namespace {

void search(benchmark::State& state, const People& people, const QByteArray& dialect, const QByteArray& bare)
{
    jet::DataControl found(cnBDP);
    found.setRecordSource(QString::fromUtf8(dialect));
    compare(
        state, [&] { found.refresh(); }, [&] { readAll(people.bare(), bare); });
    state.counters["rows"] = found.recordset().recordCount();
}

const QByteArray byName = "select individuo.nind as Nind, nome, datanasc, dataobito,  famorig from individuo where  "
                          "individuo.nome like '%Assunção%' order by nome";

void SearchingANameWithALeadingWildcard(benchmark::State& state)
{
    search(state, People(static_cast<int>(state.range(0))), byName, byName);
}

// As many as a hundred thousand hits, which are to be put in order.
void SearchingACommonName(benchmark::State& state)
{
    const int people = static_cast<int>(state.range(0));
    search(state, People(people, std::min(people, 100'000)), byName, byName);
}

void SearchingByTheBirthOfTheFirstChild(benchmark::State& state)
{
    const QByteArray statement =
        "select individuo.nind as Nind, individuo.nome as nome,  individuo.datanasc as DataNasc,individuo.dataobito as "
        "DataObito, individuo.famorig as Famorig, min(filho.datanasc) from individuo, individuo as filho, familias "
        "where individuo.nind = familias.nind and  filho.famorig = familias.nfamilia  group by individuo.nind, "
        "individuo.nome, individuo.datanasc, individuo.dataobito,  individuo.famorig having min(filho.datanasc)  "
        "between %1 and %2 order by individuo.nome";
    search(state, People(static_cast<int>(state.range(0))),
           QByteArray(statement).replace("%1", "#03/01/1680#").replace("%2", "#03/31/1680#"),
           QByteArray(statement).replace("%1", "'1680-03-01'").replace("%2", "'1680-03-31'"));
}

void sizes(benchmark::internal::Benchmark* measure)
{
    measure->Arg(1000)->Arg(100'000)->Arg(1'000'000)->UseManualTime()->Unit(benchmark::kMillisecond);
}
BENCHMARK(SearchingANameWithALeadingWildcard)->Apply(sizes);
BENCHMARK(SearchingACommonName)->Apply(sizes);
BENCHMARK(SearchingByTheBirthOfTheFirstChild)->Apply(sizes);

} // namespace
