#include "demo.h"

#include "households.h"
#include "rows.h"
#include "transcriber.h"

#include "common/tipoFam.h"
#include "platform/desktop/desktop.h"
#include "platform/jet/recordset.h"
#include "store/modBD.h"

#include <algorithm>

namespace demo {
namespace {

QString letter(Sex sex)
{
    return sex == Sex::male ? "m" : sex == Sex::female ? "f" : "d";
}

// The parish stands in a real municipality, its localities and its neighbours on the working list.
void writePlaces(jet::Connection& bdp)
{
    bdp.execute(QStringLiteral("insert into paroquia (codparoquia, nomeparoquia, codconcelho, prioridade) "
                               "values ('%1', '%2', '%3', 2)")
                    .arg(parishCode, parishName, municipality));
    bdp.execute(
        QStringLiteral("insert into infopar (cod, nome, Pais) values ('%1', '%2', 'PT')").arg(parishCode, parishName));
    for (const QString& code : neighbours())
        bdp.execute(QStringLiteral("update paroquia set prioridade = 1 where codparoquia = '%1'").arg(code));
    for (int i = 0; i < localities().size(); ++i) {
        const Locality& locality = localities()[i];
        const QString code = parishCode + QStringLiteral("%1").arg(i + 1, 2, 10, QChar('0'));
        bdp.execute(QStringLiteral("insert into lugar (codlugar, nomelugar, codparoquia, prioridade) "
                                   "values ('%1', '%2', '%3', 1)")
                        .arg(code, locality.name, parishCode));
        for (int j = 0; j < locality.sites.size(); ++j)
            bdp.execute(QStringLiteral("insert into sitio (codsitio, nomesitio, codlugar, prioridade) "
                                       "values ('%1%2', '%3', '%1', 1)")
                            .arg(code)
                            .arg(j + 1, 2, 10, QChar('0'))
                            .arg(locality.sites[j]));
    }
}

void putBirth(jet::Recordset& row, const Person& person, const Parish& parish)
{
    put(row, "datanasc", "DnascFixa", person.birthTold);
    put(row, "localnasc", "tipolocalnasc", person.birthPlace);
    put(row, "filiacao", person.filiation);
    put(row, "primpadrebapt", "funcprimpbapt", person.baptizedBy);
    put(row, "segpadrebapt", "funcsegpbapt", person.baptizedWith);
    if (!person.origin) return;

    const Family& family = parish.family(person.origin);
    const auto putParent = [&](const Spouse& spouse, const QString& age, const QString& state) {
        if (!spouse.person) return;
        const Person& parent = parish.person(spouse.person);
        if (parent.birthTold.exacta()) row.set(age, completedYears(parent.birth, person.birth));
        row.set(state, family.situation == legitimateFamily ? married : single);
    };
    putParent(family.husband, "idadepai", "estadocivilpai");
    putParent(family.wife, "idademae", "estadocivilmae");
}

void putDeath(jet::Recordset& row, const Person& person)
{
    const int age = completedYears(person.birth, person.death);
    put(row, "dataobito", "dobitofixa", person.deathTold);
    row.set("menor", person.deathTold.conhecida() && age < 7);
    row.set("testam", person.will);
    row.set("escrit", false);
    if (!person.deathTold.conhecida()) return;
    put(row, "localobito", "tipolocalobito", person.deathPlace);
    put(row, "causa", person.cause);
    if (person.birthTold.conhecida()) row.set("idadeobito", person.ageToldAtDeath != 0 ? person.ageToldAtDeath : age);
    if (age >= 14) row.set("estadoobito", person.civilState);
    put(row, "sacramentos", person.sacraments);
    put(row, "classparoquial", person.parishClass);
    put(row, "testamenteiro", person.executor);
    put(row, "primpadreobito", "funcprimpobito", person.buriedBy);
    put(row, "mortalha", person.shroud);
    put(row, "igreja", person.church);
    put(row, "enterro", person.grave);
}

// The type of individual, by what is known of birth and death.
QString typeOf(const Person& person)
{
    if (person.birthTold.conhecida()) return person.deathTold.conhecida() ? "4" : "1";
    return person.deathTold.conhecida() ? "2" : "3";
}

void writePeople(const Parish& parish, jet::Connection& bdp)
{
    jet::Recordset row(bdp, "select * from individuo");
    for (const Person& person : parish.people) {
        row.addNew();
        put(row, "nind", person.number);
        row.set("nome", person.name);
        row.set("tipo", typeOf(person));
        row.set("sexo", letter(person.sex));
        put(row, "famorig", person.origin);
        put(row, "titulo", person.title);
        put(row, "alcunha", person.nickname);
        put(row, "inicioobs", person.seenFrom);
        put(row, "fimobs", person.seenTo);
        putBirth(row, person, parish);
        putDeath(row, person);
        put(row, "estatura", person.stature);
        put(row, "altura", person.height);
        put(row, "cFisicas", person.features);
        put(row, "obs", person.notes);
        row.update();
    }
}

QString typeOf(const Family& family, const Parish& parish)
{
    const auto tells = [&](Nind person, DataRegistada Person::*act) {
        return person && (parish.person(person).*act).conhecida();
    };
    return tipoDaFamilia({
        .nascimentoDaMae = tells(family.wife.person, &Person::birthTold),
        .obitos = tells(family.husband.person, &Person::deathTold) && tells(family.wife.person, &Person::deathTold),
        .casamento = family.wedding.conhecida(),
        .nascimentosDosFilhos = std::ranges::all_of(parish.childrenOf(family.number),
                                                    [](const Person* child) { return child->birthTold.conhecida(); }),
    });
}

void writeSpouse(const Spouse& spouse, const Family& family, const Parish& parish, jet::Recordset& row)
{
    if (!spouse.person) return;
    const Person& person = parish.person(spouse.person);
    row.addNew();
    put(row, "nfamilia", family.number);
    put(row, "nind", spouse.person);
    if (family.wedding.conhecida()) {
        if (spouse.ageTold != 0)
            row.set("idade", spouse.ageTold);
        else if (person.birthTold.conhecida())
            row.set("idade", completedYears(person.birth, family.wedding.data));
        row.set("estadocivil", spouse.civilState);
        row.set("numcasam", spouse.marriage);
    }
    row.update();
}

void writeFamilies(const Parish& parish, jet::Connection& bdp)
{
    jet::Recordset row(bdp, "select * from familia");
    jet::Recordset spouses(bdp, "select * from familias");
    for (const Family& family : parish.families) {
        row.addNew();
        put(row, "nfamilia", family.number);
        row.set("sfamilia", QString::number(family.situation));
        row.set("tipocasal", typeOf(family, parish));
        put(row, "datacasam", "dcasamfixa", family.wedding);
        put(row, "localcasam", "tipolocalcasam", family.place);
        put(row, "inicioobs", family.seenFrom);
        put(row, "fimobs", family.seenTo);
        put(row, "obs", family.notes);
        put(row, "primpadrecasam", "funcprimpcasam", family.marriedBy);
        put(row, "segpadrecasam", "funcsegpcasam", family.marriedWith);
        row.update();
        writeSpouse(family.husband, family, parish, spouses);
        writeSpouse(family.wife, family, parish, spouses);
    }
}

} // namespace

Parish demonstration()
{
    Parish parish = simulate(seed);
    addHouseholds(parish);
    Transcriber(parish, seed).run();
    return parish;
}

void write(const Parish& parish, jet::Connection& bdp)
{
    bdp.beginTrans();
    writePlaces(bdp);
    writePeople(parish, bdp);
    writeFamilies(parish, bdp);
    writeRecords(parish.records, bdp);
    bdp.commitTrans();
}

void make(const QString& path, const QString& dataFolder)
{
    Desktop::setProgramFolder(dataFolder);
    jet::createDatabase(path);
    jet::Connection bdp;
    bdp.open("Data Source=" + path);
    CriaTabelas(bdp, dataFolder + "/CriarTab.dat");
    CarregaDadosIniciais(bdp);
    write(demonstration(), bdp);
}

} // namespace demo
