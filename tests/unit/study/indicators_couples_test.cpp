// Who the couples are: their ages, where they come from; and who never was of one.
#include "study/counting.h"

#include "study/indicators/nuptiality.h"
#include "study/indicators/reasons.h"

using namespace study::indicators;

using TheAgeGap = Counting;

TEST_F(TheAgeGap, IsOfExactAgesInWholeYearsTowardsZero)
{
    const auto marry = [this](const char* his, const char* hers) {
        const qint64 husband = person({"José", 'm', his}), wife = person({"Ana", 'f', hers});
        couple(husband, wife, "1750-03-01");
    };
    for (int i = 0; i < 16; ++i)
        marry("1720-04-01", "1725-05-01"); // 5 years and a month
    marry("1725-05-01", "1725-04-01");     // a month younger
    marry("1720-04-01", "1720-04-01");
    marry("1720-04-02", "1710-04-01");
    marry("1715-04-02", "1725-04-01"); // a day less than ten years
    const auto figures = figuresFor(ageGap);
    const Table table = tableOf(figures, "diferenca-de-idade");
    EXPECT_EQ(value(table, "Todos", "Nº"), 20);
    EXPECT_NEAR(value(table, "Todos", "Média"), (16 * (5 + 30 / 365.0) - 30 / 365.0 - 10 + 10) / 20, 0.01);
    EXPECT_EQ(value(table, "Todos", "Mulher mais velha"), 10);
    EXPECT_EQ(value(table, "Todos", "Mesma idade (menos de 1 ano)"), 10);
    EXPECT_EQ(value(table, "Todos", "Mulher mais velha 5 anos e mais"), 5);
    EXPECT_EQ(value(table, "Todos", "Mulher mais velha 1–4 anos"), 0);
    EXPECT_EQ(value(table, "Todos", "Marido mais velho 5–9 anos"), 85);
    EXPECT_EQ(value(table, "Todos", "Marido mais velho 10 anos e mais"), 0);
    EXPECT_TRUE(leftOut(figures).isEmpty());
}

TEST_F(TheAgeGap, OfFewerThanTwentyCouplesIsGrey)
{
    const auto standing = [this](const char* column) {
        return cell(tableOf(figuresFor(ageGap), "diferenca-de-idade"), "Todos", column).standing;
    };
    for (int i = 0; i < 20; ++i) {
        if (i == 19) {
            for (const char* column : {"Média", "Mediana", "Desvio-padrão"})
                EXPECT_EQ(standing(column), study::report::Standing::Grey) << column;
        }
        const char* const birth = i % 2 ? "1720-04-01" : "1722-04-01";
        couple(person({"José", 'm', birth}), person({"Ana", 'f', "1725-05-01"}), "1750-03-01");
    }
    EXPECT_EQ(standing("Média"), study::report::Standing::Sound);
}

TEST_F(TheAgeGap, IsOfFirstMarriagesOfBoth)
{
    const qint64 rui = person({"Rui", 'm', "1715-03-01"}), ana = person({"Ana", 'f', "1720-03-01"});
    const qint64 rosa = person({"Rosa", 'f', "1730-03-01"}), luis = person({"Luís", 'm'});
    couple(rui, ana, "1745-03-01");
    couple(rui, rosa, "1756-03-01");
    couple(luis, person({"Rita", 'f', "1730-03-01"}), "1756-03-01");
    const auto figures = figuresFor(ageGap);
    EXPECT_EQ(value(tableOf(figures, "diferenca-de-idade"), "Todos", "Nº"), 1);
    EXPECT_EQ(leftOut(figures), (QMap<QString, int>{{"não é o primeiro casamento de ambos", 1},
                                                    {"sem nascimento de um dos cônjuges", 1}}));
}

class Endogamy : public Counting
{
protected:
    Endogamy() { run("insert into infopar (cod, nome) values ('030899', 'São Mamede')"); }
    qint64 native(char sex, const char* place, const char* level)
    {
        const qint64 who = person({"Alguém", sex, "1720-03-01"});
        run("update individuo set localnasc = ?, tipolocalnasc = ? where nind = ?",
            {QString(place), QString(level), who});
        return who;
    }
};

TEST_F(Endogamy, IsTheShareOfCouplesFromTheParishAmongKnownOrigins)
{
    for (int i = 0; i < 15; ++i)
        couple(native('m', "030899", "F"), native('f', "03089901", "L"), "1750-03-01");
    couple(native('m', "03089902", "L"), native('f', "0308990201", "S"), "1750-03-01");
    couple(native('m', "03089902", "L"), native('f', "03089901", "L"), "1750-03-01");
    couple(native('m', "030801", "F"), native('f', "030899", "F"), "1750-03-01");
    couple(native('m', "030802", "F"), native('f', "0301", "C"), "1750-03-01");
    couple(native('m', "15", "P"), native('f', "PT", "P"), "1750-03-01");
    couple(person({"Rui", 'm'}), native('f', "030899", "F"), "1750-03-01");
    Settings settings;
    settings.neighbours = QStringList{"030801"};
    const auto figures = figuresFor(placeEndogamy, settings);
    const Table table = tableOf(figures, "endogamia"), matrix = tableOf(figures, "matriz");
    EXPECT_EQ(value(table, "Todos", "Casamentos"), 21);
    EXPECT_EQ(value(table, "Todos", "De origens conhecidas"), 20);
    EXPECT_EQ(value(table, "Todos", "Endogamia"), 85);
    EXPECT_EQ(value(table, "Todos", "Noivas da paróquia"), 90);
    EXPECT_EQ(value(table, "Todos", "Ambos de lugares conhecidos da paróquia"), 2);
    EXPECT_EQ(value(table, "Todos", "Do mesmo lugar"), 50);
    EXPECT_EQ(value(matrix, "a paróquia", "a paróquia"), 17);
    EXPECT_EQ(value(matrix, "paróquias vizinhas", "a paróquia"), 1);
    EXPECT_EQ(value(matrix, "mesmo concelho", "mesmo distrito"), 1);
    EXPECT_EQ(value(matrix, "estrangeiro", "outra parte do país"), 1);
    EXPECT_EQ(value(matrix, "desconhecida", "todas"), 1);
    EXPECT_EQ(leftOut(figures).values(), (QList<int>{1}));
}

TEST_F(Endogamy, TakesTheParentsResidenceWhereNoBirthplaceIsTold)
{
    const qint64 father = person({"Pai", 'm'});
    const qint64 home = couple(father, person({"Mãe", 'f'}));
    const auto lived = [this](qint64 who, const char* day, const char* place) {
        run("insert into residencia (numero, tiporesid, dataref, datafixa, localresid, tipolocal) values (?, 'i', ?, "
            "1, "
            "?, 'F')",
            {who, QString(day), QString(place)});
    };
    lived(father, "1700-01-02", "030801");
    lived(father, "1719-01-02", "030899");
    couple(person({"Rui", 'm', "1720-03-01", "", home}), native('f', "030899", "F"), "1750-03-01");
    EXPECT_EQ(value(tableOf(figuresFor(placeEndogamy), "matriz"), "a paróquia", "a paróquia"), 1);
}

using Celibacy = Counting;

TEST_F(Celibacy, IsTheShareOfSinglesAmongThoseWhoDieAtFiftyOrLater)
{
    const auto dies = [this](char sex, const char* birth, int state, int age = 0) {
        const qint64 who = person({"Alguém", sex, birth, "1780-03-01"});
        run("update individuo set estadoobito = ?, idadeobito = ? where nind = ?",
            {state ? QVariant(state) : QVariant(), age ? QVariant(age) : QVariant(), who});
        return who;
    };
    for (int i = 0; i < 16; ++i)
        dies('f', "1730-03-01", 2); // fifty on that day
    for (int i = 0; i < 4; ++i)
        dies('f', "", 1, 50);
    for (int i = 0; i < 5; ++i)
        dies('f', "1720-03-01", 6);
    dies('f', "1730-03-02", 1); // a day too young
    dies('f', "", 1);
    dies('f', "1700-03-01", 8);
    const qint64 ana = dies('f', "1700-03-01", 1), rosa = dies('f', "1700-03-01", 0);
    couple(person({"Rui", 'm'}), ana, "1725-01-02");
    couple(person({"Luís", 'm'}), rosa);
    const auto figures = figuresFor(celibacy);
    const Table table = tableOf(figures, "celibato-mulheres");
    EXPECT_EQ(value(table, "Todos", "Óbitos de 50 anos e mais"), 26);
    EXPECT_EQ(value(table, "Todos", "Solteiros"), 4);
    EXPECT_EQ(value(table, "Todos", "Clérigos e religiosos"), 5);
    EXPECT_NEAR(value(table, "Todos", "Celibato, com os clérigos"), 900 / 26.0, 1e-9);
    EXPECT_NEAR(value(table, "Todos", "Celibato, sem os clérigos"), 400 / 21.0, 1e-9);
    EXPECT_EQ(leftOut(figures), (QMap<QString, int>{{"idade ao óbito desconhecida", 1},
                                                    {"estado civil desconhecido e sem casamento na base", 1},
                                                    {"solteiro no óbito, mas casado na base", 1}}));
    EXPECT_TRUE(tableOf(figures, "celibato-homens").isEmpty());
}

using KinEndogamy = Counting;

TEST_F(KinEndogamy, CountsDispensationsThatNotesTell)
{
    couple(person({"Rui", 'm'}), person({"Ana", 'f'}), "1750-03-01");
    run("update familia set obs = 'Dispensados no quarto grau de consanguinidade' where nfamilia = ?", {lastFamily});
    couple(person({"Luís", 'm'}), person({"Rosa", 'f'}), "1750-03-01");
    const auto figures = figuresFor(kinEndogamy);
    EXPECT_EQ(value(tableOf(figures, "dispensas"), "Todos", "Com dispensa"), 1);
    EXPECT_EQ(value(tableOf(figures, "dispensas"), "Todos", "Casamentos"), 2);
    EXPECT_EQ(leftOut(figures).values(), (QList<int>{2}));
}

TEST_F(KinEndogamy, CountsDegreesByTheLongerSide)
{
    const auto home = [this](qint64 husband, qint64 wife) { return couple(husband, wife); };
    const auto man = [this](qint64 family) { return person({"Ele", 'm', "", "", family}); };
    const auto woman = [this](qint64 family) { return person({"Ela", 'f', "", "", family}); };
    const qint64 oldest = home(man(0), woman(0)), stock = home(man(0), woman(0));
    const qint64 brother = man(oldest), sister = woman(oldest);
    const qint64 his = home(brother, woman(stock)), hers = home(man(0), sister);
    const qint64 cousinHe = man(his), cousinShe = woman(hers);
    const qint64 married = couple(cousinHe, cousinShe, "1750-03-01"); // first cousins: second degree
    couple(brother, woman(hers), "1750-03-01");                       // uncle and niece: second degree, too
    couple(man(married), woman(his), "1780-03-01");                   // nephew and aunt
    couple(man(his), woman(his), "1780-03-01");                       // brother and sister
    couple(man(stock), woman(hers), "1780-03-01");                    // no kin
    const auto figures = figuresFor(kinEndogamy);
    const Table table = tableOf(figures, "graus");
    EXPECT_EQ(value(table, "Todos", "Casamentos de pais conhecidos"), 5);
    EXPECT_EQ(value(table, "Todos", "1.º grau"), 1);
    EXPECT_EQ(value(table, "Todos", "2.º grau"), 3);
    EXPECT_EQ(value(table, "Todos", "Sem parentesco conhecido"), 1);
    // 1/16 of the cousins, 1/8 of uncle and niece, 1/8 and 1/32 of nephew and aunt, whose cousin is his mother; 1/4.
    const Table inbreeding = tableOf(figures, "consanguinidade");
    EXPECT_EQ(value(inbreeding, "Todos", "Com F acima de 0"), 4);
    EXPECT_NEAR(value(inbreeding, "Todos", "F médio de todos"), 1000 * 19 / 32.0 / 5, 1e-9);
    EXPECT_NEAR(value(inbreeding, "Todos", "F médio dos que o têm acima de 0"), 1000 * 19 / 32.0 / 4, 1e-9);
    EXPECT_EQ(value(inbreeding, "Todos", "F de 1/16 e mais"), 4);
    EXPECT_EQ(value(inbreeding, "1750–1799", "F de 1/64 a menos de 1/16"), 0);
    EXPECT_EQ(cell(inbreeding, "Todos", "Com F acima de 0").from.size(), 4U);
}

TEST_F(KinEndogamy, IsNotOfFamiliesThatOnlyTookAChildIn)
{
    const auto man = [this](qint64 family) { return person({"Ele", 'm', "", "", family}); };
    const auto woman = [this](qint64 family) { return person({"Ela", 'f', "", "", family}); };
    const qint64 home = couple(man(0), woman(0));
    const qint64 son = man(home), daughter = woman(home), taken = man(home);
    const qint64 his = couple(son, woman(0)), hers = couple(man(0), daughter), takens = couple(taken, woman(0));
    couple(man(his), woman(hers), "1750-03-01");
    couple(man(takens), woman(hers), "1750-03-01");
    const auto degreesOf = [this](const char* change) {
        run(change);
        const auto figures = figuresFor(kinEndogamy);
        EXPECT_EQ(value(tableOf(figures, "consanguinidade"), "Todos", "Com F acima de 0"),
                  value(tableOf(figures, "graus"), "Todos", "2.º grau"));
        return value(tableOf(figures, "graus"), "Todos", "2.º grau");
    };
    EXPECT_EQ(degreesOf("update individuo set filiacao = 1"), 2);
    EXPECT_EQ(degreesOf("update individuo set filiacao = 6 where nind = 5"), 1);
    EXPECT_EQ(degreesOf("update individuo set filiacao = 14 where nind = 5"), 1);
    EXPECT_EQ(degreesOf("update individuo set filiacao = 1 where nind = 5"), 2);
    EXPECT_EQ(degreesOf("update familia set sfamilia = '10' where nfamilia = 1"), 0);
    // A spouse who was taken in has no parents who are known.
    run("update individuo set filiacao = 6 where famorig = 2");
    EXPECT_EQ(value(tableOf(figuresFor(kinEndogamy), "graus"), "Todos", "Casamentos de pais conhecidos"), 1);
}
