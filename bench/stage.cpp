#include "stage.h"

#include "control.h"
#include "individuals/frmInd.h"
#include "platform/forms/focus.h"
#include "platform/forms/forms.h"
#include "shell/startup.h"
#include "views/frmResult.h"

#include <QCoreApplication>
#include <QMdiArea>

#include <sqlite3.h>

#include <cstdio>
#include <cstdlib>

Stage::Stage(int people, int searched) : people_(people, searched)
{
    Focus::install();
    auto* area = new QMdiArea;
    window_.setObjectName("frmORV");
    window_.setCentralWidget(area);
    window_.resize(1280, 800);
    Forms::setMainWindow(&window_, area);
    registerForms();
    window_.show();
}

Stage::~Stage()
{
    Forms::clear();
}

void Stage::paint()
{
    for (QWidget* widget : window_.findChildren<QWidget*>())
        if (widget->isVisible()) widget->update();
    paintChanges();
}

void Stage::paintChanges()
{
    QCoreApplication::processEvents();
}

void Stage::run(const QByteArray& statements)
{
    char* error = nullptr;
    if (sqlite3_exec(people_.bare(), statements, nullptr, nullptr, &error) == SQLITE_OK) return;
    std::fprintf(stderr, "%s: %s\n", error, statements.constData());
    std::abort(); // a measure of nothing
}

void Stage::readFamily(const QByteArray& number)
{
    read("select rowid from familia where nfamilia = " + number);
    read("select * from familia where nfamilia = " + number);
    read("select * from familias where nfamilia = " + number);
    read("select descricao from infocomplementar where categoria = 'TipFa' and codigo = '7'");
    for (const int member : {number.toInt() * 2 - 1, number.toInt() * 2}) {
        const QByteArray nind = QByteArray::number(member);
        read("select sexo from individuo where nind = " + nind);
        read("select nome, sexo, datanasc, localnasc, tipolocalnasc, dataobito from individuo where nind = " + nind);
    }
    read("select famorig, individuo.fimobs, individuo.nind, nome, datanasc, dataobito, min(datacasam) from "
         "individuo left join familias on individuo.nind = familias.nind left join familia on familia.nfamilia = "
         "familias.nfamilia where famorig = " +
         number + " group by famorig, individuo.nind, nome, individuo.fimobs, datanasc, dataobito order by datanasc");
}

void Stage::readIndividual(const QByteArray& number)
{
    read("select * from individuo where nind = " + number);
    read("select descricao from infocomplementar where categoria = 'TipIn' and codigo = 'T'");
    read("select familia.nfamilia, tipocasal, sfamilia, datacasam from (familia inner join familias on "
         "familia.nfamilia = familias.nfamilia) where familias.nind = " +
         number + " order by datacasam asc");
    read("select codigo, descricao from infocomplementar where categoria = 'SitFa' and codigo = '1'");
}

void Stage::readTree(int number)
{
    const int parents = number / 4;
    for (const int family : {parents, (2 * parents - 1) / 4, 2 * parents / 4})
        read("select familia.nfamilia, individuo.nome, individuo.sexo, datanasc, localnasc, tipolocalnasc, "
             "dataobito, individuo.inicioobs, individuo.fimobs, individuo.famorig from individuo inner join "
             "(familia inner join familias on familia.nfamilia = familias.nfamilia) on individuo.nind = "
             "familias.nind where familias.nfamilia = " +
             QByteArray::number(family) + " order by individuo.sexo desc");
}

void Stage::searchNames()
{
    auto& search = control<CommandButton>(frmInd(), "cmdLoc");
    if (Forms::find(FrmResult::Name))
        control<CommandButton>(frmResult(), "cmdFechar").click();
    else if (frmInd().modo() != Modo::Loc)
        search.click();
    control<TextBox>(frmInd(), "txtNome").setText("%Assunção%");
    search.click();
    if (!Forms::find(FrmResult::Name)) std::abort(); // a measure of nothing
}

void Stage::readNames()
{
    read("select individuo.nind as Nind, nome, datanasc, dataobito, famorig from individuo where individuo.nome "
         "like '%Assunção%' order by nome");
}
