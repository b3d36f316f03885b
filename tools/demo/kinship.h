// What people are to each other by blood.
#pragma once

#include "parish.h"

namespace demo {

// None where unknown.
struct Parents
{
    Nind father;
    Nind mother;
};
Parents parentsOf(const Parish& parish, const Person& person);

// The code of what the first is to the second; 0 where no kinship is known.
int kinship(const Parish& parish, const Person& who, const Person& toWhom);

} // namespace demo
