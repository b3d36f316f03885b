#include "places/frmPesq.h"

#include "common/modGeral.h"
#include "common/vbtext.h"
#include "places/frmLocalizacao.h"
#include "platform/forms/forms.h"
#include "platform/forms/msgbox.h"

#include <QHeaderView>
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
    return QString("select %1, %2 from %3 where %2 like '%").arg(nivel.codigo, nivel.nome, nivel.tabela) + texto +
           QString("%' order by ") + nivel.nome;
}

} // namespace

FrmPesq::FrmPesq() : Form(Name)
{
    setupUi(this);
    caixas = {chkLoc_1, chkLoc_2, chkLoc_3, chkLoc_4, chkLoc_5, chkLoc_6, chkLoc_7};
    LV->header()->setSectionResizeMode(Designacao, QHeaderView::Stretch);
    connect(cmdLoc, &QPushButton::clicked, this, &FrmPesq::cmdLoc_Click);
    connect(chkLoc_0, &QCheckBox::clicked, this, &FrmPesq::chkLoc_Click);
    connect(LV, &QTreeWidget::itemDoubleClicked, this, &FrmPesq::LV_DblClick);
    for (const int tecla : {Qt::Key_Return, Qt::Key_Enter}) // the double click of the keyboard
        connect(new QShortcut(tecla, LV, nullptr, nullptr, Qt::WidgetShortcut), &QShortcut::activated, this,
                &FrmPesq::LV_DblClick);
}

void FrmPesq::Form_Unload()
{
    if (Forms::isUnloadingAll()) return;
    if (Form* ficha = Forms::find(FrmLocalizacao::Name)) ficha->setEnabled(true);
}

void FrmPesq::cmdLoc_Click()
{
    guarded([&] {
        Hourglass ampulheta;
        LV->clear();
        for (const DadosDoNivel& nivel : niveis) {
            const int indice = int(nivel.nivel);
            if (!chkLoc_0->isChecked() && !caixas[indice]->isChecked()) continue;
            jet::Recordset locais(cnBDP, instrucaoDaProcura(nivel, txtSeq->text()));
            for (; !locais.eof(); locais.moveNext()) {
                auto* item = new QTreeWidgetItem(LV, {locais[1].toString(), nivel.palavra, locais[0].toString()});
                item->setData(Tipo, Qt::UserRole, indice);
            }
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
