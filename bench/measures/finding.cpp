// The finder of people: what is asked while an act is transcribed, and how its index follows the BDP. The bare side
// looks names up by their beginning, which finds no other spelling and tells nobody apart.
#include "measures/all.h"

#include "kit/stage.h"
#include "platform/desktop/desktop.h"
#include "store/session.h"
#include "study/people/finder.h"

#include <optional>

namespace bench {

namespace {

using study::Role;

constexpr int middle = 1750; // the parishes reach from 1580 to 1879

study::Act baptism(const char* father, const char* mother)
{
    study::Act act{.kind = study::ActKind::Baptism, .date = study::partialDate(QDate(middle, 3, 5))};
    act.people = {{.role = Role::Child, .name = {"Maria"}},
                  {.role = Role::Father, .of = 0, .name = {QString::fromUtf8(father)}},
                  {.role = Role::Mother, .of = 0, .name = {QString::fromUtf8(mother)}},
                  {.role = Role::Godfather, .name = {QString::fromUtf8(father)}}};
    return act;
}

class WithFinder : public StagedSides
{
public:
    WithFinder(int people, Files files) : StagedSides(people, files)
    {
        Desktop::setProgramFolder(ORV_DATA_DIR);
        finder_.emplace(cnBDP);
        finder_->update(); // the index is there
    }
    ~WithFinder() override { Desktop::setProgramFolder({}); }

protected:
    study::Finder& finder() { return *finder_; }
    void startAnew() { finder_.emplace(cnBDP); }

private:
    std::optional<study::Finder> finder_;
};

// Of each question one is asked by a new finder, which knows nobody yet.
class Asking : public WithFinder
{
public:
    Asking(int people, const char* name, const char* bare)
        : WithFinder(people, Files::Own), act_(baptism(name, "")), bare_(bare)
    {
    }

    void prepare(int) override { startAnew(); }
    void ours(int) override { finder().find(act_, 3, {}); }
    void bare(int) override { bareSide().run(bare_); }

private:
    study::Act act_;
    const char* bare_;
};

class Couples : public WithFinder
{
public:
    explicit Couples(int people) : WithFinder(people, Files::Own), act_(baptism("Manuel Rodrigues", "Maria")) {}

    void prepare(int) override { startAnew(); }
    void ours(int) override { finder().couples(act_, 0, {}); }
    void bare(int) override
    {
        bareSide().run(
            "select f.nfamilia, h.nome, m.nome from individuo h join familias f on f.nind = h.nind join familias "
            "g on g.nfamilia = f.nfamilia join individuo m on m.nind = g.nind where h.nome >= 'Manuel Rodrigues' "
            "and h.nome < 'Manuel Rodriguet' and m.nome >= 'Maria' and m.nome < 'Marib'");
    }

private:
    study::Act act_;
};

// A session begins, and nothing was written since the last one.
class NothingChanged : public WithFinder
{
public:
    explicit NothingChanged(int people) : WithFinder(people, Files::Own) {}

    void prepare(int) override { startAnew(); }
    void ours(int) override { finder().update(); }
    void bare(int) override { bareSide().run("pragma data_version"); }
};

// Another program has written 200 people: all are compared.
class ChangedElsewhere : public WithFinder
{
public:
    explicit ChangedElsewhere(int people) : WithFinder(people, Files::Own) {}

    void prepare(int) override
    {
        static constexpr auto turn =
            "update individuo set nome = case nome when 'Ana Vaz' then 'Rui Vaz' else 'Ana Vaz' "
            "end where nind <= 200";
        Bare(cnBDP.dataSource()).execute(turn);
        bareSide().execute(turn);
    }
    void ours(int) override { finder().update(); }
    void bare(int) override { bareSide().run("select sum(length(nome) + length(datanasc)) from individuo"); }
};

class MadeAnew : public WithFinder
{
public:
    explicit MadeAnew(int people) : WithFinder(people, Files::Own) {}

    void ours(int) override { finder().rebuild(); }
    void bare(int) override { bareSide().run("select sum(length(nome) + length(datanasc)) from individuo"); }
};

constexpr auto byRareName =
    "select nind, nome, sexo, datanasc, dataobito from individuo where nome >= 'Custódio Leite' and "
    "nome < 'Custódio Leitf' limit 20";
constexpr auto byCommonName =
    "select nind, nome, sexo, datanasc, dataobito from individuo where nome >= 'Manuel Rodrigues' "
    "and nome < 'Manuel Rodriguet' limit 20";
constexpr auto byLetters = "select nind, nome, sexo, datanasc, dataobito from individuo where nome >= 'Man' and nome < "
                           "'Mao' limit 20";

Goal within(double ms)
{
    return {.flat = false, .ms = {{0, ms}}};
}

} // namespace

std::vector<Measure> finding()
{
    const auto asking = [](const char* name, const char* bare) {
        return [name, bare](int people) { return std::make_unique<Asking>(people, name, bare); };
    };
    return {
        {"find-rare", "the finder: a rare name", within(50), asking("Custódio Leite", byRareName)},
        {"find-common", "the finder: a frequent name", within(50), asking("Manuel Rodrigues", byCommonName)},
        {"find-first", "the finder: the most frequent first name alone", within(50), asking("Manuel", byCommonName)},
        {"find-letters", "the finder: the first three letters", within(50), asking("Man", byLetters)},
        {"find-letter", "the finder: the first letter", within(50), asking("M", byLetters)},
        {"find-couple", "the finder: father and mother together", within(50),
         [](int people) { return std::make_unique<Couples>(people); }},
        {"finder-begins", "the finder in a new session, nothing changed", within(50),
         [](int people) { return std::make_unique<NothingChanged>(people); }},
        {.name = "finder-follows",
         .event = "the finder after another program wrote 200 people",
         .goal = {.flat = false},
         .make = [](int people) { return std::make_unique<ChangedElsewhere>(people); },
         .turns = 6},
        {.name = "finder-rebuild",
         .event = "the index of the finder made anew",
         .goal = {.flat = false},
         .make = [](int people) { return std::make_unique<MadeAnew>(people); },
         .turns = 3},
    };
}

} // namespace bench
