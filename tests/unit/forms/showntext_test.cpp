#include "platform/forms/showntext.h"

#include "forms/house.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/statusline.h"

#include <QElapsedTimer>
#include <QStatusBar>
#include <QTextDocument>

namespace {

class ALongText : public House
{
protected:
    // Runs the work and lets the window show it, which must take less than a second.
    void atOnce(const std::function<void()>& work)
    {
        QElapsedTimer time;
        time.start();
        work();
        QCoreApplication::processEvents();
        window.repaint();
        EXPECT_LT(time.elapsed(), 1000);
    }

    const QString name = QString(1000000, 'x');
};

} // namespace

TEST_F(ALongText, IsShownByItsBeginning)
{
    EXPECT_EQ(shownText("Ana"), "Ana");
    EXPECT_EQ(shownText(name), QString(1000, 'x') + "…");
    EXPECT_EQ(shownText(QString::fromUtf8("ab🙂"), 3), "ab…");
    EXPECT_EQ(shownLines("Ana e Rita"), "Ana e Rita");
    EXPECT_EQ(shownLines(QString(200, 'x')).size(), 201);
}

TEST_F(ALongText, HasRoomInABoxOnTheScreenAndKeepsItsEnd)
{
    const QString question = "\nDeseja abri-lo?";
    for (const QString& part : {QString("x"), QString("palavra "), QString("W W "), QString("a\n"), QString("\n"),
                                QString(QChar(0x2028)), QString::fromUtf8("🙂"), "a" + QString::fromUtf8("🙂")})
    {
        QSize size;
        QString text;
        QTimer::singleShot(0, [&] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            size = box->sizeHint();
            text = box->text();
            box->done(0);
        });
        showMessage(part.repeated(5000) + question);
        EXPECT_LT(size.height(), 650) << part.toStdString();
        EXPECT_TRUE(text.endsWith(question)) << part.toStdString();
        EXPECT_TRUE(text.isValidUtf16()) << part.toStdString();
    }
}

TEST_F(ALongText, WithTagsIsATipAsItStands)
{
    EXPECT_EQ(shownTip("Ana"), "Ana");
    QTextDocument tip;
    tip.setHtml(shownTip("<img src=\"/tmp/x\"> & <b>Ana</b>"));
    EXPECT_EQ(tip.toPlainText(), "<img src=\"/tmp/x\"> & <b>Ana</b>");
}

TEST_F(ALongText, IsAnEntryOfAListAtOnceAndGivenBackWhole)
{
    ComboBox* combo = nullptr;
    ListBox* list = nullptr;
    make("frmA", [&](TestForm& form) {
        combo = form.put<ComboBox>("cmb");
        list = form.put<ListBox>("lst");
    })->display();
    atOnce([&] {
        combo->add("Ana");
        combo->setListIndex(combo->add(name, 7));
        list->add(name, 7);
    });
    EXPECT_TRUE(combo->text() == name);
    EXPECT_EQ(combo->itemData(1), 7);
    EXPECT_TRUE(list->list(0) == name);
    atOnce([&] { list->item(0)->setText(name + name); });
    EXPECT_EQ(list->list(0).size(), 2000000);
    atOnce([&] { combo->setItemText(1, name + name); });
    EXPECT_EQ(combo->text().size(), 2000000);
    combo->setItemText(1, name);
    combo->setText("Ana");
    combo->setText(name);
    EXPECT_EQ(combo->listIndex(), 1);
    atOnce([&] { combo->showPopup(); });
    combo->hidePopup();
}

TEST_F(ALongText, IsACellOfAGridAtOnceAndGivenBackWhole)
{
    Grid* grid = nullptr;
    make("frmA", [&](TestForm& form) { grid = form.put<Grid>("dtg"); })->display();
    atOnce([&] {
        grid->setCols(2);
        grid->setRows(3);
        grid->setTextMatrix(1, 1, name);
        grid->setRow(2);
    });
    EXPECT_TRUE(grid->textMatrix(1, 1) == name);
    atOnce([&] { grid->model()->data(grid->model()->index(0, 1), Qt::ToolTipRole); });
}

TEST_F(ALongText, IsInABoxTheStatusLineAndACaptionAtOnce)
{
    Answer ok("OK");
    atOnce([&] { showMessage(name); });
    EXPECT_EQ(ok.given, 1);
    window.statusBar();
    atOnce([&] { showStatus(name); });
    TestForm* form = make("frmA");
    form->display();
    atOnce([&] { form->setCaption(name); });
}
