#include "attributes/frmPass.h"

#include "common/campos.h"
#include "common/ficha.h"
#include "common/instrucao.h"
#include "common/listasAbertas.h"
#include "common/marca.h"
#include "common/modGeral.h"
#include "common/pedidoDeLocal.h"
#include "common/pesquisa.h"
#include "platform/forms/forms.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/showntext.h"
#include "platform/jet/transaction.h"

FrmPass::FrmPass() : ListaDatada(Name)
{
    setupUi(this);
    Regras regras;
    regras.procura = "npass=";
    regras.focoAoInserir = txtDados_0;
    regras.focoAoAlterar = txtDados_0;
    regras.fechaSemLinhas = true;
    usa({cmdIns, cmdAlt, cmdElim, cmdF}, flgPass, {{"Nº Pass.", 130}, {"Destino"}}, regras);
    descricao_.usa({{cmdE, legenda::editarAParte, nullptr, legenda::confirmarOuCancelar}});
    vigiaData(mskData);
    vigiaFraccao(txtDados_1, "A altura tem de ser um número inteiro de centímetros!");
    ListasAbertas::segueLocais(*this, *cmbDados_1);
    connect(cmdLoc, &CommandButton::clicked, this, &FrmPass::cmdLoc_Click);
    connect(cmdE, &CommandButton::clicked, this, &FrmPass::cmdE_Click);
}

// Opens on the last row. If that fails, as with nobody on the card, the menu reports why and no window stays.
void FrmPass::Form_Load()
{
    Label2_1->setText(donoDaJanela().numero);
    Label2_2->setText(shownText(donoDaJanela().nome, 100));
    for (const char* estatura : {"  ", "Alta", "Baixa", "Média"})
        cmbDados_0->add(estatura);
    PreencheLocais(*cmbDados_1);
    aplicaModoDaDescricao(Modo::Cons);
    abreLista("select * from passaporte where nind = " + chaveEmSQL(Label2_1->text()));
    mostraDescricao();
    ActualizaCampos();
}

// Kept: the grid is open in both modes.
const QList<ModeRow>& FrmPass::modos() const
{
    using enum Effect;
    constexpr QColor blue = corDoModo::edi, white = corDoModo::cons;
    // clang-format off
    static const QList<ModeRow> tabela{
        // control      Edi              Cons
        {"txtDados_0",  {Open, blue},    {Shut, white}},
        {"mskData",     {Enabled, blue}, {Disabled, white}},
        {"cmbDados_1",  {Open, blue},    {Shut, white}},
        {"txtOutras_1", {Open, blue},    {Shut, white}},
        {"cmdLoc",      {Enabled},       {Disabled}},
        {"cmdE",        {Disabled},      {Enabled}},
    };
    // clang-format on
    return tabela;
}

void FrmPass::LimpaCampos()
{
    txtDados_0->clear();
    mskData->clearMasked();
    cmbDados_1->setListIndex(-1);
    txtOutras_1->clear();
}

QStringList FrmPass::PreencheLinha(const jet::Recordset& linha) const
{
    return {textoDaQuantidade(linha["npass"]), semMarca(NomeLocal(linha["LocalDestino"], linha["TipoLocalDest"]))};
}

void FrmPass::mostraLinha(const jet::Recordset& linha)
{
    txtDados_0->setText(textoDaQuantidade(linha["nPass"]));
    if (const QVariant quando = linha["dataref"]; !quando.isNull()) mskData->showPlain(textoDaData(quando));
    SeleccionaLocal(*cmbDados_1, Trim(linha["localdestino"].toString()), Trim(linha["tipolocaldest"].toString()));
    txtOutras_1->setText(linha["obs"].toString());
}

// The statements of an alteration would pass over a row that has gone.
bool FrmPass::passaporteGuardado()
{
    const QString numero = textoDoNumero(rsPass.recordset()["npass"]);
    const jet::Recordset linha(cnBDP, "select npass from passaporte where nind = " + chaveEmSQL(Label2_1->text()) +
                                          " and npass = " + chaveEmSQL(numero));
    if (!linha.eof()) return true;
    showMessage("O passaporte nº " + numero + " já não existe na base de dados, e nada foi gravado.");
    return false;
}

// Kept: the focus goes to the date even if it is the number that is missing.
bool FrmPass::VerificaCampos(Passo passo)
{
    if (passo == Passo::Alteracao && !passaporteGuardado()) return false;
    const char* falta = !preenchido(txtDados_0) ? "Deve indicar o nº do passaporte!"
                        : !preenchido(mskData)  ? "Deve indicar uma data de referência!"
                                                : nullptr;
    return !falta || recusa(falta, mskData);
}

// No transaction: what was written before a failing statement stays. What was typed is read before the first one.
QString FrmPass::acrescenta()
{
    semPlica(txtOutras_1->text());
    cnBDP.execute("insert into passaporte (nind, npass, dataref) values (" + chaveEmSQL(Label2_1->text()) + "," +
                  numeroEmSQL(txtDados_0->text()) + "," + literalDaData(mskData->text()) + ")");
    gravaDestinoEObs();
    return chaveEscrita();
}

// Kept: every passport of the person is renumbered, which the key refuses if there are two.
QString FrmPass::altera()
{
    const QString nind = chaveEmSQL(Label2_1->text());
    jet::Transaction transaccao(cnBDP);
    cnBDP.execute("update passaporte set npass = " + numeroEmSQL(txtDados_0->text()) + " where nind = " + nind);
    cnBDP.execute("update passaporte set dataref = " + literalDaData(mskData->text()) + " where nind = " + nind);
    gravaDestinoEObs();
    transaccao.commit();
    return chaveEscrita();
}

// Kept: destination and notes go to every passport of the person. Blank ones leave the old values.
void FrmPass::gravaDestinoEObs()
{
    const QString nind = chaveEmSQL(Label2_1->text());
    if (preenchido(cmbDados_1)) {
        const Local destino = localDoTexto(cmbDados_1->text());
        cnBDP.execute("update passaporte set localdestino = " + citado(destino.codigo) + " where nind = " + nind);
        cnBDP.execute("update passaporte set tipolocaldest = " + citado(destino.nivel) + " where nind = " + nind);
    }
    if (preenchido(txtOutras_1))
        cnBDP.execute("update passaporte set obs = " + digitado(txtOutras_1->text()) + " where nind = " + nind);
}

// The number as the grid shows it.
QString FrmPass::chaveEscrita() const
{
    return textoDaQuantidade(numeroDoTexto(txtDados_0->text()));
}

QString FrmPass::chaveNoCriterio() const
{
    return numeroEmSQL(Chave);
}

void FrmPass::elimina()
{
    cnBDP.execute("Delete from passaporte where nind = " + chaveEmSQL(Label2_1->text()) +
                  " and npass = " + numeroEmSQL(txtDados_0->text()));
}

// The picker puts the place into cmbDados_1 and enables this window again.
void FrmPass::cmdLoc_Click()
{
    guarded([&] { pedeLocal(paraLista(OrigemLoc::Passaporte, *this, *cmbDados_1)); });
}

void FrmPass::cmdE_Click()
{
    guarded([&] {
        if (descricao_.passo() == Passo::Repouso) {
            if (EmPesquisa) return;
            limpaDescricao();
            mostraDescricao();
            descricaoVista_.ve(individuo());
            descricao_.passaA(Passo::Alteracao);
            return aplicaModoDaDescricao(Modo::Edi);
        }
        if (!askWhetherToStore("Deseja realmente confirmar as alterações?"))
            mostraDescricao();
        else if (donoGuardado() && podeGravarDescricao())
            gravaDescricao();
        else
            return;
        descricao_.passaA(Passo::Repouso);
        aplicaModoDaDescricao(Modo::Cons);
    });
}

void FrmPass::aplicaModoDaDescricao(Modo modo)
{
    using enum Effect;
    constexpr QColor blue = corDoModo::edi, white = corDoModo::cons;
    // clang-format off
    static const QList<ModeRow> tabela{
        // control      Edi           Cons
        {"cmbDados_0",  {Open, blue}, {Shut, white}},
        {"txtDados_1",  {Open, blue}, {Shut, white}},
        {"txtOutras_0", {Open, blue}, {Shut, white}},
    };
    // clang-format on
    applyMode(this, tabela, modo);
}

// The row of this person, not that of the card, which may show somebody else by now.
jet::Recordset FrmPass::individuo() const
{
    return {cnBDP, "select * from individuo where nind = " + chaveEmSQL(Label2_1->text())};
}

void FrmPass::limpaDescricao()
{
    cmbDados_0->setListIndex(-1);
    txtDados_1->clear();
    txtOutras_0->clear();
}

// Kept: a blank column leaves its field as it was.
void FrmPass::mostraDescricao()
{
    const jet::Recordset pessoa = individuo();
    if (pessoa.eof()) return;
    mostraSeHouver(cmbDados_0, pessoa["estatura"]);
    mostraSeHouver(txtDados_1, pessoa["altura"]);
    mostraSeHouver(txtOutras_0, pessoa["cFisicas"]);
}

bool FrmPass::podeGravarDescricao() const
{
    jet::Recordset agora = individuo();
    return descricaoVista_.podeGravar(agora, {"estatura", "altura", "cfisicas"});
}

void FrmPass::gravaDescricao()
{
    jet::Recordset pessoa = individuo();
    if (cmbDados_0->listIndex() >= 0) pessoa.set("estatura", textoDe(cmbDados_0)); // it may be in other words
    pessoa.set("altura", inteiroDe(txtDados_1));
    pessoa.set("cfisicas", textoDe(txtOutras_0));
    pessoa.update();
}
