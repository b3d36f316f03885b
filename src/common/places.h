// Places: the pair of code and letter, its text form, and the lists that show it.
#pragma once

#include <QString>
#include <QVariant>

class ComboBox;

struct Local
{
    QString codigo;
    QString tipo; // one letter: P, Z, D, C, F, L or S
};

// Text form of a place: name + " -F- " + code.
QString textoDoLocal(const QString& nome, const QString& tipo, const QString& codigo);

// Code and letter out of the text form, by the first "-" of the whole text: a hyphen in the name misleads it, as
// always.
Local localDoTexto(const QString& texto);

// The text behind the first "-"; the whole text where there is none.
QString restoDoLocal(const QString& texto);

// Adds the blank entry and the places of the working list, from sites to countries, and chooses the blank one.
void PreencheLocais(ComboBox& lista);

// Shows a stored pair in a list, adding the place where it isn't on the working list.
// Kept: a site that isn't on the list is looked up in the wrong table, and raises the engine's error.
void SeleccionaLocal(ComboBox& lista, const QString& codigo, const QString& tipo);

// Chooses the BDP's own parish, where the list has it.
void SeleccionaParoquiaDaBDP(ComboBox& lista);

QString NomeLocal(const QVariant& codigo, const QVariant& tipo);
QString DescricaoInfo(const QString& categoria, const QString& codigo);
