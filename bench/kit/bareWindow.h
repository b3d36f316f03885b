// A window that a bare program would show: the same controls, made by the same .ui, and nothing behind them.
#pragma once

#include <QPointer>

#include <functional>

class QMdiArea;
class QMdiSubWindow;
class QWidget;

namespace bench {

class BareWindow
{
public:
    // Shows it in the document area, as large as the form of the program that stands in front there.
    void show(QMdiArea& area, const std::function<void(QWidget*)>& setUp);
    void close(); // without a wait

private:
    QPointer<QMdiSubWindow> window_;
};

} // namespace bench
