// The picker's load, and what it opens.
#include "places/frmLocalizacao_niveis.h"

#include "common/globals.h"
#include "common/modGeral.h"
#include "common/vbtext.h"
#include "platform/forms/focus.h"
#include "platform/forms/forms.h"

FrmLocalizacao& frmLocalizacao()
{
    return theForm<FrmLocalizacao>();
}

FrmLocalizacao::FrmLocalizacao() : Form(Name)
{
    setupUi(this);
    fraLista->setVisible(OrigemLoc != 6); // a BDP's parish is no matter of the list
    connect(cmbPais, &ComboBox::clicked, this, &FrmLocalizacao::cmbPais_Click);
    connect(cmbZona, &ComboBox::clicked, this, &FrmLocalizacao::cmbZona_Click);
    connect(cmdZ, &QPushButton::clicked, this, &FrmLocalizacao::cmdZ_Click);
    connect(cmbDistrito, &ComboBox::clicked, this, &FrmLocalizacao::cmbDistrito_Click);
    connect(cmbConcelho, &ComboBox::clicked, this, &FrmLocalizacao::cmbConcelho_Click);
    connect(cmbParoquia, &ComboBox::clicked, this, &FrmLocalizacao::cmbParoquia_Click);
    connect(cmbLugar, &ComboBox::clicked, this, &FrmLocalizacao::cmbLugar_Click);
    connect(cmdLug, &QPushButton::clicked, this, &FrmLocalizacao::cmdLug_Click);
    connect(cmbS, &ComboBox::clicked, this, &FrmLocalizacao::cmbS_Click);
    connect(cmdSit, &QPushButton::clicked, this, &FrmLocalizacao::cmdSit_Click);
    connect(cmdGuardar, &QPushButton::clicked, this, &FrmLocalizacao::cmdGuardar_Click);
    connect(cmdRem, &QPushButton::clicked, this, &FrmLocalizacao::cmdRem_Click);
    connect(cmdLoc, &QPushButton::clicked, this, &FrmLocalizacao::cmdLoc_Click);
    connect(cmdAtribuir, &QPushButton::clicked, this, &FrmLocalizacao::cmdAtribuir_Click);
    connect(cmdSair, &QPushButton::clicked, this, &FrmLocalizacao::cmdSair_Click);
}

void FrmLocalizacao::Form_Load()
{
    guarded([&] {
        preenchePaises();
        escolheParoquiaDaBDP();
        if (OrigemLoc == 6)
            cmdGuardar->setEnabled(false);
        else
            preencheLista();
        cmdRem->setEnabled(lstLocal->listCount() > 0);
    });
}

void FrmLocalizacao::cmdZ_Click()
{
    guarded([&] { abreEditor("frmZona", "Zonas de ", cmbPais); });
}

void FrmLocalizacao::cmdLug_Click()
{
    guarded([&] { abreEditor("frmLugares", "Localidades de ", cmbParoquia); });
}

void FrmLocalizacao::cmdSit_Click()
{
    guarded([&] { abreEditor("frmSitios", "Sítios de ", cmbLugar); });
}

void FrmLocalizacao::cmdLoc_Click()
{
    guarded([&] {
        if (Forms::show("frmPesq")) setEnabled(false);
    });
}

// Opens the editor of the places below the one chosen in `superior`.
void FrmLocalizacao::abreEditor(const QString& editor, const QString& titulo, const ComboBox* superior)
{
    const QString local = Trim(superior->text());
    if (local.isEmpty()) return;
    if (Form* form = Forms::show(editor)) {
        form->setCaption(titulo + local);
        setEnabled(false);
    }
}

void FrmLocalizacao::retomaDoEditor(Nivel superior)
{
    ComboBox* acima = this->*niveis[superior].lista;
    emit acima->clicked();
    setEnabled(true);
    ComboBox* lista = this->*niveis[superior + 1].lista;
    if (isShown() && lista->count() > 1) Focus::setTo(lista);
}
