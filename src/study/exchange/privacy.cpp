#include "study/exchange/privacy.h"

#include "platform/jet/rows.h"

#include <array>

namespace study::exchange {

namespace {

// Whether the BDP tells of anything behind the day.
constexpr auto anythingBehind = "select exists (select 1 from individuo where datanasc > ?) or "
                                "exists (select 1 from individuo where dataobito > ?) or "
                                "exists (select 1 from familia where datacasam > ?) or "
                                "exists (select 1 from assistente where dataref > ?) or "
                                "exists (select 1 from residencia where dataref > ?) or "
                                "exists (select 1 from profissoes where dataref > ?) or "
                                "exists (select 1 from assinatura where dataref > ?) or "
                                "exists (select 1 from passaporte where dataref > ?)";
constexpr int daysAsked = 8;

// Who was there at an act until the day, one ? in each. A father may have died before the birth, but was born before
// it.
constexpr std::array<const char*, 19> seenUntil = {
    "select nind from individuo where inicioobs <= ?",
    "select nind from individuo where fimobs <= ?",
    "select m.nind from familias m join familia f on f.nfamilia = m.nfamilia where f.datacasam <= ?",
    "select m.nind from familias m join individuo c on c.famorig = m.nfamilia where c.datanasc <= ?",
    "select m.nind from familias m join individuo c on c.famorig = m.nfamilia where c.dataobito <= ?",
    "select c.nind from individuo c join familias m on m.nfamilia = c.famorig join individuo p on p.nind = m.nind "
    "where p.dataobito <= ?",
    "select nind from assistente where dataref <= ?",
    "select numero from residencia where tiporesid = 'i' and dataref <= ?",
    "select m.nind from familias m join residencia r on r.numero = m.nfamilia and r.tiporesid = 'f' where r.dataref <= "
    "?",
    "select nind from profissoes where dataref <= ?",
    "select nind from assinatura where dataref <= ?",
    "select nind from passaporte where dataref <= ?",
    "select l.nindherd from legadosprofanos l join individuo t on t.nind = l.nind where t.dataobito <= ?",
    "select testamenteiro from individuo where dataobito <= ?",
    "select primpadrebapt from individuo where datanasc <= ?",
    "select primpadreobito from individuo where dataobito <= ?",
    "select segpadrebapt from individuo where datanasc <= ?",
    "select primpadrecasam from familia where datacasam <= ?",
    "select segpadrecasam from familia where datacasam <= ?"};

bool tellsOfLater(const jet::Connection& bdp, QDate day)
{
    QVariantList days;
    for (int i = 0; i < daysAsked; ++i)
        days << day;
    jet::Rows row(bdp, jet::NativeSql(anythingBehind, days));
    return row.next() && row.number(0) != 0;
}

void takeOut(QSet<qint64>& people, const jet::Connection& bdp, const char* select, QDate day)
{
    jet::Rows row(bdp, jet::NativeSql(select, {day}));
    while (row.next())
        people.remove(row.number(0));
}

} // namespace

QSet<qint64> peopleWhoMayBeAlive(const jet::Connection& bdp, QDate bornBehind)
{
    QSet<qint64> people;
    if (!tellsOfLater(bdp, bornBehind)) return people;
    jet::Rows undated(bdp, jet::NativeSql("select nind from individuo where datanasc is null and dataobito is null"));
    while (undated.next())
        people.insert(undated.number(0));
    for (const char* const select : seenUntil)
        if (!people.isEmpty()) takeOut(people, bdp, select, bornBehind);
    jet::Rows young(
        bdp, jet::NativeSql("select nind from individuo where dataobito is null and datanasc > ?", {bornBehind}));
    while (young.next())
        people.insert(young.number(0));
    return people;
}

} // namespace study::exchange
