// The numbers by which the cards know people and families.
#pragma once

#include <QString>
#include <QtGlobal>

namespace study::parish {

enum class PersonNumber : qint64
{
};
enum class FamilyNumber : qint64
{
};

inline qint64 value(PersonNumber number)
{
    return static_cast<qint64>(number);
}

inline qint64 value(FamilyNumber number)
{
    return static_cast<qint64>(number);
}

inline QString shown(PersonNumber number)
{
    return QString::number(value(number));
}

inline QString shown(FamilyNumber number)
{
    return QString::number(value(number));
}

} // namespace study::parish
