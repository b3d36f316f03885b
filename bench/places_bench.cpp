// The places of a parish with 1,500 localities, 300 sites in one of them, beside the bare engine running the same
// statements on the same file: the picker filling its list, the editor opening, and its next code.
#include "beside.h"

#include "control.h"
#include "places/frmLocalizacao.h"
#include "places/frmLugares.h"
#include "places/frmSitios.h"
#include "platform/forms/focus.h"
#include "platform/forms/forms.h"
#include "shell/beginSession.h"
#include "store/modBD.h"

#include <QMainWindow>
#include <QMdiArea>
#include <QTemporaryDir>

#include <sqlite3.h>

namespace {

class ParishOfPlaces
{
public:
    ParishOfPlaces()
    {
        const QString path = folder_.filePath("a.orv");
        jet::createDatabase(path);
        cnBDP.open("Data Source=" + path);
        CriaTabelas(cnBDP, ORV_DATA_DIR "/CriarTab.dat");
        run("insert into pais (codpais, nomepais) values ('PT', 'Portugal')");
        run("insert into distrito (coddistrito, nomedistrito, codpais) values ('03', 'Braga', 'PT')");
        run("insert into concelho (codconcelho, nomeconcelho, coddistrito) values ('0303', 'Braga', '03')");
        run("insert into paroquia (codparoquia, nomeparoquia, codconcelho) values ('030303', 'São Mamede', '0303')");
        run("with recursive n(i) as (select 1 union all select i + 1 from n where i < 1500) "
            "insert into lugar (codlugar, nomelugar, codparoquia) select '030303' || printf('%02d', i), "
            "'*Lugar do Outeiro ' || i, '030303' from n");
        run("with recursive n(i) as (select 1 union all select i + 1 from n where i < 300) "
            "insert into sitio (codsitio, nomesitio, codlugar) select '03030307' || printf('%02d', i), "
            "'*Fonte ' || i, '03030307' from n");
        CodParoquia = "030303";

        Focus::install();
        auto* area = new QMdiArea;
        window_.setObjectName("frmORV");
        window_.setCentralWidget(area);
        Forms::setMainWindow(&window_, area);
        Forms::add(FrmLocalizacao::Name, [] { return new FrmLocalizacao; });
        Forms::add(FrmLugares::Name, [] { return new FrmLugares; });
        Forms::add(FrmSitios::Name, [] { return new FrmSitios; });
        window_.show();
        pedeLocal({});
    }

    ~ParishOfPlaces()
    {
        Forms::clear();
        cnBDP.close();
        CodParoquia.clear();
        beginSession();
    }

    // Opens an editor from the picker, begins an insertion, which asks for the next code, and leaves it again.
    static void visit(const char* button, const char* editor)
    {
        control<CommandButton>(frmLocalizacao(), button).click();
        Form& form = *Forms::find(editor);
        control<CommandButton>(form, "cmdIns").click();
        control<CommandButton>(form, "cmdAlt").click();
        control<CommandButton>(form, "cmdSair").click();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

private:
    static void run(const QByteArray& statement) { sqlite3_exec(cnBDP.handle(), statement, nullptr, nullptr, nullptr); }

    QTemporaryDir folder_;
    QMainWindow window_;
};

const QByteArray localities = "select * from lugar where codparoquia = '030303'";
const QByteArray sites = "select * from sitio where codlugar = '03030307'";

void ChoosingAParishOfManyLocalities(benchmark::State& state)
{
    const ParishOfPlaces parish;
    auto& list = control<ComboBox>(frmLocalizacao(), "cmbParoquia");
    const auto choose = [&] {
        list.setListIndex(0);
        list.setListIndex(1);
    };
    compare(state, choose, [] { readAll(cnBDP.handle(), localities); });
}

// The bare engine reads the rows as often: for the grid, for the next code, and for the picker's list.
void VisitingTheEditorOfManyLocalities(benchmark::State& state)
{
    const ParishOfPlaces parish;
    compare(
        state, [] { ParishOfPlaces::visit("cmdLug", FrmLugares::Name); },
        [] {
            readAll(cnBDP.handle(), localities + " order by codlugar");
            for (int i = 0; i < 2; ++i)
                readAll(cnBDP.handle(), localities);
        });
}

void VisitingTheEditorOfManySites(benchmark::State& state)
{
    const ParishOfPlaces parish;
    auto& list = control<ComboBox>(frmLocalizacao(), "cmbLugar");
    list.setListIndex(7);
    compare(
        state, [] { ParishOfPlaces::visit("cmdSit", FrmSitios::Name); },
        [] {
            readAll(cnBDP.handle(), sites + " order by codsitio");
            for (int i = 0; i < 2; ++i)
                readAll(cnBDP.handle(), sites);
        });
}

BENCHMARK(ChoosingAParishOfManyLocalities)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(VisitingTheEditorOfManyLocalities)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(VisitingTheEditorOfManySites)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace
