// Insert and alteration.
#include "individuals/frmInd.h"

#include "common/campos.h"
#include "common/datas.h"
#include "common/linhaDeEstado.h"
#include "common/modGeral.h"
#include "common/numeros.h"
#include "common/text.h"
#include "platform/forms/focus.h"
#include "platform/forms/msgbox.h"

void FrmInd::iniciaInsercao()
{
    abreInsercao();
    propoeIndividuo();
}

// A blank card for the next individual: the number after the last one, which the user may overtype, and the type "T".
void FrmInd::propoeIndividuo()
{
    if (adoInd.hasRows()) {
        adoInd.recordset().moveLast();
        txtNind->setText(textoDoNumero(adoInd.recordset()["Nind"].toDouble() + 1));
    } else {
        txtNind->setText("1");
    }
    ProcuraTexto(*cmbTipoInd, "T");
    Tipo = "T";
    Focus::setTo(txtNome);
}

void FrmInd::confirmaInsercao()
{
    const Hourglass ampulheta;
    if (!temObrigatorios("proceder ao seu registo!")) return;

    if (!adoInd.hasRows() || !adoNind.recordset().isOpen()) { // nobody was shown yet
        adoNind.setRecordSource("select * from individuo");
        adoNind.refresh();
    }
    jet::Recordset& linha = adoNind.recordset();
    linha.addNew();
    for (const auto& [coluna, valor] : valoresDaInsercao())
        if (!valor.isNull()) linha.set(coluna, valor);
    linha.update();
    adoNind.refresh();
    adoInd.refresh();
    NindCorrente = Nind::doCampo(txtNind->text());
    contaIndividuoGravado();
    const QString total = QString::number(adoInd.recordset().recordCount());
    lblInd->setText(total); // while people are inserted the band counts them
    lblTotal->setText(total);

    LimpaCampos();
    propoeIndividuo();
}

void FrmInd::contaIndividuoGravado() const
{
    contaGravado("indivíduo nº " + txtNind->text() + ", " + Trim(txtNome->text()),
                 {mskDtNasc, mskDtObito, mskini, mskFim});
}

void FrmInd::cancelaInsercao()
{
    fechaEdicao();
    if (adoInd.hasRows()) poeListaNoNumero(NindCorrente.texto());
    ActualizaCampos(adoInd.recordset());
    permiteAtribuir();
}

void FrmInd::iniciaAlteracao()
{
    // The list may be elsewhere: on its first row, after an alteration or after the menu brought the card up.
    poeListaNoNumero(txtNind->text());
    abreAlteracao();
    Tipo = Trim(cmbTipoInd->text());
    for (MaskedEdit* campo : {mskDtNasc, mskDtObito})
        if (!eData(campo->text())) campo->setText({});
    Focus::setTo(txtNome);
    txtNind->setLocked(true);
}

void FrmInd::confirmaAlteracao()
{
    const Hourglass ampulheta;
    if (!temObrigatorios("confirmar a alteração!")) return;

    for (const auto& [coluna, valor] : valoresDaAlteracao())
        adoNind.recordset().set(coluna, valor);
    adoNind.recordset().update();
    adoNind.refresh();
    adoInd.refresh(); // Kept: the list is on its first row again, and the next movement starts from there.
    contaIndividuoGravado();

    fechaEdicao();
    if (const auto& segue = chamada().pedido().segueAlteracao) segue(*this);
    permiteAtribuir();
}

void FrmInd::cancelaAlteracao()
{
    fechaEdicao();
    poeListaNoNumero(txtNind->text()); // the menu may have moved the list meanwhile
    ActualizaCampos(adoInd.recordset());
    permiteAtribuir();
}

// The three fields without which nobody is stored.
bool FrmInd::temObrigatorios(const QString& accao)
{
    const auto falta = [&](const QString& exigencia, QWidget* campo) {
        return recusa(exigencia + " do indivíduo antes de " + accao, campo);
    };
    if (Trim(txtNome->text()).isEmpty()) return falta("Deve inserir o nome", txtNome);
    if (sexo().isEmpty()) return falta("Deve especificar o sexo", optSexo_0);
    if (Trim(cmbTipoInd->text()).isEmpty()) return falta("Deve especificar o tipo", cmbTipoInd);
    return true;
}

void FrmInd::poeListaNoNumero(const QString& nind)
{
    adoInd.recordset().moveFirst();
    adoInd.recordset().find("nind = " + nind);
}

QString FrmInd::sexo() const
{
    if (optSexo_0->isChecked()) return "m";
    if (optSexo_1->isChecked()) return "f";
    if (optSexo_2->isChecked()) return "d";
    return {};
}
