#include "views/frmResult.h"

#include "common/dates.h"
#include "common/globals.h"
#include "common/modGeral.h"
#include "common/numbers.h"
#include "common/places.h"
#include "families/frmFam.h"
#include "individuals/frmInd.h"
#include "platform/forms/focus.h"
#include "platform/forms/forms.h"

#include <QHeaderView>
#include <QPointer>
#include <QScopeGuard>

namespace {

// The cells of a row of the set, which stays where it stands: the grid asks for them at any time. A row that is gone,
// or a set that was closed, has none.
QStringList celulasDaLinha(jet::Recordset& filtro, QStringList (*celulas)(const jet::Recordset&), int linha)
try {
    const int posicao = filtro.absolutePosition();
    const auto volta = qScopeGuard([&] { filtro.setAbsolutePosition(std::max(posicao, 1)); });
    filtro.setAbsolutePosition(linha);
    return celulas(filtro);
} catch (const jet::Error&) {
    return {};
}

} // namespace

const FrmResult::Uso FrmResult::individuos{
    {"nind", "nome", "famorig"},
    {0, 2. / 3},
    "Lista de Profissões Conhecidas",
    "Profissão",
    "i",
    []() -> Ficha& { return frmInd(); },
    [](const jet::Recordset& registo) {
        return QStringList{textoDoNumero(registo["nind"]), registo["nome"].toString(),
                           textoDoNumero(registo["famorig"])};
    },
    &FrmResult::PreencheArvore,
    &FrmResult::escolheIndividuo,
    &FrmResult::aceitaIndividuo,
    &FrmResult::terminaNoIndividuo,
};

const FrmResult::Uso FrmResult::familias{
    {"Nfamilia", "TipoFamilia", "Data Casam"},
    {1. / 4, 1. / 4},
    "Lista de Residências Conhecidas",
    "Residência",
    "f",
    []() -> Ficha& { return frmFam(); },
    [](const jet::Recordset& registo) {
        return QStringList{textoDoNumero(registo["nfamilia"]), textoDoNumero(registo["tipocasal"]),
                           textoDaData(registo["datacasam"])};
    },
    &FrmResult::PreencheArvoreFam,
    &FrmResult::escolheFamilia,
    &FrmResult::aceitaFamilia,
    &FrmResult::terminaNaFamilia,
};

FrmResult& frmResult()
{
    return theForm<FrmResult>();
}

FrmResult::FrmResult() : Form(Name)
{
    setupUi(this);
    connect(dtgProf, &Grid::picked, this, &FrmResult::dtgProf_RowColChange);
    connect(cmdOK, &CommandButton::clicked, this, &FrmResult::cmdOK_Click);
    connect(cmdT, &CommandButton::clicked, this, &FrmResult::cmdT_Click);
    connect(cmdFechar, &CommandButton::clicked, this, &FrmResult::cmdFechar_Click);
}

// Beside the card, at the right under the top edge, and as high as there is room.
void FrmResult::Form_Load()
{
    constexpr int margem = 13;
    QWidget* janela = parentWidget();
    if (!janela) return;
    const QSize area = janela->parentWidget()->size();
    const int largura = janela->sizeHint().width();
    janela->setGeometry(std::max(area.width() - largura, 0), 0, largura, area.height() - margem);
}

bool FrmResult::Form_QueryUnload(UnloadMode mode)
{
    return mode != UnloadMode::ControlMenu;
}

void FrmResult::resizeEvent(QResizeEvent* event)
{
    Form::resizeEvent(event);
    ajustaColunas();
}

void FrmResult::ajustaColunas()
{
    for (int coluna : {0, 1})
        dtgProf->setColWidth(coluna, qRound(dtgProf->width() * uso().larguras[coluna]));
    lvInfo->header()->resizeSection(0, lvInfo->width() / 3);
}

void FrmResult::mostraResultados(const QString& caption)
{
    display();
    tvw->show();
    setCaption(caption);
    PreencheFG();
    Focus::setTo(dtgProf);
    (this->*uso().arvore)();
    lblInfo->setText(uso().info);
    lvInfo->setHeaderLabels({"Data", uso().facto});
    Dados(uso().tipo);
}

void FrmResult::PreencheFG()
{
    guarded([&] {
        Ficha& ficha = uso().ficha();
        dtgProf->setRows(0);
        dtgProf->setCols(3);
        dtgProf->fill(ficha.adoFiltro.recordset().recordCount() + 1,
                      [dona = QPointer(&ficha), celulas = uso().celulas](int linha) {
                          return dona ? celulasDaLinha(dona->adoFiltro.recordset(), celulas, linha) : QStringList();
                      });
        for (int coluna = 0; coluna < 3; ++coluna)
            dtgProf->setTextMatrix(0, coluna, uso().titulos[coluna]);
        ajustaColunas();
    });
}

void FrmResult::Dados(const QString& tipo)
{
    guarded([&] {
        lvInfo->clear();
        const bool familia = tipo == "f";
        const QString instrucao =
            familia ? "select dataref, localresid, tipolocal  from residencia where numero = " + chave() +
                          " and tiporesid = 'f' order by dataref"
                    : "select dataref, profissao  from profissoes, profissao where profissao.codprof =  "
                      "profissoes.codprof and nind = " +
                          chave() + " order by dataref";
        for (jet::Recordset facto(cnBDP, instrucao); !facto.eof(); facto.moveNext()) {
            const QString texto =
                familia ? NomeLocal(facto["localresid"], facto["tipolocal"]) : facto["profissao"].toString();
            new QTreeWidgetItem(lvInfo, {textoDaData(facto["dataref"]), texto});
        }
    });
}

void FrmResult::dtgProf_RowColChange()
{
    guarded([&] { (this->*uso().escolhe)(); });
}

void FrmResult::escolheIndividuo()
{
    // The rows of the grid are those of the set.
    frmInd().adoFiltro.recordset().setAbsolutePosition(dtgProf->row());
    PreencheArvore();
    Dados("i");
    frmInd().ActualizaCampos(frmInd().adoFiltro.recordset());
}

void FrmResult::escolheFamilia()
{
    NfamCorrente = numeroDoTexto(chave());
    PreencheArvoreFam(); // Kept: drawn of the names that the card still shows, those of the row before.
    Dados("f");
    frmFam().ActualizaCampos(frmFam().adoFiltro.recordset(), NfamCorrente);
    frmFam().cmdInsF->setEnabled(false);
    frmFam().cmdElimF->setEnabled(false);
}

void FrmResult::cmdOK_Click()
{
    guarded([&] {
        const double numero = numeroDoTexto(chave());
        uso().ficha().retomaFicheiro();
        (this->*uso().aceita)(numero);
        uso().ficha().setEnabled(true);
        unload();
    });
}

void FrmResult::aceitaIndividuo(double numero)
{
    FrmInd& ficha = frmInd();
    jet::Recordset& lista = ficha.adoInd.recordset();
    lista.moveFirst();
    lista.find("nind = " + textoDoNumero(numero));
    ficha.AplicarModo(Modo::Cons);
    ficha.ActualizaCampos(lista);
    ficha.permiteAtribuir();
}

void FrmResult::aceitaFamilia(double numero)
{
    frmFam().AplicarModo(Modo::Cons);
    frmFam().ActualizaCampos(frmFam().adoFam.recordset(), numero);
}

// The search ends on what the card shows.
void FrmResult::cmdT_Click()
{
    guarded([&] {
        uso().ficha().retomaFicheiro();
        uso().ficha().AplicarModo(Modo::Cons);
        (this->*uso().termina)();
        unload();
    });
}

void FrmResult::terminaNoIndividuo()
{
    frmInd().permiteAtribuir(); // Kept: the list of all people stays where it stood before the search.
}

void FrmResult::terminaNaFamilia()
{
    NfamCorrente = numeroDoTexto(frmFam().txtNFam->text());
    frmFam().ActualizaCampos(frmFam().adoFam.recordset(), NfamCorrente);
    frmFam().setEnabled(true);
}

void FrmResult::cmdFechar_Click()
{
    guarded([&] {
        uso().ficha().retomaPesquisa();
        unload();
    });
}
