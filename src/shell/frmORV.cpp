#include "shell/frmORV.h"

#include "attributes/frmPass.h"
#include "attributes/frmResid.h"
#include "common/dono.h"
#include "common/modGeral.h"
#include "common/pedidoDeLocal.h"
#include "common/splashForm.h"
#include "families/frmFam.h"
#include "help/helpKey.h"
#include "individuals/frmInd.h"
#include "platform/desktop/desktop.h"
#include "platform/forms/controls.h"
#include "platform/forms/forms.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/statusline.h"
#include "shell/beginSession.h"
#include "shell/demonstracao.h"
#include "shell/startPanel.h"
#include "store/frmBack.h"
#include "store/modBD.h"
#include "store/sessionChange.h"
#include "ui_frmORV.h"
#include "views/fichaIndividual.h"

#include <QCloseEvent>
#include <QDir>
#include <QFileInfo>
#include <QWhatsThis>

namespace {
constexpr auto creditos = "Desenvolvido pela equipa do projecto ORV";
} // namespace

FrmORV::FrmORV() : ui(std::make_unique<Ui::FrmORV>())
{
    ui->setupUi(this);
    for (QMenu* menu : {ui->mnuAlim, ui->mnuOutras, ui->mnuManut, ui->mnuLocais, ui->mnuIns, ui->mnuActual,
                        ui->mnuEstudo, ui->mnuRel, ui->mnuAjuda})
        menu->setAccessibleName(menu->title().remove('&'));
    Forms::setMainWindow(this, ui->mdi);
    setSessionCaption(shortTitle);
    onClearSession(beginSession);
    connectMenus();
    connectStartPanel();
    switchOffItems();
    onSessionMenus([this](bool enabled) {
        ui->mnuEditInd->setEnabled(enabled);
        ui->mnuEditFam->setEnabled(enabled);
        ui->mnuManut->setEnabled(enabled);
        for (QAction* item :
             {ui->mnuActo, ui->mnuActos, ui->mnuTranscricoes, ui->mnuContradicoes, ui->mnuTipos, ui->mnuLigacoes,
              ui->mnuJuntar, ui->mnuDecisoes, ui->mnuIndicadores, ui->mnuExportar, ui->mnuRepor})
            item->setEnabled(enabled); // and tables are imported without any BDP
    });
}

FrmORV::~FrmORV()
{
    onSessionMenus({});
    onClearSession({});
}

void FrmORV::connectMenus()
{
    const auto on = [this](QAction* item, void (FrmORV::*handler)()) {
        connect(item, &QAction::triggered, this, handler);
    };
    on(ui->mnuAbrir, &FrmORV::mnuAbrir_Click);
    on(ui->MnuNova, &FrmORV::MnuNova_Click);
    on(ui->mnuEditInd, &FrmORV::mnuEditInd_Click);
    on(ui->mnuEditFam, &FrmORV::mnuEditFam_Click);
    on(ui->mnuPass, &FrmORV::mnuPass_Click);
    on(ui->mnuLocPar, &FrmORV::mnuLocPar_Click);
    on(ui->mnuConcelhos, &FrmORV::mnuConcelhos_Click);
    on(ui->mnuCProf, &FrmORV::mnuCProf_Click);
    on(ui->mnuCInfo, &FrmORV::mnuCInfo_Click);
    on(ui->mnuBack, &FrmORV::mnuBack_Click);
    on(ui->mnupais, &FrmORV::mnupais_Click);
    on(ui->mnuProf, &FrmORV::mnuProf_Click);
    on(ui->mnuCategorias, &FrmORV::mnuCategorias_Click);
    on(ui->mnuRelInd, &FrmORV::mnuRelInd_Click);
    on(ui->mnuActo, &FrmORV::mnuActo_Click);
    on(ui->mnuActos, &FrmORV::mnuActos_Click);
    on(ui->mnuTranscricoes, &FrmORV::mnuTranscricoes_Click);
    on(ui->mnuContradicoes, &FrmORV::mnuContradicoes_Click);
    on(ui->mnuTipos, &FrmORV::mnuTipos_Click);
    on(ui->mnuLigacoes, &FrmORV::mnuLigacoes_Click);
    on(ui->mnuJuntar, &FrmORV::mnuJuntar_Click);
    on(ui->mnuDecisoes, &FrmORV::mnuDecisoes_Click);
    on(ui->mnuIndicadores, &FrmORV::mnuIndicadores_Click);
    on(ui->mnuExportar, &FrmORV::mnuExportar_Click);
    on(ui->mnuImportar, &FrmORV::mnuImportar_Click);
    on(ui->mnuRepor, &FrmORV::mnuRepor_Click);
    on(ui->mnuComo, &FrmORV::mnuComo_Click);
    on(ui->mnuTut, &FrmORV::mnuTut_Click);
    on(ui->mnuAcerca, &FrmORV::mnuAcerca_Click);
    on(ui->mnuAjudaJanela, &FrmORV::mnuAjudaJanela_Click);
    on(ui->mnuDemo, &FrmORV::mnuDemo_Click);
    on(ui->mnuSair, &FrmORV::mnuSair_Click);
}

// Each of its ways is that of an item of the menus.
void FrmORV::connectStartPanel()
{
    auto* panel = new StartPanel(ui->mdi);
    connect(panel, &StartPanel::wantsOpen, ui->mnuAbrir, &QAction::trigger);
    connect(panel, &StartPanel::wantsNew, ui->MnuNova, &QAction::trigger);
    connect(panel, &StartPanel::wantsDemo, ui->mnuDemo, &QAction::trigger);
    connect(panel, &StartPanel::wantsManual, ui->mnuComo, &QAction::trigger);
    connect(panel, &StartPanel::wantsTutorial, ui->mnuTut, &QAction::trigger);
}

// These items exist, with their handlers, but the user can never reach them.
void FrmORV::switchOffItems()
{
    for (QMenu* menu : {ui->mnuLocais, ui->mnuActual, ui->mnuRel}) {
        menu->menuAction()->setVisible(false);
        for (QAction* item : menu->actions())
            item->setVisible(false);
    }
    ui->mnuTipIn->setVisible(false);
}

void FrmORV::showCredits()
{
    showStatus(QStringLiteral("%1 (31/08/2004 - V. %2.%3.%4)")
                   .arg(creditos)
                   .arg(ORV_VERSION_MAJOR)
                   .arg(ORV_VERSION_MINOR)
                   .arg(ORV_VERSION_REVISION));
}

void FrmORV::Form_Load(const QString& commandLine)
{
    guarded([&] {
        showCredits();
        CodParoquia.clear();
        if (commandLine.isEmpty()) return setSessionMenus(false);

        AbreBDP(commandLine);
        // Kept: a path where nothing stands leaves the menus as they are. Of one that can't be read nobody knows.
        const bool nothing = !QFileInfo::exists(commandLine) && !commandLine.contains(QChar::ReplacementCharacter);
        if (cnBDP.state() != jet::Connection::Open && !nothing) setSessionMenus(false);
        jet::Recordset registos(cnBDP);
        if (ExisteColuna("Infopar", "pais", cnBDP)) {
            registos.open("select cod, nome, pais from infopar");
            CodPais = requiredText(registos["Pais"]);
        } else {
            registos.open("select cod, nome from infopar");
        }
        CodParoquia = requiredText(registos["cod"]);
        setSessionCaption(longTitle + requiredText(registos["Nome"]));
        registos.close();
        frmFam().display();
    });
}

void FrmORV::mnuAbrir_Click()
{
    mudaBDP("a");
}

void FrmORV::MnuNova_Click()
{
    mudaBDP("c");
}

void FrmORV::mudaBDP(const QString& operacao)
{
    guarded([&] {
        const bool aberta = cnBDP.state() == jet::Connection::Open;
        if (aberta && !ask("Deseja fechar a BDP em tratamento?")) return; // and a dialog keeps its operation

        OperacaoBDP = operacao;
        if (!aberta) {
            CodParoquia.clear();
            Forms::show("frmIni");
            return;
        }
        clearSession();
        showCredits(); // what was told last belongs to the BDP that is being left
        CodParoquia.clear();
        if (sessionCaption() == QString::fromUtf8(shortTitle)) { // no parish was confirmed, or its copy was offered
            cnBDP.close();
            Forms::show("frmIni");
        } else {
            frmBack().mostraPara("a"); // it names the parish that is being left: by the caption, before that changes
        }
        setSessionMenus(false);
        setSessionCaption(shortTitle);
    });
}

void FrmORV::mnuEditInd_Click()
{
    guarded([&] { FrmInd::abrePeloMenu(); });
}

void FrmORV::mnuEditFam_Click()
{
    guarded([&] { frmFam().abrePeloMenu(); });
}

void FrmORV::mnuPass_Click()
{
    guarded([&] {
        // Kept: the form loaded last decides, which needn't be the active one.
        const QWidget* ultima = Forms::loaded().last();
        if (ultima->objectName() == FrmInd::Name) {
            if (ultima->isEnabled() && ultima->isVisible()) JanelaDoDono::abre(FrmPass::Name, frmInd().dono());
        } else if (const auto* residencias = qobject_cast<const FrmResid*>(ultima);
                   residencias && residencias->doIndividuo()) {
            const QString local = residencias->localNaFicha();
            JanelaDoDono::abre(FrmPass::Name, frmInd().dono());
            if (!local.isEmpty()) theForm<FrmPass>().acrescentaDestino(local);
        }
    });
}

void FrmORV::mnuLocPar_Click()
{
    guarded([&] { pedeLocal({}); });
}

void FrmORV::mnuConcelhos_Click()
{
    guarded([&] { Forms::show("frmConcelhos"); });
}

void FrmORV::mnuCProf_Click()
{
    guarded([&] { Forms::show("frmProfissao"); });
}

void FrmORV::mnuCInfo_Click()
{
    guarded([&] { Forms::show("frmInfo"); });
}

void FrmORV::mnuBack_Click()
{
    guarded([&] { frmBack().mostraPara("b"); });
}

void FrmORV::mnupais_Click()
{
    if (ask("Deseja actualizar a lista de locais?")) ActualizaLocais();
}

void FrmORV::mnuProf_Click()
{
    if (ask("Deseja actualizar a lista de profissões?")) ActualizaProfissoes();
}

void FrmORV::mnuCategorias_Click()
{
    ActualizaCategorias(); // Kept: no handler, so an error ends the program
}

void FrmORV::mnuRelInd_Click()
{
    guarded([&] {
        if (Forms::loaded().last()->objectName() == FrmInd::Name) FichaIndividual(*frmInd().dono().registo);
    });
}

void FrmORV::mnuActo_Click()
{
    guarded([&] { Forms::show("frmActo"); });
}

void FrmORV::mnuActos_Click()
{
    guarded([&] { Forms::show("frmActos"); });
}

void FrmORV::mnuTranscricoes_Click()
{
    guarded([&] { Forms::show("frmTranscricoes"); });
}

void FrmORV::mnuContradicoes_Click()
{
    guarded([&] { Forms::show("frmContradicoes"); });
}

void FrmORV::mnuTipos_Click()
{
    guarded([&] { Forms::show("frmTipos"); });
}

void FrmORV::mnuLigacoes_Click()
{
    guarded([&] { Forms::show("frmLigacoes"); });
}

void FrmORV::mnuJuntar_Click()
{
    guarded([&] { Forms::show("frmJuntar"); });
}

void FrmORV::mnuDecisoes_Click()
{
    guarded([&] { Forms::show("frmDecisoes"); });
}

void FrmORV::mnuIndicadores_Click()
{
    guarded([&] { Forms::show("frmIndicadores"); });
}

void FrmORV::mnuExportar_Click()
{
    guarded([&] { Forms::show("frmExportar"); });
}

void FrmORV::mnuImportar_Click()
{
    guarded([&] { Forms::show("frmImportar"); });
}

// One that is open is loaded anew, as more may have been deleted since.
void FrmORV::mnuRepor_Click()
{
    guarded([&] {
        if (Form* aberta = Forms::find("frmRepor")) aberta->unload();
        Forms::show("frmRepor");
    });
}

void FrmORV::mnuComo_Click()
{
    AbreFicheiro(Desktop::programFolder() + "/mnlORV.pdf");
}

void FrmORV::mnuTut_Click()
{
    AbreFicheiro(Desktop::programFolder() + "/tutORV.pdf");
}

void FrmORV::mnuAcerca_Click()
{
    guarded([&] { Forms::show("frmAcerca"); });
}

void FrmORV::mnuAjudaJanela_Click()
{
    guarded([&] { help::showForFront(); });
}

void FrmORV::mnuDemo_Click()
{
    guarded([&] {
        if (cnBDP.state() == jet::Connection::Open && !ask("Deseja fechar a BDP em tratamento?")) return;
        const QString copia = copyOfDemo();
        if (copia.isEmpty()) return;
        changeSession(copia);
        showStatus("A cópia da demonstração está em " + QDir::toNativeSeparators(copia) + '.');
    });
}

void FrmORV::mnuSair_Click()
{
    guarded([&] {
        if (!ask("Deseja realmente fechar a sessão de trabalho?", Icon::None)) return;
        if (cnBDP.state() == jet::Connection::Open) return frmBack().mostraPara("f");
        endProgram();
    });
}

void FrmORV::closeEvent(QCloseEvent* event)
{
    endProgram();
    event->accept();
}

bool FrmORV::event(QEvent* event)
{
    // The "?" in the frame of a form: in its place help comes at once.
    if (event->type() == QEvent::EnterWhatsThisMode) {
        QWhatsThis::leaveWhatsThisMode();
        QMetaObject::invokeMethod(ui->mnuAjudaJanela, &QAction::trigger, Qt::QueuedConnection);
        return true;
    }
    // The status bar keeps its text: items without a tip would blank it when the pointer passes over them.
    if (event->type() == QEvent::StatusTip) return true;
    return QMainWindow::event(event);
}
