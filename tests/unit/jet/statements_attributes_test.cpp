// The statements about acts and dated attributes, as the program sends them.
#include "jet/testbdp.h"

namespace jet::test {

using StatementsOnActs = ParishBdp;
using StatementsOnAttributes = ParishBdp;

TEST_F(StatementsOnActs, OfBaptismAndMarriage)
{
    expectRows({
        {"Select dataref, entidade, nind,tipoassistente, tipoacto, estadocivil, falecidopai,  falecidomae, parentbapt, "
         "parentnoivo, parentnoiva, obs  from assistente where entidade = 1 and  tipoacto = 'c'",
         "01/02/1745|1|6|t|c|-|-|-|-|-|-|-"},
        {"Select dataref, entidade, nind,  tipoassistente, tipoacto, estadocivil, falecidopai,  falecidomae, "
         "parentbapt, "
         "parentnoivo, parentnoiva, obs  from assistente where entidade = 3 and  tipoacto = 'b'",
         "05/03/1750|3|5|p|b|-|sim|-|-|-|-|-"},
        {"select primpadrecasam, funcprimpcasam,segpadrecasam, funcsegpcasam  from familia where nfamilia = 1",
         "5|-|-|-"},
        {"select primpadrebapt, funcprimpbapt,segpadrebapt, funcsegpbapt  from individuo where nind = 4", "5|-|-|-"},
        {"select * from assistente where nind = 5 order by dataref", "b|3|05/03/1750|5|p|-|sim|-|-|-|-|-"},
        {"select nome from individuo where individuo.nind= 3", "Ana"},
        {"select nome from individuo, familia, familias  where familia.nfamilia = familias.nfamilia  and "
         "familia.nfamilia = 1 and  familias.nind = individuo.nind",
         "José da Silva Maria Ávila"},
    });
    const char* child = "select primpadrebapt, segpadrebapt, funcprimpbapt, funcsegpbapt from individuo where nind = 4";
    const char* family =
        "select primpadrecasam, segpadrecasam, funcprimpcasam, funcsegpcasam from familia where nfamilia = 1";
    expectChanges({
        {"delete from assistente where dataref = #05/02/1745# and entidade = 1 and nind = 6 and tipoacto = 'c'", 0,
         "select nind from assistente", "5 6"},
        {"delete from assistente where dataref = #02/01/1745# and entidade = 1 and nind = 6 and tipoacto = 'c'", 1,
         "select nind from assistente", "5"},
        {"update individuo set primpadrebapt = 1 where nind = 4", 1, child, "1|-|-|-"},
        {"update individuo set primpadrebapt = null  where nind = 4", 1, child, "-|-|-|-"},
        {"update individuo set segpadrebapt = 1 where nind = 4", 1, child, "5|1|-|-"},
        {"update individuo set segpadrebapt = null  where nind = 4", 1, child, "5|-|-|-"},
        {"update individuo set funcprimpbapt = 2 where nind = 4", 1, child, "5|-|2|-"},
        {"update individuo set funcprimpbapt = null  where nind = 4", 1, child, "5|-|-|-"},
        {"update individuo set funcsegpbapt = 2 where nind = 4", 1, child, "5|-|-|2"},
        {"update individuo set funcsegpbapt = null  where nind = 4", 1, child, "5|-|-|-"},
        {"update familia set primpadrecasam = 1 where nfamilia = 1", 1, family, "1|-|-|-"},
        {"update familia set primpadrecasam = null  where nfamilia = 1", 1, family, "-|-|-|-"},
        {"update familia set segpadrecasam = 1 where nfamilia = 1", 1, family, "5|1|-|-"},
        {"update familia set segpadrecasam = null  where nfamilia = 1", 1, family, "5|-|-|-"},
        {"update familia set funcprimpcasam = 2 where nfamilia = 1", 1, family, "5|-|2|-"},
        {"update familia set funcprimpcasam = null  where nfamilia = 1", 1, family, "5|-|-|-"},
        {"update familia set funcsegpcasam = 2 where nfamilia = 1", 1, family, "5|-|-|2"},
        {"update familia set funcsegpcasam = null  where nfamilia = 1", 1, family, "5|-|-|-"},
    });
}

TEST_F(StatementsOnActs, OfTheFuneral)
{
    EXPECT_EQ(select("Select * from infocomplementar where categoria = 'FunPa' ").recordCount(), 0);
    const char* row = "select primpadreobito, funcprimpobito, mortalha, igreja, enterro from individuo where nind = 3";
    expectChanges({
        {"update individuo set primpadreobito =5 where nind = 3", 1, row, "5|-|-|-|-"},
        {"update individuo set primpadreobito = null  where nind = 3", 1, row, "-|-|-|-|-"},
        {"update individuo set funcprimpobito =1 where nind = 3", 1, row, "-|1|-|-|-"},
        {"update individuo set funcprimpobito = null where nind = 3", 1, row, "-|-|-|-|-"},
        {"update individuo set mortalha ='Hábito' where nind = 3", 1, row, "-|-|Hábito|-|-"},
        {"update individuo set mortalha = null where nind = 3", 1, row, "-|-|-|-|-"},
        {"update individuo set igreja = 'Matriz' where nind = 3", 1, row, "-|-|-|Matriz|-"},
        {"update individuo set igreja = null where nind = 3", 1, row, "-|-|-|-|-"},
        {"update individuo set enterro = 'Adro' where nind = 3", 1, row, "-|-|-|-|Adro"},
        {"update individuo set enterro = null where nind = 3", 1, row, "-|-|-|-|-"},
    });
    expectErrors(number::invalidStatement, {"update individuo set mortalha ='pano d'Holanda' where nind = 3"});
}

TEST_F(StatementsOnAttributes, OfProfessions)
{
    expectRows({
        {"select nind, idprofissao,dataref, datafixa, codprof, fonte, obs from profissoes where nind = 1 order by "
         "dataref",
         "1|2|01/01/1750|-|1|-|- 1|1|01/01/1760|-|2|-|-"},
        {"select * from profissao", "1|*Lavrador|- 2|Ferreiro|-"},
        {"select profissao from profissao where codprof = 2", "Ferreiro"},
        {"select profissao from profissao where codprof = 9", ""},
    });
}

TEST_F(StatementsOnAttributes, OfResidences)
{
    expectRows({
        {"select numero, dataref, datafixa,tiporesid, localresid, tipolocal,fonte, obs from residencia where numero = "
         "3 "
         "and tiporesid = 'i' order by dataref",
         "3|02/01/1755|-|i|010101|F|-|- 3|08/07/1760|sim|i|01010101|L|rol|-"},
        {"select numero,  dataref, datafixa, tiporesid, localresid, tipolocal, fonte, obs from residencia where numero "
         "= "
         "1 and tiporesid = 'f' order by dataref",
         "1|06/05/1746|-|f|010101|F|-|-"},
        // Kept: the text of the field, day first, is read month first where it can be.
        {"select count(*) from residencia where numero =3 and tiporesid = 'i' and dataref = #08/07/1760#", "0"},
        {"select count(*) from residencia where numero =3 and tiporesid = 'i' and dataref = #07/08/1760#", "1"},
        {"select count(*) from residencia where numero =1 and tiporesid = 'f' and dataref = #05/06/1746#", "1"},
    });
    expectErrors(number::duplicateKey, {"insert into residencia (numero, tiporesid, dataref) values (3, 'i', "
                                        "#07/08/1760#)"});
}

TEST_F(StatementsOnAttributes, OfSignaturesLegaciesAndSuffrages)
{
    expectRows({
        {"select nind, idassinatura, dataref, idade, datafixa, nivelassinatura,assinatura, assina, fonte, funcao, obs "
         "from assinatura where nind = 1 order by dataref",
         "1|1|01/01/1750|29|-|2|-|-|-|-|-"},
        {"Select idlegprof,nindherd, parentesco, bensmoveis, obs, bensraiz,  nind from legadosprofanos where  nind =3 "
         "order by idlegprof",
         "1|4|2|Uma arca|-|-|3"},
        {"Select * from infocomplementar where categoria = 'Paren'", "Paren|2|Irmão"},
        {"Select nind, idlegpio, tipolegpio, quantidade, valorunit,  tipoMoeda, tipo, destino, numpadres,valortotal, "
         "obs "
         "from  rituaismorte where nind = 3",
         "3|1|missa|10|0.5|Re|1|-|-|-|-"},
        {"select codigo, descricao from infocomplementar where categoria = 'EstCi' order by codigo",
         "1|Solteiro 10|*Viúvo 2|Casado"},
    });
}

TEST_F(StatementsOnAttributes, OfPassports)
{
    EXPECT_EQ(select("select * from passaporte where nind = 4").recordCount(), 2);
    const char* all = "select npass, dataref, localdestino, tipolocaldest, obs from passaporte where nind = 4";
    expectChanges({
        {"insert into passaporte (nind, npass, dataref) values (1,9,#12/03/1790#)", 1,
         "select dataref from passaporte where nind = 1", "03/12/1790"},
        {"update passaporte set localdestino = '34' where nind = 4", 2, all, "7|04/03/1770|34|-|- 8|04/03/1780|34|-|-"},
        {"update passaporte set tipolocaldest = 'P' where nind = 4", 2, all, "7|04/03/1770|-|P|- 8|04/03/1780|-|P|-"},
        {"update passaporte set obs = 'Para o Brasil' where nind = 4", 2, all,
         "7|04/03/1770|-|-|Para o Brasil 8|04/03/1780|-|-|Para o Brasil"},
        {"update passaporte set dataref = #25/12/1790# where nind = 4", 2, all,
         "7|25/12/1790|-|-|- 8|25/12/1790|-|-|-"},
        {"Delete from passaporte where nind = 4 and npass = 7", 1, all, "8|04/03/1780|-|-|-"},
    });
    expectErrors(number::duplicateKey, {"update passaporte set npass = 9 where nind = 4"});
    expectErrors(number::invalidStatement, {"update passaporte set localdestino = '0123456789012345' where nind = 4",
                                            "update passaporte set dataref = #__/__/____# where nind = 4"});
}

} // namespace jet::test
