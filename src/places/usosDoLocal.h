// Which records point to a place.
#pragma once

#include "common/niveis.h"

#include <QString>

// How many records use a place, in words ("3 registos (1 indivíduo, 2 residências)"): people, families, residences and
// passports, and the sites of a locality. "" where nobody does.
QString usosDoLocal(const DadosDoNivel& nivel, const QString& codigo);
