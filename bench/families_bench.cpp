// The family card, the list of what a search has found and its trees, each measure beside the same statements on a bare
// connection and the painting of what is visible.
#include "beside.h"
#include "people.h"

#include "common/globals.h"
#include "families/frmFam.h"
#include "individuals/frmInd.h"
#include "platform/forms/focus.h"
#include "platform/forms/forms.h"
#include "shell/startup.h"
#include "views/frmResult.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMainWindow>
#include <QMdiArea>

#include <algorithm>
#include <functional>

namespace {

// The document area of the program, with its forms, on a BDP with so many people.
class Stage
{
public:
    explicit Stage(int people, int searched = 0) : people_(people, searched)
    {
        Focus::install();
        auto* area = new QMdiArea;
        window_.setObjectName("frmORV");
        window_.setCentralWidget(area);
        window_.resize(1280, 800);
        Forms::setMainWindow(&window_, area);
        registerForms();
        window_.show();
    }
    ~Stage() { Forms::clear(); }

    void paintChanges() { QCoreApplication::processEvents(); }
    void paint()
    {
        for (QWidget* widget : window_.findChildren<QWidget*>())
            if (widget->isVisible()) widget->update();
        paintChanges();
    }

    void read(const QByteArray& select) { readAll(people_.bare(), select); }

    // The statements by which a card shows a family, its members and its children, that of the children in the wording
    // that suits the engine best.
    void readFamily(const QByteArray& number)
    {
        read("select rowid from familia where nfamilia = " + number);
        read("select * from familia where nfamilia = " + number);
        read("select * from familias where nfamilia = " + number);
        read("select descricao from infocomplementar where categoria = 'TipFa' and codigo = '7'");
        for (const int member : {number.toInt() * 2 - 1, number.toInt() * 2}) {
            const QByteArray nind = QByteArray::number(member);
            read("select sexo from individuo where nind = " + nind);
            read("select nome, sexo, datanasc, localnasc, tipolocalnasc, dataobito from individuo where nind = " +
                 nind);
        }
        read("select famorig, individuo.fimobs, individuo.nind, nome, datanasc, dataobito, min(datacasam) from "
             "individuo left join familias on individuo.nind = familias.nind left join familia on familia.nfamilia = "
             "familias.nfamilia where famorig = " +
             number +
             " group by famorig, individuo.nind, nome, individuo.fimobs, datanasc, dataobito order by datanasc");
    }

    void readIndividual(const QByteArray& number)
    {
        read("select * from individuo where nind = " + number);
        read("select descricao from infocomplementar where categoria = 'TipIn' and codigo = 'T'");
        read("select familia.nfamilia, tipocasal, sfamilia, datacasam from (familia inner join familias on "
             "familia.nfamilia = familias.nfamilia) where familias.nind = " +
             number + " order by datacasam asc");
        read("select codigo, descricao from infocomplementar where categoria = 'SitFa' and codigo = '1'");
    }

    // Of the parents and the grandparents: the families of origin halve the numbers.
    void readTree(int number)
    {
        const int parents = number / 4;
        for (const int family : {parents, (2 * parents - 1) / 4, 2 * parents / 4})
            read("select familia.nfamilia, individuo.nome, individuo.sexo, datanasc, localnasc, tipolocalnasc, "
                 "dataobito, individuo.inicioobs, individuo.fimobs, individuo.famorig from individuo inner join "
                 "(familia inner join familias on familia.nfamilia = familias.nfamilia) on individuo.nind = "
                 "familias.nind where familias.nfamilia = " +
                 QByteArray::number(family) + " order by individuo.sexo desc");
    }

    // Searches so that the list of results is up.
    void searchNames()
    {
        if (Forms::find(FrmResult::Name))
            frmResult().cmdFechar->click();
        else if (frmInd().cmdLoc->text() != "conf&Irmar")
            frmInd().cmdLoc->click();
        frmInd().txtNome->setText("%Assunção%");
        frmInd().cmdLoc->click();
        if (!Forms::find(FrmResult::Name)) std::abort(); // a measure of nothing
    }

    void readNames()
    {
        read("select individuo.nind as Nind, nome, datanasc, dataobito, famorig from individuo where individuo.nome "
             "like '%Assunção%' order by nome");
    }

private:
    People people_;
    QMainWindow window_;
};

int peopleOf(const benchmark::State& state)
{
    return static_cast<int>(state.range(0));
}

int hitsOf(const benchmark::State& state)
{
    return std::min(peopleOf(state), 100'000);
}

void ShowingTheNextFamily(benchmark::State& state)
{
    Stage stage(peopleOf(state));
    FrmFam& card = frmFam();
    card.display();
    stage.paintChanges();
    compare(
        state,
        [&] {
            jet::Recordset& families = card.adoFam.recordset();
            if (families.absolutePosition() == families.recordCount()) card.cmdPrim->click();
            card.cmdSeg->click();
            stage.paintChanges();
        },
        [&] {
            stage.readFamily(card.txtNFam->text().toUtf8());
            stage.paint();
        });
}

// From the search to the list on the screen, its first row on the card.
void ShowingAResultList(benchmark::State& state)
{
    Stage stage(peopleOf(state), hitsOf(state));
    frmInd().display();
    stage.paintChanges();
    compare(
        state,
        [&] {
            stage.searchNames();
            stage.paintChanges();
        },
        [&] {
            stage.readNames();
            stage.readIndividual(frmInd().txtNind->text().toUtf8());
            stage.readTree(frmInd().txtNind->text().toInt());
            stage.paint();
        });
    state.counters["rows"] = frmResult().dtgProf->rows() - 1;
}

void PickingARowOfTheResults(benchmark::State& state)
{
    Stage stage(peopleOf(state), hitsOf(state));
    frmInd().display();
    stage.searchNames();
    stage.paintChanges();
    Grid* const grid = frmResult().dtgProf;
    compare(
        state,
        [&] {
            if (grid->row() + 1 == grid->rows()) grid->setRow(1);
            QKeyEvent down(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
            QCoreApplication::sendEvent(grid, &down);
            stage.paintChanges();
        },
        [&] {
            const QByteArray number = frmInd().txtNind->text().toUtf8();
            stage.readTree(number.toInt());
            stage.read("select dataref, profissao from profissoes, profissao where profissao.codprof = "
                       "profissoes.codprof and nind = " +
                       number + " order by dataref");
            stage.readIndividual(number);
            stage.paint();
        });
}

void DrawingTheTreeOfARow(benchmark::State& state)
{
    Stage stage(peopleOf(state), hitsOf(state));
    frmInd().display();
    stage.searchNames();
    FrmResult& results = frmResult();
    results.dtgProf->setRow(results.dtgProf->rows() - 1);
    stage.paintChanges();
    compare(
        state,
        [&] {
            results.PreencheArvore();
            stage.paintChanges();
        },
        [&] {
            stage.readTree(frmInd().txtNind->text().toInt());
            results.tvw->doItemsLayout(); // new texts are measured before they are painted
            results.tvw->viewport()->repaint();
        });
}

void sizes(benchmark::internal::Benchmark* measure)
{
    measure->Arg(1000)->Arg(100'000)->Arg(1'000'000)->UseManualTime()->Unit(benchmark::kMicrosecond);
}
BENCHMARK(ShowingTheNextFamily)->Apply(sizes);
BENCHMARK(ShowingAResultList)->Apply(sizes);
BENCHMARK(PickingARowOfTheResults)->Apply(sizes);
BENCHMARK(DrawingTheTreeOfARow)->Apply(sizes);

} // namespace
