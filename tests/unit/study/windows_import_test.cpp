// The window that brings transcriptions into the BDP, while it works.
#include "study/windows/frmTranscricoes.h"

#include "control.h"
#include "platform/jet/recordset.h"
#include "platform/time/clock.h"
#include "store/parish.h"
#include "study/acts/register.h"

#include <QDir>
#include <QFileDialog>
#include <QProgressBar>

using namespace study;

namespace {

// Types names into the file dialog that comes up next, and takes them.
class Pick : public QObject
{
public:
    explicit Pick(const QString& names)
    {
        connect(&timer_, &QTimer::timeout, this, [this, names] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            if (!dialog) return;
            timer_.stop();
            dialog->findChild<QLineEdit*>("fileNameEdit")->setText(names);
            QTest::keyClick(dialog->findChild<QLineEdit*>("fileNameEdit"), Qt::Key_Return);
        });
        timer_.start(0);
    }

private:
    QTimer timer_;
};

class TheWindowOfImports : public Parish
{
protected:
    TheWindowOfImports()
    {
        Forms::add(FrmTranscricoes::Name, [] { return new FrmTranscricoes; });
        cnBDP.execute("insert into infopar (cod, nome, pais) values ('030101', 'São Mamede', 'PT')");
        Clock::passAtEachLook(std::chrono::milliseconds(50)); // every act is a look
    }
    ~TheWindowOfImports() override { Clock::passAtEachLook({}); }

    QString write(const QString& name, int acts, int first = 1) const
    {
        QByteArray text = "kleio$gacto2.str\nfonte$b1/1702\n";
        for (int i = first; i < first + acts; ++i)
            text += "bap$b1." + QByteArray::number(i) + "/1/2/1702\n   n$maria/f/id=p" + QByteArray::number(i) + '\n';
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        return file.fileName();
    }

    static FrmTranscricoes& form() { return theForm<FrmTranscricoes>(); }
    static void click(const char* name) { control<CommandButton>(form(), name).click(); }
    static QString report() { return control<MemoBox>(form(), "txtRel").text(); }
    static qint64 people() { return jet::Recordset(cnBDP, "select * from individuo").recordCount(); }

    void add(const QString& names)
    {
        form().display();
        const Pick pick(names);
        click("cmdJuntar");
    }

    // Does something when the bar stands at that act.
    void at(int act, const std::function<void()>& doing)
    {
        QObject::connect(&control<QProgressBar>(form(), "barra"), &QProgressBar::valueChanged, &form(),
                         [act, doing](int value) {
                             if (value == act) doing();
                         });
    }

    void press(int key)
    {
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease})
            QCoreApplication::postEvent(window.windowHandle(), new QKeyEvent(type, key, Qt::NoModifier));
    }

    void import()
    {
        const Answer yes("&Sim");
        click("cmdImportar");
        EXPECT_EQ(yes.given, 1);
    }
};

TEST_F(TheWindowOfImports, TakesSeveralFilesAtOnceAndEachOnce)
{
    const QString one = write("um.cli", 1), two = write("dois.cli", 1);
    add('"' + one + "\" \"" + two + '"');
    add(one);
    EXPECT_EQ(control<ListBox>(form(), "lstFich").listCount(), 2);
    EXPECT_EQ(control<ListBox>(form(), "lstFich").listIndex(), 0);
    click("cmdRetirar");
    click("cmdRetirar");
    EXPECT_EQ(control<ListBox>(form(), "lstFich").listCount(), 0);
    EXPECT_FALSE(control<CommandButton>(form(), "cmdImportar").isEnabled());
}

TEST_F(TheWindowOfImports, LeavesNothingOfAFileWhereItIsCancelledInTheMiddle)
{
    add(write("um.cli", 20));
    at(10, [this] { press(Qt::Key_Escape); });
    import();
    EXPECT_TRUE(report().contains("Cancelado: nada foi escrito deste ficheiro.")) << qPrintable(report());
    EXPECT_EQ(people(), 0);
    EXPECT_EQ(cnBDP.transactionLevel(), 0);
    EXPECT_FALSE(control<CommandButton>(form(), "cmdCancelar").isEnabled());
}

TEST_F(TheWindowOfImports, IsCancelledByItsButtonAndKeepsTheFilesThatWereWhole)
{
    add(write("um.cli", 3));
    add(write("dois.cli", 20, 101));
    add(write("tres.cli", 3, 201));
    at(10, [] {
        auto& cancel = control<CommandButton>(form(), "cmdCancelar");
        EXPECT_TRUE(cancel.isEnabled());
        const QPoint place = cancel.mapTo(cancel.window(), cancel.rect().center());
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease})
            QCoreApplication::postEvent(cancel.window()->windowHandle(),
                                        new QMouseEvent(type, place, cancel.window()->mapToGlobal(place),
                                                        Qt::LeftButton, Qt::LeftButton, Qt::NoModifier));
    });
    import();
    EXPECT_EQ(people(), 3);
    EXPECT_EQ(control<QLabel>(form(), "lblEstado").text(), "3 actos gravados; 2 ficheiros postos de lado.");
    EXPECT_TRUE(report().contains("Não chegou a ser a sua vez."));
}

// One copy for all files, of the BDP as it was before the first.
TEST_F(TheWindowOfImports, CopiesTheBdpOnceBeforeTheFirstFile)
{
    cnBDP.execute("insert into individuo (nind, nome) values (1, 'Rui')");
    add(write("um.cli", 3));
    add(write("dois.cli", 4, 101));
    import();
    EXPECT_EQ(people(), 8);
    const QDir copies(folder.filePath("copias"));
    const QStringList before = copies.entryList({"*antes de importar*.orv"});
    ASSERT_EQ(before.size(), 1);
    jet::Connection copy;
    copy.open(connectionString(copies.filePath(before.first())));
    EXPECT_EQ(jet::Recordset(copy, "select * from individuo").recordCount(), 1);
    EXPECT_FALSE(hasActs(copy));
    EXPECT_TRUE(report().contains(before.first())) << qPrintable(report());
}

TEST_F(TheWindowOfImports, LeavesNothingOfAFileThatTheStoreHasRefused)
{
    cnBDP.execute(jet::NativeSql("create table estudo_acto (id integer)")); // somebody else's
    add(write("um.cli", 3));
    add(write("dois.cli", 3, 101));
    import();
    EXPECT_EQ(people(), 0);
    EXPECT_TRUE(report().contains("Nada foi escrito deste ficheiro. ")) << qPrintable(report());
    EXPECT_TRUE(report().contains("Não chegou a ser a sua vez."));
    EXPECT_EQ(cnBDP.transactionLevel(), 0);
}

TEST_F(TheWindowOfImports, LetsNothingElseActWhileItWorks)
{
    add(write("um.cli", 20));
    at(10, [this] {
        auto& shut = control<CommandButton>(form(), "cmdFechar");
        const QPoint place = shut.mapTo(&window, shut.rect().center());
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease})
            QCoreApplication::postEvent(window.windowHandle(),
                                        new QMouseEvent(type, place, window.mapToGlobal(place), Qt::LeftButton,
                                                        Qt::LeftButton, Qt::NoModifier));
    });
    import();
    QApplication::processEvents();
    EXPECT_TRUE(Forms::isLoaded(FrmTranscricoes::Name));
    EXPECT_EQ(people(), 20);
}

TEST_F(TheWindowOfImports, ReadsAFileAnewThatHasGoneSinceItWasChosen)
{
    const QString path = write("um.cli", 2);
    add(path);
    QFile::remove(path);
    click("cmdEnsaio");
    EXPECT_TRUE(report().contains("não existe")) << qPrintable(report());
    write("um.cli", 3);
    import();
    EXPECT_EQ(people(), 3);
}

} // namespace
