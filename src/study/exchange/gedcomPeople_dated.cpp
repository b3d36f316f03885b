// What hangs on a person with a date of its own, and the will.
#include "study/exchange/gedcomPeople_p.h"

#include <QLocale>

namespace study::exchange {

namespace {

QString amountAt(const jet::Rows& row, int column)
{
    static const QLocale portuguese(QLocale::Portuguese, QLocale::Portugal);
    static constexpr int decimals = 2;
    if (row.isNull(column)) return {};
    const double value = row.real(column);
    const bool isWhole = value == static_cast<double>(row.number(column));
    QLocale plain = portuguese;
    plain.setNumberOptions(QLocale::OmitGroupSeparator);
    return isWhole ? QString::number(row.number(column)) : plain.toString(value, 'f', decimals);
}

QString currencyOf(const QString& code)
{
    for (const CurrencyName& one : currencyNames)
        if (code == QLatin1String(one.code)) return one.name;
    return code;
}

void addPart(QStringList& parts, const QString& what, const QString& value)
{
    if (!value.isEmpty()) parts << what + ' ' + value;
}

} // namespace

Association GedcomWriter::assistantAt(const jet::Rows& row, bool atBaptism) const
{
    Association one{.who = linkAt(row, 1)};
    const QString sex = row.text(3).toLower();
    const bool isGodparent = row.text(4).compare("p", Qt::CaseInsensitive) == 0;
    if (isGodparent && atBaptism) one.role = Role::Godparent;
    if (!isGodparent)
        one.phrase = "Testemunha";
    else if (sex == "m")
        one.phrase = "Padrinho";
    else
        one.phrase = sex == "f" ? "Madrinha" : "Padrinho ou madrinha";
    addTold(one.notes, "Parentesco", meaningOf("Paren", codeAt(row, 8)));
    addTold(one.notes, "Parentesco com o noivo", meaningOf("Paren", codeAt(row, 9)));
    addTold(one.notes, "Parentesco com a noiva", meaningOf("Paren", codeAt(row, 10)));
    addTold(one.notes, "Estado civil", meaningOf("EstCi", codeAt(row, 5)));
    if (row.number(6) != 0) one.notes << "Pai falecido";
    if (row.number(7) != 0) one.notes << "Mãe falecida";
    if (const QString notes = row.text(11); !notes.trimmed().isEmpty()) one.notes << notes;
    return one;
}

Event GedcomWriter::residenceAt(const jet::Rows& row) const
{
    Event one{.tag = "RESI", .date = gedcomDate(dateAt(row, 1)), .place = placeAt(row, 3)};
    one.source = row.text(5).simplified();
    if (const QString notes = row.text(6); !notes.trimmed().isEmpty()) one.notes << notes;
    return one;
}

void GedcomWriter::writeDated(const PersonCard& card, OfPeople& rows)
{
    while (rows.residences.next(card.number))
        write(residenceAt(rows.residences.row()));
    while (rows.professions.next(card.number)) {
        const jet::Rows& row = rows.professions.row();
        const QString name = catalogue_.professions.value(static_cast<int>(row.number(3))).simplified();
        Event one{.tag = "OCCU", .text = name, .date = gedcomDate(dateAt(row, 1))};
        if (name.isEmpty()) one.text = row.isNull(3) ? QString("Por dizer") : QString("(%1)").arg(row.number(3));
        one.source = row.text(4).simplified();
        if (const QString notes = row.text(5); !notes.trimmed().isEmpty()) one.notes << notes;
        write(one);
    }
    while (rows.signatures.next(card.number)) {
        const jet::Rows& row = rows.signatures.row();
        const parish::Code level = codeAt(row, 4);
        Event one{
            .tag = "FACT", .type = "Assinatura", .date = gedcomDate(dateAt(row, 1)), .age = gedcomAge(codeAt(row, 3))};
        one.text = level ? QString("Assina, nível %1").arg(*level) : QString("Assina");
        one.picture = {relativePath(row.text(5), folder_),
                       "OA" + personXref(card.number) + '_' + QByteArray::number(row.number(10))};
        one.source = row.text(7).simplified();
        addTold(one.notes, "Assina como", row.text(6));
        addTold(one.notes, "Função", row.text(8));
        if (const QString notes = row.text(9); !notes.trimmed().isEmpty()) one.notes << notes;
        write(one);
    }
    while (rows.passports.next(card.number)) {
        const jet::Rows& row = rows.passports.row();
        Event one{
            .tag = "EMIG", .type = "Passaporte", .date = gedcomDate(exactDateAt(row, 1)), .place = placeAt(row, 2)};
        addTold(one.notes, "Passaporte n.º", QString::number(row.number(4)));
        if (const QString notes = row.text(5); !notes.trimmed().isEmpty()) one.notes << notes;
        write(one);
    }
}

// The BDP has no date of a will.
Event GedcomWriter::willOf(const PersonCard& card, OfPeople& rows) const
{
    Event will{.tag = "WILL", .act = "no testamento"};
    if (card.writtenWill) will.notes << "Testamento escrito";
    if (card.executor.number != 0)
        will.associations.push_back({.who = card.executor, .role = Role::Executor, .phrase = "Testamenteiro"});
    while (rows.bequests.next(card.number)) {
        const jet::Rows& row = rows.bequests.row();
        Association heir{.who = linkAt(row, 1), .role = Role::Heir, .phrase = "Herdeiro"};
        addTold(heir.notes, "Parentesco", meaningOf("Paren", codeAt(row, 3)));
        addTold(heir.notes, "Bens móveis", row.text(4));
        addTold(heir.notes, "Bens de raiz", row.text(5));
        addTold(heir.notes, "Notas", row.text(6));
        if (heir.who.number != 0)
            will.associations.push_back(heir);
        else
            will.notes << QStringList("Herdeiro por dizer") + heir.notes;
    }
    return will;
}

QStringList GedcomWriter::suffragesOf(const PersonCard& card, OfPeople& rows) const
{
    QStringList all;
    while (rows.suffrages.next(card.number)) {
        const jet::Rows& row = rows.suffrages.row();
        const QString kind = row.text(1).trimmed().toLower();
        QString what = row.text(1);
        QString category;
        for (const SuffrageWords& words : suffrageWords)
            if (kind == QLatin1String(words.kind)) {
                what = words.told;
                category = words.category;
            }
        QStringList parts;
        addPart(parts, "tipo:", meaningOf(category, codeAt(row, 2)));
        addPart(parts, "quantidade:", amountAt(row, 3));
        addPart(parts, "valor de cada:", amountAt(row, 4));
        addPart(parts, "valor total:", amountAt(row, 8));
        addPart(parts, "moeda:", currencyOf(row.text(5)));
        addPart(parts, "destino:", row.text(6).simplified());
        addPart(parts, "padres:", amountAt(row, 7));
        addPart(parts, "notas:", row.text(9).simplified());
        all << what + (parts.isEmpty() ? QString() : ": ") + parts.join("; ");
    }
    return all;
}

} // namespace study::exchange
