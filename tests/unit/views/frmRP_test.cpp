// The file of a parish record: what the form tells beside the path.
#include "views/frmRP.h"

#include "individuals/individual_card.h"

#include <QFileDialog>

namespace {

class ParishRecord : public IndividualCard
{
protected:
    ParishRecord()
    {
        Forms::add(FrmRP::Name, [] { return new FrmRP; });
    }
};

} // namespace

TEST_F(ParishRecord, TheToolTipTellsWhoseRecordItIsAndOfWhichAct)
{
    click("cmdRP_0");
    EXPECT_EQ(frmRP().caption(), "Registos Paroquiais");
    EXPECT_EQ(frmRP().toolTip(), "Registo de Baptismo do indivíduo nº 7, Ana");
    EXPECT_EQ(control<TextBox>(frmRP(), "txtLoc").toolTip(), frmRP().toolTip());
    frmInd().display();
    click("cmdRP_1");
    EXPECT_EQ(frmRP().toolTip(), "Registo de Óbito do indivíduo nº 7, Ana");
    control<CommandButton>(frmRP(), "cmdG_1").click();

    cnBDP.execute("insert into familia (nfamilia) values (3)");
    Forms::show(FrmFam::Name);
    control<CommandButton>(frmFam(), "cmdRP").click();
    EXPECT_EQ(frmRP().toolTip(), "Registo de Casamento da família nº 3");
}

TEST_F(ParishRecord, TheDialogShowsItsFilter)
{
    click("cmdRP_0");
    QStringList filters;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (!dialog) return;
        timer.stop();
        filters = dialog->nameFilters();
        dialog->reject();
    });
    timer.start(0);
    control<CommandButton>(frmRP(), "cmdLoc").click();
    EXPECT_EQ(filters, QStringList("Registos Paroquiais (*)"));
}
