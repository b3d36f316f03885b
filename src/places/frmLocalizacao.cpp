// The picker's load, and what it opens.
#include "places/frmLocalizacao.h"

#include "common/modGeral.h"
#include "common/text.h"
#include "places/paisesPorNome.h"
#include "platform/forms/focus.h"
#include "platform/forms/forms.h"

#include <algorithm>

FrmLocalizacao& frmLocalizacao()
{
    return theForm<FrmLocalizacao>();
}

// What is chosen in the window is seen at once on the other one, as far as both have room.
static void poeAoLado(const Form& janela, const Form& outra)
{
    QWidget* moldura = janela.parentWidget();
    const QWidget* dela = outra.parentWidget();
    if (!moldura || !dela || moldura->parentWidget() != dela->parentWidget()) return;
    const int espaco = moldura->parentWidget()->width();
    const QRect ocupado = dela->geometry();
    int x = ocupado.right() + 1;
    if (x + moldura->width() > espaco && ocupado.left() >= moldura->width()) x = ocupado.left() - moldura->width();
    moldura->move(std::max(0, std::min(x, espaco - moldura->width())), ocupado.top());
}

FrmLocalizacao::FrmLocalizacao() : Form(Name)
{
    setupUi(this);
    fraLista->setVisible(pedidoDeLocal().origem != OrigemLoc::BDP); // a BDP's parish is no matter of the list
    listas_ = {cmbPais, cmbZona, cmbDistrito, cmbConcelho, cmbParoquia, cmbLugar, cmbS};
    cmbPais->setView(new PaisesPorNome(cmbPais));
    editores_ = {nullptr, cmdZ, nullptr, nullptr, nullptr, cmdLug, cmdSit};
    for (const DadosDoNivel& dados : niveis)
        connect(lista(dados.nivel), &ComboBox::clicked, this, [this, nivel = dados.nivel] { lista_Click(nivel); });
    connect(cmdZ, &QPushButton::clicked, this, &FrmLocalizacao::cmdZ_Click);
    connect(cmdLug, &QPushButton::clicked, this, &FrmLocalizacao::cmdLug_Click);
    connect(cmdSit, &QPushButton::clicked, this, &FrmLocalizacao::cmdSit_Click);
    connect(cmdGuardar, &QPushButton::clicked, this, &FrmLocalizacao::cmdGuardar_Click);
    connect(cmdRem, &QPushButton::clicked, this, &FrmLocalizacao::cmdRem_Click);
    connect(cmdLoc, &QPushButton::clicked, this, &FrmLocalizacao::cmdLoc_Click);
    connect(cmdAtribuir, &QPushButton::clicked, this, &FrmLocalizacao::cmdAtribuir_Click);
    connect(cmdSair, &QPushButton::clicked, this, &FrmLocalizacao::cmdSair_Click);
}

void FrmLocalizacao::Form_Load()
{
    guarded([&] {
        preenchePaises();
        escolheParoquiaDaBDP();
        if (pedidoDeLocal().origem == OrigemLoc::BDP)
            cmdGuardar->setEnabled(false);
        else
            preencheLista();
        cmdRem->setEnabled(lstLocal->listCount() > 0);
    });
}

void FrmLocalizacao::cmdZ_Click()
{
    guarded([&] { abreEditor("frmZona", "Zonas de ", Nivel::Pais); });
}

void FrmLocalizacao::cmdLug_Click()
{
    guarded([&] { abreEditor("frmLugares", "Localidades de ", Nivel::Paroquia); });
}

void FrmLocalizacao::cmdSit_Click()
{
    guarded([&] { abreEditor("frmSitios", "Sítios de ", Nivel::Lugar); });
}

void FrmLocalizacao::cmdLoc_Click()
{
    guarded([&] {
        Form* pesquisa = Forms::show("frmPesq");
        if (!pesquisa) return;
        poeAoLado(*pesquisa, *this);
        setEnabled(false);
    });
}

// Opens the editor of the places below the one chosen in `superior`.
void FrmLocalizacao::abreEditor(const QString& nome, const QString& titulo, Nivel superior)
{
    const QString local = Trim(lista(superior)->text());
    if (local.isEmpty()) return;
    if (Form* form = Forms::show(nome)) {
        form->setCaption(titulo + local);
        setEnabled(false);
    }
}

void FrmLocalizacao::retomaDoEditor(Nivel superior, const QString& codigo, bool soOlhou)
{
    const auto nivel = Nivel(int(superior) + 1);
    const QString antes = codigoAte(nivel);
    const QString sitio = nivel == Nivel::Lugar ? codigoAte(Nivel::Sitio) : QString();
    emit lista(superior)->clicked();
    setEnabled(true);
    guarded([&] { releNaLista(nivel); });
    if (!soOlhou || antes.isEmpty())
        escolhe(nivel, codigo);
    else if (escolhe(nivel, antes))
        escolhe(Nivel::Sitio, sitio);
    if (isShown() && lista(nivel)->count() > 1) Focus::setTo(lista(nivel));
}
