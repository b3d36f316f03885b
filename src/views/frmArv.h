// The window with the tree of one individual.
#pragma once

#include "platform/forms/controls.h"
#include "platform/forms/form.h"
#include "platform/jet/recordset.h"
#include "views/arvore.h"

#include "ui_frmArv.h"

#include <QPointer>

#include <functional>

// The card that opens it is disabled until the window closes.
class FrmArv : public Form, private Ui::FrmArv
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmArv";

    FrmArv();

    // The person on the card, whose row it is: three generations.
    void mostraIndividuo(Form& cartao, const PessoaDaArvore& pessoa, const jet::Recordset& registo);
    // The spouse of that person: two.
    void mostraConjuge(Form& cartao, const PessoaDaArvore& pessoa);

protected:
    void Form_Unload() override;

private:
    void mostra(Form& cartao, const QString& tipo, const PessoaDaArvore& pessoa,
                const std::function<Arvore::No(Arvore&)>& desenha);

    QPointer<Form> cartao_;
};

FrmArv& frmArv();
