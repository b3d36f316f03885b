// A BDP that is written as GEDCOM, and read into an empty one, is the same parish.
#include "data/datafolder.h"
#include "data/demobdp.h"
#include "truth/truth.h"

#include "study/exchange/gedcom.h"
#include "study/exchange/gedcomIn.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

using namespace study;
using namespace study::exchange;

namespace {

constexpr auto places = "select 'P' || codpais as cod, replace(nomepais, '*', '') as nome from pais "
                        "union all select 'Z' || codzona, replace(nomezona, '*', '') from zonapais "
                        "union all select 'D' || coddistrito, replace(nomedistrito, '*', '') from distrito "
                        "union all select 'C' || codconcelho, replace(nomeconcelho, '*', '') from concelho "
                        "union all select 'F' || codparoquia, replace(nomeparoquia, '*', '') from paroquia "
                        "union all select 'L' || codlugar, replace(nomelugar, '*', '') || ',' || codparoquia from lugar "
                        "union all select 'S' || codsitio, replace(nomesitio, '*', '') || ',' || replace(nomelugar, '*', '') from sitio "
                        "join lugar using (codlugar)";

// A place by its name: a provisional one may get another code.
QString named(const char* code, const char* level)
{
    return QString("(select nome from (%1) where cod = %3 || %2)").arg(places, code, level);
}

QStringList selects()
{
    return {
        "select nind, nome, sexo, famorig, titulo, alcunha, inicioobs, fimobs, datanasc, dnascfixa, filiacao, idadepai, "
        "idademae, estadocivilpai, estadocivilmae, dataobito, dobitofixa, causa, idadeobito, estadoobito, sacramentos, "
        "classparoquial, testamenteiro, primpadrebapt, segpadrebapt, funcprimpbapt, funcsegpbapt, primpadreobito, "
        "funcprimpobito, mortalha, igreja, enterro, cfisicas, estatura, altura, coalesce(menor, 0), obs "
        "from individuo order by nind",
        "select nind, " + named("localnasc", "tipolocalnasc") + ", " + named("localobito", "tipolocalobito") +
            " from individuo order by nind",
        "select nfamilia, sfamilia, datacasam, dcasamfixa, inicioobs, fimobs, obs, primpadrecasam, segpadrecasam, "
        "funcprimpcasam, funcsegpcasam, tipocasal, " +
            named("localcasam", "tipolocalcasam") + " from familia order by nfamilia",
        "select nfamilia, nind, idade, estadocivil, numcasam from familias order by nfamilia, nind",
        "select tipoacto, entidade, dataref, nind, tipoassistente, estadocivil, falecidopai, falecidomae, parentbapt, "
        "parentnoivo, parentnoiva, obs from assistente order by tipoacto, entidade, nind, tipoassistente",
        "select numero, tiporesid, dataref, datafixa, fonte, obs, " + named("localresid", "tipolocal") +
            " from residencia order by numero, tiporesid, dataref",
        "select p.nind, p.dataref, p.datafixa, replace(f.profissao, '*', ''), p.fonte, p.obs from profissoes p "
        "left join profissao f using (codprof) order by p.nind, p.dataref, f.profissao",
        "select nind, dataref, datafixa, idade, nivelassinatura, assina, fonte, funcao, obs from assinatura "
        "order by nind, dataref, nivelassinatura",
        "select nind, nindherd, parentesco, bensmoveis, bensraiz, obs from legadosprofanos order by nind, idlegprof",
        "select nind, tipolegpio, tipo, quantidade, valorunit, tipomoeda, destino, numpadres, valortotal, obs "
        "from rituaismorte order by nind, idlegpio",
        "select nind, npass, dataref, obs, " + named("localdestino", "tipolocaldest") +
            " from passaporte order by nind, npass",
    };
}

// The first rows of the one that aren't those of the other.
void expectTheSame(datafolder::MadeBdp& one, datafolder::MadeBdp& other)
{
    for (const QString& select : selects()) {
        const QStringList was = one.rows(select), is = other.rows(select);
        EXPECT_EQ(was.size(), is.size()) << qUtf8Printable(select);
        int told = 0;
        for (qsizetype i = 0; i < qMin(was.size(), is.size()) && told < 5; ++i)
            if (was[i] != is[i]) {
                ++told;
                ADD_FAILURE() << qUtf8Printable(was[i] + "\n" + is[i]);
            }
    }
}

GedcomReport wayRound(datafolder::MadeBdp& from, datafolder::MadeBdp& into, GedcomVersion version)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath("a.ged");
    GedcomOptions options;
    options.version = version;
    options.limitYears = 0;
    exportGedcom(from.connection, file, options);
    return importGedcom(into.connection, file, {.copyBefore = false});
}

QString toldOf(const GedcomReport& report)
{
    QStringList all = report.lines();
    for (const GedcomProblem& one : report.problems)
        all << QString("%1: %2").arg(one.line).arg(one.text);
    return all.join('\n');
}

class GedcomWayRound : public DemoBdp
{
protected:
    static void expectTheDemonstration(GedcomVersion version)
    {
        datafolder::MadeBdp made;
        const GedcomReport report = wayRound(*bdp_, made, version);
        expectTheSame(*bdp_, made);
        EXPECT_TRUE(report.keptNumbers);
        EXPECT_TRUE(report.toNotes.isEmpty()) << qUtf8Printable(toldOf(report));
        EXPECT_TRUE(report.problems.empty()) << qUtf8Printable(toldOf(report));
    }
};

} // namespace

TEST_F(GedcomWayRound, LeavesTheDemonstrationAsItWasIn70)
{
    expectTheDemonstration(GedcomVersion::V70);
}

TEST_F(GedcomWayRound, LeavesTheDemonstrationAsItWasIn551)
{
    expectTheDemonstration(GedcomVersion::V551);
}
