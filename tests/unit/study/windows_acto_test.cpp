// The window of one act: stored acts shown and corrected, and what becomes of a failure.
#include "study/windows/frmActo.h"

#include "control.h"
#include "platform/forms/forms.h"
#include "platform/jet/recordset.h"
#include "platform/time/clock.h"
#include "shell/startup.h"
#include "store/parish.h"
#include "study/acts/writer.h"

#include <QKeySequence>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QTimer>

#include <chrono>

namespace study {

namespace {

class TheSheetOfAnAct : public Parish
{
protected:
    TheSheetOfAnAct()
    {
        registerForms();
        window.resize(1016, 700);
        QObject::connect(&answers_, &QTimer::timeout, [this] {
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                told << box->text();
                const auto buttons = box->buttons();
                for (QAbstractButton* button : buttons)
                    if (button->text() == (says ? "&Sim" : "&Não") || button->text() == "OK") return button->click();
            }
        });
        answers_.start(0);
    }

    static qint64 storedBaptism(const QString& child)
    {
        Sheet sheet = newSheet(ActKind::Baptism, {});
        setText(sheet, {.field = Field::Date}, "14/2/1702");
        setText(sheet, {.field = Field::Number}, "7");
        setText(sheet, {0, Field::Name}, child);
        sheet.conclusions.people[0].kind = Identity::Kind::New;
        const Trimmed given = trimmed(sheet);
        return storeAct(cnBDP, given.sheet.act, given.sheet.conclusions).act;
    }

    static FrmActo& opened()
    {
        auto& form = theForm<FrmActo>();
        form.display();
        QCoreApplication::processEvents();
        return form;
    }

    static QString textOf(FrmActo& form, const char* field) { return control<TextBox>(form, field).text(); }

    static void type(FrmActo& form, const char* field, const QString& text)
    {
        auto& box = control<TextBox>(form, field);
        box.setFocus();
        box.selectAll();
        box.insert(text); // as typed, in place of what is chosen
        QCoreApplication::processEvents();
    }

    static int people() { return jet::Recordset(cnBDP, "select nind from individuo").recordCount(); }

    QStringList told;
    bool says = true;

private:
    QTimer answers_;
};

} // namespace

TEST_F(TheSheetOfAnAct, ShowsAStoredActToBeReadOnly)
{
    const qint64 act = storedBaptism("Maria");
    FrmActo& form = opened();
    form.mostra(act);
    EXPECT_EQ(textOf(form, "txtNome_0"), "Maria");
    EXPECT_EQ(textOf(form, "txtData"), "14/02/1702");
    EXPECT_TRUE(control<TextBox>(form, "txtNome_0").isLocked());
    EXPECT_TRUE(control<TextBox>(form, "txtEC").isLocked());
    EXPECT_FALSE(control<CommandButton>(form, "cmdGravar").isVisible());
    EXPECT_TRUE(control<CommandButton>(form, "cmdCorrigir").isVisible());
    QTest::keyClick(&control<TextBox>(form, "txtNome_0"), Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(listActs(cnBDP).size(), 1);
    EXPECT_FALSE(savedDraft(cnBDP));
}

TEST_F(TheSheetOfAnAct, TakesAStoredActBackToBeCorrected)
{
    const qint64 act = storedBaptism("Maria");
    FrmActo& form = opened();
    form.mostra(act);
    control<CommandButton>(form, "cmdCorrigir").click();
    EXPECT_EQ(people(), 0);
    EXPECT_TRUE(listActs(cnBDP).isEmpty());
    EXPECT_EQ(textOf(form, "txtNome_0"), "Maria");
    EXPECT_FALSE(control<TextBox>(form, "txtNome_0").isLocked());
    ASSERT_TRUE(savedDraft(cnBDP));
    EXPECT_EQ(savedDraft(cnBDP)->act.people.first().name.value, "Maria");
    control<CommandButton>(form, "cmdGravar").click();
    EXPECT_EQ(people(), 1);
    EXPECT_FALSE(savedDraft(cnBDP));
}

TEST_F(TheSheetOfAnAct, LeavesAnActWhoseRowsWereTouchedSinceAndSaysWhy)
{
    const qint64 act = storedBaptism("Maria");
    cnBDP.execute("update individuo set nome = 'Mariana'");
    FrmActo& form = opened();
    form.mostra(act);
    control<CommandButton>(form, "cmdCorrigir").click();
    ASSERT_EQ(told.size(), 1);
    EXPECT_TRUE(told[0].startsWith("O acto não pode ser desfeito. ")) << qPrintable(told[0]);
    EXPECT_EQ(people(), 1);
}

TEST_F(TheSheetOfAnAct, KeepsTheActInWorkWhileAnotherIsShown)
{
    const qint64 act = storedBaptism("Maria");
    FrmActo& form = opened();
    type(form, "txtData", "15");
    type(form, "txtNome_0", "Bento");
    form.mostra(act);
    EXPECT_EQ(textOf(form, "txtNome_0"), "Maria");
    ASSERT_TRUE(savedDraft(cnBDP));
    control<CommandButton>(form, "cmdCorrigir").click();
    EXPECT_EQ(told, QStringList("Há um acto por acabar: acabe-o primeiro."));
    EXPECT_TRUE(control<QLabel>(form, "lblGravado").text().startsWith("Gravado em "));
    control<CommandButton>(form, "cmdNovo").click();
    EXPECT_EQ(textOf(form, "txtNome_0"), "Bento");
    EXPECT_EQ(control<QLabel>(form, "lblGravado").text(), "");
    EXPECT_EQ(told.size(), 1); // it isn't asked about, as nobody has left it for good
}

TEST_F(TheSheetOfAnAct, MarksNothingInAStoredActAsStillToBeSettled)
{
    Sheet sheet = newSheet(ActKind::Baptism, {});
    setText(sheet, {.field = Field::Date}, "14/2/1702");
    setText(sheet, {0, Field::Name}, "Maria");
    setText(sheet, {0, Field::Residence}, "Outeiro");
    sheet.conclusions.people[0].kind = Identity::Kind::New;
    const Trimmed given = trimmed(sheet);
    FrmActo& form = opened();
    form.mostra(storeAct(cnBDP, given.sheet.act, given.sheet.conclusions).act);
    EXPECT_EQ(textOf(form, "txtResid_0"), "Outeiro");
    EXPECT_EQ(control<QLabel>(form, "lblOnde_0").text(), "");
}

TEST_F(TheSheetOfAnAct, ShowsTheRowsOfEachKindWholeAndGivesTheRestToWhatWillBeWritten)
{
    FrmActo& form = opened();
    auto& rows = control<QScrollArea>(form, "rolo");
    for (const Qt::Key kind : {Qt::Key_B, Qt::Key_C, Qt::Key_O}) {
        QTest::keyClick(&control<ComboBox>(form, "cmbActo"), kind);
        type(form, "txtNome_0", "Maria");
        type(form, "txtEC", "viúva");
        control<TextBox>(form, "txtData").setFocus();
        QCoreApplication::processEvents();
        EXPECT_EQ(rows.verticalScrollBar()->maximum(), 0) << kind;
        EXPECT_LE(rows.height(), rows.widget()->sizeHint().height() + 2 * rows.frameWidth()) << kind;
        const auto& sentences = control<MemoBox>(form, "txtFrases");
        EXPECT_GE(sentences.height(), 3 * sentences.fontMetrics().lineSpacing()) << kind;
        control<CommandButton>(form, "cmdNovo").click();
    }
}

TEST_F(TheSheetOfAnAct, HasFieldsAsWideAsWhatTheyUsuallyHold)
{
    FrmActo& form = opened();
    const QList<QPair<const char*, QString>> usual{{"txtNome_0", "Mariana Angélica do Rosário"},
                                                   {"txtPadrao", "Mariana Angélica do Rosário"},
                                                   {"txtResid_0", "São Mamede"},
                                                   {"txtNatural", "São Mamede"},
                                                   {"txtIdade", "setenta anos"},
                                                   {"txtNotas", "moleiro no Outeiro"}};
    for (const auto& [name, text] : usual) {
        const auto& field = control<TextBox>(form, name);
        EXPECT_GE(field.width(), field.fontMetrics().horizontalAdvance(text)) << name;
    }
    QTest::keyClick(&control<ComboBox>(form, "cmbActo"), Qt::Key_O);
    const auto& offices = control<TextBox>(form, "txtOficios");
    EXPECT_GE(offices.width(), offices.fontMetrics().horizontalAdvance("3 ofícios de 10 padres"));
}

TEST_F(TheSheetOfAnAct, HasNoLetterTwice)
{
    FrmActo& form = opened();
    QString letters;
    const auto addLetter = [&](const QString& caption) {
        const QKeySequence letter = QKeySequence::mnemonic(caption);
        if (letter.isEmpty()) return;
        EXPECT_FALSE(letters.contains(letter.toString())) << qPrintable(caption);
        letters += letter.toString() + ' ';
    };
    for (const auto* label : form.findChildren<QLabel*>())
        if (label->buddy()) addLetter(label->text());
    for (const auto* button : form.findChildren<CommandButton*>())
        addLetter(button->text());
    EXPECT_TRUE(letters.contains("Alt+U"));
}

TEST_F(TheSheetOfAnAct, TellsOfAnActThatHasGone)
{
    const qint64 act = storedBaptism("Maria");
    FrmActo& form = opened();
    form.mostra(act);
    ASSERT_EQ(undoAct(cnBDP, act), "");
    control<CommandButton>(form, "cmdCorrigir").click();
    form.mostra(act);
    EXPECT_EQ(told, QStringList({"O acto já não está na BDP.", "O acto já não está na BDP."}));
}

TEST_F(TheSheetOfAnAct, TellsOnceThatADraftCannotBeSavedAndKeepsWhatWasTyped)
{
    FrmActo& form = opened();
    cnBDP.execute("create table estudo_rascunho (outra text)");
    type(form, "txtNome_0", "Maria");
    control<TextBox>(form, "txtData").setFocus();
    type(form, "txtData", "14/2/1702");
    control<TextBox>(form, "txtLivro").setFocus();
    ASSERT_EQ(told.size(), 1);
    EXPECT_TRUE(told[0].startsWith("O rascunho do acto não pôde ser guardado: ")) << qPrintable(told[0]);
    EXPECT_EQ(textOf(form, "txtNome_0"), "Maria");
    says = false;
    EXPECT_FALSE(form.unload(Form::UnloadMode::ControlMenu));
    EXPECT_EQ(told.size(), 2);
    says = true;
    EXPECT_TRUE(form.unload(Form::UnloadMode::ControlMenu));
}

TEST_F(TheSheetOfAnAct, TakesOddTextsAsTheyAre)
{
    FrmActo& form = opened();
    type(form, "txtData", "14/2/1702");
    for (const QString& odd :
         {QString("D'Além \"x\" <b>y</b> & z"), QString(255, 'x'), QString("Zé; drop table individuo")})
    {
        type(form, "txtNome_0", odd);
        QTest::keyClick(&control<TextBox>(form, "txtNome_0"), Qt::Key_Return);
        QTest::keyClick(&control<TextBox>(form, "txtSexo_0"), Qt::Key_Return, Qt::ControlModifier);
        ASSERT_EQ(lastAct(cnBDP)->act.people.first().name.value, odd) << told.size();
        type(form, "txtData", "15");
    }
    EXPECT_EQ(people(), 3);
}

TEST_F(TheSheetOfAnAct, KeepsWhatWasTypedWhereTheStoreFails)
{
    FrmActo& form = opened();
    type(form, "txtData", "14/2/1702");
    type(form, "txtNome_0", "Maria");
    QTest::keyClick(&control<TextBox>(form, "txtNome_0"), Qt::Key_Return);
    cnBDP.execute("create table estudo_acto (outra text)");
    control<CommandButton>(form, "cmdGravar").click();
    ASSERT_EQ(told.size(), 1);
    EXPECT_TRUE(told[0].startsWith("Ocorreu o erro ")) << qPrintable(told[0]);
    EXPECT_EQ(people(), 0);
    EXPECT_EQ(textOf(form, "txtNome_0"), "Maria");
    ASSERT_TRUE(savedDraft(cnBDP));
    EXPECT_EQ(savedDraft(cnBDP)->act.people.first().name.value, "Maria");
}

TEST_F(TheSheetOfAnAct, WaitsForNoIndexOfTheNamesAndTakesNobodyBeforeItIsThere)
{
    static constexpr int many = 70000;
    cnBDP.beginTrans();
    for (int i = 1; i <= many; ++i)
        cnBDP.execute(jet::NativeSql("insert into individuo (nind, nome, sexo) values (?, ?, 'm')",
                                     {i, i == many ? QString("Urbano Vaz") : QString("Manuel Dias %1").arg(i % 100)}));
    cnBDP.commitTrans();
    FrmActo& form = opened();
    auto& name = control<TextBox>(form, "txtNome_0");
    const auto& list = control<ListBox>(form, "lstQuem");
    name.setFocus();
    name.insert("Urbano Vaz");
    EXPECT_EQ(list.count(), 0);
    QTest::keyClick(&name, Qt::Key_Return);
    EXPECT_TRUE(name.hasFocus()) << "nobody has been chosen";
    EXPECT_EQ(list.count(), 0);
    for (int i = 0; i < 200 && list.count() == 0; ++i) {
        Clock::pass(std::chrono::milliseconds(20));
        QCoreApplication::processEvents();
    }
    ASSERT_GT(list.count(), 0);
    bool found = false;
    for (int i = 0; i < list.count(); ++i)
        found = found || list.item(i)->text().contains("Urbano Vaz");
    EXPECT_TRUE(found);
}

} // namespace study
