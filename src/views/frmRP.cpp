#include "views/frmRP.h"

#include "common/modGeral.h"
#include "platform/forms/forms.h"
#include "platform/forms/msgbox.h"

#include <QDir>

#include <algorithm>

struct FrmRP::Registo
{
    const char *tipo, *coluna, *nome;
};

namespace {

constexpr FrmRP::Registo registos[] = {
    {"b", "rpBapt", "Baptismo"},
    {"o", "rpObi", "Óbito"},
    {"c", "rpCas", "Casamento"},
};

} // namespace

FrmRP& frmRP()
{
    return theForm<FrmRP>();
}

FrmRP::FrmRP() : Form(Name)
{
    setupUi(this);
    lblTipo->hide();
    connect(cmdLoc, &CommandButton::clicked, this, &FrmRP::cmdLoc_Click);
    connect(cmdG_0, &CommandButton::clicked, this, &FrmRP::cmdG_0_Click);
    connect(cmdG_1, &CommandButton::clicked, this, &FrmRP::cmdG_1_Click);
    connect(cmdG_2, &CommandButton::clicked, this, &FrmRP::cmdG_2_Click);
}

// The hidden card would be out of reach.
bool FrmRP::Form_QueryUnload(UnloadMode mode)
{
    return mode != UnloadMode::ControlMenu;
}

// Kept: the caption doesn't name the record.
void FrmRP::mostraPara(Ficha& ficha, const QString& tipo)
{
    display();
    lblTipo->setText(tipo);
    ficha_ = &ficha;
    registo_ = std::ranges::find_if(registos, [&](const Registo& registo) { return tipo == registo.tipo; });
    ficha.conceal();
    try {
        txtLoc->setText(ficha.registoNaFicha()[registo_->coluna].toString());
    } catch (const jet::Error&) {
        // Kept: errors are passed over; with no row to read, the path stays as the form has it.
    }
}

void FrmRP::cmdLoc_Click()
{
    guarded([&] { txtLoc->setText(QDir::toNativeSeparators(openFileName("Registos Paroquiais"))); });
}

// Kept: a path can be replaced, but never removed. The form stays open, and the card hidden.
void FrmRP::cmdG_0_Click()
{
    guarded([&] {
        if (!registo_ || txtLoc->text().isEmpty()) return;
        const Hourglass ampulheta;
        jet::Recordset& linha = ficha_->registoNaFicha();
        linha.set(registo_->coluna, txtLoc->text());
        linha.update();
        showMessage("O Registo de " + QString(registo_->nome) + " foi guardado com sucesso!", Icon::None);
    });
}

void FrmRP::cmdG_1_Click()
{
    guarded([&] { voltaAFicha(); });
}

// Shows the file in the field, stored or not.
void FrmRP::cmdG_2_Click()
{
    guarded([&] {
        AbreFicheiro(txtLoc->text());
        voltaAFicha();
    });
}

// A form that no card has opened brings up the card of people.
void FrmRP::voltaAFicha()
{
    if (ficha_)
        ficha_->display();
    else
        Forms::show("frmInd");
    unload();
}
