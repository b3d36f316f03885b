#include "places/frmPesq.h"

#include "common/instrucao.h"
#include "common/marca.h"
#include "common/modGeral.h"
#include "places/frmLocalizacao.h"
#include "platform/forms/dressing.h"
#include "platform/forms/forms.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/showntext.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QShortcut>

namespace {

enum Coluna
{
    Designacao,
    Tipo,
    Codigo
};

// Kept: the text goes into the statement as it was typed, so that a quote breaks it.
QString instrucaoDaProcura(const DadosDoNivel& nivel, const QString& texto)
{
    return QString("select %1, %2 from %3 where %2 like ").arg(nivel.codigo, nivel.nome, nivel.tabela) +
           digitado("%" + texto + "%") + " order by " + nivel.nome;
}

// The names of the places above one, the nearest first: "Miranda do Corvo, Coimbra". Of a district it isn't asked: all
// are Portugal's.
QString nomesAcima(Nivel nivel, QString codigo)
{
    QStringList nomes;
    while (nivel != Nivel::Pais && nivel != Nivel::Distrito) {
        const jet::Recordset local(cnBDP, dadosDe(nivel).superiorDe(codigo));
        if (local.eof()) break;
        codigo = local[0].toString();
        nivel = nivel == Nivel::Zona ? Nivel::Pais : Nivel(int(nivel) - 1);
        const jet::Recordset acima(cnBDP, dadosDe(nivel).nomeDe(codigo));
        if (acima.eof()) break;
        nomes << semMarca(acima[0].toString());
    }
    return nomes.join(", ");
}

// A place found. What stands above it is looked up when the pointer rests on it: a search may find thousands.
class LocalAchado : public QTreeWidgetItem
{
public:
    LocalAchado(QTreeWidget* lista, const DadosDoNivel& nivel, const QString& nome, const QString& codigo)
        : QTreeWidgetItem(lista, {shownText(nome), nivel.palavra, codigo}), nivel_(nivel.nivel)
    {
        setData(Tipo, Qt::UserRole, int(nivel.nivel));
    }

    QVariant data(int coluna, int papel) const override
    {
        if (papel != Qt::ToolTipRole) return QTreeWidgetItem::data(coluna, papel);
        try {
            return shownTip(nomesAcima(nivel_, text(Codigo)));
        } catch (const jet::Error&) {
            return {}; // no box comes up because the pointer rests somewhere
        }
    }

private:
    Nivel nivel_;
};

} // namespace

FrmPesq::FrmPesq() : Form(Name)
{
    setupUi(this);
    caixas = {chkLoc_1, chkLoc_2, chkLoc_3, chkLoc_4, chkLoc_5, chkLoc_6, chkLoc_7};
    LV->header()->setSectionResizeMode(Designacao, QHeaderView::Stretch);
    LV->header()->setDefaultSectionSize(qRound(LV->header()->defaultSectionSize() * fontScale(this)));
    connect(cmdLoc, &QPushButton::clicked, this, &FrmPesq::cmdLoc_Click);
    connect(chkLoc_0, &QCheckBox::clicked, this, &FrmPesq::chkLoc_Click);
    connect(LV, &QTreeWidget::itemDoubleClicked, this, &FrmPesq::LV_DblClick);
    for (const int tecla : {Qt::Key_Return, Qt::Key_Enter}) // the double click of the keyboard
        connect(new QShortcut(tecla, LV, nullptr, nullptr, Qt::WidgetShortcut), &QShortcut::activated, this,
                &FrmPesq::LV_DblClick);
    for (QCheckBox* caixa : caixas) // open until "Todos" is clicked: a level chosen first is meant instead of all
        connect(caixa, &QCheckBox::clicked, chkLoc_0, [this] { chkLoc_0->setChecked(false); });
    chkLoc_0->setChecked(true);
}

void FrmPesq::Form_Unload()
{
    if (Forms::isUnloadingAll()) return;
    if (Form* ficha = Forms::find(FrmLocalizacao::Name)) ficha->setEnabled(true);
}

void FrmPesq::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        cmdLoc_Click();
    else
        Form::keyPressEvent(event);
}

void FrmPesq::cmdLoc_Click()
{
    guarded([&] {
        Hourglass ampulheta;
        LV->clear();
        for (const DadosDoNivel& nivel : niveis) {
            if (!chkLoc_0->isChecked() && !caixas[int(nivel.nivel)]->isChecked()) continue;
            jet::Recordset locais(cnBDP, instrucaoDaProcura(nivel, txtSeq->text()));
            for (; !locais.eof(); locais.moveNext())
                new LocalAchado(LV, nivel, locais[1].toString(), locais[0].toString());
        }
        lblRes->setText(QString::number(LV->topLevelItemCount()));
    });
}

void FrmPesq::chkLoc_Click()
{
    for (QCheckBox* caixa : caixas)
        caixa->setEnabled(!chkLoc_0->isChecked());
}

void FrmPesq::LV_DblClick()
{
    guarded([&] {
        const QTreeWidgetItem* item = LV->currentItem();
        auto* ficha = static_cast<FrmLocalizacao*>(Forms::find(FrmLocalizacao::Name));
        if (!item || !ficha) return;
        const DadosDoNivel& nivel = niveis[item->data(Tipo, Qt::UserRole).toUInt()];
        const QString codigo = item->text(Codigo);
        QString superior;
        // Of a district it isn't asked: all are Portugal's.
        if (nivel.superior && nivel.nivel != Nivel::Distrito) {
            const jet::Recordset local(cnBDP, nivel.superiorDe(codigo));
            if (local.eof()) return; // gone since the search
            superior = local[0].toString();
        }
        ficha->mostraLocal(nivel.nivel, codigo, superior);
    });
}
