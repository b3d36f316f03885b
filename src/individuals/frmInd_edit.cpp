// Insert and alteration.
#include "individuals/frmInd.h"

#include "common/campos.h"
#include "common/datas.h"
#include "common/instrucao.h"
#include "common/linhaDeEstado.h"
#include "common/modGeral.h"
#include "common/numeros.h"
#include "common/text.h"
#include "platform/forms/focus.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/statusline.h"
#include "platform/forms/stilltext.h"

#include <QRegularExpression>

namespace {

// The store tells of tables and columns; the user knows the person.
jet::Error doIndividuo(const QString& nind, const jet::Error& erro)
{
    if (erro.number == jet::number::duplicateKey) return {erro.number, "Já existe o indivíduo nº " + nind + "."};
    static const QRegularExpression coluna(R"re( \(coluna "[^"]*" da tabela "[^"]*"\))re");
    return {erro.number, "O indivíduo nº " + nind + " não foi gravado: " + QString(erro.description).remove(coluna)};
}

} // namespace

void FrmInd::iniciaInsercao()
{
    abreInsercao();
    cmdTest->setEnabled(false); // there is no row yet that could name an executor
    propoeIndividuo();
    showStatus("Escreva o que sabe. \"confIrmar\" (Alt+I) grava o indivíduo e passa ao seguinte; \"canceLar\" (Alt+L) acaba.");
}

// A blank card for the next individual: the number after the last one, which the user may overtype, and the type "T".
void FrmInd::propoeIndividuo()
{
    if (adoInd.hasRows()) {
        adoInd.recordset().moveLast();
        txtNind->setText(Nind::daColuna(adoInd.recordset()["Nind"]).seguinte().texto());
    } else {
        txtNind->setText("1");
    }
    txtNind->setLocked(false);
    ProcuraTexto(*cmbTipoInd, "T");
    Tipo = "T";
    SST->setCurrentIndex(0);
    Focus::setTo(txtNome);
}

void FrmInd::confirmaInsercao()
{
    const Hourglass ampulheta;
    if (!temObrigatorios("proceder ao seu registo!")) return;

    const bool ninguemMostrado = !adoInd.hasRows() || !adoNind.recordset().isOpen();
    if (ninguemMostrado) {
        adoNind.setRecordSource("select * from individuo where nind is null");
        adoNind.refresh();
    }
    jet::Recordset& linha = adoNind.recordset();
    try {
        linha.addNew();
        for (const auto& [coluna, valor] : valoresDaInsercao())
            if (!valor.isNull()) linha.set(coluna, valor);
        linha.update();
    } catch (const jet::Error& erro) {
        throw doIndividuo(Trim(numero()), erro);
    }
    evenIfItFails([&] { guardouInsercao(); });
    if (ninguemMostrado)
        adoNind.setRecordSource(
            jet::NativeSql("select * from individuo where nind = ?", {Nind::doCampo(txtNind->text()).paraColuna()}));
    adoNind.refresh();
    adoInd.refresh();
    NindCorrente = Nind::doCampo(txtNind->text());
    contaIndividuoGravado();
    const QString total = QString::number(adoInd.recordset().recordCount());
    setStillText(lblInd, total); // while people are inserted the band counts them
    setStillText(lblTotal, total);

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
    largaActoPorGuardar();
    fechaEdicao();
    if (adoInd.hasRows()) {
        poeListaNoNumero(NindCorrente.texto());
        if (adoInd.recordset().eof()) adoInd.recordset().moveFirst(); // nobody has the number looked for last
    }
    ActualizaCampos(adoInd.recordset());
    permiteAtribuir();
}

void FrmInd::iniciaAlteracao()
{
    abreAlteracaoDe(numero());
}

void FrmInd::abreAlteracaoDe(const QString& nind)
{
    mostraGuardado(nind);
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
    // Where the card consults, an executor is being chosen: it shows somebody else, and nothing typed is left to store.
    if (modo() == Modo::Edi && !gravaAlteracao()) return;
    fechaEdicao();
    acabaEscolhaDoTestamenteiro();
    if (const auto& segue = chamada().pedido().segueAlteracao) segue(*this);
    permiteAtribuir();
}

// A column whose field is as it was shown isn't written in another form. Kept: but a null becomes the 0 of a box that
// is off, and of the mother's age.
bool FrmInd::gravaAlteracao()
{
    if (!temObrigatorios("confirmar a alteração!")) return false;
    jet::Recordset& linha = adoNind.recordset();
    try {
        Valores alterados;
        QStringList colunas;
        for (const auto& valor : valoresDaAlteracao())
            if (!mostrados_.contains(valor) || (linha[valor.first].isNull() && !valor.second.isNull())) {
                alterados << valor;
                colunas << valor.first;
            }
        if (!colunas.isEmpty() && !visto_.podeGravar(linha, colunas)) return false;
        for (const auto& [coluna, valor] : alterados)
            linha.set(coluna, valor);
        linha.update();
    } catch (const jet::Error& erro) {
        throw doIndividuo(numero(), erro);
    }
    adoNind.refresh();
    adoInd.refresh(); // Kept: the list is on its first row again, and the next movement starts from there.
    contaIndividuoGravado();
    return true;
}

void FrmInd::cancelaAlteracao()
{
    fechaEdicao();
    poeListaNoNumero(txtNind->text()); // the menu may have moved the list meanwhile
    ActualizaCampos(adoInd.recordset());
    acabaEscolhaDoTestamenteiro();
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

// The list may be elsewhere: on its first row, after an alteration or after the menu brought the card up.
void FrmInd::poeListaNoNumero(const QString& nind)
{
    adoInd.recordset().moveFirst();
    adoInd.recordset().find("nind = " + chaveEmSQL(nind));
}

QString FrmInd::sexo() const
{
    if (optSexo_0->isChecked()) return "m";
    if (optSexo_1->isChecked()) return "f";
    if (optSexo_2->isChecked()) return "d";
    return {};
}
