#include "shell/frmMail.h"

#include "common/modGeral.h"
#include "platform/desktop/codepage.h"
#include "platform/desktop/desktop.h"
#include "platform/forms/forms.h"
#include "platform/forms/msgbox.h"
#include "ui_frmMail.h"

namespace {

QString encoded(QString part)
{
    part.replace("\r\n", "\n").replace('\r', '\n').replace('\n', "\r\n");
    QString text;
    for (const char byte : toCodePage(part)) {
        if (byte >= ' ' && byte <= '~' && byte != '&')
            text += QLatin1Char(byte);
        else
            text += QStringLiteral("%%1").arg(uchar(byte), 2, 16, QLatin1Char('0')).toUpper();
    }
    return text;
}

} // namespace

QString mailUrl(const QString& address, const QString& cc, const QString& bcc, const QString& subject,
                const QString& body)
{
    QString parameters;
    const auto add = [&](const char* name, const QString& part) {
        if (!part.isEmpty()) parameters += QLatin1String(name) + encoded(part);
    };
    add("&CC=", cc);
    add("&BCC=", bcc);
    add("&Subject=", subject);
    add("&Body=", body);
    if (!parameters.isEmpty()) parameters[0] = '?';
    return "mailto:" + address + parameters;
}

FrmMail::FrmMail() : Form(Name), ui(std::make_unique<Ui::FrmMail>())
{
    ui->setupUi(this);
    connect(ui->cmdSend, &QPushButton::clicked, this, &FrmMail::cmdSend_Click);
    connect(ui->Command1, &QPushButton::clicked, this, &FrmMail::Command1_Click);
}

FrmMail::~FrmMail() = default;

void FrmMail::Form_Load()
{
    for (const char* assunto : {"Problemas", "Sugestões", "Problemas e Sugestões"})
        ui->cmbAssunto->add(assunto);
}

void FrmMail::Form_Unload()
{
    if (Forms::isUnloadingAll()) return;
    if (Form* acerca = Forms::find("frmAcerca")) acerca->display();
}

void FrmMail::cmdSend_Click()
{
    guarded([&] {
        mail_to = ui->txtTo->text();
        mail_subject = ui->cmbAssunto->text();
        mail_body = ui->txtBody->text();
        if (SendMail(mail_to, mail_cc, mail_bcc, mail_subject, mail_body))
            unload();
        else
            showMessage("Não foi possível abrir o programa de correio: a mensagem não foi enviada.");
    });
}

void FrmMail::Command1_Click()
{
    unload();
}

bool FrmMail::SendMail(const QString& address, const QString& cc, const QString& bcc, const QString& subject,
                       const QString& body)
{
    return Desktop::openUrl(mailUrl(address, cc, bcc, subject, body)) > 32;
}
