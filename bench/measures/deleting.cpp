// Deletion of a person and of a family with all that hangs on them, which is kept to be put back; then the card of the
// one before.
#include "measures/all.h"

#include "families/frmFam.h"
#include "individuals/frmInd.h"
#include "kit/stage.h"
#include "measures/reads.h"
#include "store/session.h"

namespace bench {

namespace {

constexpr int turnsOfDeletion = 40;
constexpr int deletions = turnsOfDeletion + 5;

const QByteArray trash = "create table estudo_lixo (id integer primary key, quando varchar, tipo char(1), numero "
                         "double, nome memo, familias "
                         "memo, linhas memo)";

// What can hang on people and on families, given to all of a range in the files of both sides.
void hangAll(Bare& bare, int first, int last, bool families)
{
    const QByteArray to = families ? " from familia where nfamilia between " : " from individuo where nind between ";
    const QByteArray range = to + QByteArray::number(first) + " and " + QByteArray::number(last);
    const QByteArrayList persons{"residencia (numero, tiporesid, dataref) select nind, 'i', '1700-01-01'",
                                 "profissoes (nind, idprofissao) select nind, 9",
                                 "legadosprofanos (nind, idlegprof) select nind, 9",
                                 "rituaismorte (nind, idlegpio) select nind, 9",
                                 "assinatura (nind, idassinatura) select nind, 9",
                                 "assistente (tipoacto, entidade, nind) select 'b', nind, nind + 1",
                                 "passaporte (nind, nPass) select nind, 9"};
    const QByteArrayList couples{"residencia (numero, tiporesid, dataref) select nfamilia, 'f', '1700-01-01'",
                                 "assistente (tipoacto, entidade, nind) select 'c', nfamilia, nfamilia"};
    bare.execute("begin");
    for (const QByteArray& rows : families ? couples : persons)
        bare.execute("insert into " + rows + range);
    bare.execute("commit");
}

class DeletePerson : public StagedSides
{
public:
    explicit DeletePerson(int people) : StagedSides(people, Files::Own), number_(people / 2)
    {
        const int first = number_ - deletions;
        hangAll(bareSide(), first, number_, false);
        Bare program(cnBDP.dataSource());
        hangAll(program, first, number_, false);
        program.execute(trash);
        bareSide().execute(trash);
        frmInd().display();
        frmInd().procuraRegisto("nind = " + QString::number(number_));
    }

    void ours(int) override { frmInd().eliminaIndividuo(); }

    void bare(int) override
    {
        Bare& engine = bareSide();
        const double n = number_--;
        engine.run("begin");
        const QByteArray kept = collect(n);
        engine.run("delete from residencia where tiporesid = 'i' and numero = ?", {n});
        engine.run("delete from profissoes where nind = ?", {n});
        engine.run("delete from legadosprofanos where nind = ?", {n});
        engine.run("delete from rituaismorte where nind = ?", {n});
        engine.run("delete from assinatura where nind = ?", {n});
        engine.run("delete from assistente where tipoacto = 'b' and entidade = ?", {n});
        engine.run("delete from assistente where nind = ?", {n});
        engine.run("delete from passaporte where nind = ?", {n});
        deleteFamilies(n);
        engine.run("delete from individuo where nind = ?", {n});
        engine.run(
            "insert into estudo_lixo (quando, tipo, numero, nome, linhas) values ('2026-11-22 12:00:00', 'i', ?, "
            "'', ?)",
            {n, kept});
        engine.run("commit");
        readPerson(engine, number_);
    }

private:
    QByteArray collect(double n)
    {
        Bare& engine = bareSide();
        return engine.text(
                   "select rowid, * from individuo where nind = ?1 or famorig in (select nfamilia from familias "
                   "where nind = ?1)",
                   {n}) +
               engine.text("select familia.rowid, familia.* from familias join familia on familia.nfamilia = "
                           "familias.nfamilia where nind = ?",
                           {n}) +
               engine.text(
                   "select rowid, * from familias where nfamilia in (select nfamilia from familias where nind = "
                   "?)",
                   {n}) +
               engine.text("select rowid, * from residencia where tiporesid = 'i' and numero = ?", {n}) +
               engine.text("select rowid, * from profissoes where nind = ?", {n}) +
               engine.text("select rowid, * from legadosprofanos where nind = ?", {n}) +
               engine.text("select rowid, * from rituaismorte where nind = ?", {n}) +
               engine.text("select rowid, * from assinatura where nind = ?", {n}) +
               engine.text("select rowid, * from assistente where nind = ?1 or (tipoacto = 'b' and entidade = ?1)",
                           {n}) +
               engine.text("select rowid, * from passaporte where nind = ?", {n});
    }

    // A family of two loses both, one of one goes.
    void deleteFamilies(double n)
    {
        Bare& engine = bareSide();
        if (engine.number("select count(*) from familias where nind = ?", {n}) == 0) return;
        engine.run("update individuo set famorig = null where famorig in (select nfamilia from familias group by "
                   "nfamilia having nfamilia in (select nfamilia from familias where nind = ?) and count(*) = 1)",
                   {n});
        engine.run("delete from familia where nfamilia in (select nfamilia from familias group by nfamilia having "
                   "nfamilia in (select nfamilia from familias where nind = ?) and count(*) = 1)",
                   {n});
        engine.run("delete from familias where nfamilia in (select nfamilia from familias where nind = ?)", {n});
    }

    int number_;
};

class DeleteFamily : public StagedSides
{
public:
    explicit DeleteFamily(int people)
        : StagedSides(people, Files::Own), number_(static_cast<int>(lastFamily(bareSide())) / 2)
    {
        const int first = number_ - deletions;
        hangAll(bareSide(), first, number_, true);
        Bare program(cnBDP.dataSource());
        hangAll(program, first, number_, true);
        program.execute(trash);
        bareSide().execute(trash);
        frmFam().display();
        frmFam().procuraRegisto("nfamilia = " + QString::number(number_));
    }

    void ours(int) override { frmFam().eliminaFamilia(); }

    void bare(int) override
    {
        Bare& engine = bareSide();
        const double n = number_--;
        engine.run("begin");
        const QByteArray kept =
            engine.text("select rowid, * from individuo where famorig = ?", {n}) +
            engine.text("select rowid, * from familia where nfamilia = ?", {n}) +
            engine.text("select rowid, * from familias where nfamilia = ?", {n}) +
            engine.text("select rowid, * from residencia where tiporesid = 'f' and numero = ?", {n}) +
            engine.text("select rowid, * from assistente where tipoacto = 'c' and entidade = ?", {n});
        engine.run("update individuo set famorig = null where famorig = ?", {n});
        engine.run("delete from residencia where tiporesid = 'f' and numero = ?", {n});
        engine.run("delete from assistente where tipoacto = 'c' and entidade = ?", {n});
        engine.run("delete from familias where nfamilia = ?", {n});
        engine.run("delete from familia where nfamilia = ?", {n});
        engine.run(
            "insert into estudo_lixo (quando, tipo, numero, nome, linhas) values ('2026-11-22 12:00:00', 'f', ?, "
            "'', ?)",
            {n, kept});
        engine.run("commit");
        readFamily(engine, number_);
    }

private:
    int number_;
};

} // namespace

std::vector<Measure> deleting()
{
    return {{"delete-person",
             "deletion of a person with all that hangs on them",
             {.ratio = 1.5},
             [](int people) { return std::make_unique<DeletePerson>(people); },
             turnsOfDeletion},
            {"delete-family",
             "deletion of a family with all that hangs on it",
             {.ratio = 1.5},
             [](int people) { return std::make_unique<DeleteFamily>(people); },
             turnsOfDeletion}};
}

} // namespace bench
