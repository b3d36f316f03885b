// Showing the next individual on the card, on a thousand and on a million people, beside the bare engine running the
// same statements on the same file.
#include "beside.h"

#include "control.h"
#include "individuals/frmInd.h"
#include "platform/forms/focus.h"
#include "platform/forms/forms.h"
#include "shell/beginSession.h"
#include "store/modBD.h"

#include <QMainWindow>
#include <QMdiArea>
#include <QTemporaryDir>

#include <sqlite3.h>

namespace {

// A BDP with so many people, open, and its card.
class Parish
{
public:
    explicit Parish(qint64 people)
    {
        const QString path = folder_.filePath("a.orv");
        jet::createDatabase(path);
        cnBDP.open("Data Source=" + path);
        CriaTabelas(cnBDP, ORV_DATA_DIR "/CriarTab.dat");
        run("insert into infocomplementar values ('TipIn', 'T', 'Por definir'), ('Filia', '1', 'Legítima')");
        run("with recursive n(i) as (select 1 union all select i + 1 from n where i < " + QByteArray::number(people) +
            ") insert into individuo (nind, nome, tipo, sexo, datanasc, DnascFixa, filiacao, obs) "
            "select i, 'Maria de São José ' || i, 'T', 'f', '1750-03-09', 1, 1, 'Sem notas' from n");
        run("insert into familia (nfamilia, tipocasal) select nind, 7 from individuo where nind <= 1000");
        run("insert into familias (nfamilia, nind) select nfamilia, nfamilia from familia");

        Focus::install();
        auto* area = new QMdiArea;
        window_.setObjectName("frmORV");
        window_.setCentralWidget(area);
        Forms::setMainWindow(&window_, area);
        Forms::add(FrmInd::Name, [] { return new FrmInd; });
        window_.show();
        frmInd().display();
    }

    ~Parish()
    {
        Forms::clear();
        cnBDP.close();
        beginSession();
    }

private:
    static void run(const QByteArray& statement) { sqlite3_exec(cnBDP.handle(), statement, nullptr, nullptr, nullptr); }

    QTemporaryDir folder_;
    QMainWindow window_;
};

void ShowingTheNextIndividual(benchmark::State& state)
{
    const Parish parish(state.range(0));
    auto& next = control<CommandButton>(frmInd(), "cmdSeg");
    int shown = 1;
    for ([[maybe_unused]] auto turn : state) {
        next.click();
        if (++shown < state.range(0)) continue;
        frmInd().vaiAoPrincipio();
        shown = 1;
    }
}

void RunningItsStatementsBare(benchmark::State& state)
{
    const Parish parish(state.range(0));
    qint64 nind = 0;
    for ([[maybe_unused]] auto turn : state) {
        const QByteArray number = QByteArray::number(nind++ % state.range(0) + 1);
        readAll(cnBDP.handle(), "select * from individuo where nind = " + number);
        readAll(cnBDP.handle(), "Select descricao from infocomplementar where categoria = 'TipIn' and codigo = 'T'");
        readAll(cnBDP.handle(),
                "SELECT familia.nfamilia, tipocasal, sfamilia, datacasam FROM (familia INNER JOIN familias ON "
                "familia.nfamilia = familias.nfamilia) WHERE familias.nind =" +
                    number + " order by datacasam asc");
    }
}

BENCHMARK(RunningItsStatementsBare)->Arg(1000)->Arg(1000000)->Unit(benchmark::kMicrosecond);
BENCHMARK(ShowingTheNextIndividual)->Arg(1000)->Arg(1000000)->Unit(benchmark::kMicrosecond);

} // namespace
