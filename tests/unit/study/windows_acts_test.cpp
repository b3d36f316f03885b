// The window that lists the acts of the BDP.
#include "study/windows/frmActos.h"

#include "control.h"
#include "jet/counted.h"
#include "store/parish.h"
#include "study/acts/writer.h"

using namespace study;

namespace {

class TheWindowOfActs : public Parish
{
protected:
    TheWindowOfActs()
    {
        Forms::add(FrmActos::Name, [] { return new FrmActos; });
    }

    // A baptism of that number with only a name in it.
    static qint64 keep(const QString& number, const QString& child, const QString& book = "3")
    {
        const Act act{
            .date = {.year = 1702, .month = 2, .day = 14},
            .book = book,
            .number = number,
            .people = {{.role = Role::Child, .name = {child}}, {.role = Role::Godfather, .name = {"Luís Pires"}}}};
        const Identity apart{.kind = Identity::Kind::Kept};
        return addAct(cnBDP, act, {.people = {apart, apart}}, {.people = {0, 0}});
    }

    static FrmActos& shown() { return static_cast<FrmActos&>(*Forms::show(FrmActos::Name)); }
    static Grid& grid() { return control<Grid>(shown(), "dtgActos"); }
    static QString total() { return control<QLabel>(shown(), "lblTotal").text(); }
    static void type(const QString& name) { control<TextBox>(shown(), "txtNome").setText(name); }
    static QStringList names()
    {
        QStringList all;
        for (int row = 1; row < grid().rows(); ++row)
            all << grid().textMatrix(row, 5);
        return all;
    }
};

TEST_F(TheWindowOfActs, SaysSoWhereThereAreNone)
{
    EXPECT_EQ(grid().rows(), 0);
    EXPECT_EQ(total(), "Ainda não há actos transcritos.");
    for (const char* command : {"cmdAbrir", "cmdDesfazer", "cmdExportar"})
        EXPECT_FALSE(control<CommandButton>(shown(), command).isEnabled()) << command;
}

TEST_F(TheWindowOfActs, KeepsTheActChosenWhereOthersComeBeforeIt)
{
    keep("7", "Maria");
    keep("9", "José");
    shown();
    EXPECT_EQ(names(), QStringList({"Maria", "falta o n.º 8", "José"}));
    grid().setRow(3);
    keep("2", "Ana");
    FrmActos::showStoredIfOpen();
    EXPECT_EQ(names(), QStringList({"Ana", "faltam os n.os 3 a 6", "Maria", "falta o n.º 8", "José"}));
    EXPECT_EQ(grid().row(), 5);
    EXPECT_EQ(total(), "3 actos, 5 números em falta");
    const auto gone = listActs(cnBDP).last().id;
    removeAct(cnBDP, gone);
    FrmActos::showStoredIfOpen();
    EXPECT_EQ(grid().row(), 3) << "the last one that is left";
}

TEST_F(TheWindowOfActs, IsReadAnewWhenItComesToTheFront)
{
    keep("7", "Maria");
    shown();
    Form* other = make("frmOutro");
    other->display();
    keep("8", "José");
    EXPECT_EQ(control<Grid>(*Forms::find(FrmActos::Name), "dtgActos").rows(), 2);
    EXPECT_EQ(names(), QStringList({"Maria", "José"}));
}

TEST_F(TheWindowOfActs, FindsAnActByTheNameOfAnybodyInIt)
{
    keep("7", "Maria");
    keep("8", "Inês");
    shown();
    type("ines");
    EXPECT_EQ(names(), QStringList({"Inês"}));
    EXPECT_EQ(total(), "1 acto");
    type("pires luis");
    EXPECT_EQ(names(), QStringList({"Maria", "Inês"}));
    type("'%");
    EXPECT_EQ(names(), QStringList({"Maria", "Inês"}));
    type("x");
    EXPECT_EQ(grid().rows(), 0);
    EXPECT_EQ(total(), "0 actos");
    EXPECT_FALSE(control<CommandButton>(shown(), "cmdExportar").isEnabled());
    type("");
    EXPECT_EQ(names(), QStringList({"Maria", "Inês"}));
}

TEST_F(TheWindowOfActs, OffersTheBooksOfTheKindAndKeepsTheOneChosen)
{
    keep("7", "Maria", "3");
    keep("1", "José", "4");
    keep("1", "Rui", "");
    shown();
    auto& books = control<ComboBox>(shown(), "cmbLivro");
    EXPECT_EQ(books.count(), 4);
    EXPECT_EQ(books.list(1), "(sem livro)");
    books.setText("4");
    EXPECT_EQ(names(), QStringList({"José"}));
    keep("2", "Eva", "5");
    FrmActos::showStoredIfOpen();
    EXPECT_EQ(books.text(), "4");
    EXPECT_EQ(names(), QStringList({"José"}));
    control<ComboBox>(shown(), "cmbTipo").setText("Óbitos");
    EXPECT_EQ(books.text(), "Todos");
    EXPECT_EQ(grid().rows(), 0);
}

TEST_F(TheWindowOfActs, OffersNothingOnAGap)
{
    keep("7", "Maria");
    keep("9", "José");
    shown();
    EXPECT_TRUE(control<CommandButton>(shown(), "cmdAbrir").isEnabled());
    grid().setRow(2);
    EXPECT_FALSE(control<CommandButton>(shown(), "cmdAbrir").isEnabled());
    EXPECT_FALSE(control<CommandButton>(shown(), "cmdDesfazer").isEnabled());
    EXPECT_TRUE(control<CommandButton>(shown(), "cmdExportar").isEnabled());
}

TEST_F(TheWindowOfActs, TellsWhereTheActHasGoneMeanwhile)
{
    const qint64 id = keep("7", "Maria");
    shown();
    removeAct(cnBDP, id);
    const Answer ok("OK");
    control<CommandButton>(shown(), "cmdDesfazer").click();
    EXPECT_EQ(ok.text, "O acto não foi desfeito. Este acto já não está na BDP.");
    EXPECT_EQ(grid().rows(), 0);
    EXPECT_EQ(total(), "Ainda não há actos transcritos.");
}

// What opening the list and seeking a name in it cost in a parish of so many acts, each of a child and a godfather.
struct Cost
{
    qint64 rows = 0, steps = 0;
};

TEST_F(TheWindowOfActs, ReadsEachActOnceAndNoneWhileANameIsTypedOn)
{
    int stored = 0;
    const auto costWith = [&](int acts) {
        cnBDP.beginTrans();
        while (stored < acts) {
            ++stored;
            keep(QString::number(2 * stored), stored % 100 ? "Maria" : "Inês", QString::number(stored % 7));
        }
        cnBDP.commitTrans();
        if (Form* open = Forms::find(FrmActos::Name)) open->unload();
        const jet::test::Counted opening(cnBDP.handle());
        shown();
        return Cost{opening.rows(), opening.steps()};
    };
    const Cost few = costWith(500), many = costWith(1000);
    EXPECT_EQ(many.rows - few.rows, 2 * 500) << "of an act its line and whom it is about";
    EXPECT_LT(many.steps, 3 * few.steps);
    {
        const jet::test::Counted first(cnBDP.handle());
        type("ines");
        EXPECT_LE(first.rows(), 2 * 1000 + 10) << "each person of each act";
    }
    const jet::test::Counted next(cnBDP.handle());
    type("ines p");
    type("");
    type("maria");
    type("ines p");
    EXPECT_EQ(next.rows(), 0);
    EXPECT_EQ(next.steps(), 0);
    EXPECT_EQ(names().size(), 10);
}

} // namespace
