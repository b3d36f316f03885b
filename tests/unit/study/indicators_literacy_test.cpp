// Who could sign.
#include "study/counting.h"

#include "study/indicators/other.h"

using namespace study::indicators;

class Literacy : public Counting
{
protected:
    void signs(qint64 who, const char* day, int level)
    {
        run("insert into assinatura (nind, idassinatura, dataref, datafixa, nivelassinatura) values (?, ?, ?, 1, ?)",
            {who, ++lastSignature, *day ? QVariant(QString(day)) : QVariant(), level});
    }
    int lastSignature = 0;
};

TEST_F(Literacy, CountsAPersonOnceByTheBestLevel)
{
    const qint64 rui = person({"Rui", 'm', "1720-03-01"}), luis = person({"Luís", 'm'});
    signs(rui, "1745-03-01", 1);
    signs(rui, "1750-03-01", 4);
    signs(rui, "1760-03-01", 1);
    signs(luis, "1755-03-01", 1);
    person({"Calado", 'm', "1720-03-01"});
    const auto figures = figuresFor(literacy);
    const Table people = tableOf(figures, "pessoas");
    EXPECT_EQ(value(people, "Todos", "Homens, nº"), 2);
    EXPECT_EQ(value(people, "1700–1749", "Homens, assinam"), 1) << "in the period of the first signature";
    EXPECT_EQ(value(people, "1750–1799", "Homens, assinam"), 0);
    EXPECT_EQ(value(tableOf(figures, "assinaturas"), "Todos", "Homens, nº"), 4);
    EXPECT_EQ(value(tableOf(figures, "assinaturas"), "Todos", "Homens, assinam"), 1);
    EXPECT_EQ(value(tableOf(figures, "coortes"), "Todos", "Homens, nº"), 1);
    EXPECT_EQ(value(tableOf(figures, "niveis"), "1", "Homens"), 3);
    EXPECT_EQ(leftOut(figures), (QMap<QString, int>{{"só por coorte de nascimento: sem nascimento", 1},
                                                    {"só por profissão: sem profissão conhecida", 2}}));
}

TEST_F(Literacy, TellsAMarkFromWhoCantAtAll)
{
    for (const int level : {0, 1, 2, 5})
        signs(person({"Rui", 'm'}), "1750-03-01", level);
    const Table people = tableOf(figuresFor(literacy), "pessoas");
    EXPECT_EQ(value(people, "Todos", "Homens, não sabem"), 1);
    EXPECT_EQ(value(people, "Todos", "Homens, cruz ou sinal"), 1);
    EXPECT_EQ(value(people, "Todos", "Homens, assinam"), 2);
    Settings settings;
    settings.signsFrom = 5;
    settings.marksFrom = 2;
    const auto figures = figuresFor(literacy, settings);
    EXPECT_EQ(value(tableOf(figures, "pessoas"), "Todos", "Homens, não sabem"), 2);
    EXPECT_EQ(value(tableOf(figures, "pessoas"), "Todos", "Homens, cruz ou sinal"), 1);
    const Table levels = tableOf(figures, "niveis");
    EXPECT_EQ(cell(levels, "1", "Conta como").value, decltype(study::report::Cell::value)(QString("não sabe")));
    EXPECT_EQ(cell(levels, "2", "Conta como").value, decltype(study::report::Cell::value)(QString("cruz ou sinal")));
}

TEST_F(Literacy, IsToldByTheRoleInTheAct)
{
    const qint64 rui = person({"Rui", 'm'}), ana = person({"Ana", 'f'});
    const qint64 family = couple(rui, ana, "1750-03-01");
    const qint64 child = person({"Eva", 'f', "1752-03-01", "", family});
    run("insert into assistente (tipoacto, entidade, dataref, nind, tipoassistente) values ('b', ?, '1752-03-01', ?, "
        "'p')",
        {child, ana});
    signs(rui, "1750-03-01", 1);
    signs(rui, "1752-03-01", 3);
    signs(rui, "1752-03-01", 1);
    signs(ana, "1760-03-01", 2);
    run("update assinatura set funcao = 'Testemunha' where nind = ?", {ana});
    const Table roles = tableOf(figuresFor(literacy), "funcoes");
    EXPECT_EQ(roles.rows.size(), 3U);
    EXPECT_EQ(value(roles, "Noivo", "Cruz ou sinal"), 1);
    EXPECT_EQ(value(roles, "Pai", "Pessoas"), 1) << "once in each role";
    EXPECT_EQ(value(roles, "Pai", "Assinam"), 1) << "by the best level in it";
    EXPECT_EQ(value(roles, "Testemunha", "Assinam"), 1);
}

TEST_F(Literacy, IsToldByTheProfessionNearestToTheFirstSignature)
{
    run("delete from profissao");
    run("insert into profissao (codprof, profissao) values (1, 'Lavrador'), (2, 'Ferreiro')");
    const qint64 rui = person({"Rui", 'm'}), luis = person({"Luís", 'm'});
    for (const auto& [code, day] : {std::pair(1, "1740-03-01"), std::pair(2, "1752-03-01")})
        run("insert into profissoes (nind, idprofissao, dataref, datafixa, codprof) values (?, ?, ?, 1, ?)",
            {rui, code, QString(day), code});
    signs(rui, "1750-03-01", 1);
    signs(rui, "1741-03-01", 3);
    signs(luis, "1750-03-01", 1);
    const auto figures = figuresFor(literacy);
    const Table table = tableOf(figures, "profissoes");
    ASSERT_EQ(table.rows.size(), 1U);
    EXPECT_EQ(value(table, "Lavrador", "Assinam"), 1);
    EXPECT_EQ(leftOut(figures)["só por profissão: sem profissão conhecida"], 1);
}

TEST_F(Literacy, AtMarriageTakesTheSignatureOfThatDayAlone)
{
    const qint64 rui = person({"Rui", 'm'}), ana = person({"Ana", 'f'});
    couple(rui, ana, "1750-03-01");
    signs(rui, "1750-03-01", 2);
    signs(ana, "1750-03-02", 5);
    const auto figures = figuresFor(literacy);
    const Table table = tableOf(figures, "ao-casamento");
    EXPECT_EQ(value(table, "Todos", "Homens, assinam"), 1);
    EXPECT_EQ(value(table, "Todos", "Mulheres, nº"), 0);
    EXPECT_EQ(leftOut(figures)["cônjuge sem assinatura registada no dia do casamento"], 1);
}

TEST_F(Literacy, TakesTheLevelThatTheStudySets)
{
    const qint64 rui = person({"Rui", 'm'});
    signs(rui, "1750-03-01", 2);
    signs(rui, "", 5);
    Settings settings;
    settings.signsFrom = 3;
    const auto figures = figuresFor(literacy, settings);
    EXPECT_EQ(value(tableOf(figures, "pessoas"), "Todos", "Homens, assinam"), 0);
    EXPECT_EQ(leftOut(figures)["sem data"], 1);
}
