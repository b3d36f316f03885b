// The toolkit's own texts on a desktop of another language.
#include "platform/forms/msgbox.h"

#include "forms/house.h"

#include <QAccessible>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QHeaderView>
#include <QLocale>
#include <QMdiSubWindow>
#include <QMenu>
#include <QScrollBar>
#include <QTabBar>
#include <QTextBrowser>
#include <QTranslator>
#include <QTreeView>

namespace {

// Asked for a text where no translator that was installed later has it.
class Left : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* source, const char*, int) const override
    {
        texts.insert(QString("%1: %2").arg(context, source));
        return {};
    }

    mutable QSet<QString> texts;
};

class AGermanDesktop : public House
{
protected:
    AGermanDesktop()
    {
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        QCoreApplication::installTranslator(&left);
        installPortuguese();
        left.texts.clear();
    }
    ~AGermanDesktop() override { QCoreApplication::removeTranslator(&left); }

    static void openMenu(QWidget& control)
    {
        QTimer::singleShot(0, [] {
            if (auto* menu = QApplication::activePopupWidget()) menu->close();
        });
        const QPoint middle = control.rect().center();
        QContextMenuEvent event(QContextMenuEvent::Keyboard, middle, control.mapToGlobal(middle));
        QApplication::sendEvent(&control, &event);
        QCoreApplication::processEvents();
    }

    // All that a screen reader could be told of a control.
    static void readAloud(QWidget& control)
    {
        if (QAccessibleInterface* told = QAccessible::queryAccessibleInterface(&control)) {
            for (const auto what : {QAccessible::Name, QAccessible::Description, QAccessible::Help})
                told->text(what);
            if (auto* actions = told->actionInterface())
                for (const QString& name : actions->actionNames()) {
                    actions->localizedActionName(name);
                    actions->localizedActionDescription(name);
                }
        }
    }

    // Where the toolkit reads a text as keys it compares it with the names of all keys.
    void forgetNamesOfKeys()
    {
        left.texts.removeIf([](const QString& text) { return text.startsWith("QShortcut: "); });
    }

    void expectNothingLeft(const char* of)
    {
        QStringList texts(left.texts.begin(), left.texts.end());
        texts.sort();
        EXPECT_TRUE(texts.isEmpty()) << of << ":\n" << qPrintable(texts.join('\n'));
        left.texts.clear();
    }

    Left left;
};

} // namespace

TEST_F(AGermanDesktop, HasFileDialogsInPortuguese)
{
    const QTemporaryDir folder;
    QDir(folder.path()).mkdir("pasta");
    QFile(folder.filePath("a.txt")).open(QIODevice::WriteOnly);
    const auto walk = [] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_TRUE(dialog);
        dialog->setViewMode(QFileDialog::Detail);
        QCoreApplication::processEvents();
        for (QWidget* part : dialog->findChildren<QWidget*>())
            readAloud(*part);
        openMenu(*dialog->findChild<QLineEdit*>("fileNameEdit"));
        openMenu(*dialog->findChild<QTreeView*>("treeView")->viewport());
        openMenu(*dialog->findChild<QTreeView*>("treeView")->header()->viewport());
        dialog->reject();
    };
    for (const int kind : {0, 1, 2}) {
        QTimer::singleShot(0, walk);
        kind == 0   ? openFileName("BDP|*.orv", "Abrir", folder.path())
        : kind == 1 ? saveFileName("BDP|*.orv", "Gravar", folder.path())
                    : folderName("Pasta", folder.path());
    }
    forgetNamesOfKeys();
    expectNothingLeft("file dialogs");
}

TEST_F(AGermanDesktop, HasDatesAndSizesOfFilesAsThePortugueseWriteThem)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath("a.txt"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(1500, 'a'));
    file.close();
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    file.setFileTime(QDateTime(QDate(2024, 12, 31), QTime(9, 5)), QFileDevice::FileModificationTime);
    file.close();
    QStringList cells;
    QTimer::singleShot(0, [&] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        auto* list = dialog->findChild<QTreeView*>("treeView");
        const auto first = [&] { return list->model()->index(0, 0, list->rootIndex()); };
        EXPECT_TRUE(QTest::qWaitFor([&] { return first().isValid() && first().data() == "a.txt"; }, 5000));
        for (int column = 0; column < 4; ++column)
            cells << first().siblingAtColumn(column).data().toString();
        dialog->reject();
    });
    openFileName("Todos|*", "Abrir", folder.path());
    ASSERT_EQ(cells.size(), 4);
    EXPECT_EQ(cells[1], "1,46 KiB");
    EXPECT_EQ(cells[3], "31/12/2024 09:05");
}

TEST_F(AGermanDesktop, HasMenusOfFieldsBarsAndWindowsInPortuguese)
{
    TextBox line;
    line.setText("a");
    MemoBox memo;
    memo.setText("a");
    QTextBrowser page;
    page.setHtml("<a href='a'>a</a>");
    QScrollBar bar;
    for (QWidget* control :
         {static_cast<QWidget*>(&line), memo.viewport(), page.viewport(), static_cast<QWidget*>(&bar)}) {
        control->show();
        openMenu(*control);
        readAloud(*control);
    }
    QTabBar pages;
    ComboBox combo;
    readAloud(pages);
    readAloud(combo);
    auto* form = make("frmA");
    form->display();
    form->setCaption("A");
    qobject_cast<QMdiSubWindow*>(form->parentWidget())->showMaximized();
    QCoreApplication::processEvents();
    expectNothingLeft("menus of fields, bars and windows");
}

TEST_F(AGermanDesktop, HasButtonsAndNamesOfKeysInPortuguese)
{
    QDialogButtonBox box;
    for (int button = QDialogButtonBox::FirstButton; button <= QDialogButtonBox::LastButton; button <<= 1)
        box.addButton(QDialogButtonBox::StandardButton(button));
    for (const auto key :
         {Qt::Key_Escape, Qt::Key_Tab,    Qt::Key_Backtab, Qt::Key_Backspace, Qt::Key_Return, Qt::Key_Enter,
          Qt::Key_Insert, Qt::Key_Delete, Qt::Key_Pause,   Qt::Key_Print,     Qt::Key_Home,   Qt::Key_End,
          Qt::Key_Left,   Qt::Key_Up,     Qt::Key_Right,   Qt::Key_Down,      Qt::Key_PageUp, Qt::Key_PageDown,
          Qt::Key_Space,  Qt::Key_Menu,   Qt::Key_F1,      Qt::Key_Plus,      Qt::Key_Help})
        QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::ALT | key).toString(QKeySequence::NativeText);
    EXPECT_EQ(QKeySequence(Qt::SHIFT | Qt::Key_F1).toString(QKeySequence::NativeText), "Shift+F1");
    EXPECT_EQ(QKeySequence(Qt::ALT | Qt::Key_Left).toString(QKeySequence::NativeText), "Alt+Esquerda");
    expectNothingLeft("buttons and keys");
}

TEST_F(AGermanDesktop, TellsInPortugueseWhyAFileCannotBeRead)
{
    QFile file("/nenhuma/pasta/a.txt");
    EXPECT_FALSE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.errorString(), "O ficheiro ou a pasta não existe");
    expectNothingLeft("errors of files");
}
