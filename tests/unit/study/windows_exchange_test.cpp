// The windows of the ways out and in, while they work.
#include "study/windows/frmExportar.h"
#include "study/windows/frmImportar.h"

#include "control.h"
#include "platform/desktop/desktop.h"
#include "platform/jet/recordset.h"
#include "platform/time/clock.h"
#include "store/parish.h"

#include <QClipboard>
#include <QDir>
#include <QFileInfo>

namespace {

class TheWindowsOfExchange : public Parish
{
protected:
    // What is chosen in them is of the test alone.
    TheWindowsOfExchange() : config_(qgetenv("XDG_CONFIG_HOME"))
    {
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(folder.filePath("config")));
        Desktop::setProgramFolder(ORV_DATA_DIR);
        Forms::add(FrmExportar::Name, [] { return new FrmExportar; });
        Forms::add(FrmImportar::Name, [] { return new FrmImportar; });
        cnBDP.execute("insert into infopar (cod, nome, pais) values ('030101', 'São Mamede', 'PT')");
        cnBDP.beginTrans();
        for (int i = 1; i <= 3000; ++i)
            cnBDP.execute(jet::NativeSql("insert into individuo (nind, nome) values (?, 'Ana')", {i}));
        cnBDP.commitTrans();
    }
    ~TheWindowsOfExchange() override
    {
        Desktop::setProgramFolder({});
        config_.isNull() ? qunsetenv("XDG_CONFIG_HOME") : qputenv("XDG_CONFIG_HOME", config_);
    }

    static FrmExportar& out() { return theForm<FrmExportar>(); }
    static FrmImportar& in() { return theForm<FrmImportar>(); }
    template <class F>
    static void click(F& form, const char* name)
    {
        control<CommandButton>(form, name).click();
    }
    template <class F>
    static bool finishes(F& form)
    {
        return QTest::qWaitFor([&] { return !form.isAtWork(); }, 60000);
    }
    template <class F>
    static QString state(const F& form)
    {
        return control<QLabel>(form, "lblEstado").text();
    }
    void prepare(const QString& format, const QString& target)
    {
        out().display();
        auto& list = control<ListBox>(out(), "lstFormato");
        for (int i = 0; i < list.listCount(); ++i)
            if (list.list(i) == format) list.setListIndex(i);
        control<TextBox>(out(), "txtAlvo").setText(folder.filePath(target));
    }
    void exportTables()
    {
        prepare("Tabelas (CSV)", "t");
        click(out(), "cmdExportar");
        ASSERT_TRUE(finishes(out()));
        ASSERT_TRUE(QFile::exists(folder.filePath("t/individuo.csv"))) << qPrintable(state(out()));
    }
    void rehearse()
    {
        in().display();
        control<TextBox>(in(), "txtOrigem").setText(folder.filePath("t"));
        control<TextBox>(in(), "txtAlvo").setText(folder.filePath("b.orv"));
        click(in(), "cmdEnsaio");
        ASSERT_TRUE(finishes(in()));
    }
    bool hasDrafts() const
    {
        return QDir(folder.path()).entryList(QDir::AllEntries | QDir::Hidden).filter("b.orv").size() > 0;
    }

private:
    QByteArray config_;
};

} // namespace

TEST_F(TheWindowsOfExchange, AnExportThatIsCancelledLeavesNothing)
{
    prepare("Tabelas (CSV)", "t");
    click(out(), "cmdExportar");
    EXPECT_TRUE(out().isAtWork());
    EXPECT_FALSE(control<CommandButton>(out(), "cmdExportar").isEnabled());
    EXPECT_TRUE(control<QProgressBar>(out(), "barra").isVisible());
    click(out(), "cmdCancelar"); // before the thread could have told anything
    ASSERT_TRUE(finishes(out()));
    EXPECT_EQ(state(out()), "A exportação foi cancelada: nada foi escrito.");
    EXPECT_FALSE(QFile::exists(folder.filePath("t")));
    EXPECT_TRUE(control<CommandButton>(out(), "cmdExportar").isEnabled());
    EXPECT_FALSE(control<CommandButton>(out(), "cmdCancelar").isEnabled());
    EXPECT_FALSE(control<QProgressBar>(out(), "barra").isVisible());
}

TEST_F(TheWindowsOfExchange, ACancelThatComesTooLateIsNoCancel)
{
    prepare("GEDCOM 7.0", "a.ged");
    click(out(), "cmdExportar");
    while (!QFile::exists(folder.filePath("a.ged"))) // without any event: the end isn't told yet
        QTest::qSleep(1);
    QTest::qSleep(200);
    click(out(), "cmdCancelar");
    ASSERT_TRUE(finishes(out()));
    EXPECT_TRUE(state(out()).startsWith("Exportado para ")) << qPrintable(state(out()));
}

TEST_F(TheWindowsOfExchange, TheCardsCanBeWrittenWhileABdpGoesOut)
{
    prepare("Tabelas (CSV)", "t");
    click(out(), "cmdExportar");
    cnBDP.execute("insert into individuo (nind, nome) values (9000, 'Depois')");
    ASSERT_TRUE(finishes(out()));
    EXPECT_TRUE(control<MemoBox>(out(), "txtRel").text().contains("individuo: 3000\r\n"));
}

TEST_F(TheWindowsOfExchange, ClosingTheWindowOrTheBdpEndsTheWork)
{
    prepare("Tabelas (CSV)", "t");
    click(out(), "cmdExportar");
    EXPECT_TRUE(out().unload());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(Forms::isLoaded(FrmExportar::Name));
    prepare("Tabelas (CSV)", "u");
    click(out(), "cmdExportar");
    Forms::unloadAll();
    cnBDP.close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QTest::qWait(50);
    EXPECT_FALSE(Forms::isLoaded(FrmExportar::Name));
}

TEST_F(TheWindowsOfExchange, WhatWasWrittenIsCopiedWhole)
{
    exportTables();
    click(out(), "cmdCopiar");
    const QString copied = QGuiApplication::clipboard()->text();
    EXPECT_TRUE(copied.startsWith("Exportado para ")) << qPrintable(copied);
    EXPECT_TRUE(copied.contains("\nindividuo: 3000\n"));
    EXPECT_FALSE(copied.contains('\r'));
}

TEST_F(TheWindowsOfExchange, ARehearsalAndAnImportThatAreCancelledLeaveNothing)
{
    exportTables();
    in().display();
    control<TextBox>(in(), "txtOrigem").setText(folder.filePath("t"));
    control<TextBox>(in(), "txtAlvo").setText(folder.filePath("b.orv"));
    click(in(), "cmdEnsaio");
    EXPECT_FALSE(control<CommandButton>(in(), "cmdEnsaio").isEnabled());
    click(in(), "cmdCancelar");
    ASSERT_TRUE(finishes(in()));
    EXPECT_EQ(state(in()), "O ensaio foi cancelado.");
    EXPECT_FALSE(control<CommandButton>(in(), "cmdImportar").isEnabled());
    rehearse();
    EXPECT_EQ(state(in()), "Ensaio sem erros: nada foi escrito.");
    click(in(), "cmdImportar");
    click(in(), "cmdCancelar");
    ASSERT_TRUE(finishes(in()));
    EXPECT_EQ(state(in()), "A importação foi cancelada: nada foi escrito.");
    EXPECT_FALSE(hasDrafts());
    EXPECT_TRUE(control<CommandButton>(in(), "cmdImportar").isEnabled()) << "the rehearsal still holds";
}

TEST_F(TheWindowsOfExchange, ANewBdpIsOfferedAndTheOneInWorkStaysWhereTheUserSaysSo)
{
    exportTables();
    rehearse();
    const Answer no("&Não");
    click(in(), "cmdImportar");
    ASSERT_TRUE(finishes(in()));
    EXPECT_EQ(no.given, 1);
    EXPECT_TRUE(no.text.endsWith("A BDP em tratamento é fechada.")) << qPrintable(no.text);
    EXPECT_EQ(QFileInfo(cnBDP.dataSource()).fileName(), "a.orv");
    EXPECT_TRUE(Forms::isLoaded(FrmImportar::Name));
    EXPECT_FALSE(control<CommandButton>(in(), "cmdImportar").isEnabled());
}

TEST_F(TheWindowsOfExchange, AnImportIntoTheBdpInWorkIsCancelledByEscapeAndLeavesNothing)
{
    QFile file(folder.filePath("a.ged"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("0 HEAD\n1 GEDC\n2 VERS 5.5.1\n2 FORM LINEAGE-LINKED\n1 CHAR UTF-8\n");
    for (int i = 1; i <= 5000; ++i)
        file.write("0 @I" + QByteArray::number(i) + "@ INDI\n1 NAME Eva /Dias/\n");
    file.write("0 TRLR\n");
    file.close();
    in().display();
    control<ListBox>(in(), "lstFormato").setListIndex(1);
    control<TextBox>(in(), "txtOrigem").setText(file.fileName());
    click(in(), "cmdEnsaio");
    ASSERT_TRUE(finishes(in()));
    EXPECT_EQ(state(in()), "Ensaio sem erros: nada foi escrito.")
        << qPrintable(control<MemoBox>(in(), "txtRel").text());
    Clock::passAtEachLook(std::chrono::milliseconds(50));
    QObject::connect(&control<QProgressBar>(in(), "barra"), &QProgressBar::valueChanged, &in(), [this](int value) {
        if (value == 0) return;
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease})
            QCoreApplication::postEvent(window.windowHandle(), new QKeyEvent(type, Qt::Key_Escape, Qt::NoModifier));
    });
    const Answer yes("&Sim");
    click(in(), "cmdImportar");
    Clock::passAtEachLook({});
    EXPECT_EQ(yes.given, 1);
    EXPECT_EQ(state(in()), "A importação foi cancelada: nada foi escrito.");
    EXPECT_EQ(jet::Recordset(cnBDP, "select * from individuo").recordCount(), 3000);
    EXPECT_EQ(cnBDP.transactionLevel(), 0);
    EXPECT_FALSE(control<CommandButton>(in(), "cmdCancelar").isEnabled());
    EXPECT_TRUE(control<CommandButton>(in(), "cmdImportar").isEnabled()) << "the rehearsal still holds";
}
