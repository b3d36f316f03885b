#include "attributes/frmResid.h"

#include "common/campos.h"
#include "common/ficha.h"
#include "common/instrucao.h"
#include "common/listasAbertas.h"
#include "common/marca.h"
#include "common/modGeral.h"
#include "common/pedidoDeLocal.h"

FrmResid::FrmResid() : ListaDatada(Name)
{
    setupUi(this);
    Regras regras;
    regras.procura = "dataref =";
    regras.focoAoInserir = mskData;
    regras.focoAoAlterar = mskData;
    regras.perguntaPrimeiro = true;
    regras.preencheAoCancelar = true;
    regras.fechaSemLinhas = true;
    usa({cmdIns, cmdAlt, cmdElim, cmdSair}, dtgResid, {{"Data de Referência", 140}, {"Residência"}}, regras);
    vigiaData(mskData, chkDF);
    ListasAbertas::segueLocais(*this, *cmbLoc);
    connect(cmdLoc, &CommandButton::clicked, this, &FrmResid::cmdLoc_Click);
}

void FrmResid::Form_Load()
{
    guarded([&] {
        setCaption(donoDaJanela().familia() ? "Residências da família" : "Residências do indivíduo");
        Label2->setText(donoDaJanela().familia() ? "Família" : "Indivíduo");
        txtNum->setText(donoDaJanela().numero);
        txtNome->setText(donoDaJanela().nome);
        txtNome->setVisible(!donoDaJanela().familia());
        PreencheLocais(*cmbLoc);
        abreLista(instrucao());
        if (adoResid.hasRows()) mostraPrimeira();
    });
}

QString FrmResid::instrucao() const
{
    if (donoDaJanela().familia())
        return "select numero,  dataref, datafixa, tiporesid, localresid, tipolocal, fonte, obs from residencia where "
               "numero = " +
               chaveEmSQL(txtNum->text()) + " and tiporesid = 'f' order by dataref";
    return "select numero, dataref, datafixa,tiporesid, localresid, tipolocal,fonte, obs from residencia where "
           "numero = " +
           chaveEmSQL(txtNum->text()) + " and tiporesid = 'i' order by dataref";
}

const QList<ModeRow>& FrmResid::modos() const
{
    using enum Effect;
    constexpr QColor blue = corDoModo::edi, white = corDoModo::cons;
    // clang-format off
    static const QList<ModeRow> tabela{
        // control    Edi              Cons
        {"mskData",   {Enabled, blue}, {Disabled, white}},
        {"chkDF",     {Enabled},       {Disabled}},
        {"cmbLoc",    {Open, blue},    {Shut, white}},
        {"txtFonte",  {Open, blue},    {Shut, white}},
        {"txtObs",    {Open, blue},    {Shut, white}},
        {"cmdLoc",    {Enabled},       {Disabled}},
        {"dtgResid",  {Disabled},      {Enabled}},
    };
    // clang-format on
    return tabela;
}

void FrmResid::LimpaCampos()
{
    mskData->clearMasked();
    chkDF->setChecked(false);
    cmbLoc->setListIndex(-1);
    txtFonte->clear();
    txtObs->clear();
}

QString FrmResid::chaveNoCriterio() const
{
    return dataDigitada(Chave);
}

QStringList FrmResid::PreencheLinha(const jet::Recordset& linha) const
{
    return {textoDaData(linha["dataref"]), semMarca(NomeLocal(linha["localresid"], linha["tipolocal"]))};
}

void FrmResid::mostraLinha(const jet::Recordset& linha)
{
    mskData->showPlain(textoDaData(linha["dataref"]));
    mskData->setMask(dateMask);
    chkDF->setChecked(linha["datafixa"].toBool());
    SeleccionaLocal(*cmbLoc, Trim(linha["localresid"].toString()), Trim(linha["tipolocal"].toString()));
    mostraSeHouver(txtFonte, linha["fonte"]);
    mostraSeHouver(txtObs, linha["obs"]);
}

// Kept: the row being altered counts too, so its date has to change.
bool FrmResid::VerificaCampos(Passo)
{
    if (!preenchido(cmbLoc)) return recusa("Deve indicar o local da residência!", cmbLoc);
    if (mskData->text() == emptyMaskedDate) return recusa("Deve indicar uma data de referência!", mskData);
    if (!adoResid.hasRows()) return true;
    const jet::Recordset mesmaData(
        cnBDP,
        "select count(*) from residencia where numero =" + chaveEmSQL(txtNum->text()) +
            (donoDaJanela().familia() ? " and tiporesid = 'f' and dataref = " : " and tiporesid = 'i' and dataref = ") +
            literalDaData(mskData->text()));
    if (mesmaData.eof() || mesmaData[0].toInt() == 0) return true;
    return recusa("Não pode indicar duas residências para uma mesma data de referência!", mskData);
}

// Kept: the row chosen before is shown, not the new one.
QString FrmResid::acrescenta()
{
    acrescentaLinha(Valores{{"numero", txtNum->text()}, {"tiporesid", donoDaJanela().familia() ? "f" : "i"}} +
                    valores());
    return {};
}

QString FrmResid::altera()
{
    alteraLinha(valores());
    return {};
}

ListaDatada::Valores FrmResid::valores() const
{
    return {{"dataref", mskData->text()},   {"datafixa", chkDF->isChecked()}, {"localresid", codigoDe(cmbLoc)},
            {"tipolocal", letraDe(cmbLoc)}, {"fonte", textoDe(txtFonte)},     {"obs", textoDe(txtObs)}};
}

// The picker puts the place into cmbLoc and enables this window again.
void FrmResid::cmdLoc_Click()
{
    guarded([&] { pedeLocal(paraLista(OrigemLoc::Residencia, *this, *cmbLoc)); });
}
