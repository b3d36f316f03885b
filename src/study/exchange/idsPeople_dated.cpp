// INDIVIDUAL: the rows of a person that have a date of their own.
#include "study/exchange/idsPeople_p.h"

namespace study::exchange {

namespace {

// A fraction in as few digits as tell it, with a point.
QString plain(double value)
{
    return QString::number(value, 'f', QLocale::FloatingPointShortest);
}

// The value of all; where it isn't told, the quantity times the value of each.
QString totalAt(const jet::Rows& row, int quantity, int each, int total)
{
    if (!row.isNull(total)) return plain(row.real(total));
    if (row.isNull(quantity) || row.isNull(each)) return {};
    return plain(row.real(quantity) * row.real(each));
}

} // namespace

void IdsWriter::writeDated(const PersonCard& card, OfPeople& rows)
{
    while (rows.professions.next(card.number)) {
        const jet::Rows& row = rows.professions.row();
        const parish::Code code = codeAt(row, 3);
        if (!code) continue;
        const QString name = catalogue_.professions.value(*code).simplified(), hisco = catalogue_.hisco.value(*code);
        const QString which = QString("profissao %1").arg(*code);
        tellCoded(
            Told::Occupation,
            {name.isEmpty() ? QString("(%1)").arg(*code) : name, hisco.isEmpty() ? which : which + ", HISCO " + hisco},
            dateAt(row, 1), {.source = row.text(4).simplified()});
    }
    while (rows.signatures.next(card.number)) {
        const jet::Rows& row = rows.signatures.row();
        const IdsBeside beside{.source = row.text(5).simplified()};
        if (const parish::Code level = codeAt(row, 3))
            tell(Told::SignatureLevel, QString::number(*level), dateAt(row, 1), beside);
        tellText(Told::SignsAs, row.text(4), dateAt(row, 1), beside);
    }
    while (rows.passports.next(card.number)) {
        const jet::Rows& row = rows.passports.row();
        tell(Told::Passport, QString::number(row.number(4)), exactDateAt(row, 1));
        tellPlace(Told::Destination, placeAt(row, 2), exactDateAt(row, 1));
    }
    while (rows.assisted.next(card.number))
        writeAssistance(rows.assisted.row());
    while (rows.inherited.next(card.number)) {
        const jet::Rows& row = rows.inherited.row();
        if (isShown(row.number(1))) tellCode(Told::KinToTestator, "Paren", codeAt(row, 4), dateAt(row, 2));
    }
}

// Nothing of an act of somebody who may be alive, nor of one that isn't in the BDP.
void IdsWriter::writeAssistance(const jet::Rows& row)
{
    const bool atBaptism = !row.isNull(1), atMarriage = !row.isNull(2);
    if (!atBaptism && !atMarriage) return;
    if (atBaptism ? !isShown(row.number(1)) : closed_.contains(row.number(2))) return;
    const parish::Date date = actDate(row.date(3), dateAt(row, atBaptism ? 4 : 6));
    tellCivilState(codeAt(row, 8), date);
    if (row.number(9) != 0) tellCoded(Told::FatherDeceased, {"Yes", "The act says so"}, date);
    if (row.number(10) != 0) tellCoded(Told::MotherDeceased, {"Yes", "The act says so"}, date);
    tellCode(Told::KinToChild, "Paren", codeAt(row, 11), date);
    tellCode(Told::KinToGroom, "Paren", codeAt(row, 12), date);
    tellCode(Told::KinToBride, "Paren", codeAt(row, 13), date);
}

void IdsWriter::writeSuffrage(const PersonCard& card, const jet::Rows& row)
{
    const Told what = toldOfSuffrage(row.text(1));
    const QString category = categoryOfSuffrage(what);
    QString type = category.isEmpty() ? row.text(1).simplified() : codedBy(category, codeAt(row, 2)).value;
    type.replace(u'|', u'/');
    const QString quantity = row.isNull(3) ? QString() : plain(row.real(3));
    tell(what, QStringList{type, quantity, totalAt(row, 3, 4, 5), row.text(6).simplified()}.join('|'), card.death);
}

} // namespace study::exchange
