// A parish of a test, and what the rules find in it.
#pragma once

#include "study/people.h"

#include "study/checks/check.h"

#include <QStringList>

class Checked : public People
{
protected:
    // What the rule has found, with the severity before it: "impossível: Rui (nº 1) morreu …".
    QStringList cases(const char* rule, const study::checks::Settings& settings = {}) const
    {
        QStringList found;
        for (const study::checks::Case& one : all(settings))
            if (one.rule == rule) found << inWords(one.severity) + ": " + one.text;
        return found;
    }

    // A couple whose marriage has an exact date.
    qint64 wedding(qint64 husband, qint64 wife, const char* marriage)
    {
        const qint64 family = couple(husband, wife, marriage);
        run("update familia set dcasamfixa = 1 where nfamilia = ?", {family});
        return family;
    }

    std::vector<study::checks::Case> all(const study::checks::Settings& settings = {}) const
    {
        return study::checks::Check::run(study::parish::Snapshot::read(bdp), settings);
    }
};
