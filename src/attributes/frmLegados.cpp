#include "attributes/frmLegados.h"

#include "common/campos.h"
#include "common/codigos.h"
#include "common/dicaDaPessoa.h"
#include "common/escolhido.h"
#include "common/ficha.h"
#include "common/instrucao.h"
#include "common/listasAbertas.h"
#include "common/marca.h"
#include "common/modGeral.h"
#include "individuals/frmInd.h"
#include "platform/forms/forms.h"

FrmLegados::FrmLegados() : ListaDatada(Name)
{
    setupUi(this);
    mostraPessoaNaDica(txtNindH);
    mostraPessoaNaDica(dtgLeg, 1);
    Regras regras;
    regras.procura = "idlegprof =";
    regras.focoAoInserir = txtNindH;
    regras.focoAoAlterar = txtNindH;
    regras.preencheAoMostrar = true;
    regras.eliminarVaiAPrimeira = true;
    regras.guardaUltimaNaGrelha = true;
    usa({cmdI, cmdA, cmdE, cmdF}, dtgLeg, {{"idleg", 0}, {"Herdeiro", 100}, {"Parentesco"}}, regras);
    ListasAbertas::segueCodigos(*this, *cmbParentesco, "Paren");
    connect(cmdIrpara, &CommandButton::clicked, this, &FrmLegados::cmdIrpara_Click);
}

// Opens on the last row.
void FrmLegados::Form_Load()
{
    guarded([&] {
        txtNind->setText(donoDaJanela().numero);
        txtNome->setText(donoDaJanela().nome);
        PreencheCodigos(*cmbParentesco, "Paren");
        abreLista("Select idlegprof,nindherd, parentesco, bensmoveis, obs, bensraiz,  nind from legadosprofanos where "
                  " nind =" +
                  chaveEmSQL(txtNind->text()) + " order by idlegprof");
        ActualizaCampos();
    });
}

const QList<ModeRow>& FrmLegados::modos() const
{
    using enum Effect;
    constexpr QColor blue = corDoModo::edi, white = corDoModo::cons;
    // clang-format off
    static const QList<ModeRow> tabela{
        // control         Edi              Cons
        {"dtgLeg",         {Disabled},      {Enabled}},
        {"txtNindH",       {Shut, blue},    {Shut, white}},
        {"cmdIrpara",      {Enabled},       {Disabled}},
        {"cmbParentesco",  {Enabled, blue}, {Disabled, white}},
        {"txtMov",         {Open, blue},    {Shut, white}},
        {"txtRaiz",        {Open, blue},    {Shut, white}},
        {"txtObs",         {Open, blue},    {Shut, white}},
    };
    // clang-format on
    return tabela;
}

void FrmLegados::LimpaCampos()
{
    txtNindH->clear();
    cmbParentesco->setListIndex(-1);
    for (MemoBox* campo : {txtMov, txtRaiz, txtObs})
        campo->clear();
}

// Kept: the kinship shows as its code.
QStringList FrmLegados::PreencheLinha(const jet::Recordset& linha) const
{
    return {textoDoNumero(linha["idlegprof"]), textoDoNumero(linha["nindherd"]),
            semMarca(textoDoNumero(linha["parentesco"]))};
}

void FrmLegados::mostraLinha(const jet::Recordset& linha)
{
    txtNindH->setText(textoDoNumero(linha["nindherd"]));
    ProcuraItemData(*cmbParentesco, linha["parentesco"]);
    mostraSeHouver(txtObs, linha["obs"]);
    mostraSeHouver(txtMov, linha["bensmoveis"]);
    mostraSeHouver(txtRaiz, linha["bensraiz"]);
}

// Nothing is required: a legacy may be empty. But an heir must be there.
bool FrmLegados::VerificaCampos(Passo passo)
{
    return escolhidoExiste(txtNindH,
                           passo == Passo::Alteracao ? textoDoNumero(adoLeg.recordset()["nindherd"]) : QString());
}

QString FrmLegados::acrescenta()
{
    const QString numero = proximoNumero("idlegprof");
    acrescentaLinha(Valores{{"nind", txtNind->text()}, {"idlegprof", numero}} + valores());
    return numero;
}

QString FrmLegados::altera()
{
    const QString numero = textoDoNumero(adoLeg.recordset()["idlegprof"]);
    alteraLinha(valores());
    return numero;
}

ListaDatada::Valores FrmLegados::valores() const
{
    return Valores{{"nindherd", textoDe(txtNindH)},
                   {"obs", textoDe(txtObs)},
                   {"bensmoveis", textoDe(txtMov)},
                   {"bensraiz", textoDe(txtRaiz)}} +
           itemPara("parentesco", cmbParentesco);
}

// Kept: an heir isn't checked against any date.
void FrmLegados::cmdIrpara_Click()
{
    guarded([&] {
        FrmInd::pede({.origem = OrigemInd::Herdeiro,
                      .quem = this,
                      .deActo = true,
                      .depois = DepoisDePedido::FicaAberta,
                      .recebe = [this](const FrmInd& ficha) { txtNindH->setText(ficha.numero()); },
                      .comoQue =
                          [testador = txtNind->text()](const FrmInd& ficha) {
                              return QString(ficha.sexo() == "f" ? "herdeira" : "herdeiro") + " do indivíduo nº " +
                                     testador;
                          }},
                     txtNindH->text());
    });
}

// The card isn't a picker any more.
void FrmLegados::Form_Unload()
{
    ListaDatada::Form_Unload();
    if (Forms::isUnloadingAll() || !Forms::isLoaded(FrmInd::Name)) return;
    guarded([&] { frmInd().desiste(*this); });
}

// And goes back to the testator.
void FrmLegados::volta()
{
    ListaDatada::volta();
    guarded([&] {
        if (Ficha* ficha = donoDaJanela().ficha) ficha->procuraRegisto("nind = " + chaveEmSQL(txtNind->text()));
    });
}
