// The problem report, written in the user's own mail program.
#pragma once

#include "platform/forms/form.h"

#include <memory>

namespace Ui {
class FrmMail;
}

// The URL that opens a new message: empty parts are left out. Blanks and "%" of a part stay as they are; "&" and
// anything that isn't printable ASCII are encoded by their codes in code page 1252 ("?" for a character that it doesn't
// have). Line breaks of any kind count as CR LF. The address isn't encoded.
QString mailUrl(const QString& address, const QString& cc, const QString& bcc, const QString& subject,
                const QString& body);

class FrmMail : public Form
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmMail";

    FrmMail();
    ~FrmMail() override;

    QString mail_to, mail_cc, mail_bcc, mail_subject, mail_body; // the message handed over last

protected:
    void Form_Load() override;
    void Form_Unload() override;

private:
    void cmdSend_Click();
    void Command1_Click();
    // False where the desktop took nothing: the form keeps what was written then.
    bool SendMail(const QString& address, const QString& cc, const QString& bcc, const QString& subject,
                  const QString& body);

    std::unique_ptr<Ui::FrmMail> ui;
};
