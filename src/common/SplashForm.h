// The waiting window of long steps.
#pragma once

#include "platform/forms/form.h"

#include <QTimer>

#include <memory>

namespace Ui {
class SplashForm;
}

// Stands above everything, in the middle of the screen, from its load on; it isn't modal. ReadyToClose comes after
// three seconds or with Escape, which also hides it. Whoever loaded it unloads it.
class SplashForm : public Form
{
    Q_OBJECT

public:
    static constexpr auto Name = "SplashForm";

    SplashForm();
    ~SplashForm() override;

    // Brings the splash up with the text of the step that begins.
    void showStep(const QString& text);

    bool ReadyToClose() const { return readyToClose_; }
    // Runs the event loop until ReadyToClose, or until the program ends. No key or click reaches another window
    // meanwhile.
    void waitUntilReady();

signals:
    void ready();

protected:
    void Form_Load() override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Timer1_Timer();
    void Form_KeyDown(int key);
    bool eventFilter(QObject* watched, QEvent* event) override;

    std::unique_ptr<Ui::SplashForm> ui;
    QTimer Timer1;
    bool readyToClose_ = false;
};

SplashForm& splashForm();

// "Versão 1.0.6"
QString textoDaVersao();
