#include "kit/bareWindow.h"

#include <QMdiArea>
#include <QMdiSubWindow>

namespace bench {

void BareWindow::show(QMdiArea& area, const std::function<void(QWidget*)>& setUp)
{
    const QMdiSubWindow* front = area.activeSubWindow();
    auto* form = new QWidget;
    setUp(form);
    window_ = area.addSubWindow(form);
    if (front) window_->setGeometry(front->geometry());
    window_->show();
}

void BareWindow::close()
{
    delete window_;
}

} // namespace bench
