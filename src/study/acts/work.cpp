#include "study/acts/work.h"

#include "common/numeros.h"
#include "platform/jet/recordset.h"

#include <QCryptographicHash>
#include <QRegularExpression>

#include <algorithm>

namespace study {

static constexpr int textColumn = 255; // letters that a text column takes
static constexpr int longName = 100;   // of a sentence

// Nothing is told by a null, nor by what an alteration on the card leaves where a field is empty: a box that is off, a
// mother's age of 0, blanks.
static bool isOpen(const QString& column, const QVariant& known)
{
    if (known.isNull()) return true;
    if (known.typeId() == QMetaType::Bool) return !known.toBool();
    if (column == "idademae") return known.toDouble() == 0;
    return known.typeId() == QMetaType::QString && known.toString().trimmed().isEmpty();
}

QString shownName(const QString& name)
{
    const QString plain = name.simplified();
    if (plain.isEmpty()) return "pessoa sem nome";
    return plain.size() <= longName ? plain : plain.left(longName) + u'…';
}

QString storedName(const ActPerson& person)
{
    ActPerson clean = person;
    clean.name.value.remove(QChar(0));
    return currentName(clean).remove(QChar(0)).simplified();
}

Work::Work(jet::Connection& connection, const Act& told, const Conclusions& concluded)
    : bdp(connection), act(told), conclusions(concluded), ledger(connection), catalogue(connection)
{
    plan.people.fill(0, act.people.size());
    day = act.date.standing();
    exact = day && act.date.isComplete();
    source = reference(act).left(textColumn);
}

Identity Work::identity(int person) const
{
    return conclusions.people.value(person);
}

bool Work::isActAlone() const
{
    return std::ranges::all_of(conclusions.people,
                               [](const Identity& one) { return one.kind == Identity::Kind::Kept; });
}

int Work::owner(int person) const
{
    const int of = act.people.at(person).of;
    return of < person ? of : -1;
}

QString Work::nameIn(qint64 nind)
{
    const PlannedRow* known = ledger.person(nind);
    return known ? shownName(known->now("nome").toString()) : QString();
}

QString Work::label(qint64 nind)
{
    return QString("nº %1 %2").arg(nind).arg(nameIn(nind));
}

QString Work::label(int person)
{
    return number(person) != 0 ? label(number(person)) : shownName(nameOf(act.people.at(person)));
}

QString Work::agreeing(int person, const char* his, const char* hers)
{
    const PlannedRow* known = row(person);
    const bool woman = known ? known->now("sexo") == "f" : sexOf(act, person) == Sex::Female;
    return woman ? hers : his;
}

const Attribute* Work::take(int person, const char* type)
{
    const Attribute* told = firstTold(act.people.at(person).attributes, type);
    if (told && !told->told.value.trimmed().isEmpty()) taken_ << told;
    return told;
}

const Attribute* Work::takeFact(const char* type)
{
    const Attribute* told = firstTold(act.facts, type);
    if (told && !told->told.value.trimmed().isEmpty()) taken_ << told;
    return told;
}

std::optional<Age> ageTold(const Act& act, int person, const Attribute** from)
{
    for (const char* type : {attribute::age, attribute::roughAge})
        if (const Attribute* told = firstTold(act.people.at(person).attributes, type))
            if (const auto age = readAge(told->told.value)) {
                if (from) *from = told;
                return age;
            }
    return {};
}

static QVariant orNull(const std::optional<int>& code)
{
    return code ? QVariant(*code) : QVariant();
}

QVariant Work::code(int person, const char* type, const QString& category)
{
    const Attribute* told = take(person, type);
    if (!told) return {};
    const auto meant = catalogue.codeFor(category, told->told.value);
    if (!meant) untake(told);
    return orNull(meant);
}

QVariant Work::factCode(const char* type, const QString& category)
{
    const Attribute* told = takeFact(type);
    if (!told) return {};
    const auto meant = catalogue.codeFor(category, told->told.value);
    if (!meant) untake(told);
    return orNull(meant);
}

void Work::leaveOut(const QString& what)
{
    if (!plan.leftOut.contains(what)) plan.leftOut << what;
}

// The numbers of who and what is new are those of the moment, and no matter.
QString Work::markOf(const QString& text) const
{
    QString lasting = shown(act.date) + '\n' + text;
    for (const auto& [nind, stored] : ledger.people())
        if (stored.isNew()) lasting.remove(QString("nº %1 ").arg(nind));
    for (const auto& [nfamilia, stored] : ledger.families())
        if (stored.isNew()) lasting.replace(QRegularExpression(QString(R"(família %1\b)").arg(nfamilia)), "família");
    constexpr int digits = 8;
    return QCryptographicHash::hash(lasting.toUtf8(), QCryptographicHash::Sha1).toHex().left(digits);
}

void Work::object(const QString& rule, int person, const QString& text, bool hard)
{
    const QString marked = hard ? rule : rule + '/' + markOf(text);
    const QString id = person < 0 ? marked : marked + ':' + QString::number(person);
    if (!hard && !conclusions.overruled.value(id).trimmed().isEmpty()) return;
    plan.objections << Objection{.id = id, .text = text, .person = person, .hard = hard};
}

static constexpr auto differs = ": na BDP está outro valor, que não se altera.";

bool Work::fill(PlannedRow& row, const RowChange::Columns& columns, const QString& what)
{
    if (columns.first().second.isNull()) return false;
    bool any = false;
    for (const auto& [column, value] : columns) {
        const QVariant known = row.now(column);
        if (isOpen(column, known)) {
            any = any || !value.isNull();
        } else if (!value.isNull() && !sameValue(known, value)) {
            leaveOut(what + differs);
            return false;
        }
    }
    for (const auto& [column, value] : columns)
        if (isOpen(column, row.now(column))) row.set(column, value);
    return any;
}

bool Work::fillTold(PlannedRow& row, int person, const RowChange::Columns& columns, const QString& what)
{
    const auto& [first, told] = columns.first();
    const QVariant known = row.now(first);
    if (!told.isNull() && !isOpen(first, known) && !sameValue(known, told))
        object("difere-" + first, person, QString("%1, %2%3").arg(label(person), what, differs));
    return fill(row, columns, what);
}

// A nought within a text would end it for other programs.
bool Work::fillText(PlannedRow& row, const QString& column, const QString& text, const QString& what)
{
    const QString stored = QString(text).remove(QChar(0)).trimmed();
    if (stored.isEmpty()) return false;
    const qsizetype room = column == "obs" ? 65535 : textColumn;
    if (stored.size() > room) {
        leaveOut(what + ": o texto é longo de mais para a ficha, e fica só no acto.");
        return false;
    }
    return fill(row, {{column, stored}}, what);
}

// Behind the one planned before: its number is the code behind that of the parish.
QString Work::nextPlace(const QString& parish)
{
    QString& last = lastPlace_[parish];
    if (last.isEmpty()) return last = nextLocality(bdp, parish);
    auto serial = last.mid(parish.size()).toLongLong();
    do
        last = parish + QString::number(++serial).rightJustified(2, '0');
    while (placeName(bdp, last, 'L'));
    return last;
}

} // namespace study
