#include "families/frmFam.h"

#include "common/codigos.h"
#include "common/linhaDeEstado.h"
#include "common/listasAbertas.h"
#include "common/locais.h"
#include "common/modGeral.h"
#include "platform/forms/focus.h"
#include "platform/forms/forms.h"
#include "platform/forms/msgbox.h"

FrmFam& frmFam()
{
    return theForm<FrmFam>();
}

FrmFam::FrmFam() : Ficha(Name)
{
    setupUi(this);
    metades_[0] = {txtPnind, txtPnome, txtIdade1, txtNC1, cmbEC1, lblIdCalc_0};
    metades_[1] = {txtSnind, txtSnome, txtIdade2, txtNC2, cmbEC2, lblIdCalc_1};
    usaComandos<Ui::FrmFam>(*this);
    ListasAbertas::segueLocais(*this, *cmbLoc);
    connectEvents();
}

void FrmFam::connectEvents()
{
    connect(cmbTipoFam, &ComboBox::clicked, this, &FrmFam::cmbTipoFam_Click);

    CommandButton* const paraIndividuo[] = {cmdDirInd_0, cmdDirInd_1};
    for (int indice : {0, 1}) {
        connect(metade(indice).nind, &TextBox::textChanged, this, [=, this] { txtNind_Change(indice); });
        connect(paraIndividuo[indice], &CommandButton::clicked, this, [=, this] { cmdDirInd_Click(indice); });
        Focus::watch(metade(indice).idade, {}, [=, this] { txtIdade_Validate(indice); });
        Focus::watch(metade(indice).numCasam, {}, [=, this] { txtNC_Validate(indice); });
    }

    Focus::watch(
        mskData, [this] { mskData_GotFocus(); }, [this] { mskData_LostFocus(); });
    connect(mskData, &MaskedEdit::textChanged, this, &FrmFam::mskData_Change);
    for (const MaskedEdit* campo : {mskini, mskFim})
        connect(campo, &MaskedEdit::editingFinished, this, [campo] { contaAnoImprovavel(campo); });
    connect(cmdRP, &CommandButton::clicked, this, &FrmFam::cmdRP_Click);
    connect(cmdInt, &CommandButton::clicked, this, &FrmFam::cmdInt_Click);
    connect(cmdEncLoc, &CommandButton::clicked, this, &FrmFam::cmdEncLoc_Click);

    connect(cmdConsultar, &CommandButton::clicked, this, &FrmFam::cmdConsultar_Click);
    connect(cmdInsF, &CommandButton::clicked, this, &FrmFam::cmdInsF_Click);
    connect(cmdElimF, &CommandButton::clicked, this, &FrmFam::cmdElimF_Click);

    connect(cmdLocDat, &CommandButton::clicked, this, &FrmFam::cmdLocDat_Click);
    connect(cmdAnt, &CommandButton::clicked, this, &FrmFam::cmdAnt_Click);
    connect(cmdSeg, &CommandButton::clicked, this, &FrmFam::cmdSeg_Click);

    connect(cmdResid, &CommandButton::clicked, this, [this] { abreJanela("frmResid"); });
    connect(cmdFechar, &CommandButton::clicked, this, &FrmFam::cmdFechar_Click);
}

void FrmFam::Form_Load()
{
    if (parentWidget()) parentWidget()->move(0, 0); // where it fits, even if a dialog is still there
    guarded([&] {
        const Hourglass ampulheta;
        adoFam.setRecordSource("select * from familia");
        adoFam.refresh();
        PreencheListas();
        AplicarModo(Modo::Cons);
        ActualizaCampos(adoFam.recordset(), {});
    });
}

void FrmFam::PreencheListas()
{
    evenIfItFails([&] {
        PreencheLocais(*cmbLoc);

        jet::Recordset situacoes(cnBDP, "Select codigo, descricao from infocomplementar where  categoria = 'SitFa'");
        PreencheComBranco(*cmbSit, situacoes, 1, 0);

        jet::Recordset tipos(cnBDP, "Select codigo from infocomplementar where  categoria = 'TipFa'");
        PreencheComBranco(*cmbTipoFam, tipos, 0, 0);

        jet::Recordset estados(cnBDP, "Select codigo, descricao from infocomplementar where  categoria = 'EstCi'");
        for (ComboBox* lista : {cmbEC1, cmbEC2})
            PreencheComBranco(*lista, estados, 1, 0);
    });
}

bool FrmFam::Form_QueryUnload(UnloadMode mode)
{
    return mode != UnloadMode::ControlMenu;
}
