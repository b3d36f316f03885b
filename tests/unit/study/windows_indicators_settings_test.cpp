// The window of the settings of a study: what is kept, what is refused, how it is typed.
#include "study/indicatorsWindow.h"

#include "platform/jet/rows.h"
#include "study/indicators/settingsJson.h"
#include "study/windows/studySettingsText.h"

using namespace study;
using indicators::Settings;
using indicators::YearSpan;

namespace {

class TheWindowOfSettings : public TheWindowOfIndicators
{
protected:
    static FrmDefinicoes& form() { return theForm<FrmDefinicoes>(); }
    static TextBox& field(const char* name) { return control<TextBox>(form(), name); }
    static void click(const char* name) { control<CommandButton>(form(), name).click(); }
    static QString label(const char* name) { return control<QLabel>(form(), name).text(); }
    static Settings kept() { return indicators::keptSettings(cnBDP); }
};

TEST_F(TheWindowOfSettings, KeepsWhatIsSetAndShowsItAgain)
{
    form().display();
    EXPECT_TRUE(field("txtPeriodo_0").hasFocus());
    EXPECT_EQ(field("txtFalta").text(), "0");
    field("txtPeriodo_0").setText("1700");
    field("txtPeriodo_1").setText("1799");
    field("txtLivroDe_0").setText("1590");
    field("txtLivroAte_2").setText("1850");
    field("txtLacunas_2").setText("1810–1811; 1834");
    field("txtFalta").setText("12,5");
    field("txtAssina").setText("3");
    control<ComboBox>(form(), "cmbCoorte").setListIndex(1);
    control<ComboBox>(form(), "cmbSexo").setListIndex(2);
    control<ComboBox>(form(), "cmbCompleta").setListIndex(0);
    control<QCheckBox>(form(), "chkFreguesia").setChecked(false);
    control<QCheckBox>(form(), "chkAbertas").setChecked(true);
    click("cmdGravar");
    const Settings now = kept();
    EXPECT_EQ(now.period, (YearSpan{1700, 1799}));
    EXPECT_EQ(now.books[0], (YearSpan{1590, 0}));
    EXPECT_EQ(now.books[2], (YearSpan{0, 1850}));
    EXPECT_EQ(now.gaps[2], (std::vector<YearSpan>{{1810, 1811}, {1834, 1834}}));
    EXPECT_EQ(now.missingBirths, 0.125);
    EXPECT_EQ(now.signsFrom, 3);
    EXPECT_EQ(now.cohortYears, 25);
    EXPECT_EQ(now.gender, parish::Gender::Female);
    EXPECT_EQ(now.completeAge, 45);
    EXPECT_FALSE(now.localOnly);
    EXPECT_TRUE(now.openFamilies);
    EXPECT_TRUE(form().unload()) << "nothing is left to ask about";
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    form().display();
    EXPECT_EQ(field("txtLacunas_2").text(), "1810-1811; 1834");
    EXPECT_EQ(field("txtFalta").text(), "12,5");
    EXPECT_EQ(control<ComboBox>(form(), "cmbCoorte").text(), "25 anos");
    EXPECT_TRUE(control<QCheckBox>(form(), "chkAbertas").isChecked());
}

TEST_F(TheWindowOfSettings, RefusesWhatCantBeMeantAndLosesNothing)
{
    form().display();
    const auto refused = [](const char* name, const char* text) {
        const QString before = field(name).text();
        field("txtPeriodo_1").setText("1799");
        field(name).setText(text);
        const Answer ok("OK");
        click("cmdGravar");
        EXPECT_EQ(field(name).text(), text);
        EXPECT_EQ(field("txtPeriodo_1").text(), "1799");
        EXPECT_EQ(kept(), Settings());
        field(name).setText(before);
        return ok.text;
    };
    EXPECT_TRUE(refused("txtPeriodo_0", "1800").startsWith("O período tem de ser de um ano a outro"));
    EXPECT_TRUE(refused("txtPeriodo_0", "mil").startsWith("O período"));
    EXPECT_TRUE(refused("txtLivroDe_1", "0").startsWith("Os livros de casamentos"));
    EXPECT_TRUE(refused("txtLacunas_3", "1810 a 1811").startsWith("As lacunas dos livros de óbitos de menores"));
    EXPECT_TRUE(refused("txtFalta", "20,1").startsWith("A parte dos nascimentos"));
    EXPECT_TRUE(refused("txtAssina", "").startsWith("O nível"));
    EXPECT_TRUE(refused("txtSinal", "cruz").startsWith("O nível a partir do qual se faz cruz ou sinal"));
    EXPECT_TRUE(refused("txtBase", "dez").startsWith("O primeiro ano da base"));
    {
        const Answer yes("&Sim"), ok("OK");
        field("txtAssina").setText("x");
        EXPECT_FALSE(form().unload()) << "what can't be stored stays";
    }
    EXPECT_EQ(field("txtAssina").text(), "x");
    const Answer no("&Não");
    EXPECT_TRUE(form().unload());
    EXPECT_EQ(kept(), Settings());
}

TEST_F(TheWindowOfSettings, TakesTheWordsOfNotesAndCausesAndTheBaseOfAnIndex)
{
    form().display();
    field("txtSinal").setText("0");
    field("txtBase").setText("1750");
    field("txtNasceu").setText(" nasceu a;  n. ");
    field("txtBaptizado").setText("bapt.");
    for (const char* wrong : {"", "de tiro", "..."}) {
        field("txtCausa").setText(wrong);
        const Answer ok("OK");
        click("cmdCausa");
        EXPECT_EQ(ok.text, "Deve inserir o começo de uma só palavra, como \"tiro\"!") << wrong;
    }
    auto& causes = control<ListBox>(form(), "lstCausas");
    field("txtCausa").setText("tiro");
    control<ComboBox>(form(), "cmbCausa").setText("Acidente ou afogamento");
    click("cmdCausa");
    field("txtCausa").setText("ar");
    control<ComboBox>(form(), "cmbCausa").setText("Apoplexia (estupor)");
    click("cmdCausa");
    EXPECT_EQ(causes.list(0), "ar – Apoplexia (estupor)");
    EXPECT_EQ(causes.listIndex(), 0);
    click("cmdTirarCausa");
    click("cmdGravar");
    Settings set;
    set.marksFrom = 0;
    set.indexBase = 1750;
    set.birthWords = "nasceu a; n.";
    set.baptismWords = "bapt.";
    set.causes.insert("tiro", "acidente");
    EXPECT_EQ(kept(), set);
    EXPECT_TRUE(form().unload());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    form().display();
    EXPECT_EQ(field("txtNasceu").text(), "nasceu a; n.");
    EXPECT_EQ(control<ListBox>(form(), "lstCausas").list(0), "tiro – Acidente ou afogamento");
}

TEST_F(TheWindowOfSettings, KeepsWhatItsFieldsDoNotShowAsItIs)
{
    Settings set;
    set.gaps[0] = {{0, 0}, {1750, 1750}};
    set.missingBirths = 0.123456789;
    set.neighbours = QStringList{"999999"};
    set.filiations.insert(77, indicators::Legitimacy::Foundling);
    set.birthWords = " nasceu\na ";
    set.causes.insert("de tiro", "acidente");
    set.baptisms[parish::PersonNumber(1)] = {QDate(1700, 2, 14), QDate(1700, 2, 20)};
    indicators::keepSettings(cnBDP, set);
    execute("insert into estudo_ajuste values ('de_outra_versao', '7'), ('media_movel', '13')", {});
    form().display();
    EXPECT_EQ(label("lblLista"),
              "Lista de nascimentos e baptismos: 1 criança. Dá-se à BDP com \"orv-estudo baptismos\".");
    EXPECT_TRUE(form().unload()) << "nothing was typed";
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    form().display();
    field("txtSinal").setText("0");
    click("cmdGravar");
    set.marksFrom = 0;
    EXPECT_EQ(kept(), set);
    jet::Rows rows(cnBDP, jet::NativeSql("select group_concat(valor) from estudo_ajuste where chave in "
                                         "('de_outra_versao', 'media_movel')"));
    ASSERT_TRUE(rows.next());
    EXPECT_EQ(rows.text(0).split(',').size(), 2) << "what this version can't read is nobody's to change";
}

// Left standing, it would store in the next BDP what was typed for this one.
TEST_F(TheWindowOfSettings, GoesWithItsBdpAlsoWhereItCantStore)
{
    form().display();
    field("txtBase").setText("dez");
    {
        const Answer yes("&Sim"), ok("OK");
        EXPECT_FALSE(form().unload()) << "closed alone it stays";
    }
    const Answer yes("&Sim"), ok("OK");
    Forms::unloadAll();
    EXPECT_EQ(Forms::find(FrmDefinicoes::Name), nullptr);
    EXPECT_TRUE(ok.text.endsWith(" As definições que alterou não foram gravadas nesta BDP.")) << qPrintable(ok.text);
    EXPECT_EQ(kept(), Settings());
}

// A letter leads to one control alone: of those that are seen together none has that of another.
TEST_F(TheWindowOfSettings, GivesEachLetterOnce)
{
    for (const char* name : {FrmIndicadores::Name, FrmDefinicoes::Name}) {
        const Form& shown = *Forms::show(name);
        auto& pages = control<QTabWidget>(shown, "tabPaginas");
        for (int page = 0; page < pages.count(); ++page) {
            pages.setCurrentIndex(page);
            QStringList letters;
            const auto take = [&letters](const QString& text) {
                if (const auto key = QKeySequence::mnemonic(text); !key.isEmpty()) letters << key.toString();
            };
            for (int each = 0; each < pages.count(); ++each)
                take(pages.tabText(each));
            for (const auto* button : shown.findChildren<QAbstractButton*>())
                if (button->isVisibleTo(&shown)) take(button->text());
            for (const auto* each : shown.findChildren<QLabel*>())
                if (each->buddy() && each->isVisibleTo(&shown)) take(each->text());
            EXPECT_GT(letters.size(), 6) << name;
            letters.sort();
            QStringList once = letters;
            once.removeDuplicates();
            EXPECT_EQ(letters, once) << name << ' ' << page << ' ' << qPrintable(letters.join(' '));
        }
    }
}

TEST_F(TheWindowOfSettings, HasTheSubjectShownCountedAnew)
{
    choose(ageAtMarriage);
    EXPECT_EQ(grid().rows(), 3);
    form().display();
    field("txtPeriodo_0").setText("1750");
    click("cmdGravar");
    EXPECT_TRUE(TheWindowOfIndicators::form().isAtWork());
    ASSERT_TRUE(finishes());
    EXPECT_EQ(grid().rows(), 0);
    EXPECT_EQ(memo("txtNotas"), "sem dados");
    EXPECT_EQ(leftOut().textMatrix(rowOf(leftOut(), "fora do período"), 1), "12");
    EXPECT_FALSE(TheWindowOfIndicators::label("lblEstado").contains("mudou"))
        << "what is kept of the settings is no record";
    EXPECT_TRUE(memo("txtMetodo").contains("\r\nContado com definições alteradas: período dos acontecimentos.\r\n"))
        << qPrintable(memo("txtMetodo"));
}

TEST_F(TheWindowOfSettings, TakesNeighboursThatThereAreAndWhatFiliationsCountAs)
{
    execute("insert into paroquia (codparoquia, nomeparoquia) values ('030805', 'Briteiros')", {});
    execute("insert into infocomplementar (categoria, codigo, descricao) values ('Filia', '1', 'Legítima'), ('Filia', "
            "'17', 'Enjeitado')",
            {});
    form().display();
    field("txtCodigo").setText("999");
    {
        const Answer ok("OK");
        click("cmdAcrescentar");
        EXPECT_EQ(ok.text, "Não há freguesia com o código \"999\"!");
    }
    field("txtCodigo").setText("030805");
    click("cmdAcrescentar");
    EXPECT_EQ(control<ListBox>(form(), "lstVizinhas").list(0), "030805 – Briteiros");
    auto& codes = control<Grid>(form(), "dtgFiliacoes");
    ASSERT_EQ(codes.rows(), 3);
    EXPECT_EQ(codes.textMatrix(1, 2), "legítima");
    codes.setRow(2);
    EXPECT_EQ(codes.textMatrix(2, 2), "desconhecida");
    control<ComboBox>(form(), "cmbConta").setText("exposto");
    EXPECT_EQ(codes.textMatrix(2, 2), "exposto (alterado)");
    EXPECT_EQ(codes.row(), 2);
    click("cmdGravar");
    EXPECT_EQ(kept().neighbours, QStringList("030805"));
    EXPECT_EQ(kept().filiations, (QHash<int, indicators::Legitimacy>{{17, indicators::Legitimacy::Foundling}}));
    {
        const Answer yes("&Sim");
        click("cmdPadrao");
    }
    EXPECT_EQ(kept().neighbours.size(), 1) << "it isn't stored yet";
    click("cmdGravar");
    EXPECT_EQ(kept(), Settings());
}

TEST(TheTextsOfASetting, AreReadAsTheyAreShown)
{
    EXPECT_EQ(yearFrom(" "), 0);
    EXPECT_EQ(yearFrom(" 1750 "), 1750);
    for (const char* wrong : {"0", "-5", "17500", "17a", "1.750"})
        EXPECT_FALSE(yearFrom(wrong)) << wrong;
    EXPECT_EQ(spanFrom("", "1750"), (YearSpan{0, 1750}));
    EXPECT_EQ(spanFrom("1750", ""), (YearSpan{1750, 0}));
    EXPECT_FALSE(spanFrom("1751", "1750"));
    const std::vector<YearSpan> gaps{{1810, 1811}, {1834, 1834}, {1850, 0}};
    EXPECT_EQ(shownGaps(gaps), "1810-1811; 1834; 1850-");
    EXPECT_EQ(gapsFrom("1810-1811; 1834; 1850-"), gaps);
    EXPECT_EQ(gapsFrom(" ; "), std::vector<YearSpan>());
    for (const char* wrong : {"-", "1811-1810", "1810-1811-1812", "1810, 1811"})
        EXPECT_FALSE(gapsFrom(wrong)) << wrong;
    EXPECT_EQ(shareFrom("12,5"), 0.125);
    EXPECT_EQ(shareFrom(""), 0.0);
    EXPECT_EQ(shownShare(0.125), "12,5");
    for (const char* wrong : {"20,1", "-1", "dez", "1e1"})
        EXPECT_FALSE(shareFrom(wrong)) << wrong;
}

} // namespace
