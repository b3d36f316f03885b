// Rules of marriages of relatives: each with a case that must fire and a near miss that must not.
#include "study/checked.h"

#include "study/checks/kinship.h"

using study::checks::kinshipOf;

class MarriagesOfRelatives : public Checked
{
protected:
    // Two lines down from one couple, so many generations long; then their last ones marry.
    qint64 cousins(int ofHim, int ofHer)
    {
        person({"Zé"});
        person({"Zita", 'f'});
        const qint64 stock = couple(1, 2);
        const qint64 him = line(stock, ofHim, 'm'), her = line(stock, ofHer, 'f');
        return wedding(him, her, "1730-02-03");
    }

    qint64 line(qint64 family, int generations, char sex)
    {
        qint64 last = 0;
        for (int i = 0; i < generations; ++i) {
            last = person({sex == 'm' ? "Rui" : "Ana", sex, "", "", family});
            if (i + 1 < generations) family = sex == 'm' ? couple(last, 0) : couple(0, last);
        }
        run("delete from familias where nind = 0");
        return last;
    }
};

TEST_F(MarriagesOfRelatives, AreToldWithTheirDegree)
{
    cousins(2, 2);
    EXPECT_EQ(cases("M-12"),
              QStringList("informação: Rui (nº 4) e Ana (nº 6), que casaram em 03/02/1730, são parentes no "
                          "2.º grau: descendem de Zé (nº 1) e de Zita (nº 2)."));
    EXPECT_EQ(cases("M-12", {.limits = {{"M-12.grau", 1}}}), QStringList());
    run("update familia set obs = 'com dispensa' where datacasam is not null");
    EXPECT_EQ(cases("M-12"), QStringList());
}

TEST_F(MarriagesOfRelatives, AreToldUpToTheFourthDegree)
{
    cousins(3, 4);
    EXPECT_EQ(cases("M-12"),
              QStringList("informação: Rui (nº 5) e Ana (nº 9), que casaram em 03/02/1730, são parentes no "
                          "3.º grau misto com o 4.º: descendem de Zé (nº 1) e de Zita (nº 2)."));
}

TEST_F(MarriagesOfRelatives, AreNotToldBeyond)
{
    cousins(3, 5);
    EXPECT_EQ(cases("M-12"), QStringList());
}

TEST_F(MarriagesOfRelatives, CannotBeOfSiblings)
{
    cousins(1, 1);
    EXPECT_EQ(cases("M-13"),
              QStringList("impossível: Rui (nº 3) e Ana (nº 4), que casaram em 03/02/1730, são parentes que "
                          "não podem casar: são irmãos, filhos de Zé (nº 1) e de Zita (nº 2)."));
    EXPECT_EQ(cases("M-12"), QStringList());
    // Now of the father alone.
    person({"Eva", 'f'});
    run("update individuo set famorig = ? where nind = 4", {couple(1, 5)});
    EXPECT_EQ(cases("M-13"),
              QStringList("impossível: Rui (nº 3) e Ana (nº 4), que casaram em 03/02/1730, são parentes que "
                          "não podem casar: são meios-irmãos, ambos filhos de Zé (nº 1)."));
}

TEST_F(MarriagesOfRelatives, CannotBeOfParentAndChild)
{
    cousins(1, 2);
    EXPECT_EQ(cases("M-13"), QStringList()); // an uncle and a niece
    EXPECT_EQ(cases("M-12"),
              QStringList("informação: Rui (nº 3) e Ana (nº 5), que casaram em 03/02/1730, são parentes no "
                          "1.º grau misto com o 2.º: descendem de Zé (nº 1) e de Zita (nº 2)."));
    couple(1, 4);
    couple(1, 5);
    EXPECT_EQ(cases("M-13"),
              QStringList({"impossível: Zé (nº 1) e Ana (nº 4), cônjuges, são parentes que não podem casar: "
                           "Ana (nº 4) é filha de Zé (nº 1).",
                           "impossível: Zé (nº 1) e Ana (nº 5), cônjuges, são parentes que não podem casar: "
                           "Ana (nº 5) descende de Zé (nº 1)."}));
}

TEST_F(MarriagesOfRelatives, EndWhereSomebodyIsHisOwnAncestor)
{
    cousins(2, 2);
    run("update individuo set famorig = ? where nind = 1", {lastFamily}); // the child of his own grandchildren
    const auto parish = study::parish::Snapshot::read(bdp);
    const auto* him = parish.person(study::parish::PersonNumber(4));
    const auto* her = parish.person(study::parish::PersonNumber(6));
    EXPECT_EQ(kinshipOf(*him, *her, 8).degree(), 2);
}
