// The window that is shown while a long step runs.
#pragma once

#include "platform/forms/form.h"
#include "platform/time/clock.h"

#include <memory>

namespace Ui {
class SplashForm;
}

// Appears above everything, in the middle of the screen, as soon as it is loaded; it isn't modal. ReadyToClose turns
// true after three seconds or on Escape, which also hides it. Whoever loaded it unloads it.
class SplashForm : public Form
{
    Q_OBJECT

public:
    static constexpr auto Name = "SplashForm";

    SplashForm();
    ~SplashForm() override;

    // Shows the splash with the text of the step that begins.
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
    void closeEvent(QCloseEvent* event) override; // counts as Escape

private:
    void Timer1_Timer();
    void Form_KeyDown(int key);
    bool eventFilter(QObject* watched, QEvent* event) override;

    std::unique_ptr<Ui::SplashForm> ui;
    Alarm Timer1;
    bool readyToClose_ = false;
};

SplashForm& splashForm();

// "Versão 1.0.6"
QString versionText();
