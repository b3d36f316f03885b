// The card over a BDP with one person, Ana, number 7.
#pragma once

#include "individuals/frmInd.h"

#include "common/passo.h"
#include "common/globals.h"
#include "common/SplashForm.h"
#include "families/frmFam.h"
#include "platform/forms/msgbox.h"
#include "store/parish.h"

class IndividualCard : public Parish
{
protected:
    IndividualCard()
    {
        cnBDP.execute("insert into infocomplementar (categoria, codigo, descricao) values ('TipIn', 'T', 'Sem datas')");
        cnBDP.execute("insert into individuo (nind, nome, tipo, sexo) values (7, 'Ana', 'T', 'f')");
        Forms::add(FrmInd::Name, [] { return new FrmInd; });
        Forms::add(FrmFam::Name, [] { return new FrmFam; });
        Forms::show(FrmInd::Name);
    }

    // A card that has called this one up, and waits.
    Form* caller(const QString& name)
    {
        Form* form = Forms::load(name); // the family card; the forms of the acts are made here
        if (!form)
            form = make(name, [](TestForm& act) {
                act.put<MaskedEdit>("mskData")->showPlain("09/03/1750");
                for (const char* field : {"txtIndP1", "txtIndP2", "txtIndAss", "txtNindP", "txtNindH"})
                    act.put<TextBox>(field);
            });
        form->display();
        form->setEnabled(false);
        frmInd().display();
        return form;
    }

    static void close(int origin)
    {
        OrigemInd = origin;
        frmInd().cmdFechar->click();
        EXPECT_EQ(OrigemInd, 8) << origin;
    }

    // Hands the person shown over to who asks.
    static void choose(int origin)
    {
        OrigemInd = origin;
        frmInd().cmdAtribuir->setEnabled(true);
        frmInd().cmdAtribuir->click();
    }

    static void rename(const QString& name)
    {
        frmInd().cmdAlt->click();
        frmInd().txtNome->setText(name);
        frmInd().cmdAlt->click();
    }
};
