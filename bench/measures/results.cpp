// The list of what a search has found: from the click to the list on the screen, and from row to row.
#include "measures/all.h"

#include "control.h"
#include "individuals/frmInd.h"
#include "kit/bareWindow.h"
#include "kit/stage.h"
#include "measures/reads.h"
#include "platform/forms/forms.h"
#include "views/frmResult.h"

#include <QKeyEvent>

namespace bench {

namespace {

constexpr auto searched = "%Salgado%";

void beginSearch()
{
    if (Forms::find(FrmResult::Name))
        control<CommandButton>(frmResult(), "cmdFechar").click();
    else
        control<CommandButton>(frmInd(), "cmdLoc").click();
    control<TextBox>(frmInd(), "txtNome").setText(searched);
}

void search()
{
    control<CommandButton>(frmInd(), "cmdLoc").click();
    if (!Forms::find(FrmResult::Name)) qFatal("no list of results");
}

class List : public StagedSides
{
public:
    explicit List(int people) : StagedSides(people, Files::Shared) { frmInd().display(); }

    void prepare(int) override { beginSearch(); }
    void ours(int) override { search(); }

    void bare(int) override
    {
        Bare& engine = bareSide();
        window_.show(stage().area(), [](QWidget* form) {
            Ui::FrmResult ui;
            ui.setupUi(form);
        });
        engine.run("select rowid from individuo where nome like '%Salgado%' order by nome");
        const double shown = frmInd().numero().toDouble();
        readPerson(engine, shown);
        readTree(engine, shown);
        readFactsOf(engine, shown);
    }

    void finish(int) override { window_.close(); }

private:
    BareWindow window_;
};

class NextHit : public StagedSides
{
public:
    explicit NextHit(int people) : StagedSides(people, Files::Shared)
    {
        frmInd().display();
        beginSearch();
        search();
        list_ = &control<Grid>(frmResult(), "dtgProf");
    }

    void prepare(int) override
    {
        if (list_->row() + 1 >= list_->rows()) list_->setRow(1);
    }

    void ours(int) override
    {
        QKeyEvent down(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
        QCoreApplication::sendEvent(list_, &down);
    }

    void bare(int) override
    {
        Bare& engine = bareSide();
        const double shown = frmInd().numero().toDouble();
        readPerson(engine, shown);
        readTree(engine, shown);
        readFactsOf(engine, shown);
    }

private:
    Grid* list_;
};

} // namespace

std::vector<Measure> results()
{
    return {{"result-list",
             "search to the list of results",
             {2, false},
             [](int people) { return std::make_unique<List>(people); },
             15},
            {"next-hit", "next hit of the list", {.ratio = 2}, [](int people) {
                 return std::make_unique<NextHit>(people);
             }}};
}

} // namespace bench
