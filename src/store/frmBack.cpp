#include "store/frmBack.h"

#include "common/modGeral.h"
#include "common/splashForm.h"
#include "common/text.h"
#include "platform/forms/focus.h"
#include "platform/forms/forms.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/showntext.h"
#include "store/sessionChange.h"
#include "ui_frmBack.h"

// What is open is the BDP all the same, and the copy is its own.
static void avisaDeDesvio(const QString& copia)
{
    showMessage(
        QStringLiteral("O ficheiro \"%1\" já não é a BDP que está aberta: foi mudado de lugar, eliminado ou "
                       "substituído por outro. A cópia de segurança em \"%2\" foi feita da BDP que está aberta, "
                       "e está completa. Feche a BDP e continue a trabalhar na cópia.")
            .arg(cnBDP.dataSource(), copia));
}

FrmBack& frmBack()
{
    return theForm<FrmBack>();
}

FrmBack::FrmBack() : Form(Name), ui(std::make_unique<Ui::FrmBack>())
{
    ui->setupUi(this);
    ui->lblTipo->hide();
    connect(ui->cmdLoc, &QPushButton::clicked, this, &FrmBack::cmdLoc_Click);
    connect(ui->cmdB_0, &QPushButton::clicked, this, &FrmBack::cmdB_0_Click);
    connect(ui->cmdB_1, &QPushButton::clicked, this, &FrmBack::cmdB_1_Click);
}

FrmBack::~FrmBack() = default;

void FrmBack::mostraPara(const QString& ocasiao)
{
    display();
    ui->lblTipo->setText(ocasiao);
    ocasiao_ = ocasiao;
}

void FrmBack::Form_Load()
{
    const QWidget* janela = Forms::mainWindow();
    parentWidget()->move(janela->width() / 4, janela->height() / 4);
    const QString titulo = sessionCaption();
    if (const int inicio = InStr(titulo, "BDP"))
        ui->Label1->setText(shownLines(shownText(ui->Label1->text() + Mid(titulo, inicio), 300)));
}

void FrmBack::Form_Unload()
{
    if (Forms::isUnloadingAll()) return;
    if (ocasiao_ == "a") Forms::show("frmIni");
    if (ocasiao_ == "f") endProgram();
}

void FrmBack::cmdLoc_Click()
{
    guarded([&] { ui->txtLoc->setText(saveFileName(bdpFilter)); });
}

void FrmBack::cmdB_0_Click()
{
    guarded([&] {
        if (Trim(ui->txtLoc->text()).isEmpty()) {
            showMessage("Indique o local onde quer guardar a cópia de segurança da BDP!", Icon::None);
            Focus::setTo(ui->txtLoc);
            return;
        }
        bool desviada = false;
        {
            Hourglass ampulheta;
            splashForm().showStep("A efectuar a cópia de segurança da BDP. Aguarde por favor ...");
            cnBDP.copyTo(ui->txtLoc->text());
            desviada = cnBDP.hasMoved();
            splashForm().unload();
        }
        if (desviada) avisaDeDesvio(ui->txtLoc->text());
        unload();
    });
}

void FrmBack::cmdB_1_Click()
{
    unload();
}
