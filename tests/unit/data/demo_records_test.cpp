// What the demonstration BDP holds around its people: assistants, priests, dated lists, wills and passports.
#include "demobdp.h"

namespace {

class DemoRecords : public DemoBdp
{
protected:
    // Whoever stands in the column exists, and the day lies between birth and death and inside the observation.
    static void expectAlive(const QString& table, const QString& person, const QString& day, const QString& where = {})
    {
        const QString condition = where.isEmpty() ? QString() : " and " + where;
        expectNone("select " + table + "." + person + " from " + table + " where " + table + "." + person +
                   " is not null and " + table + "." + person + " not in (select nind from individuo)" + condition);
        expectNone("select quem.nind from " + table + ", individuo as quem where quem.nind = " + table + "." + person +
                   " and (" + day + " < quem.datanasc or " + day + " > quem.dataobito or " + day +
                   " < quem.inicioobs or " + day + " > quem.fimobs)" + condition);
    }

    // The numbers of each person's rows run from 1 without a gap.
    static void expectNumbered(const QString& table, const QString& number)
    {
        expectNone("select nind from " + table + " group by nind having min(" + number + ") <> 1 or max(" + number +
                   ") <> count(*)");
    }
};

} // namespace

TEST_F(DemoRecords, HoldsAFewThousandRowsAtMost)
{
    int rows = 0;
    for (const char* table :
         {"assistente", "residencia", "profissoes", "assinatura", "legadosprofanos", "rituaismorte", "passaporte"})
        rows += bdp_->rows(QStringLiteral("select count(*) from %1").arg(table)).first().toInt();
    EXPECT_GE(rows, 1500);
    EXPECT_LE(rows, 4000);
}

TEST_F(DemoRecords, GivesActsGodparentsAndWitnessesWhoLive)
{
    expectAtLeast(500, "select nind from assistente where tipoacto = 'b' and tipoassistente = 'p'");
    expectAtLeast(100, "select nind from assistente where tipoacto = 'b' and tipoassistente = 't'");
    expectAtLeast(5, "select nind from assistente where tipoacto = 'c' and tipoassistente = 'p'");
    expectAtLeast(150, "select nind from assistente where tipoacto = 'c' and tipoassistente = 't'");
    expectAlive("assistente", "nind", "dataref");
    expectNone("select nind from assistente where tipoacto not in ('b', 'c') or tipoassistente not in ('p', 't')");
}

TEST_F(DemoRecords, DatesEachAssistanceWithItsAct)
{
    expectNone("select entidade from assistente where tipoacto = 'b' and entidade not in (select nind from individuo "
               "where datanasc = assistente.dataref)");
    expectNone("select entidade from assistente where tipoacto = 'c' and entidade not in (select nfamilia from "
               "familia where datacasam = assistente.dataref)");
    expectNone("select nind from assistente group by tipoacto, entidade, nind having count(*) > 1");
}

TEST_F(DemoRecords, LetsNobodyAssistAtTheOwnActOrAsAParent)
{
    expectNone("select nind from assistente where tipoacto = 'b' and nind = entidade");
    expectNone("select assistente.nind from assistente, individuo, familias where tipoacto = 'b' and individuo.nind = "
               "entidade and familias.nfamilia = famorig and familias.nind = assistente.nind");
    expectNone("select assistente.nind from assistente, familias where tipoacto = 'c' and familias.nfamilia = entidade "
               "and familias.nind = assistente.nind");
}

TEST_F(DemoRecords, KnowsCivilStateAndKinshipOfAssistants)
{
    expectCodes("assistente", "estadocivil", "EstCi");
    for (const char* column : {"parentbapt", "parentnoivo", "parentnoiva"}) {
        expectCodes("assistente", column, "Paren");
        expectAtLeast(20, QStringLiteral("select nind from assistente where %1 is not null").arg(column));
    }
    expectNone("select nind from assistente where estadocivil is null");
    expectNone("select nind from assistente where tipoacto = 'b' and (parentnoivo is not null or parentnoiva is not "
               "null) or tipoacto = 'c' and parentbapt is not null");
    // married by the act; widowed by a death before it
    const QString spouses = "(select eles.nind from familias as eles, familias as par, familia, individuo as outro "
                            "where familia.nfamilia = eles.nfamilia and familia.inicioobs <= assistente.dataref and "
                            "par.nfamilia = eles.nfamilia and par.nind <> eles.nind and outro.nind = par.nind";
    expectNone("select nind from assistente where estadocivil = 2 and nind not in " + spouses +
               " and (outro.dataobito is null or outro.dataobito > assistente.dataref))");
    expectNone("select nind from assistente where estadocivil = 3 and nind not in " + spouses +
               " and (outro.dataobito is null or outro.dataobito <= assistente.dataref))");
    // an uncle or aunt on the father's side and the father have a parent in common
    expectNone("select assistente.nind from assistente, individuo as crianca, familias as pais, individuo as pai "
               "where parentbapt in (19, 20) and crianca.nind = entidade and pais.nfamilia = crianca.famorig and "
               "pai.nind = pais.nind and pai.sexo = 'm' and assistente.nind not in (select irmao.nind from individuo "
               "as irmao, familias as deles, familias as dele where deles.nfamilia = irmao.famorig and dele.nfamilia "
               "= pai.famorig and deles.nind = dele.nind)");
    expectNone("select assistente.nind from assistente, individuo where individuo.nind = assistente.nind and "
               "(parentbapt in (5, 7, 11, 13, 19, 21, 33) and sexo <> 'm' or parentbapt in (6, 8, 12, 14, 20, 22, 34) "
               "and sexo <> 'f')");
}

TEST_F(DemoRecords, KnowsWhichParentsOfAssistantsAreDead)
{
    for (const char* parent : {"falecidopai, m", "falecidomae, f"}) {
        const QStringList names = QString(parent).split(", ");
        expectAtLeast(100, "select nind from assistente where " + names[0] + " = 1");
        const QString known = "select quem.nind from assistente, individuo as quem, familias, individuo as morto where "
                              "quem.nind = assistente.nind and familias.nfamilia = quem.famorig and morto.nind = "
                              "familias.nind and morto.sexo = '" +
                              names[1] + "' and " + names[0];
        expectNone(known + " = 1 and morto.dataobito > dataref");
        expectNone(known + " = 0 and morto.dataobito < dataref");
    }
}

TEST_F(DemoRecords, NamesPriestsWhoAreThereWithTheirFunctions)
{
    for (const char* priest :
         {"individuo, primpadrebapt, funcprimpbapt, datanasc", "individuo, segpadrebapt, funcsegpbapt, datanasc",
          "individuo, primpadreobito, funcprimpobito, dataobito", "familia, primpadrecasam, funcprimpcasam, datacasam",
          "familia, segpadrecasam, funcsegpcasam, datacasam"})
    {
        const QStringList names = QString(priest).split(", ");
        const QString &table = names[0], &number = names[1], &function = names[2];
        expectAtLeast(3, "select " + number + " from " + table + " where " + number + " is not null");
        expectCodes(table, function, "FunPa");
        expectAlive(table, number, table + "." + names[3]);
        expectNone("select " + number + " from " + table + " where " + number + " is not null and " + number +
                   " not in (select nind from individuo where titulo = 'Padre')");
        expectNone("select " + number + " from " + table + " where (" + number + " is null) <> (" + function +
                   " is null)");
    }
    expectNone("select nind from individuo where segpadrebapt = primpadrebapt");
    expectNone("select nfamilia from familia where segpadrecasam = primpadrecasam");
}

TEST_F(DemoRecords, TellsOfFunerals)
{
    for (const char* column : {"mortalha", "igreja", "enterro"})
        expectAtLeast(50, QStringLiteral("select nind from individuo where %1 is not null").arg(column));
    expectNone("select nind from individuo where dataobito is null and (mortalha is not null or igreja is not null or "
               "enterro is not null or primpadreobito is not null)");
    expectNone("select nind from individuo where (igreja is null) <> (enterro is null)");
}

TEST_F(DemoRecords, TellsWherePeopleAndFamiliesLived)
{
    expectAtLeast(50, "select numero from residencia where tiporesid = 'i'");
    expectAtLeast(50, "select numero from residencia where tiporesid = 'f'");
    expectPlaces("residencia", "localresid", "tipolocal");
    expectNone("select numero from residencia where localresid is null or fonte is null or tiporesid not in ('i', "
               "'f')");
    expectAlive("residencia", "numero", "dataref", "tiporesid = 'i'");
    expectNone("select numero from residencia where tiporesid = 'f' and numero not in (select nfamilia from familia)");
    expectNone("select numero from residencia, familia where tiporesid = 'f' and numero = nfamilia and (dataref < "
               "inicioobs or dataref > fimobs)");
    // the same place as the child's whose baptism tells it
    expectNone("select numero from residencia where tiporesid = 'f' and numero not in (select famorig from individuo "
               "where datanasc = residencia.dataref and localnasc = residencia.localresid)");
}

TEST_F(DemoRecords, TellsWhatPeopleDid)
{
    expectAtLeast(200, "select nind from profissoes");
    expectAtLeast(15, "select distinct codprof from profissoes");
    expectAtLeast(20, "select nind from profissoes group by nind having count(*) > 2");
    expectNone("select codprof from profissoes where codprof is null or codprof not in (select codprof from "
               "profissao)");
    expectAlive("profissoes", "nind", "dataref");
    expectNumbered("profissoes", "idprofissao");
    expectNone("select nind from profissoes where codprof = 512 and nind not in (select nind from individuo where "
               "titulo = 'Padre')");
}

TEST_F(DemoRecords, HoldsSignaturesOfSpousesWitnessesAndPriests)
{
    for (const char* function : {"Noivo", "Noiva", "Testemunha", "Testador", "Pároco"})
        expectAtLeast(3, QStringLiteral("select nind from assinatura where funcao = '%1'").arg(function));
    expectAlive("assinatura", "nind", "dataref");
    expectNumbered("assinatura", "idassinatura");
    expectNone("select nind from assinatura where nivelassinatura not between 1 and 5 or nivelassinatura is null");
    expectNone("select assinatura.nind from assinatura, individuo where assinatura.nind = individuo.nind and "
               "nivelassinatura > 1 and assina <> nome");
    expectNone("select nind from assinatura where funcao = 'Testemunha' and nind not in (select nind from assistente "
               "where tipoacto = 'c' and dataref = assinatura.dataref)");
    expectNone("select assinatura.nind from assinatura, individuo where assinatura.nind = individuo.nind and idade is "
               "not null and (idade < 12 or DnascFixa = 0)");
}

TEST_F(DemoRecords, HoldsTheWillsOfThoseWhoMadeOne)
{
    expectAtLeast(50, "select nind from legadosprofanos");
    expectNumbered("legadosprofanos", "idlegprof");
    expectCodes("legadosprofanos", "parentesco", "Paren");
    expectNone("select nind from individuo where testam = 1 and (testamenteiro is null or nind not in (select nind "
               "from legadosprofanos))");
    expectNone("select nind from legadosprofanos where nind not in (select nind from individuo where testam = 1)");
    expectNone("select nind from legadosprofanos where nind = nindherd or bensmoveis is null and bensraiz is null");
    expectNone("select legadosprofanos.nind from legadosprofanos, individuo as testador, individuo as herdeiro where "
               "testador.nind = legadosprofanos.nind and herdeiro.nind = nindherd and (herdeiro.dataobito < "
               "testador.dataobito or herdeiro.datanasc > testador.dataobito)");
    expectNone("select nindherd from legadosprofanos where nindherd not in (select nind from individuo)");
    expectNone("select nind from individuo where testamenteiro not in (select nind from individuo)");
    // sons and daughters are of a family of the testator's
    expectNone("select legadosprofanos.nind from legadosprofanos, individuo as herdeiro where parentesco in (3, 4) and "
               "herdeiro.nind = nindherd and herdeiro.famorig not in (select nfamilia from familias where nind = "
               "legadosprofanos.nind)");
    // a husband or a wife is of one with the testator
    expectNone("select legadosprofanos.nind from legadosprofanos where parentesco in (43, 44) and nindherd not in "
               "(select dele.nind from familias as dele, familias as dela where dele.nfamilia = dela.nfamilia and "
               "dela.nind = legadosprofanos.nind)");
}

TEST_F(DemoRecords, HoldsSuffragesWithTheirKinds)
{
    for (const char* kind : {"missa, TipMi", "oficio, TipOf", "esmola, TipEs"}) {
        const QStringList names = QString(kind).split(", ");
        const QString where = " where tipolegpio = '" + names[0] + "'";
        expectAtLeast(20, "select nind from rituaismorte" + where);
        expectCodes("rituaismorte", "tipo", names[1], where);
    }
    expectNumbered("rituaismorte", "idlegpio");
    expectNone("select nind from rituaismorte where tipolegpio not in ('missa', 'oficio', 'esmola') or tipoMoeda <> "
               "'Re' or tipo is null or destino is null");
    expectNone("select nind from rituaismorte where quantidade * valorunit <> valortotal");
    expectNone("select nind from rituaismorte where nind not in (select nind from individuo where dataobito is not "
               "null)");
    expectNone("select nind from individuo where testam = 1 and nind not in (select nind from rituaismorte)");
}

TEST_F(DemoRecords, GivesEmigrantsPassportsThatDescribeThem)
{
    expectAtLeast(15, "select distinct nind from passaporte");
    expectAtLeast(1, "select nind from passaporte group by nind having count(*) > 1");
    expectAlive("passaporte", "nind", "dataref");
    expectPlaces("passaporte", "localdestino", "tipolocaldest");
    expectNone("select nind from passaporte where localdestino is null or dataref is null");
    expectNone("select nind from passaporte where nind not in (select nind from individuo where obs like '%Brasil%')");
    expectNone("select nind from individuo where (nind in (select nind from passaporte)) <> (altura is not null and "
               "estatura is not null and cFisicas is not null)");
    expectNone("select nind from individuo where altura is not null and (altura not between 140 and 200 or estatura "
               "not in ('Alta', 'Baixa', 'Média'))");
}
