// A family: the couple, the children, the marriage.
#include "study/exchange/gedcomIn_p.h"

#include "study/parish/codes.h"

#include <QRegularExpression>

#include <algorithm>

namespace study::exchange {

namespace {

const std::vector<LabelColumn>& labelsOfMarriage()
{
    static const std::vector<LabelColumn> all{{"Estado civil do marido", "", LabelKind::Text},
                                              {"Casamento n.º do marido", "", LabelKind::Text},
                                              {"Estado civil da mulher", "", LabelKind::Text},
                                              {"Casamento n.º da mulher", "", LabelKind::Text}};
    return all;
}

} // namespace

FamilyIn::FamilyIn(GedcomTarget& target, const GedcomNode& record)
    : RecordIn(target, record), seen_(target.index.familyAtLine(record.line))
{
    card_.insert("nfamilia", seen_.number);
}

void FamilyIn::write()
{
    takeMembers();
    takeChildren();
    takeMarriage();
    takeFacts();
    addResidences("f", seen_.number);
    // What an export says of the two places of GEDCOM, and of further members, by their numbers of then.
    static const QRegularExpression ofPlaces(QString::fromUtf8(
        R"((?:^|\n)A pessoa \d+ está no lugar (?:da mulher|do marido), que não é o do seu sexo: o outro está tomado(?=\n|$))"));
    QString own = reading_.takeNotes(record_);
    if (target_.index.isOurs()) {
        own.remove(ofPlaces);
        if (own.startsWith('\n')) own.remove(0, 1);
    }
    finish(card_, own);
    target_.rows.add("familia", card_);
    for (const RowValues& member : members_)
        target_.rows.add("familias", member);
    target_.families.insert(seen_.number, {.birth = marriage_.isKnown()});
    ++target_.report.families;
}

void FamilyIn::takeMembers()
{
    for (const int member : seen_.members)
        members_.push_back(
            {{"nfamilia", seen_.number}, {"nind", target_.index.people[static_cast<std::size_t>(member)].number}});
    for (const RowValues& member : members_)
        own_ << member.value("nind").toLongLong();
    for (const GedcomNode& one : record_.children) {
        if (one.tag == "REFN" && one.text("TYPE") == QLatin1String(familyRefn)) reading_.takeWhole(one);
        if ((one.tag != "HUSB" && one.tag != "WIFE") || !one.isPointer || one.isVoid()) continue;
        const qint64 number = personOf(one);
        const auto row = std::ranges::find_if(
            members_, [&](const RowValues& member) { return number != 0 && member.value("nind") == number; });
        if (row == members_.end()) continue;
        const int index = static_cast<int>(row - members_.begin());
        int& place = one.tag == "HUSB" ? husband_ : wife_;
        if (index == (one.tag == "HUSB" ? wife_ : husband_)) continue; // nobody is both
        reading_.take(one);
        if (place < 0) place = index;
    }
}

void FamilyIn::takeChildren()
{
    for (const GedcomNode& one : record_.children) {
        if (one.tag != "CHIL" || !one.isPointer || one.isVoid()) continue;
        const GedcomPersonSeen* const child = target_.index.personNamed(one.value);
        if (!child)
            personOf(one);
        else if (target_.index.originOf(*child) == seen_.number)
            reading_.take(one);
    }
}

void FamilyIn::takeMarriage()
{
    const GedcomNode* event = reading_.take(record_, "MARR");
    for (const GedcomNode& one : record_.children)
        if (!event && one.tag == "EVEN" && one.text("TYPE") == QString::fromUtf8("União")) {
            event = &one;
            reading_.take(one);
            reading_.takeText(one, "TYPE");
        }
    card_.insert("dcasamfixa", false);
    if (event) takeMarriageOf(*event);
    const auto fits = [](RoleTold role, ActTold) { return role.role != Role::Executor && role.role != Role::Heir; };
    const auto stand = [this](const AssociationTold& one) {
        if (one.role.role == Role::Clergy)
            putPriest(card_, {{"primpadrecasam", "funcprimpcasam"}, {"segpadrecasam", "funcsegpcasam"}}, one, "MARR");
        else
            addAssistant({'c', seen_.number, marriage_}, one, "MARR.ASSO");
    };
    if (event) takeAssociationsOf(*event, fits, stand);
    for (const GedcomNode& one : seen_.associations) {
        if (const auto association = takeAssociation(one, nullptr)) stand(*association);
        tellLeft(one, "ASSO");
    }
}

void FamilyIn::takeMarriageOf(const GedcomNode& event)
{
    const EventNotes told = takeEventNotes(event);
    marriage_ = takeDate(event, event.tag);
    putDate(card_, "datacasam", "dcasamfixa", marriage_);
    putPlace(card_, "localcasam", "tipolocalcasam", takePlace(event, event.tag, told.place));
    const QString picture = takePicture(event);
    putText(card_, "rpcas", picture.isEmpty() ? told.file : picture, event.tag + ".OBJE");
    if (const QString source = takeSource(event); !source.isEmpty()) note(event.tag + ".SOUR", source);
    if (!target_.index.isOurs()) card_.insert("sfamilia", parish::situation::legitimate);
    takeSpouses(event);
    Labelled labels = labelled(told.text, labelsOfMarriage());
    for (const auto& [index, whose] : {std::pair(husband_, "do marido"), std::pair(wife_, "da mulher")}) {
        const QString state = labels.values.value(QString("Estado civil %1").arg(whose));
        const QString order = labels.values.value(QString::fromUtf8("Casamento n.º %1").arg(whose));
        RowValues* const row = index < 0 ? nullptr : &members_[static_cast<std::size_t>(index)];
        if (!state.isEmpty() && !(row && putCode(*row, "estadocivil", "EstCi", state)))
            note(event.tag + ".NOTE", QString("Estado civil %1: %2").arg(whose, state));
        bool isNumber = false;
        const int number = order.toInt(&isNumber);
        if (row && isNumber)
            row->insert("numcasam", number);
        else if (!order.isEmpty())
            note(event.tag + ".NOTE", QString::fromUtf8("Casamento n.º %1: %2").arg(whose, order));
    }
    if (!labels.rest.isEmpty()) note(event.tag + ".NOTE", labels.rest.join('\n'));
}

void FamilyIn::takeSpouses(const GedcomNode& event)
{
    for (const auto& [tag, index] : {std::pair("HUSB", husband_), std::pair("WIFE", wife_)}) {
        const GedcomNode* const spouse = event.child(tag);
        if (!spouse || index < 0) continue;
        reading_.take(*spouse);
        if (const parish::Code age = takeAge(*spouse, event.tag + '.' + tag))
            members_[static_cast<std::size_t>(index)].insert("idade", *age);
    }
}

void FamilyIn::takeFacts()
{
    bool isSituationTold = false;
    for (const GedcomNode& fact : record_.children) {
        // Of an export it follows from the situation of the family and from how one of the couple has died.
        if (fact.tag == "NO" && fact.value == "MARR" && target_.index.isOurs()) reading_.take(fact);
        if ((fact.tag != "FACT" && fact.tag != "EVEN") || reading_.isTaken(fact)) continue;
        const QString type = fact.text("TYPE");
        bool isTaken = false;
        if (type == QString::fromUtf8("Situação da família")) {
            isTaken = !isSituationTold && putCode(card_, "sfamilia", "SitFa", fact.value);
            isSituationTold = isSituationTold || isTaken;
        } else if (type == QString::fromUtf8("Observação"))
            isTaken = takeObservation(fact, card_);
        if (!isTaken) continue;
        reading_.take(fact);
        reading_.takeText(fact, "TYPE");
    }
}

} // namespace study::exchange
