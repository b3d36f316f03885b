#include "help/pageView.h"

#include "help/manualFolder.h"
#include "platform/forms/controls.h"

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QImage>
#include <QTest>
#include <QTextBlock>
#include <QTextFragment>

namespace {

class APage : public ManualFolder
{
protected:
    APage()
    {
        QImage picture(1600, 800, QImage::Format_RGB32);
        picture.fill(Qt::darkGreen);
        EXPECT_TRUE(picture.save(path("imagens/grande.png")));
        write("a.html", R"(<html><body><h1 id="a">A</h1><p><img src="imagens/grande.png"></p>
                           <p><a href="b.html">b</a> <a href="../fora.html">fora</a></p></body></html>)");
        write("b.html", "<html><body><p>b</p></body></html>");
        view.resize(500, 400);
        view.show();
        view.setSource(page("a.html"));
    }

    QUrl page(const QString& name) const { return QUrl::fromLocalFile(path(name)); }

    int shownWidth()
    {
        const QUrl picture = page("imagens/grande.png");
        const auto shown = view.document()->resource(QTextDocument::ImageResource, picture).value<QImage>();
        return qRound(shown.width() / shown.devicePixelRatio());
    }

    QColor linkColor()
    {
        for (QTextBlock block = view.document()->begin(); block.isValid(); block = block.next())
            for (auto part = block.begin(); !part.atEnd(); ++part)
                if (part.fragment().charFormat().isAnchor() && !part.fragment().charFormat().anchorHref().isEmpty())
                    return part.fragment().charFormat().foreground().color();
        return {};
    }

    PageView view;
};

} // namespace

TEST_F(APage, ShowsPicturesAsWideAsTheViewAndNoWiderThanTheyWereTaken)
{
    EXPECT_LE(shownWidth(), view.viewport()->width());
    EXPECT_GE(shownWidth(), view.viewport()->width() - 40);
    view.resize(1200, 400);
    EXPECT_EQ(shownWidth(), 800); // taken at twice the scale
    EXPECT_LE(view.document()->size().width(), view.viewport()->width());
}

TEST_F(APage, LeavesNoPictureWiderThanTheViewWhenThatIsMadeNarrower)
{
    view.resize(300, 400);
    EXPECT_LE(shownWidth(), view.viewport()->width());
    EXPECT_LE(view.document()->size().width(), view.viewport()->width());
}

TEST_F(APage, ItsLinksCanBeReadOnALightAndOnADarkDesktop)
{
    EXPECT_GE(contrast(linkColor(), view.palette().color(QPalette::Base)), 4.5);
    QPalette dark;
    dark.setColor(QPalette::Base, QColor(35, 38, 41));
    dark.setColor(QPalette::Text, QColor(239, 240, 241));
    dark.setColor(QPalette::Link, Qt::blue);
    view.setPalette(dark);
    EXPECT_GE(contrast(linkColor(), QColor(35, 38, 41)), 4.5) << qPrintable(linkColor().name());
    EXPECT_EQ(view.source(), page("a.html"));
}

TEST_F(APage, FollowsLinksWithinTheManualAlone)
{
    QStringList opened;
    Desktop::setOpener([&](const QString& what) {
        opened << what;
        return Desktop::success;
    });
    emit view.anchorClicked(QUrl("b.html"));
    EXPECT_EQ(view.source(), page("b.html"));
    emit view.anchorClicked(QUrl("../fora.html"));
    EXPECT_EQ(view.source(), page("b.html"));
    emit view.anchorClicked(QUrl("https://orv.example/"));
    EXPECT_EQ(opened, QStringList("https://orv.example/"));
    Desktop::setOpener({});
}

TEST_F(APage, ItsLettersGrowAndShrinkWithinBounds)
{
    const double before = view.font().pointSizeF();
    view.setZoom(3);
    EXPECT_GT(view.font().pointSizeF(), before);
    view.setZoom(1000);
    EXPECT_LT(view.zoom(), 20);
    view.setZoom(0);
    EXPECT_DOUBLE_EQ(view.font().pointSizeF(), before);
}
