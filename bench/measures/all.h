// The measures by their subject. The order of the table is that of all.cpp.
#pragma once

#include "kit/measure.h"

#include <vector>

namespace bench {

std::vector<Measure> writing();
std::vector<Measure> baptisms();
std::vector<Measure> loading();
std::vector<Measure> moving();
std::vector<Measure> modes();
std::vector<Measure> searching();
std::vector<Measure> finding();
std::vector<Measure> checking();
std::vector<Measure> results();
std::vector<Measure> deleting();
std::vector<Measure> places();
std::vector<Measure> copies();
std::vector<Measure> processes();

} // namespace bench
