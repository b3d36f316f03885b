#include "platform/forms/statusline.h"

#include "forms/house.h"

#include <QStatusBar>

namespace {
using StatusLine = House;
}

TEST_F(StatusLine, StaysUntilTheNextOneIsTold)
{
    showStatus("Gravado: indivíduo nº 5, Maria");
    EXPECT_EQ(window.statusBar()->currentMessage(), "") << "a window without a status bar has nowhere to show it";

    showStatus("Gravado: indivíduo nº 6, Ana");
    EXPECT_EQ(window.statusBar()->currentMessage(), "Gravado: indivíduo nº 6, Ana");
    showStatus("5 dias");
    EXPECT_EQ(window.statusBar()->currentMessage(), "5 dias");
}
