// How one person assisted at an act: the fields that the window of the act and the list of a person's acts share.
#pragma once

#include "platform/forms/controls.h"
#include "platform/forms/modes.h"
#include "platform/jet/recordset.h"

#include "ui_fichaDoAssistente.h"

#include <QWidget>

class FichaDoAssistente : public QWidget, public Ui::FichaDoAssistente
{
public:
    explicit FichaDoAssistente(QWidget* parent = nullptr) : QWidget(parent) { setupUi(this); }

    void preencheListas();
    // "Edi" opens the fields, "Cons" shuts them.
    void AplicarModo(Modo modo);
    // For a marriage the kinship to both spouses, for a baptism that to the child alone.
    void mostraParentescos(bool casamento);
    void limpa();
    // Shows a row of `assistente`, all but the kinship, on cleared fields.
    void mostra(const jet::Recordset& assistente);
};
