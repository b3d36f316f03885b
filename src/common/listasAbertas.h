// The lists of the open windows that follow a table which another window edits.
#pragma once

#include "platform/forms/controls.h"
#include "platform/forms/form.h"

#include <QList>
#include <QPointer>
#include <QString>

#include <functional>

namespace ListasAbertas {

struct Lista
{
    QPointer<Form> janela;
    QPointer<ComboBox> combo;
    QString categoria = {};            // of a list of codes
    std::function<bool()> quando = {}; // whether it shows the category now; empty: always
};

// A window makes a list known, once, in its constructor. The list is forgotten when it goes. In a list of codes or
// professions, the item number that was chosen is chosen again when it was filled anew.
void segueLocais(Form& janela, ComboBox& lista);
void segueCodigos(Form& janela, ComboBox& lista, const QString& categoria, std::function<bool()> quando = {});
void segueProfissoes(Form& janela, ComboBox& lista);

// Those of the loaded windows, in the order in which they were made known.
QList<Lista> deLocais();
QList<Lista> deCodigos();
QList<Lista> deProfissoes();

} // namespace ListasAbertas
