// The contents of fields as values for the store, and the refusal of what it can't take.
#pragma once

#include "common/datas.h"
#include "common/locais.h"
#include "common/numeros.h"
#include "common/text.h"
#include "platform/forms/controls.h"

#include <QList>
#include <QVariant>

#include <utility>

// False if there are only blanks, or an empty date with or without its mask.
template <class Campo>
bool preenchido(const Campo* campo)
{
    return !Trim(campo->text()).isEmpty();
}

inline bool preenchido(const MaskedEdit* campo)
{
    return !semData(Trim(campo->text()));
}

// The values; null if the field isn't filled. Error 13 for a text that is no number.
template <class Campo>
QVariant textoDe(const Campo* campo)
{
    return preenchido(campo) ? campo->text() : QVariant();
}

inline QVariant numeroDe(const TextBox* campo)
{
    return preenchido(campo) ? numeroDoTexto(campo->text()) : QVariant();
}

// For a column of whole numbers: Error 13 for any other number that was typed. What the program has shown goes back as
// it is, though an older BDP may hold a fraction there.
inline QVariant inteiroDe(const TextBox* campo)
{
    if (!campo->isModified()) return numeroDe(campo);
    return preenchido(campo) ? inteiroDoTexto(campo->text()) : QVariant();
}

inline QVariant itemDe(const ComboBox* lista)
{
    return preenchido(lista) ? lista->itemData(lista->listIndex()) : QVariant();
}

inline QVariant codigoDe(const ComboBox* lista)
{
    const QString codigo = localDoTexto(lista->text()).codigo;
    return codigo.isEmpty() ? QVariant() : codigo;
}

inline QVariant letraDe(const ComboBox* lista)
{
    const QString letra = localDoTexto(lista->text()).nivel;
    return letra.isEmpty() ? QVariant() : letra;
}

// Columns with their values, in the order in which they are set.
using Colunas = QList<std::pair<QString, QVariant>>;

// What a list says of its columns in an alteration: null for the blank entry, and nothing at all where no entry is
// chosen, so that they stay as they are.
inline Colunas itemPara(const QString& coluna, const ComboBox* lista)
{
    return lista->listIndex() < 0 ? Colunas() : Colunas{{coluna, itemDe(lista)}};
}

inline Colunas localPara(const QString& colunaDoCodigo, const QString& colunaDaLetra, const ComboBox* lista)
{
    return lista->listIndex() < 0 ? Colunas()
                                  : Colunas{{colunaDoCodigo, codigoDe(lista)}, {colunaDaLetra, letraDe(lista)}};
}

// Tells the user why, gives the field the focus, and returns false.
bool recusa(const QString& motivo, QWidget* campo);
