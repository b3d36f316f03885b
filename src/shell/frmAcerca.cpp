#include "shell/frmAcerca.h"

#include "common/modGeral.h"
#include "common/splashForm.h"
#include "platform/forms/forms.h"
#include "ui_frmAcerca.h"

FrmAcerca::FrmAcerca() : Form(Name), ui(std::make_unique<Ui::FrmAcerca>())
{
    ui->setupUi(this);
    ui->Image1->setPixmap(windowIcon().pixmap(64, 64));
    connect(ui->Command1, &QPushButton::clicked, this, &FrmAcerca::Command1_Click);
    connect(ui->cmdFechar, &QPushButton::clicked, this, &FrmAcerca::cmdFechar_Click);
}

FrmAcerca::~FrmAcerca() = default;

void FrmAcerca::Form_Load()
{
    ui->label->setText(versionText());
}

void FrmAcerca::Command1_Click()
{
    guarded([&] {
        conceal();
        Forms::show("frmMail");
    });
}

void FrmAcerca::cmdFechar_Click()
{
    unload();
}
