#include "individuals/frmDatas.h"

#include "common/datas.h"
#include "common/modGeral.h"
#include "individuals/diaEMes.h"
#include "platform/forms/focus.h"
#include "platform/forms/forms.h"

#include <QKeyEvent>

#include <utility>

FrmDatas& frmDatas()
{
    return theForm<FrmDatas>();
}

std::optional<CriterioDeDatas> recolheDatas(Onde onde)
{
    auto* datas = static_cast<FrmDatas*>(Forms::find(FrmDatas::Name));
    if (!datas || (onde == Onde::UltimaFicha && Forms::loaded().last() != datas)) return {};
    const CriterioDeDatas criterio = datas->criterio();
    datas->unload();
    return criterio;
}

FrmDatas::FrmDatas() : Form(Name)
{
    setupUi(this);
    connect(optTData_0, &OptionButton::clicked, this, [this] { optTData_Click(0); });
    connect(optTData_1, &OptionButton::clicked, this, [this] { optTData_Click(1); });
    for (MaskedEdit* campo : {mskDt_0, mskDt_1, mskDt_2})
        Focus::watch(campo, {}, [=] { guarded([=] { mostraDiaEMes(campo->text()); }); });
    connect(cmdOk, &CommandButton::clicked, this, &FrmDatas::cmdOk_Click);
    connect(cmdC, &CommandButton::clicked, this, &FrmDatas::cmdC_Click);
}

void FrmDatas::Form_Load()
{
    optData_0->setValue(true);
    optTData_0->setValue(true);
    fraD_0->hide();
}

void FrmDatas::mostraPara(Form& cartao, Procura procura)
{
    const bool individuo = procura == Procura::Individuo;
    if (espera_) largaCartao(); // the other card would wait forever
    // An earlier "Ok" may have left it disabled, perhaps for the other card.
    setEnabled(true);
    optData_0->setEnabled(individuo);
    optData_2->setEnabled(individuo);
    if (std::exchange(procura_, procura) != procura) (individuo ? optData_0 : optData_1)->setValue(true);
    display(); // now that it is settled what can take the focus
    cartao_ = &cartao;
    espera_ = true;
    cartao.setEnabled(false);
}

CriterioDeDatas FrmDatas::criterio() const
{
    CriterioDeDatas criterio;
    const OptionButton* const opcoes[] = {optData_0, optData_1, optData_2, optData_3};
    for (int indice = 0; indice < 4; ++indice)
        if (opcoes[indice]->isChecked()) criterio.data = indice;
    if (!semData(mskDt_0->text())) criterio.fixa = mskDt_0->text();
    criterio.inicio = mskDt_1->text();
    criterio.fim = mskDt_2->text();
    return criterio;
}

// One date or two: the fields of the other choice are emptied.
void FrmDatas::optTData_Click(int indice)
{
    guarded([&] {
        fraD_0->setVisible(indice == 1);
        fraD_1->setVisible(indice == 0);
        if (indice == 1) return mskDt_0->clearMasked();
        mskDt_1->clearMasked();
        mskDt_2->clearMasked();
    });
}

// Kept: nothing is read or checked here. The form stays as it is, for the search to read.
void FrmDatas::cmdOk_Click()
{
    guarded([&] {
        largaCartao();
        setEnabled(false);
        if (cartao_) cartao_->setFocusToForm();
    });
}

// The button gets the focus first, as with a click: the field that had it is left.
void FrmDatas::keyPressEvent(QKeyEvent* event)
{
    const bool aceita = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!aceita && event->key() != Qt::Key_Escape) return Form::keyPressEvent(event);
    CommandButton* const botao = aceita ? cmdOk : cmdC;
    botao->setFocus(Qt::ShortcutFocusReason);
    botao->click();
}

void FrmDatas::cmdC_Click()
{
    guarded([&] { unload(); });
}

void FrmDatas::Form_Unload()
{
    if (!Forms::isUnloadingAll()) largaCartao();
}

void FrmDatas::largaCartao()
{
    espera_ = false;
    if (cartao_) cartao_->setEnabled(true);
}
