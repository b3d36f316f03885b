// What might be typed or pasted into a field, by somebody who means well or who doesn't.
#pragma once

#include "dice.h"

#include <QString>

namespace Texts {

struct Manner
{
    bool pasted; // may be very long, and on several lines
    bool tame;   // of the kind that the field is made for, as far as that can be told, and without an apostrophe
};

QString any(Dice& dice, Manner manner); // for a field of text
QString number(Dice& dice, Manner manner);
QString date(Dice& dice, Manner manner);
QString path(Dice& dice);

} // namespace Texts
