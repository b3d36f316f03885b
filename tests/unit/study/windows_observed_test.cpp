// What a record is seen by, as the answer to why it doesn't count tells it.
#include "study/people.h"

#include "study/windows/subjectRecords.h"

#include <gtest/gtest.h>

using namespace study;

namespace {

class TheAnswerWhy : public People
{
protected:
    QString ofPerson(qint64 number) const
    {
        const auto parish = parish::Snapshot::read(bdp);
        return observed(indicators::studyOf(parish, {}), *parish.person(parish::PersonNumber(number)));
    }
    QString ofFamily(qint64 number) const
    {
        const auto parish = parish::Snapshot::read(bdp);
        return observed(indicators::studyOf(parish, {}), *parish.family(parish::FamilyNumber(number)));
    }
};

} // namespace

TEST_F(TheAnswerWhy, TellsTheClassOfAFamilyAndWhatEndsIt)
{
    person({"Rui", 'm', "", "1755-10-02"});
    person({"Ana", 'f', "1720-03-12", "1790-01-01"});
    couple(1, 2, "1741-06-10");
    run("update familia set dcasamfixa = 1");
    EXPECT_EQ(ofFamily(1), "Classe MF I.\r\nCasamento: 10/06/1741.\r\nFim da união: 02/10/1755 (óbitos dos dois "
                           "cônjuges).\r\nNascimento da mulher: 12/03/1720 (registo).");
    run("update individuo set dataobito = null, datanasc = null where nind = 2");
    run("update individuo set estadoobito = 3 where nind = 1");
    run("update familia set dcasamfixa = 0");
    EXPECT_EQ(ofFamily(1), "Classe EO II.\r\nCasamento: sem data que conte.\r\nFim da união: desconhecido (um só "
                           "óbito, já de viúvo), o mais tardar a 02/10/1755.\r\nNascimento da mulher: desconhecido.");
}

TEST_F(TheAnswerWhy, TellsOfAFamilyThatIsNoUnionOrContradictsItself)
{
    person({"Rui", 'm', "", "1755-10-02"});
    person({"Ana", 'f', "1720-03-12", "1730-01-01"});
    couple(1, 2, "1741-06-10");
    EXPECT_TRUE(ofFamily(1).startsWith("Contradição: óbito antes do casamento.\r\n")) << qPrintable(ofFamily(1));
    run("delete from familias where nind = 1");
    EXPECT_EQ(ofFamily(1), "Não é uma união: um só membro.");
}

TEST_F(TheAnswerWhy, TellsFromWhenToWhenSomebodyIsSeenAndWhatProvesIt)
{
    person({"Rui", 'm', "1700-02-14", "1760-01-01"});
    EXPECT_EQ(ofPerson(1), "Em observação de 14/02/1700 (nascimento) a 01/01/1760 (óbito).\r\nÚltima prova de vida: "
                           "01/01/1760 (óbito).");
    person({"Eva", 'f'});
    EXPECT_EQ(ofPerson(2), "Nada prova que tenha vivido na freguesia: fora de observação.");
    couple(1, 2, "1730-01-01");
    person({"Gil", 'm', "1731-05-01", "", 1});
    person({"Rosa", 'f', "1733-05-01", "", 1});
    EXPECT_TRUE(ofPerson(3).endsWith("\r\nOs outros mostram a família de origem na freguesia até 01/01/1760 (óbito)."))
        << qPrintable(ofPerson(3));
}
