// Rules of what leads nowhere: each with a case that must fire and a near miss that must not.
#include "study/checkedActs.h"

class ANumber : public CheckedActs
{
protected:
    ANumber()
    {
        rui = person({"Rui", 'm', "1700-02-14", "1760-02-14"});
        eva = person({"Eva", 'f', "1704-02-14"});
        family = couple(rui, eva, "1725-01-10");
    }
    // With these files on the disk.
    QStringList pictures(const QHash<QString, QStringList>& disk)
    {
        using namespace study::checks;
        const auto filesIn = [&](const QString& where) -> std::optional<QStringList> {
            looked << where;
            return disk.contains(where) ? std::optional(disk.value(where)) : std::nullopt;
        };
        QStringList found;
        looked.clear();
        for (const Case& one : Check::run(study::parish::Snapshot::read(bdp), {}, {}, filesIn))
            if (one.rule == "K-05") found << inWords(one.severity) + ": " + one.text;
        return found;
    }

    qint64 rui = 0, eva = 0, family = 0;
    QStringList looked;
};

TEST_F(ANumber, OfAPictureLeadsToAFile)
{
    run("update individuo set rpBapt = '/livros/b1.jpg' where nind = ?", {rui});
    run("update individuo set rpObi = '/livros/o1.jpg' where nind = ?", {rui});
    run("update familia set rpCas = '/livros/C1.jpg'");
    EXPECT_EQ(pictures({{"/livros/", {"b1.jpg", "o1.jpg", "c1.jpg"}}}), QStringList());
    EXPECT_EQ(looked, QStringList("/livros/")); // once a folder
    EXPECT_EQ(pictures({{"/livros/", {"o1.jpg"}}}),
              QStringList({"informação: A imagem do casamento da família nº 1 de Rui e Eva não está em /livros/C1.jpg.",
                           "informação: A imagem do baptismo de Rui (nº 1) não está em /livros/b1.jpg."}));
    EXPECT_EQ(pictures({}), QStringList("informação: A pasta /livros/ não existe; devia ter 3 imagens."));
}

TEST_F(ANumber, OfAPictureElsewhereIsNotLookedUp)
{
    run("update individuo set rpBapt = '//servidor/b1.jpg', rpObi = 'https://tombo.pt/o1'");
    run(R"(update familia set rpCas = '\\servidor\c1.jpg')");
    EXPECT_EQ(pictures({}), QStringList());
    EXPECT_EQ(looked, QStringList());
    run(R"(update familia set rpCas = 'C:\livros\c1.jpg')");
    run("insert into assinatura (nind, idassinatura, assinatura) values (?, 1, 'a1.png')", {eva});
    EXPECT_EQ(pictures({{".", {"a1.png"}}}),
              QStringList(R"(informação: A pasta C:\livros\ não existe; devia ter 1 imagem.)"));
    EXPECT_EQ(looked, QStringList({".", R"(C:\livros\)"}));
}

TEST_F(ANumber, OfAPriestAnHeirOrAnExecutorIsSomebodys)
{
    run("update individuo set primpadrebapt = ?, testamenteiro = ? where nind = ?", {eva, eva, rui});
    run("update familia set primpadrecasam = 0, segpadrecasam = null");
    EXPECT_EQ(cases("K-06"), QStringList());
    run("update individuo set segpadrebapt = 97, testamenteiro = 98 where nind = ?", {rui});
    run("update familia set primpadrecasam = 99");
    run("insert into legadosprofanos (nind, idlegprof, nindherd) values (?, 1, 96)", {rui});
    EXPECT_EQ(cases("K-06"),
              QStringList({"impossível: O padre do casamento da família nº 1 de Rui e Eva é o indivíduo nº 99, que não "
                           "existe.",
                           "impossível: O padre do baptismo de Rui (nº 1) é o indivíduo nº 97, que não existe.",
                           "impossível: O testamenteiro de Rui (nº 1) é o indivíduo nº 98, que não existe.",
                           "impossível: Um herdeiro de Rui (nº 1) é o indivíduo nº 96, que não existe."}));
}

TEST_F(ANumber, OfAnAssistantIsSomebodys)
{
    assists("b", rui, "1700-02-14", eva);
    EXPECT_EQ(cases("K-07"), QStringList());
    assists("b", rui, "1700-02-14", 99);
    run("insert into assistente (tipoacto, entidade) values ('c', ?)", {family});
    EXPECT_EQ(
        cases("K-07"),
        QStringList({"impossível: Um assistente ao casamento da família nº 1 de Rui e Eva é ninguém: não tem "
                     "número.",
                     "impossível: Um assistente ao baptismo de Rui (nº 1) é o indivíduo nº 99, que não existe."}));
}

TEST_F(ANumber, OfAnActIsThatOfARecord)
{
    assists("b", rui, "1700-02-14", eva);
    assists("c", family, "1725-01-10", eva, "t");
    EXPECT_EQ(cases("K-08"), QStringList());
    assists("c", 99, "1700-02-14", eva, "t");
    assists("b", 98, "1700-02-14", 97);
    EXPECT_EQ(cases("K-08"),
              QStringList({"impossível: Há um assistente sem ficha nenhuma: nem existe o indivíduo nº 97, nem o "
                           "baptismo do indivíduo nº 98.",
                           "impossível: Eva (nº 2) consta como assistente ao casamento da família nº 99, "
                           "que não existe."}));
    EXPECT_EQ(cases("K-07"), QStringList()); // told once
    run("update assistente set nind = null where entidade = 98");
    EXPECT_EQ(cases("K-08").first(), "impossível: Há um assistente sem número a um acto que não existe, o baptismo do "
                                     "indivíduo nº 98.");
}

TEST_F(ANumber, OfAResidenceIsSomebodys)
{
    const auto resides = [this](const char* kind, qint64 number, const char* day) {
        run("insert into residencia (numero, tiporesid, dataref) values (?, ?, ?)", {number, kind, day});
    };
    resides("i", rui, "1720-01-01");
    resides("f", family, "1720-01-01");
    EXPECT_EQ(cases("K-09"), QStringList());
    resides("i", 99, "1720-01-01");
    resides("i", 99, "1721-01-01");
    resides("f", 98, "1720-01-01");
    EXPECT_EQ(cases("K-09"), QStringList({"impossível: 1 residência da família nº 98, que não existe.",
                                          "impossível: 2 residências do indivíduo nº 99, que não existe."}));
}

TEST_F(ANumber, OfAListIsSomebodys)
{
    for (const qint64 who : {rui, qint64(99)}) {
        EXPECT_EQ(cases("K-10"), QStringList());
        run("insert into profissoes (nind, idprofissao) values (?, 1)", {who});
        run("insert into assinatura (nind, idassinatura) values (?, 1)", {who});
        run("insert into legadosprofanos (nind, idlegprof) values (?, 1)", {who});
        run("insert into rituaismorte (nind, idlegpio) values (?, 1)", {who});
        run("insert into rituaismorte (nind, idlegpio) values (?, 2)", {who});
        run("insert into passaporte (nind, nPass) values (?, 1)", {who});
    }
    EXPECT_EQ(cases("K-10"), QStringList({"impossível: 1 assinatura do indivíduo nº 99, que não existe.",
                                          "impossível: 1 legado do indivíduo nº 99, que não existe.",
                                          "impossível: 1 passaporte do indivíduo nº 99, que não existe.",
                                          "impossível: 1 profissão do indivíduo nº 99, que não existe.",
                                          "impossível: 2 sufrágios do indivíduo nº 99, que não existe."}));
}

TEST_F(ANumber, OfAFamilyInAnActIsOneThatThereIs)
{
    run("create table estudo_familia (acto integer, ordem integer, nfamilia double)");
    run("insert into estudo_familia (acto, ordem, nfamilia) values (5, 0, ?), (5, 1, null)",
        {couple(rui, person({"Eva", 'f'}))});
    EXPECT_EQ(cases("K-13"), QStringList());
    run("insert into estudo_familia (acto, ordem, nfamilia) values (5, 2, 99)");
    EXPECT_EQ(cases("K-13"), QStringList("impossível: O acto nº 5 é da família nº 99, que não existe."));
    elsewhere("drop table estudo_familia; create table estudo_familia (acto varchar)");
    EXPECT_EQ(cases("K-13"), QStringList());
}

TEST_F(ANumber, InAnActIsSomebodys)
{
    run("create table estudo_pessoa (acto integer, ordem integer, nome varchar, nind double)");
    run("insert into estudo_pessoa (acto, ordem, nome, nind) values (5, 0, 'Rui', ?)", {rui});
    EXPECT_EQ(cases("K-11"), QStringList());
    run("insert into estudo_pessoa (acto, ordem, nome, nind) values (5, 1, 'Ana', 99)");
    EXPECT_EQ(cases("K-11"), QStringList("impossível: No acto nº 5, Ana é o indivíduo nº 99, que não existe."));
}
