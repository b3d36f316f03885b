#include "attributes/frmProf.h"

#include "common/campos.h"
#include "common/ficha.h"
#include "common/instrucao.h"
#include "common/listasAbertas.h"
#include "common/marca.h"
#include "common/modGeral.h"

FrmProf::FrmProf() : ListaDatada(Name)
{
    setupUi(this);
    Regras regras;
    regras.procura = "idprofissao =";
    regras.focoAoInserir = mskData;
    regras.focoAoAlterar = mskData;
    regras.pergunta = " Tem a certeza que deseja eliminar este registo?";
    regras.limpaAoMostrar = false; // kept: a blank in a row leaves what the row shown before had there
    usa({cmdIns, cmdAlt, cmdElim, cmdSair}, dtgProf, {{"IdProf", 0}, {"Data de Referência", 140}, {"Profissão"}},
        regras);
    vigiaData(mskData, chkDF);
    ListasAbertas::segueProfissoes(*this, *cmbProf);
}

void FrmProf::Form_Load()
{
    guarded([&] {
        txtNind->setText(donoDaJanela().numero);
        txtNome->setText(donoDaJanela().nome);
        PreencheProfissoes();
        abreLista("select nind, idprofissao,dataref, datafixa, codprof, fonte, obs from profissoes where nind = " +
                  chaveEmSQL(donoDaJanela().numero) + " order by dataref");
        mostraPrimeira();
    });
}

void FrmProf::PreencheProfissoes()
{
    for (jet::Recordset profissoes(cnBDP, "select * from profissao"); !profissoes.eof(); profissoes.moveNext())
        cmbProf->add(semMarca(profissoes["profissao"].toString()), profissoes["codprof"].toInt());
}

const QList<ModeRow>& FrmProf::modos() const
{
    using enum Effect;
    constexpr QColor blue = corDoModo::edi, white = corDoModo::cons;
    // clang-format off
    static const QList<ModeRow> tabela{
        // control    Edi              Cons
        {"dtgProf",   {Disabled},      {Enabled}},
        {"mskData",   {Enabled, blue}, {Disabled, white}},
        {"chkDF",     {Enabled},       {Disabled}},
        {"cmbProf",   {Open, blue},    {Shut, white}},
        {"txtFonte",  {Open, blue},    {Shut, white}},
        {"txtObs",    {Open, blue},    {Shut, white}},
    };
    // clang-format on
    return tabela;
}

void FrmProf::LimpaCampos()
{
    mskData->clearMasked();
    chkDF->setChecked(false);
    cmbProf->setListIndex(-1);
    txtFonte->clear();
    txtObs->clear();
}

QStringList FrmProf::PreencheLinha(const jet::Recordset& linha) const
{
    QString nome;
    if (const QVariant codigo = linha["codprof"]; !codigo.isNull()) {
        const jet::Recordset profissao(cnBDP,
                                       jet::NativeSql("select profissao from profissao where codprof = ?", {codigo}));
        if (!profissao.eof()) nome = semMarca(profissao["profissao"].toString());
    }
    return {textoDoNumero(linha["idprofissao"]), textoDaData(linha["dataref"]), nome};
}

// Kept: a date shown leaves the field without its mask, until the fields are cleared or a date is refused.
void FrmProf::mostraLinha(const jet::Recordset& linha)
{
    if (const QVariant dataref = linha["dataref"]; !dataref.isNull()) mskData->showPlain(textoDaData(dataref));
    chkDF->setChecked(linha["datafixa"].toBool());
    ProcuraItemData(*cmbProf, linha["codprof"]);
    mostraSeHouver(txtFonte, linha["fonte"]);
    mostraSeHouver(txtObs, linha["obs"]);
}

// Kept: the empty mask isn't the empty text. It passes here, and the store refuses it as a date.
bool FrmProf::VerificaCampos(Passo passo)
{
    if (mskData->text().isEmpty()) return recusa("Deve indicar uma data de referência!", mskData);
    if (passo == Passo::Insercao && cmbProf->text().isEmpty()) return recusa("Deve indicar uma profissão!", cmbProf);
    return true;
}

QString FrmProf::acrescenta()
{
    const QString numero = proximoNumero("idprofissao");
    acrescentaLinha({{"nind", txtNind->text()},
                     {"idprofissao", numero},
                     {"dataref", mskData->text()},
                     {"codprof", cmbProf->itemData(cmbProf->listIndex())},
                     {"datafixa", chkDF->isChecked()},
                     {"fonte", textoDe(txtFonte)},
                     {"obs", textoDe(txtObs)}});
    return numero;
}

// Kept: a profession is never taken away, and a source or notes that were emptied are stored as two blanks.
QString FrmProf::altera()
{
    const auto textoOuBrancos = [](const auto* campo) { return preenchido(campo) ? campo->text() : QString("  "); };
    Valores valores{{"dataref", mskData->text()}, {"datafixa", chkDF->isChecked()}};
    if (!cmbProf->text().isEmpty()) valores << std::pair("codprof", cmbProf->itemData(cmbProf->listIndex()));
    valores << std::pair("fonte", textoOuBrancos(txtFonte)) << std::pair("obs", textoOuBrancos(txtObs));
    alteraLinha(valores);
    return {};
}
