// A parish read once, and checked by all rules. The bare side reads the same rows, and does nothing with them.
#include "measures/all.h"

#include "kit/stage.h"
#include "store/session.h"
#include "study/checks/check.h"

#include <optional>

namespace bench {

namespace {

using study::parish::Snapshot;

// All rows that a parish is made of.
void readAll(Bare& bare)
{
    for (const char* table :
         {"select * from individuo order by nind", "select * from familia order by nfamilia",
          "select * from familias order by nfamilia, nind", "select * from assistente order by entidade",
          "select * from residencia", "select * from profissoes", "select * from assinatura",
          "select * from legadosprofanos", "select * from rituaismorte", "select * from passaporte",
          "select * from infocomplementar", "select * from lugar", "select * from paroquia"})
        bare.run(table);
}

class Reading : public StagedSides
{
public:
    explicit Reading(int people) : StagedSides(people, Files::Shared) {}

    void prepare(int) override { parish_.reset(); }
    void ours(int) override { parish_.emplace(Snapshot::read(cnBDP)); }
    void bare(int) override { readAll(bareSide()); }

private:
    std::optional<Snapshot> parish_;
};

class Checking : public StagedSides
{
public:
    explicit Checking(int people) : StagedSides(people, Files::Shared) {}

    void ours(int) override { study::checks::Check::run(Snapshot::read(cnBDP)); }
    void bare(int) override { readAll(bareSide()); }
};

Goal within(double tenThousand, double hundredThousand)
{
    return {.flat = false, .ms = {{10'000, tenThousand}, {100'000, hundredThousand}}};
}

} // namespace

std::vector<Measure> checking()
{
    return {
        {.name = "parish-read",
         .event = "a parish read into arrays",
         .goal = within(200, 2000),
         .make = [](int people) { return std::make_unique<Reading>(people); },
         .turns = 3},
        {.name = "parish-check",
         .event = "a parish read and checked by all rules",
         .goal = within(500, 5000),
         .make = [](int people) { return std::make_unique<Checking>(people); },
         .turns = 3},
    };
}

} // namespace bench
