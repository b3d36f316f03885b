// Taking an act back whose rows a later act found as it tells them, and so didn't write again.
#include "study/acts/writer.h"
#include "study/tellings.h"

using namespace study;

namespace {

class UndoOfWhatALaterActTellsToo : public SmallParish
{
protected:
    UndoOfWhatALaterActTellsToo() : rui(person("Rui", "m")), ines(person("Inês", "f")) {}

    static qint64 store(const Telling& told) { return storeAct(cnBDP, told.act, told.conclusions).act; }

    // A baptism with Rui as godfather.
    Telling baptism(const QString& number, int years = 0) const
    {
        Telling told = Telling::of(ActKind::Baptism, actDay.addYears(years));
        told.act.number = number;
        told.isNew(Role::Child, "Maria " + number);
        told.known(Role::Godfather, rui);
        return told;
    }

    // The first can't be taken back while the second stands; nothing is lost of what the second tells.
    static void expectHeld(qint64 first, qint64 second, const QString& why)
    {
        const auto before = cardRows();
        EXPECT_EQ(whyNotUndone(cnBDP, first), why);
        EXPECT_EQ(undoAct(cnBDP, first), why);
        EXPECT_EQ(cardRows(), before);
        EXPECT_EQ(undoAct(cnBDP, second), "");
        EXPECT_EQ(undoAct(cnBDP, first), "");
    }

    const QString ofRui = "O que este acto escreveu do indivíduo nº 1 serve também a outro acto, posterior: "
                          "Baptismos 1, fl. 3v, n.º 8.";
    qint64 rui, ines;
};

} // namespace

TEST_F(UndoOfWhatALaterActTellsToo, IsRefusedForAResidence)
{
    Telling first = baptism("7"), second = baptism("8", 1), elsewhere = baptism("9", 2);
    for (Telling* told : {&first, &second})
        told->tell(1, attribute::residence, "outeiro");
    elsewhere.tell(1, attribute::residence, "ribeira");
    for (Telling* told : {&first, &second, &elsewhere})
        told->conclusions.places = {{"outeiro", {.code = "03030101"}}, {"ribeira", {.code = "03030102"}}};
    const qint64 one = store(first), two = store(second), three = store(elsewhere);
    EXPECT_EQ(whyNotUndone(cnBDP, three), "");
    EXPECT_EQ(whyNotUndone(cnBDP, two), "");
    expectHeld(one, two, ofRui);
}

TEST_F(UndoOfWhatALaterActTellsToo, IsRefusedForAResidenceInAPlaceThatCameWithTheAct)
{
    Telling first = baptism("7"), second = baptism("8", 1);
    for (Telling* told : {&first, &second}) {
        told->tell(1, attribute::residence, "Poucapena");
        told->conclusions.places["Poucapena"] = {.name = "Poucapena"};
    }
    const qint64 one = store(first), two = store(second);
    expectHeld(one, two, ofRui);
}

TEST_F(UndoOfWhatALaterActTellsToo, IsRefusedForAProfession)
{
    Telling first = baptism("7"), second = baptism("8", 1);
    for (Telling* told : {&first, &second}) {
        told->tell(1, "Profissao", "tamanqueiro");
        told->conclusions.professions["tamanqueiro"] = 0;
    }
    const qint64 one = store(first), two = store(second);
    expectHeld(one, two, ofRui);
}

TEST_F(UndoOfWhatALaterActTellsToo, IsRefusedForANickname)
{
    Telling first = baptism("7"), second = baptism("8", 1);
    for (Telling* told : {&first, &second})
        told->tell(1, attribute::nickname, "o Ruivo");
    const qint64 one = store(first), two = store(second);
    expectHeld(one, two, ofRui);
}

TEST_F(UndoOfWhatALaterActTellsToo, IsRefusedForTheParents)
{
    const qint64 pai = person("Gil", "m"), mae = person("Eva", "f");
    Telling first = baptism("7"), second = baptism("8", 1);
    family({pai, mae});
    for (Telling* told : {&first, &second}) {
        told->known(Role::Father, pai, 1);
        told->known(Role::Mother, mae, 1);
    }
    const qint64 one = store(first), two = store(second);
    EXPECT_EQ(value("select famorig from individuo where nind = ?", {rui}), 1.0);
    expectHeld(one, two, ofRui);
}

TEST_F(UndoOfWhatALaterActTellsToo, IsRefusedForACoupleThatAChildHangsOn)
{
    const qint64 five = family({rui});
    Telling first = Telling::of(ActKind::Baptism, actDay), second = Telling::of(ActKind::Baptism, actDay.addYears(1));
    first.isNew(Role::Child, "Gil");
    const int ana = first.known(Role::Godmother, person("Ana", "f", {{"famorig", double(five)}}));
    first.known(Role::Father, rui, ana);
    first.known(Role::Mother, ines, ana);
    second.act.number = "8";
    second.isNew(Role::Child, "Eva");
    second.known(Role::Father, rui, 0);
    second.known(Role::Mother, ines, 0);
    const qint64 one = store(first), two = store(second);
    EXPECT_EQ(value("select count(*) from familias where nfamilia = ?", {five}), 2.0);
    EXPECT_EQ(value("select famorig from individuo where nome = 'Eva'"), double(five));
    expectHeld(one, two,
               "O que este acto escreveu da família nº 1 serve também a outro acto, posterior: Baptismos 1, fl. 3v, "
               "n.º 8.");
}

TEST_F(UndoOfWhatALaterActTellsToo, GoesThroughWhereTheOtherActTellsSomethingElse)
{
    Telling first = baptism("7");
    first.tell(1, attribute::residence, "outeiro");
    first.tell(1, attribute::nickname, "o Ruivo");
    first.conclusions.places = {{"outeiro", {.code = "03030101"}}};
    const qint64 one = store(first);
    store(baptism("8", 1));
    EXPECT_EQ(undoAct(cnBDP, one), "");
}
