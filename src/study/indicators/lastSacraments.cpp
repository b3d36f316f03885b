#include "study/indicators/deaths.h"
#include "study/indicators/mortality.h"
#include "study/indicators/quotients.h"
#include "study/indicators/scope.h"

#include <algorithm>

namespace study::indicators {

namespace {

namespace lastRites {

constexpr qint32 any = Reading::any;

// Period of the death, gender, age class, code of the sacraments.
enum Count : quint16
{
    Told,
    Untold, // the first of the reasons
    Undeclared,
    Own,
    Elsewhere,
    OutOfBooks
};
constexpr std::array<const char*, 6> names = {"sacramentos",    "sem-codigo",        "nao-declarado",
                                              "codigo-proprio", "fora-da-freguesia", "fora-dos-livros"};
constexpr std::array<Reason, 5> reasons = {{{Untold, "óbito sem o campo dos sacramentos"},
                                            {Undeclared, "sacramentos não declarados"},
                                            {Own, "código próprio, fora da tabela"},
                                            {Elsewhere, "óbito fora da freguesia"},
                                            {OutOfBooks, "óbito fora dos livros ou numa lacuna"}}};

// The codes of the reference data.
constexpr qint32 everything = 1, firstOfSome = 3, lastOfSome = 10, undeclared = 16;
constexpr std::array<std::pair<qint32, const char*>, 6> none = {{{2, "nenhum, sem motivo"},
                                                                 {11, "nenhum, por morte repentina"},
                                                                 {12, "nenhum, por ser menor"},
                                                                 {13, "nenhum, por falta de juízo"},
                                                                 {14, "nenhum, por não ser chamado o pároco"},
                                                                 {15, "nenhum, por morte fora da paróquia"}}};

enum AgeClass : qint32
{
    Children,
    Young,
    Grown,
    Old,
    Ageless
};
constexpr std::array<const char*, 5> classes = {"menores de 7", "7–19 anos", "20–59 anos", "60 anos e mais",
                                                "idade desconhecida"};

qint32 classOf(const parish::Person& person)
{
    const AgeAtDeath age = ageAtDeathOf(person);
    if (age.isYoung(endOfInnocence + 1)) return Children;
    if (!age.years) return Ageless;
    if (*age.years < 20) return Young;
    return *age.years < 60 ? Grown : Old;
}

void countDeath(const parish::Person& person, const Study& study, Taker& taker)
{
    const Settings& settings = study.settings;
    const int year = person.death.middle().year();
    const Who who{&person, nullptr};
    if (!isAskedFor(person, study, taker, {Elsewhere, OutOfBooks})) return;
    if (!person.sacraments) return taker.count({Untold}, who);
    if (*person.sacraments == undeclared) return taker.count({Undeclared}, who);
    if (*person.sacraments < everything || *person.sacraments > undeclared) return taker.count({Own}, who);
    taker.count({Told, {periodOf(year, settings), numbered(person.gender), classOf(person), *person.sacraments}}, who);
}

void fill(const Study& study, const Share& share, Taker& taker)
{
    for (const parish::Person& person : peopleOf(study, share))
        if (person.death.isKnown()) countDeath(person, study, taker);
}

Reading::Part noneOf(const Reading& reading, const Reading::At& at)
{
    Reading::Part part;
    for (const auto& reason : none)
        part += reading.part(Told, {at[0], at[1], at[2], reason.first});
    return part;
}

void addRow(Table& table, const Reading& reading, const QString& name, const Reading::At& at)
{
    const auto all = reading.part(Told, at);
    table.rows.push_back(
        {report::text(name), counted(all), percent(reading.part(Told, {at[0], at[1], at[2], everything}), all),
         percent(reading.within(Told, 3, firstOfSome, lastOfSome + 1, at), all), percent(noneOf(reading, at), all),
         percent(reading.part(Told, {at[0], at[1], at[2], 11}), all)});
}

std::vector<Column> columns(const QString& first)
{
    return {textColumn(first),
            countColumn("Óbitos com declaração"),
            decimalColumn("Todos", "%"),
            decimalColumn("Alguns", "%"),
            decimalColumn("Nenhum", "%"),
            decimalColumn("Morte repentina", "%")};
}

Table byAge(const Reading& reading)
{
    Table table{"por-idade", "Sacramentos por idade", columns("Idade")};
    for (const qint32 group : reading.values(Told, 2))
        addRow(table, reading, classes[static_cast<std::size_t>(group)], {any, any, group, any});
    if (!table.rows.empty()) addRow(table, reading, "Todas", Reading::everywhere);
    return table;
}

Table byPeriod(const Reading& reading, const Settings& settings)
{
    Table table{"por-periodo", "Sacramentos por período e sexo", columns("Óbitos")};
    for (const Group& group : groupsOf(reading, {Told}))
        addRow(table, reading, told(group, settings), {group.period, group.gender, any, any});
    return table;
}

Table withoutAny(const Reading& reading)
{
    Table table{"sem-sacramentos",
                "Porque não receberam nenhum",
                {textColumn("Razão"), countColumn("Óbitos"), decimalColumn("Dos que não receberam", "%")}};
    const auto all = noneOf(reading, Reading::everywhere);
    for (const auto& reason : none) {
        const auto some = reading.part(Told, {any, any, any, reason.first});
        if (some.n > 0) table.rows.push_back({report::text(reason.second), counted(some), percent(some, all)});
    }
    return table;
}

std::vector<report::Figure> figures(const Tally& tally, const Settings& settings)
{
    const Reading reading(tally);
    return {byAge(reading), byPeriod(reading, settings), withoutAny(reading), leftOutTable(reading, reasons)};
}

} // namespace lastRites

} // namespace

const Subject lastSacraments = {
    "sacramentos",
    "Mortalidade",
    "Sacramentos",
    "Contam os óbitos da freguesia cujo acto diz que sacramentos a pessoa recebeu. Dá-se quantos receberam todos, "
    "alguns "
    "ou nenhum, e porquê, por idade e por período. As crianças pequenas não os recebiam: leia a percentagem dos mais "
    "velhos.",
    lastRites::names,
    lastRites::reasons,
    lastRites::fill,
    lastRites::figures};

} // namespace study::indicators
