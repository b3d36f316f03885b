// The card over a BDP with one person, Ana, number 7.
#pragma once

#include "individuals/frmInd.h"

#include "common/passo.h"
#include "common/splashForm.h"
#include "control.h"
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
        Forms::add(SplashForm::Name, [] { return new SplashForm; });
        Forms::show(FrmInd::Name);
    }

    static CommandButton& command(const char* name) { return control<CommandButton>(frmInd(), name); }
    static void click(const char* name) { command(name).click(); }
    static TextBox& name() { return control<TextBox>(frmInd(), "txtNome"); }

    // A form that asks for a person, and what it was given.
    Form* asker = make("frmQuemPede", [](TestForm& form) { form.put<TextBox>("txt"); });
    QString given;

    PedidoDeIndividuo request(DepoisDePedido then)
    {
        return {.origem = OrigemInd::Assistente,
                .quem = asker,
                .IndChamado = true,
                .depois = then,
                .recebe = [this](const FrmInd& card) { given += card.numero(); }};
    }
    void ask(PedidoDeIndividuo request)
    {
        asker->display();
        FrmInd::pede(std::move(request), QString());
    }
};
