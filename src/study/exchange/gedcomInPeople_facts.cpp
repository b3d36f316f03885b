// Of a person: death and burial, facts, what is dated, the will.
#include "study/exchange/gedcomIn_p.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <cmath>

namespace study::exchange {

void PersonIn::takeDeath()
{
    const GedcomNode* const event = reading_.take(record_, "DEAT");
    card_.insert("dobitofixa", false);
    if (!event) return;
    const EventNotes told = takeEventNotes(*event);
    death_ = takeDate(*event, "DEAT");
    putDate(card_, "dataobito", "dobitofixa", death_);
    putPlace(card_, "localobito", "tipolocalobito", takePlace(*event, "DEAT", told.place));
    const QString cause = reading_.takeText(*event, "CAUS");
    putText(card_, "causa", told.cause.isEmpty() ? cause : told.cause, "DEAT.CAUS");
    if (const parish::Code age = takeAge(*event, "DEAT")) card_.insert("idadeobito", *age);
    const QString picture = takePicture(*event);
    putText(card_, "rpobi", picture.isEmpty() ? told.file : picture, "DEAT.OBJE");
    if (const QString source = takeSource(*event); !source.isEmpty()) note("DEAT.SOUR", source);
    if (const QString rest = takeSuffrages(told.text, "DEAT"); !rest.isEmpty()) note("DEAT.NOTE", rest);
}

void PersonIn::takeBurial()
{
    const GedcomNode* const event = reading_.take(record_, "BURI");
    if (!event) return;
    const EventNotes told = takeEventNotes(*event);
    if (const QString rest = putLabels(told.text, labelsOfBurial(), card_, "BURI"); !rest.isEmpty())
        note("BURI.NOTE", rest);
    const parish::Date date = takeDate(*event, "BURI");
    if (date.isKnown() && !death_.isKnown()) {
        death_ = date;
        putDate(card_, "dataobito", "dobitofixa", death_);
    }
    if (const QString told551 = "BURI.DATE: " + event->text("DATE"); date.isKnown() && !notes_.contains(told551))
        note("BURI.DATE", event->text("DATE"));
    if (const GedcomNode* const place = event->child("PLAC"); place && !card_.contains("enterro")) {
        reading_.takeWhole(*place);
        putText(card_, "enterro", place->value.simplified(), "BURI.PLAC");
    }
    takeAssociationsOf(
        *event, [](RoleTold role, ActTold) { return role.role == Role::Clergy; },
        [this](const AssociationTold& one) {
            putPriest(card_, {{"primpadreobito", "funcprimpobito"}}, one, "BURI");
        });
}

void PersonIn::takeFacts()
{
    for (const GedcomNode& fact : record_.children)
        if ((fact.tag == "FACT" || fact.tag == "EVEN") && !reading_.isTaken(fact)) takeFact(fact);
}

void PersonIn::takeFact(const GedcomNode& fact)
{
    const QString type = fact.text("TYPE");
    if (type == "Assinatura") return takeSignature(fact);
    const bool isOurs = target_.index.isOurs();
    const auto taken = [&] {
        reading_.take(fact);
        reading_.takeText(fact, "TYPE");
        if (const GedcomNode* const date = fact.child("DATE"); date && isOurs) reading_.take(*date);
    };
    if (type == "Menor" && fact.value == "Sim") {
        card_.insert("menor", true);
        return taken();
    }
    if (type == QString::fromUtf8("Observação")) {
        if (takeObservation(fact, card_)) taken();
        return;
    }
    const FactColumn* const column = factColumnOf(type);
    if (column && !card_.contains(column->column) && putCode(card_, column->column, column->category, fact.value))
        taken();
}

void PersonIn::takeSignature(const GedcomNode& fact)
{
    static const QRegularExpression form(QString::fromUtf8(R"(^Assina(?:, nível (-?\d{1,9}))?$)"));
    const auto match = form.match(fact.value);
    reading_.take(fact);
    reading_.takeText(fact, "TYPE");
    const EventNotes told = takeEventNotes(fact);
    RowValues row{{"nind", seen_.number}, {"idassinatura", ++signatures_}};
    putDate(row, "dataref", "datafixa", takeDate(fact, "FACT"));
    if (const parish::Code age = takeAge(fact, "FACT")) row.insert("idade", *age);
    if (match.hasMatch() && !match.captured(1).isEmpty()) row.insert("nivelassinatura", match.captured(1).toInt());
    const QString picture = takePicture(fact);
    putText(row, "assinatura", picture.isEmpty() ? told.file : picture, "FACT.OBJE");
    putText(row, "fonte", takeSource(fact), "FACT.SOUR");
    QString notes = putLabels(told.text, labelsOfSignature(), row, "FACT");
    if (!match.hasMatch() && !fact.value.isEmpty()) notes = notes.isEmpty() ? fact.value : fact.value + '\n' + notes;
    putText(row, "obs", notes, "FACT.NOTE");
    target_.rows.add("assinatura", row);
}

void PersonIn::takeLooks()
{
    QStringList looks;
    while (const GedcomNode* const told = reading_.take(record_, "DSCR"))
        looks << putLabels(told->value, labelsOfLooks(), card_, "DSCR");
    looks.removeAll(QString());
    putText(card_, "cfisicas", looks.join('\n'), "DSCR");
}

void PersonIn::takeProfessions()
{
    for (const GedcomNode& event : record_.children) {
        if (event.tag != "OCCU" || reading_.isTaken(event)) continue;
        const EventNotes told = takeEventNotes(event);
        const QString name = told.whole.isEmpty() ? event.value : told.whole;
        const bool isUntold = target_.index.isOurs() && name == "Por dizer";
        const bool isLost = target_.index.isOurs() && name.startsWith('(') && name.endsWith(')');
        const auto code = isUntold || isLost ? std::nullopt : target_.words.profession(name);
        reading_.take(event);
        RowValues row{{"nind", seen_.number}, {"idprofissao", ++professions_}};
        putDate(row, "dataref", "datafixa", takeDate(event, "OCCU"));
        if (code) row.insert("codprof", *code);
        putText(row, "fonte", takeSource(event), "OCCU.SOUR");
        QStringList notes{code || isUntold ? QString() : name, told.text};
        notes.removeAll(QString());
        putText(row, "obs", notes.join('\n'), "OCCU.NOTE");
        if (!code && !isUntold) ++target_.report.toNotes["INDI.OCCU"];
        target_.rows.add("profissoes", row);
    }
}

// The number of the paper is part of the key: what has none goes to the notes.
void PersonIn::takePassports()
{
    static const QRegularExpression form(QString::fromUtf8(R"(^Passaporte n\.º: (\d{1,15})$)"));
    QSet<qint64> numbers;
    for (const GedcomNode& event : record_.children) {
        if (event.tag != "EMIG" || reading_.isTaken(event)) continue;
        const auto match = form.match(event.text("NOTE").section('\n', 0, 0));
        const qint64 number = match.captured(1).toLongLong();
        if (!match.hasMatch() || numbers.contains(number)) continue;
        numbers.insert(number);
        reading_.take(event);
        reading_.takeText(event, "TYPE");
        const EventNotes told = takeEventNotes(event);
        RowValues row{{"nind", seen_.number}, {"npass", number}};
        const parish::Date date = takeDate(event, "EMIG");
        if (date.isKnown()) row.insert("dataref", date.date());
        putPlace(row, "localdestino", "tipolocaldest", takePlace(event, "EMIG", told.place));
        putText(row, "obs", told.text.section('\n', 1), "EMIG.NOTE");
        target_.rows.add("passaporte", row);
    }
}

void PersonIn::addBequest(const AssociationTold& heir)
{
    RowValues row{{"nind", seen_.number}, {"idlegprof", ++bequests_}};
    if (heir.who != 0) row.insert("nindherd", heir.who);
    const QString rest = putLabels(heir.notes, labelsOfBequest(), row, "WILL.ASSO", true);
    QStringList notes{row.value("obs").toString(), rest};
    if (heir.role.role == Role::Executor) notes << "Testamenteiro";
    notes.removeAll(QString());
    putText(row, "obs", notes.join('\n'), "WILL.ASSO.NOTE");
    target_.rows.add("legadosprofanos", row);
    card_.insert("testam", true);
}

void PersonIn::takeWill()
{
    static const QString unnamed = "Herdeiro por dizer", written = "Testamento escrito";
    const GedcomNode* const event = reading_.take(record_, "WILL");
    if (!event) return;
    card_.insert("testam", true);
    QStringList lines = takeSuffrages(takeEventNotes(*event).text, "WILL").split('\n');
    if (lines.first() == written) {
        card_.insert("escrit", true);
        lines.removeFirst();
    }
    QStringList before;
    while (!lines.isEmpty() && lines.first() != unnamed)
        before << lines.takeFirst();
    for (const QString& one : lines.join('\n').split(unnamed + '\n', Qt::SkipEmptyParts))
        addBequest({.role = {Role::Heir}, .notes = one.endsWith('\n') ? one.chopped(1) : one});
    before.removeAll(QString());
    if (!before.isEmpty()) note("WILL.NOTE", before.join('\n'));
    if (const QString source = takeSource(*event); !source.isEmpty()) note("WILL.SOUR", source);
    takeAssociationsOf(
        *event, [](RoleTold role, ActTold) { return role.role == Role::Executor || role.role == Role::Heir; },
        [this](const AssociationTold& one) {
            if (one.role.role == Role::Executor && !card_.contains("testamenteiro"))
                card_.insert("testamenteiro", one.who);
            else
                addBequest(one);
        });
}

namespace {

// The parts of "tipo: Rezada; quantidade: 5": each begins with one of these, in this order.
constexpr std::array<const char*, 8> suffrageParts = {
    "tipo: ", "quantidade: ", "valor de cada: ", "valor total: ", "moeda: ", "destino: ", "padres: ", "notas: "};

std::optional<double> amountOf(const QString& text)
{
    static const QRegularExpression form(R"(^-?\d{1,12}(?:[,.]\d{1,4})?$)");
    if (!form.match(text).hasMatch()) return {};
    return QString(text).replace(',', '.').toDouble();
}

// By part; nothing where the line isn't so.
std::optional<QHash<QString, QString>> labelledParts(QString line)
{
    QHash<QString, QString> parts;
    std::size_t next = 0;
    while (!line.isEmpty()) {
        std::size_t part = next;
        while (part < suffrageParts.size() && !line.startsWith(QLatin1String(suffrageParts[part])))
            ++part;
        if (part == suffrageParts.size()) return {};
        const auto begin = static_cast<qsizetype>(qstrlen(suffrageParts[part]));
        qsizetype end = line.size();
        for (std::size_t behind = part + 1; behind < suffrageParts.size(); ++behind)
            if (const qsizetype at = line.indexOf(QLatin1String("; ") + suffrageParts[behind], begin); at >= 0)
                end = qMin(end, at);
        parts.insert(QString(suffrageParts[part]).chopped(2), line.mid(begin, end - begin));
        line = line.mid(end + 2);
        next = part + 1;
    }
    return parts;
}

} // namespace

bool PersonIn::takeSuffrage(const QString& line, const QString& path)
{
    const QString told = line.section(": ", 0, 0);
    const auto* const words = std::ranges::find_if(
        suffrageWords, [&](const SuffrageWords& one) { return told == QString::fromUtf8(one.told); });
    const auto parts = words == suffrageWords.end() ? std::nullopt : labelledParts(line.mid(told.size() + 2));
    if (!parts) return false;
    RowValues row{{"nind", seen_.number}, {"tipolegpio", words->kind}};
    if (parts->contains("tipo") && !putCode(row, "tipo", words->category, parts->value("tipo"))) return false;
    for (const auto& [part, column] : {std::pair("quantidade", "quantidade"), std::pair("valor de cada", "valorunit"),
                                       std::pair("valor total", "valortotal"), std::pair("padres", "numpadres")})
        if (parts->contains(part)) {
            const auto amount = amountOf(parts->value(part));
            const bool isCount = QLatin1String(column) == QLatin1String("numpadres");
            if (!amount || (isCount && std::floor(*amount) != *amount)) return false;
            row.insert(column, *amount);
        }
    const QString currency = parts->value("moeda");
    for (const CurrencyName& one : currencyNames)
        if (currency == QString::fromUtf8(one.name)) row.insert("tipomoeda", one.code);
    if (!currency.isEmpty() && !row.contains("tipomoeda")) return false;
    row.insert("idlegpio", ++suffrages_);
    putText(row, "destino", parts->value("destino"), path + ".NOTE");
    putText(row, "obs", parts->value("notas"), path + ".NOTE");
    target_.rows.add("rituaismorte", row);
    return true;
}

// The lines in which an export tells of them.
QString PersonIn::takeSuffrages(const QString& notes, const QString& path)
{
    QStringList rest;
    const QStringList lines = notes.isEmpty() ? QStringList() : notes.split('\n');
    for (const QString& line : lines)
        if (!takeSuffrage(line, path)) rest << line;
    return rest.join('\n');
}

} // namespace study::exchange
