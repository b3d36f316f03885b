#include "places/frmLocalizacao.h"

#include "common/emptybdp.h"
#include "common/listasAbertas.h"
#include "common/pedidoDeLocal.h"
#include "forms/house.h"
#include "individuals/pedido.h"
#include "places/frmPesq.h"
#include "shell/beginSession.h"

#include <QHeaderView>
#include <QMdiSubWindow>
#include <QTreeWidget>

namespace {

// The picker over a small BDP, with stand-ins for the cards that call it.
class Picker : public House
{
protected:
    Picker()
    {
        for (const char* instrucao :
             {"create table pais (codpais varchar, nomepais varchar, prioridade long)",
              "create table zonapais (codzona varchar, nomezona varchar, codpais varchar, prioridade long)",
              "create table distrito (coddistrito varchar, nomedistrito varchar, prioridade long)",
              "create table concelho (codconcelho varchar, nomeconcelho varchar, coddistrito varchar, prioridade long)",
              "create table paroquia (codparoquia varchar, nomeparoquia varchar, codconcelho varchar, prioridade long)",
              "create table lugar (codlugar varchar, nomelugar varchar, codparoquia varchar, prioridade long)",
              "create table sitio (codsitio varchar, nomesitio varchar, codlugar varchar, prioridade long)",
              "insert into pais values ('01', 'Espanha', 0)", "insert into pais values ('PT', 'Portugal', 0)",
              "insert into zonapais values ('011', 'Galiza', '01', 0)",
              "insert into distrito values ('03', 'Braga', 0)",
              "insert into concelho values ('0303', 'Braga', '03', 1)",
              "insert into paroquia values ('030303', 'São Mamede', '0303', 2)",
              "insert into lugar values ('03030301', 'Outeiro', '030303', 0)",
              "insert into sitio values ('0303030101', 'Fonte', '03030301', 0)"})
            cnBDP.execute(instrucao);
        CodParoquia = "030303";
        Forms::add(FrmLocalizacao::Name, [] { return new FrmLocalizacao; });
    }
    ~Picker() override
    {
        CodParoquia.clear();
        beginSession();
    }

    Form* card(const QString& nome, const QList<const char*>& combos)
    {
        return make(nome, [combos](TestForm& form) {
            for (const char* combo : combos)
                ListasAbertas::segueLocais(form, *form.put<ComboBox>(combo));
        });
    }
    static ComboBox& combo(const Form* form, const QString& nome) { return *form->findChild<ComboBox*>(nome); }

    static void ask(OrigemLoc origem, Form* caller, const QString& list = "cmbLoc")
    {
        pedeLocal(paraLista(origem, *caller, combo(caller, list)));
    }

    template <class Control>
    static Control& control(const char* nome)
    {
        return *frmLocalizacao().findChild<Control*>(nome);
    }
    static ComboBox& list(const char* nome) { return control<ComboBox>(nome); }
    static void click(const char* nome) { control<CommandButton>(nome).click(); }

    EmptyBdp bdp;
};

TEST_F(Picker, HandsThePlaceToTheListOfItsCaller)
{
    const struct
    {
        OrigemLoc origem;
        const char* cartao;
        const char* combo;
    } pedidos[] = {{OrigemLoc::Nascimento, "frmInd", "cmbLoc"},
                   {OrigemLoc::Obito, "frmInd", "cmbLocObito"},
                   {OrigemLoc::Casamento, "frmFam", "cmbLoc"},
                   {OrigemLoc::Residencia, "frmResid", "cmbLoc"},
                   {OrigemLoc::Passaporte, "frmPass", "cmbDados_1"}};
    card("frmInd", {"cmbLoc", "cmbLocObito"});
    card("frmFam", {"cmbLoc"});
    card("frmResid", {"cmbLoc"});
    card("frmPass", {"cmbDados_1"});
    for (const auto& pedido : pedidos) {
        Form* cartao = Forms::find(pedido.cartao);
        ask(pedido.origem, cartao, pedido.combo);
        EXPECT_FALSE(cartao->isEnabled());
        click("cmdAtribuir");
        EXPECT_EQ(combo(cartao, pedido.combo).text(), "São Mamede -F- 030303");
        EXPECT_EQ(combo(cartao, pedido.combo).count(), 3);
        EXPECT_TRUE(cartao->isEnabled());
        EXPECT_FALSE(Forms::isLoaded("frmLocalizacao"));
    }
}

TEST_F(Picker, RefillsOnlyItsCallerWithAPlaceAndAllCardsOnClosing)
{
    Form* familia = card("frmFam", {"cmbLoc"});
    Form* residencias = card("frmResid", {"cmbLoc"});
    combo(familia, "cmbLoc").add("antes");
    ask(OrigemLoc::Residencia, residencias);
    click("cmdAtribuir");
    EXPECT_EQ(combo(familia, "cmbLoc").count(), 1);
    ask(OrigemLoc::Residencia, residencias);
    click("cmdSair");
    EXPECT_EQ(combo(familia, "cmbLoc").count(), 3);
    EXPECT_EQ(combo(familia, "cmbLoc").list(0), " ");
    EXPECT_EQ(combo(residencias, "cmbLoc").listIndex(), -1);
}

TEST_F(Picker, EnablesNobodyButThoseWhoAsked)
{
    Form* familia = card("frmFam", {"cmbLoc"});
    Form* residencias = card("frmResid", {"cmbLoc"});
    familia->setEnabled(false); // it waits for frmResid
    ask(OrigemLoc::Residencia, residencias);
    pedeLocal({}); // the menu asks as well
    click("cmdSair");
    EXPECT_TRUE(residencias->isEnabled());
    EXPECT_FALSE(familia->isEnabled());
}

TEST_F(Picker, HidesTheFormThatAsksForTheParishOfTheBdp)
{
    Form* inicio = card("frmIni", {});
    inicio->display();
    QString paroquia;
    pedeLocal({OrigemLoc::BDP, inicio, [&](const QString& nome, const Local&) { paroquia = nome; }});
    EXPECT_FALSE(inicio->isShown());
    EXPECT_TRUE(inicio->isEnabled());
    EXPECT_FALSE(list("cmbLugar").isEnabled());
    click("cmdAtribuir");
    EXPECT_EQ(paroquia, "São Mamede");
    EXPECT_TRUE(inicio->isShown());
}

TEST_F(Picker, ServesNobodyWhereTheFormThatAskedHasGone)
{
    Form* residencias = card("frmResid", {"cmbLoc"});
    ask(OrigemLoc::Residencia, residencias);
    residencias->unload();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    click("cmdAtribuir");
    EXPECT_FALSE(Forms::isLoaded("frmLocalizacao"));
    EXPECT_TRUE(ListasAbertas::deLocais().isEmpty());
}

TEST_F(Picker, TouchesNoOtherFormWhenAllAreUnloaded)
{
    Form* familia = card("frmFam", {"cmbLoc"});
    ask(OrigemLoc::Casamento, familia);
    static_cast<TestForm*>(familia)->onQuery = [](Form::UnloadMode) { return false; };
    Forms::unloadAll();
    EXPECT_FALSE(Forms::isLoaded("frmLocalizacao"));
    EXPECT_FALSE(familia->isEnabled());
}

TEST_F(Picker, LeavesLocalitiesAndSitesOutForTheFuneralsPriest)
{
    pedeLocal({});
    list("cmbLugar").setText("Outeiro");
    list("cmbS").setText("Fonte");
    chamada().comeca({.origem = OrigemInd::PadreDoFuneral, .espera = false});
    Answer already("OK");
    click("cmdGuardar");
    EXPECT_EQ(control<ListBox>("lstLocal").listCount(), 2); // the parish is on the list already
    chamada().desiste();
    click("cmdGuardar");
    EXPECT_EQ(control<ListBox>("lstLocal").list(2), "Fonte -S- 0303030101");
}

TEST_F(Picker, OpensAnEditorUnderTheNameOfItsPlaceAndWaitsForIt)
{
    pedeLocal({});
    click("cmdLug");
    click("cmdLoc");
    EXPECT_TRUE(frmLocalizacao().isEnabled()); // there is no such form

    const auto caption = [](const QString& editor) {
        EXPECT_FALSE(frmLocalizacao().isEnabled());
        frmLocalizacao().setEnabled(true);
        return Forms::find(editor)->caption();
    };
    for (const char* editor : {"frmZona", "frmLugares", "frmSitios", "frmPesq"})
        make(editor);
    click("cmdLug");
    EXPECT_EQ(caption("frmLugares"), "Localidades de São Mamede");
    list("cmbLugar").setText("Outeiro");
    click("cmdSit");
    EXPECT_EQ(caption("frmSitios"), "Sítios de Outeiro");
    list("cmbPais").setText("01 - Espanha");
    click("cmdZ");
    EXPECT_EQ(caption("frmZona"), "Zonas de 01 - Espanha");
    click("cmdLoc");
    EXPECT_FALSE(frmLocalizacao().isEnabled());
}

TEST_F(Picker, OpensTheSearchBesideItself)
{
    Forms::add(FrmPesq::Name, [] { return new FrmPesq; });
    window.resize(1600, 900);
    pedeLocal({});
    frmLocalizacao().parentWidget()->setGeometry(10, 20, 500, 400);
    click("cmdLoc");
    const QRect search = Forms::find(FrmPesq::Name)->parentWidget()->geometry();
    EXPECT_FALSE(search.intersects(frmLocalizacao().parentWidget()->geometry()));
    EXPECT_TRUE(area->viewport()->rect().contains(search));
}

TEST_F(Picker, TellsThePlacesAboveOneThatWasFound)
{
    Forms::add(FrmPesq::Name, [] { return new FrmPesq; });
    pedeLocal({});
    click("cmdLoc");
    auto& pesquisa = theForm<FrmPesq>();
    const auto chain = [&](const char* nome) {
        pesquisa.findChild<TextBox*>("txtSeq")->setText(nome);
        pesquisa.findChild<CommandButton*>("cmdLoc")->click();
        const auto* list = pesquisa.findChild<QTreeWidget*>("LV");
        return list->topLevelItem(list->topLevelItemCount() - 1)->toolTip(0);
    };
    EXPECT_EQ(chain("Fonte"), "Outeiro, São Mamede, Braga, Braga");
    EXPECT_EQ(chain("São Mamede"), "Braga, Braga");
    EXPECT_EQ(chain("Galiza"), "Espanha");
    EXPECT_EQ(chain("Espanha"), "");
}

TEST_F(Picker, CanBeSetByTheProgramWhileItIsDisabled)
{
    pedeLocal({});
    frmLocalizacao().setEnabled(false);
    list("cmbPais").setText("01 - Espanha");
    EXPECT_EQ(list("cmbZona").count(), 2);
    EXPECT_EQ(list("cmbDistrito").count(), 0);
}

} // namespace

TEST_F(Picker, TheColumnsOfTheSearchFollowTheFont)
{
    const QFont before = QApplication::font();
    QFont large = before;
    large.setPointSizeF(2 * before.pointSizeF());
    QApplication::setFont(large);
    const FrmPesq pesquisa;
    const auto* lista = pesquisa.findChild<QTreeWidget*>("LV");
    EXPECT_GT(lista->header()->sectionSize(1), lista->fontMetrics().horizontalAdvance("Concelho") + 8);
    QApplication::setFont(before);
}
