#include "views/frmRP.h"

#include "common/instrucao.h"
#include "common/modGeral.h"
#include "common/registoVisto.h"
#include "platform/forms/forms.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/showntext.h"

#include <QDir>

#include <algorithm>
#include <initializer_list>

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

// The row that a person or a family has in the store by now.
jet::Recordset linhaDe(const Dono& dono, const FrmRP::Registo& registo)
{
    const QString chave = dono.familia() ? "nfamilia" : "nind";
    return {cnBDP, QString("select %1, %2 from %3 where %1 = ")
                           .arg(chave, registo.coluna, dono.familia() ? "familia" : "individuo") +
                       chaveEmSQL(dono.numero)};
}

} // namespace

FrmRP& frmRP()
{
    return theForm<FrmRP>();
}

FrmRP::FrmRP() : JanelaDoDono(Name)
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

void FrmRP::mostraPara(Ficha& ficha, const QString& tipo)
{
    if (!ficha.temRegisto()) return;
    const Registo& registo =
        *std::ranges::find_if(registos, [&](const Registo& candidato) { return tipo == candidato.tipo; });
    const Dono dono = ficha.dono();
    const jet::Recordset linha = linhaDe(dono, registo);
    if (linha.eof()) return; // gone from the store
    if (Form* aberta = Forms::find(Name); aberta && static_cast<FrmRP*>(aberta)->porGuardar()) return aberta->display();
    abre(Name, dono);
    frmRP().mostra(registo, linha[registo.coluna].toString());
    ficha.conceal();
}

// Kept: the caption doesn't name the record; the tool tip does.
void FrmRP::mostra(const Registo& registo, const QString& caminho)
{
    registo_ = &registo;
    lblTipo->setText(registo.tipo);
    guardado_ = caminho;
    txtLoc->setText(caminho);
    const Dono& dono = donoDaJanela();
    const QString dica = "Registo de " + QString(registo.nome) + " d" + dono.designacao() +
                         (dono.nome.isEmpty() ? QString() : ", " + dono.nome);
    for (QWidget* onde : std::initializer_list<QWidget*>{this, txtLoc})
        onde->setToolTip(shownTip(dica));
}

bool FrmRP::porGuardar() const
{
    return registo_ && txtLoc->text() != guardado_;
}

void FrmRP::cmdLoc_Click()
{
    guarded([&] { txtLoc->setText(QDir::toNativeSeparators(openFileName("Registos Paroquiais|*"))); });
}

// Kept: a path can be replaced, but never removed. The form stays open, and the card hidden.
void FrmRP::cmdG_0_Click()
{
    guarded([&] {
        if (!registo_ || txtLoc->text().isEmpty()) return;
        const Hourglass ampulheta;
        if (!donoGuardado()) return;
        jet::Recordset linha = linhaDe(donoDaJanela(), *registo_);
        if (linha[registo_->coluna].toString() != guardado_ && !gravaPorCima()) return;
        linha.set(registo_->coluna, txtLoc->text());
        linha.update();
        guardado_ = txtLoc->text();
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
    if (Ficha* ficha = donoDaJanela().ficha)
        ficha->display();
    else
        Forms::show("frmInd");
    unload();
}
