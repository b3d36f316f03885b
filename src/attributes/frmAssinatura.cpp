#include "attributes/frmAssinatura.h"

#include "common/campos.h"
#include "common/ficha.h"
#include "common/instrucao.h"
#include "common/modGeral.h"
#include "platform/forms/msgbox.h"

#include <QDir>

FrmAssinatura::FrmAssinatura() : ListaDatada(Name)
{
    setupUi(this);
    Regras regras;
    regras.procura = "idassinatura = ";
    regras.focoAoInserir = mskData;
    regras.focoAoAlterar = mskData;
    regras.pergunta = " Tem a certeza que deseja eliminar este registo?";
    regras.releAoAlterar = false; // kept: a row whose date was altered keeps its place until the rows are read again
    usa({cmdIns, cmdAlt, cmdElim, cmdSair}, dtgAssinat, {{"IdAss", 0}, {"Data de Referência", 140}, {"Nível"}}, regras);
    vigiaData(mskData, chkDF);
    vigiaInteiro(txtIdade, "Deve inserir uma idade válida!");
    vigiaFraccao(txtNivel, "O nível tem de ser um número inteiro!");
    connect(cmdLocalizar, &CommandButton::clicked, this, &FrmAssinatura::cmdLocalizar_Click);
    connect(cmdV, &CommandButton::clicked, this, &FrmAssinatura::cmdV_Click);
}

void FrmAssinatura::Form_Load()
{
    guarded([&] {
        txtNind->setText(donoDaJanela().numero);
        txtNome->setText(donoDaJanela().nome);
        abreLista("select nind, idassinatura, dataref, idade, datafixa, nivelassinatura,assinatura, assina, fonte, "
                  "funcao, obs from assinatura where nind = " +
                  chaveEmSQL(donoDaJanela().numero) + " order by dataref");
        mostraPrimeira();
    });
}

const QList<ModeRow>& FrmAssinatura::modos() const
{
    using enum Effect;
    constexpr QColor blue = corDoModo::edi, white = corDoModo::cons;
    // clang-format off
    static const QList<ModeRow> tabela{
        // control        Edi              Cons
        {"mskData",       {Enabled, blue}, {Disabled, white}},
        {"chkDF",         {Enabled},       {Disabled}},
        {"txtAssina",     {Open, blue},    {Shut, white}},
        {"txtNivel",      {Open, blue},    {Shut, white}},
        {"txtFuncao",     {Open, blue},    {Shut, white}},
        {"txtLocAss",     {Open, blue},    {Shut, white}},
        {"txtIdade",      {Open, blue},    {Shut, white}},
        {"txtFonte",      {Open, blue},    {Shut, white}},
        {"txtObs",        {Open, blue},    {Shut, white}},
        {"cmdLocalizar",  {Enabled},       {Disabled}},
        // Kept: shut while editing until a file is chosen; then the row shown decides.
        {"cmdV",          {Disabled},      {Keep}},
        {"dtgAssinat",    {Disabled},      {Enabled}},
    };
    // clang-format on
    return tabela;
}

void FrmAssinatura::LimpaCampos()
{
    mskData->clearMasked();
    chkDF->setChecked(false);
    for (TextBox* campo : {txtAssina, txtNivel, txtFuncao, txtIdade, txtFonte})
        campo->clear();
    txtObs->clear();
    mostraFicheiro({});
}

QStringList FrmAssinatura::PreencheLinha(const jet::Recordset& linha) const
{
    return {textoDoNumero(linha["idassinatura"]), textoDaData(linha["dataref"]),
            textoDaQuantidade(linha["nivelassinatura"])};
}

void FrmAssinatura::mostraLinha(const jet::Recordset& linha)
{
    if (const QVariant dataref = linha["dataref"]; !dataref.isNull()) mskData->showPlain(textoDaData(dataref));
    chkDF->setChecked(linha["datafixa"].toBool());
    mostraSeHouver(txtFonte, linha["fonte"]);
    mostraSeHouver(txtFuncao, linha["funcao"]);
    mostraSeHouver(txtNivel, linha["nivelassinatura"]);
    mostraSeHouver(txtIdade, linha["idade"]);
    mostraSeHouver(txtAssina, linha["assina"]);
    mostraSeHouver(txtObs, linha["obs"]);
    if (const QString caminho = linha["assinatura"].toString(); !Trim(caminho).isEmpty()) mostraFicheiro(caminho);
}

void FrmAssinatura::mostraFicheiro(const QString& caminho)
{
    txtLocAss->setText(caminho);
    cmdV->setEnabled(!caminho.isEmpty());
}

// The date was shown without its mask.
void FrmAssinatura::preparaAlteracao()
{
    mskData->setMask(dateMask);
}

// Kept: the empty mask isn't the empty text. It passes here, and the store refuses it as a date.
bool FrmAssinatura::VerificaCampos(Passo passo)
{
    if (!mskData->text().isEmpty()) return true;
    return recusa(passo == Passo::Insercao ? "Deve indicar uma data de referência!"
                                           : "Deve Adicionar uma data de referência!",
                  mskData);
}

QString FrmAssinatura::acrescenta()
{
    const QString numero = proximoNumero("idassinatura");
    acrescentaLinha(Valores{{"nind", txtNind->text()}, {"idassinatura", numero}} + valores());
    return numero;
}

QString FrmAssinatura::altera()
{
    alteraLinha(valores());
    return {};
}

ListaDatada::Valores FrmAssinatura::valores() const
{
    return {{"dataref", mskData->text()},   {"datafixa", chkDF->isChecked()},         {"fonte", textoDe(txtFonte)},
            {"funcao", textoDe(txtFuncao)}, {"nivelassinatura", inteiroDe(txtNivel)}, {"idade", inteiroDe(txtIdade)},
            {"assina", textoDe(txtAssina)}, {"assinatura", textoDe(txtLocAss)},       {"obs", textoDe(txtObs)}};
}

// Kept: cancelling the dialog is an error.
void FrmAssinatura::cmdLocalizar_Click()
{
    constexpr long dialogoCancelado = 32755;
    guarded([&] {
        const QString caminho = openFileName({});
        if (caminho.isEmpty()) throw jet::Error{dialogoCancelado, "A escolha do ficheiro foi cancelada."};
        mostraFicheiro(QDir::toNativeSeparators(caminho));
    });
}

void FrmAssinatura::cmdV_Click()
{
    guarded([&] { AbreFicheiro(txtLocAss->text()); });
}
