// From the card of a person to families, trees, and the forms of the person's acts and dated attributes.
#include "individuals/frmInd.h"

#include "acts/frmIntervenientes.h"
#include "common/dates.h"
#include "common/globals.h"
#include "common/modGeral.h"
#include "common/numbers.h"
#include "common/pedidoDeLocal.h"
#include "common/vbtext.h"
#include "families/frmFam.h"
#include "platform/forms/forms.h"
#include "platform/forms/msgbox.h"
#include "views/frmArv.h"
#include "views/frmRP.h"

namespace {

// The family card comes up before the family is sought: it stays where it was if the number leads nowhere.
void abreFamilia(int origem)
{
    frmFam().display();
    frmFam().setEnabled(true);
    frmFam().setFocusToForm();
    OrigemFam = origem;
}

void mostraFamilia(const QString& numero)
{
    jet::Recordset& familias = frmFam().adoFam.recordset();
    familias.moveFirst();
    familias.find("nfamilia = " + numero);
    frmFam().ActualizaCampos(familias, familias["nfamilia"].toDouble());
}

void escreve(const Form& form, const QString& campo, const QString& texto)
{
    form.findChild<QWidget*>(campo)->setProperty("text", texto);
}

} // namespace

// Index 0 the family of origin, 1 its tree.
void FrmInd::cmdDirFam_Click(int indice)
{
    guarded([&] {
        if (indice == 0 && IndChamado == 1)
            return showMessage("No estado em que a aplicação se encontra não é possível consultar a família origem.");
        const QString origem = Trim(txtFamOrig->text());
        if (origem.isEmpty() || origem == "0") return;
        if (indice == 1) return mostraArvore("Indivíduo", txtNind->text(), txtNome->text());
        abreFamilia(1);
        NfamCorrente = numeroDoTexto(frmFam().txtNFam->text()); // the family that stands there yet
        mostraFamilia(origem);
    });
}

void FrmInd::cmdConsRel_Click()
{
    guarded([&] {
        if (IndChamado == 1)
            return showMessage(
                "No estado em que a aplicação se encontra não é possível consultar a família constituída.");
        if (!adoRel.hasRows() || dtgProf->row() == 0) return;
        abreFamilia(2);
        const QString numero = dtgProf->textMatrix(dtgProf->row(), 0);
        NfamCorrente = numeroDoTexto(numero);
        mostraFamilia(numero);
    });
}

// The tree of the spouse in the family chosen.
void FrmInd::Command1_Click()
{
    guarded([&] {
        if (dtgProf->row() == 0) return;
        const jet::Recordset conjuge(cnBDP, "select individuo.nind, nome from individuo, familias where nfamilia = " +
                                                dtgProf->textMatrix(dtgProf->row(), 0) +
                                                " and familias.nind = individuo.nind and  familias.nind <> " +
                                                txtNind->text());
        if (conjuge.eof()) return showMessage("Não existe informação sobre o conjuge.");
        mostraArvore("Conjuge", textoDoNumero(conjuge["Nind"]), conjuge["Nome"].toString());
    });
}

void FrmInd::mostraArvore(const QString& tipo, const QString& nind, const QString& nome)
{
    FrmArv& arvore = frmArv();
    arvore.display();
    arvore.lblTipo->setText(tipo);
    arvore.txtNind->setText(nind);
    arvore.txtNome->setText(nome);
    setEnabled(false);
    arvore.PreencheArv();
}

// Shows the form, which enables the card again when it goes. One that is open already stays with whoever opened it, and
// only comes forward. Null where that is so, and where there is no such form.
Form* FrmInd::abre(const QString& nome)
{
    Form* form = nullptr;
    guarded([&] {
        if (!Forms::exists(nome)) return;
        if (Form* aberto = Forms::find(nome)) return aberto->display();
        setEnabled(false);
        form = Forms::show(nome);
    });
    return form;
}

void FrmInd::abreComIndividuo(const QString& nome)
{
    const Form* form = abre(nome);
    if (!form) return;
    escreve(*form, "txtNind", txtNind->text());
    escreve(*form, "txtNome", txtNome->text());
}

void FrmInd::cmdResid_Click()
{
    if (!Forms::isLoaded("frmResid")) OrigemResid = 2;
    const Form* form = abre("frmResid");
    if (!form) return;
    escreve(*form, "Label2", "Indivíduo");
    escreve(*form, "txtNum", txtNind->text());
    escreve(*form, "txtNome", txtNome->text());
}

void FrmInd::cmdInterv_Click()
{
    guarded([&] {
        if (eData(mskDtNasc->text())) abreIntervenientes(2);
    });
}

// Index 0 the record of the baptism, 1 that of the death.
void FrmInd::cmdRP_Click(int indice)
{
    guarded([&] { frmRP().mostraPara(indice == 0 ? "b" : "o"); });
}

void FrmInd::escolheLocal(OrigemLoc origem, ComboBox& lista)
{
    guarded([&] { pedeLocal(paraLista(origem, *this, lista)); });
}
