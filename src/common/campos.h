// What stands in a field, as the store takes it; and the refusal of what it can't take.
#pragma once

#include "common/dates.h"
#include "common/numbers.h"
#include "common/places.h"
#include "common/vbtext.h"
#include "platform/forms/controls.h"

#include <QVariant>

// False for nothing but blanks, and for both empty forms of a date.
template <class Campo>
bool preenchido(const Campo* campo)
{
    return !Trim(campo->text()).isEmpty();
}

inline bool preenchido(const MaskedEdit* campo)
{
    return !semData(Trim(campo->text()));
}

// The values; null where the field isn't filled. Error 13 for a number that is none.
template <class Campo>
QVariant textoDe(const Campo* campo)
{
    return preenchido(campo) ? campo->text() : QVariant();
}

inline QVariant numeroDe(const TextBox* campo)
{
    return preenchido(campo) ? numeroDoTexto(campo->text()) : QVariant();
}

inline QVariant itemDe(const ComboBox* lista)
{
    return preenchido(lista) ? lista->itemData(lista->listIndex()) : QVariant();
}

inline QVariant codigoDe(const ComboBox* lista)
{
    return preenchido(lista) ? localDoTexto(lista->text()).codigo : QVariant();
}

inline QVariant letraDe(const ComboBox* lista)
{
    return preenchido(lista) ? localDoTexto(lista->text()).nivel : QVariant();
}

// Tells the user why not, gives the field the focus, and is false.
bool recusa(const QString& motivo, QWidget* campo);
