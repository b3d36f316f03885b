// What the names of the groups say of a person: the role, and whose father or husband it is.
#pragma once

#include "study/acts/act.h"

#include <QList>
#include <QString>

#include <optional>

namespace study::kleio {

// A person of an act that was read before, as its group stood in the file.
struct Standing
{
    QString group; // canonical
    int indent = 0;
};

// Whom a group makes of its person.
struct Place
{
    Role role = Role::Mentioned;
    int of = -1;
    int ordinal = 0;
    Sex sex = Sex::Unknown; // that the name of the group tells
    bool found = true;      // false: whom it should hang on isn't there

    bool operator==(const Place&) const = default;
};

// One name for groups that mean the same: "pn" and "pai".
QString canonical(const QString& group);

// Nothing for a name that is no person's. `before` has one entry for each person of the act, and who is looked for
// stands among them: by the name of the group first, by the indentation where several are possible.
std::optional<Place> placeOf(const QString& group, int indent, const Act& act, const QList<Standing>& before);

// The name of a group that could make that person of the act: "ppad"; "" where the notation has none.
QString groupFor(const Act& act, int person, const QList<Standing>& before);

// The roles by words of their own, for whoever no group's name places: "padrinho".
QString wordOf(Role role);
std::optional<Role> roleWith(const QString& word);

} // namespace study::kleio
