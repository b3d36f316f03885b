#include "places/frmPesq.h"

#include "common/modGeral.h"
#include "common/vbtext.h"
#include "places/frmLocalizacao.h"
#include "platform/forms/forms.h"
#include "platform/forms/msgbox.h"

#include <QHeaderView>
#include <QShortcut>

namespace {

using enum FrmLocalizacao::Nivel;

enum Coluna
{
    Designacao,
    Tipo,
    Codigo
};

struct Dados
{
    const char* palavra;   // what the list calls the level
    const char* instrucao; // its codes and names; the text sought stands between this and the order
    const char* ordem;
    const char* superior; // the code above the place with a code; null: it isn't asked for
};

const Dados niveis[NumNiveis] = {
    {"País", "select codpais, nomepais from pais where nomepais like '%", "%' order by nomepais", nullptr},
    {"Zona", "select codzona, nomezona from zonapais where nomezona like '%", "%' order by nomezona",
     "select codpais from zonapais where codzona = ?"},
    {"Distrito", "select coddistrito, nomedistrito from distrito where nomedistrito like '%",
     "%' order by nomedistrito", nullptr},
    {"Concelho", "select codconcelho, nomeconcelho from concelho where nomeconcelho like '%",
     "%' order by nomeconcelho", "select coddistrito from concelho where codconcelho = ?"},
    {"Paroquia", "select codparoquia, nomeparoquia from paroquia where nomeparoquia like '%",
     "%' order by nomeparoquia", "select codconcelho from paroquia where codparoquia = ?"},
    {"Lugar", "select codlugar, nomelugar from lugar where nomelugar like '%", "%' order by nomelugar",
     "select codparoquia from lugar where codlugar = ?"},
    {"Sitio", "select codsitio, nomesitio from sitio where nomesitio like '%", "%' order by nomesitio",
     "select codlugar from sitio where codsitio = ?"},
};

// Chooses a country on the picker, which fills the list below it, also where it was chosen already.
bool escolhePais(ComboBox& paises, const QString& codigo)
{
    for (int i = 0; i < paises.count(); ++i) {
        if (Mid(paises.list(i), 1, 2) != codigo) continue;
        paises.setListIndex(-1);
        paises.setListIndex(i);
        return true;
    }
    return false;
}

// Chooses a place on the picker. Each choice fills the list of the next, so that one which isn't found ends the walk;
// so does a list that is shut, as below the parishes where only a parish can be chosen.
void mostraLocal(const FrmLocalizacao& ficha, int nivel, const QString& codigo, const QString& superior)
{
    const auto escolhe = [&ficha](ComboBox* lista, const QString& numero) {
        return lista->isEnabledTo(&ficha) && ProcuraItemData(*lista, numero) >= 0;
    };
    if (nivel == Pais) {
        escolhePais(*ficha.cmbPais, codigo);
    } else if (nivel == Zona) {
        if (escolhePais(*ficha.cmbPais, superior)) escolhe(ficha.cmbZona, Mid(codigo, 3));
    } else if (escolhePais(*ficha.cmbPais, "PT")) {
        ComboBox* const listas[] = {ficha.cmbDistrito, ficha.cmbConcelho, ficha.cmbParoquia, ficha.cmbLugar,
                                    ficha.cmbS};
        // Two digits of the code above for each level above; the place's own number is the rest of its code.
        const int acima = nivel - Distrito;
        for (int i = 0; i < acima; ++i)
            if (!escolhe(listas[i], Mid(superior, 2 * i + 1, 2))) return;
        escolhe(listas[acima], Mid(codigo, 2 * acima + 1));
    }
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
        for (int nivel = Pais; nivel < NumNiveis; ++nivel) {
            if (!chkLoc_0->isChecked() && !caixas[nivel]->isChecked()) continue;
            const Dados& dados = niveis[nivel];
            jet::Recordset locais(cnBDP, dados.instrucao + txtSeq->text() + dados.ordem);
            for (; !locais.eof(); locais.moveNext()) {
                auto* item = new QTreeWidgetItem(LV, {locais[1].toString(), dados.palavra, locais[0].toString()});
                item->setData(Tipo, Qt::UserRole, nivel);
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
        const auto* ficha = static_cast<FrmLocalizacao*>(Forms::find(FrmLocalizacao::Name));
        if (!item || !ficha) return;
        const int nivel = item->data(Tipo, Qt::UserRole).toInt();
        const QString codigo = item->text(Codigo);
        QString superior;
        if (niveis[nivel].superior) {
            const jet::Recordset local(cnBDP, jet::NativeSql(niveis[nivel].superior, {codigo}));
            if (local.eof()) return; // gone since the search
            superior = local[0].toString();
        }
        mostraLocal(*ficha, nivel, codigo, superior);
    });
}
