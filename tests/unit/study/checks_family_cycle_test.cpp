// People who descend from themselves.
#include "study/checked.h"

class LinesOfDescent : public Checked
{
protected:
    // `child` is one of that parent's.
    void descends(qint64 child, qint64 parent)
    {
        run("insert into familia (nfamilia) values (?)", {++lastFamily});
        run("insert into familias (nfamilia, nind) values (?, ?)", {lastFamily, parent});
        run("update individuo set famorig = ? where nind = ?", {lastFamily, child});
    }
};

TEST_F(LinesOfDescent, DontComeBack)
{
    person({"Ana", 'f'});
    for (const char* name : {"Rui", "Gil", "Ivo", "Zé"})
        person({name});
    descends(4, 3); // a line that leads into the circle, and isn't of it
    descends(3, 1);
    descends(1, 2);
    EXPECT_EQ(cases("F-05"), QStringList());
    descends(2, 3);
    EXPECT_EQ(cases("F-05"),
              QStringList("impossível: Ana (nº 1) é filha de Rui (nº 2), filho de Gil (nº 3), filho de Ana "
                          "(nº 1): descende de si própria."));
}

TEST_F(LinesOfDescent, AreToldOnceEachCircle)
{
    for (const char* name : {"Rui", "Gil", "Ivo", "Zé"})
        person({name});
    descends(1, 2);
    descends(2, 1);
    descends(3, 4);
    descends(4, 3);
    EXPECT_EQ(cases("F-05"),
              QStringList({"impossível: Rui (nº 1) é filho de Gil (nº 2), filho de Rui (nº 1): descende de "
                           "si próprio.",
                           "impossível: Ivo (nº 3) é filho de Zé (nº 4), filho de Ivo (nº 3): descende de "
                           "si próprio."}));
}

TEST_F(LinesOfDescent, AreToldOfBothParents)
{
    person({"Rui"});
    person({"Ana", 'f'});
    person({"Eva", 'f'});
    run("update individuo set famorig = ? where nind = 3", {couple(1, 2)});
    descends(1, 3);
    descends(2, 3);
    EXPECT_EQ(cases("F-05").size(), 2);
}

TEST_F(LinesOfDescent, MayBeLong)
{
    constexpr int generations = 5000;
    bdp.beginTrans();
    for (int i = 0; i < generations; ++i)
        person({"Rui"});
    for (int i = 1; i < generations; ++i)
        descends(i, i + 1);
    descends(generations, 1);
    bdp.commitTrans();
    const auto told = cases("F-05");
    EXPECT_EQ(told.size(), 1);
    EXPECT_TRUE(told.first().endsWith("filho de Rui (nº 13), e assim por diante, filho de Rui (nº 1): descende de si "
                                      "próprio."));
}
