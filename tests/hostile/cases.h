// Hostile files that were met once, each by its name.
#pragma once

#include "site.h"
#include "verdict.h"

struct Case
{
    const char* title;
    Wanted wanted;
    void (*make)(Site& site);
};

const QList<Case>& cases();
