#include "linkage/hidden.h"

#include "platform/jet/connection.h"
#include "random.h"
#include "study/parish/snapshot.h"

#include <algorithm>
#include <vector>

namespace bench {

namespace {

using jet::NativeSql;
using study::parish::Person;
using study::parish::Snapshot;

constexpr int steps = 10'000;

void split(jet::Connection& bdp, qint64 old, qint64 made)
{
    bdp.execute(
        NativeSql("insert into individuo (nind, nome, sexo, tipo, dataobito, dobitofixa, localobito, "
                  "tipolocalobito, idadeobito, estadoobito, menor) select ?, nome, sexo, '2', dataobito, dobitofixa, "
                  "localobito, tipolocalobito, idadeobito, estadoobito, menor from individuo where nind = ?",
                  {made, old}));
    bdp.execute(NativeSql("update individuo set dataobito = null, dobitofixa = 0, localobito = null, tipolocalobito = "
                          "null, idadeobito = null, estadoobito = null where nind = ?",
                          {old}));
    bdp.execute(NativeSql("update familias set nind = ? where nind = ?", {made, old}));
}

} // namespace

std::map<qint64, qint64> hide(jet::Connection& bdp, double share, unsigned seed)
{
    std::vector<qint64> chosen;
    qint64 last = 0;
    {
        const Snapshot parish = Snapshot::read(bdp);
        demo::Random random(seed);
        for (const Person& person : parish.people()) {
            last = std::max(last, value(person.number));
            if (!person.birth.isExact() || person.unions.empty()) continue;
            if (random.between(1, steps) <= share * steps) chosen.push_back(value(person.number));
        }
    }
    std::map<qint64, qint64> both;
    bdp.beginTrans();
    for (const qint64 old : chosen) {
        split(bdp, old, ++last);
        both[old] = last;
    }
    bdp.commitTrans();
    return both;
}

} // namespace bench
