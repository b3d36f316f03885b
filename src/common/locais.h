// Places: the pair of code and letter, its text form, and the lists that show it.
#pragma once

#include "common/valores.h"

#include <QString>
#include <QVariant>

class ComboBox;

// Text form of a place: name + " -F- " + code.
QString textoDoLocal(const QString& nome, const QString& tipo, const QString& codigo);

// Code and letter out of the text form, by the last " -X- " of the text: the name may hold hyphens. Both are "" where
// the text holds none.
Local localDoTexto(const QString& texto);

// The text from that letter on ("F- 030302"); the whole text where there is none.
QString restoDoLocal(const QString& texto);

// Adds the blank entry and the places of the working list, from sites to countries, and chooses the blank one.
void PreencheLocais(ComboBox& lista);

// Where the name of a site stands. Kept: the card of a person looks among the localities, which have no such column.
enum class TabelaDosSitios
{
    sitio,
    lugar
};

// Shows a stored pair in a list, adding the place where it isn't on the working list.
void SeleccionaLocal(ComboBox& lista, const QString& codigo, const QString& tipo,
                     TabelaDosSitios sitios = TabelaDosSitios::sitio);

// Chooses the BDP's own parish, where the list has it.
void SeleccionaParoquiaDaBDP(ComboBox& lista);

QString NomeLocal(const QVariant& codigo, const QVariant& tipo);
QString DescricaoInfo(const QString& categoria, const QString& codigo);
