// Wills, suffrages and legacies.
#include "study/counting.h"

#include "study/indicators/other.h"

using namespace study::indicators;

class Bequests : public Counting
{
protected:
    qint64 dies(char sex, const char* birth, const QVariant& will)
    {
        const qint64 who = person({"Alguém", sex, birth, "1780-03-01"});
        run("update individuo set testam = ?, estadoobito = 2 where nind = ?", {will, who});
        return who;
    }
    void orders(qint64 who, const char* kind, int type, const QVariant& quantity, const QVariant& each,
                const QVariant& total, const char* currency = "Re")
    {
        run("insert into rituaismorte (nind, idlegpio, tipolegpio, tipo, quantidade, valorunit, valortotal, tipoMoeda) "
            "values (?, ?, ?, ?, ?, ?, ?, ?)",
            {who, ++lastRow, QString::fromUtf8(kind), type, quantity, each, total, QString(currency)});
    }
    int lastRow = 0;
};

TEST_F(Bequests, AreThoseOfAdults)
{
    for (int i = 0; i < 15; ++i)
        dies('m', "1720-03-01", 0);
    for (int i = 0; i < 5; ++i)
        dies('m', "1766-03-01", 1); // fourteen on that day
    dies('m', "1766-03-02", 1);
    dies('f', "1768-03-01", 1);
    const qint64 major = dies('m', "", 0), unknown = dies('m', "", 0);
    run("update individuo set classparoquial = 4, testam = null where nind = ?", {major});
    run("update individuo set testam = 1 where nind = ?", {unknown});
    const auto figures = figuresFor(bequests);
    const Table table = tableOf(figures, "testamentos");
    EXPECT_EQ(value(table, "Homens, todos", "Óbitos"), 20);
    EXPECT_EQ(value(table, "Homens, 1750–1799", "Com testamento, em 100"), 25);
    EXPECT_EQ(value(table, "Mulheres, todos", "Com testamento"), 1);
    EXPECT_EQ(value(tableOf(figures, "por-estado"), "Casado", "Com testamento"), 6);
    EXPECT_EQ(leftOut(figures), (QMap<QString, int>{{"não se diz se fez testamento", 1},
                                                    {"sem idade nem classe que diga adulto ou menor", 1}}));
}

TEST_F(Bequests, CountMassesWithThoseWhoLeaveNone)
{
    const int masses[] = {0, 10, 20, 50, 920};
    for (const int n : masses) {
        const qint64 who = dies('m', "1720-03-01", 1);
        if (n == 0) continue;
        orders(who, "missa", 1, n - 5, 100, (n - 5) * 100);
        orders(who, "missa", 3, 5, 100, 500);
    }
    const auto figures = figuresFor(bequests);
    const Table table = tableOf(figures, "missas");
    EXPECT_EQ(value(table, "Todos", "Testadores"), 5);
    EXPECT_EQ(value(table, "Todos", "Média"), 200);
    EXPECT_EQ(value(table, "Todos", "Mediana"), 20);
    EXPECT_EQ(value(table, "Todos", "1.º quartil"), 10);
    EXPECT_EQ(value(table, "Todos", "Sem nada"), 20);
    EXPECT_EQ(value(tableOf(figures, "tipos-de-missa"), "(3)", "Missas"), 20);
    EXPECT_EQ(value(tableOf(figures, "oficios"), "Todos", "Sem nada"), 100);
    const Table money = tableOf(figures, "dinheiro");
    EXPECT_EQ(value(money, "1750–1799, réis", "Testadores"), 4);
    EXPECT_EQ(value(money, "1750–1799, réis", "Média"), 25000);
}

TEST_F(Bequests, NeverAddCurrenciesAndTellWhatDoesntAddUp)
{
    run("insert into infocomplementar (categoria, codigo, descricao) values ('TipEs', '8', 'Uma confraria daqui')");
    const qint64 who = dies('f', "1720-03-01", 1);
    orders(who, "missa", 1, 10, 100, 900);
    orders(who, "esmola", 8, {}, {}, 50, "Es");
    orders(who, "esmola", 8, {}, {}, 70, "");
    orders(who, "oficio", 1, {}, {}, {});
    const auto figures = figuresFor(bequests);
    const Table money = tableOf(figures, "dinheiro");
    EXPECT_EQ(value(money, "1750–1799, réis", "Testadores"), 1);
    EXPECT_EQ(value(money, "1750–1799, escudos", "Testadores"), 1);
    EXPECT_EQ(value(tableOf(figures, "tipos-de-esmola"), "Uma confraria d… (8)", "Esmolas"), 2);
    EXPECT_EQ(leftOut(figures),
              (QMap<QString, int>{{"dinheiro sem moeda conhecida", 1},
                                  {"testador com sufrágios sem quantidade (fora das médias)", 1},
                                  {"valor total que não é a quantidade vezes o valor unitário (conta o total)", 1}}));
}

TEST_F(Bequests, TellWhomTheAlmsAreFor)
{
    const qint64 who = dies('f', "1720-03-01", 1);
    for (const char* destination : {"Confraria das Almas", "confraria  das almas", "Confraria do Santíssimo Sacramento",
                                    "Misericórdia", "", "Pobres"})
    {
        orders(who, "esmola", 1, {}, {}, 50);
        run("update rituaismorte set destino = ? where idlegpio = ?",
            {*destination ? QVariant(QString::fromUtf8(destination)) : QVariant(), lastRow});
    }
    run("update rituaismorte set tipolegpio = 'missa' where idlegpio = 6");
    const Table table = tableOf(figuresFor(bequests), "esmolas-por-destino");
    ASSERT_EQ(table.rows.size(), 4U) << "no mass";
    EXPECT_EQ(value(table, "Confraria das almas", "Esmolas"), 2);
    EXPECT_EQ(value(table, "Confraria do santíss…", "Esmolas"), 1);
    EXPECT_EQ(value(table, "Misericórdia", "Esmolas"), 1);
    EXPECT_EQ(value(table, "por dizer", "Esmolas"), 1);
}

TEST_F(Bequests, TellTheHeirs)
{
    run("insert into infocomplementar (categoria, codigo, descricao) values ('Paren', '4', 'Filha')");
    const qint64 who = dies('f', "1720-03-01", 1), heir = person({"Ana", 'f'});
    run("insert into legadosprofanos (nind, idlegprof, nindherd, parentesco, bensraiz) values (?, 1, ?, 4, 'O campo')",
        {who, heir});
    run("insert into legadosprofanos (nind, idlegprof, nindherd, parentesco) values (?, 2, null, null)", {who});
    const auto figures = figuresFor(bequests);
    EXPECT_EQ(value(tableOf(figures, "herdeiros"), "Filha", "Legados"), 1);
    EXPECT_EQ(value(tableOf(figures, "herdeiros"), "por dizer", "Legados"), 1);
    EXPECT_EQ(value(tableOf(figures, "bens"), "bens de raiz", "Legados"), 1);
    EXPECT_EQ(value(tableOf(figures, "bens"), "por dizer", "Legados"), 1);
    EXPECT_EQ(value(tableOf(figures, "sexo-dos-herdeiros"), "mulheres", "Legados"), 1);
}
