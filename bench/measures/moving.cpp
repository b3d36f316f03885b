// From a card to the next one, and to a number.
#include "measures/all.h"

#include "control.h"
#include "families/frmFam.h"
#include "individuals/frmInd.h"
#include "kit/stage.h"
#include "measures/reads.h"
#include "store/session.h"

namespace bench {

namespace {

class NextPerson : public StagedSides
{
public:
    explicit NextPerson(int people) : StagedSides(people, Files::Shared), number_(people / 2)
    {
        frmInd().display();
        frmInd().procuraRegisto("nind = " + QString::number(number_));
    }

    void ours(int) override { control<CommandButton>(frmInd(), "cmdSeg").click(); }
    void bare(int) override { readPerson(bareSide(), ++number_); }

private:
    int number_;
};

class NextFamily : public StagedSides
{
public:
    explicit NextFamily(int people)
        : StagedSides(people, Files::Shared), number_(static_cast<int>(lastFamily(bareSide())) / 2)
    {
        frmFam().display();
        frmFam().procuraRegisto("nfamilia = " + QString::number(number_));
    }

    void ours(int) override { control<CommandButton>(frmFam(), "cmdSeg").click(); }
    void bare(int) override { readFamily(bareSide(), ++number_); }

private:
    int number_;
};

// A number far back in the list of all people, which the card looks for whenever it is sent to somebody.
class Find : public StagedSides
{
public:
    static constexpr int times = 200;

    explicit Find(int people)
        : StagedSides(people, Files::Shared), number_(people * 9 / 10),
          criterion_("nind = " + QString::number(number_)), list_(cnBDP, "select nind from individuo order by nind")
    {
    }

    void ours(int) override
    {
        for (int i = 0; i < times; ++i) {
            list_.moveFirst();
            list_.find(criterion_);
        }
    }

    void bare(int) override
    {
        for (int i = 0; i < times; ++i)
            bareSide().run("select rowid from individuo where nind = ?", {double(number_)});
    }

private:
    int number_;
    QString criterion_;
    jet::Recordset list_;
};

} // namespace

std::vector<Measure> moving()
{
    return {
        {"next-person", "next person", {.ratio = 2}, [](int people) { return std::make_unique<NextPerson>(people); }},
        {"next-family", "next family", {.ratio = 2}, [](int people) { return std::make_unique<NextFamily>(people); }},
        {.name = "find",
         .event = "a number found on the list of all people",
         .goal = {.ms = {{0, 0.001}}},
         .make = [](int people) { return std::make_unique<Find>(people); },
         .times = Find::times}};
}

} // namespace bench
