// What speaks for and against, in words and numbers.
#include "study/linkage/compare.h"

#include <algorithm>
#include <functional>
#include <tuple>
#include <utility>

namespace study::linkage {

namespace {

QString yearText(const Face& face)
{
    if (face.birthYear == 0) return {};
    if (face.person->birth.isKnown()) return parish::shown(face.person->birth);
    const QString year = QString::number(int(face.birthYear));
    return face.birthTold ? "cerca de " + year + ", pela idade" : "por volta de " + year;
}

QString timeText(const CoupleFace& couple)
{
    if (couple.time.from == 0) return {};
    const int from = QDate::fromJulianDay(couple.time.from).year(), to = QDate::fromJulianDay(couple.time.to).year();
    return from == to ? QString::number(from) : QString("%1 a %2").arg(from).arg(to);
}

QString fieldTitle(const Sign& sign)
{
    const QString field = title(sign.field);
    return sign.of == Of::Husband ? "marido: " + field : sign.of == Of::Wife ? "mulher: " + field : field;
}

// What the card has of its own, and the name where that has it, too.
QString besideName(const QString& own, const Face& face, bool isInName)
{
    if (!isInName) return own;
    return own.isEmpty() ? face.person->name : own + "; " + face.person->name;
}

// Of a person's own dates and words; names are told by the sign itself.
QString textOf(Field field, const Face* face)
{
    if (!face) return {};
    switch (field) {
    case Field::Birth:
    case Field::Times:
        return yearText(*face);
    case Field::Death:
        return parish::shown(face->person->death);
    case Field::Nickname:
        return besideName(face->person->nickname, *face, !face->name->bynames.isEmpty());
    case Field::Title:
        return besideName(face->person->title, *face, !face->name->titles.isEmpty());
    case Field::Same:
        return face->person->name;
    default:
        return {};
    }
}

QString textOf(const Sign& sign, const CoupleFace& couple)
{
    if (sign.of == Of::Husband) return textOf(sign.field, couple.husband);
    if (sign.of == Of::Wife) return textOf(sign.field, couple.wife);
    if (sign.field == Field::Marriage) return parish::shown(couple.family->marriage);
    return sign.field == Field::Interval ? timeText(couple) : QString();
}

template <class Text>
std::vector<Evidence> told(const Comparison& of, const Text& text)
{
    std::vector<Evidence> all;
    all.reserve(of.signs.size());
    for (const Sign& sign : of.signs) {
        Evidence one{.field = fieldTitle(sign), .bits = sign.bits};
        if (sign.one && sign.other) {
            one.one = sign.one->written;
            one.other = sign.other->written;
        } else {
            std::tie(one.one, one.other) = text(sign);
        }
        all.push_back(std::move(one));
    }
    std::ranges::stable_sort(all, std::greater(), &Evidence::bits);
    return all;
}

} // namespace

QString Comparer::thingText(const Sign& sign, std::span<const Whereabouts> of) const
{
    QString all;
    for (const Whereabouts& one : of)
        if (sign.thing < 0 || sign.thing == one.place) {
            const QString name = faces_.thing(one.place);
            all += all.isEmpty() ? name : ", " + name;
        }
    return all;
}

std::vector<Evidence> Comparer::evidence(const Comparison& of, const Face& one, const Face& other) const
{
    const auto text = [this](const Sign& sign, const Face& face) {
        if (sign.field == Field::Place) return thingText(sign, face.places);
        if (sign.field == Field::Parish) return thingText(sign, face.parishes);
        if (sign.field == Field::Profession) return thingText(sign, face.professions);
        return sign.field == Field::Same ? QString() : textOf(sign.field, &face);
    };
    return told(of, [&](const Sign& sign) { return std::pair(text(sign, one), text(sign, other)); });
}

std::vector<Evidence> Comparer::evidence(const Comparison& of, const CoupleFace& one, const CoupleFace& other) const
{
    const auto text = [this](const Sign& sign, const CoupleFace& couple) {
        if (sign.field == Field::Parish) return thingText(sign, couple.parishes);
        return sign.field == Field::Place ? thingText(sign, couple.places) : textOf(sign, couple);
    };
    return told(of, [&](const Sign& sign) { return std::pair(text(sign, one), text(sign, other)); });
}

} // namespace study::linkage
