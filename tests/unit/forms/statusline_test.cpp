#include "platform/forms/statusline.h"

#include "forms/house.h"

#include <QLabel>
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

TEST_F(StatusLine, HasANoteBesideWhatIsToldWhichStaysAndIsCutShort)
{
    showStatusNote("nada", "nada");
    EXPECT_FALSE(window.findChild<QLabel*>("statusNote")) << "a window without a status bar has nowhere to show it";

    window.statusBar();
    window.resize(1000, 600);
    showStatus("5 dias");
    const QString whole = "Cópia diária guardada em copias/" + QString(500, 'x') + ".orv";
    const int widest = window.minimumSizeHint().width();
    showStatusNote(whole, whole);
    auto* note = window.findChild<QLabel*>("statusNote");
    ASSERT_TRUE(note);
    EXPECT_FALSE(note->isHidden());
    EXPECT_TRUE(note->text().startsWith("Cópia diária guardada em"));
    EXPECT_LT(note->text().size(), whole.size());
    EXPECT_LE(window.minimumSizeHint().width(), std::max(widest, window.width()));
    EXPECT_EQ(note->toolTip().remove(QChar(0x200B)), whole) << "with its long words broken";
    showStatusNote("Cópia", "guardada em <b>copias</b>");
    EXPECT_EQ(note->toolTip(), "<qt>guardada em &lt;b&gt;copias&lt;/b&gt;</qt>") << "a name is no text with tags";
    showStatus("6 dias");
    EXPECT_FALSE(note->isHidden());
    showStatusNote({}, {});
    EXPECT_TRUE(note->isHidden());
    EXPECT_EQ(window.statusBar()->currentMessage(), "6 dias");
}

TEST_F(StatusLine, AHintGivesBackWhatStoodThereUnlessSomethingElseWasTold)
{
    window.statusBar();
    showStatus("ORV");
    {
        StatusHint hint;
        hint.tell("Escolha a paróquia");
        hint.tell("Carregue em OK");
        EXPECT_EQ(window.statusBar()->currentMessage(), "Carregue em OK");
    }
    EXPECT_EQ(window.statusBar()->currentMessage(), "ORV");
    {
        StatusHint hint;
        hint.tell("Carregue em OK");
        showStatus("Gravado");
    }
    EXPECT_EQ(window.statusBar()->currentMessage(), "Gravado");
}
