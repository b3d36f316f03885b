// From the card of a person to families, trees, and the forms of the person's acts and dated attributes.
#include "individuals/frmInd.h"

#include "common/datas.h"
#include "common/dono.h"
#include "common/instrucao.h"
#include "common/modGeral.h"
#include "common/numeros.h"
#include "common/pedidoDeLocal.h"
#include "common/text.h"
#include "families/frmFam.h"
#include "platform/forms/forms.h"
#include "platform/forms/msgbox.h"
#include "views/frmArv.h"
#include "views/frmRP.h"

// Index 0 the family of origin, 1 its tree.
void FrmInd::cmdDirFam_Click(int indice)
{
    guarded([&] {
        if (indice == 0 && chamada().IndChamado())
            return showMessage("No estado em que a aplicação se encontra não é possível consultar a família origem.");
        const QString origem = Trim(txtFamOrig->text());
        if (origem.isEmpty() || origem == "0") return;
        if (indice == 1) return mostraArvore();
        frmFam().mostraPara(OrigemFam::FamiliaOrigem, origem);
    });
}

void FrmInd::cmdConsRel_Click()
{
    guarded([&] {
        if (chamada().IndChamado())
            return showMessage(
                "No estado em que a aplicação se encontra não é possível consultar a família constituída.");
        if (!adoRel.hasRows() || dtgProf->row() == 0) return;
        frmFam().mostraPara(OrigemFam::FamiliaConstituida, dtgProf->textMatrix(dtgProf->row(), 0));
    });
}

// The tree of the spouse in the family chosen.
void FrmInd::Command1_Click()
{
    guarded([&] {
        if (dtgProf->row() == 0) return;
        const jet::Recordset conjuge(cnBDP, "select individuo.nind, nome from individuo, familias where nfamilia = " +
                                                chaveEmSQL(dtgProf->textMatrix(dtgProf->row(), 0)) +
                                                " and familias.nind = individuo.nind and  familias.nind <> " +
                                                chaveEmSQL(txtNind->text()));
        if (conjuge.eof()) return showMessage("Não existe informação sobre o conjuge.");
        frmArv().mostraConjuge(*this, {textoDoNumero(conjuge["Nind"]), conjuge["Nome"].toString()});
    });
}

// The tree of the person shown, with the family of origin as the card shows it.
void FrmInd::mostraArvore()
{
    frmArv().mostraIndividuo(*this, {numero(), nome(), txtFamOrig->text()}, adoNind.recordset());
}

// In an insertion and in a search the number is what was typed: it has to be one, as the windows put it into their
// statements.
Dono FrmInd::dono()
{
    const bool foiDigitado = inserindo() || (modo() == Modo::Loc && !numero().isEmpty());
    const QString dele = foiDigitado ? textoDoNumero(registoDoTexto(numero())) : numero();
    return {TipoDeDono::Individuo, dele, nome(), mskDtNasc->text(), this, &adoNind.recordset()};
}

void FrmInd::cmdInterv_Click()
{
    guarded([&] {
        if (!eData(mskDtNasc->text())) return;
        if (inserindo()) txtNind->setText(dono().numero); // as the window has it: "007" is the number 7
        if (!abreIntervenientes()) return;
        if (inserindo()) txtNind->setLocked(true); // what is written there is written for this number
    });
}

// Index 0 the record of the baptism, 1 that of the death.
void FrmInd::cmdRP_Click(int indice)
{
    guarded([&] { FrmRP::mostraPara(*this, indice == 0 ? "b" : "o"); });
}

void FrmInd::escolheLocal(OrigemLoc origem, ComboBox& lista)
{
    guarded([&] { pedeLocal(paraLista(origem, *this, lista)); });
}
