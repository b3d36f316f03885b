// The fields that a column of a table may hold, and what they are in an act.
#pragma once

#include "study/transcripts/table.h"

#include <QList>
#include <QString>

namespace study::columns {

// A person whom a row may tell of.
struct Person
{
    QString id;    // "pai"
    QString title; // "Pai"
    Role role = Role::Mentioned;
    QString of = {};    // the id of whom it hangs on; "" for the act, "assunto" for the child or the deceased
    bool isNear = true; // all is asked of the near ones, little of the others
};
const QList<Person>& people();

// One thing told of a person: "residencia" is an attribute of that type; "nome", "sexo", "notas", "id", "nome_padrao"
// are the person's own.
struct Detail
{
    QString id;
    QString title;
    bool ofNearOnly = false;
};
const QList<Detail>& details();

// What a column holds of the act itself; those that are facts are of the type of that name.
struct OfTheAct
{
    QString id;
    QString title;
    bool isFact = false;
};
const QList<OfTheAct>& ofTheAct();

inline constexpr auto subject = "assunto";
inline constexpr auto notes = "notas"; // several columns may be notes

} // namespace study::columns
