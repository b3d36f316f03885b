// The statements about places and codes, and those of a session, as the program sends them.
#include "jet/testbdp.h"

namespace jet::test {

using StatementsOnPlaces = ParishBdp;
using StatementsOnCodes = ParishBdp;
using StatementsOfASession = ParishBdp;

TEST_F(StatementsOnPlaces, OfTheWorkingList)
{
    expectRows({
        {"Select codsitio, nomesitio from sitio  where prioridade <> 0", ""},
        {"Select codlugar, nomelugar from lugar where prioridade <> 0", "01010101|*Fonte"},
        {"Select codparoquia, nomeparoquia from paroquia where prioridade <> 0", "010101|Agadão"},
        {"select codConcelho, nomeconcelho from concelho where prioridade <> 0", ""},
        {"select coddistrito, nomedistrito from distrito where prioridade <> 0 ", ""},
        {"select codzona, nomezona from zonapais where prioridade <> 0", ""},
        {"select codpais, nomepais from pais where prioridade <> 0", "34|Espanha"},
        {"select codpais, nomepais from pais", "34|Espanha PT|Portugal"},
        {"Select * from Zonapais where prioridade <>0", ""},
        {"Select * from Concelho where prioridade <>0", ""},
        {"Select * from paroquia where prioridade <>0", "010101|Agadão|0101|-|2"},
        {"Select * from Lugar where prioridade <>0", "01010101|*Fonte|010101|-|1"},
        {"Select * from sitio where prioridade <>0", ""},
    });
}

TEST_F(StatementsOnPlaces, OfTheLabels)
{
    expectRows({
        {"select nomepais from pais where codpais = ?", "Espanha", {"34"}},
        {"select nomepais from pais where codpais = ?", "Portugal", {"pt"}},
        {"select nomezona from zonapais where codzona = ?", "Galiza", {"341"}},
        {"select nomezona from zonapais where codzona = ?", "", {""}},
        {"select nomedistrito from distrito where coddistrito = ?", "Aveiro", {"01"}},
        {"select nomedistrito from distrito where coddistrito = ?", "", {"1"}}, // a code is a text
        {"select nomeconcelho from concelho where codconcelho = ?", "Águeda", {"0101"}},
        {"select nomeparoquia from paroquia where codparoquia = ?", "Agadão", {"010101"}},
        {"select nomelugar from lugar where codlugar = ?", "*Fonte", {"01010101"}},
        {"select nomesitio from sitio where codsitio = ?", "Eira", {"0101010101"}},
    });
    // Kept: the card asks the localities for the name of a site.
    EXPECT_EQ(numberOf([&] { select("select nomesitio from lugar where codsitio = ?", {"0101010101"}); }),
              number::invalidStatement);
}

TEST_F(StatementsOnPlaces, OfThePicker)
{
    expectRows({
        {"Select * from zonapais where codpais = ?", "341|Galiza|34|-|1|0", {"34"}},
        {"Select * from  distrito", "01|Aveiro|PT|-|0"},
        {"Select * from Concelho where coddistrito = ?", "0101|Águeda|01|-|0", {"01"}},
        {"Select * from paroquia where codconcelho = ?",
         "010101|Agadão|0101|-|2 010102|Aguada de Baixo|0101|-|0",
         {"0101"}},
        {"Select * from lugar where codparoquia = ?", "01010101|*Fonte|010101|-|1", {"010101"}},
        {"Select * from sitio where codlugar = ?", "0101010101|Eira|01010101|-|0", {"01010101"}},
    });
    expectChanges({
        {"update pais set prioridade = 1 where codpais = ?", 1, "select prioridade from pais", "1 1", {"PT"}},
        {"update zonapais set prioridade = 1 where codzona = ?", 1, "select prioridade from zonapais", "1", {"341"}},
        {"update distrito set prioridade = 1 where coddistrito = ?", 1, "select prioridade from distrito", "1", {"01"}},
        {"update concelho set prioridade = 1 where codconcelho = ?",
         1,
         "select prioridade from concelho",
         "1",
         {"0101"}},
        {"update paroquia set prioridade = 1 where codparoquia = ?",
         1,
         "select prioridade from paroquia",
         "2 1",
         {"010102"}},
        {"update lugar set prioridade = 1 where codlugar = ?", 1, "select prioridade from lugar", "1", {"01010101"}},
        {"update sitio set prioridade = 1 where codsitio  = '0101010101' and nomesitio = 'Eira'", 1,
         "select prioridade from sitio", "1"},
        {"update sitio set prioridade = 1 where codsitio  = '0101010101' and nomesitio = '*Eira'", 0,
         "select prioridade from sitio", "0"},
        {"update pais set prioridade = 0 where codpais = ?", 1, "select prioridade from pais", "0 0", {"34"}},
        {"update distrito set prioridade = 0 where coddistrito = ?", 1, "select prioridade from distrito", "0", {"01"}},
        {"update concelho set prioridade = 0 where codconcelho = ?",
         1,
         "select prioridade from concelho",
         "0",
         {"0101"}},
        {"update paroquia set prioridade = 0 where codparoquia = ?",
         1,
         "select prioridade from paroquia",
         "0 0",
         {"010101"}},
        {"update lugar set prioridade = 0 where codlugar = ?", 1, "select prioridade from lugar", "0", {"01010101"}},
        {"update sitio set prioridade = 0 where codsitio= ?", 1, "select prioridade from sitio", "0", {"0101010101"}},
        {"update paroquia set prioridade = 2 where codparoquia = ?",
         1,
         "select prioridade from paroquia",
         "2 2",
         {"010102"}},
    });
    // Kept: a zone cannot be taken off the list, as the table has another name.
    EXPECT_EQ(numberOf([&] { run("update zona set prioridade = 0 where codzona = ?", {"341"}); }),
              number::invalidStatement);
}

TEST_F(StatementsOnPlaces, OfTheEditors)
{
    expectRows({
        {"select codpais, nomepais, obs from pais", "34|Espanha|- PT|Portugal|-"},
        {"select codzona, nomezona, obs, tipo, codpais from zonapais where codpais = ?", "341|Galiza|-|1|34", {"34"}},
        {"select coddistrito, nomedistrito, obs from distrito", "01|Aveiro|-"},
        {"select codconcelho, nomeconcelho,coddistrito,  obs from concelho order by nomeconcelho", "0101|Águeda|01|-"},
        {"select codparoquia, nomeparoquia,codconcelho,  obs from paroquia",
         "010101|Agadão|0101|- 010102|Aguada de Baixo|0101|-"},
        {"select * from lugar where codparoquia = ? order by codlugar collate orv_alphabetical",
         "01010101|*Fonte|010101|-|1",
         {"010101"}},
        {"select * from sitio where codlugar = ? order by codsitio collate orv_alphabetical",
         "0101010101|Eira|01010101|-|0",
         {"01010101"}},
        {"select codpais from pais where nomepais = 'ESPANHA'", "34"},
        {"Select max(codzona) from zonapais where codpais = ?", "341", {"34"}},
        {"Select max(codzona) from zonapais where codpais = ?", "-", {"99"}},
        {"select * from zonapais where nomezona = ? collate orv_nocase and codpais = ?", "", {"Gal'iza", "34"}},
        {"select * from zonapais where nomezona = ? collate orv_nocase and codpais = ?",
         "341|Galiza|34|-|1|0",
         {"gALIZA", "34"}},
        {"select * from distrito where coddistrito = '01'", "01|Aveiro|PT|-|0"},
        {"select * from distrito where nomedistrito = 'Aveiro'", "01|Aveiro|PT|-|0"},
        {"select * from concelho where codconcelho = '0101'", "0101|Águeda|01|-|0"},
        {"select * from concelho where nomeconcelho = 'águeda'", "0101|Águeda|01|-|0"},
        {"select coddistrito, nomedistrito from distrito", "01|Aveiro"},
        {"select * from paroquia where codparoquia = '010101'", "010101|Agadão|0101|-|2"},
        {"select * from lugar where nomelugar = 'Fonte' and codparoquia = '010101'", ""},
        {"select * from sitio where nomesitio = 'Eira' and codlugar = '01010101'", "0101010101|Eira|01010101|-|0"},
    });
    expectChanges({
        {"delete from zonapais where codpais = ?", 1, "select * from zonapais", "", {"34"}},
        {"delete from lugar where codparoquia in (select codparoquia from paroquia where codconcelho in (select "
         "codconcelho from concelho where coddistrito = ?))",
         1,
         "select * from lugar",
         "",
         {"01"}},
        {"delete from lugar where codparoquia in (select codparoquia from paroquia where codconcelho in (select "
         "codconcelho from concelho where codconcelho = ?))",
         1,
         "select * from lugar",
         "",
         {"0101"}},
        {"delete from lugar where codparoquia = ?", 1, "select * from lugar", "", {"010101"}},
    });
    // Kept: the next number of a country is asked for as if all codes were numbers, and "PT" is none.
    expectErrors(number::typeMismatch, {"Select max (cint(codpais)) from pais"});
    expectErrors(number::invalidStatement,
                 {"select * from lugar where nomelugar = 'Fonte d'Além' and codparoquia = '010101'"});
}

TEST_F(StatementsOnPlaces, OfThePlaceSearch)
{
    expectRows({
        {"select codpais, nomepais from pais where nomepais like '%PORT%'", "PT|Portugal"},
        {"select codzona, nomezona from zonapais where nomezona like '%%'", "341|Galiza"},
        {"select coddistrito, nomedistrito from distrito where nomedistrito like '%eir%'", "01|Aveiro"},
        {"select codconcelho, nomeconcelho from concelho where nomeconcelho like '%ÁGUEDA%'", "0101|Águeda"},
        {"select codconcelho, nomeconcelho from concelho where nomeconcelho like '%agueda%'", ""},
        {"select codparoquia, nomeparoquia from paroquia where nomeparoquia like '%ag__da%'", "010102|Aguada de Baixo"},
        {"select codlugar, nomelugar from lugar where nomelugar like '%*%'", "01010101|*Fonte"},
        {"select codsitio, nomesitio from sitio where nomesitio like '%z%'", ""},
        {"select codpais from zonapais where codzona = ?", "34", {"341"}},
        {"select coddistrito from concelho where codconcelho = ?", "01", {"0101"}},
        {"select codconcelho from paroquia where codparoquia = ?", "0101", {"010101"}},
        {"select codparoquia from lugar where codlugar = ?", "010101", {"01010101"}},
        {"select codlugar from sitio where codsitio = ?", "01010101", {"0101010101"}},
    });
}

TEST_F(StatementsOnCodes, OfProfessionsAndCategories)
{
    expectRows({
        {"select * from profissao order by codprof", "1|*Lavrador|- 2|Ferreiro|-"},
        {"select * from profissao where profissao = 'ferreiro'", "2|Ferreiro|-"},
        {"select count(*) as Cont from profissoes where codprof = ?", "1", {2}},
        {"select codigo, descricao,categoria from infocomplementar where categoria = 'TipIn'", "T|Turista|TipIn"},
        {"Select max (cint(codigo)) from infocomplementar where categoria = ?", "10", {"EstCi"}},
        {"Select max (cint(codigo)) from infocomplementar where categoria = ?", "-", {"Filia"}},
        {"select codigo, descricao from infocomplementar where categoria = ?", "2|Irmão", {"Paren"}},
        {"select descricao from infocomplementar where categoria = ? and codigo = ?", "*Viúvo", {"EstCi", "10"}},
        {"select descricao from infocomplementar where categoria = ? and codigo = ?", "", {"EstCi", "' or '1' = '1"}},
    });
    EXPECT_EQ(select("select codigo, descricao,categoria from infocomplementar").recordCount(), 6);
    EXPECT_EQ(select("select codcat, nomecat from categoria").recordCount(), 13);
    EXPECT_EQ(
        numberOf([&] { select("select max(cint(codigo)) from infocomplementar where categoria = ?", {"TipIn"}); }),
        number::typeMismatch);
}

TEST_F(StatementsOfASession, OfTheParish)
{
    expectRows({
        {"select cod, nome, pais from infopar", "010101|Agadão|PT"},
        {"select cod, nome from infopar", "010101|Agadão"},
    });
    expectChanges({
        {"delete from infopar", 1, "select * from infopar", ""},
        {"insert into infopar (cod, nome,pais) values ('010102','Aguada de Baixo','PT')", 1, "select nome from infopar",
         "Agadão Aguada de Baixo"},
    });
    expectErrors(number::invalidStatement, {"insert into infopar (cod, nome,pais) values ('010102','A'dos','PT')",
                                            "insert into infopar (cod, nome,pais) values ('010102','A','PRT')"});
}

TEST_F(StatementsOfASession, OfTheReferenceData)
{
    expectChanges({
        {"delete from sitio", 1, "select * from sitio", ""},
        {"delete from lugar", 1, "select * from lugar", ""},
        {"delete from paroquia", 2, "select * from paroquia", ""},
        {"delete from concelho", 1, "select * from concelho", ""},
        {"delete from distrito", 1, "select * from distrito", ""},
        {"delete from zonapais", 1, "select * from zonapais", ""},
        {"delete from pais", 2, "select * from pais", ""},
        {"delete from profissao", 2, "select * from profissao", ""},
        {"delete from infocomplementar", 6, "select * from infocomplementar", ""},
        {"insert into paroquia (codparoquia,nomeparoquia,codconcelho,prioridade) values ('010103','Belazaima','0101',"
         "'1')",
         1, "select prioridade from paroquia", "2 0 1"},
        {"insert into profissao (codprof,profissao,obs) values ('3','Oleiro','')", 1, "select codprof from profissao",
         "1 2 3"},
        {"Insert into profissao (codprof, profissao, obs) values (3, 'Oleiro','')", 1, "select codprof from profissao",
         "1 2 3"},
        {"Insert into infocomplementar(categoria,codigo,descricao) values ('EstCi', '3','Viúvo')", 1,
         "select count(*) from infocomplementar", "7"},
    });
    expectErrors(number::invalidStatement,
                 {"insert into paroquia (codparoquia,nomeparoquia) values ('')",
                  "insert into paroquia (codparoquia,nomeparoquia) values ('1','2','3')",
                  "insert into paroquia (codparoquia,nome) values ('1','2')",
                  "insert into paroquia (codparoquia,nomeparoquia,prioridade) values ('010103','Belazaima','')",
                  "insert into paroquia (codparoquia,nomeparoquia) values ('010103','Sant'Ana')"});
}

TEST_F(StatementsOfASession, OfTheUpgrade)
{
    outside("drop table passaporte");
    run("create table Passaporte(nind double not null, nPass double not null, dataref date, localdestino "
        "varchar(15),tipolocaldest varchar(1), obs memo, CONSTRAINT Pkpass Primary Key (nind, npass))");
    run("insert into passaporte (nind, npass) values (1, 1)");
    EXPECT_EQ(numberOf([&] { run("insert into passaporte (nind, npass) values (1, 1)"); }), number::duplicateKey);
    for (const char* column : {"cFisicas", "escrit", "estatura", "altura", "rpBapt", "rpObi"})
        bdp.execute(QStringLiteral("alter table Individuo drop column %1").arg(QLatin1String(column)));
    for (const char* statement :
         {"alter table Individuo add column cFisicas memo", "alter table Individuo add column escrit bit",
          "alter table Individuo add column estatura varchar", "alter table Individuo add column altura long",
          "alter table Individuo add column rpBapt varchar(255)",
          "alter table Individuo add column rpObi varchar(255)"})
        EXPECT_NO_THROW(run(statement)) << statement;
    EXPECT_EQ(rows("select cFisicas, escrit, estatura, altura, rpBapt, rpObi from individuo where nind = 1"),
              "-|não|-|-|-|-");
    run("alter table Familia drop column rpCas");
    run("alter table Familia add column rpCas varchar(255)");
    run("alter table Residencia add column idresidencia long");
    run("alter table Residencia drop column idresidencia");
    // Kept: the oldest form of a BDP cannot be upgraded.
    expectErrors(number::invalidStatement,
                 {"alter table Residencia alter CONSTRAINT PKrs Primary Key(numero, tiporesid, dataref)",
                  "alter table InfoPar add column Pais char(2)"});
}

} // namespace jet::test
