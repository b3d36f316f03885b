// The family card, the list of what a search has found and its trees, each measure beside the same statements on a bare
// connection and the painting of what is visible.
#include "beside.h"
#include "stage.h"

#include "families/frmFam.h"
#include "individuals/frmInd.h"
#include "views/frmResult.h"

#include <QCoreApplication>
#include <QKeyEvent>

#include <algorithm>
#include <functional>

namespace {

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
