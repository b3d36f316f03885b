#include "study/exchange/gedcomTables.h"

#include "study/parish/codes.h"

#include <QHash>

#include <algorithm>
#include <array>

namespace study::exchange {

namespace {

using namespace parish;

struct Length
{
    const char* tag;
    int letters;
};
constexpr std::array<Length, 17> lengths551 = {{{"NAME", 120},
                                                {"NPFX", 30},
                                                {"GIVN", 120},
                                                {"NICK", 30},
                                                {"SPFX", 30},
                                                {"SURN", 120},
                                                {"TITL", 120},
                                                {"TYPE", 90},
                                                {"PLAC", 120},
                                                {"CAUS", 90},
                                                {"OCCU", 90},
                                                {"FACT", 90},
                                                {"EVEN", 90},
                                                {"REFN", 20},
                                                {"RELA", 25},
                                                {"PAGE", 248},
                                                {"FILE", 30}}};

struct Happening
{
    const char* tag;
    bool in551;
};
constexpr std::array<Happening, 8> happenings = {{{"BIRT", true},
                                                  {"CHR", true},
                                                  {"BAPM", false},
                                                  {"DEAT", true},
                                                  {"BURI", false},
                                                  {"WILL", false},
                                                  {"EMIG", false},
                                                  {"MARR", true}}};

constexpr std::array<RoleWords, 5> roles = {{{Role::Godparent, "GODP", "Godparent"},
                                             {Role::Witness, "WITN", "Witness"},
                                             {Role::Clergy, "CLERGY", "Officiator"},
                                             {Role::Executor, "OTHER", "Executor"},
                                             {Role::Heir, "OTHER", "Heir"}}};

constexpr std::array<PedigreeWords, 14> pedigrees = {{{filiation::legitimate, "BIRTH", "birth"},
                                                      {filiation::natural, "BIRTH", "birth"},
                                                      {filiation::fatherUnknown, "BIRTH", "birth"},
                                                      {filiation::motherUnknown, "BIRTH", "birth"},
                                                      {filiation::foundling, "OTHER", "foster"},
                                                      {filiation::adulterine, "BIRTH", "birth"},
                                                      {filiation::sacrilegious, "BIRTH", "birth"},
                                                      {filiation::incestuous, "BIRTH", "birth"},
                                                      {filiation::spurious, "BIRTH", "birth"},
                                                      {filiation::legitimisedByMarriage, "BIRTH", "birth"},
                                                      {filiation::legitimisedByLetter, "BIRTH", "birth"},
                                                      {filiation::recognised, "BIRTH", "birth"},
                                                      {filiation::adopted, "ADOPTED", "adopted"},
                                                      {filiation::posthumous, "BIRTH", "birth"}}};

struct MarriageBySituation
{
    const char* situation;
    MarriageTold marriage;
};
constexpr std::array<MarriageBySituation, 8> marriages = {{{situation::legitimate, MarriageTold::Yes},
                                                           {situation::madeLegitimate, MarriageTold::Yes},
                                                           {situation::fatherUnknown, MarriageTold::Never},
                                                           {situation::motherUnknown, MarriageTold::Never},
                                                           {situation::bothKnown, MarriageTold::Never},
                                                           {situation::unmarriedUnion, MarriageTold::Never},
                                                           {situation::adulterine, MarriageTold::Never},
                                                           {situation::sacrilegious, MarriageTold::Never}}};

constexpr std::array<RegisterWords, 3> registers = {{{Register::Baptisms, "S1", "Registos de baptismos", "baptismo"},
                                                     {Register::Marriages, "S2", "Registos de casamentos", "casamento"},
                                                     {Register::Burials, "S3", "Registos de óbitos", "obito"}}};

constexpr std::array<PictureType, 9> pictures = {{{"jpg", "image/jpeg", "jpg"},
                                                  {"jpeg", "image/jpeg", "jpg"},
                                                  {"tif", "image/tiff", "tif"},
                                                  {"tiff", "image/tiff", "tif"},
                                                  {"bmp", "image/bmp", "bmp"},
                                                  {"gif", "image/gif", "gif"},
                                                  {"png", "image/png", nullptr},
                                                  {"pdf", "application/pdf", nullptr},
                                                  {"txt", "text/plain", nullptr}}};

} // namespace

int longestValue551(QByteArrayView tag)
{
    const auto found =
        std::find_if(lengths551.begin(), lengths551.end(), [&](const Length& one) { return tag == one.tag; });
    return found == lengths551.end() ? 0 : found->letters;
}

bool canSayYes(QByteArrayView tag, bool in551)
{
    return std::any_of(happenings.begin(), happenings.end(),
                       [&](const Happening& one) { return tag == one.tag && (one.in551 || !in551); });
}

const RoleWords& wordsOf(Role role)
{
    return *std::find_if(roles.begin(), roles.end(), [role](const RoleWords& one) { return one.role == role; });
}

const PedigreeWords* pedigreeOf(Code filiation)
{
    const auto* const found = std::find_if(pedigrees.begin(), pedigrees.end(),
                                           [&](const PedigreeWords& one) { return filiation == one.filiation; });
    return found == pedigrees.end() ? nullptr : found;
}

MarriageTold marriageOf(const QString& situation)
{
    const auto found = std::find_if(marriages.begin(), marriages.end(), [&](const MarriageBySituation& one) {
        return situation == QLatin1String(one.situation);
    });
    return found == marriages.end() ? MarriageTold::Open : found->marriage;
}

const RegisterWords& wordsOf(Register which)
{
    return *std::find_if(registers.begin(), registers.end(),
                         [which](const RegisterWords& one) { return one.which == which; });
}

const PictureType* pictureTypeOf(const QString& suffix)
{
    const auto* const found = std::find_if(pictures.begin(), pictures.end(),
                                           [&](const PictureType& one) { return suffix == QLatin1String(one.suffix); });
    return found == pictures.end() ? nullptr : found;
}

} // namespace study::exchange
