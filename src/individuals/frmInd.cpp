#include "individuals/frmInd.h"

#include "common/globals.h"
#include "common/modGeral.h"
#include "common/places.h"
#include "common/SplashForm.h"
#include "platform/forms/focus.h"
#include "platform/forms/forms.h"
#include "platform/forms/msgbox.h"

FrmInd& frmInd()
{
    return theForm<FrmInd>();
}

void FrmIndLoaded()
{
    const Hourglass ampulheta;
    if (Forms::isLoaded(FrmInd::Name)) {
        frmInd().display();
    } else {
        splashForm().showStep("A carregar fichas de indivíduo. Aguarde por favor ...");
        frmInd().display();
        splashForm().unload();
    }
    if (IndChamado == 0 || IndChamado == 1) frmInd().cmdAtribuir->setEnabled(IndChamado == 1);
}

FrmInd::FrmInd() : Ficha(Name)
{
    setupUi(this);
    usaComandos(*this);
    connectEvents();
}

void FrmInd::connectEvents()
{
    connect(cmbTipoInd, &ComboBox::clicked, this, &FrmInd::cmbTipoInd_Click);

    Focus::watch(
        mskDtNasc, [this] { mskDtNasc_GotFocus(); }, [this] { mskDtNasc_LostFocus(); });
    connect(cmdEncLoc, &CommandButton::clicked, this, [this] { escolheLocal(1); });
    for (TextBox* idade : {txtIdPai, txtIdMae, txtIdade})
        Focus::watch(idade, {}, [=, this] { VerificaIdade(idade); });

    Focus::watch(
        mskDtObito, [this] { mskDtObito_GotFocus(); }, [this] { mskDtObito_LostFocus(); });
    connect(cmdLocOb, &CommandButton::clicked, this, [this] { escolheLocal(3); });

    connect(cmdAnt, &CommandButton::clicked, this, &FrmInd::cmdAnt_Click);
    connect(cmdSeg, &CommandButton::clicked, this, &FrmInd::cmdSeg_Click);

    connect(cmdIns, &CommandButton::clicked, this, &FrmInd::cmdIns_Click);
    connect(cmdAlt, &CommandButton::clicked, this, &FrmInd::cmdAlt_Click);
    connect(cmdElim, &CommandButton::clicked, this, &FrmInd::cmdElim_Click);
    connect(cmdFechar, &CommandButton::clicked, this, &FrmInd::cmdFechar_Click);
}

void FrmInd::Form_Load()
{
    if (parentWidget()) parentWidget()->move(0, 0); // where it fits, whatever dialog stands there yet
    guarded([&] {
        const Hourglass ampulheta;
        adoInd.setRecordSource("select nind from individuo order by nind");
        adoInd.refresh();
        PreencheCombos();
        cmdAtribuir->setEnabled(IndChamado != 0);
        AplicarModo("Cons");
        ActualizaCampos(adoInd.recordset());
    });
}

void FrmInd::PreencheCombos()
{
    guarded([&] {
        PreencheLocais(*cmbLoc);
        PreencheLocais(*cmbLocObito);

        jet::Recordset filiacoes(
            cnBDP, "Select codigo, descricao from infocomplementar where infocomplementar.categoria = 'Filia'");
        PreencheCombo(*cmbFiliacao, filiacoes, 1, 0);

        jet::Recordset tipos(cnBDP, "Select codigo from infocomplementar where  infocomplementar.categoria = 'TipIn'");
        PreencheCombo(*cmbTipoInd, tipos, 0, 0);

        jet::Recordset estados(
            cnBDP, "Select codigo, descricao from infocomplementar where  infocomplementar.categoria = 'EstCi'");
        for (ComboBox* lista : {cmbEC, cmbECPai, cmbECMae})
            PreencheCombo(*lista, estados, 1, 0);

        jet::Recordset sacramentos(
            cnBDP, "Select codigo, descricao from infocomplementar where  infocomplementar.categoria = 'Sacra'");
        PreencheCombo(*cmbSacram, sacramentos, 1, 0);

        jet::Recordset classes(
            cnBDP, "Select codigo, descricao from infocomplementar where  infocomplementar.categoria = 'ClaPa'");
        PreencheCombo(*cmbclass, classes, 1, 0);
    });
}
