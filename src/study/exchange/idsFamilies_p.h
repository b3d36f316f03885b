// Families, as they go by. For this room alone.
#pragma once

#include "study/exchange/ids_p.h"

namespace study::exchange {

struct IdsWriter::OfFamilies
{
    OfFamilies(const jet::Connection& bdp, bool withMarriages)
        : members(bdp, "select nfamilia, nind from familias order by nfamilia, nind"),
          children(bdp, QString("select c.famorig, c.nind, c.datanasc, c.DnascFixa, c.dataobito, c.dobitofixa, %1 "
                                "from individuo c where c.famorig is not null "
                                "order by c.famorig, c.datanasc is null, c.datanasc, c.nind")
                            .arg(withMarriages ? firstMarriage : "null")),
          residences(bdp, "select numero, dataref, datafixa, localresid, tipolocal, fonte from residencia "
                          "where tiporesid = 'f' order by numero, dataref"),
          acts(bdp, actsOfFamilies(bdp))
    {
    }

    static constexpr auto firstMarriage = "(select min(f.datacasam) from familias m join familia f "
                                          "on f.nfamilia = m.nfamilia where m.nind = c.nind)";
    OwnedRows members, children, residences, acts;
};

template <class Work>
void IdsWriter::forEachFamily(const Work& work, bool withMarriages)
{
    OfFamilies rows(bdp_, withMarriages);
    jet::Rows row(bdp_, jet::NativeSql("select nfamilia, sfamilia, tipocasal, datacasam, dcasamfixa, localcasam, "
                                       "tipolocalcasam from familia order by nfamilia"));
    for (std::size_t i = 0; row.next(); ++i) {
        next();
        FamilyAt family{.number = row.number(0), .place = i};
        family.isWithheld = closed_.contains(family.number);
        family.situation = row.text(1);
        family.storedType = codeAt(row, 2);
        if (!family.isWithheld) {
            family.marriage = dateAt(row, 3);
            family.at = placeAt(row, 5);
        }
        work(family, rows);
    }
}

} // namespace study::exchange
