#include "common/splashForm.h"

#include "platform/forms/forms.h"
#include "ui_splashForm.h"

#include <QCloseEvent>
#include <QEventLoop>
#include <QKeyEvent>

SplashForm& splashForm()
{
    return theForm<SplashForm>();
}

QString versionText()
{
    return QStringLiteral("Versão %1.%2.%3").arg(ORV_VERSION_MAJOR).arg(ORV_VERSION_MINOR).arg(ORV_VERSION_REVISION);
}

SplashForm::SplashForm() : Form(Name, Window::Own), ui(std::make_unique<Ui::SplashForm>())
{
    ui->setupUi(this);
    ui->Image1->setPixmap(windowIcon().pixmap(96, 96));
    connect(&Timer1, &Alarm::rings, this, &SplashForm::Timer1_Timer);
}

SplashForm::~SplashForm() = default;

void SplashForm::Form_Load()
{
    ui->Label3->setText(versionText());
    readyToClose_ = false;
    Timer1.set(std::chrono::seconds(3));
    display();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void SplashForm::showStep(const QString& text)
{
    ui->lblEst->setText(text);
    display();
    ui->lblEst->repaint();
}

void SplashForm::Timer1_Timer()
{
    readyToClose_ = true;
    emit ready();
}

void SplashForm::keyPressEvent(QKeyEvent* event)
{
    Form_KeyDown(event->key());
}

void SplashForm::closeEvent(QCloseEvent* event)
{
    event->ignore(); // whoever loaded it may still be waiting for it
    Form_KeyDown(Qt::Key_Escape);
}

void SplashForm::Form_KeyDown(int key)
{
    if (key != Qt::Key_Escape) return;
    readyToClose_ = true;
    Timer1.off();
    conceal();
    emit ready();
}

void SplashForm::waitUntilReady()
{
    if (readyToClose_) return;
    QEventLoop loop;
    connect(this, &SplashForm::ready, &loop, &QEventLoop::quit);
    qApp->installEventFilter(this);
    loop.exec();
    qApp->removeEventFilter(this);
}

bool SplashForm::eventFilter(QObject* watched, QEvent* event)
{
    auto* widget = qobject_cast<QWidget*>(watched);
    if (!widget || widget->window() == window()) return false;
    switch (event->type()) {
    case QEvent::KeyPress:
        Form_KeyDown(static_cast<QKeyEvent*>(event)->key()); // the window behind may still have the keyboard
        return true;
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
        return true;
    default:
        return false;
    }
}
