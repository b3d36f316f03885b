#include "acts/fichaDoAssistente.h"

#include "common/codigos.h"
#include "common/ficha.h"
#include "common/modGeral.h"
#include "common/text.h"

void FichaDoAssistente::preencheListas()
{
    PreencheCodigos(*cmbEC, "EstCi");
    for (ComboBox* lista : {cmbPar1, cmbPar2})
        PreencheCodigos(*lista, "Paren");
}

void FichaDoAssistente::AplicarModo(Modo modo)
{
    using enum Effect;
    constexpr QColor blue = corDoModo::edi, white = corDoModo::cons;

    // clang-format off
    static const QList<ModeRow> tabela{
        // control            Edi            Cons
        {"optassistente_0",   {Enabled},     {Disabled},     {}},
        {"optassistente_1",   {Enabled},     {Disabled},     {}},
        {"cmbEC",             {Open, blue},  {Shut, white},  {}},
        {"cmbPar1",           {Open, blue},  {Shut, white},  {}},
        {"cmbPar2",           {Open, blue},  {Shut, white},  {}},
        {"chkFalPai",         {Enabled},     {Disabled},     {}},
        {"chkFalMae",         {Enabled},     {Disabled},     {}},
        {"txtObs",            {Open, blue},  {Shut, white},  {}},
    };
    // clang-format on
    applyMode(this, tabela, modo);
}

void FichaDoAssistente::mostraParentescos(bool casamento)
{
    lblParent1->setText(casamento ? "Par. Noivo" : "Parentesco");
    lblParent2->setText("Par. Noiva");
    lblParent2->setVisible(casamento);
    cmbPar2->setVisible(casamento);
}

void FichaDoAssistente::limpa()
{
    for (OptionButton* opcao : {optassistente_0, optassistente_1})
        opcao->setValue(false);
    for (QCheckBox* sinal : {chkFalPai, chkFalMae})
        sinal->setChecked(false);
    for (ComboBox* lista : {cmbEC, cmbPar1, cmbPar2})
        lista->setListIndex(-1);
    txtObs->clear();
}

void FichaDoAssistente::mostra(const jet::Recordset& assistente)
{
    const bool padrinho = Trim(assistente["tipoassistente"].toString()) == "p";
    (padrinho ? optassistente_0 : optassistente_1)->setValue(true);
    ProcuraItemData(*cmbEC, assistente["estadocivil"]);
    chkFalPai->setChecked(assistente["falecidopai"].toBool());
    chkFalMae->setChecked(assistente["falecidomae"].toBool());
    txtObs->setText(assistente["obs"].toString());
}
