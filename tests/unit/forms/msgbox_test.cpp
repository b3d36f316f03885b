#include "platform/forms/msgbox.h"

#include "forms/house.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMdiSubWindow>
#include <QMenu>
#include <QTemporaryDir>
#include <QWindow>

namespace {

class MessageBox : public House
{
};

// Chooses a name in the file dialog that comes up next.
class Pick : public QObject
{
public:
    explicit Pick(QString name) : name_(std::move(name))
    {
        connect(&timer_, &QTimer::timeout, this, [this] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            if (!dialog) return;
            timer_.stop();
            title = dialog->windowTitle();
            filters = dialog->nameFilters();
            accept = dialog->labelText(QFileDialog::Accept);
            if (name_.isEmpty()) return dialog->reject();
            dialog->findChild<QLineEdit*>("fileNameEdit")->setText(name_);
            QMetaObject::invokeMethod(dialog, "accept", Qt::QueuedConnection);
        });
        timer_.start(0);
    }

    QString title, accept;
    QStringList filters;

private:
    QString name_;
    QTimer timer_;
};

constexpr auto bdp = "BDP - ORV (*.orv)|*.orv";

} // namespace

TEST_F(MessageBox, AMessageHasTheProgramsTitleAndOneButton)
{
    Answer answer("OK");
    showMessage("Deve inserir o nome!\r\nNome");
    EXPECT_EQ(answer.title, "NUBE - ORV");
    EXPECT_EQ(answer.text, "Deve inserir o nome!\nNome");
    EXPECT_EQ(answer.icon, QMessageBox::Information);
    EXPECT_EQ(answer.format, Qt::PlainText);
    EXPECT_EQ(answer.buttons, QStringList("OK"));
}

TEST_F(MessageBox, AnEmptyTitleIsEmpty)
{
    QCoreApplication::setApplicationName("orv-unit");
    Answer answer("OK");
    showMessage("03 ----09", Icon::None, "");
    EXPECT_EQ(answer.title, "");
    EXPECT_EQ(answer.frameTitle.trimmed(), "");
    EXPECT_EQ(answer.icon, QMessageBox::NoIcon);
}

TEST_F(MessageBox, AQuestionIsAnsweredInPortuguese)
{
    {
        Answer answer("&Sim");
        EXPECT_TRUE(ask("Deseja fechar a BDP?"));
        EXPECT_EQ(answer.icon, QMessageBox::Question);
        EXPECT_EQ(answer.buttons, QStringList({"&Sim", "&Não"}));
    }
    Answer answer("&Não");
    EXPECT_FALSE(ask("Deseja fechar a BDP?", Icon::Critical));
    EXPECT_EQ(answer.icon, QMessageBox::Critical);
}

TEST_F(MessageBox, EscapeIsNo)
{
    QTimer::singleShot(0, [] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape); });
    EXPECT_FALSE(ask("Deseja fechar a BDP?"));
}

TEST_F(MessageBox, ReturnIsNoUnlessNoLosesSomething)
{
    const auto pressReturn = [] {
        QWidget* box = QApplication::activeModalWidget();
        QTest::keyClick(box->focusWidget(), Qt::Key_Return);
    };
    QTimer::singleShot(0, pressReturn);
    EXPECT_FALSE(ask("Deseja fechar a BDP?"));
    QTimer::singleShot(0, pressReturn);
    EXPECT_TRUE(askWhetherToStore("Deseja confirmar?"));
    QTimer::singleShot(0, [] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape); });
    EXPECT_FALSE(askWhetherToStore("Deseja confirmar?"));
}

TEST_F(MessageBox, TheHourglassMakesWayForABox)
{
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    {
        const Hourglass outer;
        const Hourglass inner;
        ASSERT_NE(QApplication::overrideCursor(), nullptr);
        EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
        QTimer::singleShot(0, [] {
            EXPECT_EQ(QApplication::overrideCursor(), nullptr);
            QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
        });
        showMessage("!");
        EXPECT_NE(QApplication::overrideCursor(), nullptr);
    }
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(MessageBox, AFileIsChosenOrTheUserCancels)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath("a.orv");
    QFile(file).open(QIODevice::WriteOnly);
    {
        Pick pick(file);
        EXPECT_EQ(openFileName(bdp), file);
        EXPECT_EQ(pick.title, "NUBE - ORV");
        EXPECT_EQ(pick.filters, QStringList("BDP - ORV (*.orv)"));
    }
    Pick pick("");
    EXPECT_EQ(openFileName(bdp, "Abrir"), "");
    EXPECT_EQ(pick.title, "Abrir");
}

TEST_F(MessageBox, SavingAsksNothingAboutAFileThatExists)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath("a.orv");
    QFile(file).open(QIODevice::WriteOnly);
    Pick pick(file);
    EXPECT_EQ(saveFileName(bdp), file);
}

TEST_F(MessageBox, OnlyANameWithoutAnySuffixGetsOne)
{
    const QTemporaryDir folder;
    for (const auto& [typed, taken] : {std::pair("nova", "nova.orv"),
                                       {"nova.bak", "nova.bak"},
                                       {"S. Mamede", "S. Mamede.orv"},
                                       {"b.orv", "b.orv"},
                                       {"S.Mamede", "S.Mamede.orv"},
                                       {"até 31.12.1800", "até 31.12.1800.orv"},
                                       {"nova.", "nova."},
                                       {"a.7z", "a.7z"}})
    {
        Pick pick(folder.filePath(typed));
        EXPECT_EQ(saveFileName(bdp), folder.filePath(taken));
    }
}

TEST_F(MessageBox, SeveralFiltersAndAnyFileAreUnderstood)
{
    Pick pick("");
    openFileName("Imagens|*.bmp;*.jpg|Todos (*.*)|*.*");
    EXPECT_EQ(pick.filters, QStringList({"Imagens (*.bmp *.jpg)", "Todos (*.*)"}));
}

TEST_F(MessageBox, TheToolkitSpeaksPortuguese)
{
    installPortuguese();
    EXPECT_EQ(QLocale().language(), QLocale::Portuguese);
    EXPECT_EQ(QLocale().territory(), QLocale::Portugal);
    EXPECT_EQ(QDialogButtonBox(QDialogButtonBox::Cancel).button(QDialogButtonBox::Cancel)->text(), "Cancelar");
    QFileDialog dialog;
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    EXPECT_EQ(dialog.labelText(QFileDialog::FileName), "&Nome do ficheiro:");
    EXPECT_EQ(dialog.labelText(QFileDialog::Accept), "&Abrir");
    EXPECT_EQ(dialog.labelText(QFileDialog::Reject), "Cancelar");
    TextBox field;
    const std::unique_ptr<QMenu> menu(field.createStandardContextMenu());
    EXPECT_TRUE(menu->actions().constFirst()->text().startsWith("&Anular"));
    QMdiSubWindow child;
    QStringList entries;
    for (const QAction* action : child.systemMenu()->actions())
        if (!action->isSeparator()) entries << action->text().section('\t', 0, 0);
    EXPECT_EQ(entries, QStringList({"&Restaurar", "&Mover", "&Tamanho", "Mi&nimizar", "Ma&ximizar", "Manter &acima",
                                    "&Fechar"}));
}
