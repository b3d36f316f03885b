#include "study/linkage/model.h"

#include "study/names/weights.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace study::linkage {

namespace {

constexpr double leastChance = 1e-5;

// How often a name agrees where both records have it and are of one person, and by chance on the average.
struct NameStart
{
    Field field;
    double same, chance;
};
constexpr NameStart names[]{
    {Field::FirstName, 0.95, 0.08},      {Field::OtherNames, 0.80, 0.05},     {Field::OtherNamesOfWoman, 0.55, 0.05},
    {Field::ParentsSurname, 0.60, 0.15}, {Field::Father, 0.95, 0.08},         {Field::FatherSurnames, 0.75, 0.05},
    {Field::Mother, 0.95, 0.08},         {Field::MotherSurnames, 0.65, 0.05}, {Field::Spouse, 0.93, 0.08},
    {Field::SpouseSurnames, 0.65, 0.05}, {Field::Grandparents, 0.85, 0.08}};
constexpr double devotional = 0.40;

// Of the rest, one line a level.
constexpr double sameDay = 5e-5;  // that two days of half a century are the same one
constexpr double someDays = 4e-3; // that they lie up to ten days apart: weddings have their seasons
// clang-format off
const Weight others[]{
    {Field::Birth, Level::SameDay, 0.9, sameDay},
    {Field::Birth, Level::Within1, 0.45, 0.05},        {Field::Birth, Level::Within3, 0.30, 0.066},
    {Field::Birth, Level::Within5, 0.13, 0.066},       {Field::Birth, Level::Within10, 0.09, 0.15},
    {Field::Birth, Level::Within20, 0.025, 0.27},      {Field::Birth, Level::Other, 0.005, 0.4},
    {Field::Times, Level::Within1, 0.12, 0.02},        {Field::Times, Level::Within3, 0.20, 0.04},
    {Field::Times, Level::Within5, 0.18, 0.05},        {Field::Times, Level::Within10, 0.28, 0.11},
    {Field::Times, Level::Within20, 0.17, 0.20},       {Field::Times, Level::Other, 0.05, 0.58},
    {Field::Interval, Level::Within1, 0.70, 0.30},     {Field::Interval, Level::Within3, 0.17, 0.03},
    {Field::Interval, Level::Within5, 0.06, 0.03},     {Field::Interval, Level::Within10, 0.04, 0.08},
    {Field::Interval, Level::Within20, 0.02, 0.12},    {Field::Interval, Level::Other, 0.01, 0.44},
    {Field::Death, Level::SameDay, 0.9, sameDay},
    {Field::Marriage, Level::SameDay, 0.9, sameDay},   {Field::Marriage, Level::SomeDays, 0.04, someDays},
    {Field::Place, Level::Equal, 0.7, 0.05, true},     {Field::Place, Level::OfOneClass, 0.25, 0.60},
    {Field::Place, Level::Other, 0.05, 0.35},
    {Field::Parish, Level::Equal, 0.9, 0.6, true},     {Field::Parish, Level::Other, 0.1, 0.4},
    {Field::Unions, Level::Equal, 0.01, 0.2},
    {Field::Profession, Level::Equal, 0.5, 0.05, true}, {Field::Profession, Level::Other, 0.5, 0.95},
    {Field::Nickname, Level::Equal, 0.5, 0.008},       {Field::Nickname, Level::Other, 0.5, 0.99},
    {Field::Title, Level::Equal, 0.6, 0.15},           {Field::Title, Level::Other, 0.4, 0.85},
    {Field::Godparents, Level::Equal, 0.2, 0.03},      {Field::SameOrigin, Level::Equal, 0.95, 0.0055},
    {Field::Same, Level::Equal, 0.95, 0.001}};
// clang-format on

bool hasWords(Field field)
{
    return field != Field::FirstName && field != Field::Father && field != Field::Mother && field != Field::Spouse &&
           field != Field::Grandparents;
}

} // namespace

double Weight::bits() const
{
    return std::log2(std::max(m, leastChance) / std::max(u, leastChance));
}

double Weight::bits(double byChance) const
{
    if (!byValue) return bits();
    const double chance = level == Level::Other ? 1 - byChance : byChance;
    return std::log2(std::max(m, leastChance) / std::max(chance, leastChance));
}

const Weight& Model::weight(Field field, Level level) const
{
    static const Weight nothing;
    const auto found = std::ranges::find_if(
        weights, [&](const Weight& weight) { return weight.field == field && weight.level == level; });
    return found != weights.end() ? *found : nothing;
}

Model startModel()
{
    Model model;
    model.weights.reserve(std::size(names) * 5 + std::size(others));
    for (const NameStart& name : names) {
        const auto add = [&](Level level, double m, double u) {
            model.weights.push_back({name.field, level, m, u, true});
        };
        add(Level::Equal, name.same, name.chance);
        if (name.field != Field::ParentsSurname) {
            add(Level::OfOneClass, name.same * spelling::ofOneClass, name.chance);
            add(Level::Likened, name.same * spelling::likened, name.chance);
            if (hasWords(name.field)) add(Level::Devotional, devotional, name.chance);
        }
        add(Level::Other, 1 - name.same, 1 - name.chance);
    }
    model.weights.insert(model.weights.end(), std::begin(others), std::end(others));
    return model;
}

QString title(Field field)
{
    static const std::array<QString, fieldCount> titles{"nome próprio",
                                                        "outros nomes",
                                                        "outros nomes",
                                                        "apelido dos pais",
                                                        "pai",
                                                        "apelidos do pai",
                                                        "mãe",
                                                        "apelidos da mãe",
                                                        "cônjuge",
                                                        "apelidos do cônjuge",
                                                        "avós",
                                                        "nascimento",
                                                        "época",
                                                        "óbito",
                                                        "casamento",
                                                        "uniões ao mesmo tempo",
                                                        "tempo do casal",
                                                        "lugar",
                                                        "freguesia",
                                                        "profissão",
                                                        "alcunha",
                                                        "título",
                                                        "padrinhos",
                                                        "a mesma família de origem",
                                                        "o mesmo registo"};
    return titles[size_t(field)];
}

QString title(Level level)
{
    static const std::array<QString, levelCount> titles{
        "não dito",      "igual",         "da mesma classe", "parecido",        "de devoção",   "até 1 ano",
        "de 1 a 3 anos", "de 3 a 5 anos", "de 5 a 10 anos",  "de 10 a 20 anos", "no mesmo dia", "a poucos dias",
        "outro"};
    return titles[size_t(level)];
}

} // namespace study::linkage
