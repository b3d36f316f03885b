#include "shell/startup.h"

#include "acts/frmApadrinha.h"
#include "acts/frmFuneral.h"
#include "acts/frmIntervenientes.h"
#include "attributes/frmAssinatura.h"
#include "attributes/frmLegados.h"
#include "attributes/frmPass.h"
#include "attributes/frmProf.h"
#include "attributes/frmResid.h"
#include "attributes/frmRituais.h"
#include "codes/frmInfo.h"
#include "codes/frmProfissao.h"
#include "common/modGeral.h"
#include "common/splashForm.h"
#include "families/frmFam.h"
#include "help/helpKey.h"
#include "individuals/frmDatas.h"
#include "individuals/frmInd.h"
#include "places/frmConcelhos.h"
#include "places/frmDistritos.h"
#include "places/frmFreguesias.h"
#include "places/frmLocalizacao.h"
#include "places/frmLugares.h"
#include "places/frmPais.h"
#include "places/frmPesq.h"
#include "places/frmSitios.h"
#include "places/frmZona.h"
#include "platform/forms/focus.h"
#include "platform/forms/forms.h"
#include "platform/forms/longwork.h"
#include "platform/forms/msgbox.h"
#include "shell/application.h"
#include "shell/beginSession.h"
#include "shell/frmAcerca.h"
#include "shell/frmMail.h"
#include "shell/frmORV.h"
#include "store/frmBack.h"
#include "store/frmIni.h"
#include "store/session.h"
#include "study/windows/frmActo.h"
#include "study/windows/frmActos.h"
#include "study/windows/frmContradicoes.h"
#include "study/windows/frmDecisoes.h"
#include "study/windows/frmDefinicoes.h"
#include "study/windows/frmExportar.h"
#include "study/windows/frmImportar.h"
#include "study/windows/frmIndicadores.h"
#include "study/windows/frmJuntar.h"
#include "study/windows/frmLigacoes.h"
#include "study/windows/frmLimites.h"
#include "study/windows/frmPesos.h"
#include "study/windows/frmRepor.h"
#include "study/windows/frmTipos.h"
#include "study/windows/frmTranscricoes.h"
#include "views/frmArv.h"
#include "views/frmResult.h"
#include "views/frmRP.h"

#include <QFile>
#include <QIcon>
#include <QPointer>
#include <QScreen>
#include <QStyle>

static void initResources() // at global scope, as the macro needs it
{
    Q_INIT_RESOURCE(icons);
}

QString commandLineText(int argc, char** argv)
{
    QStringList words;
    for (int i = 1; i < argc; ++i)
        words << QFile::decodeName(argv[i]);
    return words.join(' ');
}

bool Application::notify(QObject* receiver, QEvent* event)
{
    try {
        return QApplication::notify(receiver, event);
    } catch (const jet::Error&) {
        endProgram(EXIT_FAILURE);
    } catch (const std::exception& erro) {
        MostraErro(erro);
    }
    return false;
}

void registerForms()
{
    Forms::add("SplashForm", [] { return new SplashForm; });
    Forms::add("frmIni", [] { return new FrmIni; });
    Forms::add("frmBack", [] { return new FrmBack; });
    Forms::add("frmInd", [] { return new FrmInd; });
    Forms::add("frmFam", [] { return new FrmFam; });
    Forms::add("frmIntervenientes", [] { return new FrmIntervenientes; });
    Forms::add("frmFuneral", [] { return new FrmFuneral; });
    Forms::add("frmApadrinha", [] { return new FrmApadrinha; });
    Forms::add("frmProf", [] { return new FrmProf; });
    Forms::add("frmAssinatura", [] { return new FrmAssinatura; });
    Forms::add("frmResid", [] { return new FrmResid; });
    Forms::add("frmLegados", [] { return new FrmLegados; });
    Forms::add("frmRituais", [] { return new FrmRituais; });
    Forms::add("frmPass", [] { return new FrmPass; });
    Forms::add("frmDatas", [] { return new FrmDatas; });
    Forms::add("frmLocalizacao", [] { return new FrmLocalizacao; });
    Forms::add("frmPesq", [] { return new FrmPesq; });
    Forms::add("frmPais", [] { return new FrmPais; });
    Forms::add("frmZona", [] { return new FrmZona; });
    Forms::add("frmDistritos", [] { return new FrmDistritos; });
    Forms::add("frmConcelhos", [] { return new FrmConcelhos; });
    Forms::add("frmFreguesias", [] { return new FrmFreguesias; });
    Forms::add("frmLugares", [] { return new FrmLugares; });
    Forms::add("frmSitios", [] { return new FrmSitios; });
    Forms::add("frmResult", [] { return new FrmResult; });
    Forms::add("frmRP", [] { return new FrmRP; });
    Forms::add("frmArv", [] { return new FrmArv; });
    Forms::add("frmProfissao", [] { return new FrmProfissao; });
    Forms::add("frmInfo", [] { return new FrmInfo; });
    Forms::add("frmActos", [] { return new FrmActos; });
    Forms::add("frmTranscricoes", [] { return new FrmTranscricoes; });
    Forms::add("frmLigacoes", [] { return new FrmLigacoes; });
    Forms::add("frmJuntar", [] { return new FrmJuntar; });
    Forms::add("frmDecisoes", [] { return new FrmDecisoes; });
    Forms::add("frmRepor", [] { return new FrmRepor; });
    Forms::add("frmContradicoes", [] { return new FrmContradicoes; });
    Forms::add("frmTipos", [] { return new FrmTipos; });
    Forms::add("frmIndicadores", [] { return new FrmIndicadores; });
    Forms::add("frmDefinicoes", [] { return new FrmDefinicoes; });
    Forms::add("frmExportar", [] { return new FrmExportar; });
    Forms::add("frmImportar", [] { return new FrmImportar; });
    Forms::add("frmLimites", [] { return new FrmLimites; });
    Forms::add("frmPesos", [] { return new FrmPesos; });
    Forms::add("frmActo", [] { return new FrmActo; });
    Forms::add("frmAcerca", [] { return new FrmAcerca; });
    Forms::add("frmMail", [] { return new FrmMail; });
}

bool statementGoesOn(std::chrono::milliseconds elapsed)
{
    using namespace std::chrono;
    if (elapsed >= seconds(10))
        LongWork::tell(QStringLiteral("A operação demora há %1 segundos e continua. A tecla Escape interrompe-a.")
                           .arg(duration_cast<seconds>(elapsed).count()));
    return !LongWork::escapePressed();
}

void prepareApplication()
{
    initResources();
    installPortuguese();
    Focus::install();
    help::installKey();
    QApplication::setApplicationName("ORV");
    QApplication::setDesktopFileName("orv");
    QApplication::setWindowIcon(QIcon(":/icons/orv.svg"));
    QApplication::setQuitOnLastWindowClosed(false);
    registerForms();
    cnBDP.onLongStatement(statementGoesOn, LongWork::ended);
}

// With the frame that the desktop puts around it.
static void fitOnScreen(QWidget& window)
{
    const QStyle* style = window.style();
    const int border = style->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth);
    const int title = style->pixelMetric(QStyle::PM_TitleBarHeight);
    window.resize(window.size().boundedTo(window.screen()->availableSize() - QSize(2 * border, title + 2 * border)));
}

FrmORV& startProgram(const QString& commandLine)
{
    beginSession();
    auto* window = new FrmORV;
    fitOnScreen(*window);
    window->show();
    window->Form_Load(commandLine);
    return *window;
}

int runProgram(int argc, char** argv)
{
    Application application(argv);
    prepareApplication();
    const QPointer<FrmORV> window = &startProgram(commandLineText(argc, argv));
    const int status = QApplication::exec();
    Forms::clear();
    delete window;
    return status;
}
