// The two ends of a life, as the trees show them.
#pragma once

#include "platform/jet/recordset.h"

#include <QString>

// "  DN: " and the date of birth, or else "  IO: " and the start of observation; "" where neither is known.
QString InicioDaVida(const jet::Recordset& registos);
// "  DO: " and the date of death, or else "  FO: " and the end of observation; "" where neither is known.
QString FimDaVida(const jet::Recordset& registos);
