// A work on the windows' own thread: what is seen of it while it goes on.
#pragma once

#include "platform/forms/controls.h"
#include "platform/forms/longwork.h"
#include "platform/forms/msgbox.h"

#include <QProgressBar>

namespace study {

// The button that ends the work is open, and the bar and the hourglass are shown, as long as this stands.
class UnderWay
{
public:
    UnderWay(QProgressBar& bar, CommandButton& cancel) : bar_(bar), cancel_(cancel)
    {
        cancel_.setEnabled(true);
        bar_.setRange(0, 100);
        bar_.setValue(0);
        bar_.show();
    }
    ~UnderWay()
    {
        LongWork::ended();
        cancel_.setEnabled(false);
        bar_.reset();
        bar_.hide();
    }
    UnderWay(const UnderWay&) = delete;
    UnderWay& operator=(const UnderWay&) = delete;

private:
    QProgressBar& bar_;
    CommandButton& cancel_;
    Hourglass hourglass_;
};

} // namespace study
