// What a check has found: one case of one rule.
#pragma once

#include "study/parish/numbers.h"

#include <QDate>
#include <QString>

#include <vector>

namespace study::checks {

enum class Severity
{
    Impossible,
    Unlikely,
    Information
};

// "impossível", "aviso", "informação".
QString inWords(Severity severity);

struct Case
{
    QString rule; // its id
    Severity severity = Severity::Unlikely;
    QString text; // a sentence in Portuguese with names and dates: what cannot be, and of whom
    std::vector<parish::PersonNumber> people = {}; // first whom it is told of; their cards show what is wrong
    std::vector<parish::FamilyNumber> families = {};
    std::vector<qint64> acts = {}; // of estudo_acto
    QDate when = {};    // the date that it is about, which puts it into a decade; invalid where there is none
    QString about = {}; // tells apart what one rule has against the same records; mostly nothing
    QString state = {}; // of all those records, as they stood: another one when one of them is changed

    bool operator==(const Case&) const = default;

    // The rule and whom and what it is about: "P-01 i12 f3". A case that was seen is known again by it.
    QString key() const;
};

} // namespace study::checks
