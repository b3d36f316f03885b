// The family card, the list of what a search has found and its trees, each measure beside the same statements on a bare
// connection and the painting of what is visible.
#include "beside.h"
#include "stage.h"

#include "control.h"
#include "families/frmFam.h"
#include "individuals/frmInd.h"
#include "views/frmResult.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QTreeWidget>

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
    frmFam().display();
    stage.paintChanges();
    auto &first = control<CommandButton>(frmFam(), "cmdPrim"), &next = control<CommandButton>(frmFam(), "cmdSeg");
    const auto &position = control<QLabel>(frmFam(), "lblFam"), &total = control<QLabel>(frmFam(), "lblTotal");
    compare(
        state,
        [&] {
            if (position.text() == total.text()) first.click();
            next.click();
            stage.paintChanges();
        },
        [&] {
            stage.readFamily(frmFam().numero().toUtf8());
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
            stage.readIndividual(frmInd().numero().toUtf8());
            stage.readTree(frmInd().numero().toInt());
            stage.paint();
        });
    state.counters["rows"] = control<Grid>(frmResult(), "dtgProf").rows() - 1;
}

void PickingARowOfTheResults(benchmark::State& state)
{
    Stage stage(peopleOf(state), hitsOf(state));
    frmInd().display();
    stage.searchNames();
    stage.paintChanges();
    Grid* const grid = &control<Grid>(frmResult(), "dtgProf");
    compare(
        state,
        [&] {
            if (grid->row() + 1 == grid->rows()) grid->setRow(1);
            QKeyEvent down(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
            QCoreApplication::sendEvent(grid, &down);
            stage.paintChanges();
        },
        [&] {
            const QByteArray number = frmInd().numero().toUtf8();
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
    auto& grid = control<Grid>(frmResult(), "dtgProf");
    grid.setRow(grid.rows() - 1);
    auto& tree = control<QTreeWidget>(frmResult(), "tvw");
    stage.paintChanges();
    compare(
        state,
        [&] {
            frmResult().desenhaArvore();
            stage.paintChanges();
        },
        [&] {
            stage.readTree(frmInd().numero().toInt());
            tree.doItemsLayout(); // new texts are measured before they are painted
            tree.viewport()->repaint();
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
