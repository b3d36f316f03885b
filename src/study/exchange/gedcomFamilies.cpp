// A family: the couple, the children, the marriage.
#include "study/exchange/gedcom_p.h"

#include "study/parish/codes.h"

#include <algorithm>
#include <array>

namespace study::exchange {

namespace {

constexpr int husband = 0, wife = 1;

constexpr auto familySelect =
    "select f.nfamilia, f.sfamilia, f.datacasam, f.dcasamfixa, f.localcasam, f.tipolocalcasam, "
    "f.inicioobs, f.fimobs, f.obs, f.rpCas, f.primpadrecasam, p.nind, f.segpadrecasam, q.nind, f.funcprimpcasam, "
    "f.funcsegpcasam from familia f left join individuo p on p.nind = f.primpadrecasam "
    "left join individuo q on q.nind = f.segpadrecasam order by f.nfamilia";

} // namespace

struct GedcomWriter::FamilyCard
{
    explicit FamilyCard(const jet::Rows& row)
        : number(row.number(0)), situation(row.text(1)), marriage(dateAt(row, 2)), place(placeAt(row, 4)),
          observedFrom(row.date(6)), observedUntil(row.date(7)), notes(row.text(8)),
          file(row.text(9)), priests{linkAt(row, 10), linkAt(row, 12)}, functions{codeAt(row, 14), codeAt(row, 15)}
    {
    }

    qint64 number;
    QString situation;
    parish::Date marriage;
    parish::Place place;
    QDate observedFrom, observedUntil;
    QString notes, file;
    Link priests[2];
    parish::Code functions[2];
};

struct GedcomWriter::OfFamilies
{
    explicit OfFamilies(const jet::Connection& bdp);

    OwnedRows members, children, witnesses, residences, acts;
};

// Both places of a couple in GEDCOM; what a note tells of them.
struct GedcomWriter::Couple
{
    struct Spouse
    {
        qint64 number = 0;
        QString sex = {};
        parish::Code age = {}, state = {}, order = {};
        bool diedSingle = false; // by the act of the death
    };
    std::array<std::optional<Spouse>, 2> spouses = {};
    QStringList notes = {};
};

GedcomWriter::OfFamilies::OfFamilies(const jet::Connection& bdp)
    : members(bdp, "select m.nfamilia, m.nind, i.nind, i.sexo, m.idade, m.estadocivil, m.numcasam, "
                   "i.estadoobito from familias m "
                   "left join individuo i on i.nind = m.nind order by m.nfamilia, m.nind"),
      children(bdp, "select famorig, nind from individuo where famorig is not null "
                    "order by famorig, datanasc is null, datanasc, nind"),
      witnesses(bdp, QString("select s.entidade, s.nind, a.nind, a.sexo, s.tipoassistente, s.estadocivil, "
                             "s.falecidopai, s.falecidomae, s.parentbapt, s.parentnoivo, s.parentnoiva, s.obs "
                             "from assistente s left join individuo a on a.nind = s.nind "
                             "where s.tipoacto = 'c' order by s.entidade, s.dataref, s.nind, s.rowid")),
      residences(bdp, "select numero, dataref, datafixa, localresid, tipolocal, fonte, obs from residencia "
                      "where tiporesid = 'f' order by numero, dataref"),
      acts(bdp, actsOfFamilies(bdp))
{
}

// By sex: who is 'm' is the husband, anybody else the wife; who finds that place taken, stands in the other one.
GedcomWriter::Couple GedcomWriter::coupleOf(const FamilyCard& card, OfFamilies& rows)
{
    Couple couple;
    while (rows.members.next(card.number)) {
        const jet::Rows& row = rows.members.row();
        const Link member = linkAt(row, 1);
        if (!member.isThere) {
            ++counts_.lostLinks;
            continue;
        }
        const QString sex = row.text(3).toLower();
        const std::size_t own = sex == "m" ? husband : wife, other = own == husband ? wife : husband;
        const bool isTaken = couple.spouses[own].has_value();
        if (isTaken && couple.spouses[other]) {
            if (!withheld_.contains(member.number))
                couple.notes << QString("Também da família: a pessoa %1").arg(member.number);
            continue;
        }
        couple.spouses[isTaken ? other : own] = Couple::Spouse{.number = member.number,
                                                               .sex = sex,
                                                               .age = codeAt(row, 4),
                                                               .state = codeAt(row, 5),
                                                               .order = codeAt(row, 6),
                                                               .diedSingle = codeAt(row, 7) == parish::civil::single};
        if (isTaken)
            couple.notes << QString("A pessoa %1 está no lugar %2, que não é o do seu sexo: o outro está tomado")
                                .arg(member.number)
                                .arg(own == husband ? "da mulher" : "do marido");
    }
    return couple;
}

std::vector<qint64> GedcomWriter::childrenOf(const FamilyCard& card, OfFamilies& rows) const
{
    std::vector<qint64> children;
    while (rows.children.next(card.number))
        if (const qint64 child = rows.children.row().number(1); !withheld_.contains(child)) children.push_back(child);
    return children;
}

// Of a couple of whom one may be alive, the links alone are written.
void GedcomWriter::writeFamily(const FamilyCard& card, OfFamilies& rows)
{
    const Couple couple = coupleOf(card, rows);
    const std::vector<qint64> children = childrenOf(card, rows);
    const auto isShown = [&](std::size_t place) {
        return couple.spouses[place] && !withheld_.contains(couple.spouses[place]->number);
    };
    const bool isWithheld = withheldFamilies_.contains(card.number);
    if (isWithheld) ++counts_.withheldFamilies;
    if (isWithheld && children.empty() && !isShown(husband) && !isShown(wife)) return;
    lines_.record(familyXref(card.number), "FAM");
    if (isShown(husband)) lines_.pointer(1, "HUSB", personXref(couple.spouses[husband]->number));
    if (isShown(wife)) lines_.pointer(1, "WIFE", personXref(couple.spouses[wife]->number));
    for (const qint64 child : children)
        lines_.pointer(1, "CHIL", personXref(child));
    if (!isWithheld) {
        writeMarriage(card, couple, rows);
        writeResidences(card.number, rows);
        QStringList notes = couple.notes;
        if (!card.notes.trimmed().isEmpty()) notes << card.notes;
        writeNotes(1, notes);
    }
    writeNumbers("nfamilia", card.number);
    kept_.clear(); // in 5.5.1 they stand with the wife
    writePictureRecords();
    ++counts_.families;
}

std::vector<Association> GedcomWriter::marriageAssociations(const FamilyCard& card, OfFamilies& rows) const
{
    std::vector<Association> all;
    while (rows.witnesses.next(card.number))
        all.push_back(assistantAt(rows.witnesses.row(), false));
    for (int i = 0; i < 2; ++i)
        if (card.priests[i].number != 0) all.push_back(priest(card.priests[i], card.functions[i]));
    return all;
}

// Of a union that is no marriage, 7.0 has it that there never was one where one of the couple has died single. 5.5.1
// has associations of people alone: those of a marriage stand with the wife, or with who stands in her place
// (keepMarriageAssociations); a family without a couple tells of them in a note.
void GedcomWriter::writeMarriage(const FamilyCard& card, const Couple& couple, OfFamilies& rows)
{
    const QString page = rows.acts.next(card.number) ? pageAt(rows.acts.row()) : QString();
    const MarriageTold told = marriageOf(card.situation);
    Event marriage{.tag = "MARR", .date = gedcomDate(card.marriage), .place = card.place, .act = "do casamento"};
    if (told == MarriageTold::Never) {
        marriage.tag = "EVEN";
        marriage.text = marriage.type = "União";
    }
    const std::vector<Association> associations = marriageAssociations(card, rows);
    const bool hasBearer = couple.spouses[husband] || couple.spouses[wife];
    if (!lines_.is551() || (hasBearer && options_.associationsTwice))
        marriage.associations = associations;
    else if (!hasBearer)
        for (const Association& one : associations)
            if (canBeLinked(one.who)) addTold(marriage.notes, one.phrase, QString("pessoa %1").arg(one.who.number));
    marriage.picture = {relativePath(card.file, folder_), "OC" + familyXref(card.number)};
    for (std::size_t place : {husband, wife}) {
        if (!couple.spouses[place]) continue;
        const Couple::Spouse& spouse = *couple.spouses[place];
        const QString whose = place == husband ? "do marido" : "da mulher";
        (place == husband ? marriage.husbandAge : marriage.wifeAge) =
            gedcomAge(isTold(spouse.age) ? spouse.age : parish::Code());
        addTold(marriage.notes, "Estado civil " + whose, meaningOf("EstCi", spouse.state));
        if (isTold(spouse.order)) addTold(marriage.notes, "Casamento n.º " + whose, QString::number(*spouse.order));
    }
    marriage.citation = citationOf(Register::Marriages, card.marriage, card.place, page);
    const bool hasAct = card.marriage.isKnown() || card.place.isKnown() || !associations.empty() ||
                        !marriage.notes.isEmpty() || !marriage.husbandAge.isEmpty() || !marriage.wifeAge.isEmpty() ||
                        !marriage.picture.path.isEmpty() || !page.isEmpty();
    if (hasAct || told == MarriageTold::Yes) write(marriage);
    const auto diedSingle = [](const auto& spouse) { return spouse && spouse->diedSingle; };
    const bool neverMarried = told == MarriageTold::Never && std::ranges::any_of(couple.spouses, diedSingle);
    if (neverMarried && !lines_.is551()) lines_.word(1, "NO", "MARR");
    writeFamilyFact("Situação da família", meaningOf("SitFa", card.situation));
    const QByteArray observed = gedcomPeriod(card.observedFrom, card.observedUntil);
    if (!observed.isEmpty()) writeFamilyFact("Observação", "Em observação", observed);
}

void GedcomWriter::writeResidences(qint64 family, OfFamilies& rows)
{
    while (rows.residences.next(family))
        write(residenceAt(rows.residences.row()));
}

void GedcomWriter::writeFamilies()
{
    OfFamilies rows(bdp_);
    const jet::WideView view(bdp_);
    jet::Rows families(bdp_, jet::NativeSql(familySelect));
    while (families.next()) {
        next();
        writeFamily(FamilyCard(families), rows);
    }
}

} // namespace study::exchange
