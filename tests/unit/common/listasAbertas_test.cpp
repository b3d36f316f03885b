#include "common/listasAbertas.h"

#include "forms/house.h"

namespace {

class OpenLists : public House
{
protected:
    Form* card(const QString& nome, const QList<const char*>& categorias)
    {
        return make(nome, [categorias](TestForm& form) {
            for (const char* categoria : categorias)
                ListasAbertas::segueCodigos(form, *form.put<ComboBox>(categoria), categoria, [] { return false; });
        });
    }
    static QString categorias()
    {
        QStringList todas;
        for (const auto& lista : ListasAbertas::deCodigos())
            todas << lista.janela->name() + ' ' + lista.categoria;
        return todas.join(", ");
    }
};

} // namespace

TEST_F(OpenLists, StandInTheOrderInWhichTheyWereMadeKnown)
{
    card("frmB", {"Paren", "FunPa"});
    Form* a = card("frmA", {"ClaPa"});
    ListasAbertas::segueCodigos(*a, *a->findChild<ComboBox*>("ClaPa"), "Sacra");
    EXPECT_EQ(categorias(), "frmB Paren, frmB FunPa, frmA ClaPa, frmA Sacra");
    const auto listas = ListasAbertas::deCodigos();
    EXPECT_FALSE(listas[0].quando());
    EXPECT_EQ(listas[3].combo, a->findChild<ComboBox*>("ClaPa"));
    EXPECT_FALSE(listas[3].quando);
}

TEST_F(OpenLists, GoWithTheirWindow)
{
    Form* b = card("frmB", {"Paren"});
    card("frmA", {"ClaPa"});
    b->unload(); // its window still exists
    EXPECT_EQ(categorias(), "frmA ClaPa");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(categorias(), "frmA ClaPa");
    card("frmB", {"FunPa"});
    EXPECT_EQ(categorias(), "frmA ClaPa, frmB FunPa");
}

TEST_F(OpenLists, OfEachTableStandByThemselves)
{
    Form* a = card("frmA", {"ClaPa"});
    ComboBox& lista = *a->findChild<ComboBox*>("ClaPa");
    ListasAbertas::segueLocais(*a, lista);
    EXPECT_EQ(ListasAbertas::deLocais().size(), 1);
    EXPECT_EQ(ListasAbertas::deCodigos().size(), 1);
    EXPECT_TRUE(ListasAbertas::deProfissoes().isEmpty());
    ListasAbertas::segueProfissoes(*a, lista);
    EXPECT_EQ(ListasAbertas::deProfissoes().size(), 1);
}
