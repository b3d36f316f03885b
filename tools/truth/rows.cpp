#include "demo/rows.h"

#include "truth.h"

#include "common/tipoFam.h"
#include "life.h"
#include "platform/jet/recordset.h"

#include <algorithm>

namespace truth {

namespace {

const QString ownCode = QStringLiteral("030899"), ownMunicipality = QStringLiteral("0308");
constexpr int natural = 2, motherAlone = 3; // Filia, SitFa

QString localityCode(int locality)
{
    return ownCode + QStringLiteral("%1").arg(locality, 2, 10, QChar('0'));
}

Local placeOf(int locality)
{
    return locality == 0 ? Local{ownCode, "F"} : Local{localityCode(locality), "L"};
}

void writePlaces(int localities, jet::Connection& connection)
{
    static const QStringList words{"Outeiro", "Fonte", "Ribeira", "Monte", "Cruz", "Eira", "Souto", "Carvalho", "Paço"};
    static const QStringList sides{"",         " de Cima",   " de Baixo", " Velho",    " Novo",    " do Meio",
                                   " de Além", " da Igreja", " do Rio",   " da Porta", " da Costa"};
    jet::Recordset parish(connection, "select * from paroquia");
    parish.addNew();
    parish.set("codparoquia", ownCode);
    parish.set("nomeparoquia", "São Mamede de Além");
    parish.set("codconcelho", ownMunicipality);
    parish.set("prioridade", 2);
    parish.update();
    jet::Recordset home(connection, "select * from infopar");
    home.addNew();
    home.set("cod", ownCode);
    home.set("nome", "São Mamede de Além");
    home.set("Pais", "PT");
    home.update();
    jet::Recordset row(connection, "select * from lugar");
    for (int i = 1; i <= localities; ++i) {
        row.addNew();
        row.set("codlugar", localityCode(i));
        row.set("nomelugar", words[(i - 1) % words.size()] + sides[(i - 1) / words.size()]);
        row.set("codparoquia", ownCode);
        row.set("prioridade", 1);
        row.update();
    }
}

QString typeOf(const Card& card)
{
    return QString(card.birth.isValid() ? card.death.isValid() ? "4" : "1" : card.death.isValid() ? "2" : "3");
}

void putBirth(jet::Recordset& row, const Card& card, const Bdp& bdp)
{
    demo::put(row, "datanasc", card.birth);
    row.set("DnascFixa", card.birthIsExact);
    if (!card.birthIsExact) return;
    demo::put(row, "localnasc", "tipolocalnasc", placeOf(card.birthLocality));
    constexpr int lawful = 1, exposed = 6;
    const bool hasFather = bdp.family(card.origin).husband != 0;
    row.set("filiacao", card.foundling ? exposed : hasFather ? lawful : natural);
}

void putDeath(jet::Recordset& row, const Card& card)
{
    demo::put(row, "dataobito", card.death);
    row.set("dobitofixa", card.death.isValid());
    row.set("menor", card.minor);
    row.set("testam", false);
    row.set("escrit", false);
    if (!card.death.isValid()) return;
    demo::put(row, "localobito", "tipolocalobito", placeOf(card.deathLocality));
    if (card.ageAtDeath >= 0) row.set("idadeobito", card.ageAtDeath);
    demo::put(row, "estadoobito", card.stateAtDeath);
}

void writePeople(const Bdp& bdp, jet::Connection& connection)
{
    jet::Recordset row(connection, "select * from individuo");
    for (const Card& card : bdp.people) {
        if (card.number == 0) continue;
        row.addNew();
        row.set("nind", card.number);
        row.set("nome", card.name);
        row.set("tipo", typeOf(card));
        row.set("sexo", card.male ? "m" : "f");
        demo::put(row, "famorig", card.origin);
        demo::put(row, "alcunha", card.nickname);
        if (card.priest) row.set("titulo", "Padre");
        demo::put(row, "primpadrebapt", card.baptisedBy);
        demo::put(row, "primpadreobito", card.buriedBy);
        demo::put(row, "inicioobs", card.birth);
        demo::put(row, "fimobs", card.death);
        putBirth(row, card, bdp);
        putDeath(row, card);
        demo::put(row, "obs", card.notes.join(' '));
        row.update();
    }
}

void writeSpouses(const FamilyCard& family, const Bdp& bdp, jet::Recordset& row)
{
    for (const int side : {0, 1}) {
        const Number number = side == 0 ? family.husband : family.wife;
        if (number == 0) continue;
        row.addNew();
        row.set("nfamilia", family.number);
        row.set("nind", number);
        if (family.wedding.isValid()) {
            if (family.ages[side] > 0) row.set("idade", family.ages[side]);
            demo::put(row, "estadocivil", family.states[side]);
            const std::vector<Number>& unions = bdp.person(number).unions;
            const auto at = std::ranges::find(unions, family.number) - unions.begin();
            row.set("numcasam", static_cast<int>(at) + 1);
        }
        row.update();
    }
}

QString typeOf(const FamilyCard& family, const Bdp& bdp)
{
    const Card& husband = bdp.person(family.husband);
    const Card& wife = bdp.person(family.wife);
    return tipoDaFamilia({.nascimentoDaMae = wife.birth.isValid(),
                          .obitos = husband.death.isValid() && wife.death.isValid(),
                          .casamento = family.wedding.isValid(),
                          .nascimentosDosFilhos = true});
}

void writeFamilies(const Bdp& bdp, jet::Connection& connection)
{
    jet::Recordset row(connection, "select * from familia"), spouses(connection, "select * from familias");
    for (const FamilyCard& family : bdp.families) {
        if (family.number == 0) continue;
        row.addNew();
        row.set("nfamilia", family.number);
        row.set("sfamilia", QString::number(family.husband == 0 ? motherAlone : 1));
        row.set("tipocasal", typeOf(family, bdp));
        demo::put(row, "datacasam", family.wedding);
        row.set("dcasamfixa", family.wedding.isValid());
        demo::put(row, "primpadrecasam", family.priest);
        if (family.wedding.isValid()) demo::put(row, "localcasam", "tipolocalcasam", placeOf(0));
        demo::put(row, "inicioobs", family.wedding);
        row.update();
        writeSpouses(family, bdp, spouses);
    }
}

demo::Records records(const Bdp& bdp)
{
    demo::Records all;
    all.assistances.reserve(static_cast<qsizetype>(bdp.assistants.size()));
    for (const AssistantCard& one : bdp.assistants) {
        demo::Assistance row{
            .day = one.day, .godparent = one.atBaptism, .person = Nind(one.person), .civilState = one.state};
        if (one.atBaptism)
            row.baptized = Nind(one.entity);
        else
            row.wedded = Nfam(one.entity);
        all.assistances << row;
    }
    all.residences.reserve(static_cast<qsizetype>(bdp.residences.size()));
    for (const ResidenceCard& one : bdp.residences)
        all.residences << demo::Residence{.person = one.person != 0 ? Nind(one.person) : Nind(),
                                          .family = one.family != 0 ? Nfam(one.family) : Nfam(),
                                          .sighting = {{one.day, true}},
                                          .place = placeOf(one.locality)};
    all.professions.reserve(static_cast<qsizetype>(bdp.trades.size()));
    for (const TradeCard& one : bdp.trades)
        all.professions << demo::Profession{
            .person = Nind(one.person), .sighting = {{one.day, true}}, .code = one.trade};
    return all;
}

} // namespace

void write(const Bdp& bdp, const World& world, jet::Connection& connection)
{
    connection.beginTrans();
    writePlaces(world.localities, connection);
    writePeople(bdp, connection);
    writeFamilies(bdp, connection);
    demo::writeRecords(records(bdp), connection);
    connection.commitTrans();
}

} // namespace truth
