// Places on the cards and in their windows.
#include "measures/all.h"

#include "control.h"
#include "individuals/frmInd.h"
#include "kit/stage.h"
#include "measures/reads.h"
#include "parish/parish.h"
#include "places/frmLocalizacao.h"
#include "places/frmLugares.h"
#include "platform/forms/forms.h"
#include "store/session.h"

namespace bench {

namespace {

constexpr int pages = 500;

// A walk over people of whom each is born in another place that is on no list: each adds one.
class Walk : public StagedSides
{
public:
    explicit Walk(int people) : StagedSides(people, Files::Own)
    {
        const QByteArray scatter = QByteArray("update individuo set tipolocalnasc = 'L', localnasc = '") + parishCode +
                                   "' || substr(1000 + nind % " + QByteArray::number(localities) +
                                   " + 1, 2) where nind <= 600";
        bareSide().execute(scatter);
        Bare(cnBDP.dataSource()).execute(scatter);
        frmInd().display();
    }

    void ours(int) override { control<CommandButton>(frmInd(), "cmdSeg").click(); }

    void bare(int) override
    {
        ++number_;
        readPerson(bareSide(), number_);
        readPlace(bareSide(), number_);
    }

private:
    int number_ = 1;
};

// The editor of the localities of a parish that has hundreds of them: opened from the picker, asked for the next code,
// and left.
class Editor : public StagedSides
{
public:
    explicit Editor(int people) : StagedSides(people, Files::Shared) { pedeLocal({}); }

    void ours(int) override
    {
        control<CommandButton>(frmLocalizacao(), "cmdLug").click();
        Form& form = *Forms::find(FrmLugares::Name);
        control<CommandButton>(form, "cmdIns").click();
        control<CommandButton>(form, "cmdAlt").click();
        control<CommandButton>(form, "cmdSair").click();
    }

    void bare(int) override
    {
        bareSide().run("select codlugar, nomelugar, prioridade from lugar where codparoquia = '030101' order by "
                       "codlugar");
    }
};

} // namespace

std::vector<Measure> places()
{
    return {{"walk-places",
             "walk over 500 people of 500 places, a step",
             {.ratio = 2, .drift = 1.2},
             [](int people) { return std::make_unique<Walk>(people); },
             pages},
            {.name = "editor-places",
             .event = "visit to the editor of 600 localities",
             .make = [](int people) { return std::make_unique<Editor>(people); },
             .turns = 15}};
}

} // namespace bench
