// What speaks against an act of the small parish.
#pragma once

#include "study/tellings.h"

#include "store/modBD.h"
#include "study/acts/agesAndSpans.h"
#include "study/acts/register.h"
#include "study/acts/writer.h"

namespace study {

class Objected : public SmallParish
{
protected:
    // One person more, known by the columns given, in the role: what is objected.
    QStringList against(Telling told, Role role, const QMap<QString, QVariant>& columns, int owner = -1)
    {
        const bool woman = role == Role::Mother || role == Role::Godmother || role == Role::Bride;
        told.known(role, person("Alguém", woman ? "f" : "m", columns), owner);
        return objectionsOf(told.plan());
    }

    static Telling baptism()
    {
        Telling told = Telling::of(ActKind::Baptism, actDay);
        told.isNew(Role::Child, "Maria");
        return told;
    }
    static Telling marriage(qint64 groom, qint64 bride)
    {
        Telling told = Telling::of(ActKind::Marriage, actDay);
        told.known(Role::Groom, groom);
        told.known(Role::Bride, bride);
        return told;
    }

    using Row = QMap<QString, QVariant>;
    static Row born(const QDate& birth, bool exact = true) { return {{"datanasc", birth}, {"DnascFixa", exact}}; }
    static Row died(const QDate& death, bool exact = true) { return {{"dataobito", death}, {"dobitofixa", exact}}; }
};

} // namespace study
