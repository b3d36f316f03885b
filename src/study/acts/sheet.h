// An act in work: what was typed of it and concluded so far, the rows that it needs, and where the next key leads.
#pragma once

#include "study/acts/act.h"
#include "study/acts/conclusions.h"
#include "study/acts/register.h"

#include <QList>
#include <QString>

#include <optional>

namespace study {

// One field of a sheet: of a person, or of the act itself.
enum class Field
{
    // of a person
    Name,
    Sex,
    Residence,
    StandardName,
    CivilState,
    Age,
    Birthplace,
    Profession,
    Title,
    Nickname,
    Filiation,
    Office, // of a priest
    Kinship,
    Dead,
    Notes,
    // of the act
    Date,
    Book,
    Folio,
    Number,
    Place,
    Sacraments,
    Will,
    Offices,
    Masses,
    Alms,
    Cause,
    Shroud,
    Church,
    Grave,
    DeathPlace,
    ActNotes
};

struct Spot
{
    int person = -1; // index in the act; -1 for a field of the act
    Field field = Field::Date;

    bool operator==(const Spot&) const = default;
};

// There is always one identity for each person of the act.
struct Sheet
{
    Act act = {};
    Conclusions conclusions = {};

    bool operator==(const Sheet&) const = default;
};

// An act to be typed: the rows that each act of its kind has, and what the act before lets expect: the next number, the
// same book, folio, place, month and year stay with `before`, and the same celebrant.
Sheet newSheet(ActKind kind, const std::optional<ActRecord>& before);

// A stored act, or a draft, on a sheet: with one identity for each person, and a row for each that its kind has.
Sheet sheetOf(const Act& act, const Conclusions& conclusions);

// As those of the act, and by what was concluded: the wife of a known man is "mulher".
Sex sexOf(const Sheet& sheet, int person);
QString roleTitle(const Sheet& sheet, int person);

// What was typed goes over to an act of another kind: whoever has no row there becomes one who is mentioned.
Sheet withKind(const Sheet& sheet, ActKind kind, const std::optional<ActRecord>& before);

// "8" behind "7", "08" behind "07", "8" behind "7A"; "" behind what doesn't begin with a number.
QString nextNumber(const QString& number);

// A date as it is typed behind another: "14" is a day of the same month, "14/2" one of the same year. All else, as
// readPartialDate().
PartialDate readDateAfter(const QString& typed, const PartialDate& before);

// --- the rows

// The celebrant stands in the head of the sheet; -1 where the act has none.
int celebrantOf(const Act& act);

// Whether nothing was told of the person, nor of anybody who hangs on them, and nobody was told to be their kin.
bool isEmptyRow(const Act& act, int person);

struct NewRow
{
    Role role = Role::Mentioned;
    int of = -1;
    QString title = {}; // as roleTitle() will have it

    bool operator==(const NewRow&) const = default;
};

// Who can be added, those of the person first: "pai da madrinha".
QList<NewRow> addable(const Act& act, int person);

// Returns the index of the new row, which stands behind those of its kind.
int addRow(Sheet& sheet, Role role, int of);
void addMissing(Sheet& sheet, Role role, int of); // where `of` has nobody of that role

// Takes the person out, with all who hang on them.
void removeRow(Sheet& sheet, int person);

// Rows that follow from what was told: the spouse of a widower, the parents of a child. Nothing goes.
void addWhatFollows(Sheet& sheet);

// What is handed on: without the rows that hold nothing, and without conclusions on texts that are no longer there.
// Who has no name is no person of the BDP.
struct Trimmed
{
    Sheet sheet;
    QList<int> from = {}; // the row of the sheet that each of its people stands in

    bool operator==(const Trimmed&) const = default;
};
Trimmed trimmed(const Sheet& sheet);

// The id of an objection to a trimmed sheet, as the whole sheet has it.
QString onWholeSheet(const QString& objection, const Trimmed& trimmedSheet);

// --- the fields

QString text(const Sheet& sheet, const Spot& spot);

// Writes what was typed. A text with a "?" is marked as doubtful. Whoever gets another name by it isn't identified any
// longer. A date is read as it stands.
void setText(Sheet& sheet, const Spot& spot, const QString& typed);

// "tio", "irmão da mãe": as a relation to somebody of the act; what doesn't tell to whom goes to the first subject.
std::optional<Relation> readKinship(const Act& act, int person, const QString& typed);

// Whether the sex of the person must be told, as it doesn't follow from the role.
bool asksForSex(const Sheet& sheet, int person);

// All fields that can be told of a person, in the order of the sheet.
QList<Field> fieldsOf(const Act& act, int person);
// Those that the registers usually tell.
QList<Field> usualFields(const Act& act, int person);
QList<Field> headFields();
QList<Field> factFields(ActKind kind);
QList<Field> usualFacts(ActKind kind);

// Where Return leads: the next usual field that is empty, in the order of the sheet; none behind the last one. What the
// act before left out in its head isn't asked for.
std::optional<Spot> nextSpot(const Sheet& sheet, const Spot& from, const std::optional<ActRecord>& before);
// The first one of a new sheet.
Spot firstSpot(const Sheet& sheet, const std::optional<ActRecord>& before);

// Where Tab leads; none at the ends of the sheet. From a row it goes on to the next one, as they stand on the screen,
// and among the details of a person it goes through these first.
std::optional<Spot> neighbour(const Sheet& sheet, const Spot& from, bool forward);

// What the same field held last: in a row above, or else in the act before. "" for nothing.
QString lastText(const Sheet& sheet, const Spot& spot, const std::optional<ActRecord>& before);

// Whom the person stood for in the act before whose name lastText() repeats; 0 for nobody of the BDP.
qint64 lastPerson(const Sheet& sheet, int person, const std::optional<ActRecord>& before);

// What stands as the name tells nobody of the BDP: "pai incógnito", "hum pobre", "Nossa Senhora do Rosário". Whoever
// the act is about is somebody, whatever they were called.
bool isNobody(const Act& act, int person);

// Who a person with a name is taken for as long as nobody says more: new, or for somebody mentioned, a proxy or one
// whose name isn't told, no person of the BDP.
Identity usualIdentity(const Act& act, int person);

// What the transcriber should know of the act as it stands: incomplete dates, doubtful words.
QStringList marks(const Act& act);

} // namespace study
