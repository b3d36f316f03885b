#include "study/checks/told.h"

namespace study::checks {

using parish::Date;
using parish::Family;
using parish::Person;

namespace {

// With the article of what begins with one.
QString after(const char* alone, const char* beforeO, const QString& name)
{
    return name.startsWith("o indivíduo nº ") ? beforeO + name.mid(1) : QString::fromUtf8(alone) + name;
}

} // namespace

QString of(const Person& person)
{
    return after("de ", "do", named(person));
}

QString of(const Family& family)
{
    return 'd' + named(family);
}

QString to(const Person& person)
{
    return after("a ", "ao", named(person));
}

QString actOf(const parish::Assistance& row)
{
    const QString number = QString::number(row.entity);
    if (row.kind == parish::ActKind::Marriage)
        return "casamento " + (row.family ? of(*row.family) : "da família nº " + number);
    return "baptismo " + (row.child ? of(*row.child) : "do indivíduo nº " + number);
}

Date dayOfAct(const parish::Assistance& row)
{
    if (row.family) return row.family->marriage;
    return row.child ? row.child->birth : Date();
}

QString told(QDate day)
{
    return day.toString("dd/MM/yyyy");
}

QString few(const QStringList& list)
{
    static constexpr qsizetype most = 6;
    if (list.size() <= most) return list.join("; ");
    return list.mid(0, most).join("; ") + "; e mais " + QString::number(list.size() - most);
}

QString howMany(qint64 number, const char* one, const char* many)
{
    return QString::number(number) + ' ' + (number == 1 ? one : many);
}

int daysShortOf(int years, const Date& birth, const Date& at)
{
    const QDate born = birth.middle();
    const QDate day(born.year() + years, born.month(), born.day());
    // As completedYears(): the birthday of a 29 February is 1 March in common years.
    const QDate birthday = day.isValid() ? day : QDate(born.year() + years, 3, 1);
    return static_cast<int>(at.middle().daysTo(birthday));
}

} // namespace study::checks
