#include "views/frmRP.h"

#include "common/modGeral.h"
#include "families/frmFam.h"
#include "individuals/frmInd.h"
#include "platform/forms/forms.h"
#include "platform/forms/msgbox.h"

#include <QDir>

#include <algorithm>
#include <iterator>

namespace {

struct Registo
{
    const char *tipo, *coluna, *legenda, *nome;
};

constexpr Registo registos[] = {
    {"b", "rpBapt", "Baptizado", "Baptismo"},
    {"o", "rpObi", "Óbito", "Óbito"},
    {"c", "rpCas", "Casamento", "Casamento"},
};

// Null for a text that is no kind.
const Registo* registoDe(const QString& tipo)
{
    const auto registo = std::ranges::find_if(registos, [&](const Registo& r) { return tipo == r.tipo; });
    return registo == std::end(registos) ? nullptr : registo;
}

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

// Kept: the kind is told after the load, so that the caption stays as it is.
void FrmRP::Form_Load()
{
    if (const Registo* registo = registoDe(lblTipo->text()))
        setCaption(caption() + " - Edição de Registo de " + registo->legenda);
}

// The hidden card would be out of reach.
bool FrmRP::Form_QueryUnload(UnloadMode mode)
{
    return mode != UnloadMode::ControlMenu;
}

void FrmRP::mostraPara(const QString& tipo)
{
    display();
    lblTipo->setText(tipo);
    ficha().conceal();
    try {
        txtLoc->setText(ficha().registoNaFicha()[registoDe(tipo)->coluna].toString());
    } catch (const jet::Error&) {
        // Kept: errors are passed over; with no row to read, the path stays as the form has it.
    }
}

Ficha& FrmRP::ficha() const
{
    if (lblTipo->text() == "c") return frmFam();
    return frmInd();
}

void FrmRP::cmdLoc_Click()
{
    guarded([&] { txtLoc->setText(QDir::toNativeSeparators(openFileName("Registos Paroquiais"))); });
}

// Kept: a path can be replaced, and never taken away. The form stays, and the card hidden.
void FrmRP::cmdG_0_Click()
{
    guarded([&] {
        const Registo* registo = registoDe(lblTipo->text());
        if (!registo || txtLoc->text().isEmpty()) return;
        const Hourglass ampulheta;
        jet::Recordset& linha = ficha().registoNaFicha();
        linha.set(registo->coluna, txtLoc->text());
        linha.update();
        showMessage("O Registo de " + QString(registo->nome) + " foi guardado com sucesso!", Icon::None);
    });
}

void FrmRP::cmdG_1_Click()
{
    guarded([&] { voltaAFicha(); });
}

// Shows what stands in the field, stored or not.
void FrmRP::cmdG_2_Click()
{
    guarded([&] {
        AbreFicheiro(txtLoc->text());
        voltaAFicha();
    });
}

void FrmRP::voltaAFicha()
{
    ficha().display();
    unload();
}
