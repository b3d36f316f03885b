// A person or a family in a few lines.
#include "study/people.h"

#include "study/windows/recordSheet.h"

using namespace study;

class TheShortSheet : public People
{
protected:
    parish::Snapshot parish() const { return parish::Snapshot::read(bdp); }

    QString sheetOfPerson(qint64 nind) const
    {
        const parish::Snapshot all = parish();
        return sheetOf(*all.person(parish::PersonNumber(nind)), all.catalogue());
    }
    QString sheetOfFamily(qint64 nfamilia) const
    {
        const parish::Snapshot all = parish();
        return sheetOf(*all.family(parish::FamilyNumber(nfamilia)), all.catalogue());
    }
};

TEST_F(TheShortSheet, OfAPersonHasDatesPlacesParentsUnionsAndResidences)
{
    run("insert into lugar (codlugar, nomelugar) values ('03030101', 'Outeiro')");
    const qint64 bento = person({"Bento"}), ines = person({"Inês", 'f'});
    const qint64 parents = couple(bento, ines);
    const qint64 rui = person({"Rui", 'm', "1702-02-14", "1760-05-01", parents});
    run("update individuo set idadeobito = 58, localnasc = '03030101', tipolocalnasc = 'L' where nind = ?", {rui});
    couple(rui, person({"Eva", 'f'}), "1725-01-08");
    run("insert into residencia (numero, tiporesid, dataref, datafixa, localresid, tipolocal) values (?, 'i', "
        "'1730-01-01', 1, '03030101', 'L')",
        {rui});
    EXPECT_EQ(sheetOfPerson(rui).toStdString(), "Indivíduo 3 – Rui, homem\r\n"
                                                "Nascimento: 14/02/1702, Outeiro\r\n"
                                                "Óbito: 01/05/1760, com 58 anos\r\n"
                                                "Pais: Bento (1) e Inês (2), família 1\r\n"
                                                "Casamento: família 2 com Eva (4), cerca de 08/01/1725\r\n"
                                                "Residência: 01/01/1730, Outeiro");
}

TEST_F(TheShortSheet, TellsWhatLeadsNowhere)
{
    const qint64 nobody = person({"", 'd', "", "", 77});
    run("insert into familias (nfamilia, nind) values (88, ?)", {nobody});
    EXPECT_EQ(sheetOfPerson(nobody).toStdString(), "Indivíduo 1 – (sem nome), sexo por determinar\r\n"
                                                   "Nascimento: desconhecido\r\n"
                                                   "Óbito: desconhecido\r\n"
                                                   "Pais: família 77, que não existe\r\n"
                                                   "Casamento: família 88, que não existe");
}

TEST_F(TheShortSheet, OfAFamilyHasTheCoupleAndTheChildren)
{
    const qint64 ana = person({"Ana", 'f', "1702-02-14"});
    const qint64 family = couple(ana, 99, "1725-01-08");
    person({"Gil", 'm', "1726-03-02", "1727-01-01", family});
    EXPECT_EQ(sheetOfFamily(family).toStdString(), "Família 1 – Ana\r\n"
                                                   "Casamento: cerca de 08/01/1725\r\n"
                                                   "Cônjuge: Ana (1), n. 14/02/1702\r\n"
                                                   "Cônjuge: nº 99, que não existe\r\n"
                                                   "Filho: Gil (2), n. 02/03/1726, m. 01/01/1727");
    run("delete from familias");
    EXPECT_TRUE(sheetOfFamily(family).startsWith("Família 1 – (sem ninguém)\r\n"));
}
