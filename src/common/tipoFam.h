// The type of a family, by what is known of its people.
#pragma once

#include <QString>

struct DatasDaFamilia
{
    bool nascimentoDaMae = false;
    bool obitos = false; // of both parents
    bool casamento = false;
    bool nascimentosDosFilhos = false; // of all of them

    bool operator==(const DatasDaFamilia&) const = default;
};

// "1" to "7".
QString tipoDaFamilia(const DatasDaFamilia& conhecidas);
