#include "individuals/frmInd.h"

#include "common/linhaDeEstado.h"
#include "common/listasAbertas.h"
#include "common/locais.h"
#include "common/modGeral.h"
#include "common/pedidoDeLocal.h"
#include "common/splashForm.h"
#include "platform/forms/focus.h"
#include "platform/forms/forms.h"
#include "platform/forms/msgbox.h"

FrmInd& frmInd()
{
    return theForm<FrmInd>();
}

void FrmInd::FrmIndLoaded()
{
    const Hourglass ampulheta;
    if (Forms::isLoaded(FrmInd::Name)) {
        frmInd().display();
    } else {
        splashForm().showStep("A carregar fichas de indivíduo. Aguarde por favor ...");
        frmInd().display();
        splashForm().unload();
    }
    frmInd().permiteAtribuirAoSubir();
}

FrmInd::FrmInd() : Ficha(Name)
{
    setupUi(this);
    usaComandos<Ui::FrmInd>(*this);
    for (ComboBox* lista : {cmbLoc, cmbLocObito})
        ListasAbertas::segueLocais(*this, *lista);
    ListasAbertas::segueCodigos(*this, *cmbclass, "ClaPa");
    ListasAbertas::segueCodigos(*this, *cmbSacram, "Sacra");
    cmdAtribuir->installEventFilter(this);
    linhaTipo->addStretch(); // lblTipoInd is as wide as its text needs
    connectEvents();
}

void FrmInd::connectEvents()
{
    connect(cmbTipoInd, &ComboBox::clicked, this, &FrmInd::cmbTipoInd_Click);
    connect(cmdDirFam_0, &CommandButton::clicked, this, [this] { cmdDirFam_Click(0); });
    connect(cmdDirFam_1, &CommandButton::clicked, this, [this] { cmdDirFam_Click(1); });

    Focus::watch(
        mskDtNasc, [this] { mskDtNasc_GotFocus(); }, [this] { mskDtNasc_LostFocus(); });
    connect(cmdEncLoc, &CommandButton::clicked, this, [this] { escolheLocal(OrigemLoc::Nascimento, *cmbLoc); });
    connect(cmdRP_0, &CommandButton::clicked, this, [this] { cmdRP_Click(0); });
    connect(cmdInterv, &CommandButton::clicked, this, &FrmInd::cmdInterv_Click);
    for (TextBox* idade : {txtIdPai, txtIdMae, txtIdade})
        Focus::watch(idade, {}, [=, this] { VerificaIdade(idade); });

    connect(cmdConsRel, &CommandButton::clicked, this, &FrmInd::cmdConsRel_Click);
    connect(Command1, &CommandButton::clicked, this, &FrmInd::Command1_Click);

    Focus::watch(
        mskDtObito, [this] { mskDtObito_GotFocus(); }, [this] { mskDtObito_LostFocus(); });
    for (const MaskedEdit* campo : {mskini, mskFim})
        connect(campo, &MaskedEdit::editingFinished, this, [campo] { contaAnoImprovavel(campo); });
    connect(cmdLocOb, &CommandButton::clicked, this, [this] { escolheLocal(OrigemLoc::Obito, *cmbLocObito); });
    connect(cmdTest, &CommandButton::clicked, this, &FrmInd::cmdTest_Click);
    connect(cmdRP_1, &CommandButton::clicked, this, [this] { cmdRP_Click(1); });
    connect(cmdCerFun, &CommandButton::clicked, this, [this] { abreJanela("frmFuneral"); });
    connect(cmdRMorte, &CommandButton::clicked, this, [this] { abreJanela("frmRituais"); });
    connect(cmdLegProf, &CommandButton::clicked, this, [this] { abreJanela("frmLegados"); });

    connect(cmdProf, &CommandButton::clicked, this, [this] { abreJanela("frmProf"); });
    connect(cmdResid, &CommandButton::clicked, this, [this] { abreJanela("frmResid"); });
    connect(cmdAssin, &CommandButton::clicked, this, [this] { abreJanela("frmAssinatura"); });
    connect(cmdApadrinha, &CommandButton::clicked, this, [this] { abreJanela("frmApadrinha"); });

    connect(cmdAnt, &CommandButton::clicked, this, &FrmInd::cmdAnt_Click);
    connect(cmdSeg, &CommandButton::clicked, this, &FrmInd::cmdSeg_Click);
    connect(cmdLocDat, &CommandButton::clicked, this, &FrmInd::cmdLocDat_Click);

    connect(cmdAtribuir, &CommandButton::clicked, this, &FrmInd::cmdAtribuir_Click);
    connect(cmdFechar, &CommandButton::clicked, this, &FrmInd::cmdFechar_Click);
}

void FrmInd::Form_Load()
{
    guarded([&] {
        const Hourglass ampulheta;
        adoInd.setRecordSource("select nind from individuo order by nind");
        adoInd.refresh();
        PreencheCombos();
        AplicarModo(Modo::Cons);
        permiteAtribuirAoSubir();
        ActualizaCampos(adoInd.recordset());
    });
}

void FrmInd::PreencheCombos()
{
    evenIfItFails([&] {
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
