// The windows of the ways out and in, while they work.
#include "study/windows/frmExportar.h"
#include "study/windows/frmImportar.h"

#include "control.h"
#include "platform/desktop/desktop.h"
#include "platform/jet/recordset.h"
#include "platform/time/clock.h"
#include "store/parish.h"
#include "study/command/command.h"

#include <QClipboard>
#include <QDir>
#include <QFileInfo>
#include <QTextStream>

#include <map>

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
    // Written by the window, and by the command with those arguments behind the file and the target.
    void expectTheSame(const QString& format, const QStringList& boxes, const QStringList& arguments)
    {
        const QString suffix = format.startsWith("GEDCOM") ? ".ged" : "";
        const QString name = QString::number(++written_);
        prepare(format, "w" + name + suffix);
        for (auto* box : out().findChildren<QCheckBox*>())
            box->setChecked(boxes.contains(box->objectName()));
        click(out(), "cmdExportar");
        ASSERT_TRUE(finishes(out()));
        ASSERT_TRUE(state(out()).startsWith("Exportado")) << qPrintable(control<MemoBox>(out(), "txtRel").text());
        QStringList command{"exportar", arguments.first(), cnBDP.dataSource(), folder.filePath("c" + name + suffix)};
        QString told;
        QTextStream all(&told);
        ASSERT_EQ(study::runCommand(command << arguments.mid(1), all, all, [] { return true; }), study::done)
            << qPrintable(told);
        const auto files = filesAt("w" + name + suffix);
        EXPECT_FALSE(files.empty());
        EXPECT_EQ(files, filesAt("c" + name + suffix)) << qPrintable(format + ' ' + boxes.join(' '));
    }
    // A file, or those of a folder, each by its name there.
    std::map<QString, QByteArray> filesAt(const QString& name) const
    {
        const QString place = folder.filePath(name);
        std::map<QString, QByteArray> files;
        if (!QFileInfo(place).isDir()) files[{}] = bytes(place);
        for (const QString& file : QDir(place).entryList(QDir::Files))
            files[file] = bytes(QDir(place).filePath(file));
        return files;
    }
    static QByteArray bytes(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    // A file of so many people, whose rehearsal has found nothing wrong.
    void rehearseGedcom(int people)
    {
        QFile file(folder.filePath("a.ged"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("0 HEAD\n1 GEDC\n2 VERS 5.5.1\n2 FORM LINEAGE-LINKED\n1 CHAR UTF-8\n");
        for (int i = 1; i <= people; ++i)
            file.write("0 @I" + QByteArray::number(i) + "@ INDI\n1 NAME Eva /Dias/\n");
        file.write("0 TRLR\n");
        file.close();
        in().display();
        control<ListBox>(in(), "lstFormato").setListIndex(1);
        control<TextBox>(in(), "txtOrigem").setText(file.fileName());
        click(in(), "cmdEnsaio");
        ASSERT_TRUE(finishes(in()));
        ASSERT_EQ(state(in()), "Ensaio sem erros: nada foi escrito.")
            << qPrintable(control<MemoBox>(in(), "txtRel").text());
    }
    // Escape, once the bar has begun to move.
    void giveUpAtFirstProgress()
    {
        Clock::passAtEachLook(std::chrono::milliseconds(50));
        QObject::connect(&control<QProgressBar>(in(), "barra"), &QProgressBar::valueChanged, &in(), [this](int value) {
            if (value == 0) return;
            for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease})
                QCoreApplication::postEvent(window.windowHandle(), new QKeyEvent(type, Qt::Key_Escape, Qt::NoModifier));
        });
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
        return !QDir(folder.path()).entryList(QDir::AllEntries | QDir::Hidden).filter("b.orv").isEmpty();
    }

private:
    QByteArray config_;
    int written_ = 0;
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
    ASSERT_NO_FATAL_FAILURE(rehearseGedcom(5000));
    giveUpAtFirstProgress();
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

TEST_F(TheWindowsOfExchange, WriteWhatTheCommandWritesByEachWay)
{
    cnBDP.execute("update individuo set sexo = 'f', datanasc = '1700-02-03' where nind < 10");
    cnBDP.execute("update individuo set famorig = 77 where nind = 3"); // no family at all
    expectTheSame("GEDCOM 5.5.1", {}, {"gedcom"});
    expectTheSame("GEDCOM 5.5.1", {"chkAssoc"}, {"gedcom", "--associacoes"});
    expectTheSame("GEDCOM 7.0", {}, {"gedcom", "--versao", "7.0"});
    expectTheSame("GEDCOM 7.0", {"chkAssoc"}, {"gedcom", "--versao", "7.0", "--associacoes"});
    expectTheSame("Tabelas (CSV)", {}, {"tabelas"});
    expectTheSame("Tabelas (CSV)", {"chkOrfas"}, {"tabelas", "--sem-orfas"});
    expectTheSame("Tabelas para o Excel", {}, {"tabelas", "--excel"});
    expectTheSame("IDS, versão 4", {}, {"ids"});
    expectTheSame("IDS, versão 4", {"chkMaiusculas"}, {"ids", "--maiusculas"});
    expectTheSame("IDS, versão 4", {"chkInversa"}, {"ids", "--relacao-inversa"});
    expectTheSame("IDS, versão 4", {"chkFilhos"}, {"ids", "--filhos-em-casa"});
    expectTheSame("Episódios (R)", {}, {"episodios"});
    control<TextBox>(out(), "txtLimite").setText("0");
    expectTheSame("Episódios (R)", {}, {"episodios", "--limite", "0"});
}

TEST_F(TheWindowsOfExchange, ShowTheOptionsOfTheWayAloneAndEachOfThem)
{
    using enum study::exchange::Choice;
    const std::pair<study::exchange::Choice, const char*> all[] = {
        {LimitYears, "txtLimite"},    {BirthDates, "cmbDatas"},     {AssociationsTwice, "chkAssoc"},
        {EmptyOrphans, "chkOrfas"},   {UpperCase, "chkMaiusculas"}, {ReversedRelations, "chkInversa"},
        {ChildrenAtHome, "chkFilhos"}};
    for (const study::exchange::WayOut& way : study::exchange::waysOut()) {
        prepare(QString::fromUtf8(way.title), "x");
        for (const auto& [choice, name] : all)
            EXPECT_EQ(control<QWidget>(out(), name).isVisible(), way.offers(choice)) << way.name << ' ' << name;
    }
}

TEST_F(TheWindowsOfExchange, AnImportIsTakenBackAndACancelLeavesItWhole)
{
    ASSERT_NO_FATAL_FAILURE(rehearseGedcom(500));
    EXPECT_FALSE(control<CommandButton>(in(), "cmdDesfazer").isEnabled()) << "nothing has come yet";
    const Answer imports("&Sim");
    click(in(), "cmdImportar");
    ASSERT_EQ(jet::Recordset(cnBDP, "select * from individuo").recordCount(), 3500);
    EXPECT_TRUE(control<CommandButton>(in(), "cmdDesfazer").isEnabled());
    giveUpAtFirstProgress();
    const Answer takesBack("&Sim");
    click(in(), "cmdDesfazer");
    Clock::passAtEachLook({});
    EXPECT_EQ(state(in()), "Foi cancelado: nada foi desfeito.");
    EXPECT_EQ(jet::Recordset(cnBDP, "select * from individuo").recordCount(), 3500);
    EXPECT_EQ(cnBDP.transactionLevel(), 0);
    EXPECT_FALSE(control<CommandButton>(in(), "cmdCancelar").isEnabled());
    ASSERT_TRUE(control<CommandButton>(in(), "cmdDesfazer").isEnabled());
    QObject::disconnect(&control<QProgressBar>(in(), "barra"), nullptr, &in(), nullptr);
    const Answer again("&Sim");
    click(in(), "cmdDesfazer");
    EXPECT_EQ(again.given, 1);
    EXPECT_EQ(state(in()), "A importação de \"a.ged\" foi desfeita.");
    EXPECT_TRUE(control<MemoBox>(in(), "txtRel").text().contains("_antes de desfazer_"));
    EXPECT_EQ(jet::Recordset(cnBDP, "select * from individuo").recordCount(), 3000);
    EXPECT_FALSE(control<CommandButton>(in(), "cmdDesfazer").isEnabled());
}

TEST_F(TheWindowsOfExchange, AnImportIsNotTakenBackWhileARehearsalRuns)
{
    ASSERT_NO_FATAL_FAILURE(rehearseGedcom(5));
    const Answer yes("&Sim");
    click(in(), "cmdImportar");
    click(in(), "cmdEnsaio");
    EXPECT_FALSE(control<CommandButton>(in(), "cmdDesfazer").isEnabled());
    ASSERT_TRUE(finishes(in()));
    EXPECT_TRUE(control<CommandButton>(in(), "cmdDesfazer").isEnabled());
}
