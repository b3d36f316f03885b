// The change of the card to the mode of an edit and back: no row is read.
#include "measures/all.h"

#include "families/frmFam.h"
#include "individuals/frmInd.h"
#include "kit/stage.h"

namespace bench {

namespace {

class Modes : public StagedSides
{
public:
    Modes(int people, Ficha& (*card)()) : StagedSides(people, Files::Shared), card_(card) { card_().display(); }

    int steps() const override { return 2; }
    void ours(int step) override { card_().AplicarModo(step == 0 ? Modo::Edi : Modo::Cons); }
    void bare(int) override {}

private:
    Ficha& (*card_)();
};

Ficha& personCard()
{
    return frmInd();
}

Ficha& familyCard()
{
    return frmFam();
}

} // namespace

std::vector<Measure> modes()
{
    const Goal goal{.ratio = 2, .ms = {{0, 5}}, .keptKb = 0.1};
    constexpr int turns = 200; // in the first hundred, the toolkit fills what it keeps of pictures and letters
    return {{"mode-person", "a pair of changes of mode, person", goal,
             [](int people) { return std::make_unique<Modes>(people, personCard); }, turns},
            {"mode-family", "a pair of changes of mode, family", goal,
             [](int people) { return std::make_unique<Modes>(people, familyCard); }, turns}};
}

} // namespace bench
