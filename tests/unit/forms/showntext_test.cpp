#include "platform/forms/showntext.h"

#include "forms/house.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/statusline.h"

#include <QAbstractItemView>
#include <QStatusBar>
#include <QStyledItemDelegate>
#include <QTextDocument>

namespace {

class ALongText : public House
{
protected:
    // More takes too long to lay out; a box needs marks within long words.
    static constexpr int longestShown = 2000;

    void expectShort(const QAbstractItemView& view) const
    {
        const auto* delegate = qobject_cast<const QStyledItemDelegate*>(view.itemDelegate());
        ASSERT_TRUE(delegate);
        for (int row = 0; row < view.model()->rowCount(); ++row) {
            const QVariant whole = view.model()->index(row, view.model()->columnCount() - 1).data();
            EXPECT_LE(delegate->displayText(whole, QLocale()).size(), longestShown);
        }
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

TEST_F(ALongText, IsAnEntryOfAListByItsBeginningAndGivenBackWhole)
{
    ComboBox* combo = nullptr;
    ListBox* list = nullptr;
    make("frmA", [&](TestForm& form) {
        combo = form.put<ComboBox>("cmb");
        list = form.put<ListBox>("lst");
    })->display();
    combo->add("Ana");
    combo->setListIndex(combo->add(name, 7));
    list->add(name, 7);
    window.repaint();
    expectShort(*list);
    EXPECT_TRUE(combo->text() == name);
    EXPECT_EQ(combo->itemData(1), 7);
    EXPECT_TRUE(list->list(0) == name);
    list->item(0)->setText(name + name);
    expectShort(*list);
    EXPECT_EQ(list->list(0).size(), 2000000);
    combo->setItemText(1, name + name);
    EXPECT_EQ(combo->text().size(), 2000000);
    combo->setItemText(1, name);
    combo->setText("Ana");
    combo->setText(name);
    EXPECT_EQ(combo->listIndex(), 1);
    combo->showPopup();
    expectShort(*combo->view());
    window.repaint();
    combo->hidePopup();
}

TEST_F(ALongText, IsACellOfAGridByItsBeginningAndGivenBackWhole)
{
    Grid* grid = nullptr;
    make("frmA", [&](TestForm& form) { grid = form.put<Grid>("dtg"); })->display();
    grid->setCols(2);
    grid->setRows(3);
    grid->setTextMatrix(1, 1, name);
    grid->setRow(2);
    window.repaint();
    expectShort(*grid);
    EXPECT_TRUE(grid->textMatrix(1, 1) == name);
    EXPECT_LE(grid->model()->data(grid->model()->index(0, 1), Qt::ToolTipRole).toString().size(), longestShown);
}

TEST_F(ALongText, IsInABoxTheStatusLineAndACaptionByItsBeginning)
{
    Answer ok("OK");
    showMessage(name);
    EXPECT_EQ(ok.given, 1);
    EXPECT_LE(ok.text.size(), longestShown);
    window.statusBar();
    showStatus(name);
    EXPECT_LE(window.statusBar()->currentMessage().size(), longestShown);
    TestForm* form = make("frmA");
    form->display();
    form->setCaption(name);
    EXPECT_LE(form->windowTitle().size(), longestShown);
}
