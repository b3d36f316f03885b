#include "kit/settle.h"

#include <QCoreApplication>
#include <QEvent>

namespace bench {

void settle()
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

} // namespace bench
