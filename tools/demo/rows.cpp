#include "rows.h"

#include <QHash>

namespace demo {
namespace {

// The next running number of each person, as the windows give it: the last one and one more.
class Numbering
{
public:
    int next(Nind person) { return ++last_[person]; }

private:
    QHash<Nind, int> last_;
};

// One row of the table for each record, with what `fill` puts into it.
template <class Record, class Fill>
void writeAll(const QList<Record>& records, jet::Connection& bdp, const char* table, Fill fill)
{
    jet::Recordset row(bdp, QStringLiteral("select * from ") + table);
    Numbering numbering;
    for (const Record& record : records) {
        row.addNew();
        fill(row, record, numbering);
        row.update();
    }
}

void putSighting(jet::Recordset& row, const Sighting& sighting)
{
    put(row, "dataref", "datafixa", sighting.date);
    put(row, "fonte", sighting.source);
}

void fillAssistance(jet::Recordset& row, const Assistance& one, Numbering&)
{
    put(row, "entidade", one.baptized);
    put(row, "entidade", one.wedded);
    row.set("dataref", one.day);
    row.set("tipoacto", one.baptized ? "b" : "c");
    put(row, "nind", one.person);
    row.set("tipoassistente", one.godparent ? "p" : "t");
    put(row, "estadocivil", one.civilState);
    row.set("falecidopai", one.fatherDead);
    row.set("falecidomae", one.motherDead);
    put(row, "parentbapt", one.kinToBaptized);
    put(row, "parentnoivo", one.kinToGroom);
    put(row, "parentnoiva", one.kinToBride);
    put(row, "obs", one.notes);
}

void fillResidence(jet::Recordset& row, const Residence& one, Numbering&)
{
    put(row, "numero", one.person);
    put(row, "numero", one.family);
    row.set("tiporesid", one.family ? "f" : "i");
    putSighting(row, one.sighting);
    put(row, "localresid", "tipolocal", one.place);
    put(row, "obs", one.notes);
}

void fillProfession(jet::Recordset& row, const Profession& one, Numbering& numbering)
{
    put(row, "nind", one.person);
    row.set("idprofissao", numbering.next(one.person));
    putSighting(row, one.sighting);
    row.set("codprof", one.code);
}

void fillSignature(jet::Recordset& row, const Signature& one, Numbering& numbering)
{
    put(row, "nind", one.person);
    row.set("idassinatura", numbering.next(one.person));
    putSighting(row, one.sighting);
    put(row, "idade", one.age);
    row.set("nivelassinatura", one.level);
    put(row, "assina", one.text);
    put(row, "funcao", one.function);
}

void fillLegacy(jet::Recordset& row, const Legacy& one, Numbering& numbering)
{
    put(row, "nind", one.testator);
    row.set("idlegprof", numbering.next(one.testator));
    put(row, "nindherd", one.heir);
    put(row, "parentesco", one.kinship);
    put(row, "bensmoveis", one.movables);
    put(row, "bensraiz", one.lands);
    put(row, "obs", one.notes);
}

void fillSuffrage(jet::Recordset& row, const Suffrage& one, Numbering& numbering)
{
    put(row, "nind", one.person);
    row.set("idlegpio", numbering.next(one.person));
    row.set("tipolegpio", one.kind);
    row.set("tipo", one.type);
    put(row, "quantidade", one.quantity);
    put(row, "valorunit", one.unitValue);
    row.set("tipoMoeda", "Re");
    put(row, "destino", one.destination);
    put(row, "numpadres", one.priests);
    put(row, "valortotal", one.total);
}

void fillPassport(jet::Recordset& row, const Passport& one, Numbering&)
{
    put(row, "nind", one.person);
    row.set("nPass", one.number);
    row.set("dataref", one.day);
    put(row, "localdestino", "tipolocaldest", one.destination);
    put(row, "obs", one.notes);
}

} // namespace

void writeRecords(const Records& records, jet::Connection& bdp)
{
    writeAll(records.assistances, bdp, "assistente", fillAssistance);
    writeAll(records.residences, bdp, "residencia", fillResidence);
    writeAll(records.professions, bdp, "profissoes", fillProfession);
    writeAll(records.signatures, bdp, "assinatura", fillSignature);
    writeAll(records.legacies, bdp, "legadosprofanos", fillLegacy);
    writeAll(records.suffrages, bdp, "rituaismorte", fillSuffrage);
    writeAll(records.passports, bdp, "passaporte", fillPassport);
}

} // namespace demo
