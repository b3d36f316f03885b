// Settings made by chance, each of them one that a researcher can make.
#pragma once

#include "study/indicators/settings.h"

#include <QRandomGenerator>

inline study::indicators::YearSpan randomSpan(QRandomGenerator& dice)
{
    const int first = dice.bounded(2) == 0 ? 0 : dice.bounded(1500, 1900);
    return {first, dice.bounded(2) == 0 ? 0 : dice.bounded(1900, 2000)};
}

inline study::indicators::Settings randomSettings(QRandomGenerator& dice)
{
    using namespace study::indicators;
    const auto coin = [&dice] { return dice.bounded(2) == 1; };
    const auto oneOf = [&dice](std::array<int, 3> choices) {
        return choices[static_cast<std::size_t>(dice.bounded(static_cast<int>(choices.size())))];
    };
    Settings settings;
    settings.period = randomSpan(dice);
    settings.cohortYears = oneOf({10, 25, 50});
    settings.byMarriageCohort = coin();
    for (YearSpan& book : settings.books)
        book = randomSpan(dice);
    for (auto& gaps : settings.gaps)
        for (int n = dice.bounded(3); n > 0; --n)
            gaps.push_back(randomSpan(dice));
    settings.which = static_cast<Which>(dice.bounded(3));
    settings.gender = static_cast<study::parish::Gender>(dice.bounded(3));
    settings.localOnly = coin();
    settings.unions = {.approximateMarriages = coin(), .marriedAtDeath = coin(), .leaveOutContradictory = coin()};
    settings.derivedBirths = coin();
    settings.completeAge = coin() ? 50 : 45;
    settings.missingBirths = dice.bounded(0.2);
    settings.movingAverage = oneOf({5, 9, 11});
    settings.signsFrom = dice.bounded(-2, 9);
    settings.skipCrises = coin();
    settings.marksFrom = dice.bounded(-2, 3);
    settings.indexBase = coin() ? 0 : dice.bounded(1500, 1900);
    if (coin()) settings.birthWords = QString::fromUtf8("nasceu à \"hora\"; n.");
    if (coin()) settings.baptismWords = "b. a";
    for (int n = dice.bounded(3); n > 0; --n)
        settings.baptisms[study::parish::PersonNumber(dice.bounded(1, 1000))] = {
            QDate(1700, 1, 1).addDays(dice.bounded(30000)), QDate(1700, 1, 1).addDays(dice.bounded(30000))};
    if (coin()) settings.causes = {{"tiro", "acidente"}, {QString::fromUtf8("cãibra"), "outra"}};
    for (int n = dice.bounded(3); n > 0; --n)
        settings.neighbours << QString("%1 \"ã\"").arg(dice.bounded(100000));
    for (int n = dice.bounded(4); n > 0; --n)
        settings.filiations.insert(dice.bounded(1, 40), static_cast<Legitimacy>(dice.bounded(5)));
    return settings;
}
