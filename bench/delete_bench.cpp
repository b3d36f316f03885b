// Deleting a person and a family with all that hangs on them, beside the same statements on a bare connection and the
// showing of the record before.
#include "stage.h"

#include "families/frmFam.h"
#include "individuals/frmInd.h"

namespace {

// The program deletes from the end of a range on, the bare engine from its beginning: each record goes once.
constexpr int deletions = 50;

// A BDP of its own, in which everything that can hang on a person hangs on those from `people` / 4 to `people` / 2, and
// everything that can hang on a family on the first eighth of `people`.
class Registers : public Stage
{
public:
    explicit Registers(int people) : Stage(people, 1)
    {
        const QByteArray last = QByteArray::number(people / 2);
        const QByteArray persons =
            " from individuo where nind between " + QByteArray::number(people / 4) + " and " + last;
        const QByteArray families = " from familia where nfamilia <= " + QByteArray::number(people / 8);
        run("begin");
        for (const QByteArray& rows :
             QByteArrayList{"residencia (numero, tiporesid, dataref) select nind, 'i', '1700-01-01'" + persons,
                            "residencia (numero, tiporesid, dataref) select nfamilia, 'f', '1700-01-01'" + families,
                            "profissoes (nind, idprofissao) select nind, 1" + persons,
                            "legadosprofanos (nind, idlegprof) select nind, 1" + persons,
                            "rituaismorte (nind, idlegpio) select nind, 1" + persons,
                            "assinatura (nind, idassinatura) select nind, 1" + persons,
                            "assistente (tipoacto, entidade, nind) select 'b', nind, nind + 1" + persons,
                            "assistente (tipoacto, entidade, nind) select 'c', nfamilia, nfamilia" + families,
                            "passaporte (nind, nPass) select nind, 1" + persons})
            run("insert or ignore into " + rows);
        run("commit");
    }

    void deletePerson(int person)
    {
        const QByteArray n = QByteArray::number(person);
        run("begin");
        for (const char* statement :
             {"delete from residencia where tiporesid = 'i' and numero = ", "delete from profissoes where nind = ",
              "delete from legadosprofanos where nind = ", "delete from rituaismorte where nind = ",
              "delete from assinatura where nind = ", "delete from assistente where tipoacto = 'b' and entidade = ",
              "delete from assistente where nind = ", "delete from assistente where nind = ",
              "delete from passaporte where nind = "})
            run(statement + n);
        read("select nfamilia from familias where nind = " + n);
        if (person % 2 == 1) { // the other one of the couple is in no family any more
            const QByteArray family = QByteArray::number((person + 1) / 2);
            read("select count(*) as cont from familias where nfamilia = " + family);
            run("delete from familias where nfamilia = " + family);
        }
        run("commit");
        run("delete from individuo where nind = " + n);
        readIndividual(QByteArray::number(person + 1));
        paint();
    }

    void deleteFamily(int family)
    {
        const QByteArray n = QByteArray::number(family);
        run("begin");
        for (const char* statement :
             {"update individuo set famorig = null where famorig = ",
              "delete from residencia where tiporesid = 'f' and numero = ",
              "delete from assistente where tipoacto = 'c' and entidade = ", "delete from familias where nfamilia = ",
              "delete from familia where nfamilia = "})
            run(statement + n);
        run("commit");
        readFamily(QByteArray::number(family + 1));
        paint();
    }
};

void DeletingAPerson(benchmark::State& state)
{
    const int people = static_cast<int>(state.range(0));
    Registers registers(people);
    frmInd().display();
    frmInd().procuraRegisto("nind = " + QString::number(people / 2));
    registers.paintChanges();
    int bare = people / 4 + 1;
    compare(
        state,
        [&] {
            frmInd().eliminaIndividuo();
            registers.paintChanges();
        },
        [&] { registers.deletePerson(bare++); });
}

void DeletingAFamily(benchmark::State& state)
{
    const int people = static_cast<int>(state.range(0));
    Registers registers(people);
    frmFam().display();
    frmFam().procuraRegisto("nfamilia = " + QString::number(people / 8));
    registers.paintChanges();
    int bare = 1;
    compare(
        state,
        [&] {
            frmFam().eliminaFamilia();
            registers.paintChanges();
        },
        [&] { registers.deleteFamily(bare++); });
}

void sizes(benchmark::internal::Benchmark* measure)
{
    measure->Arg(1000)->Arg(1'000'000)->Iterations(deletions)->UseManualTime()->Unit(benchmark::kMicrosecond);
}
BENCHMARK(DeletingAPerson)->Apply(sizes);
BENCHMARK(DeletingAFamily)->Apply(sizes);

} // namespace
