// What a date field held when the user entered it.
#pragma once

#include "platform/forms/controls.h"

#include <QString>

#include <utility>

// An entry that the refusal of the date has caused doesn't count: the user is still on the date entered before.
class DataAoEntrar
{
public:
    void entra(const MaskedEdit& campo)
    {
        if (!std::exchange(recusada_, false)) texto_ = campo.text();
    }
    void recusa() { recusada_ = true; } // the field is about to be given its focus back

    const QString& texto() const { return texto_; }
    bool inalterada(const MaskedEdit& campo) const { return campo.text() == texto_; }

private:
    QString texto_;
    bool recusada_ = false;
};
