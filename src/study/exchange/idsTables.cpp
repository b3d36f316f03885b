// The tables of the structure, and what is told of people and contexts.
#include "study/exchange/idsTables.h"

#include <algorithm>
#include <array>

namespace study::exchange {

namespace {

using namespace idsDateType;

constexpr bool coded = true, free = false;
constexpr auto individual = IdsTable::Individual, context = IdsTable::Context;

constexpr std::array<const char*, 14> dateColumns = {
    "Date_type", "Estimation",  "Day",        "Month",   "Year",      "Hour",     "Minute",
    "Start_day", "Start_month", "Start_year", "End_day", "End_month", "End_year", "Missing"};

const std::array<IdsTableWords, 6>& tables()
{
    static const std::array<IdsTableWords, 6> all{
        {{IdsTable::Individual,
          "INDIVIDUAL",
          {"Id", "Id_D", "Id_I", "Source", "Type", "Value", "Value_Id_C"},
          true,
          "O que se diz de cada pessoa.",
          "What is told of each person."},
         {IdsTable::IndivIndiv,
          "INDIV_INDIV",
          {"Id", "Id_D", "Id_I_1", "Id_I_2", "Source", "Relation"},
          true,
          "O que duas pessoas são uma da outra, nos dois sentidos.",
          "What two people are to each other, in both directions."},
         {IdsTable::IndivContext,
          "INDIV_CONTEXT",
          {"Id", "Id_D", "Id_I", "Id_C", "Source", "Relation"},
          true,
          "O que uma pessoa é numa família ou num lugar.",
          "What a person is in a family or at a place."},
         {IdsTable::Context,
          "CONTEXT",
          {"Id", "Id_D", "Id_C", "Source", "Type", "Value"},
          true,
          "As famílias e os lugares.",
          "Families and places."},
         {IdsTable::ContextContext,
          "CONTEXT_CONTEXT",
          {"Id", "Id_D", "Id_C_1", "Id_C_2", "Source", "Relation"},
          true,
          "Que lugar está em qual.",
          "Which place lies in which."},
         {IdsTable::Metadata,
          "METADATA",
          {"Id_D", "Type", "Value", "Source", "Type_T", "Extract", "Explanation"},
          false,
          "O que querem dizer os tipos, as relações e os valores.",
          "What types, relations and values mean."}}};
    return all;
}

constexpr std::array<ToldWords, 52> toldWords = {{
    {Told::NameOriginal, individual, "Name_original", always, free, "individuo.nome", "The name as it is transcribed"},
    {Told::FirstName, individual, "First_name", always, free, "individuo.nome",
     "The name until the first particle, or the first word that is no given name; split by the program"},
    {Told::LastNamePrefix, individual, "Prefix_last_name", always, free, "individuo.nome",
     "Particles before the last name; split by the program"},
    {Told::LastName, individual, "Last_name", always, free, "individuo.nome",
     "The rest of the name; split by the program; none where no word is sure to belong to it"},
    {Told::Title, individual, "Title", always, free, "individuo.titulo", "Title"},
    {Told::Nickname, individual, "Nickname", always, free, "individuo.alcunha", "Nickname"},
    {Told::Sex, individual, "Sex", always, coded, "individuo.sexo", "Sex"},
    {Told::BirthDate, individual, "Birth_date", declared, free, "individuo.datanasc",
     "Birth or baptism: the register has one date for both. Value: the date as it is written, where it isn't exact"},
    {Told::Birth, individual, "Birth", event, free, "individuo.datanasc", "Birth or baptism in the parish"},
    {Told::BirthLocation, individual, "Birth_location", declared, free, "individuo.localnasc",
     "Place of birth; Value_Id_C is its context"},
    {Told::Legitimacy, individual, "Legitimacy", always, coded, "individuo.filiacao, familia.sfamilia",
     "What the filiation counts as in the study; where it tells nothing, the situation of the family"},
    {Told::LegitimacyOriginal, individual, "Legitimacy_original", always, coded, "individuo.filiacao",
     "The filiation as it is coded"},
    {Told::Marriage, individual, "Marriage", event, free, "familia.datacasam",
     "Marriage; Value_Id_C is the context of the family. Value: the date as it is written, where it isn't exact"},
    {Told::MarriageLocation, individual, "Marriage_location", event, free, "familia.localcasam",
     "Place of the marriage; Value_Id_C is its context"},
    {Told::Union, individual, "Union", event, free, "familia.datacasam",
     "Beginning of a union that is no marriage; Value_Id_C is the context of the family"},
    {Told::UnionLocation, individual, "Union_location", event, free, "familia.localcasam",
     "Place of a union that is no marriage; Value_Id_C is its context"},
    {Told::AgeAtMarriage, individual, "Age_at_marriage", declared, free, "familias.idade",
     "Age in years as the marriage act has it"},
    {Told::CivilStatus, individual, "Civil_status", declared, coded,
     "familias.estadocivil, assistente.estadocivil, individuo.estadoobito",
     "Civil status as an act has it: before a marriage, of an assistant, at death"},
    {Told::MarriageOrder, individual, "Marriage_order", declared, free, "familias.numcasam",
     "Which marriage of the person it is"},
    {Told::Occupation, individual, "Occupation", declared, coded, "profissoes.codprof", "Occupation"},
    {Told::SignatureLevel, individual, "Signature_level", declared, free, "assinatura.nivelassinatura",
     "Level of the signature, the higher the better"},
    {Told::SignsAs, individual, "Signs_as", declared, free, "assinatura.assina", "How the person signs"},
    {Told::Passport, individual, "Passport", event, free, "passaporte.nPass", "A passport; Value is its number"},
    {Told::Destination, individual, "Destination", event, free, "passaporte.localdestino",
     "Where the passport leads; Value_Id_C is its context"},
    {Told::FatherDeceased, individual, "Father_deceased", declared, coded, "assistente.falecidopai",
     "Whether the father of an assistant is dead at the date of the act"},
    {Told::MotherDeceased, individual, "Mother_deceased", declared, coded, "assistente.falecidomae",
     "Whether the mother of an assistant is dead at the date of the act"},
    {Told::KinToChild, individual, "Kinship_to_child", declared, coded, "assistente.parentbapt",
     "What an assistant is to the baptised child"},
    {Told::KinToGroom, individual, "Kinship_to_groom", declared, coded, "assistente.parentnoivo",
     "What an assistant is to the groom"},
    {Told::KinToBride, individual, "Kinship_to_bride", declared, coded, "assistente.parentnoiva",
     "What an assistant is to the bride"},
    {Told::KinToTestator, individual, "Kinship_to_testator", declared, coded, "legadosprofanos.parentesco",
     "What an heir is to the testator; the date is that of the testator's death"},
    {Told::DeathDate, individual, "Death_date", declared, free, "individuo.dataobito",
     "Death or burial: the register has one date for both. Value: the date as it is written, where it isn't exact"},
    {Told::Death, individual, "Death", event, free, "individuo.dataobito", "Death or burial in the parish"},
    {Told::DeathLocation, individual, "Death_location", declared, free, "individuo.localobito",
     "Place of death; Value_Id_C is its context"},
    {Told::Cause, individual, "Cause_of_death", declared, free, "individuo.causa", "Cause of death as the act has it"},
    {Told::AgeAtDeath, individual, "Age_at_death", declared, free, "individuo.idadeobito",
     "Age in years as the act has it"},
    {Told::Sacraments, individual, "Sacraments", declared, coded, "individuo.sacramentos", "Sacraments before death"},
    {Told::ParishClass, individual, "Parish_class", declared, coded, "individuo.classparoquial",
     "Class of parishioner; no date is told"},
    {Told::Height, individual, "Height", declared, free, "individuo.altura", "Height in centimetres; no date is told"},
    {Told::Stature, individual, "Stature", declared, free, "individuo.estatura", "Stature in words; no date is told"},
    {Told::Looks, individual, "Physical_description", declared, free, "individuo.cFisicas",
     "Physical description; no date is told"},
    {Told::Mass, individual, "Mass", declared, free, "rituaismorte",
     "Masses after death: type|quantity|value of all|currency (Re réis, Es escudos, Eu euros). Where the value of all "
     "isn't told, the quantity times the value of each"},
    {Told::Office, individual, "Office", declared, free, "rituaismorte", "Offices after death, told as masses are"},
    {Told::Alms, individual, "Alms", declared, free, "rituaismorte", "Alms after death, told as masses are"},
    {Told::OtherSuffrage, individual, "Other_suffrage", declared, free, "rituaismorte",
     "Other suffrages after death, told as masses are"},
    {Told::ObservationStart, individual, "Start_observation", declared, coded, "computed",
     "From when the person is seen in the parish, by the rules of the study; who only passes by has neither start nor "
     "end"},
    {Told::ObservationEnd, individual, "End_observation", declared, coded, "computed",
     "Until when the person is seen in the parish, by the rules of the study"},
    {Told::PlaceLevel, context, "Level", always, coded, "familia, tables of places", "Kind of the context"},
    {Told::UnionLevel, context, "Level", event, coded, "familia, tables of places", "Kind of the context"},
    {Told::PlaceName, context, "Name", always, free, "tables of places",
     "Name of the place; its code in brackets where it stands in no table"},
    {Told::Situation, context, "Family_situation", always, coded, "familia.sfamilia", "Situation of the family"},
    {Told::FamilyType, context, "Family_type", assigned, coded, "computed",
     "What is known of the family (1 to 7), by its dates; it has no date of its own"},
    {Told::StoredFamilyType, context, "Family_type_original", declared, coded, "familia.tipocasal",
     "The type of family that its card has; it has no date of its own"},
}};

} // namespace

const IdsTableWords& wordsOf(IdsTable table)
{
    return tables().at(static_cast<std::size_t>(table));
}

std::span<const char* const> idsDateColumns()
{
    return dateColumns;
}

bool isIdsNumber(const QByteArray& column)
{
    static const QList<QByteArray> texts{"Id_D",       "Source",  "Type",   "Value",   "Relation",   "Date_type",
                                         "Estimation", "Missing", "Type_T", "Extract", "Explanation"};
    return !texts.contains(column);
}

// In the order of the enumeration.
const ToldWords& wordsOf(Told told)
{
    return toldWords.at(static_cast<std::size_t>(told));
}

std::span<const ToldWords> allTold()
{
    return toldWords;
}

} // namespace study::exchange
