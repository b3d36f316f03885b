#include "acts/frmFuneral.h"

#include "acts/observacao.h"
#include "common/campos.h"
#include "common/codigos.h"
#include "common/datas.h"
#include "common/dicaDaPessoa.h"
#include "common/escolhido.h"
#include "common/ficha.h"
#include "common/instrucao.h"
#include "common/listasAbertas.h"
#include "common/modGeral.h"
#include "common/numeros.h"
#include "common/pesquisa.h"
#include "individuals/frmInd.h"
#include "platform/forms/forms.h"

namespace {

constexpr auto editar = "&Editar";
const QStringList colunasDoFuneral{"primpadreobito", "funcprimpobito", "mortalha", "igreja", "enterro"};

// Kept: the birth, and the death only if there is no birth. "" for neither.
QString dataDoFuneral(const jet::Recordset& individuo)
{
    if (individuo.eof()) return {};
    const QString nascimento = textoDaData(individuo["datanasc"]);
    return nascimento.isEmpty() ? textoDaData(individuo["dataobito"]) : nascimento;
}

} // namespace

FrmFuneral::FrmFuneral() : JanelaDoDono(Name)
{
    setupUi(this);
    mostraPessoaNaDica(txtNindP);
    comandos_.usa({{cmdE, editar, nullptr, legenda::confirmar}, {cmdF, legenda::fechar, nullptr, legenda::cancelar}});
    ListasAbertas::segueCodigos(*this, *cmbFuncao, "FunPa");
    connect(cmdIrpara, &CommandButton::clicked, this, &FrmFuneral::cmdIrpara_Click);
    connect(cmdE, &CommandButton::clicked, this, &FrmFuneral::cmdE_Click);
    connect(cmdF, &CommandButton::clicked, this, &FrmFuneral::cmdF_Click);
}

void FrmFuneral::Form_Load()
{
    guarded([&] {
        txtNind->setText(donoDaJanela().numero);
        txtNome->setText(donoDaJanela().nome);
        jet::Recordset funcoes = codigosDaCategoria("FunPa"); // as they stand, with the "*"
        PreencheComBranco(*cmbFuncao, funcoes, 1, 0);
        AplicarModo(Modo::Cons);
        if (!donoDaJanela().registo) return;
        ActualizaCampos(*donoDaJanela().registo);
        DataActo = dataDoFuneral(*donoDaJanela().registo);
    });
}

void FrmFuneral::AplicarModo(Modo modo)
{
    using enum Effect;
    constexpr QColor blue = corDoModo::edi, white = corDoModo::cons;

    // clang-format off
    static const QList<ModeRow> tabela{
        // control      Edi            Cons
        {"txtNindP",    {Shut, blue},  {Shut, white},  {}},
        {"cmdIrpara",   {Enabled},     {Disabled},     {}},
        {"cmbFuncao",   {Open, blue},  {Shut, white},  {}},
        {"txtMort",     {Open, blue},  {Shut, white},  {}},
        {"txtIgreja",   {Open, blue},  {Shut, white},  {}},
        {"txtEnterro",  {Open, blue},  {Shut, white},  {}},
    };
    // clang-format on
    applyMode(this, tabela, modo);
}

void FrmFuneral::LimpaCampos()
{
    for (TextBox* campo : {txtNindP, txtMort, txtIgreja, txtEnterro})
        campo->clear();
    cmbFuncao->setListIndex(-1);
}

void FrmFuneral::ActualizaCampos(const jet::Recordset& individuo)
{
    LimpaCampos();
    if (individuo.eof()) return;
    txtNindP->setText(textoDoNumero(individuo["primpadreobito"]));
    ProcuraItemData(*cmbFuncao, individuo["funcprimpobito"]);
    txtMort->setText(individuo["mortalha"].toString());
    txtIgreja->setText(individuo["igreja"].toString());
    txtEnterro->setText(individuo["enterro"].toString());
}

// As the store has it by now.
jet::Recordset FrmFuneral::guardado() const
{
    return {cnBDP, "select * from individuo where nind = " + chaveEmSQL(txtNind->text())};
}

// The priest must have been observable at the funeral.
void FrmFuneral::cmdIrpara_Click()
{
    guarded([&] {
        FrmInd::pede({.origem = OrigemInd::PadreDoFuneral,
                      .quem = this,
                      .deActo = true,
                      .IndChamado = true,
                      .depois = DepoisDePedido::FicaAberta,
                      .DataActo = DataActo,
                      .recusa = recusaNoFuneral,
                      .recebe = [this](const FrmInd& ficha) { txtNindP->setText(ficha.numero()); },
                      .comoQue = [morto = txtNind->text()](
                                     const FrmInd&) { return "padre do funeral do indivíduo nº " + morto; }},
                     txtNindP->text());
    });
}

void FrmFuneral::cmdE_Click()
{
    guarded([&] {
        if (comandos_.passo() == Passo::Alteracao) {
            if (!donoGuardado() || !escolhidoExiste(txtNindP, textoDoNumero(guardado()["primpadreobito"]))) return;
            jet::Recordset agora = guardado();
            if (!visto_.podeGravar(agora, colunasDoFuneral)) return;
            try {
                grava();
            } catch (const jet::Error&) {
                visto_.ve(guardado()); // the next confirmation finds what this one has written
                throw;
            }
            return terminaEdicao();
        }
        if (EmPesquisa || !donoGuardado()) return;
        const jet::Recordset encontrado = guardado();
        ActualizaCampos(encontrado);
        visto_.ve(encontrado);
        AplicarModo(Modo::Edi);
        comandos_.passaA(Passo::Alteracao);
    });
}

// Kept: one statement for each column and no transaction. An apostrophe is refused before the first one.
void FrmFuneral::grava()
{
    const auto gravaColuna = [&](const char* coluna, const QVariant& valor) {
        cnBDP.execute(jet::NativeSql(QString("update individuo set %1 = ? where nind = ?").arg(coluna),
                                     {valor, Nind::doCampo(txtNind->text()).paraColuna()}));
    };
    const auto texto = [](const TextBox* campo) {
        return campo->text().isEmpty() ? QVariant() : semPlica(campo->text());
    };
    const QVariant mortalha = texto(txtMort), igreja = texto(txtIgreja), enterro = texto(txtEnterro);
    gravaColuna("primpadreobito", preenchido(txtNindP) ? Trim(txtNindP->text()) : QVariant());
    if (cmbFuncao->listIndex() >= 0) // a function that has no entry stays
        gravaColuna("funcprimpobito", itemDe(cmbFuncao));
    gravaColuna("mortalha", mortalha);
    gravaColuna("igreja", igreja);
    gravaColuna("enterro", enterro);
}

// Cancelling reads the row anew: the card may show the candidate, and have read its row before the last confirmation.
void FrmFuneral::cmdF_Click()
{
    guarded([&] {
        if (comandos_.passo() == Passo::Repouso) {
            unload();
            return;
        }
        terminaEdicao();
        ActualizaCampos(guardado());
    });
}

void FrmFuneral::terminaEdicao()
{
    AplicarModo(Modo::Cons);
    comandos_.passaA(Passo::Repouso);
}

bool FrmFuneral::Form_QueryUnload(UnloadMode mode)
{
    return mode != UnloadMode::ControlMenu || comandos_.passo() == Passo::Repouso; // keeps what is being typed
}

void FrmFuneral::Form_Unload()
{
    JanelaDoDono::Form_Unload();
    if (Forms::isUnloadingAll() || !Forms::isLoaded(FrmInd::Name)) return;
    guarded([&] { frmInd().desiste(*this); });
}

void FrmFuneral::volta()
{
    guarded([&] {
        if (Ficha* ficha = donoDaJanela().ficha) ficha->procuraRegisto("nind = " + chaveEmSQL(txtNind->text()));
    });
}
