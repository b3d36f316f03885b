#include "views/frmResult.h"

#include "common/datas.h"
#include "common/instrucao.h"
#include "common/locais.h"
#include "common/modGeral.h"
#include "common/numeros.h"
#include "platform/forms/focus.h"
#include "platform/forms/forms.h"

#include <QHeaderView>
#include <QKeyEvent>

// What differs between the two uses.
struct FrmResult::Aspecto
{
    const char* caption;
    const char* titulos[3];   // of the grid
    double larguras[2];       // parts of the grid's width, 0 hides the column; the last column takes the rest
    const char *info, *facto; // the heading and the second column of the small list
};

const FrmResult::Aspecto FrmResult::aspectos[] = {
    {"Resultados da pesquisa de indivíduos",
     {"nind", "nome", "famorig"},
     {0, 2. / 3},
     "Lista de Profissões Conhecidas",
     "Profissão"},
    {"Resultados da pesquisa de famílias",
     {"Nfamilia", "TipoFamilia", "Data Casam"},
     {1. / 4, 1. / 4},
     "Lista de Residências Conhecidas",
     "Residência"},
};

const FrmResult::Aspecto& FrmResult::aspecto() const
{
    return aspectos[static_cast<int>(uso_)];
}

FrmResult& frmResult()
{
    return theForm<FrmResult>();
}

FrmResult::FrmResult() : Form(Name)
{
    setupUi(this);
    connect(dtgProf, &Grid::picked, this, &FrmResult::dtgProf_RowColChange);
    connect(dtgProf, &Grid::doubleClicked, this, &FrmResult::cmdOK_Click);
    connect(cmdOK, &CommandButton::clicked, this, &FrmResult::cmdOK_Click);
    connect(cmdT, &CommandButton::clicked, this, &FrmResult::cmdT_Click);
    connect(cmdFechar, &CommandButton::clicked, this, &FrmResult::cmdFechar_Click);
}

// Beside the card, at the top right, and as tall as there is room for.
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
        dtgProf->setColWidth(coluna, qRound(dtgProf->width() * aspecto().larguras[coluna]));
    lvInfo->header()->resizeSection(0, lvInfo->width() / 3);
}

void FrmResult::mostraResultados(Ficha& ficha, Uso uso, Le le)
{
    ficha_ = &ficha;
    uso_ = uso;
    le_ = std::move(le);
    display();
    tvw->show();
    setCaption(aspecto().caption);
    PreencheFG();
    Focus::setTo(dtgProf);
    desenhaArvore();
    lblInfo->setText(aspecto().info);
    lvInfo->setHeaderLabels({"Data", aspecto().facto});
    Dados();
}

void FrmResult::PreencheFG()
{
    evenIfItFails([&] {
        dtgProf->setRows(0);
        dtgProf->fill(ficha_->adoFiltro.recordset().recordCount() + 1, [dona = ficha_, le = le_](int linha) {
            return dona ? leAchado(dona->adoFiltro.recordset(), linha, le).celulas : QStringList();
        });
        dtgProf->setColumns({{aspecto().titulos[0]}, {aspecto().titulos[1]}, {aspecto().titulos[2]}});
        ajustaColunas();
    });
}

// The professions of the person, or the residences of the family.
void FrmResult::Dados()
{
    evenIfItFails([&] {
        lvInfo->clear();
        const bool familia = uso_ == Uso::Familias;
        jet::Recordset facto(
            cnBDP,
            familia ? comChave("select dataref, localresid, tipolocal from residencia where numero = ? and tiporesid = "
                               "'f' order by dataref",
                               chave())
                    : comChave("select dataref, profissao from profissoes, profissao where profissao.codprof = "
                               "profissoes.codprof and nind = ? order by dataref",
                               chave()));
        for (; !facto.eof(); facto.moveNext()) {
            const QString texto =
                familia ? NomeLocal(facto["localresid"], facto["tipolocal"]) : facto["profissao"].toString();
            new QTreeWidgetItem(lvInfo, {textoDaData(facto["dataref"]), texto});
        }
    });
}

void FrmResult::dtgProf_RowColChange()
{
    if (isHidden()) return; // the last release of a double click, which was the OK
    guarded([&] {
        ficha_->escolheAchado(dtgProf->row(), chave()); // the rows of the grid are those of the set
        ficha_->mostraAchado();
        desenhaArvore(); // of what the card shows now
        Dados();
    });
}

// Return on a row is OK.
void FrmResult::keyPressEvent(QKeyEvent* event)
{
    const bool aceita = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (aceita && dtgProf->hasFocus()) return cmdOK_Click();
    Form::keyPressEvent(event);
}

void FrmResult::cmdOK_Click()
{
    guarded([&] {
        const QString numero = textoDoNumero(numeroDoTexto(chave()));
        ficha_->retomaFicheiro();
        ficha_->aceitaAchado(numero);
        ficha_->setEnabled(true);
        unload();
    });
}

void FrmResult::cmdT_Click()
{
    guarded([&] { termina(); });
}

// The search ends on what the card shows.
void FrmResult::termina()
{
    ficha_->retomaFicheiro();
    ficha_->AplicarModo(Modo::Cons);
    ficha_->terminaNoAchado();
    unload();
}

void FrmResult::terminaOutra(const Ficha& ficha)
{
    auto* lista = static_cast<FrmResult*>(Forms::find(Name));
    if (lista && lista->ficha_ && lista->ficha_ != &ficha) lista->termina();
}

void FrmResult::cmdFechar_Click()
{
    guarded([&] {
        ficha_->retomaPesquisa();
        unload();
    });
}
