#include "rows.h"

#include <QHash>

namespace demo {
namespace {

// The next running number of each person, as the windows give it: the last one and one more.
class Numbering
{
public:
    int next(int person) { return ++last_[person]; }

private:
    QHash<int, int> last_;
};

void putSighting(jet::Recordset& row, const Sighting& sighting)
{
    row.set("dataref", sighting.day);
    row.set("datafixa", sighting.exact);
    put(row, "fonte", sighting.source);
}

void writeAssistances(const QList<Assistance>& assistances, jet::Connection& bdp)
{
    jet::Recordset row(bdp, "select * from assistente");
    for (const Assistance& one : assistances) {
        row.addNew();
        row.set("entidade", one.entity);
        row.set("dataref", one.day);
        row.set("tipoacto", one.act == Act::baptism ? "b" : "c");
        row.set("nind", one.person);
        row.set("tipoassistente", one.godparent ? "p" : "t");
        put(row, "estadocivil", one.civilState);
        row.set("falecidopai", one.fatherDead);
        row.set("falecidomae", one.motherDead);
        put(row, "parentbapt", one.kinToBaptized);
        put(row, "parentnoivo", one.kinToGroom);
        put(row, "parentnoiva", one.kinToBride);
        put(row, "obs", one.notes);
        row.update();
    }
}

void writeResidences(const QList<Residence>& residences, jet::Connection& bdp)
{
    jet::Recordset row(bdp, "select * from residencia");
    for (const Residence& one : residences) {
        row.addNew();
        row.set("numero", one.owner);
        row.set("tiporesid", one.ofFamily ? "f" : "i");
        putSighting(row, one.sighting);
        put(row, "localresid", "tipolocal", one.place);
        put(row, "obs", one.notes);
        row.update();
    }
}

void writeProfessions(const QList<Profession>& professions, jet::Connection& bdp)
{
    jet::Recordset row(bdp, "select * from profissoes");
    Numbering numbering;
    for (const Profession& one : professions) {
        row.addNew();
        row.set("nind", one.person);
        row.set("idprofissao", numbering.next(one.person));
        putSighting(row, one.sighting);
        row.set("codprof", one.code);
        row.update();
    }
}

void writeSignatures(const QList<Signature>& signatures, jet::Connection& bdp)
{
    jet::Recordset row(bdp, "select * from assinatura");
    Numbering numbering;
    for (const Signature& one : signatures) {
        row.addNew();
        row.set("nind", one.person);
        row.set("idassinatura", numbering.next(one.person));
        putSighting(row, one.sighting);
        put(row, "idade", one.age);
        row.set("nivelassinatura", one.level);
        put(row, "assina", one.text);
        put(row, "funcao", one.function);
        row.update();
    }
}

void writeLegacies(const QList<Legacy>& legacies, jet::Connection& bdp)
{
    jet::Recordset row(bdp, "select * from legadosprofanos");
    Numbering numbering;
    for (const Legacy& one : legacies) {
        row.addNew();
        row.set("nind", one.testator);
        row.set("idlegprof", numbering.next(one.testator));
        put(row, "nindherd", one.heir);
        put(row, "parentesco", one.kinship);
        put(row, "bensmoveis", one.movables);
        put(row, "bensraiz", one.lands);
        put(row, "obs", one.notes);
        row.update();
    }
}

void writeSuffrages(const QList<Suffrage>& suffrages, jet::Connection& bdp)
{
    jet::Recordset row(bdp, "select * from rituaismorte");
    Numbering numbering;
    for (const Suffrage& one : suffrages) {
        row.addNew();
        row.set("nind", one.person);
        row.set("idlegpio", numbering.next(one.person));
        row.set("tipolegpio", one.kind);
        row.set("tipo", one.type);
        put(row, "quantidade", one.quantity);
        put(row, "valorunit", one.unitValue);
        row.set("tipoMoeda", "Re");
        put(row, "destino", one.destination);
        put(row, "numpadres", one.priests);
        put(row, "valortotal", one.total);
        row.update();
    }
}

void writePassports(const QList<Passport>& passports, jet::Connection& bdp)
{
    jet::Recordset row(bdp, "select * from passaporte");
    for (const Passport& one : passports) {
        row.addNew();
        row.set("nind", one.person);
        row.set("nPass", one.number);
        row.set("dataref", one.day);
        put(row, "localdestino", "tipolocaldest", one.destination);
        put(row, "obs", one.notes);
        row.update();
    }
}

} // namespace

void writeRecords(const Records& records, jet::Connection& bdp)
{
    writeAssistances(records.assistances, bdp);
    writeResidences(records.residences, bdp);
    writeProfessions(records.professions, bdp);
    writeSignatures(records.signatures, bdp);
    writeLegacies(records.legacies, bdp);
    writeSuffrages(records.suffrages, bdp);
    writePassports(records.passports, bdp);
}

} // namespace demo
