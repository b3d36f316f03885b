#include "help/pageView.h"

#include "help/manualFolder.h"
#include "platform/forms/controls.h"

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
        QImage picture(1600, 200, QImage::Format_RGB32);
        picture.fill(Qt::darkGreen);
        EXPECT_TRUE(picture.save(path("imagens/grande.png")));
        write(
            "a.html",
            R"(<html><head><style>h1 { color: #000022; }</style></head><body><h1><a name="a"></a>A</h1><p><img src="imagens/grande.png"></p>
                           <p><a href="b.html">b</a> <a href="../fora.html">fora</a></p></body></html>)");
        write("b.html", "<html><body><p>b</p></body></html>");
        view.resize(500, 400);
        view.show();
        view.setSource(page("a.html"));
    }

    QUrl page(const QString& name) const { return QUrl::fromLocalFile(path(name)); }

    // Of the first part of the page that is such a one.
    QTextCharFormat formatOf(const std::function<bool(const QTextCharFormat&)>& is)
    {
        for (QTextBlock block = view.document()->begin(); block.isValid(); block = block.next())
            for (auto part = block.begin(); !part.atEnd(); ++part)
                if (is(part.fragment().charFormat())) return part.fragment().charFormat();
        return {};
    }

    double shownWidth()
    {
        return formatOf([](const auto& format) { return format.isImageFormat(); }).toImageFormat().width();
    }

    QColor linkColor()
    {
        return formatOf([](const auto& format) { return !format.anchorHref().isEmpty(); }).foreground().color();
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
}

TEST_F(APage, LeavesNoPictureWiderThanTheViewWhenThatIsMadeNarrower)
{
    view.resize(300, 400);
    EXPECT_LE(shownWidth(), view.viewport()->width());
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

TEST_F(APage, HasNoColoursOfItsOwn)
{
    write("cor.html", R"(<html><head><style>h1 { color: #000022; }</style></head><body><h1>A</h1>
                         <table class="nota"><tr><td bgcolor="#eef3f7" style="color: #20262b">B</td></tr></table>)");
    view.setSource(page("cor.html"));
    const auto colored = [](const QTextCharFormat& format) { return format.hasProperty(QTextFormat::ForegroundBrush); };
    EXPECT_FALSE(colored(formatOf(colored)));
}

TEST_F(APage, IsShownAtItsAnchorWithThePicturesAboveIt)
{
    write("fim.html", R"(<html><body><p><img src="imagens/grande.png" width="720" height="360"></p><p>)" +
                          QByteArray("x<br>").repeated(99) + R"(</p><h2><a name="fim"></a>Fim</h2><p>)" +
                          QByteArray("x<br>").repeated(99));
    QUrl end = page("fim.html");
    end.setFragment("fim");
    view.setSource(end);
    EXPECT_LT(shownWidth(), 500);
    EXPECT_GT(shownWidth(), 400);
    const QTextCursor heading = view.document()->find("Fim");
    EXPECT_NEAR(view.cursorRect(heading).top(), 0, 40);
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
