// How the BDP and GEDCOM say the same: each mapping one table.
#pragma once

#include "study/parish/snapshot.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <array>

namespace study::exchange {

// How many letters 5.5.1 has room for behind a tag; 0 where the text may go on in further lines, or it isn't known.
int longestValue551(QByteArrayView tag);

// Whether "Y" may stand behind the tag of an event of which neither date nor place is told: it has happened.
bool canSayYes(QByteArrayView tag, bool in551);

// Who somebody is at the act of another.
enum class Role : quint8
{
    Godparent,
    Witness,
    Clergy,
    Executor,
    Heir
};
struct RoleWords
{
    Role role;
    const char* role70;  // an enumeration
    const char* rela551; // a text of 25 letters at the most
};
const RoleWords& wordsOf(Role role);

// How a child belongs to its family of origin, by the code of its filiation.
struct PedigreeWords
{
    int filiation;
    const char* pedi70;
    const char* pedi551;
};
const PedigreeWords* pedigreeOf(parish::Code filiation); // null where the code tells nothing of it

// Whether the situation of a family (SitFa) says that the couple married, or that it didn't.
enum class MarriageTold : quint8
{
    Yes,  // also where no date is known
    Open, // where there is anything of a marriage
    Never
};
MarriageTold marriageOf(const QString& situation);

// How suffrages and their currencies are told in a note.
struct SuffrageWords
{
    const char* kind; // of the row
    const char* told;
    const char* category; // of the codes of its types
};
inline constexpr std::array<SuffrageWords, 3> suffrageWords = {
    {{"missa", "Missas", "TipMi"}, {"oficio", "Ofícios", "TipOf"}, {"esmola", "Esmolas", "TipEs"}}};
struct CurrencyName
{
    const char* code;
    const char* name;
};
inline constexpr std::array<CurrencyName, 3> currencyNames = {{{"Re", "réis"}, {"Es", "escudos"}, {"Eu", "euros"}}};

// What the books of a parish are as sources.
enum class Register : quint8
{
    Baptisms,
    Marriages,
    Burials
};
struct RegisterWords
{
    Register which;
    const char* xref;
    const char* title; // "Registos de baptismos"
    const char* act;   // estudo_acto.tipo
};
const RegisterWords& wordsOf(Register which);

// The type of a picture by its suffix, in small letters.
struct PictureType
{
    const char* suffix;
    const char* media70;
    const char* form551; // null: 5.5.1 has no word for it
};
const PictureType* pictureTypeOf(const QString& suffix);

// The levels of the tables of places, the smallest first, as PLAC has them.
inline constexpr auto placeForm = "Sítio, Lugar, Freguesia, Concelho, Distrito, País";
inline constexpr int placeLevels = 6;
inline constexpr auto placeCodeType = "urn:orv:lugar";             // of EXID: "F030899", letter and code
inline constexpr auto placeCodeWords = "Código do lugar no ORV: "; // before it, in the note that 5.5.1 has of a place

} // namespace study::exchange
