// Rules of codes and places: each with a case that must fire and a near miss that must not.
#include "study/checkedActs.h"

class ATable : public CheckedActs
{
protected:
    ATable()
    {
        run("insert into paroquia (codparoquia, nomeparoquia) values ('030301', 'Caminha')");
        run("insert into lugar (codlugar, nomelugar) values ('03030101', 'Vila-Nova')");
        run("insert into paroquia (codparoquia, nomeparoquia) values ('030302', 'Seixas')");
        rui = person({"Rui", 'm', "1700-02-14", "1760-02-14"});
    }
    void isBornAt(const QVariant& code, const QVariant& letter)
    {
        run("update individuo set localnasc = ?, tipolocalnasc = ? where nind = ?", {code, letter, rui});
    }

    qint64 rui = 0;
};

TEST_F(ATable, HasEveryCode)
{
    names("Filia", 1, "Legítima");
    names("EstCi", 2, "Casado");
    names("SitFa", 1, "Legítima");
    const qint64 eva = person({"Eva", 'f'});
    couple(rui, eva);
    run("update individuo set filiacao = 1, estadoobito = 2");
    run("update familia set sfamilia = '1'");
    EXPECT_EQ(cases("K-01"), QStringList());
    run("update individuo set filiacao = 31");
    run("update familia set sfamilia = '9'");
    run("insert into profissoes (nind, idprofissao, codprof) values (?, 1, 77)", {eva});
    assists("b", rui, "1700-02-14", eva);
    run("update assistente set parentbapt = 99");
    EXPECT_EQ(cases("K-01"),
              QStringList({"impossível: O código 9 de situação da família não consta da tabela e é usado 1 vez.",
                           "impossível: O código 99 de parentesco não consta da tabela e é usado 1 vez.",
                           "impossível: O código 31 de filiação não consta da tabela e é usado 2 vezes.",
                           "impossível: O código 77 de profissão não consta da tabela e é usado 1 vez."}));
}

TEST_F(ATable, TellsACodeAgainWhenMoreHaveIt)
{
    run("update individuo set filiacao = 31");
    const auto theCase = [this] {
        const auto found = all();
        return *std::ranges::find(found, QString("K-01"), &study::checks::Case::rule);
    };
    const auto before = theCase();
    EXPECT_EQ(before.key(), "K-01 i1 Filia 31");
    person({"Eva", 'f'});
    run("update individuo set filiacao = 31");
    EXPECT_NE(theCase().state, before.state);
}

TEST_F(ATable, HasEveryPlace)
{
    isBornAt("030301", "F");
    EXPECT_EQ(cases("K-02"), QStringList());
    isBornAt("030301", "f");
    EXPECT_EQ(cases("K-02"), QStringList());
    isBornAt({}, "F"); // no place
    EXPECT_EQ(cases("K-02"), QStringList());
    isBornAt("030399", "F");
    EXPECT_EQ(cases("K-02"),
              QStringList("impossível: O local 030399 de letra F não consta da sua tabela e é usado 1 vez."));
    run("insert into residencia (numero, tiporesid, dataref, localresid, tipolocal) values (?, 'i', '1720-01-01', "
        "'030399', 'F')",
        {rui});
    EXPECT_EQ(cases("K-02").first().section(' ', -2), "2 vezes.");
    isBornAt("030301", {});
    EXPECT_EQ(cases("K-02").last(), "impossível: O local de código 030301 não tem letra e é usado 1 vez.");
    EXPECT_EQ(cases("K-03"), QStringList());
}

TEST_F(ATable, HasNoCodeThatWasCutAtAHyphen)
{
    isBornAt("03030101", "L");
    EXPECT_EQ(cases("K-03"), QStringList());
    isBornAt("va -L- 03030101", "N");
    EXPECT_EQ(cases("K-03"),
              QStringList("aviso: O código «va -L- 03030101» de letra N não tem a forma da sua letra e é "
                          "usado 1 vez: o nome de um local com hífen foi cortado nele. Deve ser 03030101 "
                          "de letra L (Vila-Nova)."));
    EXPECT_EQ(cases("K-02"), QStringList()); // told once
    isBornAt("0303", "F");
    EXPECT_EQ(cases("K-03"), QStringList("aviso: O código «0303» de letra F não tem a forma da sua letra e é usado 1 "
                                         "vez.")); // typed by hand, for all that is known
}

TEST_F(ATable, TellsActsOfAnotherParish)
{
    run("insert into infopar (cod, nome) values ('030301', 'Caminha')");
    isBornAt("030302", "F");
    EXPECT_EQ(cases("K-04"), QStringList()); // no sign of an act in the books
    assists("b", rui, "1700-02-14", person({"Eva", 'f'}));
    EXPECT_EQ(cases("K-04"), QStringList("informação: O baptismo de Rui (nº 1) tem padre, assistentes ou imagem do "
                                         "registo, mas foi em Seixas, e não em Caminha."));
    isBornAt("03030101", "L"); // in the parish
    EXPECT_EQ(cases("K-04"), QStringList());
    isBornAt("030302", "F");
    run("delete from infopar");
    EXPECT_EQ(cases("K-04"), QStringList());
}
