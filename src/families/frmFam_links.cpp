// The ways out of the card: to a person, to the forms of the family, and back to whoever called it.
#include "families/frmFam.h"

#include "common/instrucao.h"
#include "common/modGeral.h"
#include "common/numeros.h"
#include "common/pedidoDeLocal.h"
#include "common/text.h"
#include "individuals/frmInd.h"
#include "platform/forms/forms.h"
#include "views/frmRP.h"

// For an empty half there is nobody to look up, and the first individual is shown.
void FrmFam::cmdDirInd_Click(int indice)
{
    guarded([&] {
        const QString digitado = metade(indice).nind->text();
        const QString nind = eNumero(digitado) ? numeroEmSQL(digitado) : digitado;
        FrmInd::pede(pedidoDeConjuge(indice), indice == 0 ? Trim(nind) : nind); // Kept: one of them trimmed.
    });
}

PedidoDeIndividuo FrmFam::pedidoDeConjuge(int indice)
{
    const bool homem = indice == 0;
    const auto edita = [this, familia = numero()] { return modo() == Modo::Edi && numero() == familia; };
    const auto recusaConjuge = [=](const PedidoDeIndividuo&, const FrmInd& ficha) -> std::optional<RecusaDeIndividuo> {
        if (!edita()) return RecusaDeIndividuo{"A família que pediu o indivíduo já não está a ser editada!"};
        if (ficha.sexo() == (homem ? "m" : "f")) return {};
        return RecusaDeIndividuo{homem ? "Deve seleccionar um indivíduo de sexo masculino!"
                                       : "Deve seleccionar um indivíduo de sexo feminino!"};
    };
    // Kept: the bare name replaces the description that the change of the number has just brought.
    const auto recebe = [=, this](const FrmInd& ficha) {
        metade(indice).nind->setText(ficha.numero());
        metade(indice).nome->setText(ficha.nome());
    };
    const auto segue = [=, this](const FrmInd& ficha) {
        if (metade(indice).nind->text() == ficha.numero()) metade(indice).nome->setText(ficha.nome());
    };
    return {.origem = homem ? OrigemInd::Marido : OrigemInd::Esposa,
            .quem = this,
            .oferece = edita,
            .recusa = recusaConjuge,
            .recebe = recebe,
            .segueAlteracao = segue,
            .comoQue = [homem, nfam = numero()](const FrmInd&) {
                return QString(homem ? "marido" : "esposa") + " da família nº " + nfam;
            }};
}

void FrmFam::mostraPara(OrigemFam origem, const QString& nfam)
{
    display();
    if (modo() != Modo::Cons) return setFocusToForm();
    setEnabled(true);
    setFocusToForm();
    OrigemFam_ = origem;
    // A cancelled search comes back to the family that the person founded, or to the one shown before the family of
    // origin.
    NfamCorrente = Nfam::doCampo(origem == OrigemFam::FamiliaOrigem ? numero() : nfam);
    adoFam.recordset().moveFirst();
    adoFam.recordset().find("nfamilia = " + chaveEmSQL(nfam));
    mostraRegistoDoFicheiro();
}

void FrmFam::abrePeloMenu()
{
    OrigemFam_ = OrigemFam::Menu;
    display();
    adoFam.refresh(); // Kept: the file goes to its first row, and the fields stay as they are.
    setEnabled(true);
}

Dono FrmFam::dono()
{
    return {TipoDeDono::Familia, numero(), {}, mskData->text(), this, &adoFam.recordset()};
}

// The picker enables the card again when it closes.
void FrmFam::cmdEncLoc_Click()
{
    guarded([&] { pedeLocal(paraLista(OrigemLoc::Casamento, *this, *cmbLoc)); });
}

void FrmFam::cmdRP_Click()
{
    guarded([&] { FrmRP::mostraPara(*this, "c"); });
}

void FrmFam::cmdInt_Click()
{
    guarded([&] {
        // In an insertion the family has no row yet, and the file is on the last one, where its number came from.
        if (!inserindo()) poeFicheiroNaFicha();
        abreIntervenientes();
    });
}

// Kept: on the way back to the individual's card, this one stays as it is.
void FrmFam::cmdFechar_Click()
{
    guarded([&] {
        if (OrigemFam_ == OrigemFam::Menu || !chamada().existe()) return conceal();
        frmInd().display();
        frmInd().setEnabled(true);
        frmInd().setFocusToForm();
        OrigemFam_ = OrigemFam::Menu;
    });
}
