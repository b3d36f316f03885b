#include "shell/startPanel.h"

#include "store/session.h"
#include "ui_startPanel.h"

#include <QChildEvent>
#include <QMdiArea>
#include <QMdiSubWindow>

#include <algorithm>

StartPanel::StartPanel(QMdiArea* area) : QWidget(area->viewport()), ui(std::make_unique<Ui::StartPanel>()), area_(area)
{
    ui->setupUi(this);
    ui->imagem->setPixmap(QIcon(":/icons/orv.svg").pixmap(64, 64));
    connect(ui->cmdAbrirBDP, &QAbstractButton::clicked, this, &StartPanel::wantsOpen);
    connect(ui->cmdCriarBDP, &QAbstractButton::clicked, this, &StartPanel::wantsNew);
    connect(ui->cmdDemonstracao, &QAbstractButton::clicked, this, &StartPanel::wantsDemo);
    connect(ui->cmdManual, &QAbstractButton::clicked, this, &StartPanel::wantsManual);
    connect(ui->cmdTutorial, &QAbstractButton::clicked, this, &StartPanel::wantsTutorial);
    area->viewport()->installEventFilter(this);
    hide();
    lookAgain();
}

StartPanel::~StartPanel() = default;

bool StartPanel::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::Resize:
        if (watched == area_->viewport()) place();
        break;
    case QEvent::ChildAdded:
        if (QObject* child = static_cast<QChildEvent*>(event)->child(); watched == area_->viewport() && child != this)
            child->installEventFilter(this);
        break;
    case QEvent::ChildRemoved:
    case QEvent::ShowToParent:
    case QEvent::HideToParent:
        lookAgain();
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

void StartPanel::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange) place();
}

void StartPanel::lookAgain()
{
    if (std::exchange(looksAgain_, true)) return;
    QMetaObject::invokeMethod(
        this,
        [this] {
            looksAgain_ = false;
            look();
        },
        Qt::QueuedConnection);
}

bool StartPanel::isWanted() const
{
    if (cnBDP.state() != jet::Connection::Closed || programEnding()) return false;
    const QList<QMdiSubWindow*> windows = area_->subWindowList();
    return std::none_of(windows.begin(), windows.end(),
                        [](const QMdiSubWindow* one) { return one->isVisibleTo(one->parentWidget()); });
}

void StartPanel::look()
{
    const bool wanted = isWanted();
    if (wanted == isVisibleTo(parentWidget())) return;
    setVisible(wanted);
    if (!wanted) return;
    lower();
    place();
    const QWidget* focused = window()->focusWidget();
    if (!focused || focused == area_ || !focused->isVisible()) ui->cmdAbrirBDP->setFocus();
}

// Where the area is too small for it, its beginning is seen.
void StartPanel::place()
{
    const QRect room = area_->viewport()->rect();
    const QSize size = sizeHint();
    move(std::max(0, (room.width() - size.width()) / 2), std::max(0, (room.height() - size.height()) / 2));
    resize(size);
}
