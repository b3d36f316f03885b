// Rules of wills and suffrages: each with a case that must fire and a near miss that must not.
#include "study/checkedActs.h"

class AWill : public CheckedActs
{
protected:
    AWill() { rui = person({"Rui", 'm', "", "1760-02-14"}); }
    void leaves(qint64 heir)
    {
        run("insert into legadosprofanos (nind, idlegprof, nindherd) values (?, ?, ?)", {rui, ++lastRow, heir});
    }
    struct Suffrage
    {
        const char* kind = "missa";
        QVariant type = {}, quantity = {}, value = {}, total = {};
        const char* currency = "Re";
    };
    void orders(const Suffrage& row)
    {
        run("insert into rituaismorte (nind, idlegpio, tipolegpio, tipo, quantidade, valorunit, valortotal, tipoMoeda) "
            "values (?, ?, ?, ?, ?, ?, ?, ?)",
            {rui, ++lastRow, row.kind, row.type, row.quantity, row.value, row.total, row.currency});
    }

    qint64 rui = 0;
    int lastRow = 0;
};

TEST_F(AWill, StandsBehindALegacy)
{
    EXPECT_EQ(cases("W-01"), QStringList());
    leaves(person({"Eva", 'f'}));
    orders({});
    orders({});
    EXPECT_EQ(cases("W-01"),
              QStringList("informação: Rui (nº 1) deixou 1 legado e 2 sufrágios, mas não consta testamento nem "
                          "escritura."));
    run("update individuo set testam = 0, escrit = 1");
    EXPECT_EQ(cases("W-01"), QStringList());
    run("update individuo set testam = 1, escrit = 0");
    EXPECT_EQ(cases("W-01"), QStringList());
}

TEST_F(AWill, NamesTheLiving)
{
    const qint64 eva = person({"Eva", 'f', "", "1760-02-14"});
    leaves(eva);
    leaves(eva);
    EXPECT_EQ(cases("W-02"), QStringList());
    run("update individuo set dataobito = '1760-02-13' where nind = ?", {eva});
    EXPECT_EQ(cases("W-02"), QStringList("aviso: Eva (nº 2) é herdeira de Rui (nº 1), mas morreu antes: em 13/02/1760, "
                                         "e não depois de 14/02/1760."));
    run("update individuo set dobitofixa = 0");
    EXPECT_EQ(cases("W-02"), QStringList());
}

TEST_F(AWill, CountsItsSuffrages)
{
    orders({.quantity = 10, .value = 0.5, .total = 6});
    orders({.quantity = 10, .value = 5});
    EXPECT_EQ(cases("W-03"), QStringList());
    orders({.kind = "esmola", .quantity = 10, .value = 5, .total = 48});
    EXPECT_EQ(cases("W-03"), QStringList("aviso: Nos sufrágios de Rui (nº 1), 10 esmolas a 5 são 50, e não 48."));
    EXPECT_EQ(cases("W-03", {.limits = {{"W-03.diferenca", 2}}}), QStringList());
}

TEST_F(AWill, CountsInTheMoneyOfItsTime)
{
    const auto dies = [this](const char* day) { run("update individuo set dataobito = ?", {day}); };
    orders({.currency = "Es"}); // what the card proposes, without an amount
    orders({.total = 100, .currency = "Re"});
    EXPECT_EQ(cases("W-04"), QStringList());
    dies("1931-05-22");
    EXPECT_EQ(cases("W-04"), QStringList());
    dies("1931-05-23");
    EXPECT_EQ(cases("W-04"),
              QStringList("aviso: Os sufrágios de Rui (nº 1), que morreu em 23/05/1931, estão em réis."));
    run("update rituaismorte set tipoMoeda = 'Es'");
    dies("1911-05-22");
    EXPECT_EQ(cases("W-04"), QStringList());
    dies("1911-05-21");
    EXPECT_EQ(cases("W-04"),
              QStringList("aviso: Os sufrágios de Rui (nº 1), que morreu em 21/05/1911, estão em escudos."));
    run("update individuo set dobitofixa = 0");
    EXPECT_EQ(cases("W-04"), QStringList());
    run("update rituaismorte set tipoMoeda = 'Eu'");
    EXPECT_EQ(cases("W-04"), QStringList("aviso: Os sufrágios de Rui (nº 1), que morreu em cerca de 21/05/1911, estão "
                                         "em euros."));
}

TEST_F(AWill, CountsInTheMoneyOfTheYearsThatAreSet)
{
    orders({.total = 100, .currency = "Es"});
    run("update individuo set dataobito = '1905-05-22'");
    EXPECT_EQ(cases("W-04").size(), 1);
    EXPECT_EQ(cases("W-04", {.limits = {{"W-04.escudo", 1905}}}), QStringList());
    EXPECT_EQ(cases("W-04", {.limits = {{"W-04.escudo", 1906}}}).size(), 1);
    run("update rituaismorte set tipoMoeda = 'Eu'");
    EXPECT_EQ(cases("W-04", {.limits = {{"W-04.euro", 1905}}}), QStringList());
    EXPECT_EQ(cases("W-04", {.limits = {{"W-04.euro", 1906}}}).size(), 1);
    run("update rituaismorte set tipoMoeda = 'Re'");
    EXPECT_EQ(cases("W-04", {.limits = {{"W-04.escudo", 1880}}}).size(), 1);
    EXPECT_EQ(cases("W-04", {.limits = {{"W-04.escudo", 0}, {"W-04.euro", 1'000'000}}}), QStringList())
        << "no year that there is";
}

TEST_F(AWill, OrdersSuffragesOfTheirKind)
{
    names("TipMi", 1, "Rezada");
    names("TipOf", 2, "Cantado");
    orders({.kind = "missa", .type = 1});
    orders({.kind = "oficio", .type = 2});
    orders({.kind = "esmola"});
    EXPECT_EQ(cases("W-05"), QStringList());
    orders({.kind = "missa", .type = 2});
    EXPECT_EQ(cases("W-05"), QStringList("impossível: Nos sufrágios de Rui (nº 1) há tipos que não constam da tabela: "
                                         "missas de tipo 2."));
}
