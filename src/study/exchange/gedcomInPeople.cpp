// A person: name, baptism, links, who stood beside.
#include "study/exchange/gedcomIn_p.h"

#include "study/exchange/gedcomValues.h"

#include <algorithm>

namespace study::exchange {

namespace {

// "João /da Costa/, o Moço" without its slashes. Others write "João/Costa/" as well.
QString plainName(const QString& payload, bool isOurs)
{
    if (isOurs) return QString(payload).remove('/').replace(QChar(0x2215), '/').trimmed();
    QString name;
    for (const QChar letter : payload) {
        const bool isSlash = letter == u'/';
        const bool isBehindSlash = !name.isEmpty() && name.back() == u'\x1f';
        if (isSlash)
            name += u'\x1f';
        else {
            if (isBehindSlash && letter.isLetterOrNumber()) name.back() = u' ';
            name += letter;
        }
    }
    for (qsizetype at = 0; at + 1 < name.size(); ++at)
        if (name[at] == u'\x1f' && name[at + 1].isLetterOrNumber()) name[at] = u' ';
    return name.remove(u'\x1f').simplified();
}

bool hasWords(const QString& name, const QString& piece)
{
    const QStringList words = name.simplified().toLower().split(' ');
    const QStringList wanted = QString(piece).replace(',', ' ').simplified().toLower().split(' ');
    return std::ranges::all_of(wanted, [&](const QString& word) {
        return std::ranges::any_of(words, [&](const QString& one) { return one.startsWith(word); });
    });
}

const std::vector<LabelColumn>& labelsOfName()
{
    static const std::vector<LabelColumn> all{{"Nome completo", "nome", LabelKind::Text},
                                              {"Título", "titulo", LabelKind::Text},
                                              {"Alcunha", "alcunha", LabelKind::Text}};
    return all;
}

} // namespace

PersonIn::PersonIn(GedcomTarget& target, const GedcomNode& record)
    : RecordIn(target, record), seen_(target.index.personAtLine(record.line))
{
    card_.insert("nind", seen_.number);
    own_ << seen_.number;
}

void PersonIn::write()
{
    takeName();
    takeTitles();
    takeSex();
    takeBirth();
    takeDeath();
    takeBurial();
    takeFacts();
    takeLooks();
    addResidences("i", seen_.number);
    takeProfessions();
    takePassports();
    takeWill();
    takeLinks();
    takeAssociations();
    settle();
    finish(card_, reading_.takeNotes(record_));
    target_.rows.add("individuo", card_);
    ++target_.report.people;
}

void PersonIn::takeName()
{
    const GedcomNode* const name = reading_.take(record_, "NAME");
    if (!name) return;
    const bool isOurs = target_.index.isOurs();
    Labelled told = labelled(reading_.takeNotes(*name), labelsOfName());
    if (const QString rest = told.rest.join('\n'); !rest.isEmpty()) note("NAME.NOTE", rest);
    QString shown = plainName(name->value, isOurs);
    if (const QString whole = told.takeValue("Nome completo"); !whole.isEmpty()) shown = whole;
    if (shown.isEmpty()) {
        QStringList pieces{name->text("GIVN"), name->text("SPFX"), name->text("SURN")};
        pieces.removeAll(QString());
        shown = pieces.join(' ').simplified();
    }
    for (const char* const tag : {"GIVN", "SPFX", "SURN", "NSFX"})
        if (const GedcomNode* const piece = name->child(tag); piece && (isOurs || hasWords(shown, piece->value)))
            reading_.take(*piece);
    putText(card_, "nome", shown, "NAME");
    QString title = told.takeValue("Título"), nickname = told.takeValue("Alcunha");
    const QString prefix = reading_.takeText(*name, "NPFX"), nick = reading_.takeText(*name, "NICK");
    if (title.isEmpty()) title = prefix;
    if (nickname.isEmpty()) nickname = nick;
    const auto isInName = [&] {
        return isOurs ? gedcomName(shown, target_.names).titles.join(' ') == title
                      : shown.startsWith(title.simplified() + ' ', Qt::CaseInsensitive);
    };
    if (!title.isEmpty() && !isInName()) putText(card_, "titulo", title, "NAME.NPFX");
    putText(card_, "alcunha", nickname, "NAME.NICK");
}

void PersonIn::takeTitles()
{
    QStringList titles;
    if (card_.contains("titulo")) titles << card_.value("titulo").toString();
    while (const GedcomNode* const title = reading_.take(record_, "TITL")) {
        const EventNotes told = takeEventNotes(*title);
        titles << (told.whole.isEmpty() ? title->value : told.whole);
        if (!told.text.isEmpty()) note("TITL.NOTE", told.text);
    }
    putText(card_, "titulo", titles.join(", "), "TITL");
}

void PersonIn::takeSex()
{
    const QString sex = reading_.takeText(record_, "SEX").trimmed().toUpper();
    card_.insert("sexo", sex == "M" ? "m" : sex == "F" ? "f" : "d");
    if (!sex.isEmpty() && sex != "M" && sex != "F" && sex != "U") note("SEX", sex);
}

// A birth, or the baptism.
struct PersonIn::Beginning
{
    const GedcomNode* node = nullptr;
    parish::Date date = {};
    parish::Place place = {};
};

void PersonIn::readBeginning(Beginning& one, const char* tag)
{
    one.node = reading_.take(record_, tag);
    if (!one.node) return;
    const EventNotes told = takeEventNotes(*one.node);
    one.date = takeDate(*one.node, tag);
    one.place = takePlace(*one.node, tag, told.place);
    if (const QString rest = putLabels(told.text, labelsOfBaptism(), card_, tag); !rest.isEmpty())
        note(QString(tag) + ".NOTE", rest);
    QString picture = takePicture(*one.node);
    if (picture.isEmpty()) picture = told.file;
    if (!picture.isEmpty() && card_.contains("rpbapt")) note(QString(tag) + ".OBJE", picture);
    if (!card_.contains("rpbapt")) putText(card_, "rpbapt", picture, QString(tag) + ".OBJE");
    if (const QString source = takeSource(*one.node); !source.isEmpty()) note(QString(tag) + ".SOUR", source);
}

// The card has one date. Where both are known to the day, the list of baptisms has them.
void PersonIn::takeBirthDate(const Beginning& ceremony, const Beginning& birth)
{
    const bool isBirth = !ceremony.date.isKnown() || (birth.date.isExact() && !ceremony.date.isExact());
    const Beginning& chosen = isBirth ? birth : ceremony;
    const Beginning& other = isBirth ? ceremony : birth;
    birth_ = chosen.date;
    const bool isImplied = other.date.day == chosen.date.day && !other.date.isExact();
    if (birth.date.isExact() && ceremony.date.isExact() && birth.date.day <= ceremony.date.day) {
        target_.baptisms[parish::PersonNumber(seen_.number)] = {birth.date.date(), ceremony.date.date()};
        ++target_.report.baptisms;
    } else if (other.date.isKnown() && !isImplied)
        note(other.node->tag + ".DATE", other.node->text("DATE"));
    putDate(card_, "datanasc", "dnascfixa", birth_);
    const parish::Place place = chosen.place.isKnown() ? chosen.place : other.place;
    putPlace(card_, "localnasc", "tipolocalnasc", place);
    if (other.place.isKnown() && !(other.place == place)) note(other.node->tag + ".PLAC", other.node->text("PLAC"));
}

void PersonIn::takeBirth()
{
    Beginning ceremony, birth;
    const GedcomNode *const christening = record_.child("CHR"), *const baptism = record_.child("BAPM");
    const bool isBaptism = baptism && (!christening || (baptism->child("DATE") && !christening->child("DATE")));
    readBeginning(ceremony, isBaptism ? "BAPM" : "CHR");
    // An export has a birth about the day of its baptism.
    if (const GedcomNode* const node = record_.child("BIRT"); node && ceremony.date.isKnown())
        if (const GedcomNode* const date = node->child("DATE");
            date && date->value.toLatin1() == gedcomDate({ceremony.date.day, parish::Precision::About}))
            reading_.take(*date);
    readBeginning(birth, "BIRT");
    takeBirthDate(ceremony, birth);
    for (const GedcomNode* const event : {ceremony.node, birth.node})
        if (event)
            takeAssociationsOf(
                *event, [](RoleTold role, ActTold) { return role.role != Role::Executor && role.role != Role::Heir; },
                [this](const AssociationTold& one) { standAtBaptism(one); });
}

void PersonIn::standAtBaptism(const AssociationTold& association)
{
    if (association.role.role == Role::Clergy)
        putPriest(card_, {{"primpadrebapt", "funcprimpbapt"}, {"segpadrebapt", "funcsegpbapt"}}, association, "CHR");
    else
        addAssistant({'b', seen_.number, birth_}, association, "CHR.ASSO");
}

void PersonIn::takeLinks()
{
    const qint64 origin = target_.index.originOf(seen_);
    if (origin != 0) card_.insert("famorig", origin);
    bool isTold = false;
    for (const GedcomNode& one : record_.children) {
        if (one.tag == "REFN" && one.text("TYPE") == QLatin1String(personRefn)) reading_.takeWhole(one);
        if ((one.tag != "FAMC" && one.tag != "FAMS") || !one.isPointer || one.isVoid()) continue;
        const GedcomFamilySeen* const family = target_.index.familyNamed(one.value);
        if (!family) {
            ++target_.report.lostLinks;
            problem(one, QString("A família @%1@ não está no ficheiro.").arg(one.value));
            continue;
        }
        if (one.tag == "FAMS" && target_.index.isMember(*family, seen_)) reading_.take(one);
        if (one.tag != "FAMC" || family->number != origin || isTold) continue;
        isTold = true;
        reading_.take(one);
        const GedcomNode* const kind = one.child("PEDI");
        if (!kind) continue;
        const int filiation = filiationOf(kind->value);
        const bool isBirth = kind->value.compare("birth", Qt::CaseInsensitive) == 0;
        if (!card_.contains("filiacao") && filiation != 0) card_.insert("filiacao", filiation);
        if (isBirth || card_.contains("filiacao")) reading_.takeWhole(*kind);
    }
}

// Those of 5.5.1, and of who doesn't tell at which event. Those of marriages are with the families.
void PersonIn::takeAssociations()
{
    for (const GedcomNode& one : record_.children)
        if (one.tag == "ASSO" && target_.index.ofMarriages.contains(one.line)) reading_.takeWhole(one);
    const auto fits = [](RoleTold role, ActTold act) {
        if (role.role == Role::Executor || role.role == Role::Heir) return true;
        return act == ActTold::Baptism || act == ActTold::Burial || (act == ActTold::None && role.isGodparent);
    };
    takeAssociationsOf(record_, fits, [this](const AssociationTold& one) {
        if (one.role.role == Role::Executor && !card_.contains("testamenteiro"))
            card_.insert("testamenteiro", one.who);
        else if (one.role.role == Role::Executor || one.role.role == Role::Heir)
            addBequest(one);
        else if (one.act == ActTold::Burial)
            putPriest(card_, {{"primpadreobito", "funcprimpobito"}}, one, "BURI");
        else
            standAtBaptism(one);
    });
}

// The type of a person follows the dates, as on the card.
void PersonIn::settle()
{
    const bool isBorn = birth_.isKnown(), isDead = death_.isKnown();
    const char* const ofTheDead = isBorn ? "4" : "2";
    const char* const ofOthers = isBorn ? "1" : "3";
    card_.insert("tipo", isDead ? ofTheDead : ofOthers);
    target_.people.insert(seen_.number, {isBorn, isDead, card_.value("sexo") == "f"});
    if (const qint64 origin = target_.index.originOf(seen_); origin != 0) {
        GedcomTarget::Children& children = target_.children[origin];
        ++children.all;
        if (isBorn) ++children.dated;
    }
}

} // namespace study::exchange
