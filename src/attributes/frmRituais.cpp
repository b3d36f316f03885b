#include "attributes/frmRituais.h"

#include "attributes/sufragios.h"
#include "common/campos.h"
#include "common/ficha.h"
#include "common/instrucao.h"
#include "common/listasAbertas.h"
#include "common/modGeral.h"
#include "platform/forms/msgbox.h"

FrmRituais::FrmRituais() : ListaDatada(Name)
{
    setupUi(this);
    Regras regras;
    regras.procura = "idlegpio =";
    regras.focoAoInserir = optLeg_0;
    regras.preencheAoMostrar = true;
    regras.eliminarVaiAPrimeira = true;
    usa({cmdI, cmdA, cmdE, cmdF}, dtgRit, {{"idleg", 0}, {"Tipo", 100}, {"Valor Total"}}, regras);

    const OptionButton* const opcoes[] = {optLeg_0, optLeg_1, optLeg_2};
    for (size_t i = 0; i < std::size(sufragios); ++i)
        ListasAbertas::segueCodigos(*this, *cmbTipo, sufragios[i].categoria,
                                    [opcao = opcoes[i]] { return opcao->isChecked(); });

    connect(optLeg_0, &OptionButton::clicked, this, [this] { optLeg_Click(0); });
    connect(optLeg_1, &OptionButton::clicked, this, [this] { optLeg_Click(1); });
    connect(optLeg_2, &OptionButton::clicked, this, [this] { optLeg_Click(2); });
    connect(cmbMoeda_0, &ComboBox::clicked, this, [this] { cmbMoeda_Click(cmbMoeda_0, cmbMoeda_1); });
    connect(cmbMoeda_1, &ComboBox::clicked, this, [this] { cmbMoeda_Click(cmbMoeda_1, cmbMoeda_0); });
    vigiaNumero(txtQ, "Deve inserir um número maior ou igual a 0!");
    vigiaInteiro(txtNP, "Deve inserir um número maior ou igual a 0!");
    for (TextBox* campo : {txtVU, txtVTotal})
        vigiaNumero(campo, "Deve inserir um valor monetário válido!");
}

// Opens on the first row.
void FrmRituais::Form_Load()
{
    guarded([&] {
        txtNind->setText(donoDaJanela().numero);
        txtNome->setText(donoDaJanela().nome);
        for (ComboBox* lista : {cmbMoeda_0, cmbMoeda_1}) {
            for (const char* moeda : moedas)
                lista->add(moeda);
            lista->setListIndex(0);
        }
        abreLista("Select nind, idlegpio, tipolegpio, quantidade, valorunit,  tipoMoeda, tipo, destino, "
                  "numpadres,valortotal, obs from  rituaismorte where nind = " +
                  chaveEmSQL(txtNind->text()));
        mostraPrimeira();
    });
}

const QList<ModeRow>& FrmRituais::modos() const
{
    using enum Effect;
    constexpr QColor blue = corDoModo::edi, white = corDoModo::cons;
    // clang-format off
    static const QList<ModeRow> tabela{
        // control      Edi              Cons
        {"dtgRit",      {Disabled},      {Enabled}},
        {"fraLeg",      {Enabled},       {Disabled}},
        {"cmbTipo",     {Enabled, blue}, {Disabled, white}},
        {"txtQ",        {Enabled, blue}, {Disabled, white}},
        {"txtVU",       {Enabled, blue}, {Disabled, white}},
        {"cmbMoeda_0",  {Enabled, blue}, {Disabled, white}},
        {"txtVTotal",   {Enabled, blue}, {Disabled, white}},
        {"cmbMoeda_1",  {Enabled, blue}, {Disabled, white}},
        {"txtDest",     {Enabled, blue}, {Disabled, white}},
        {"txtNP",       {Enabled, blue}, {Disabled, white}},
        {"txtObs",      {Enabled, blue}, {Disabled, white}},
    };
    // clang-format on
    return tabela;
}

// The currency stays: a new row proposes that of the row shown before.
void FrmRituais::LimpaCampos()
{
    for (OptionButton* tipo : {optLeg_0, optLeg_1, optLeg_2})
        tipo->setValue(false);
    cmbTipo->clear();
    for (TextBox* campo : {txtVU, txtQ, txtVTotal, txtDest, txtNP})
        campo->clear();
    txtObs->clear();
}

QStringList FrmRituais::PreencheLinha(const jet::Recordset& linha) const
{
    return {textoDoNumero(linha["idlegpio"]), linha["tipolegPio"].toString(), textoDaQuantidade(linha["valortotal"])};
}

void FrmRituais::mostraLinha(const jet::Recordset& linha)
{
    if (const auto sufragio = sufragioDaColuna(linha["tipolegpio"].toString())) PreencheTipo(*sufragio);
    ProcuraItemData(*cmbTipo, linha["Tipo"]);
    mostraSeHouver(txtQ, linha["quantidade"]);
    mostraSeHouver(txtVU, linha["valorunit"]);
    mostraSeHouver(txtObs, linha["obs"]);
    mostraSeHouver(txtDest, linha["destino"]);
    mostraSeHouver(txtNP, linha["numpadres"]);
    mostraSeHouver(txtVTotal, linha["valortotal"]);
    // Kept: a row with no currency leaves that of the row shown before.
    if (const auto moeda = moedaDaColuna(linha["tipomoeda"].toString())) cmbMoeda_0->setListIndex(*moeda);
}

void FrmRituais::PreencheTipo(int sufragio)
{
    OptionButton* const opcoes[] = {optLeg_0, optLeg_1, optLeg_2};
    opcoes[sufragio]->setValue(true);
    jet::Recordset tipos(cnBDP, "select codigo, descricao from infocomplementar where categoria = " +
                                    citado(sufragios[sufragio].categoria) + " order by codigo");
    if (!tipos.eof()) PreencheCombo(*cmbTipo, tipos, 1, 0);
}

void FrmRituais::optLeg_Click(int indice)
{
    guarded([&] { PreencheTipo(indice); });
}

// One suffrage has one currency.
void FrmRituais::cmbMoeda_Click(const ComboBox* escolhida, ComboBox* outra)
{
    outra->setText(escolhida->text());
}

// Only a new row has to have any content.
bool FrmRituais::VerificaCampos(Passo passo)
{
    if (passo == Passo::Alteracao || preenchido(cmbTipo) || preenchido(txtQ) || preenchido(txtVU) ||
        preenchido(txtVTotal))
        return true;
    showMessage("Não inseriu informação necessária para poder confirmar a inserção!");
    return false;
}

// A row without a currency isn't given that of the row shown before.
void FrmRituais::preparaAlteracao()
{
    if (!moedaDaColuna(adoRit.recordset()["tipomoeda"].toString())) cmbMoeda_0->setListIndex(-1);
}

// Kept: with no option on, it counts as alms.
QString FrmRituais::acrescenta()
{
    const QString numero = proximoNumero("idlegpio");
    acrescentaLinha(Valores{{"nind", txtNind->text()},
                            {"idlegpio", numero},
                            {"tipolegpio", sufragios[opcao().value_or(2)].tipolegpio}} +
                    valores());
    return numero;
}

// No option on: the kind stays as it is. Another one: a type of the former says nothing any more.
QString FrmRituais::altera()
{
    const jet::Recordset& linha = adoRit.recordset();
    const QString numero = textoDoNumero(linha["idlegpio"]);
    Valores alteradas;
    if (opcao()) {
        alteradas << std::pair("tipolegpio", sufragios[*opcao()].tipolegpio);
        if (opcao() != sufragioDaColuna(linha["tipolegpio"].toString()))
            alteradas << std::pair("tipo", itemDe(cmbTipo));
    }
    alteraLinha(alteradas + valores());
    return numero;
}

std::optional<int> FrmRituais::opcao() const
{
    const OptionButton* const opcoes[] = {optLeg_0, optLeg_1, optLeg_2};
    for (int i = 0; i < 3; ++i)
        if (opcoes[i]->isChecked()) return i;
    return {};
}

// Only the first of the two currencies is stored.
ListaDatada::Valores FrmRituais::valores() const
{
    Valores valores{{"quantidade", numeroDe(txtQ)},  {"valorunit", numeroDe(txtVU)},
                    {"obs", textoDe(txtObs)},        {"destino", textoDe(txtDest)},
                    {"numpadres", inteiroDe(txtNP)}, {"valortotal", numeroDe(txtVTotal)}};
    valores << itemPara("tipo", cmbTipo);
    if (cmbMoeda_0->listIndex() >= 0) valores << std::pair("tipomoeda", colunaDaMoeda(cmbMoeda_0->text()));
    return valores;
}
