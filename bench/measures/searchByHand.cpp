#include "measures/searchByHand.h"

#include "control.h"
#include "families/frmFam.h"
#include "individuals/frmDatas.h"
#include "individuals/frmInd.h"

namespace bench {

namespace {

void click(const Form& form, const char* button)
{
    control<CommandButton>(form, button).click();
}

void beginSearch(Form& card)
{
    card.display();
    click(card, "cmdLoc");
}

} // namespace

void searchPeopleByName(const char* name)
{
    beginSearch(frmInd());
    control<TextBox>(frmInd(), "txtNome").setText(QString::fromUtf8(name));
    click(frmInd(), "cmdLoc");
}

void searchPeopleByDate(SearchedDate date, const char* from, const char* to)
{
    beginSearch(frmInd());
    click(frmInd(), "cmdLocDat");
    const char* option = date == SearchedDate::Marriage ? "optData_1" : "optData_3";
    control<OptionButton>(frmDatas(), option).setValue(true);
    control<MaskedEdit>(frmDatas(), "mskDt_1").showPlain(QString::fromLatin1(from));
    control<MaskedEdit>(frmDatas(), "mskDt_2").showPlain(QString::fromLatin1(to));
    click(frmDatas(), "cmdOk");
    click(frmInd(), "cmdLoc");
}

void searchFamiliesByHusband(const char* name)
{
    beginSearch(frmFam());
    control<TextBox>(frmFam(), "txtPnome").setText(QString::fromUtf8(name));
    click(frmFam(), "cmdLoc");
}

} // namespace bench
